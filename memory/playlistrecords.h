#pragma once

#include "memory/memorycontents.h"

#include <QList>

#include <optional>

namespace brisel
{

class GivenNames;

/// The records of one playlist: those of its files as they were read, and those of songs that are
/// added. They are numbered from 0 and never change, so that a list of entries is a list of
/// numbers.
class PlaylistRecords
{
public:
    using Entries = QList<quint32>;

    enum class State {
        Good,
        Dead,  ///< its id is not in the index
        Wrong, ///< the song with its id has another title: the player shows one and plays another
    };

    /// \a contents must outlive this, \a names only the call.
    PlaylistRecords(const MemoryContents &contents, const MemoryContents::Playlist &files,
                    const GivenNames &names);

    /// The entries of the files.
    Entries originals() const;
    /// The 64 bytes of an entry.
    QByteArray record(quint32 entry) const;
    /// The 64 bytes that the path file has for it; empty if it has none, or if they may belong to
    /// another entry.
    QByteArray pathRecord(quint32 entry) const;
    State state(quint32 entry) const;
    /// The position of the song with the entry's id; -1 if there is none.
    qsizetype song(quint32 entry) const;
    /// A new entry of the song \a id. Empty if it has no record in "title.id2".
    std::optional<quint32> add(quint32 id);

    /// \a entries of \a older, the records of the same playlist before the memory was read again,
    /// as entries of these. Added songs that the index lacks now are left out. Empty if the files
    /// have other entries than before.
    std::optional<Entries> entriesFrom(const PlaylistRecords &older, const Entries &entries,
                                       const GivenNames &names);

    bool areEqual(const Entries &a, const Entries &b) const;
    /// The two files for these entries: docs/formats/playlists.md.
    QByteArray songsFile(const Entries &entries) const;
    QByteArray pathsFile(const Entries &entries) const;
    /// Returns true if the path file is needed to find songs of these entries, or does not belong
    /// to the songs file.
    bool needPathFile(const Entries &entries) const;

    /// The same records for another reading of the same index.
    void setContents(const MemoryContents &contents) { m_contents = &contents; }

private:
    bool arePathsInStep(const GivenNames &names) const;
    bool isOfSong(const QByteArray &pathRecord, qsizetype song, const GivenNames &names) const;
    bool isSameEntry(const PlaylistRecords &older, quint32 entry, const GivenNames &names) const;
    QByteArray pathOf(quint32 entry) const;

    const MemoryContents *m_contents;
    QByteArray m_songs;
    QByteArray m_paths;
    qsizetype m_originals;
    bool m_arePathsInStep = false;
    QList<QByteArray> m_added;
};

} // namespace brisel
