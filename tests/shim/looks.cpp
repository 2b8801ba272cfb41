#include "tests/shim/looks.h"

#include <bitset>
#include <cstring>
#include <string>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

// Makes system calls directly, because this file replaces the C library's functions of these names.
// For folders it uses the C library's own function.

namespace
{

constexpr size_t handles = 1024;

std::string &watched()
{
    static std::string folder;
    return folder;
}

bool counts = false;
Looks::Counts counted;
std::bitset<handles> opened; ///< handles of files below the folder

bool isBelow(const char *path)
{
    return counts && path != nullptr &&
           std::strncmp(path, watched().c_str(), watched().size()) == 0;
}

bool isOpened(int handle)
{
    return counts && handle >= 0 && static_cast<size_t>(handle) < handles &&
           opened.test(static_cast<size_t>(handle));
}

int openAt(int base, const char *path, int flags, mode_t mode)
{
    const auto handle = static_cast<int>(::syscall(SYS_openat, base, path, flags, mode));
    const bool below = isBelow(path);
    counted.opened += below ? 1 : 0;
    if (handle >= 0 && static_cast<size_t>(handle) < handles)
        opened.set(static_cast<size_t>(handle), below);
    return handle;
}

ssize_t countedRead(int handle, ssize_t count)
{
    if (isOpened(handle)) {
        ++counted.reads;
        counted.bytes += count > 0 ? count : 0;
    }
    return count;
}

void ask(const char *path)
{
    counted.asked += isBelow(path) ? 1 : 0;
}

} // namespace

void Looks::start(const char *folder)
{
    watched() = folder;
    counted = {};
    opened.reset();
    counts = true;
}

Looks::Counts Looks::stop()
{
    counts = false;
    return counted;
}

#include "tests/shim/opencalls.h"

extern "C" {

DIR *opendir(const char *path)
{
    using Open = DIR *(*)(const char *);
    static const auto own = reinterpret_cast<Open>(::dlsym(RTLD_NEXT, "opendir"));
    counted.listed += isBelow(path) ? 1 : 0;
    return own(path);
}

ssize_t read(int handle, void *data, size_t size)
{
    return countedRead(handle, ::syscall(SYS_read, handle, data, size));
}

ssize_t pread(int handle, void *data, size_t size, off_t offset)
{
    return countedRead(handle, ::syscall(SYS_pread64, handle, data, size, offset));
}

ssize_t pread64(int handle, void *data, size_t size, off64_t offset)
{
    return pread(handle, data, size, offset);
}

int fstatat(int base, const char *path, struct stat *entry, int flags) noexcept
{
    ask(path);
    return static_cast<int>(::syscall(SYS_newfstatat, base, path, entry, flags));
}

int fstatat64(int base, const char *path, struct stat64 *entry, int flags) noexcept
{
    ask(path);
    return static_cast<int>(::syscall(SYS_newfstatat, base, path, entry, flags));
}

int stat(const char *path, struct stat *entry) noexcept
{
    return ::fstatat(AT_FDCWD, path, entry, 0);
}

int stat64(const char *path, struct stat64 *entry) noexcept
{
    return ::fstatat64(AT_FDCWD, path, entry, 0);
}

int lstat(const char *path, struct stat *entry) noexcept
{
    return ::fstatat(AT_FDCWD, path, entry, AT_SYMLINK_NOFOLLOW);
}

int lstat64(const char *path, struct stat64 *entry) noexcept
{
    return ::fstatat64(AT_FDCWD, path, entry, AT_SYMLINK_NOFOLLOW);
}

int fstat(int handle, struct stat *entry) noexcept
{
    counted.asked += isOpened(handle) ? 1 : 0;
    return static_cast<int>(::syscall(SYS_newfstatat, handle, "", entry, AT_EMPTY_PATH));
}

int fstat64(int handle, struct stat64 *entry) noexcept
{
    counted.asked += isOpened(handle) ? 1 : 0;
    return static_cast<int>(::syscall(SYS_newfstatat, handle, "", entry, AT_EMPTY_PATH));
}

int statx(int base, const char *path, int flags, unsigned mask, struct statx *entry) noexcept
{
    ask(path);
    return static_cast<int>(::syscall(SYS_statx, base, path, flags, mask, entry));
}

} // extern "C"
