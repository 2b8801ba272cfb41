#pragma once

#include "base/fileidentity.h"

#include <QByteArray>

class SongInfoIndex;

/// What the player's index says of a song is read from the song's first bytes, by rules that are
/// the index's own: its offsets and limits intentionally differ from those of the song file
/// readers.
namespace SongHead
{

/// How much of a song is looked at, in bytes.
constexpr int prefixSize = 3072;

/// Reads the first bytes of the song at \a path, which was a plain file a moment ago. False when
/// it can't be read. \a state gets the kind and dates of what is at \a path now.
[[nodiscard]] bool read(const QString &path, QByteArray &prefix, FileState &state);

/// Fills title, artist, genre, type, bpm, reserved and flag of \a song, whose absolutePath is set,
/// from its first bytes. False when they are fewer than 5; then only the defaults are set.
bool parse(const QByteArray &prefix, SongInfoIndex &song);

} // namespace SongHead
