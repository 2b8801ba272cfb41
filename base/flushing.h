#pragma once

#include <QString>

#include <optional>

namespace brisel
{

/// Waiting until written data are on the disk. All functions succeed if a file system does not
/// support that, because writing must be possible there, too.

/// Flushes the open file or folder \a handle. Returns false on failure.
[[nodiscard]] bool flushHandle(int handle);

/// Flushes the entries of \a folder. Returns true also for a folder without read permission, which
/// may still be writable.
[[nodiscard]] bool flushFolder(const QString &folder);

/// Flushes the whole file system of the open file or folder \a handle. Returns false on failure;
/// nothing if the system has no such call: then files must be flushed separately.
[[nodiscard]] std::optional<bool> flushFileSystem(int handle);

/// Waits until the content of a large open file is written, so that the next flush of the file
/// system does not take long; does nothing for small ones. Returns false if writing failed, which
/// no later flush reports again.
[[nodiscard]] bool writeAhead(int handle, qint64 size);

} // namespace brisel
