#pragma once

#include "index/songinfoindex.h"

class IndexSet;

/// Reads an index set back from a memory. Paths are read as Latin-1 although they are written in
/// "IBM 850": a path with characters above 0x7F doesn't match its file again, and that song is
/// indexed anew.
class IndexReader
{
public:
    /// Fills \a songs from the set below \a root, in the order of "index.id2": all but the texts
    /// and what stands beside the titles, which an update of an unchanged memory has no use for.
    /// False on any fault of the set; \a songs is then of no use.
    bool read(const IndexSet &set, const QString &root, QList<SongInfoIndex> &songs);

    /// Fills title, artist, genre, type, bpm and flag of those of \a songs that have no title yet,
    /// and forgets the set. The first of \a songs are those that read() filled, at their places.
    void readTexts(QList<SongInfoIndex> &songs);

private:
    bool readPaths(const QString &path, const QString &root, QList<SongInfoIndex> &songs);
    bool readList(const QString &path, qint64 maxRecords, QByteArray &list) const;
    void readTitles(QList<SongInfoIndex> &songs, const QList<bool> &wanted) const;
    void readGroups(const QByteArray &list, QString SongInfoIndex::*group,
                    QList<SongInfoIndex> &songs, const QList<bool> &wanted) const;
    qsizetype positionOf(quint32 id) const;

    QList<quint32> m_ids; ///< apart from the songs: a search for one is to touch little memory
    bool m_ascending = true;
    QByteArray m_titles;
    QByteArray m_artists;
    QByteArray m_genres;
};
