#pragma once

#include "base/fileidentity.h"

#include <QList>

namespace brisel
{

/// An entry of a folder of a memory.
struct FolderEntry {
    QString name;
    FileKind kind = FileKind::Missing; ///< links followed
    bool isLink = false;
};

/// The entries found in a folder.
struct FolderEntries {
    QList<FolderEntry> entries; ///< those that can be opened by a path
    /// Those whose names are not valid text: they can't be opened by a path. Invalid bytes are
    /// U+FFFD.
    QList<FolderEntry> unnamed;
    bool isComplete = true; ///< false: the folder could not be read to its end
};

/// What a user sees in \a folder, links followed, ordered by name ignoring case (by lower-casing,
/// not by locale) and then by the exact name. Hidden and system entries and the folders that
/// liesInSystemFolder() means are left out. Where the system lists the kinds with the names, only
/// links are looked at. A folder that does not exist counts as empty.
FolderEntries visibleEntries(const QString &folder);

/// Puts \a entries in the order of visibleEntries().
void sortEntries(QList<FolderEntry> &entries);

/// Returns true if a folder above the file \a path has a name that systems use for recycle bins,
/// recovered files or data of their own. Folders whose names begin with a point are hidden anyway.
bool liesInSystemFolder(QStringView path);

} // namespace brisel
