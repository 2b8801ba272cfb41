#pragma once

#include "index/songinfoindex.h"

/// Positions in a list of songs.
using SongOrder = QList<qsizetype>;

/// The orders of the index's files, as positions in a list that stays as it is. They are those of
/// compareByPath, compareTitle, compareArtist and compareGenre, found with less work: a title's
/// beginning is folded once, an artist or genre once for each way it is written, and nothing but
/// positions is moved. Songs that
/// these hold for equal stand in the order of their paths on the disk, so that the same songs
/// always give the same files.
namespace SongOrders
{

/// Songs by their artist or genre.
struct Groups {
    SongOrder order;
    QList<int> numbers; ///< by position: the same for songs of one group
};

/// As compareByPath; paths have their keys. A list that stands in this order, or nearly, takes
/// little more than one comparison a song.
SongOrder byPath(const QList<SongInfoIndex> &songs);
/// As compareTitle.
SongOrder byTitle(const QList<SongInfoIndex> &songs);
/// The songs of \a byTitle by \a group, which is the artist or the genre, and then as they were.
Groups byGroup(const QList<SongInfoIndex> &songs, const SongOrder &byTitle,
               QString SongInfoIndex::*group);
/// The songs of \a order that are MP3s.
SongOrder mp3Only(const QList<SongInfoIndex> &songs, const SongOrder &order);

} // namespace SongOrders
