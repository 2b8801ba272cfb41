#pragma once

#include "base/memoryidentity.h"
#include "base/runreport.h"

#include <QHash>
#include <QString>

namespace brisel
{

/// The memories that a run works with, by the paths of its files, and which of them were pulled
/// since: such a memory is reported once, and no other file on it is tried.
class PulledMemories
{
public:
    /// The root of the memory that holds \a path, when it is no longer the one that stood there
    /// when the run asked first; empty otherwise, and off all memories.
    QString pulledFrom(const QString &path);

    /// Adds to \a report that \a step failed for the file at \a path. A failure on a memory that
    /// was pulled is the memory's; that the user wanted a file passed over is the file's.
    void note(RunReport &report, RunReport::Step step, const QString &path, Reason reason);

private:
    QHash<QString, MemoryIdentity> m_memories;
};

} // namespace brisel
