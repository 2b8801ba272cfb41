#include "base/fileidentity.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/stat.h>

FileKind fileKind(const QString &path)
{
    struct stat entry {
    };
    if (path.isEmpty())
        return FileKind::Missing;
    if (::stat(QFile::encodeName(path).constData(), &entry) != 0)
        return errno == ENOENT || errno == ENOTDIR ? FileKind::Missing : FileKind::Unreachable;
    if (S_ISREG(entry.st_mode))
        return FileKind::Regular;
    return S_ISDIR(entry.st_mode) ? FileKind::Folder : FileKind::Other;
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

FileKind fileKind(const QString &path)
{
    const QFileInfo entry(path);
    if (path.isEmpty() || !entry.exists())
        return FileKind::Missing;
    if (entry.isFile())
        return FileKind::Regular;
    return entry.isDir() ? FileKind::Folder : FileKind::Other;
}

QString fileIdentity(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
}

#endif

bool isRegularFile(const QString &path)
{
    return fileKind(path) == FileKind::Regular;
}

bool isSameFile(const QString &first, const QString &second)
{
    const QString identity = fileIdentity(first);
    return !identity.isEmpty() && identity == fileIdentity(second);
}
