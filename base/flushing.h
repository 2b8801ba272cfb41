#pragma once

#include <QString>

#include <optional>

namespace brisel
{

/// Waiting until what was written has reached the disk. All of it is true where a file system does
/// not offer that: it is no reason to refuse a write.

/// Flushes the open file or folder \a handle. False on failure.
[[nodiscard]] bool flushHandle(int handle);

/// Flushes the entries of \a folder. True also for a folder that may not be read: it may be
/// writable all the same.
[[nodiscard]] bool flushFolder(const QString &folder);

/// Flushes everything on the file system on which the open file or folder \a handle lies, in one
/// go. False on failure; nothing where the system has no such call: what was written must be
/// flushed one by one then.
[[nodiscard]] std::optional<bool> flushFileSystem(int handle);

/// Waits until the content of a large open file is written, so that the next flush of the file
/// system does not take long; does nothing for small ones. False when writing failed: no later
/// flush reports it again.
[[nodiscard]] bool writeAhead(int handle, qint64 size);

} // namespace brisel
