#include "tests/shim/readdamage.h"

#include "tests/shim/shim.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/syscall.h>
#include <unistd.h>

// Makes system calls directly, like shim.cpp.

namespace
{

char damaged[pathSize]; ///< the file that can't be read whole; empty if there is no such file
long long damagedFrom = 0;
Shim::ReadFailure damage = Shim::BadSector;

} // namespace

bool pathOf(int handle, char *path)
{
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", handle);
    const ssize_t length = ::readlink(link, path, pathSize - 1);
    path[length < 0 ? 0 : length] = '\0';
    return length > 0;
}

ssize_t readable(int handle, long long pos, size_t size)
{
    char path[pathSize];
    if (damaged[0] == '\0' || !pathOf(handle, path) || std::strcmp(path, damaged) != 0)
        return static_cast<ssize_t>(size);
    const long long left = damagedFrom - pos;
    if (left <= 0 && size > 0 && damage == Shim::BadSector) {
        errno = EIO;
        return -1;
    }
    return std::clamp<ssize_t>(left, 0, static_cast<ssize_t>(size));
}

long long readPosition(int handle, const off64_t *offset)
{
    return offset != nullptr ? *offset : ::syscall(SYS_lseek, handle, 0, SEEK_CUR);
}

void Shim::failReads(const char *path, long long offset, ReadFailure failure)
{
    std::snprintf(damaged, sizeof damaged, "%s", path);
    damagedFrom = offset;
    damage = failure;
}

void Shim::readAll()
{
    damaged[0] = '\0';
}
