#include "tools/demo/narrator.h"

#include <QDir>
#include <QPixmap>
#include <QTextStream>
#include <QWidget>

namespace brisel
{

namespace
{

void writeLine(const QString &line)
{
    QTextStream(stdout) << line << Qt::endl;
}

} // namespace

Narrator::Narrator(const QString &folder, const QString &language)
    : m_folder(folder), m_language(language)
{
    QDir().mkpath(m_folder);
    QDir pictures(m_folder, QStringLiteral("*.%1.png").arg(m_language));
    for (const QString &old : pictures.entryList(QDir::Files))
        pictures.remove(old);
}

void Narrator::step(const QString &title)
{
    writeLine(QStringLiteral("\n%1. %2").arg(++m_steps).arg(title));
}

void Narrator::print(const QString &line)
{
    writeLine(QStringLiteral("      ") + line);
}

bool Narrator::check(bool good, const QString &what)
{
    writeLine((good ? QStringLiteral("  ok  ") : QStringLiteral("FAIL  ")) + what);
    if (!good)
        ++m_failures;
    return good;
}

bool Narrator::checkEqual(qsizetype actual, qsizetype expected, const QString &what)
{
    const QString text = QStringLiteral("%1: %2").arg(what).arg(actual);
    return check(actual == expected,
                 actual == expected ? text : text + QStringLiteral(", should be %1").arg(expected));
}

void Narrator::takePicture(QWidget *widget, const QString &name)
{
    const QString file =
        QStringLiteral("%1-%2.%3.png").arg(++m_pictures, 2, 10, QChar(u'0')).arg(name, m_language);
    if (widget->grab().save(QDir(m_folder).filePath(file)))
        print(QStringLiteral("picture: ") + file);
    else
        check(false, QStringLiteral("picture %1 written").arg(file));
}

} // namespace brisel
