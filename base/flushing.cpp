#include "base/flushing.h"

#include "base/filedescriptor.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace brisel
{

namespace
{

bool isNotOffered(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

} // namespace

bool flushHandle(int handle)
{
    return ::fsync(handle) == 0 || isNotOffered(errno);
}

bool flushFolder(const QString &folder)
{
    const FileDescriptor entry = FileDescriptor::openFolder(folder);
    return entry.isOpen() ? flushHandle(entry.get()) : errno == EACCES;
}

std::optional<bool> flushFileSystem(int handle)
{
#ifdef Q_OS_LINUX
    if (::syncfs(handle) != 0)
        return errno == ENOSYS ? std::nullopt : std::optional(false);
    // It does not fail on a file system that became read-only after an error.
    struct statvfs system {
    };
    return ::fstatvfs(handle, &system) != 0 || (system.f_flag & ST_RDONLY) == 0;
#else
    Q_UNUSED(handle)
    return std::nullopt;
#endif
}

bool writeAhead(int handle, qint64 size)
{
#ifdef Q_OS_LINUX
    constexpr qint64 large = 1 << 20; // bytes
    constexpr unsigned all =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return size < large || ::sync_file_range(handle, 0, 0, all) == 0 || isNotOffered(errno) ||
           errno == ESPIPE;
#else
    Q_UNUSED(handle)
    Q_UNUSED(size)
    return true;
#endif
}

} // namespace brisel
