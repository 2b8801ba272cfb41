#pragma once

#include "base/fatfolder.h"
#include "base/filedescriptor.h"
#include "base/flushing.h"

#include <QString>

#include <optional>

namespace brisel
{

/// The relative path from the folder \a root to \a path with all links followed: empty but not null
/// for the root itself, null if \a path does not exist or is outside of it.
QString wayBelow(const QString &root, const QString &path);

/// Returns true if \a path, links followed, exists but is outside of the folder \a root or on
/// another file system, because of a link or a mount.
bool leavesRoot(const QString &path, const QString &root);

/// An open folder. Operations work on this folder, even if another one has got its path. On systems
/// without such handles the path is used instead.
class FolderHandle
{
public:
    /// Opens the folder with the relative path \a names below \a root; the root itself if it is
    /// empty. Links in the path of the root are followed, links below it never. Does not open a
    /// folder on another file system than the root.
    FolderHandle(const QString &root, const QString &names);

    [[nodiscard]] bool isOpen() const { return m_handle.isOpen(); }
    /// Returns true on the FAT family, where a rename is written in two parts: by a flush of the
    /// folder, and by a flush of the moved file.
    bool isFat() const { return isOnFat(m_handle.get()); }

    /// Renames the entry \a name, a link itself, to \a newName. Replaces nothing and copies
    /// nothing. Returns false on failure: then nothing has changed.
    [[nodiscard]] bool rename(const QString &name, const QString &newName) const;

    /// Deletes the file \a name; of a link the link itself. Returns false on failure, and for a
    /// folder.
    [[nodiscard]] bool remove(const QString &name) const;

    /// Flushes the entries of the folder to the disk, if the system supports that. Returns false on
    /// failure.
    [[nodiscard]] bool flush() const { return flushHandle(m_handle.get()); }
    /// The same for the file or folder \a name in it; returns false for a link, which is not
    /// followed.
    [[nodiscard]] bool flush(const QString &name) const;
    /// Flushes the folder's whole file system. Returns nothing if the system has no such call.
    [[nodiscard]] std::optional<bool> flushFileSystem() const
    {
        return brisel::flushFileSystem(m_handle.get());
    }

private:
    FileDescriptor m_handle;
};

} // namespace brisel
