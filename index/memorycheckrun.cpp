#include "index/memorycheckrun.h"

#include "base/runguard.h"

#include <algorithm>

bool MemoryCheckRun::goOn()
{
    constexpr qint64 breathingInterval = 1024; // steps
    if (++m_steps % breathingInterval == 0)
        m_breathe();
    return !RunGuard::endRequested();
}

void MemoryCheckRun::find(const QString &finding)
{
    if (m_lines.size() >= mostFindings) {
        ++m_more;
        return;
    }
    QString line = finding;
    for (QChar &character : line) {
        if (character.category() == QChar::Other_Control ||
            character.category() == QChar::Separator_Line ||
            character.category() == QChar::Separator_Paragraph)
            character = u' ';
    }
    m_lines.append(line);
}

void MemoryCheckRun::findDamage(const QString &finding)
{
    m_damage = true;
    find(finding);
}

QStringList MemoryCheckRun::lines() const
{
    QStringList all = m_lines;
    if (m_more > 0)
        all.append(tr("... e altri %n", nullptr, m_more));
    return all;
}
