#pragma once

#include "index/playlists.h"

#include <optional>

namespace brisel
{

class RunMemory;

/// The playlists of a memory while a run replaces its index.
class IndexPlaylists
{
public:
    /// \a old is the index that the run began with. All must outlive this.
    IndexPlaylists(IndexSet &set, const IndexReader &old, RunMemory &memory)
        : m_set(set), m_old(old), m_memory(memory)
    {
    }

    /// Reads the list of playlists, and writes missing path files if the old index can be trusted.
    /// The other functions are about these playlists.
    [[nodiscard]] Playlists::Preparation createPlaylistFilePath();
    /// Stages the playlists for \a songs, which have their ids. Returns the names of songs files
    /// that can't be followed.
    [[nodiscard]] QStringList restorePlaylistFilePath(const QList<SongInfoIndex> &songs,
                                                      PlaylistFollower::Way way);

    /// Returns true if a playlist has the song of the old index whose path has the sort key
    /// \a pathKey: a song that is renamed to that path would get its entries.
    [[nodiscard]] bool isNamed(const QByteArray &pathKey);
    /// The highest id of an entry; see Playlists::highestId().
    [[nodiscard]] quint32 highestId() const { return Playlists::highestId(m_set, m_numbers); }
    /// The lowest id from which on \a songs can be numbered; see Playlists::firstFreeId().
    [[nodiscard]] quint32 firstFreeId(const QList<SongInfoIndex> &songs) const;

private:
    PlaylistFollower follower(const QList<SongInfoIndex> &songs) const;

    IndexSet &m_set;
    const IndexReader &m_old;
    RunMemory &m_memory;
    QList<qint16> m_numbers;
    /// Sort keys of the paths in playlists; filled on first use.
    std::optional<QSet<QByteArray>> m_namedPaths;
};

} // namespace brisel
