#include "tests/base/fatdisk.h"

#include <QFile>
#include <QMap>

#include <cerrno>
#include <cstdarg>

#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

static bool isFat = false;
static bool refusesSystem = false;

static QMap<ino_t, unsigned> &known()
{
    static QMap<ino_t, unsigned> attributes;
    return attributes;
}

static ino_t inodeOf(const QString &path)
{
    struct stat entry {
    };
    return ::stat(QFile::encodeName(path).constData(), &entry) == 0 ? entry.st_ino : 0;
}

FatDisk::FatDisk()
{
    known().clear();
    isFat = true;
    refusesSystem = false;
}

FatDisk::~FatDisk()
{
    isFat = false;
}

unsigned FatDisk::attributes(const QString &path)
{
    return known().value(inodeOf(path), ATTR_ARCH);
}

void FatDisk::setAttributes(const QString &path, unsigned attributes)
{
    // A new file may get the number of a deleted one.
    known() = {{inodeOf(path), attributes}};
}

void FatDisk::refuseSystem()
{
    refusesSystem = true;
}

/// Replaces the C library's function in the whole program.
extern "C" __attribute__((visibility("default"))) int ioctl(int handle, unsigned long request,
                                                            ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    struct stat entry {
    };
    if (isFat && request == FAT_IOCTL_GET_ATTRIBUTES && ::fstat(handle, &entry) == 0) {
        *static_cast<__u32 *>(argument) = known().value(entry.st_ino, ATTR_ARCH);
        return 0;
    }
    if (isFat && request == FAT_IOCTL_SET_ATTRIBUTES && ::fstat(handle, &entry) == 0) {
        const __u32 wanted = *static_cast<__u32 *>(argument);
        if (refusesSystem && (wanted & ATTR_SYS) != 0) {
            errno = EPERM;
            return -1;
        }
        known()[entry.st_ino] = wanted;
        return 0;
    }
    return static_cast<int>(::syscall(SYS_ioctl, handle, request, argument));
}
