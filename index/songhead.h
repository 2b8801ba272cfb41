#pragma once

#include "base/fileidentity.h"

#include <QByteArray>

namespace brisel
{

class SongInfoIndex;

/// What the player's index says of a song is read from the song's first bytes, by rules that are
/// the index's own: its offsets and limits intentionally differ from those of the song file
/// readers.
namespace SongHead
{

/// The bytes of a song that are read.
constexpr int prefixSize = 3072;

/// Reads the first bytes of the song at \a path, which was a plain file a moment ago. Returns false
/// if it can't be read. \a state gets the kind and dates of what is at \a path now.
[[nodiscard]] bool read(const QString &path, QByteArray &prefix, FileState &state);

/// Fills title, artist, genre, type, bpm, reserved and flag of \a song, whose absolutePath is set,
/// from its first bytes. With fewer than 5 bytes, returns false and sets only the defaults.
bool parse(const QByteArray &prefix, SongInfoIndex &song);

} // namespace SongHead

} // namespace brisel
