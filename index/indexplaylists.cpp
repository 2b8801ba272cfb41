#include "index/indexplaylists.h"

#include "base/debugstream.h"
#include "index/indexreader.h"
#include "index/indexset.h"
#include "index/runmemory.h"

namespace brisel
{

Playlists::Preparation IndexPlaylists::createPlaylistFilePath()
{
    debug() << "create playlist file path";
    m_numbers = Playlists::readNumbers(m_set);
    for (const qint16 number : std::as_const(m_numbers))
        m_memory.moveFolderAside(m_set.filePath(Playlists::pathsFileName(number)));
    // Paths that may belong to other songs would be kept and preferred to the titles.
    if (Playlists::haveAllPathFiles(m_set, m_numbers) || m_old.size() == 0 ||
        !m_old.arePathsSound())
        return Playlists::Preparation::NotNeeded;
    return Playlists::writePathFiles(m_set, m_numbers, m_old);
}

QStringList IndexPlaylists::restorePlaylistFilePath(const QList<SongInfoIndex> &songs,
                                                    PlaylistFollower::Way way)
{
    // An update that found all path files replaces entries in place, which is not a restoration.
    if (way == PlaylistFollower::Way::Anew)
        debug() << "restore playlist file path";
    if (m_numbers.isEmpty())
        return {};
    PlaylistFollower songsFollower = follower(songs);
    return Playlists::stage(m_set, m_numbers, songsFollower, way);
}

bool IndexPlaylists::isNamed(const QByteArray &pathKey)
{
    if (!m_namedPaths.has_value())
        m_namedPaths = Playlists::namedPaths(m_set, m_numbers, m_old);
    return m_namedPaths->contains(pathKey);
}

quint32 IndexPlaylists::firstFreeId(const QList<SongInfoIndex> &songs) const
{
    if (m_numbers.isEmpty())
        return 0;
    PlaylistFollower songsFollower = follower(songs);
    return Playlists::firstFreeId(m_set, m_numbers, songsFollower, songs.size(), m_old.highestId());
}

PlaylistFollower IndexPlaylists::follower(const QList<SongInfoIndex> &songs) const
{
    return PlaylistFollower(m_old, songs,
                            [this](const QString &path) { return m_memory.names().follow(path); });
}

} // namespace brisel
