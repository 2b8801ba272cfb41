#pragma once

#include <QString>

namespace brisel
{

/// Removes the immutable attribute from the file at \a path, if the system supports it, and logs
/// "remove read only flag: OK", or ": ERROR" if that fails. A path without the attribute, or that
/// is not a file, counts as cleared.
void clearReadOnlyFlag(const QString &path);

/// Calls clearReadOnlyFlag(), and gives the file's owner the permission to write. Does nothing for
/// a path that is not a plain file.
void makeWritable(const QString &path);

} // namespace brisel
