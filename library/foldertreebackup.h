#pragma once

#include "base/folderwalk.h"

#include <QString>

namespace brisel
{

class Run;

/// Copies a folder with everything below it, in the order of names, with hidden files. Only plain
/// files are copied, and no folder is entered twice, so that link loops and a destination inside
/// the source do not make it endless.
class FolderTreeBackup
{
public:
    /// For copying the content of \a source into the existing folder \a dest, counting from
    /// \a count.
    FolderTreeBackup(QString source, QString dest, int count = 0);

    /// Does not replace existing files. Returns true if everything was copied.
    [[nodiscard]] bool run(Run &run);

    /// The number of copied files, which is also the step of the run.
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
