#pragma once

#include "index/entrylist.h"
#include "index/givennames.h"
#include "index/plannedfolder.h"
#include "index/songfolders.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <vector>

namespace brisel
{

/// Predicts the short names that the next run of the index gives to new songs in one folder of a
/// memory and to the folders above them, if the user agrees to all its questions. Writes nothing.
class ComingNames
{
public:
    /// A file that is written into the folder, with its graphics file if it has one.
    struct Song {
        QString name;
        QString graphics = {};
    };
    /// Absolute paths, as the run asks about them.
    struct Rename {
        QString from;
        QString to;
    };

    /// Reads what decides about the names of songs in \a folder, a folder below the root \a root of
    /// the memory that need not exist. \a run, which must outlive this, gets pulses.
    ComingNames(const QString &root, const QString &folder, Run &run);

    /// The songs that may come; some of them may be there already, and some may have one name.
    void setSongs(const QList<Song> &songs);
    /// Predicts the names for the case that those songs come for which \a comes is true.
    void predict(const QList<bool> &comes);

    /// The folders that get short names, from the root on.
    const QList<Rename> &folders() const { return m_folders; }
    /// The absolute path that the song \a number has then.
    QString pathOf(qsizetype number) const;
    /// The new name of the song \a number; both paths are empty if it keeps its name.
    Rename renameOf(qsizetype number) const;

private:
    /// One folder, before and after the run.
    struct Level {
        QString folder;
        QString newFolder;
        PlannedFolder names = PlannedFolder();
        QList<FolderEntry> longEntries = {}; ///< those that can get short names, in their order
    };
    /// An entry with a long name in the folder of the songs.
    struct Entry {
        FolderEntry entry;
        bool isThere = false;
        QList<qsizetype> songs = {}; ///< that have this name
    };

    void readPlaylists(Run &run);
    bool descend(const QString &name);
    static bool findEntry(const QString &folder, const QString &name, FolderEntry &found);
    Level levelOf(const QString &folder, const QString &newFolder, const QString &leading = {});
    bool getsName(const QString &folder, const FolderEntry &entry, const QString &leading);
    bool isReserved(const QString &from, const QString &path) const;
    QHash<QString, Rename> namesIn(const Level &level, const QList<FolderEntry> &entries,
                                   PlannedFolder names) const;

    const QString m_root;
    SongFolders m_songFolders;
    GivenNames m_given;
    QSet<QByteArray> m_named; ///< sort keys of the paths in playlists
    Level m_level;            ///< the folder of the songs
    bool m_isMet = true;      ///< the run enters the folder
    QList<Rename> m_folders;
    QList<Song> m_songs;
    std::vector<Entry> m_entries;
    QHash<QString, Rename> m_newNames; ///< names by the keys of the old ones
};

} // namespace brisel
