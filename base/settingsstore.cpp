#include "base/settingsstore.h"

#include "base/fileidentity.h"
#include "base/filereading.h"
#include "base/filewriting.h"

#include <QFile>
#include <QSettings>
#include <QVariant>

#include <algorithm>

namespace
{

constexpr qint64 maxSettings = 1 << 20; ///< bytes; far more than all choices there are

/// True when \a content has a line for each of \a keys, and its last line an end.
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

/// The keys that stand in the file as they are: those of this program.
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

} // namespace

bool storeSetting(QSettings &settings, const QString &key, const QVariant &value)
{
    const QString path = settings.fileName();
    settings.sync(); // what another program has stored meanwhile
    QByteArray old;
    const bool isKnown = readWholeFile(path, maxSettings, old) == ReadResult::Done;
    settings.setValue(key, value);
    settings.sync();
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    QByteArray content;
    if (isRegularFile(path) && settings.status() == QSettings::NoError &&
        !(readWholeFile(path, maxSettings, content) == ReadResult::Done &&
          isWhole(content, plainKeys(settings)))) {
        if (isKnown)
            replaceFile(path, old);
        else
            QFile::remove(path);
        return false;
    }
#endif
    return settings.status() == QSettings::NoError;
}
