#pragma once

#include "base/filecopying.h"
#include "base/filereplacement.h"

#include <QString>

namespace brisel
{

class FileLot;

/// Copies of files that are either complete or not made at all.

/// Copies the plain file \a source (or the one that it links to) to \a destination, which must not
/// exist. The copy is written under a temporary name, flushed to the disk and then renamed; it has
/// the permissions of the source. Returns SourceFailed if the source can't be opened or read
/// completely, or is changed during the copy, TargetFailed if the destination can't be made: then
/// there is no copy and no temporary file.
[[nodiscard]] CopyResult copyToNewFile(const QString &source, const QString &destination);

/// As above, but the plain file \a destination exists and is replaced. It is deleted first only if
/// the disk has no room for both, but has room for the copy alone; after any other failure it is
/// unchanged.
[[nodiscard]] CopyResult copyOverFile(const QString &source, const QString &destination);

/// Returns true if \a newSize bytes don't fit into \a freeSize, but fit after the \a oldSize bytes
/// of the replaced file are freed.
bool mustDeleteFirst(qint64 freeSize, qint64 oldSize, qint64 newSize);

/// The first half of copyToNewFile() or copyOverFile(): stages a copy of \a source for \a place in
/// \a lot. If the place has an expected file, the copy gets the attributes of that one. Returns
/// TargetFailed also if there is not enough room.
[[nodiscard]] CopyResult copyIntoLot(FileLot &lot, const QString &source,
                                     const FileReplacement::Place &place);

} // namespace brisel
