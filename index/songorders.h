#pragma once

#include "index/songinfoindex.h"

namespace brisel
{

/// Positions in a list of songs.
using SongOrder = QList<qsizetype>;

/// The orders of the index files, as positions in a list that is not changed. They are those of
/// compareByPath, compareTitle, compareArtist and compareGenre, but faster: the beginning of a
/// title is folded only once, an artist or genre once for each spelling, and only positions are
/// moved. Songs that compare equal are ordered by their paths, so that the same songs always give
/// the same files.
namespace SongOrders
{

/// Songs by their artist or genre.
struct Groups {
    SongOrder order;
    QList<int> numbers; ///< by position: the same for songs of one group
};

/// As compareByPath; paths must have their keys. A list that is almost in this order needs little
/// more than one comparison for each song.
SongOrder byPath(const QList<SongInfoIndex> &songs);
/// As compareTitle.
SongOrder byTitle(const QList<SongInfoIndex> &songs);
/// The songs of \a byTitle by \a group, the artist or the genre, and then in the order of
/// \a byTitle.
Groups byGroup(const QList<SongInfoIndex> &songs, const SongOrder &byTitle,
               QString SongInfoIndex::*group);
/// The songs of \a order that are MP3s.
SongOrder mp3Only(const QList<SongInfoIndex> &songs, const SongOrder &order);

} // namespace SongOrders

} // namespace brisel
