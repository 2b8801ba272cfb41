#include "songfile/readonlyflag.h"

#include "base/debugstream.h"
#include "base/filedescriptor.h"
#include "base/fileidentity.h"

#include <QFile>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#elif defined(Q_OS_MACOS)
#include <QProcess>
#endif

namespace brisel
{

namespace
{

#if defined(Q_OS_LINUX)

bool clearImmutable(const QString &path)
{
    if (!isRegularFile(path))
        return true;
    const FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen())
        return false;
    int flags = 0;
    // Most file systems of memories don't have this attribute.
    if (::ioctl(file.get(), FS_IOC_GETFLAGS, &flags) != 0 || (flags & FS_IMMUTABLE_FL) == 0)
        return true;
    flags &= ~FS_IMMUTABLE_FL;
    return ::ioctl(file.get(), FS_IOC_SETFLAGS, &flags) == 0;
}

#elif defined(Q_OS_MACOS)

bool clearImmutable(const QString &path)
{
    constexpr int timeout = 60000; // milliseconds
    QProcess command;
    command.start(QStringLiteral("chflags"), {QStringLiteral("nouchg"), path});
    return command.waitForFinished(timeout);
}

#else

bool clearImmutable(const QString &path)
{
    Q_UNUSED(path)
    return true;
}

#endif

} // namespace

void clearReadOnlyFlag(const QString &path)
{
    if (clearImmutable(path))
        debug() << "remove read only flag: OK";
    else
        debug() << "remove read only flag: ERROR";
}

void makeWritable(const QString &path)
{
    clearReadOnlyFlag(path);
    if (isRegularFile(path))
        QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteUser);
}

} // namespace brisel
