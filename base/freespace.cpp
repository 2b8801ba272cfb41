#include "base/freespace.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <limits>

#include <sys/statvfs.h>

namespace brisel
{

namespace
{

qint64 spaceOf(const QString &folder, std::uintmax_t std::filesystem::space_info::*kind)
{
    std::error_code failure;
    const std::filesystem::space_info space =
        std::filesystem::space(QFile::encodeName(folder).toStdString(), failure);
    if (failure)
        return -1;
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    return static_cast<qint64>(std::min<std::uintmax_t>(space.*kind, most));
}

} // namespace

qint64 freeSpace(const QString &folder)
{
    return spaceOf(folder, &std::filesystem::space_info::available);
}

qint64 totalSpace(const QString &folder)
{
    return spaceOf(folder, &std::filesystem::space_info::capacity);
}

qint64 allocationUnit(const QString &folder)
{
    struct statvfs system {
    };
    if (::statvfs(QFile::encodeName(folder).constData(), &system) == 0 && system.f_frsize > 0)
        return static_cast<qint64>(system.f_frsize);
    return 1;
}

qint64 allocatedSize(qint64 size, qint64 unit)
{
    return (size + unit - 1) / unit * unit;
}

} // namespace brisel
