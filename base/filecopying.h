#pragma once

#include <QtGlobal>

namespace brisel
{

enum class CopyResult {
    Done,
    SourceFailed, ///< fewer bytes came
    TargetFailed, ///< fewer bytes could be written
};

/// Copies exactly \a count bytes of the open file \a from, from \a pos on, to where \a to stands,
/// which stands behind them afterwards. Holes of the source stay holes behind the end of the
/// target, and where the file system can share content between files it does. Flushes nothing.
[[nodiscard]] CopyResult copyRest(int from, qint64 pos, qint64 count, int to);

} // namespace brisel
