#pragma once

#include "base/fileidentity.h"

#include <QList>

/// A file or folder of a memory.
struct FolderEntry {
    QString name;
    FileKind kind = FileKind::Missing; ///< Regular or Folder, links followed
    bool isLink = false;
};

/// The plain files and the folders in \a folder that a user sees, links followed, ordered by name
/// ignoring case (by lower-casing, not by locale) and then by the exact name. Hidden and system
/// entries, the folders that systems put on memories for themselves and names that are no text are
/// left out. No entry but a link is looked at where the system tells the kinds with the names.
QList<FolderEntry> visibleEntries(const QString &folder);
