#include "base/fileidentity.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/stat.h>

namespace
{

FileState stateOf(const struct stat &entry)
{
    const FileKind kind = S_ISREG(entry.st_mode)   ? FileKind::Regular
                          : S_ISDIR(entry.st_mode) ? FileKind::Folder
                                                   : FileKind::Other;
    return {kind, entry.st_mtime};
}

} // namespace

FileState fileState(const QString &path)
{
    struct stat entry {
    };
    if (path.isEmpty())
        return {};
    if (::stat(QFile::encodeName(path).constData(), &entry) != 0)
        return {errno == ENOENT || errno == ENOTDIR ? FileKind::Missing : FileKind::Unreachable, 0};
    return stateOf(entry);
}

FileState fileState(int handle)
{
    struct stat entry {
    };
    return ::fstat(handle, &entry) == 0 ? stateOf(entry) : FileState{FileKind::Unreachable, 0};
}

QString fileIdentity(const QString &path)
{
    struct stat entry {
    };
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &entry) != 0)
        return {};
    return QString::number(entry.st_dev) + u':' + QString::number(entry.st_ino);
}

#else

FileState fileState(const QString &path)
{
    const QFileInfo entry(path);
    if (path.isEmpty() || !entry.exists())
        return {};
    const FileKind kind = entry.isFile()  ? FileKind::Regular
                          : entry.isDir() ? FileKind::Folder
                                          : FileKind::Other;
    return {kind, entry.lastModified().toSecsSinceEpoch()};
}

QString fileIdentity(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
}

#endif

FileKind fileKind(const QString &path)
{
    return fileState(path).kind;
}

bool isRegularFile(const QString &path)
{
    return fileKind(path) == FileKind::Regular;
}

bool isSameFile(const QString &first, const QString &second)
{
    const QString identity = fileIdentity(first);
    return !identity.isEmpty() && identity == fileIdentity(second);
}
