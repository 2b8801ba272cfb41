#include "library/dialogs/paintpace.h"

#include <algorithm>

namespace brisel
{

bool PaintPace::isStepDue()
{
    constexpr int firstSteps = 32;
    if (m_steps == firstSteps)
        return isDue();
    ++m_steps;
    return true;
}

bool PaintPace::isDue() const
{
    return !m_sincePainted.isValid() || m_sincePainted.elapsed() >= m_pause;
}

void PaintPace::paint(const std::function<void()> &painting)
{
    // Milliseconds. One slow painting must not delay the next one for long.
    constexpr qint64 shortestPause = 50;
    constexpr qint64 longestPause = 1000;
    constexpr qint64 workPerPainting = 9;
    QElapsedTimer time;
    time.start();
    painting();
    m_pause = std::clamp(time.elapsed() * workPerPainting, shortestPause, longestPause);
    m_sincePainted.start();
}

} // namespace brisel
