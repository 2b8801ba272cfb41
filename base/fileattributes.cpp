#include "base/fileattributes.h"

#include <QByteArray>
#include <QList>

#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/xattr.h>
#endif

namespace brisel
{

namespace
{

void keepOwner(int from, int to)
{
    struct stat old {
    };
    if (::fstat(from, &old) != 0)
        return;
    // Users may give a file to another one of their groups, but not to another user.
    constexpr auto same = static_cast<uid_t>(-1);
    if (::fchown(to, old.st_uid, old.st_gid) != 0)
        (void)!::fchown(to, same, old.st_gid);
}

/// The permissions of \a from; those of its group must not be given to another group.
void keepPermissionsOfTheSameGroup(int from, int to)
{
    struct stat old {
    };
    struct stat now {
    };
    if (::fstat(from, &old) != 0 || ::fstat(to, &now) != 0)
        return;
    const mode_t kept = old.st_gid == now.st_gid ? 0777 : 0777 & ~S_IRWXG;
    ::fchmod(to, old.st_mode & kept);
}

#ifdef Q_OS_LINUX

void keepExtendedAttributes(int from, int to)
{
    constexpr qsizetype most = 1 << 16; // bytes: no system has longer lists or values
    constexpr char accessList[] = "system.posix_acl_access";
    QByteArray list(most, '\0');
    const ssize_t length = ::flistxattr(from, list.data(), most);
    if (length < 0)
        return;
    list.truncate(length);
    const QList<QByteArray> names = list.split('\0');
    // The new file may have inherited a list from the folder.
    if (!names.contains(accessList))
        ::fremovexattr(to, accessList);
    QByteArray value(most, '\0');
    for (const QByteArray &name : names) {
        const ssize_t size =
            name.isEmpty() ? -1 : ::fgetxattr(from, name.constData(), value.data(), most);
        if (size >= 0)
            ::fsetxattr(to, name.constData(), value.constData(), static_cast<size_t>(size), 0);
    }
}

void keepFatAttributes(int from, int to)
{
    constexpr __u32 kept = ATTR_HIDDEN | ATTR_SYS;
    __u32 old = 0;
    __u32 now = 0;
    if (::ioctl(from, FAT_IOCTL_GET_ATTRIBUTES, &old) != 0 ||
        ::ioctl(to, FAT_IOCTL_GET_ATTRIBUTES, &now) != 0)
        return;
    __u32 wanted = (now & ~kept) | (old & kept);
    if (wanted == now || ::ioctl(to, FAT_IOCTL_SET_ATTRIBUTES, &wanted) == 0)
        return;
    // The system attribute may be reserved for the administrator.
    wanted = (now & ~ATTR_HIDDEN) | (old & ATTR_HIDDEN);
    ::ioctl(to, FAT_IOCTL_SET_ATTRIBUTES, &wanted);
}

#endif

} // namespace

void keepAttributes(int from, int to)
{
    keepOwner(from, to);
#ifdef Q_OS_LINUX
    keepExtendedAttributes(from, to);
#endif
    // Setting the owner or a list has changed them.
    keepPermissionsOfTheSameGroup(from, to);
#ifdef Q_OS_LINUX
    keepFatAttributes(from, to);
#endif
}

void keepPermissions(int from, int to)
{
    struct stat old {
    };
    if (::fstat(from, &old) == 0)
        ::fchmod(to, old.st_mode & 0777);
}

} // namespace brisel
