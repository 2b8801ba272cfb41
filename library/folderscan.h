#pragma once

#include "base/folderwalk.h"
#include "library/libraryimport.h"

#include <QString>

#include <functional>

namespace brisel
{

/// Adds every song file below a folder to the library. Each folder is visited once, whatever links
/// lead to it; what is neither a folder nor a plain file is passed over.
class FolderScan
{
public:
    /// Goes on from \a counts.
    FolderScan(UserSongsRelTableModel &model, QString folder, const SongCounts &counts = {});

    /// Scans the folder and what lies below, in the order of names, until the run is interrupted. A
    /// sort that was chosen before is carried out at the end. Gives what was met.
    SongCounts run(Run &run);

    /// Hands the plain files below \a folder to \a visitFile, in the order of names and until it
    /// answers false; false then. Folders that \a walk has entered are left out.
    static bool visitFiles(const QString &folder, FolderWalk &walk,
                           const std::function<bool(const QString &path)> &visitFile);

    /// The number of plain files below \a folder.
    [[nodiscard]] static int filesCount(const QString &folder);

private:
    void scan(Run &run, const QString &folder);

    UserSongsRelTableModel &m_model;
    const QString m_folder;
    SongRows m_songs;
    FolderWalk m_walk;
};

} // namespace brisel
