#include "base/folderhandle.h"

#include "base/fatfolder.h"
#include "base/fileidentity.h"
#include "base/flushing.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisel
{

QString wayBelow(const QString &root, const QString &path)
{
    const QString start = QFileInfo(root).canonicalFilePath();
    const QString end = QFileInfo(path).canonicalFilePath();
    if (start.isEmpty() || end.isEmpty())
        return {};
    if (end == start)
        return QStringLiteral("");
    const QString above = start.endsWith(u'/') ? start : start + u'/';
    return end.startsWith(above) ? end.mid(above.size()) : QString();
}

bool leavesRoot(const QString &path, const QString &root)
{
    const QFileInfo entry(path);
    if (!entry.exists())
        return false;
    if (wayBelow(root, path).isNull())
        return true;
    // Folders are compared, because some file systems report another device for files.
    const QString folder =
        entry.isDir() ? path : QFileInfo(entry.canonicalFilePath()).absolutePath();
    return fileState(folder).device != fileState(root).device;
}

namespace
{

/// Renames within a folder if no entry has the new name.
int renameToFreeName(int folder, const char *name, const char *newName)
{
#ifdef Q_OS_LINUX
    const int result = ::renameat2(folder, name, folder, newName, RENAME_NOREPLACE);
    if (result == 0 || (errno != EINVAL && errno != ENOSYS))
        return result;
#endif
    struct stat entry {
    };
    if (::fstatat(folder, newName, &entry, AT_SYMLINK_NOFOLLOW) == 0 || errno != ENOENT)
        return -1;
    return ::renameat(folder, name, folder, newName);
}

} // namespace

FolderHandle::FolderHandle(const QString &root, const QString &names)
{
    m_handle = FileDescriptor::openFolder(root);
    const quint64 device = fileState(m_handle.get()).device;
    for (const QString &name : names.split(u'/', Qt::SkipEmptyParts)) {
        if (!m_handle.isOpen())
            return;
        if (name == QStringLiteral(".."))
            m_handle.close();
        else
            m_handle = FileDescriptor::openFolderIn(m_handle.get(), name);
        if (fileState(m_handle.get()).device != device)
            m_handle.close();
    }
}

bool FolderHandle::rename(const QString &name, const QString &newName) const
{
    return renameToFreeName(m_handle.get(), QFile::encodeName(name).constData(),
                            QFile::encodeName(newName).constData()) == 0;
}

bool FolderHandle::remove(const QString &name) const
{
    return ::unlinkat(m_handle.get(), QFile::encodeName(name).constData(), 0) == 0;
}

bool FolderHandle::flush(const QString &name) const
{
    const FileDescriptor entry =
        FileDescriptor::openIn(m_handle.get(), name, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    return entry.isOpen() && flushHandle(entry.get());
}

} // namespace brisel
