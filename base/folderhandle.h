#pragma once

#include "base/filedescriptor.h"

#include <QString>

#include <optional>

namespace brisel
{

/// The names that lead from the folder \a root to \a path when every link is followed, joined by
/// "/": empty but not null for the root itself, null when \a path does not exist or lies elsewhere.
QString wayBelow(const QString &root, const QString &path);

/// True when \a path, links followed, exists but lies outside of the folder \a root or on another
/// file system than the root: a link or a mount leads there.
bool leavesRoot(const QString &path, const QString &root);

/// A folder that is held open. What is done through it is done there, whatever stands meanwhile
/// under the folder's path. Where the system has no such handles the path is kept instead.
class FolderHandle
{
public:
    /// Opens the folder that \a names, joined by "/", lead to from \a root; the root itself when
    /// there are none. Links on the way to the root are followed, links below it never. A folder on
    /// another file system than the root is not opened.
    FolderHandle(const QString &root, const QString &names);

    [[nodiscard]] bool isOpen() const;
    /// True on the FAT family, where a new name reaches the disk in two parts: the folder's, and
    /// the moved file's own, which is written when that file is flushed.
    bool isFat() const;

    /// Renames the entry \a name, a link itself, to \a newName. Replaces nothing and copies
    /// nothing. False on failure: then nothing has changed.
    [[nodiscard]] bool rename(const QString &name, const QString &newName) const;

    /// Flushes the entries of the folder to the disk, where the system offers that. False on
    /// failure.
    [[nodiscard]] bool flush() const;
    /// The same of the file or folder \a name in it; a link is not followed, and false.
    [[nodiscard]] bool flush(const QString &name) const;
    /// Flushes all that was written to the folder's file system. Empty where the system has no such
    /// call.
    [[nodiscard]] std::optional<bool> flushFileSystem() const;

private:
#ifdef Q_OS_UNIX
    FileDescriptor m_handle;
#else
    QString m_path;
#endif
};

} // namespace brisel
