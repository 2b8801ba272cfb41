#pragma once

#include <QByteArray>

/// The scheme by which a tag has no bytes that look like the start of audio: a zero byte stands
/// behind each 0xFF that 0x00, 0xE0 to 0xFF or the end would follow. See docs/formats/id3.md.
namespace Unsynchronisation
{

/// True when \a data may have been written by the scheme: it holds nothing that it would have
/// changed. A tag that only says that it is unsynchronised is found by this.
[[nodiscard]] bool isPossible(QByteArrayView data);
/// Takes the inserted zero bytes away.
[[nodiscard]] QByteArray undone(QByteArrayView data);

} // namespace Unsynchronisation
