#pragma once

#include "index/pathtable.h"
#include "index/songinfoindex.h"

#include <QList>
#include <QString>

class IndexSet;

/// The user's playlists, which name songs by their ids: turned into paths before the songs are
/// numbered afresh, and back into ids afterwards. See docs/formats/playlists.md.
namespace Playlists
{

enum class Preparation {
    NotNeeded,  ///< no playlists, or all have their path files, or there is no index to read
    Written,    ///< path files were written; the old index is loaded
    NoSongs,    ///< a listed playlist has no songs file; those before and after it are written
    Unwritable, ///< a path file can't be written: the old index must not be given up
};

/// "playlist/play0007.dat" of 7. A negative number is taken as its unsigned 32 bits.
QString songsFileName(qint16 number);
/// "playlist/play0007.pts" of 7.
QString pathsFileName(qint16 number);

/// The numbers in "playlist/playlist.dat", each once; none when it can't be read.
QList<qint16> readNumbers(const IndexSet &set);

/// True when every one of \a numbers has its path file.
bool haveAllPathFiles(const IndexSet &set, const QList<qint16> &numbers);

/// Writes the path files of the playlists \a numbers by \a songs in the order of their ids.
Preparation writePathFiles(IndexSet &set, const QList<qint16> &numbers,
                           const QList<SongInfoIndex> &songs);

/// Stages the songs files of the playlists \a numbers by their path files and the new records of
/// \a songs. False when a file of one could not be opened; the others are done. A write that
/// fails shows when the set is committed.
bool stageSongsFiles(IndexSet &set, const QList<qint16> &numbers,
                     const QList<SongInfoIndex> &songs);

} // namespace Playlists
