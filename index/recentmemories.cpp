#include "index/recentmemories.h"

#include "base/fileidentity.h"
#include "base/lastfolder.h"
#include "index/volumes.h"

namespace brisel
{

QStringList recentMemories()
{
    QStringList memories = Settings::recentMemories.in(openSettings());
    memories.removeIf([](const QString &memory) { return startMemory(memory, {}).isEmpty(); });
    return memories;
}

void keepMemory(const QString &folder)
{
    const QString memory = getRootDrivePath(folder);
    if (!memory.isEmpty())
        keepRecent(Settings::recentMemories, memory);
}

QString startMemory(const QString &last, const QString &first)
{
    return !isSystemDisk(last) && fileKind(last) == FileKind::Folder ? last : first;
}

} // namespace brisel
