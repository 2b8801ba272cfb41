#pragma once

#include <QCoreApplication>
#include <QStringList>

#include <functional>
#include <utility>

/// One check of a memory while it lasts: what it has found, how far it has come, and whether it
/// may go on.
class MemoryCheckRun
{
    Q_DECLARE_TR_FUNCTIONS(MemoryCheckRun)

public:
    /// More findings than this are only counted.
    static constexpr qsizetype mostFindings = 1000;

    /// \a breathe is called now and then.
    explicit MemoryCheckRun(std::function<void()> breathe) : m_breathe(std::move(breathe)) {}

    /// Counts one step of work. False when the program was asked to end.
    bool goOn();
    /// Takes one finding. Names in it can't break its line.
    void find(const QString &finding);
    /// The same for one that says that the files of the index don't belong together.
    void findDamage(const QString &finding);

    /// A line for each finding, and one that counts those above the most.
    QStringList lines() const;
    bool hasDamage() const { return m_damage; }
    qint64 steps() const { return m_steps; }

private:
    std::function<void()> m_breathe;
    QStringList m_lines;
    int m_more = 0;
    bool m_damage = false;
    qint64 m_steps = 0;
};
