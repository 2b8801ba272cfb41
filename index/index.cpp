#include "index/index.h"

#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/flushing.h"
#include "base/folderlock.h"
#include "index/entrylist.h"
#include "index/memoryreasons.h"
#include "index/playlists.h"
#include "index/songhead.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

Index::Index(Run &run, QObject *parent) : QObject(parent), m_run(run), m_set(run) {}

void Index::setMaximum(int maximum)
{
    m_run.setSteps(maximum);
    emit progressMaxSetup(maximum);
}

void Index::setProgress(int value)
{
    m_run.setStep(value);
    emit progressValueChanged(value);
}

void Index::showPath(const QString &path)
{
    emit currentPathChanged(path);
    m_run.pulse();
}

void Index::reportError(const QString &message)
{
    m_run.report().addMessage(message);
    emit errorFromIndex(message);
}

void Index::reportNotice(const QString &message)
{
    m_run.report().addNotice(message);
    emit noticeFromIndex(message);
}

bool Index::createIndex(const QString &root)
{
    return run(root, &Index::rebuild);
}

bool Index::updateIndex(const QString &root)
{
    return run(root, &Index::update);
}

/// Before the \a work of a run: takes the memory and repairs what a run that was cut has left
/// there.
bool Index::run(const QString &root, bool (Index::*work)())
{
    m_failure = MemoryReason::gone;
    if (!setRoot(root))
        return false;
    const FolderLock lock(m_root, FolderLock::Kind::Exclusive);
    if (lock.isBusy()) {
        m_failure = MemoryReason::inUse;
        return false;
    }
    m_memory = MemoryIdentity(m_root);
    m_set.recover();
    m_names.setRoot(m_root);
    m_names.load();
    m_renames.setRoot(m_root, m_names);
    m_wasComplete = checkIndexFile();
    for (const QString &name : IndexSet::names())
        moveFolderAside(name);
    // Nobody is asked what can't be done.
    if (isWriteProtected(m_root))
        m_run.answerAll(Run::Question::Rename, false);
    return (this->*work)();
}

bool Index::update()
{
    m_nextId = 0;
    resetCounts();
    // A memory that takes no path file takes no index either, and losing this one would leave the
    // playlists without their songs.
    const bool isRead = loadAllIndexFile() == 0;
    if (isRead && !m_wasComplete)
        return rebuild();
    const Playlists::Preparation playlists =
        isRead ? createPlaylistFilePath() : Playlists::Preparation::Unwritable;
    if (playlists == Playlists::Preparation::Unwritable)
        return giveUp();
    m_restorePlaylists = playlists == Playlists::Preparation::Written;
    m_modified = !m_reader.isSound();
    // An entry of a playlist whose song has gone would play the one that got its id.
    m_nextId = std::max(m_lastId, Playlists::highestId(m_set, m_playlists)) + 1;
    return finish(createPathIndex());
}

void Index::deleteIndex()
{
    debug() << "delete index";
    m_set.remove();
}

bool Index::checkIndexFile()
{
    return m_set.isComplete();
}

bool Index::setSongInfo(SongInfoIndex &song)
{
    QByteArray prefix;
    FileState state;
    const bool readable =
        isRegularFile(song.absolutePath) && SongHead::read(song.absolutePath, prefix, state);
    return SongHead::parse(prefix, song) && readable;
}

bool Index::setRoot(const QString &root)
{
    m_root = root;
    if (m_root.endsWith(u'/') || m_root.endsWith(u'\\'))
        m_root.chop(1);
    // Paths are cut by the root's length: "X//" or "X/." would spoil them. An empty root would
    // be the working folder.
    if (!m_root.isEmpty())
        m_root = QDir::cleanPath(QFileInfo(m_root).absoluteFilePath());
    if (m_root == QStringLiteral("/"))
        m_root.clear();
    m_set.setRoot(m_root);
    return fileKind(m_root) == FileKind::Folder;
}

bool Index::rebuild()
{
    resetCounts();
    m_isRebuild = true;
    // What can be read of the old index says what the playlists name. Without any of it their path
    // files and titles do.
    loadAllIndexFile();
    if (createPlaylistFilePath() == Playlists::Preparation::Unwritable) {
        // Without its path file a playlist would lose all its songs together with the old index.
        return giveUp();
    }
    m_restorePlaylists = true;
    m_lastId = SongInfoIndex::deletedId;
    m_nextId = 0;
    m_nextPosidx = 0;
    m_songs.clear();
    // Given up here, taken away once the new set is ready to take its place.
    debug() << "delete index";
    const ListRun run = createPathIndex();
    if (run != ListRun::Done || m_modified)
        return finish(run);
    m_set.remove();
    finish(run);
    return fail();
}

void Index::resetCounts()
{
    m_filesFound = 0;
    m_nextPosidx = 0;
    m_counts.fill(0);
}

bool Index::finish(ListRun run)
{
    switch (run) {
    case ListRun::Gone:
        m_failure = MemoryReason::gone;
        return false;
    case ListRun::Ended:
        m_set.discard();
        m_failure = Run::interrupted;
        return false;
    case ListRun::Failed:
        m_set.discard();
        return fail();
    case ListRun::Unreachable:
        m_set.discard();
        m_failure = FileReason::unreachable;
        return false;
    case ListRun::Done:
        // What a folder holds that can't be read is not gone.
        if (m_unreadable.isEmpty())
            m_names.tidy();
        break;
    }
    // A full memory may lack the player's empty folders: its set is whole all the same.
    bool areNew = false;
    const bool hasFolders = createBriselDir(areNew) || !isWriteProtected(m_root);
    if (!m_set.discard() && areNew)
        (void)flushFolder(m_root);
    if (!hasFolders || !checkIndexFile())
        return fail();
    if (m_isRepaired)
        reportNotice(tr("L'indice era danneggiato ed è stato riparato"));
    return true;
}

/// Ends a run before its walk. False, with the reason.
bool Index::giveUp()
{
    m_renames.flush();
    m_set.discard();
    return fail();
}

/// False, with the reason.
bool Index::fail()
{
    // Fifteen files take some room, however small they are.
    constexpr qint64 smallestRoom = 64 * 1024; // bytes
    m_failure = m_set.lacksRoom()
                    ? FileReason::noSpace
                    : MemoryReason::whyNotIndexed(m_root, std::max(m_setSize, smallestRoom));
    return false;
}

/// A memory that was pulled may leave its mount folder behind, or another take its place.
bool Index::isSameMemory()
{
    m_gone = m_gone || !m_memory.isSame();
    return !m_gone;
}

Index::ListRun Index::createPathIndex()
{
    debug() << "create path index";
    setProgress(0);
    m_filesFound = 0;
    m_folders = FolderWalk();
    m_songFolders.clear();
    m_unreadable.clear();
    m_paths = PathTable();
    m_expected = 0;
    scanFiles(m_root);
    m_byPath = SongOrders::byPath(m_songs);
    dropDoubledSongs();
    m_run.pulse();
    if (m_filesFound > 0 && !m_run.isEnding()) {
        setMaximum(m_filesFound);
        createTitleIndex();
    }
    if (!isSameMemory())
        return ListRun::Gone;
    // The new names reach the disk before an index that names them, and also without one.
    const bool areNamesFlushed = m_renames.flush();
    if (m_run.isEnding())
        return ListRun::Ended;
    if (!areNamesFlushed || m_renameFailed)
        return ListRun::Failed;
    if (m_isRebuild && wouldLoseSongs())
        return ListRun::Unreachable;
    if (m_filesFound == 0 || !m_modified)
        return ListRun::Done;
    const bool isDamaged = !m_isRebuild && !m_reader.isSound();
    if (isDamaged)
        restoreIds();
    // The songs of a rebuild do not stand where the reader has them.
    if (!m_isRebuild)
        m_reader.readTexts(m_songs);
    m_run.pulse();
    const ListRun run = writeSet();
    m_isRepaired = isDamaged && run == ListRun::Done;
    // The mark may be gone with what was staged.
    return m_gone || !m_memory.isThere() ? ListRun::Gone : run;
}

Index::ListRun Index::writeSet()
{
    setMaximum(100);
    setProgress(0);
    if (!isSameMemory() || !m_set.beginStaging())
        return ListRun::Failed;
    m_memory.layMark();
    removeDeletedItems();
    setProgress(10);
    if (writeOrdIndex() < 0)
        return ListRun::Failed;
    restorePlaylistFilePath();
    if (writePathIndex() < 0)
        return ListRun::Failed;
    setProgress(20);
    if (!writeLists(QString(), 0, 20))
        return ListRun::Failed;
    createMp3TitleIndex();
    setProgress(60);
    if (!writeLists(QStringLiteral("3"), 3, 60) || writeNumFile() < 0)
        return ListRun::Failed;
    if (m_run.isEnding())
        return ListRun::Ended;
    if (!isSameMemory() || !m_set.commit())
        return ListRun::Failed;
    setProgress(100);
    return ListRun::Done;
}

/// Writes the title, artist and genre files, whose names end in \a suffix, and their tables. Their
/// counts go into "fsinfos.id2" from \a count on.
bool Index::writeLists(const QString &suffix, std::size_t count, int progress)
{
    using Writer = qint32 (Index::*)(const QString &);
    struct List {
        QString name;
        Writer write;
    };
    const QList<List> lists{{QStringLiteral("title"), &Index::writeTitleIndex},
                            {QStringLiteral("artist"), &Index::writeArtistIndex},
                            {QStringLiteral("genre"), &Index::writeGenreIndex}};
    for (const List &list : lists) {
        const QString fileName = list.name + suffix + QStringLiteral(".id2");
        const qint32 written = (this->*list.write)(fileName);
        if (written < 0 || writeAlphaBuffer(u'a' + fileName) < 0)
            return false;
        m_counts.at(count++) = static_cast<quint16>(written);
        progress += 10;
        setProgress(progress);
    }
    return true;
}

void Index::removeDeletedItems()
{
    const qsizetype removed = m_songs.removeIf(
        [](const SongInfoIndex &song) { return song.id == SongInfoIndex::deletedId; });
    if (m_isRebuild)
        giveFreeIds();
    const bool isInOrder = std::is_sorted(m_songs.cbegin(), m_songs.cend(), compareById);
    if (!isInOrder)
        std::sort(m_songs.begin(), m_songs.end(), compareById);
    for (qsizetype i = 0; i < m_songs.size(); ++i)
        m_songs[i].posidx = static_cast<quint16>(i);
    if (removed > 0 || !isInOrder)
        m_byPath = SongOrders::byPath(m_songs);
    m_byTitle = SongOrders::byTitle(m_songs);
    m_run.pulse();
    m_byArtist = SongOrders::byGroup(m_songs, m_byTitle, &SongInfoIndex::artist);
    m_byGenre = SongOrders::byGroup(m_songs, m_byTitle, &SongInfoIndex::genre);
    m_run.pulse();
    m_records = IndexWriters::songRecords(m_songs);
}

void Index::createMp3TitleIndex()
{
    debug() << "create mp3 index";
    for (SongOrder *order : {&m_byTitle, &m_byArtist.order, &m_byGenre.order})
        *order = SongOrders::mp3Only(m_songs, *order);
}

/// True when the player's empty folders are there; \a areNew: one was made.
bool Index::createBriselDir(bool &areNew)
{
    const QDir root(m_root);
    bool areThere = true;
    for (const QString &folder : {QStringLiteral("sfx"), QStringLiteral("bridge")}) {
        if (QFileInfo::exists(m_set.filePath(folder)))
            continue;
        const bool isMade = root.mkdir(folder);
        areNew = areNew || isMade;
        areThere = areThere && isMade;
    }
    return areThere;
}

qint32 Index::loadAllIndexFile()
{
    m_nextPosidx = 0;
    m_lastId = 0;
    const bool isRead = m_reader.read(m_set, m_root, m_songs);
    m_run.pulse();
    if (!isRead)
        return -1;
    m_nextPosidx = static_cast<quint16>(m_songs.size());
    m_lastId = m_reader.highestId();
    return 0;
}
