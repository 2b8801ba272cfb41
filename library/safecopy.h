#pragma once

#include "base/filecopying.h"

#include <QString>

namespace brisel
{

class FileLot;

/// Copies of files that are either complete or not made at all.

/// Copies the plain file \a source (or the one that it links to) to \a destination, which must not
/// exist. The copy grows under a name of its own, is flushed to the disk and only then gets its
/// name; it has the permissions of the source. SourceFailed when the source can't be opened or
/// read to its end, or is changed meanwhile, TargetFailed when the destination can't be made: there
/// is no copy then, and nothing of it is left behind.
[[nodiscard]] CopyResult copyToNewFile(const QString &source, const QString &destination);

/// As above, but the plain file \a destination exists and is replaced. It is deleted first only
/// when the disk has no room for both and its room is what the copy lacks; in every other failure
/// it stays as it was.
[[nodiscard]] CopyResult copyOverFile(const QString &source, const QString &destination);

/// True when \a newSize bytes don't fit into \a freeSize, but do so once the \a oldSize bytes of
/// the file that they replace are free.
bool mustDeleteFirst(qint64 freeSize, qint64 oldSize, qint64 newSize);

/// The first half of copyToNewFile() or, where \a mayReplace, of copyOverFile(): what \a source
/// holds is on its way to \a destination once \a lot is committed. TargetFailed also when there is
/// no room for it.
[[nodiscard]] CopyResult copyIntoLot(FileLot &lot, const QString &source,
                                     const QString &destination, bool mayReplace);

} // namespace brisel
