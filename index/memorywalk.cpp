#include "index/memorywalk.h"

#include "base/filefailure.h"
#include "base/flushing.h"
#include "base/folderhandle.h"
#include "base/lettercase.h"
#include "index/entrylist.h"
#include "index/indexmonitor.h"
#include "index/indexplaylists.h"
#include "index/indexreader.h"
#include "index/longnames.h"
#include "index/runmemory.h"
#include "index/songroll.h"

namespace brisel
{

MemoryWalk::MemoryWalk(IndexMonitor &monitor, RunMemory &memory, SongRoll &roll,
                       const IndexReader &old, IndexPlaylists &playlists)
    : m_monitor(monitor), m_memory(memory), m_roll(roll), m_old(old), m_playlists(playlists),
      m_songFolders(memory.root(), monitor.run())
{
}

void MemoryWalk::scanFiles(const QString &folder)
{
    if (!m_songFolders.enter(folder))
        return;
    m_memory.names().meet(folder);
    // A song that is sent again gets its name back.
    LongNames names(folder, [this, folder](const QString &from, const QString &to) {
        const QString path = folder + u'/' + to;
        return m_playlists.isNamed(pathSortKey(m_memory.below(path))) &&
               !m_memory.names().wasGiven(from, path);
    });
    const FolderEntries found = visibleEntries(folder);
    if (!found.isComplete)
        reportUnreadableFolder(folder, found);
    for (const FolderEntry &entry : found.unnamed)
        reportUnnamed(folder, entry);
    for (const FolderEntry &entry : found.entries) {
        if (m_memory.isGone() || m_monitor.run().isEnding())
            return;
        const QString longPath = folder + u'/' + entry.name;
        if (entry.kind == FileKind::Regular)
            scanFile(longPath, entry, names);
        else if (entry.kind == FileKind::Folder)
            scanFolder(longPath, entry, names);
        else
            reportNoFile(longPath, entry);
    }
}

void MemoryWalk::scanFolder(const QString &longPath, const FolderEntry &entry, LongNames &names)
{
    if (SongFolders::isPlayersFolder(entry.name))
        return;
    if (m_songFolders.isOutside(longPath, entry)) {
        reportOutside(longPath);
        return;
    }
    if (entry.isLink && m_songFolders.hasEntered(longPath)) {
        m_memory.reportMissed(
            tr("File non importato, il collegamento porta a una cartella già importata: ") +
            longPath);
        return;
    }
    // A folder without songs keeps its name.
    const bool isLong = LongNames::isLong(longPath);
    const QString path = isLong && m_songFolders.leadsToSongs(longPath)
                             ? renameLongFileName(longPath, entry, names)
                             : longPath;
    // It may have been replaced by a link during the question.
    if (!path.isEmpty() && (!isLong || !m_songFolders.isOutside(path, entry)))
        scanFiles(path);
}

void MemoryWalk::scanFile(const QString &longPath, const FolderEntry &entry, LongNames &names)
{
    m_monitor.showPath(longPath);
    if (!SongFolders::isSong(longPath))
        return;
    if (m_songFolders.isOutside(longPath, entry)) {
        reportOutside(longPath);
        return;
    }
    const QString path = renameLongFileName(longPath, entry, names);
    if (path.isEmpty())
        return;
    if (m_memory.names().meet(path) && !m_old.hasPath(pathSortKey(m_memory.below(path))))
        m_memory.names().addStranger(path);
    addFileToIndex(path);
    ++m_filesFound;
    m_monitor.setFilesFound(m_filesFound);
}

bool MemoryWalk::addFileToIndex(const QString &full)
{
    if (getShortFileNamePath(full).isEmpty() || getShortFileNamePath(m_memory.root()).isEmpty()) {
        m_monitor.reportError(tr("File non importato, errore nel path:") + full);
        return false;
    }
    const QString path = m_memory.below(full);
    if (path.size() > SongInfoIndex::maxPath) {
        m_monitor.reportError(tr("File non importato, path troppo lungo: ") + full);
        return false;
    }
    if (!isAscii(path) && pathFromBytes(pathBytes(path)) != path)
        m_monitor.reportError(tr("Il nome ha caratteri che Brisel non conosce e la song non si può "
                                 "aprire, rinominare il file o la sua cartella: ") +
                              full);
    if (!m_roll.meet(full, path)) {
        m_monitor.reportError(tr("File non importato, memoria piena: ") + full);
        return false;
    }
    return true;
}

QString MemoryWalk::renameLongFileName(const QString &path, const FolderEntry &entry,
                                       LongNames &names)
{
    if (!LongNames::isLong(path))
        return path;
    const QString shortName = names.freeName(entry.name, entry.kind);
    if (!shortName.isEmpty()) {
        QString candidate = path.chopped(entry.name.size()) + shortName;
        const bool mayRename = this->mayRename(path, candidate);
        if (m_memory.isGone() || m_monitor.run().isEnding())
            return {};
        // It may have been replaced by a link during the question.
        if (!mayRename)
            return leavesRoot(path, m_memory.root()) ? QString() : path;
        if (names.rename(m_memory.renames(), entry.name, shortName)) {
            m_monitor.reportNotice(tr("Rinominato: ") + path + QStringLiteral(" -> ") + candidate);
            return candidate;
        }
    }
    // On a write-protected memory no other file can be renamed either.
    if (isWriteProtected(m_memory.root()) || whyUnwritable(path, 0) == FileReason::notAllowed) {
        m_renameFailed = true;
        m_monitor.run().answerAll(Run::Question::Rename, false);
    }
    m_monitor.reportError(tr("File non importato, impossibile rinominare: ") + path);
    return {};
}

/// Asks the user, unless all files were answered. During the question the memory may be replaced by
/// another one.
bool MemoryWalk::mayRename(const QString &path, const QString &candidate)
{
    if (m_monitor.run().isAsking(Run::Question::Rename, path, candidate) && m_memory.isSame())
        m_memory.identity().layMark();
    const bool isWanted =
        !m_memory.isGone() &&
        m_monitor.run().ask(Run::Question::Rename, path,
                            tr("verrà rinominato: ") + candidate + QStringLiteral("\n\n") +
                                tr("Se il file non viene rinominato, è possibile che non venga "
                                   "rilevato da Brisel."),
                            candidate);
    return m_memory.isSame() && isWanted;
}

void MemoryWalk::reportOutside(const QString &path)
{
    m_monitor.reportError(tr("File non importato, si trova fuori dalla memoria: ") + path);
}

void MemoryWalk::reportUnreadableFolder(const QString &folder, const FolderEntries &found)
{
    m_unreadable.append(m_memory.below(folder));
    m_memory.reportMissed((found.entries.isEmpty()
                               ? tr("Cartella non importata, impossibile leggerla: ")
                               : tr("Cartella importata solo in parte, errore di lettura: ")) +
                          folder);
}

/// The name of \a entry, a song or folder in \a folder, is not a text.
void MemoryWalk::reportUnnamed(const QString &folder, const FolderEntry &entry)
{
    const QString path = folder + u'/' + entry.name;
    if (entry.kind == FileKind::Folder || SongFolders::isSong(path))
        m_memory.reportMissed(tr("File non importato, il nome non è valido: ") + path);
}

/// \a entry is neither a plain file nor a folder. A link with any name may lead to a folder.
void MemoryWalk::reportNoFile(const QString &path, const FolderEntry &entry)
{
    const bool isSong = SongFolders::isSong(path);
    if (entry.kind == FileKind::Unreachable && (isSong || entry.isLink)) {
        m_unreadable.append(m_memory.below(path));
        m_memory.reportMissed(tr("File non importato, non è accessibile: ") + path);
    } else if (entry.kind == FileKind::Other && isSong) {
        m_memory.reportMissed(tr("File non importato, non è un file: ") + path);
    } else if (entry.kind == FileKind::Missing && isSong && entry.isLink) {
        m_memory.reportMissed(tr("File non importato, il collegamento non porta a nessun file: ") +
                              path);
    }
}

} // namespace brisel
