#pragma once

#include "index/songfolders.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace brisel
{

class IndexMonitor;
class IndexPlaylists;
class IndexReader;
class LongNames;
class RunMemory;
class SongRoll;
struct FolderEntries;
struct FolderEntry;

/// The walk over a memory: finds the songs for the index and shortens their names. Asks before it
/// shortens a long name, and reports files that can't be indexed.
class MemoryWalk
{
    Q_DECLARE_TR_FUNCTIONS(brisel::Index)

public:
    /// Adds songs to \a roll; \a old is the index before the run. All must outlive this.
    MemoryWalk(IndexMonitor &monitor, RunMemory &memory, SongRoll &roll, const IndexReader &old,
               IndexPlaylists &playlists);

    /// Walks through \a folder and the folders below, in the order of visibleEntries(), until the
    /// memory is removed or the program must end.
    void scanFiles(const QString &folder);

    /// The number of songs that were met.
    int filesFound() const { return m_filesFound; }
    /// Returns true if a name could not be changed because the memory is write-protected.
    bool hasFailedRename() const { return m_renameFailed; }
    /// Paths below the root ("/POP", empty for the root) of the folders that could not be read to
    /// their end, and of unreadable entries, which may be songs or folders.
    const QStringList &unreadable() const { return m_unreadable; }

private:
    void scanFolder(const QString &longPath, const FolderEntry &entry, LongNames &names);
    void scanFile(const QString &longPath, const FolderEntry &entry, LongNames &names);
    bool addFileToIndex(const QString &full);
    QString renameLongFileName(const QString &path, const FolderEntry &entry, LongNames &names);
    bool mayRename(const QString &path, const QString &candidate);
    /// For file systems that have a short name beside each long one; here there are no such names.
    static QString getShortFileNamePath(const QString &path) { return path; }
    static QString getLongFileNamePath(const QString &path) { return path; }

    void reportOutside(const QString &path);
    void reportUnreadableFolder(const QString &folder, const FolderEntries &found);
    void reportUnnamed(const QString &folder, const FolderEntry &entry);
    void reportNoFile(const QString &path, const FolderEntry &entry);

    IndexMonitor &m_monitor;
    RunMemory &m_memory;
    SongRoll &m_roll;
    const IndexReader &m_old;
    IndexPlaylists &m_playlists;
    SongFolders m_songFolders;
    int m_filesFound = 0;
    bool m_renameFailed = false;
    QStringList m_unreadable;
};

} // namespace brisel
