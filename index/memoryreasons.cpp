#include "index/memoryreasons.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"

namespace brisel
{

Reason MemoryReason::whyNotIndexed(const QString &root, qint64 size)
{
    if (fileKind(root) != FileKind::Folder)
        return gone;
    const Reason reason = whyUnwritableIn(root, size);
    return reason == FileReason::unwritable ? indexIncomplete : reason;
}

} // namespace brisel
