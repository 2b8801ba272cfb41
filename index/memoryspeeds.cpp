#include "index/memoryspeeds.h"

#include "base/lastfolder.h"
#include "index/volumes.h"

#include <QStringList>

namespace brisel
{

namespace
{

/// The root of the entry \a speed, which is "bytes per second, blank, root".
QString memoryOf(const QString &speed)
{
    return speed.section(u' ', 1);
}

} // namespace

qint64 memorySpeed(const QString &folder)
{
    const QString memory = getRootDrivePath(folder);
    const QStringList speeds = Settings::memorySpeeds.in(openSettings());
    for (const QString &speed : speeds) {
        if (!memory.isEmpty() && memoryOf(speed) == memory)
            return qMax<qint64>(speed.section(u' ', 0, 0).toLongLong(), 0);
    }
    return 0;
}

void keepMemorySpeed(const QString &folder, qint64 bytesPerSecond)
{
    const QString memory = getRootDrivePath(folder);
    if (memory.isEmpty() || bytesPerSecond <= 0)
        return;
    QSettings settings = openSettings();
    QStringList speeds = Settings::memorySpeeds.in(settings);
    speeds.removeIf([&memory](const QString &speed) { return memoryOf(speed) == memory; });
    speeds.prepend(QString::number(bytesPerSecond) + u' ' + memory);
    Settings::memorySpeeds.store(settings, speeds.mid(0, mostRecent));
}

} // namespace brisel
