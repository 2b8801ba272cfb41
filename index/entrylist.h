#pragma once

#include "base/fileidentity.h"

#include <QList>

/// What a name in a folder of a memory stands for.
struct FolderEntry {
    QString name;
    FileKind kind = FileKind::Missing; ///< links followed
    bool isLink = false;
};

/// What was found in a folder.
struct FolderEntries {
    QList<FolderEntry> entries; ///< those that a path leads to
    /// Those whose names are no text: no path leads to them. Bytes without a meaning are U+FFFD.
    QList<FolderEntry> unnamed;
    bool isComplete = true; ///< false: the folder could not be read to its end
};

/// What a user sees in \a folder, links followed, ordered by name ignoring case (by lower-casing,
/// not by locale) and then by the exact name. Hidden and system entries and the folders that
/// liesInSystemFolder() means are left out. No entry but a link is looked at where the system says
/// the kinds with the names. A folder that is not there is a complete one without entries.
FolderEntries visibleEntries(const QString &folder);

/// True when a folder on the way to the file \a path has a name under which systems keep bins, what
/// repairs have found, or data of their own. Those whose names begin with a point are hidden
/// anyway.
bool liesInSystemFolder(QStringView path);
