#include "tests/base/duringflush.h"

#include <cerrno>
#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

static std::function<void()> pending;
static bool failsAll = false;

DuringFlush::DuringFlush(std::function<void()> change)
{
    failsAll = change == nullptr;
    pending = std::move(change);
}

DuringFlush::~DuringFlush()
{
    pending = nullptr;
    failsAll = false;
}

/// Replaces the C library's function in the whole program.
extern "C" __attribute__((visibility("default"))) int fsync(int handle)
{
    if (const std::function<void()> change = std::exchange(pending, nullptr))
        change();
    if (failsAll) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, handle));
}
