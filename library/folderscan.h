#pragma once

#include "base/folderwalk.h"
#include "library/libraryimport.h"

#include <QString>

#include <functional>

namespace brisel
{

/// Adds every song file below a folder to the library. Each folder is visited once, even if several
/// links lead to it; entries that are neither folders nor plain files are skipped.
class FolderScan
{
public:
    /// Continues counting from \a counts.
    FolderScan(UserSongsRelTableModel &model, QString folder, const SongCounts &counts = {});

    /// Scans the folder and all folders below, in the order of names, until the run is interrupted.
    /// Then sorts the rows as chosen before. Returns the counts.
    SongCounts run(Run &run);

    /// Calls \a visitFile for the plain files below \a folder, in the order of names, until it
    /// returns false; returns false then. Skips folders that \a walk has entered.
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
