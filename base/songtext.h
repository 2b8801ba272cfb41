#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace brisel
{

/// The text of song files, the catalogue and the player's records: Latin-1.

/// Removes surrounding white space, including no-break spaces. Keeps the control character 0x85,
/// which is an ellipsis in files from other systems.
QString trimmedSongText(const QString &text);

/// \a bytes up to the first zero byte as text, trimmed.
QString songText(QByteArrayView bytes);

/// Returns true if \a bytes has other bytes than zero after its first zero byte, where songText()
/// ends.
bool holdsMoreThanSongText(QByteArrayView bytes);

/// \a text as Latin-1; a character that Latin-1 lacks becomes '?'.
QByteArray songBytes(const QString &text);

/// The characters of \a text that songBytes() turns into '?', each once and in the order in which
/// they appear. A surrogate pair is one character; an unpaired surrogate becomes U+FFFD.
QString charactersLostInSongBytes(const QString &text);

} // namespace brisel
