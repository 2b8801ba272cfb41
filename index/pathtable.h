#pragma once

#include "index/songinfoindex.h"

#include <QMultiHash>

/// Finds songs of a list by their path in constant time, up to the 65,535 that an index holds.
///
/// Different paths can share a sort key (letters that upper-case alike, characters that the code
/// page lacks: a memory of Cyrillic names has thousands of equal keys), so it finds a song only
/// where nothing else does.
class PathTable
{
public:
    /// Enters all of \a songs.
    void build(const QList<SongInfoIndex> &songs);
    /// Enters the song that stands at \a index of the list.
    void add(const SongInfoIndex &song, qsizetype index);

    /// The index of the song with the path of \a wanted, ignoring case; -1 when there is none.
    qsizetype find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted) const;
    /// The index of the song that a path file's \a bytes name; -1 when there is none, or when
    /// several could be meant: a neighbour must not take a song's place.
    qsizetype findBytes(const QList<SongInfoIndex> &songs, const QByteArray &bytes) const;

private:
    static constexpr qsizetype several = -1;

    QMultiHash<QString, qsizetype> m_byPath; ///< by the path with its case folded
    QHash<QByteArray, qsizetype> m_byKey;    ///< \c several where songs share a sort key
};
