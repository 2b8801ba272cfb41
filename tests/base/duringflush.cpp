#include "tests/base/duringflush.h"

#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

static std::function<void()> pending;

DuringFlush::DuringFlush(std::function<void()> change)
{
    pending = std::move(change);
}

DuringFlush::~DuringFlush()
{
    pending = nullptr;
}

/// Replaces the C library's function in the whole program.
extern "C" __attribute__((visibility("default"))) int fsync(int handle)
{
    if (const std::function<void()> change = std::exchange(pending, nullptr))
        change();
    return static_cast<int>(::syscall(SYS_fsync, handle));
}
