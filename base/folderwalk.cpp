#include "base/folderwalk.h"

#include "base/fileidentity.h"

namespace brisel
{

bool FolderWalk::enter(const QString &folder)
{
    const QString identity = fileIdentity(folder);
    if (identity.isEmpty())
        return true;
    if (m_entered.contains(identity))
        return false;
    m_entered.insert(identity);
    return true;
}

bool FolderWalk::hasEntered(const QString &folder) const
{
    return m_entered.contains(fileIdentity(folder));
}

} // namespace brisel
