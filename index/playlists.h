#pragma once

#include "index/playlistfollower.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

class IndexReader;
class IndexSet;

/// The files of the user's playlists, which name songs by their ids: turned into paths before the
/// songs are numbered afresh, and followed to the new ids afterwards. See
/// docs/formats/playlists.md.
namespace Playlists
{

enum class Preparation {
    NotNeeded,  ///< no playlists, or all have their path files, or there is no index to read
    Written,    ///< path files were written
    NoSongs,    ///< a listed playlist has no songs file; those before and after it are written
    Unwritable, ///< a path file can't be written: the old index must not be given up
};

/// "playlist/play0007.dat" of 7. A negative number is taken as its unsigned 32 bits.
QString songsFileName(qint16 number);
/// "playlist/play0007.pts" of 7.
QString pathsFileName(qint16 number);

/// The numbers in "playlist/playlist.dat", each once; none when it can't be read.
QList<qint16> readNumbers(const IndexSet &set);

/// True when every one of \a numbers has its path file. One without a record, such as a cut leaves,
/// is as good as missing where the playlist has songs.
bool haveAllPathFiles(const IndexSet &set, const QList<qint16> &numbers);

/// Writes the path files of the playlists \a numbers by the index that \a old has read.
Preparation writePathFiles(IndexSet &set, const QList<qint16> &numbers, const IndexReader &old);

/// The highest id that an entry of the playlists \a numbers has; 0 when there is none. Ids so high
/// that none above them is left don't count: only damage makes such.
quint32 highestId(const IndexSet &set, const QList<qint16> &numbers);

/// The sort keys of the paths that the index \a old has for the entries of the playlists \a
/// numbers.
QSet<QByteArray> namedPaths(const IndexSet &set, const QList<qint16> &numbers,
                            const IndexReader &old);

/// The lowest number from which on \a songs new ids can begin, so that none of them is that of an
/// entry of the playlists \a numbers that stays behind: 0 unless that would give one away. A
/// playlist that can't be read may have any id of the old index, whose highest is \a oldHighest.
quint32 firstFreeId(const IndexSet &set, const QList<qint16> &numbers, PlaylistFollower &follower,
                    qsizetype songs, quint32 oldHighest);

/// Stages the new songs files of the playlists \a numbers, and the path files of those that the
/// player has changed. Gives the names of songs files that are there but can't be followed. A write
/// that fails shows when the set is committed.
QStringList stage(IndexSet &set, const QList<qint16> &numbers, PlaylistFollower &follower,
                  PlaylistFollower::Way way);

} // namespace Playlists
