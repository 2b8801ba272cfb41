#include "index/index.h"

#include "base/debugstream.h"
#include "index/indexwriters.h"

// The steps of a run that write: each logs its name and stages a file.

qint32 Index::writePathIndex()
{
    debug() << "write path index";
    return stageFile(QStringLiteral("index.id2"), IndexWriters::pathFile(m_songs));
}

qint32 Index::writeOrdIndex()
{
    debug() << "write ord index";
    return stageFile(QStringLiteral("ordfile.id2"), IndexWriters::orderFile(m_songs, m_byPath));
}

qint32 Index::writeTitleIndex(const QString &fileName)
{
    debug() << "write title index";
    return stageList(fileName, IndexWriters::titleFile(m_songs, m_records, m_byTitle));
}

qint32 Index::writeArtistIndex(const QString &fileName)
{
    debug() << "write artist index";
    return stageGroups(fileName, m_byArtist, &SongInfoIndex::artist);
}

qint32 Index::writeGenreIndex(const QString &fileName)
{
    debug() << "write genre index";
    return stageGroups(fileName, m_byGenre, &SongInfoIndex::genre);
}

qint32 Index::writeAlphaBuffer(const QString &fileName)
{
    debug() << "write alpha index";
    return stageFile(fileName, m_alphabet.bytes());
}

qint32 Index::writeNumFile()
{
    debug() << "write numfile index";
    return stageFile(QStringLiteral("fsinfos.id2"), IndexWriters::countFile(m_counts));
}

qint32 Index::stageFile(const QString &fileName, const QByteArray &content)
{
    m_setSize += content.size();
    return m_set.stage(fileName, content) ? 0 : -1;
}

qint32 Index::stageList(const QString &fileName, const IndexWriters::ListFile &list)
{
    m_alphabet = list.alphabet;
    return stageFile(fileName, list.content) < 0 ? -1 : list.count;
}

qint32 Index::stageGroups(const QString &fileName, const SongOrders::Groups &groups,
                          QString SongInfoIndex::*group)
{
    return stageList(fileName, IndexWriters::groupFile(m_songs, m_records, groups, group));
}

Playlists::Preparation Index::createPlaylistFilePath()
{
    debug() << "create playlist file path";
    m_playlists = Playlists::readNumbers(m_set);
    for (const qint16 number : std::as_const(m_playlists))
        moveFolderAside(Playlists::pathsFileName(number));
    // Paths that may be another song's would stay, and count for more than the titles.
    if (Playlists::haveAllPathFiles(m_set, m_playlists) || m_reader.size() == 0 ||
        !m_reader.arePathsSound())
        return Playlists::Preparation::NotNeeded;
    return Playlists::writePathFiles(m_set, m_playlists, m_reader);
}

/// Has the playlists follow their songs. An update that found all path files exchanges entries
/// where they stand, which is no restoration.
void Index::restorePlaylistFilePath()
{
    if (m_restorePlaylists)
        debug() << "restore playlist file path";
    if (m_playlists.isEmpty())
        return;
    PlaylistFollower follower = playlistFollower();
    const QStringList left = Playlists::stage(m_set, m_playlists, follower,
                                              m_restorePlaylists ? PlaylistFollower::Way::Anew
                                                                 : PlaylistFollower::Way::InPlace);
    for (const QString &name : left)
        reportError(tr("Playlist non aggiornata: ") + m_set.filePath(name));
}

PlaylistFollower Index::playlistFollower() const
{
    return PlaylistFollower(m_reader, m_songs,
                            [this](const QString &path) { return m_names.follow(path); });
}
