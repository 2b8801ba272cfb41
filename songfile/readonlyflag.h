#pragma once

#include <QString>

/// Takes the immutable attribute from the file at \a path, where the system knows such a thing,
/// and logs "remove read only flag: OK", or ": ERROR" when it could not be taken away. A file that
/// does not carry it, or is none, is as good as cleared.
void clearReadOnlyFlag(const QString &path);

/// clearReadOnlyFlag(), and gives the file's owner the permission to write. Leaves alone whatever
/// is not a plain file.
void makeWritable(const QString &path);
