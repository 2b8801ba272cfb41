#pragma once

#include <QElapsedTimer>

#include <functional>

namespace brisel
{

/// How often a long run is painted: at each of the first steps of a stage, so that a short one is
/// seen whole, then as often as an eye can follow, and less often where painting would take more
/// than a tenth of the time.
class PaintPace
{
public:
    /// A stage of the run begins.
    void restart()
    {
        m_steps = 0;
        m_pause = 0;
    }
    /// Counts one step of the stage. True when it is to be painted now.
    [[nodiscard]] bool isStepDue();
    /// True when the run is to be painted now, between two steps.
    [[nodiscard]] bool isDue() const;
    /// Paints by \a painting; how long that takes decides when the next one is due.
    void paint(const std::function<void()> &painting);

private:
    int m_steps = 0; ///< of this stage, as long as they are counted
    QElapsedTimer m_sincePainted;
    qint64 m_pause = 0; ///< milliseconds from one painting to the next
};

} // namespace brisel
