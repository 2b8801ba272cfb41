#pragma once

#include <QtGlobal>

namespace brisel
{

enum class CopyResult {
    Done,
    SourceFailed, ///< fewer bytes could be read
    TargetFailed, ///< fewer bytes could be written
};

/// Copies exactly \a count bytes of the open file \a from, from \a pos on, to the position of
/// \a to, which is moved to their end. Holes of the source stay holes after the end of the target,
/// and the content is shared if the file system supports that. Flushes nothing.
[[nodiscard]] CopyResult copyRest(int from, qint64 pos, qint64 count, int to);

} // namespace brisel
