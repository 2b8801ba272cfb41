#pragma once

#include "library/libraryimport.h"

#include <QSet>
#include <QString>

#include <functional>

/// Adds every song file below a folder to the library. Each folder is visited once, whatever links
/// lead to it; what is neither a folder nor a plain file is passed over.
class FolderScan
{
public:
    FolderScan(UserSongsRelTableModel &model, Progress &progress, SongCounts &counts);

    /// Scans \a folder and what lies below, in the order of names, until the progress is cancelled.
    void scan(const QString &folder);

    /// Hands the plain files below \a folder to \a visitFile, in the order of names and until it
    /// answers false; false then. Folders whose identities are in \a visited are left out, and
    /// those that are met are added.
    static bool visitFiles(const QString &folder, QSet<QString> &visited,
                           const std::function<bool(const QString &path)> &visitFile);

    /// The number of plain files below \a folder.
    static int filesCount(const QString &folder);

private:
    UserSongsRelTableModel &m_model;
    Progress &m_progress;
    SongCounts &m_counts;
    QSet<QString> m_visited; ///< identities of the folders
};
