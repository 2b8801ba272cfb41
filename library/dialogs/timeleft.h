#pragma once

#include <QCoreApplication>

#include <functional>

namespace brisel
{

/// The time that a stage of a run still needs, estimated from its steps. Nothing is shown in the
/// first five seconds, or without steps.
class TimeLeft
{
    Q_DECLARE_TR_FUNCTIONS(TimeLeft)

public:
    /// Milliseconds of a clock that never goes back.
    using Clock = std::function<qint64()>;

    /// The clock of the system, from the first call on.
    static qint64 steadyClock();

    explicit TimeLeft(Clock clock = steadyClock) : m_clock(std::move(clock)) {}

    /// A stage begins.
    void begin();
    /// The user is asked something, until resume(): that time does not count.
    void pause();
    void resume();

    /// "about 2 minutes left", after \a done of \a steps steps; empty while nothing is shown. The
    /// estimate follows the pace of the steps slowly, once a second at most.
    QString text(int done, int steps);
    /// Milliseconds of the stage until now, without pauses.
    qint64 worked() const;

private:
    static QString textFor(qint64 left);

    Clock m_clock;
    qint64 m_begun = 0;      ///< moved on by pauses
    qint64 m_paused = -1;    ///< when the pause began; -1 without a pause
    qint64 m_estimated = -1; ///< worked() at the last estimate; -1 before the first one
    qint64 m_end = 0;        ///< the estimated worked() at the end
};

} // namespace brisel
