#pragma once

#include "base/memoryidentity.h"
#include "base/runreport.h"

#include <QHash>
#include <QString>

namespace brisel
{

/// The memories of a run's files, and which of them were pulled during the run: such a memory is
/// reported once, and its other files are skipped.
class PulledMemories
{
public:
    /// The root of the memory that contains \a path, if it is no longer the same as at the first
    /// call for it; otherwise, or if the path is not on a memory, empty.
    QString pulledFrom(const QString &path);

    /// Adds to \a report that \a step failed for the file at \a path. A failure on a pulled memory
    /// is reported for the memory, unless the user wanted to skip the file. Returns the reported
    /// reason.
    Reason note(RunReport &report, RunReport::Step step, const QString &path, Reason reason);

private:
    QHash<QString, MemoryIdentity> m_memories;
};

} // namespace brisel
