#pragma once

#include <QString>

namespace brisel
{

/// The bytes that the user can still write on the file system of \a folder; -1 if unknown. Uses the
/// folder itself: the table of mounts may be wrong in a chroot, a container or a sandbox.
qint64 freeSpace(const QString &folder);

/// The size of the file system of \a folder in bytes; -1 if unknown.
qint64 totalSpace(const QString &folder);

/// The unit in which the file system of \a folder allocates space, in bytes (FAT: a cluster); 1 if
/// unknown.
qint64 allocationUnit(const QString &folder);

/// The space that a file of \a size bytes occupies in units of \a unit bytes.
qint64 allocatedSize(qint64 size, qint64 unit);

} // namespace brisel
