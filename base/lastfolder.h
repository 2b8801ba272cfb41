#pragma once

#include "base/settings.h"

namespace brisel
{

/// The folder in which a file dialog starts: the one of \a setting if it is still a folder,
/// otherwise \a first.
QString startFolder(const Setting<QString> &setting, const QString &first);

/// Remembers \a folder, which the user has chosen in a file dialog, under \a setting.
void keepFolder(const Setting<QString> &setting, const QString &folder);

inline constexpr qsizetype mostRecent = 8; ///< folders that keepRecent() remembers

/// Puts \a folder first among the recent folders of \a setting.
void keepRecent(const Setting<QStringList> &setting, const QString &folder);

} // namespace brisel
