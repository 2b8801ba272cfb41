#pragma once

#include <QSet>
#include <QString>

class Progress;

/// Copies a folder with everything below it. Entries go in name order, hidden ones too; only plain
/// files are copied, and no folder is entered twice, so that link loops and a destination inside
/// the source end.
class FolderTreeBackup
{
public:
    explicit FolderTreeBackup(Progress &progress) : m_progress(progress) {}

    /// Copies the content of \a source into the existing folder \a dest and adds the number of
    /// copied files to \a count, which is shown as the progress. Existing files are not replaced.
    /// True when everything was copied.
    bool backupDirectory(const QString &source, const QString &dest, int &count);

private:
    bool copyFolder(const QString &source, const QString &dest, int &count);
    bool copySubFolder(const QString &source, const QString &dest, const QString &name, int &count);

    Progress &m_progress;
    QSet<QString> m_visited; ///< identities of the folders already entered, and of the destination
};
