#pragma once

#include "base/filewriting.h"

#include <functional>

class QFile;

namespace brisel
{

/// Overwriting of existing files that can't be replaced by a new file.

/// Returns true if the file at \a path has more than one name: replaced by a new file, the other
/// names would keep the old content.
bool hasOtherNames(const QString &path);

/// Truncates \a file to \a size bytes, and flushes it to the disk.
[[nodiscard]] bool finishOverwriting(QFile &file, qint64 size);

/// Writes the new content from the beginning of \a file and calls finishOverwriting(). Returns
/// false on failure. May read the old content from the copy.
using ContentWriter = std::function<bool(QFile &file)>;

/// Overwrites the plain file at \a path. Its old content is kept in \a copy, a new file that is
/// open for reading and writing, until the new one is on the disk, and restored after a failure.
/// \a copy is deleted, unless the old content could not be restored. Returns Changed if the file is
/// not in the state \a expected (unless null), or changes during the copy, and SourceFailed if it
/// can't be read completely: then it is not changed.
[[nodiscard]] WriteResult overwriteKeepingCopy(const QString &path, QFile &copy,
                                               const FileState *expected,
                                               const ContentWriter &write);

/// The same with the old content in memory: if the process is killed, the file is incomplete.
[[nodiscard]] WriteResult overwriteFromMemory(const QString &path, const QByteArray &content,
                                              const FileState *expected);

} // namespace brisel
