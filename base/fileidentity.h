#pragma once

#include <QString>

namespace brisel
{

enum class FileKind {
    Missing,     ///< the system reports that there is no such file
    Regular,     ///< a plain file, also one reached through a link
    Folder,      ///< a folder, also one reached through a link
    Other,       ///< a device, a FIFO, a socket: nothing is read from it
    Unreachable, ///< it may exist, but can't be examined (permission, I/O error, link loop)
};

/// The metadata of a file. If two states are equal, they are of one unchanged file, as far as
/// metadata can show that. All members except the kind are 0 for a file that can't be examined.
struct FileState {
    FileKind kind = FileKind::Missing;
    qint64 modified = 0; ///< seconds since 1970, UTC
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;       ///< bytes
    qint64 modifiedNs = 0; ///< nanoseconds since 1970, as fine as the file system keeps them
    qint64 changedNs = 0;  ///< of the last change, also of attributes and names

    bool operator==(const FileState &other) const = default;
};

/// Returns the state of the file at \a path, links followed. Opens nothing.
FileState fileState(const QString &path);
/// The same for an open file.
FileState fileState(int handle);
/// Only the kind.
FileKind fileKind(const QString &path);

/// Returns true for a plain file, also through a link: only such files may be opened as songs.
bool isRegularFile(const QString &path);

/// Returns true if there is any entry with this path, even a broken link.
bool entryExists(const QString &path);

/// A text that is the same for every path that leads to one file or folder; empty if it does not
/// exist. Walks store it for visited folders, so that link loops end.
QString fileIdentity(const QString &path);

/// Returns true if both paths lead to the same existing file, links followed.
bool isSameFile(const QString &first, const QString &second);

} // namespace brisel
