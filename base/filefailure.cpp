#include "base/filefailure.h"

#include "base/fileidentity.h"
#include "base/freespace.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/statvfs.h>
#endif

namespace
{

/// Why \a size bytes could not be written into \a folder, which is there.
RunReport::Reason whyUnwritableIn(const QString &folder, qint64 size)
{
    if (isWriteProtected(folder))
        return RunReport::Reason::WriteProtected;
    // What was begun and failed is gone again, and its room with it.
    const qint64 free = freeSpace(folder);
    if (free >= 0 && free < size)
        return RunReport::Reason::NoSpace;
    return QFileInfo(folder).isWritable() ? RunReport::Reason::Unwritable
                                          : RunReport::Reason::NotAllowed;
}

} // namespace

bool isWriteProtected(const QString &path)
{
#ifdef Q_OS_UNIX
    struct statvfs system {
    };
    return ::statvfs(QFile::encodeName(path).constData(), &system) == 0 &&
           (system.f_flag & ST_RDONLY) != 0;
#else
    Q_UNUSED(path)
    return false;
#endif
}

RunReport::Reason whyUnreadable(const QString &path, qint64 largest)
{
    switch (fileKind(path)) {
    case FileKind::Missing:
        return RunReport::Reason::Missing;
    case FileKind::Unreachable:
        return RunReport::Reason::Unreachable;
    case FileKind::Folder:
    case FileKind::Other:
        return RunReport::Reason::NoPlainFile;
    case FileKind::Regular:
        break;
    }
    const QFileInfo file(path);
    if (!file.isReadable())
        return RunReport::Reason::Unreachable;
    if (file.size() == 0)
        return RunReport::Reason::Empty;
    return file.size() > largest ? RunReport::Reason::TooLarge : RunReport::Reason::UnknownFormat;
}

RunReport::Reason whyNotIndexed(const QString &root, qint64 size)
{
    if (fileKind(root) != FileKind::Folder)
        return RunReport::Reason::MemoryGone;
    const RunReport::Reason reason = whyUnwritableIn(root, size);
    return reason == RunReport::Reason::Unwritable ? RunReport::Reason::IndexIncomplete : reason;
}

RunReport::Reason whyUnwritable(const QString &path, qint64 size)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (fileKind(folder) != FileKind::Folder)
        return RunReport::Reason::FolderMissing;
    return whyUnwritableIn(folder, size);
}
