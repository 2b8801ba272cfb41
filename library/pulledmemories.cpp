#include "library/pulledmemories.h"

#include "index/memoryreasons.h"
#include "index/volumes.h"

namespace brisel
{

QString PulledMemories::pulledFrom(const QString &path)
{
    const QString root = getRootDrivePath(path);
    if (root.isEmpty())
        return {};
    auto known = m_memories.constFind(root);
    if (known == m_memories.constEnd())
        known = m_memories.insert(root, MemoryIdentity(root));
    return known->isThere() ? QString() : root;
}

Reason PulledMemories::note(RunReport &report, RunReport::Step step, const QString &path,
                            Reason reason)
{
    const QString memory = reason.isSkip() ? QString() : pulledFrom(path);
    if (memory.isEmpty()) {
        report.add(step, path, reason);
        return reason;
    }
    report.addShared(step, memory, MemoryReason::gone);
    return MemoryReason::gone;
}

} // namespace brisel
