#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace brisel
{

/// The text of song files, the catalogue and the player's records: 8 bits a character, Latin-1.

/// Takes surrounding white space away, the no-break space included. The control character 0x85
/// stays: in files from other systems it stands for an ellipsis.
QString trimmedSongText(const QString &text);

/// \a bytes up to the first zero byte as text, trimmed.
QString songText(QByteArrayView bytes);

/// True when \a bytes has others than zero behind its first zero byte, where songText() ends.
bool holdsMoreThanSongText(QByteArrayView bytes);

/// \a text as Latin-1; a character that Latin-1 lacks becomes '?'.
QByteArray songBytes(const QString &text);

/// The characters of \a text that songBytes() turns into '?', each once and in the order in which
/// they appear. A surrogate pair is one character; half of one is given as U+FFFD.
QString charactersLostInSongBytes(const QString &text);

} // namespace brisel
