#pragma once

#include "base/reason.h"

namespace brisel
{

/// The reasons why work on a memory or its index failed.
namespace MemoryReason
{

inline constexpr Reason gone(QT_TRANSLATE_NOOP("RunReport", "la memoria non è più presente"));
inline constexpr Reason
    inUse(QT_TRANSLATE_NOOP("RunReport", "un altro programma sta lavorando su questa memoria"));
inline constexpr Reason
    indexIncomplete(QT_TRANSLATE_NOOP("RunReport", "gli archivi della memoria non sono completi"));
/// The memory has no index.
inline constexpr Reason notPrepared(QT_TRANSLATE_NOOP("RunReport",
                                                      "la memoria non è preparata per Brisel"));
inline constexpr Reason listFailed(
    QT_TRANSLATE_NOOP("RunReport", "gli archivi non si leggono o il file non si può scrivere"));

/// Returns the reason why writing \a size bytes of index to the memory \a root failed.
Reason whyNotIndexed(const QString &root, qint64 size);

} // namespace MemoryReason

} // namespace brisel
