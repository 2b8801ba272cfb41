#include "tests/base/diskkind.h"

#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

static unsigned pretended = 0;
static bool isReadOnly = false;

ReadOnlyDisk::ReadOnlyDisk()
{
    isReadOnly = true;
}

ReadOnlyDisk::~ReadOnlyDisk()
{
    isReadOnly = false;
}

DiskKind::DiskKind(unsigned magic)
{
    pretended = magic;
}

DiskKind::~DiskKind()
{
    pretended = 0;
}

/// Replaces the C library's function in the whole program.
extern "C" __attribute__((visibility("default"))) int fstatfs(int handle,
                                                              struct statfs *system) noexcept
{
    const auto result = static_cast<int>(::syscall(SYS_fstatfs, handle, system));
    if (result == 0 && pretended != 0)
        system->f_type = static_cast<decltype(system->f_type)>(pretended);
    return result;
}

/// The same; without a ReadOnlyDisk the file system is writable.
extern "C" __attribute__((visibility("default"))) int fstatvfs(int /*handle*/,
                                                               struct statvfs *system) noexcept
{
    *system = {};
    system->f_flag = isReadOnly ? ST_RDONLY : 0;
    return 0;
}
