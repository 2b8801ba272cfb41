#include "tests/base/nonewfiles.h"

#include <cerrno>
#include <cstdarg>

#include <linux/fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

static bool isFull = false;

NoNewFiles::NoNewFiles()
{
    isFull = true;
}

NoNewFiles::~NoNewFiles()
{
    isFull = false;
}

/// Replaces the C library's function in the whole program.
extern "C" __attribute__((visibility("default"))) int open64(const char *path, int flags, ...)
{
    const bool isNameless = (flags & O_TMPFILE) == O_TMPFILE;
    const bool creates = (flags & O_CREAT) != 0 || isNameless;
    unsigned mode = 0;
    if (creates) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, unsigned);
        va_end(arguments);
    }
    const bool opensOld = !isNameless && (flags & O_EXCL) == 0 && ::access(path, F_OK) == 0;
    if (isFull && creates && !opensOld) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
