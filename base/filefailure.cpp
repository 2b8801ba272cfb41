#include "base/filefailure.h"

#include "base/fileidentity.h"
#include "base/freespace.h"

#include <QFile>
#include <QFileInfo>

#include <sys/statvfs.h>

namespace brisel
{

Reason whyUnwritableIn(const QString &folder, qint64 size)
{
    if (isWriteProtected(folder))
        return FileReason::writeProtected;
    // The room of the failed file is free again.
    const qint64 free = freeSpace(folder);
    if (free >= 0 && free < size)
        return FileReason::noSpace;
    return QFileInfo(folder).isWritable() ? FileReason::unwritable : FileReason::notAllowed;
}

bool isWriteProtected(const QString &path)
{
    struct statvfs system {
    };
    return ::statvfs(QFile::encodeName(path).constData(), &system) == 0 &&
           (system.f_flag & ST_RDONLY) != 0;
}

std::optional<Reason> whyUnreadable(const QString &path, qint64 largest)
{
    switch (fileKind(path)) {
    case FileKind::Missing:
        return FileReason::missing;
    case FileKind::Unreachable:
        return FileReason::unreachable;
    case FileKind::Folder:
    case FileKind::Other:
        return FileReason::notAFile;
    case FileKind::Regular:
        break;
    }
    const QFileInfo file(path);
    if (!file.isReadable())
        return FileReason::unreachable;
    if (file.size() == 0)
        return FileReason::empty;
    if (file.size() > largest)
        return FileReason::tooLarge;
    return std::nullopt;
}

Reason whyUnwritable(const QString &path, qint64 size)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (fileKind(folder) != FileKind::Folder)
        return FileReason::folderMissing;
    return whyUnwritableIn(folder, size);
}

} // namespace brisel
