#include "index/recentmemories.h"

#include "base/fileidentity.h"
#include "base/settings.h"
#include "index/volumes.h"

namespace brisel
{

static constexpr qsizetype mostMemories = 8;

QStringList recentMemories()
{
    QStringList memories = Settings::recentMemories.in(openSettings());
    memories.removeIf([](const QString &memory) { return startMemory(memory, {}).isEmpty(); });
    return memories;
}

void keepMemory(const QString &folder)
{
    const QString memory = getRootDrivePath(folder);
    if (memory.isEmpty())
        return;
    QSettings settings = openSettings();
    const QStringList before = Settings::recentMemories.in(settings);
    QStringList memories = before;
    memories.removeAll(memory);
    memories.prepend(memory);
    memories = memories.mid(0, mostMemories);
    if (memories != before)
        Settings::recentMemories.store(settings, memories);
}

QString startMemory(const QString &last, const QString &first)
{
    return !isSystemDisk(last) && fileKind(last) == FileKind::Folder ? last : first;
}

} // namespace brisel
