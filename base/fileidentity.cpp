#include "base/fileidentity.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>

namespace brisel
{

namespace
{

/// On a damaged disk a time can be any number.
qint64 nanoseconds(const struct timespec &time)
{
    constexpr quint64 second = 1000000000;
    return static_cast<qint64>(static_cast<quint64>(time.tv_sec) * second +
                               static_cast<quint64>(time.tv_nsec));
}

FileState stateOf(const struct stat &entry)
{
    const FileKind kind = S_ISREG(entry.st_mode)   ? FileKind::Regular
                          : S_ISDIR(entry.st_mode) ? FileKind::Folder
                                                   : FileKind::Other;
#ifdef Q_OS_MACOS
    const struct timespec modified = entry.st_mtimespec;
    const struct timespec changed = entry.st_ctimespec;
#else
    const struct timespec modified = entry.st_mtim;
    const struct timespec changed = entry.st_ctim;
#endif
    return {kind,
            modified.tv_sec,
            static_cast<quint64>(entry.st_dev),
            entry.st_ino,
            entry.st_size,
            nanoseconds(modified),
            nanoseconds(changed)};
}

FileState stateOfKind(FileKind kind)
{
    FileState state;
    state.kind = kind;
    return state;
}

} // namespace

FileState fileState(const QString &path)
{
    struct stat entry {
    };
    if (path.isEmpty())
        return {};
    if (::stat(QFile::encodeName(path).constData(), &entry) != 0)
        return stateOfKind(errno == ENOENT || errno == ENOTDIR ? FileKind::Missing
                                                               : FileKind::Unreachable);
    return stateOf(entry);
}

FileState fileState(int handle)
{
    struct stat entry {
    };
    return ::fstat(handle, &entry) == 0 ? stateOf(entry) : stateOfKind(FileKind::Unreachable);
}

QString fileIdentity(const QString &path)
{
    struct stat entry {
    };
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &entry) != 0)
        return {};
    return QString::number(entry.st_dev) + u':' + QString::number(entry.st_ino);
}

FileKind fileKind(const QString &path)
{
    return fileState(path).kind;
}

bool isRegularFile(const QString &path)
{
    return fileKind(path) == FileKind::Regular;
}

bool entryExists(const QString &path)
{
    const QFileInfo entry(path);
    return entry.exists() || entry.isSymLink();
}

bool isSameFile(const QString &first, const QString &second)
{
    const QString identity = fileIdentity(first);
    return !identity.isEmpty() && identity == fileIdentity(second);
}

} // namespace brisel
