#include "base/settingsstore.h"

#include "base/debugstream.h"
#include "base/filereading.h"
#include "base/filewriting.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QVariant>

#include <algorithm>

namespace brisel
{

const QString settingsOrganisation = QStringLiteral("kordia");
const QString settingsApplication = QStringLiteral("brisel2pc");

namespace
{

constexpr qint64 maxSettings = 1 << 20; ///< bytes; far more than all settings need

/// Returns true if \a content has a line for each of \a keys, and its last line is terminated.
bool isWhole(const QByteArray &content, const QStringList &keys)
{
    const QList<QByteArray> lines = content.split('\n');
    return lines.last().isEmpty() &&
           std::all_of(keys.cbegin(), keys.cend(), [&lines](const QString &key) {
               const QByteArray start = key.toLatin1() + '=';
               return std::any_of(lines.cbegin(), lines.cend(), [&start](const QByteArray &line) {
                   return line.startsWith(start);
               });
           });
}

/// The keys of this program, which are stored unchanged in the file.
QStringList plainKeys(QSettings &settings)
{
    const bool hadFallbacks = settings.fallbacksEnabled();
    settings.setFallbacksEnabled(false);
    QStringList keys = settings.childKeys();
    settings.setFallbacksEnabled(hadFallbacks);
    keys.removeIf([](const QString &key) {
        return !std::all_of(key.cbegin(), key.cend(), [](QChar character) {
            return character.unicode() < 0x80 && character.isLetter();
        });
    });
    return keys;
}

#ifndef Q_OS_MACOS

/// The files that the settings class reads: in the user's folder, then in those of the system.
QStringList settingsFolders()
{
    const QString own = qEnvironmentVariable("XDG_CONFIG_HOME");
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    folders.append(own.isEmpty() ? QDir::homePath() + QStringLiteral("/.config")
                                 : QDir(QDir::homePath()).absoluteFilePath(own));
    return folders;
}

bool maySettingsBeRead()
{
    for (const QString &folder : settingsFolders()) {
        const QString program = folder + u'/' + settingsOrganisation;
        for (const QString &path : {program + u'/' + settingsApplication, program}) {
            const ReadResult result =
                readWholeFile(path + QStringLiteral(".conf"), maxSettings).result;
            // The settings class skips files that it can't open.
            if (result != ReadResult::Done && result != ReadResult::NotOpened)
                return false;
        }
    }
    return true;
}

#endif

} // namespace

QSettings openSettings()
{
#ifndef Q_OS_MACOS
    if (!maySettingsBeRead())
        return QSettings(QStringLiteral("/dev/null/brisel2pc.conf"), QSettings::NativeFormat);
#endif
    return QSettings(settingsOrganisation, settingsApplication);
}

bool storeSetting(QSettings &settings, const QString &key, const QVariant &value)
{
    const QString path = settings.fileName();
#ifndef Q_OS_MACOS
    const FileContent old = readWholeFile(path, maxSettings);
    if (!old.isDone() && old.state.kind != FileKind::Missing)
        return false;
#endif
    settings.sync(); // reads changes by other programs
    settings.setValue(key, value);
    settings.sync();
#ifndef Q_OS_MACOS
    const FileContent stored = readWholeFile(path, maxSettings);
    if (stored.state.kind == FileKind::Regular && settings.status() == QSettings::NoError &&
        !(stored.isDone() && isWhole(stored.bytes, plainKeys(settings)))) {
        if (old.isDone())
            (void)replaceFile(path, old.bytes); // false in either case
        else
            QFile::remove(path);
        return false;
    }
#endif
    return settings.status() == QSettings::NoError;
}

void keepSetting(QSettings &settings, const QString &key, const QVariant &value)
{
    if (!storeSetting(settings, key, value))
        debug() << "Impossible to store setting:" << key;
}

} // namespace brisel
