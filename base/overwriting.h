#pragma once

#include "base/filewriting.h"

#include <functional>

class QFile;

namespace brisel
{

/// Writing into a file that is there, for those that can't be replaced by another one.

/// True when the file at \a path has more names than this one: a new file in its place would leave
/// the others with the old content.
bool hasOtherNames(const QString &path);

/// Ends what was written into \a file at \a size bytes, and flushes it to the disk.
[[nodiscard]] bool finishOverwriting(QFile &file, qint64 size);

/// Writes the new content from the beginning of \a file on and ends with finishOverwriting(); false
/// on failure. May read the old content from the copy.
using ContentWriter = std::function<bool(QFile &file)>;

/// Overwrites the plain file at \a path. Its old content is kept in \a copy, a new file that is
/// open for reading and writing, until the new one is on the disk; when that fails it is put back.
/// \a copy is deleted, unless the old content could not be put back. Changed when the file is not
/// as \a expected says, where that is given, or is changed while it is copied, and SourceFailed
/// when it can't be read to its end: it is not touched.
[[nodiscard]] WriteResult overwriteKeepingCopy(const QString &path, QFile &copy,
                                               const FileState *expected,
                                               const ContentWriter &write);

/// The same with the old content in memory: a process that ends in the middle leaves a part.
[[nodiscard]] WriteResult overwriteFromMemory(const QString &path, const QByteArray &content,
                                              const FileState *expected);

} // namespace brisel
