#pragma once

#include <QByteArray>

namespace brisel
{

/// The scheme that keeps bytes that look like the start of audio out of a tag: a zero byte is
/// inserted after each 0xFF that is followed by 0x00, 0xE0 to 0xFF or the end. See
/// docs/formats/id3.md.
namespace Unsynchronisation
{

/// True if \a data may have been written by the scheme, that is, has no bytes that it would have
/// changed. Detects tags whose flag is wrong.
[[nodiscard]] bool isPossible(QByteArrayView data);
/// Removes the inserted zero bytes.
[[nodiscard]] QByteArray undone(QByteArrayView data);

} // namespace Unsynchronisation

} // namespace brisel
