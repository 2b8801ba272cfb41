#pragma once

#include <QStringList>

/// What must be known of the FAT family to write there so that a cut loses nothing.

/// True when \a path lies on a file system of the FAT family.
bool isOnFat(const QString &path);
/// The same of the open file or folder \a handle.
bool isOnFat(int handle);

/// Sees to it that \a names can be added to \a folder without it having to grow, and flushes it: a
/// folder that grows is for a moment continued on the disk by whatever its new cluster held before.
/// Does what it can; a folder that has no room stays as it is.
void reserveEntries(const QString &folder, const QStringList &names);

/// Removes the files \a names of the open folder \a folder. On FAT their clusters become free only
/// when the entries are gone from the disk: an entry that leads to free clusters stops the kernel
/// from writing when it is removed once more. False when one stays.
[[nodiscard]] bool removeFiles(int folder, const QStringList &names);
