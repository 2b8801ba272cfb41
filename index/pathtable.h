#pragma once

#include "index/songinfoindex.h"

#include <QHash>

/// Finds songs of a list by their path in constant time, up to the 65,535 that an index holds.
///
/// Different paths can share a sort key (letters that upper-case alike, characters that the code
/// page lacks: a memory of Cyrillic names has thousands of equal keys), so it finds a song only
/// where nothing else does.
class PathTable
{
public:
    /// Enters those of \a songs that are not entered yet: the list may have grown at its end.
    void enter(const QList<SongInfoIndex> &songs);
    /// Enters the next song of the list by its pathHash().
    void add(size_t hash);

    /// The index of the song with the path of \a wanted, case-insensitive; -1 when no song has it.
    qsizetype find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted);
    /// As above; \a hash is the pathHash() of \a wanted.
    qsizetype find(const QList<SongInfoIndex> &songs, const SongInfoIndex &wanted, size_t hash);
    /// Equal for paths that count as the same. Seeded, so that a memory can't be filled with paths
    /// of one hash.
    static size_t pathHash(const SongInfoIndex &song);
    /// How many songs were entered, or looked at to find others.
    qsizetype steps() const { return m_steps; }
    /// The index of the song that a path file's \a bytes name; -1 when no song has
    /// that path or several could be meant.
    qsizetype findBytes(const QList<SongInfoIndex> &songs, const QByteArray &bytes);

private:
    static constexpr qsizetype several = -1;

    struct Entry {
        size_t hash = 0;
        qsizetype next = none; ///< the song entered before with the same hash
    };
    static constexpr qsizetype none = -1;

    /// The slot that has the songs of \a hash, or is free for them.
    qsizetype slotOf(size_t hash) const;
    void enter(qsizetype index);
    void grow();

    QList<Entry> m_entries;   ///< one for each song
    QList<qsizetype> m_slots; ///< the last song of each hash, by open addressing
    qsizetype m_steps = 0;
    qsizetype m_keyed = 0; ///< how many songs m_byKey has: only playlists ask for keys
    QHash<QByteArray, qsizetype> m_byKey; ///< \c several where songs share a sort key
};
