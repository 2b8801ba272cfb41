#pragma once

#include <QtGlobal>

class QString;

namespace brisel
{

/// How fast songs are written to the memories that were worked on last. Kept in the settings.

/// The bytes per second of the memory that contains \a folder; 0 if it was never measured.
[[nodiscard]] qint64 memorySpeed(const QString &folder);

/// Remembers \a bytesPerSecond for the memory that contains \a folder; a no-op for a folder that is
/// not on a memory, and for a speed that is not above 0.
void keepMemorySpeed(const QString &folder, qint64 bytesPerSecond);

} // namespace brisel
