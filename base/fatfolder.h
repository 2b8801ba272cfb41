#pragma once

#include <QStringList>

namespace brisel
{

/// Functions for writing on the FAT family without losing data after an interruption.

/// Returns true if \a path is on a file system of the FAT family.
bool isOnFat(const QString &path);
/// The same for the open file or folder \a handle.
bool isOnFat(int handle);

/// Makes room in \a folder for entries with these names, and flushes it, so that it does not grow
/// when they are added: on the disk, a growing folder contains the old data of its new cluster for
/// a short time. Best effort: without enough room the folder is unchanged.
void reserveEntries(const QString &folder, const QStringList &names);

/// Removes the files \a names of the open folder \a folder. On FAT their clusters are freed only
/// after the entries are removed on the disk: removing an entry with free clusters later would make
/// the kernel stop writing. Returns false if a file could not be removed.
[[nodiscard]] bool removeFiles(int folder, const QStringList &names);

} // namespace brisel
