#include "library/pulledmemories.h"

#include "index/volumes.h"

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
