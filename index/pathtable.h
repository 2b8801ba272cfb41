#pragma once

#include "index/songinfoindex.h"

#include <QHash>

namespace brisel
{

/// Finds songs of a list by their path in constant time, for up to 65,535 songs, the limit of an
/// index.
///
/// Different paths can have one sort key (letters with the same upper case, characters that the
/// code page lacks: a memory of Cyrillic names has thousands of equal keys), so the sort key is
/// only used if the path is not found otherwise.
class PathTable
{
public:
    /// Enters those of \a songs that were appended since the last call.
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
    /// The number of songs that were entered, or compared in searches.
    qsizetype steps() const { return m_steps; }
    /// The index of the song that a path file's \a bytes name; -1 when no song has that path or
    /// several could be meant.
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
    qsizetype m_keyed = 0;                ///< the songs in m_byKey: only playlists need keys
    QHash<QByteArray, qsizetype> m_byKey; ///< \c several if songs have the same sort key
};

} // namespace brisel
