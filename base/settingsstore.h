#pragma once

class QSettings;
class QString;
class QVariant;

/// Stores \a value under \a key, a plain word, at once. False when the settings could not be
/// written; they hold what they held before then.
///
/// The settings class puts its file in place even when the disk took only a part of it, and every
/// choice that the user ever made would be gone. So the file is looked at afterwards, and put back
/// when it is not whole.
bool storeSetting(QSettings &settings, const QString &key, const QVariant &value);
