#pragma once

#include "index/indexrecords.h"
#include "index/songinfoindex.h"

#include <array>

/// The contents of the index files, made from a list of songs: see docs/formats/player-index.md.
namespace IndexWriters
{

/// A data file, the alphabet table that belongs to it, and what "fsinfos.id2" says of it.
struct ListFile {
    QByteArray content;
    AlphabetTable alphabet;
    int count = 0; ///< song records of a title file, group headers of the others
};

/// "index.id2" of \a songs in the order of their record numbers.
QByteArray pathFile(const QList<SongInfoIndex> &songs);
/// "ordfile.id2" of \a songs in the order of their paths.
QByteArray orderFile(const QList<SongInfoIndex> &songs);
/// "title.id2" of \a songs in the order of their titles.
ListFile titleFile(const QList<SongInfoIndex> &songs);
/// "artist.id2" or "genre.id2" of \a songs in that order; \a group is the field.
ListFile groupFile(const QList<SongInfoIndex> &songs, QString SongInfoIndex::*group);
/// "fsinfos.id2".
QByteArray countFile(const std::array<quint16, 6> &counts);

} // namespace IndexWriters
