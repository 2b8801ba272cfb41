#pragma once

#include "base/folderwalk.h"

#include <QHash>
#include <QString>

namespace brisel
{

class Run;
struct FolderEntry;

/// What a walk over a memory for its index enters: the folders that were entered, and which entries
/// are songs or lead to songs.
class SongFolders
{
public:
    /// For the memory \a root. \a run, which must outlive this, gets a pulse for each folder.
    SongFolders(const QString &root, Run &run) : m_root(root), m_run(run) {}

    /// See FolderWalk.
    [[nodiscard]] bool enter(const QString &folder) { return m_entered.enter(folder); }
    [[nodiscard]] bool hasEntered(const QString &folder) const
    {
        return m_entered.hasEntered(folder);
    }

    /// Returns true if the file \a path has the suffix of a song.
    [[nodiscard]] static bool isSong(const QString &path);
    /// Returns true if \a name is that of a folder with the player's own data.
    [[nodiscard]] static bool isPlayersFolder(const QString &name);
    /// Returns true if the entry at \a path leads off the memory, also if another disk is mounted
    /// there.
    [[nodiscard]] bool isOutside(const QString &path, const FolderEntry &entry) const;
    /// Returns true if a walk into \a folder, which is on the memory, would meet a song. Each
    /// folder is listed only once.
    [[nodiscard]] bool leadsToSongs(const QString &folder);

private:
    const QString m_root;
    Run &m_run;
    FolderWalk m_entered;
    QHash<QString, bool> m_leads; ///< by identity: whether the folder leads to songs
};

} // namespace brisel
