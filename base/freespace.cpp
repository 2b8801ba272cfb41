#include "base/freespace.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <limits>

qint64 freeSpace(const QString &folder)
{
    std::error_code failure;
    const std::filesystem::space_info space =
        std::filesystem::space(QFile::encodeName(folder).toStdString(), failure);
    if (failure)
        return -1;
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    return static_cast<qint64>(std::min<std::uintmax_t>(space.available, most));
}
