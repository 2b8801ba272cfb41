#include "index/indexbuild.h"

#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/flushing.h"
#include "index/indexmonitor.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/memorywalk.h"
#include "index/setwriter.h"
#include "index/songrefresh.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace brisel
{

IndexBuild::IndexBuild(IndexMonitor &monitor, IndexSet &set)
    : m_monitor(monitor), m_set(set), m_memory(monitor, set.root()), m_roll(set.root()),
      m_playlists(set, m_old, m_memory), m_failure(MemoryReason::indexIncomplete)
{
    m_set.recover();
    m_memory.loadNames();
    m_wasComplete = m_set.isComplete();
    for (const QString &name : IndexSet::names())
        m_memory.moveFolderAside(m_set.filePath(name));
    // On a write-protected memory no name can be changed, so no question is asked.
    if (isWriteProtected(m_memory.root()))
        m_monitor.run().answerAll(Run::Question::Rename, false);
}

bool IndexBuild::createIndex()
{
    m_isRebuild = true;
    // The readable part of the old index has the songs of the playlists; without it their path
    // files and titles are used.
    loadAllIndexFile();
    // Without its path file a playlist would lose all its songs with the old index.
    if (m_playlists.createPlaylistFilePath() == Playlists::Preparation::Unwritable)
        return giveUp();
    m_playlistWay = PlaylistFollower::Way::Anew;
    m_lastId = SongInfoIndex::deletedId;
    m_roll.songs().clear();
    // The old index is given up here, and removed when the new set is ready to replace it.
    debug() << "delete index";
    const Result result = createPathIndex();
    if (result.outcome != Outcome::Done || m_roll.isModified())
        return finish(result);
    m_set.remove();
    finish(result);
    return fail();
}

bool IndexBuild::updateIndex()
{
    const bool isRead = loadAllIndexFile() == 0;
    if (isRead && !m_wasComplete)
        return createIndex();
    // If path files can't be written, a new index can't be written either, and removing the old one
    // would leave the playlists without their songs.
    const Playlists::Preparation playlists =
        isRead ? m_playlists.createPlaylistFilePath() : Playlists::Preparation::Unwritable;
    if (playlists == Playlists::Preparation::Unwritable)
        return giveUp();
    if (playlists == Playlists::Preparation::Written)
        m_playlistWay = PlaylistFollower::Way::Anew;
    if (!m_old.isSound())
        m_roll.setModified();
    // An entry of a playlist for a removed song would play the song that got its id.
    m_roll.setNextId(std::max(m_lastId, m_playlists.highestId()) + 1);
    return finish(createPathIndex());
}

/// Reads the index on the memory. Returns 0, or -1 if it can't be read.
qint32 IndexBuild::loadAllIndexFile()
{
    const bool isRead = m_old.read(m_set, m_memory.root(), m_roll.songs());
    m_monitor.run().pulse();
    m_lastId = isRead ? m_old.highestId() : 0;
    return isRead ? 0 : -1;
}

IndexBuild::Result IndexBuild::createPathIndex()
{
    debug() << "create path index";
    m_monitor.setProgress(0);
    MemoryWalk walk(m_monitor, m_memory, m_roll, m_old, m_playlists);
    walk.scanFiles(m_memory.root());
    m_roll.dropDoubledSongs();
    m_monitor.run().pulse();
    if (walk.filesFound() > 0 && !m_monitor.run().isEnding()) {
        m_monitor.setMaximum(walk.filesFound());
        SongRefresh(m_monitor, m_memory, m_lastId).createTitleIndex(m_roll);
    }
    Result result;
    result.outcome = afterWalk(walk);
    result.hasMetAll = walk.unreadable().isEmpty();
    if (result.outcome != Outcome::Done || walk.filesFound() == 0 || !m_roll.isModified())
        return result;
    const bool isDamaged = !m_isRebuild && !m_old.isSound();
    if (isDamaged)
        m_roll.restoreIds(m_old);
    // The songs of a rebuild are not at the positions of the reader.
    if (!m_isRebuild)
        m_old.readTexts(m_roll.songs());
    m_monitor.run().pulse();
    result.outcome = writeSet();
    result.isRepaired = isDamaged && result.outcome == Outcome::Done;
    // The mark may have been removed with the staged files.
    if (m_memory.isGone() || !m_memory.identity().isThere())
        result.outcome = Outcome::Gone;
    return result;
}

/// Whether the new index may be written after the pass over all songs.
IndexBuild::Outcome IndexBuild::afterWalk(const MemoryWalk &walk)
{
    if (!m_memory.isSame())
        return Outcome::Gone;
    // The new names reach the disk before an index that names them, and also without one.
    const bool areNamesFlushed = m_memory.renames().flush();
    if (m_monitor.run().isEnding())
        return Outcome::Ended;
    if (!areNamesFlushed || walk.hasFailedRename())
        return Outcome::Failed;
    return m_isRebuild && wouldLoseSongs(walk) ? Outcome::Unreachable : Outcome::Done;
}

/// Returns true if songs of the old index are in folders that can't be read now.
bool IndexBuild::wouldLoseSongs(const MemoryWalk &walk)
{
    if (walk.unreadable().isEmpty())
        return false;
    QSet<QByteArray> unreadable;
    for (const QString &path : walk.unreadable())
        unreadable.insert(pathSortKey(path));
    for (qsizetype position = 0; position < m_old.size(); ++position) {
        const QByteArray bytes = m_old.pathAt(position);
        QByteArray key = pathSortKey(pathFromBytes(bytes));
        while (!key.isEmpty() && !unreadable.contains(key))
            key.truncate(key.lastIndexOf('/'));
        if (unreadable.contains(key) && m_roll.findBytes(bytes) < 0)
            return true;
    }
    return false;
}

IndexBuild::Outcome IndexBuild::writeSet()
{
    m_monitor.setMaximum(100);
    m_monitor.setProgress(0);
    if (!m_memory.isSame() || !m_set.beginStaging())
        return Outcome::Failed;
    m_memory.identity().layMark();
    if (!stageFiles())
        return Outcome::Failed;
    if (m_monitor.run().isEnding())
        return Outcome::Ended;
    if (!m_memory.isSame() || !m_set.commit())
        return Outcome::Failed;
    m_monitor.setProgress(100);
    return Outcome::Done;
}

bool IndexBuild::stageFiles()
{
    m_roll.removeDeletedItems();
    QList<SongInfoIndex> &songs = m_roll.songs();
    // A rebuild numbers its songs from 0, unless a song would get an id that a playlist still has
    // for a removed song.
    const quint32 firstId = m_isRebuild ? m_playlists.firstFreeId(songs) : 0;
    for (SongInfoIndex &song : songs)
        song.id += firstId;
    SetWriter writer(m_monitor, m_set, songs, m_roll.byPath());
    m_monitor.setProgress(10);
    bool areStaged = writer.writeOrdIndex();
    if (areStaged) {
        const QStringList left = m_playlists.restorePlaylistFilePath(songs, m_playlistWay);
        for (const QString &name : left)
            m_monitor.reportError(tr("Playlist non aggiornata: ") + m_set.filePath(name));
        areStaged = writer.writePathIndex() && writer.writeLists();
    }
    m_setSize = writer.size();
    return areStaged;
}

bool IndexBuild::finish(const Result &result)
{
    switch (result.outcome) {
    case Outcome::Gone:
        m_failure = MemoryReason::gone;
        return false;
    case Outcome::Ended:
        m_set.discard();
        m_failure = Run::interrupted;
        return false;
    case Outcome::Failed:
        m_set.discard();
        return fail();
    case Outcome::Unreachable:
        m_set.discard();
        m_failure = FileReason::unreachable;
        return false;
    case Outcome::Done:
        // Files in folders that can't be read keep their names.
        if (result.hasMetAll)
            (void)m_memory.names().tidy(); // the next run tries it again
        break;
    }
    // On a full memory the player's empty folders may be missing; the set is still complete.
    const PlayerFolders folders = createBriselDir();
    const bool hasFolders = folders.areThere || !isWriteProtected(m_memory.root());
    if (!m_set.discard() && folders.areNew)
        (void)flushFolder(m_memory.root());
    if (!hasFolders || !m_set.isComplete())
        return fail();
    if (result.isRepaired)
        m_monitor.reportNotice(tr("L'indice era danneggiato ed è stato riparato"));
    return true;
}

/// Makes the player's empty folders where they are missing.
IndexBuild::PlayerFolders IndexBuild::createBriselDir()
{
    const QDir root(m_memory.root());
    PlayerFolders result;
    for (const QString &folder : {QStringLiteral("sfx"), QStringLiteral("bridge")}) {
        if (QFileInfo::exists(m_set.filePath(folder)))
            continue;
        const bool isMade = root.mkdir(folder);
        result.areNew = result.areNew || isMade;
        result.areThere = result.areThere && isMade;
    }
    return result;
}

/// Ends a run before its walk. Returns false, and stores the reason.
bool IndexBuild::giveUp()
{
    (void)m_memory.renames().flush();
    m_set.discard();
    return fail();
}

/// Returns false, and stores the reason.
bool IndexBuild::fail()
{
    // Even small files need some room each.
    constexpr qint64 smallestRoom = 64 * 1024; // bytes
    m_failure = m_set.lacksRoom() ? FileReason::noSpace
                                  : MemoryReason::whyNotIndexed(m_memory.root(),
                                                                std::max(m_setSize, smallestRoom));
    return false;
}

} // namespace brisel
