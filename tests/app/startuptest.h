#pragma once

#include "app/startup.h"
#include "tests/testfiles.h"

#include <QObject>
#include <QSettings>

namespace brisel
{

/// A test of what happens before the window opens: the settings and the log of the working folder.
class StartupTest : public QObject
{
protected:
    /// Empties the settings store and removes the log.
    static void startAnew()
    {
        QSettings(settingsOrganisation, settingsApplication).clear();
        QFile::remove(QStringLiteral("log.txt"));
    }
    static void set(const QString &key, const QVariant &value)
    {
        QSettings(settingsOrganisation, settingsApplication).setValue(key, value);
    }
    static QStringList logLines()
    {
        QStringList lines = QString::fromUtf8(fileContent(QStringLiteral("log.txt"))).split(u'\n');
        lines.removeLast();
        return lines;
    }
    /// A line without its time stamp.
    static QString textOf(const QString &line) { return line.mid(21); }
};

} // namespace brisel
