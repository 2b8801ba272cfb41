#pragma once

#include <QString>

/// How many bytes the user can still write on the file system that holds \a folder; -1 when it
/// can't be asked. The folder itself is asked: the table of mounts does not know what lies in a
/// chroot, a container or a sandbox.
qint64 freeSpace(const QString &folder);
