#pragma once

#include <QFileInfo>

/// The entries of \a folder that a user sees, ordered by name ignoring case (by lower-casing, not
/// by locale) and then by the exact name. Hidden and system entries and the folders that systems
/// put on memories for themselves are left out.
QFileInfoList visibleEntries(const QString &folder);
