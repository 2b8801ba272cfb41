#include "index/memoryfindings.h"

namespace brisel
{

void MemoryFindings::add(const QString &finding)
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

void MemoryFindings::addDamage(const QString &finding)
{
    m_hasDamage = true;
    add(finding);
}

QStringList MemoryFindings::lines() const
{
    QStringList all = m_lines;
    if (m_more > 0)
        all.append(tr("... e altri %n", nullptr, m_more));
    return all;
}

} // namespace brisel
