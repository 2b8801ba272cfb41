#include "base/filefailure.h"

#include "base/fileidentity.h"
#include "base/freespace.h"

#include <QFileInfo>

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

RunReport::Reason whyNotIndexed(const QString &root)
{
    return fileKind(root) == FileKind::Folder ? RunReport::Reason::IndexIncomplete
                                              : RunReport::Reason::MemoryGone;
}

RunReport::Reason whyUnwritable(const QString &path, qint64 size)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (fileKind(folder) != FileKind::Folder)
        return RunReport::Reason::FolderMissing;
    // What was begun and failed is gone again, and its room with it.
    const qint64 free = freeSpace(folder);
    return free >= 0 && free < size ? RunReport::Reason::NoSpace : RunReport::Reason::Unwritable;
}
