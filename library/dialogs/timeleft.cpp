#include "library/dialogs/timeleft.h"

#include <QElapsedTimer>

#include <algorithm>

namespace brisel
{

static constexpr qint64 second = 1000; ///< milliseconds

qint64 TimeLeft::steadyClock()
{
    static QElapsedTimer time;
    if (!time.isValid())
        time.start();
    return time.elapsed();
}

void TimeLeft::begin()
{
    m_begun = m_clock();
    m_paused = -1;
    m_estimated = -1;
}

void TimeLeft::pause()
{
    if (m_paused < 0)
        m_paused = m_clock();
}

void TimeLeft::resume()
{
    if (m_paused >= 0)
        m_begun += m_clock() - m_paused;
    m_paused = -1;
}

qint64 TimeLeft::worked() const
{
    return (m_paused >= 0 ? m_paused : m_clock()) - m_begun;
}

QString TimeLeft::text(int done, int steps)
{
    constexpr qint64 silence = 5 * second;
    constexpr qint64 slowness = 4; // estimates until a changed pace counts for most of it
    const qint64 now = worked();
    if (now < silence || done <= 0 || done >= steps)
        return {};
    if (m_estimated < 0 || now - m_estimated >= second) {
        const qint64 end = now * steps / done;
        m_end = m_estimated < 0 ? end : m_end + (end - m_end) / slowness;
        m_estimated = now;
    }
    return textFor(m_end - now);
}

/// \a left: milliseconds; a negative number counts as 0.
QString TimeLeft::textFor(qint64 left)
{
    constexpr qint64 minute = 60;         // seconds
    constexpr qint64 hour = 60 * minute;  // seconds
    constexpr qint64 roundedSeconds = 10; // as seconds are shown
    const qint64 seconds = std::max(left, qint64(0)) / second;
    if (seconds < roundedSeconds)
        return tr("ancora pochi secondi");
    if (seconds < minute + minute / 2)
        return tr("ancora circa %1 secondi").arg(seconds / roundedSeconds * roundedSeconds);
    if (seconds < hour + hour / 2)
        return tr("ancora circa %1 minuti").arg((seconds + minute / 2) / minute);
    return tr("ancora circa %1 ore").arg((seconds + hour / 2) / hour);
}

} // namespace brisel
