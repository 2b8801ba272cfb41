#pragma once

#include <QSettings>
#include <QString>

namespace brisel
{

/// The names under which every component opens the settings store.
extern const QString settingsOrganisation; ///< "kordia"
extern const QString settingsApplication;  ///< "brisel2pc"

/// The settings of the program. If one of their files is not a plain file (a FIFO would block),
/// larger than 1 MiB, or can't be read completely, none of them are used and nothing can be stored:
/// the program works with its defaults, and the file is unchanged.
QSettings openSettings();

/// Stores \a value under \a key, a plain word, at once. Returns false, with the settings unchanged,
/// if they could not be written. Settings that can't be read completely are not written.
///
/// The settings class replaces its file even if only a part of it could be written, which would
/// lose all settings of the user. So the file is checked afterwards, and restored if it is
/// incomplete.
[[nodiscard]] bool storeSetting(QSettings &settings, const QString &key, const QVariant &value);

/// storeSetting() for a setting on which nothing else depends: a failure is logged and ignored.
void keepSetting(QSettings &settings, const QString &key, const QVariant &value);

} // namespace brisel
