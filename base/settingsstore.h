#pragma once

#include <QSettings>
#include <QString>

namespace brisel
{

/// The names under which every component opens the settings store.
extern const QString settingsOrganisation; ///< "kordia"
extern const QString settingsApplication;  ///< "brisel2pc"

/// The settings of the program. Where one of the files that they are read from is not a plain file
/// (a FIFO would wait for ever), larger than 1 MiB, or can't be read to its end, nothing is used of
/// them and nothing can be stored: the program works with its defaults, and the file stays as it
/// is.
QSettings openSettings();

/// Stores \a value under \a key, a plain word, at once. False when the settings could not be
/// written; they hold what they held before then. Settings that can't be read whole are not
/// written.
///
/// The settings class puts its file in place even when the disk took only a part of it, and every
/// choice that the user ever made would be gone. So the file is looked at afterwards, and put back
/// when it is not whole.
[[nodiscard]] bool storeSetting(QSettings &settings, const QString &key, const QVariant &value);

/// storeSetting() for a choice that nothing depends on at once: a failure is logged, and the
/// program goes on.
void keepSetting(QSettings &settings, const QString &key, const QVariant &value);

} // namespace brisel
