#include "tests/base/duringtruncate.h"

#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

static std::function<void()> waiting;

DuringTruncate::DuringTruncate(std::function<void()> change)
{
    waiting = std::move(change);
}

DuringTruncate::~DuringTruncate()
{
    waiting = nullptr;
}

/// Replaces the C library's function in the whole program.
extern "C" __attribute__((visibility("default"))) int ftruncate(int handle, off_t size) noexcept
{
    if (const std::function<void()> change = std::exchange(waiting, nullptr))
        change();
    return static_cast<int>(::syscall(SYS_ftruncate, handle, size));
}
