#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace brisel
{

/// Texts of ID3v2 frames: a byte that names the encoding, then the text. See docs/formats/id3.md.
namespace Id3Text
{

/// The first text of \a content, up to its terminator and at most \a limit characters of it,
/// trimmed. An unknown encoding is read as Latin-1.
[[nodiscard]] QString read(QByteArrayView content, qsizetype limit);

/// True if \a content is a single text in Latin-1, terminated or not.
bool isPlain(QByteArrayView content);

/// \a text as a frame's content: in Latin-1 if possible, otherwise in UTF-8 in a tag of version 4
/// and in UTF-16 with a byte order mark in an older one. No terminator.
[[nodiscard]] QByteArray content(const QString &text, int version);
/// \a text as a frame's content in UTF-8, which has no bytes that unsynchronisation would change.
[[nodiscard]] QByteArray utf8Content(const QString &text);

} // namespace Id3Text

} // namespace brisel
