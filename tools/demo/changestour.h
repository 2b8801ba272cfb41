#pragma once

#include "tools/demo/stage.h"

#include <QHash>

namespace brisel
{

/// The content of every song of the tour, by its path.
using SongContents = QHash<QString, QByteArray>;
SongContents songContents(const Stage &stage);

/// Looks at what a synchronisation would change, and writes nothing.
void previewChanges(Stage &stage);
/// Restores the last operation, after which the songs must have the contents \a before, and takes
/// that back.
void takeChangesBack(Stage &stage, const SongContents &before);
/// Restores the only backup, and takes that back.
void restoreBackup(Stage &stage);

} // namespace brisel
