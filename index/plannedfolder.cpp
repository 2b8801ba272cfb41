#include "index/plannedfolder.h"

#include "base/fatfolder.h"
#include "base/lettercase.h"

#include <QDir>

namespace brisel
{

PlannedFolder PlannedFolder::of(const QString &folder)
{
    PlannedFolder names(brisel::isOnFat(folder));
    const QStringList all = QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &name : all)
        names.m_names.insert(lowerCased(name), name);
    return names;
}

void PlannedFolder::add(const QString &name)
{
    if (!has(name))
        m_names.insert(lowerCased(name), name);
}

void PlannedFolder::remove(const QString &name)
{
    if (m_isOnFat)
        m_names.remove(lowerCased(name));
    else
        m_names.remove(lowerCased(name), name);
}

bool PlannedFolder::has(const QString &name) const
{
    return m_isOnFat ? m_names.contains(lowerCased(name))
                     : m_names.contains(lowerCased(name), name);
}

QStringList PlannedFolder::named(const QString &name) const
{
    QStringList found = m_names.values(lowerCased(name));
    found.sort();
    return found;
}

QString PlannedFolder::keyOf(const QString &name) const
{
    return m_isOnFat ? lowerCased(name) : name;
}

} // namespace brisel
