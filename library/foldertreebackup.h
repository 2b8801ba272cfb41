#pragma once

#include "base/folderwalk.h"

#include <QString>

namespace brisel
{

class Run;

/// Copies a folder with everything below it. Entries go in name order, hidden ones too; only plain
/// files are copied, and no folder is entered twice, so that link loops and a destination inside
/// the source end.
class FolderTreeBackup
{
public:
    /// Is to copy the content of \a source into the existing folder \a dest, and to count on from
    /// \a count.
    FolderTreeBackup(QString source, QString dest, int count = 0);

    /// Existing files are not replaced. True when everything was copied.
    [[nodiscard]] bool run(Run &run);

    /// The number of copied files, which is shown as the steps of the run.
    int count() const { return m_count; }

private:
    bool copyFolder(Run &run, const QString &source, const QString &dest);
    bool copySubFolder(Run &run, const QString &source, const QString &dest, const QString &name);

    const QString m_source;
    const QString m_dest;
    int m_count;
    FolderWalk m_walk; ///< has entered the destination, too
};

} // namespace brisel
