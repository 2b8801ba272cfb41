#pragma once

#include "index/idtable.h"
#include "index/setcheck.h"
#include "index/setfiles.h"
#include "index/songinfoindex.h"

#include <QList>
#include <QSet>

#include <optional>

namespace brisel
{

class IndexSet;

/// Reads an index set back from a memory, also a damaged one. Paths are read as Latin-1 although
/// they are written in "IBM 850": a path with characters above 0x7F doesn't match its file again,
/// and that song is indexed as a new one.
///
/// Only "index.id2" decides which songs exist, and its data of a song are kept. A song with
/// different data in the lists is marked, so that its head is read again.
class IndexReader
{
public:
    /// Fills \a songs from the set below \a root, in the order of their ids, without what the lists
    /// have of them: an update of an unchanged memory does not need it. Of records that share an id
    /// the first is used. Returns false if "index.id2" can't be read.
    [[nodiscard]] bool read(const IndexSet &set, const QString &root, QList<SongInfoIndex> &songs);

    /// Returns false if the set that was read is damaged.
    bool isSound() const { return m_arePathsSound && m_check.isSound(); }
    /// Returns true if the lists have every song and no others.
    bool hasAllTexts() const { return m_areIdsSound && m_check.hasAllTexts(); }
    /// The number of songs that were read.
    qsizetype size() const { return m_ids.size(); }
    /// The highest id in any of the files; 0 if there are no ids. Ids of damaged records, so high
    /// that no higher ones are left, are ignored.
    quint32 highestId() const;
    /// The path of the song at \a position in the bytes of "index.id2".
    QByteArray pathAt(qsizetype position) const;

    /// Fills title, artist, genre, type, bpm and flag of those of \a songs that have no title yet,
    /// and frees all lists but the titles. The first of \a songs must be those that read() filled,
    /// in the same order.
    void readTexts(QList<SongInfoIndex> &songs);

    /// Returns false if ids or paths were out of order or not unique: the data found by an id may
    /// belong to another song.
    bool arePathsSound() const { return m_arePathsSound; }
    /// Returns true if the set has a song with \a id.
    bool has(quint32 id) const { return m_ids.positionOf(id) >= 0; }
    /// Returns true if a song has a path with the sort key \a key.
    bool hasPath(const QByteArray &key) const;
    /// The path of the song with \a id in the bytes of "index.id2"; empty for an unknown id.
    QByteArray pathOf(quint32 id) const;
    /// The record of the song with \a id in "title.id2"; empty if it has none.
    QByteArray titleRecordOf(quint32 id) const;
    /// Returns true if the lists have a song with \a id. Valid only before readTexts().
    bool isListed(quint32 id) const { return m_listed.contains(id); }
    /// The records of "title.id2" whose ids no song has, but another list has, each id once. Valid
    /// only before readTexts().
    QList<QByteArray> strayTitles() const;

private:
    struct Place {
        quint32 id;
        qsizetype at; ///< in "index.id2"
    };

    QList<Place> places();
    bool isInOrder(const QList<SongInfoIndex> &songs) const;
    void noteListedIds();
    void readTitles(QList<SongInfoIndex> &songs, const QList<bool> &wanted) const;
    void readGroups(const QByteArray &list, QString SongInfoIndex::*group,
                    QList<SongInfoIndex> &songs, const QList<bool> &wanted) const;

    SetFiles m_files;
    SetCheck m_check;
    IdTable m_ids;
    QList<qsizetype> m_pathAt;                          ///< by position, in "index.id2"
    mutable std::optional<QSet<QByteArray>> m_pathKeys; ///< filled on first use
    bool m_areIdsSound = true;
    bool m_arePathsSound = true; ///< ids, and paths in their order
    QSet<quint32> m_listed;      ///< ids that two lists have; of a damaged set only
};

} // namespace brisel
