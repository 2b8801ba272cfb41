#pragma once

#include <QCoreApplication>
#include <QStringList>

namespace brisel
{

/// The findings of a check of a memory, as lines for the user.
class MemoryFindings
{
    Q_DECLARE_TR_FUNCTIONS(MemoryFindings)

public:
    /// More findings than this are only counted.
    static constexpr qsizetype mostFindings = 1000;

    /// Adds one finding. Line breaks in names are replaced.
    void add(const QString &finding);
    /// The same for a finding that shows that the index itself is damaged.
    void addDamage(const QString &finding);

    /// A line for each finding, and one with the number of those above the limit.
    QStringList lines() const;
    bool hasDamage() const { return m_hasDamage; }

private:
    QStringList m_lines;
    int m_more = 0;
    bool m_hasDamage = false;
};

} // namespace brisel
