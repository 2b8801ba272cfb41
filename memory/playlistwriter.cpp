#include "memory/playlistwriter.h"

#include "base/filefailure.h"
#include "base/filelot.h"
#include "base/filereading.h"
#include "base/folderhandle.h"
#include "base/folderlock.h"
#include "base/memoryidentity.h"
#include "base/run.h"
#include "index/indexrecords.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/playlists.h"
#include "memory/playlistdocument.h"

#include <QFileInfo>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qint64 mostBytes = qint64{SongInfoIndex::maxSongs} * IndexRecord::size;

/// Playlists that are written together, so that all of their files fit in a lot.
constexpr qsizetype lotSize = 50;

/// A path file that fits neither \a before nor \a after, so that the playlist counts as changed by
/// the player, whichever of the two it is: its entries decide, not their paths.
QByteArray unfitPaths(const QByteArray &paths, const QByteArray &before, const QByteArray &after)
{
    const qsizetype records = std::max(before.size(), after.size()) / IndexRecord::size + 1;
    QByteArray unfit = paths.first(paths.size() / IndexRecord::size * IndexRecord::size);
    const qsizetype missing = records * IndexRecord::size - unfit.size();
    return missing > 0 ? unfit + QByteArray(missing, '\0') : unfit;
}

bool isWholeFile(const QString &path, const QByteArray &content)
{
    const FileContent file = readWholeFile(path, mostBytes);
    return file.isDone() && file.bytes == content;
}

} // namespace

bool PlaylistWriter::fail(const Reason &reason, const QString &file)
{
    if (!m_failure.has_value()) {
        m_failure = reason;
        m_failedFile = file;
    }
    return false;
}

bool PlaylistWriter::save(const MemoryIdentity &identity)
{
    m_failure.reset();
    m_failedFile.clear();
    if (!m_document.isModified())
        return true;
    const QString root = m_document.contents()->root();
    if (!identity.isThere())
        return fail(MemoryReason::gone);
    const FolderLock lock(root, FolderLock::Kind::Exclusive);
    if (lock.isBusy())
        return fail(MemoryReason::inUse);
    if (!check(identity))
        return false;
    QList<Playlist> playlists;
    const auto saveAll = [&] {
        const bool isDone = playlists.isEmpty() || saveLot(playlists, identity);
        playlists.clear();
        return isDone;
    };
    for (qsizetype number = 0; number < m_document.count(); ++number) {
        if (!m_document.isModified(number))
            continue;
        playlists.append(playlistOf(number));
        if (playlists.size() == lotSize && !saveAll())
            return false;
        m_run.pulse();
    }
    return saveAll();
}

/// Checks everything before the first byte is written.
bool PlaylistWriter::check(const MemoryIdentity &identity)
{
    const QString root = m_document.contents()->root();
    if (isWriteProtected(root))
        return fail(FileReason::writeProtected);
    IndexSet set(m_run);
    set.setRoot(root);
    // The next run finishes an interrupted swap, and could write playlists with it.
    if (!set.isComplete())
        return fail(MemoryReason::indexIncomplete);
    const bool isAsRead =
        !leavesRoot(set.filePath(QStringLiteral("playlist")), root) && isIndexAsRead();
    if (!identity.isThere())
        return fail(MemoryReason::gone);
    if (!isAsRead)
        return fail(changedMeanwhile);
    for (qsizetype number = 0; number < m_document.count(); ++number) {
        if (m_document.isModified(number) && !checkSongsFile(number))
            return false;
    }
    return true;
}

bool PlaylistWriter::isIndexAsRead() const
{
    const MemoryContents &contents = *m_document.contents();
    return isWholeFile(contents.root() + QStringLiteral("/index.id2"), contents.files().paths) &&
           isWholeFile(contents.root() + QStringLiteral("/title.id2"),
                       contents.files().lists.at(SetFiles::Titles).content);
}

bool PlaylistWriter::checkSongsFile(qsizetype playlist)
{
    const Playlist files = playlistOf(playlist);
    if (!isWholeFile(files.songsPath, m_document.songsFileOnDisk(playlist)))
        return fail(changedMeanwhile, files.songsPath);
    if (!QFileInfo(files.songsPath).isWritable())
        return fail(FileReason::unwritable, files.songsPath);
    return true;
}

PlaylistWriter::Playlist PlaylistWriter::playlistOf(qsizetype number) const
{
    const QString folder = m_document.contents()->root() + u'/';
    const qint16 name = m_document.number(number);
    Playlist playlist{number,
                      m_document.songsFile(number),
                      m_document.pathsFile(number),
                      folder + Playlists::songsFileName(name),
                      folder + Playlists::pathsFileName(name),
                      {},
                      m_document.needsPathFile(number)};
    const QByteArray &old = m_document.pathsFileOnDisk(number);
    if (playlist.isInSteps && old.size() >= IndexRecord::size)
        playlist.unfit = unfitPaths(old, m_document.songsFileOnDisk(number), playlist.songs);
    return playlist;
}

bool PlaylistWriter::stage(FileLot &lot, const QString &path, const QByteArray &content)
{
    m_run.pulse();
    return lot.write({path}, content) || fail(whyUnwritable(path, content.size()), path);
}

bool PlaylistWriter::stageSongs(FileLot &lot, const QList<Playlist> &playlists)
{
    return std::all_of(playlists.cbegin(), playlists.cend(), [&](const Playlist &playlist) {
        return stage(lot, playlist.songsPath, playlist.songs) &&
               (playlist.isInSteps || stage(lot, playlist.pathsPath, playlist.paths));
    });
}

/// All contents are staged before the first file is replaced. A playlist whose entries are all
/// known needs no steps: a path file that does not belong to it is detected by its paths.
bool PlaylistWriter::saveLot(const QList<Playlist> &lot, const MemoryIdentity &identity)
{
    FileLot unfit;
    FileLot songs;
    FileLot paths;
    for (FileLot *files : {&unfit, &songs, &paths})
        files->setMemory(m_document.contents()->root());
    bool isStaged = stageSongs(songs, lot);
    for (const Playlist &playlist : lot) {
        if (!isStaged || !playlist.isInSteps)
            continue;
        isStaged = stage(paths, playlist.pathsPath, playlist.paths) &&
                   (playlist.unfit.isEmpty() || stage(unfit, playlist.pathsPath, playlist.unfit));
    }
    if (!identity.isThere())
        return fail(MemoryReason::gone);
    if (!isStaged)
        return false;
    const bool isDone = unfit.commitAll() && songs.commitAll() && paths.commitAll();
    if (!identity.isThere())
        return fail(MemoryReason::gone);
    if (!isDone)
        return cleanUp(lot);
    for (const Playlist &playlist : lot)
        m_document.setSaved(playlist.number);
    return true;
}

/// The path file of \a playlist after a failure. One that can't be read counts as unfit, so that
/// the next save neither trusts it nor puts an older one back.
QByteArray PlaylistWriter::pathsLeft(const Playlist &playlist) const
{
    const QByteArray &old = m_document.pathsFileOnDisk(playlist.number);
    if (isWholeFile(playlist.pathsPath, playlist.paths))
        return playlist.paths;
    return playlist.unfit.isEmpty() || isWholeFile(playlist.pathsPath, old) ? old : playlist.unfit;
}

/// After a failure: a playlist whose songs file was not written gets its old path file again. A
/// file can have its new content although the flush of its name failed.
bool PlaylistWriter::cleanUp(const QList<Playlist> &playlists)
{
    FileLot lot;
    lot.setMemory(m_document.contents()->root());
    for (const Playlist &playlist : playlists) {
        const QByteArray &old = m_document.pathsFileOnDisk(playlist.number);
        if (isWholeFile(playlist.songsPath, playlist.songs)) {
            m_document.setHalfSaved(playlist.number, playlist.songs, pathsLeft(playlist));
            continue;
        }
        (void)fail(whyUnwritable(playlist.songsPath, playlist.songs.size()), playlist.songsPath);
        if (!playlist.unfit.isEmpty() && !isWholeFile(playlist.pathsPath, old))
            (void)lot.write({playlist.pathsPath}, old); // without it the entries' titles decide
    }
    (void)lot.commitAll();
    const Playlist &first = playlists.first();
    return fail(whyUnwritable(first.pathsPath, first.paths.size()), first.pathsPath);
}

} // namespace brisel
