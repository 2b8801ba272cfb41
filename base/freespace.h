#pragma once

#include <QString>

namespace brisel
{

/// How many bytes the user can still write on the file system that holds \a folder; -1 when it
/// can't be asked. The folder itself is asked: the table of mounts does not know what lies in a
/// chroot, a container or a sandbox.
qint64 freeSpace(const QString &folder);

/// The unit in which the file system of \a folder allocates space, in bytes (FAT: a cluster); 1
/// when it is unknown.
qint64 allocationUnit(const QString &folder);

/// What a file of \a size bytes takes where files get \a unit bytes at a time.
qint64 allocatedSize(qint64 size, qint64 unit);

} // namespace brisel
