#include "tests/index/stepcounter.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

QByteArray watched;
int wanted = 0;
int counted = 0;
bool armed = false;
StepCounter::Fault wantedFault = StepCounter::Kill;

template <typename Function>
Function real(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool isWatched(const char *path)
{
    return armed && path != nullptr && std::strncmp(path, watched.constData(), watched.size()) == 0;
}

bool isWatched(int handle)
{
    if (!armed)
        return false;
    char link[64];
    char path[4096] = {};
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", handle);
    return ::readlink(link, path, sizeof path - 1) > 0 && isWatched(path);
}

/// Counts one step; true when it fails, with errno set. \a takesRoom: a full disk refuses it.
bool fails(bool takesRoom)
{
    ++counted;
    if (wantedFault == StepCounter::NoSpace && counted >= wanted && takesRoom) {
        errno = ENOSPC;
        return true;
    }
    if (counted != wanted)
        return false;
    if (wantedFault == StepCounter::Kill || wantedFault == StepCounter::Tear)
        ::_exit(StepCounter::killedExit);
    errno = EIO;
    return wantedFault == StepCounter::IoError;
}

int openCounted(const char *name, const char *path, int flags, mode_t mode)
{
    const bool writes = (flags & (O_CREAT | O_TRUNC)) != 0;
    if (writes && isWatched(path) && fails(true))
        return -1;
    return real<int (*)(const char *, int, mode_t)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

void StepCounter::arm(const QByteArray &folder, int number, Fault fault)
{
    watched = folder;
    wanted = number;
    wantedFault = fault;
    counted = 0;
    armed = true;
}

int StepCounter::disarm()
{
    armed = false;
    return counted;
}

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openCounted("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openCounted("open64", path, flags, mode);
}

ssize_t write(int handle, const void *data, size_t size)
{
    static const auto realWrite = real<ssize_t (*)(int, const void *, size_t)>("write");
    if (isWatched(handle)) {
        if (wantedFault == StepCounter::Tear && counted + 1 == wanted)
            (void)!realWrite(handle, data, size / 2);
        if (fails(true))
            return -1;
    }
    return realWrite(handle, data, size);
}

int rename(const char *from, const char *to) noexcept
{
    if (isWatched(to) && fails(false))
        return -1;
    return real<int (*)(const char *, const char *)>("rename")(from, to);
}

int renameat2(int oldFolder, const char *from, int newFolder, const char *to,
              unsigned flags) noexcept
{
    if (isWatched(to) && fails(false))
        return -1;
    return real<int (*)(int, const char *, int, const char *, unsigned)>("renameat2")(
        oldFolder, from, newFolder, to, flags);
}

int unlink(const char *path) noexcept
{
    if (isWatched(path) && fails(false))
        return -1;
    return real<int (*)(const char *)>("unlink")(path);
}

int rmdir(const char *path) noexcept
{
    if (isWatched(path) && fails(false))
        return -1;
    return real<int (*)(const char *)>("rmdir")(path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    if (isWatched(path) && fails(true))
        return -1;
    return real<int (*)(const char *, mode_t)>("mkdir")(path, mode);
}

/// The tests end processes, not the power: what was written is there, and waiting takes long.
int fsync(int)
{
    return 0;
}
}
