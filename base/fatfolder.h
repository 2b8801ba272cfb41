#pragma once

#include <QStringList>

namespace brisel
{

/// What writing on the FAT family needs, so that an interruption loses nothing.

/// True when \a path lies on a file system of the FAT family.
bool isOnFat(const QString &path);
/// The same of the open file or folder \a handle.
bool isOnFat(int handle);

/// Makes room in \a folder for entries with these names, and flushes it, so that it does not grow
/// when they are added: for a moment a folder that grows goes on, on the disk, with what its new
/// cluster held before. Best effort: where there is no room the folder stays as it is.
void reserveEntries(const QString &folder, const QStringList &names);

/// Removes the files \a names of the open folder \a folder. On FAT their clusters become free only
/// when the entries are gone from the disk: an entry that leads to free clusters stops the kernel
/// from writing when it is removed once more. False when one stays.
[[nodiscard]] bool removeFiles(int folder, const QStringList &names);

} // namespace brisel
