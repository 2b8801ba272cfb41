#include "memory/memoryclaim.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/run.h"
#include "index/indexset.h"
#include "index/memoryreasons.h"
#include "index/workfolder.h"

#include <QDir>

namespace brisel
{

MemoryClaim::MemoryClaim(const QString &root)
    : m_root(root), m_lock(root, FolderLock::Kind::Exclusive), m_identity(root)
{
}

MemoryClaim::~MemoryClaim()
{
    if (!m_isMarked || !isSame())
        return;
    WorkFolder work;
    work.setRoot(m_root);
    work.remove(MemoryIdentity::markName());
    QDir(m_root).rmdir(work.path()); // does nothing if it has other files
}

void MemoryClaim::prepare()
{
    if (m_isPrepared || refusal())
        return;
    m_isPrepared = true;
    Run run;
    IndexSet set(run);
    set.setRoot(m_root);
    m_mayHaveRecovered = !set.isComplete();
    set.recover();
}

void MemoryClaim::mark()
{
    prepare();
    if (!refusal())
        m_isMarked = m_identity.layMark();
}

std::optional<Reason> MemoryClaim::refusal() const
{
    if (fileKind(m_root) != FileKind::Folder)
        return MemoryReason::gone;
    if (m_lock.isBusy())
        return MemoryReason::inUse;
    if (!isSame())
        return MemoryReason::gone;
    return isWriteProtected(m_root) ? std::optional(FileReason::writeProtected) : std::nullopt;
}

} // namespace brisel
