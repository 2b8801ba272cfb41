#include "tests/shim/shim.h"

#include "tests/shim/disks.h"
#include "tests/shim/readdamage.h"
#include "tests/shim/trace.h"
#include "tests/shim/watched.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

// Makes system calls directly, because this file replaces the C library's functions of these names.

namespace
{

int wanted = 0;
Shim::Action wantedAction = Shim::Kill;
bool refusesReplacing = false;
int ownCount = 0;
int *counted = &ownCount; ///< if preloaded, in memory shared with the test, to survive a kill
long long readBytes = 0;
int flushCount = 0;
long flushTime = 0; ///< milliseconds

[[noreturn]] void die()
{
    ::syscall(SYS_kill, ::getpid(), SIGKILL);
    ::_exit(1);
}

/// Counts one step. Returns true with errno set if it fails. \a takesRoom: a full disk refuses it.
bool fails(const char *step, const Watched &file, bool takesRoom)
{
    ++*counted;
    if (wantedAction == Shim::NoSpace && wanted > 0 && *counted >= wanted && takesRoom) {
        errno = ENOSPC;
        return true;
    }
    if (wantedAction == Shim::ReadOnly && wanted > 0 && *counted >= wanted) {
        errno = EROFS;
        return true;
    }
    if (*counted == wanted) {
        if (wantedAction == Shim::Kill || wantedAction == Shim::Torn)
            die();
        if (wantedAction == Shim::Stop)
            ::syscall(SYS_kill, ::getpid(), SIGSTOP);
        if (wantedAction == Shim::IoError) {
            errno = EIO;
            return true;
        }
    }
    note(step, file.path());
    return false;
}

bool isNextTo(Shim::Action action)
{
    return wantedAction == action && *counted + 1 == wanted;
}

int openAt(int base, const char *path, int flags, mode_t mode)
{
    const bool writes = (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    if (writes) {
        const Watched file(base, path);
        if (file && fails("open", file, true))
            return -1;
    }
    return static_cast<int>(::syscall(SYS_openat, base, path, flags, mode));
}

/// Counts a write of \a size bytes; \a write performs it for the number of bytes that it is given.
template <typename Write>
ssize_t writeCounted(int handle, size_t size, Write write)
{
    const Watched file(handle);
    if (!file)
        return write(size);
    if (isNextTo(Shim::Torn))
        write(size / 2);
    const bool isShort = isNextTo(Shim::Short) && size > 1;
    if (fails("write", file, true))
        return -1;
    return write(isShort ? size / 2 : size);
}

/// Counts a read of \a size bytes; \a read performs it for the number of bytes that it is given.
template <typename Read>
ssize_t readCounted(int handle, long long pos, size_t size, Read read)
{
    const ssize_t possible = readable(handle, pos, size);
    const ssize_t count = possible < 0 ? -1 : read(static_cast<size_t>(possible));
    if (count > 0 && Watched(handle))
        readBytes += count;
    return count;
}

/// Counts a copy between files as a write of the target.
template <typename Copy>
ssize_t copyCounted(int in, const off64_t *inOffset, int out, size_t size, Copy copy)
{
    const ssize_t possible = readable(in, readPosition(in, inOffset), size);
    if (possible < 0 || (possible == 0 && size > 0))
        return possible;
    return writeCounted(out, static_cast<size_t>(possible), copy);
}

int changeCounted(const char *step, const Watched &file, bool takesRoom, long (*call)(void *),
                  void *arguments)
{
    return file && fails(step, file, takesRoom) ? -1 : static_cast<int>(call(arguments));
}

/// changeCounted() for a lambda.
template <typename Call>
int change(const char *step, const Watched &file, bool takesRoom, Call call)
{
    return changeCounted(
        step, file, takesRoom, [](void *arguments) { return (*static_cast<Call *>(arguments))(); },
        &call);
}

int renameCounted(int fromBase, const char *from, int toBase, const char *to, unsigned flags)
{
    const Watched file(toBase, to);
    if (file && refusesReplacing && ::syscall(SYS_faccessat, toBase, to, F_OK) == 0) {
        errno = EEXIST;
        return -1;
    }
    return change("rename", file, false,
                  [=] { return ::syscall(SYS_renameat2, fromBase, from, toBase, to, flags); });
}

Shim::Action actionNamed(const char *name)
{
    const char *const names[] = {"kill", "torn", "enospc", "eio", "short", "erofs", "stop"};
    for (int i = 0; i < 7; ++i) {
        if (name != nullptr && std::strcmp(name, names[i]) == 0)
            return static_cast<Shim::Action>(i);
    }
    return Shim::Kill;
}

/// Runs before main() in a program into which the shim is preloaded.
[[gnu::constructor]] void armByEnvironment()
{
    const char *watched = std::getenv("BRISEL_SHIM_FOLDER");
    const char *count = std::getenv("BRISEL_SHIM_COUNT");
    if (watched == nullptr || count == nullptr)
        return;
    const auto handle = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, count, O_RDWR, 0));
    void *memory = ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED, handle, 0);
    if (handle < 0 || memory == MAP_FAILED) {
        std::fprintf(stderr, "can't map %s\n", count);
        std::abort();
    }
    counted = static_cast<int *>(memory);
    ::close(handle);
    if (const char *name = std::getenv("BRISEL_SHIM_TRACE"))
        Shim::startTrace(name);
    refusesReplacing = std::getenv("BRISEL_SHIM_NO_REPLACE") != nullptr;
    if (std::getenv("BRISEL_SHIM_FAT") != nullptr)
        Shim::actLike(Shim::Fat);
    if (const char *time = std::getenv("BRISEL_SHIM_FLUSH_MS"))
        Shim::slowFlushes(std::atoi(time));
    const char *at = std::getenv("BRISEL_SHIM_AT");
    Shim::arm(watched, at == nullptr ? 0 : std::atoi(at),
              actionNamed(std::getenv("BRISEL_SHIM_ACTION")));
}

} // namespace

void Shim::arm(const char *watched, int at, Action action)
{
    watch(watched);
    wanted = at;
    wantedAction = action;
    *counted = 0;
    readBytes = 0;
    flushCount = 0;
}

int Shim::disarm()
{
    watch("");
    return *counted;
}

long long Shim::bytesRead()
{
    return readBytes;
}

void Shim::slowFlushes(int milliseconds)
{
    flushTime = milliseconds;
}

int Shim::flushes()
{
    return flushCount;
}

int flushStep(const char *step, int handle)
{
    const Watched file(handle);
    if (file) {
        ++flushCount;
        const timespec time{flushTime / 1000, flushTime % 1000 * 1000000};
        ::nanosleep(&time, nullptr);
    }
    // A cut before a flush is equivalent to one before the next step.
    const bool isStep = wantedAction == Shim::IoError || isTracing();
    return isStep ? change(step, file, false, [] { return 0L; }) : 0;
}

bool isWatched(int handle)
{
    return static_cast<bool>(Watched(handle));
}

#include "tests/shim/opencalls.h"

extern "C" {

int creat(const char *path, mode_t mode)
{
    return openAt(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

ssize_t read(int handle, void *data, size_t size)
{
    return readCounted(handle, readPosition(handle, nullptr), size,
                       [=](size_t bytes) { return ::syscall(SYS_read, handle, data, bytes); });
}

ssize_t pread(int handle, void *data, size_t size, off_t offset)
{
    return readCounted(handle, offset, size, [=](size_t bytes) {
        return ::syscall(SYS_pread64, handle, data, bytes, offset);
    });
}

ssize_t pread64(int handle, void *data, size_t size, off64_t offset)
{
    return pread(handle, data, size, offset);
}

ssize_t write(int handle, const void *data, size_t size)
{
    return writeCounted(handle, size,
                        [=](size_t bytes) { return ::syscall(SYS_write, handle, data, bytes); });
}

ssize_t pwrite(int handle, const void *data, size_t size, off_t offset)
{
    return writeCounted(handle, size, [=](size_t bytes) {
        return ::syscall(SYS_pwrite64, handle, data, bytes, offset);
    });
}

ssize_t pwrite64(int handle, const void *data, size_t size, off64_t offset)
{
    return pwrite(handle, data, size, offset);
}

ssize_t copy_file_range(int in, off64_t *inOffset, int out, off64_t *outOffset, size_t size,
                        unsigned flags)
{
    return copyCounted(in, inOffset, out, size, [=](size_t bytes) {
        return ::syscall(SYS_copy_file_range, in, inOffset, out, outOffset, bytes, flags);
    });
}

ssize_t sendfile(int out, int in, off_t *offset, size_t size) noexcept
{
    return copyCounted(in, offset, out, size, [=](size_t bytes) {
        return ::syscall(SYS_sendfile, out, in, offset, bytes);
    });
}

ssize_t sendfile64(int out, int in, off64_t *offset, size_t size) noexcept
{
    return sendfile(out, in, offset, size);
}

int rename(const char *from, const char *to) noexcept
{
    return renameCounted(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int renameat(int fromBase, const char *from, int toBase, const char *to) noexcept
{
    return renameCounted(fromBase, from, toBase, to, 0);
}

int renameat2(int fromBase, const char *from, int toBase, const char *to, unsigned flags) noexcept
{
    return renameCounted(fromBase, from, toBase, to, flags);
}

int link(const char *from, const char *to) noexcept
{
    return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromBase, const char *from, int toBase, const char *to, int flags) noexcept
{
    return change("link", Watched(toBase, to), true,
                  [=] { return ::syscall(SYS_linkat, fromBase, from, toBase, to, flags); });
}

int unlink(const char *path) noexcept
{
    return change("unlink", Watched(path), false,
                  [=] { return ::syscall(SYS_unlinkat, AT_FDCWD, path, 0); });
}

int unlinkat(int base, const char *path, int flags) noexcept
{
    return change("unlink", Watched(base, path), false,
                  [=] { return ::syscall(SYS_unlinkat, base, path, flags); });
}

int rmdir(const char *path) noexcept
{
    return change("rmdir", Watched(path), false,
                  [=] { return ::syscall(SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR); });
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return change("mkdir", Watched(path), true,
                  [=] { return ::syscall(SYS_mkdirat, AT_FDCWD, path, mode); });
}

int mkdirat(int base, const char *path, mode_t mode) noexcept
{
    return change("mkdir", Watched(base, path), true,
                  [=] { return ::syscall(SYS_mkdirat, base, path, mode); });
}

int ftruncate(int handle, off_t size) noexcept
{
    return change("truncate", Watched(handle), false,
                  [=] { return ::syscall(SYS_ftruncate, handle, size); });
}

int ftruncate64(int handle, off64_t size) noexcept
{
    return ftruncate(handle, size);
}

int chmod(const char *path, mode_t mode) noexcept
{
    return change("chmod", Watched(path), false,
                  [=] { return ::syscall(SYS_fchmodat, AT_FDCWD, path, mode); });
}

int fchmod(int handle, mode_t mode) noexcept
{
    return change("chmod", Watched(handle), false,
                  [=] { return ::syscall(SYS_fchmod, handle, mode); });
}

int fsync(int handle)
{
    return flushStep("flush", handle);
}

int fdatasync(int handle)
{
    return fsync(handle);
}
}
