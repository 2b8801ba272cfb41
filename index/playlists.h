#pragma once

#include "index/playlistfollower.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace brisel
{

class IndexReader;
class IndexSet;

/// The files of the user's playlists, which name songs by their ids: turned into paths before the
/// songs get new ids, and changed to the new ids afterwards. See docs/formats/playlists.md.
namespace Playlists
{

enum class Preparation {
    NotNeeded,  ///< no playlists, all have path files, or the index can't be read
    Written,    ///< path files were written
    NoSongs,    ///< a listed playlist has no songs file; those before and after it are written
    Unwritable, ///< a path file can't be written: the old index must be kept
};

/// "playlist/play0007.dat" of 7. A negative number is taken as its unsigned 32 bits.
QString songsFileName(qint16 number);
/// "playlist/play0007.pts" of 7.
QString pathsFileName(qint16 number);
/// One record of a path file with \a path, in the bytes of "index.id2".
QByteArray pathRecord(const QByteArray &path);

/// The numbers in "playlist/playlist.dat", each once; empty if it can't be read.
[[nodiscard]] QList<qint16> readNumbers(const IndexSet &set);

/// Returns true if every one of \a numbers has its path file. A path file without records, which a
/// cut can leave, counts as missing if the playlist has songs.
[[nodiscard]] bool haveAllPathFiles(const IndexSet &set, const QList<qint16> &numbers);

/// Writes the path files of the playlists \a numbers from the index read by \a old.
[[nodiscard]] Preparation writePathFiles(IndexSet &set, const QList<qint16> &numbers,
                                         const IndexReader &old);

/// The highest id that an entry of the playlists \a numbers has; 0 if they have no entries. Ids so
/// high that no higher ones are left are damaged and ignored.
[[nodiscard]] quint32 highestId(const IndexSet &set, const QList<qint16> &numbers);

/// The sort keys of the paths that the index \a old has for the entries of the playlists
/// \a numbers.
[[nodiscard]] QSet<QByteArray> namedPaths(const IndexSet &set, const QList<qint16> &numbers,
                                          const IndexReader &old);

/// The lowest id from which on \a songs songs can be numbered without giving one of them the id of
/// an entry that stays behind in the playlists \a numbers although its song was removed; 0 if no
/// entry has such an id. A playlist that can't be read may have any id of the old index, whose
/// highest is \a oldHighest.
[[nodiscard]] quint32 firstFreeId(const IndexSet &set, const QList<qint16> &numbers,
                                  PlaylistFollower &follower, qsizetype songs, quint32 oldHighest);

/// Stages the new songs files of the playlists \a numbers, and the path files of those that the
/// player has changed. Returns the names of songs files that exist but can't be changed. A failed
/// write is reported when the set is committed.
[[nodiscard]] QStringList stage(IndexSet &set, const QList<qint16> &numbers,
                                PlaylistFollower &follower, PlaylistFollower::Way way);

} // namespace Playlists

} // namespace brisel
