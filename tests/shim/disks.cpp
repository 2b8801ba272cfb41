#include "tests/shim/disks.h"

#include "tests/shim/shim.h"

#include <cerrno>

#include <linux/magic.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

// Makes system calls directly, like shim.cpp.

namespace
{

Shim::Disk disk = Shim::Plain;

} // namespace

void Shim::actLike(Disk kind)
{
    disk = kind;
}

extern "C" {

int syncfs(int handle) noexcept
{
    if (disk == Shim::WithoutSyncfs) {
        errno = ENOSYS;
        return -1;
    }
    return flushStep("syncfs", handle);
}

int fstatfs(int handle, struct statfs *system) noexcept
{
    const auto result = static_cast<int>(::syscall(SYS_fstatfs, handle, system));
    if (disk == Shim::Fat && isWatched(handle))
        system->f_type = MSDOS_SUPER_MAGIC;
    return result;
}

} // extern "C"
