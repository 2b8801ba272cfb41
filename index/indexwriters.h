#pragma once

#include "index/indexrecords.h"
#include "index/songorders.h"

namespace brisel
{

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
/// "ordfile.id2" of \a songs; \a byPath is their order.
QByteArray orderFile(const QList<SongInfoIndex> &songs, const SongOrder &byPath);
/// The song records of \a songs, in their order: each list copies those it needs.
QByteArray songRecords(const QList<SongInfoIndex> &songs);
/// "title.id2" of those of \a songs that \a byTitle names; \a records are those of all.
ListFile titleFile(const QList<SongInfoIndex> &songs, const QByteArray &records,
                   const SongOrder &byTitle);
/// "artist.id2" or "genre.id2" of those of \a songs that \a groups order; \a group is the field.
ListFile groupFile(const QList<SongInfoIndex> &songs, const QByteArray &records,
                   const SongOrders::Groups &groups, QString SongInfoIndex::*group);
/// "fsinfos.id2".
QByteArray countFile(const QList<quint16> &counts);

} // namespace IndexWriters

} // namespace brisel
