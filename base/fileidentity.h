#pragma once

#include <QString>

namespace brisel
{

enum class FileKind {
    Missing,     ///< the system says that there is no such file
    Regular,     ///< a plain file, also one reached through a link
    Folder,      ///< a folder, also one reached through a link
    Other,       ///< a device, a FIFO, a socket: nothing is read from it
    Unreachable, ///< it may exist, but can't be examined (permission, I/O error, link loop)
};

/// The metadata of a file. Two equal states mean that it is one file and unchanged, as far as
/// metadata can show that. All but the kind is 0 for a file that can't be examined.
struct FileState {
    FileKind kind = FileKind::Missing;
    qint64 modified = 0; ///< seconds since 1970, UTC
    quint64 device = 0;  ///< 0 where the system has no such number, as the next
    quint64 inode = 0;
    qint64 size = 0;       ///< bytes
    qint64 modifiedNs = 0; ///< nanoseconds since 1970, as fine as the file system keeps them
    qint64 changedNs = 0;  ///< the same of the last change of anything, attributes and names too

    bool operator==(const FileState &other) const = default;
};

/// What stands at \a path and when it was changed, links followed. Opens nothing.
FileState fileState(const QString &path);
#ifdef Q_OS_UNIX
/// The same of an open file.
FileState fileState(int handle);
#endif
/// The kind alone.
FileKind fileKind(const QString &path);

/// True for a plain file, also through a link: the only thing that may be opened as a song.
bool isRegularFile(const QString &path);

/// True when anything has this path, also a broken link.
bool entryExists(const QString &path);

/// A text that is the same for every path that leads to one file or folder; empty when nothing is
/// there. Folders that were visited are remembered by it, so that a link loop ends.
QString fileIdentity(const QString &path);

/// True when both paths lead to one existing file, links followed.
bool isSameFile(const QString &first, const QString &second);

} // namespace brisel
