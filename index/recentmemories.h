#pragma once

#include <QString>
#include <QStringList>

namespace brisel
{

/// The memories that were worked on, the last one first, as far as they are mounted now.
QStringList recentMemories();

/// Remembers the memory that contains \a folder; a no-op for a folder that is not on a memory. Only
/// the last ones are remembered.
void keepMemory(const QString &folder);

/// The folder in which a dialog for a memory starts: \a last if it is on a mounted memory,
/// otherwise \a first.
QString startMemory(const QString &last, const QString &first);

} // namespace brisel
