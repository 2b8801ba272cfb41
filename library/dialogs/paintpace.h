#pragma once

#include <QElapsedTimer>

#include <functional>

namespace brisel
{

/// How often a long run is painted: at each of the first steps of a stage, so that short stages are
/// visible, then as often as the eye can follow, and less often if painting would take more than a
/// tenth of the time.
class PaintPace
{
public:
    /// A stage of the run begins.
    void restart()
    {
        m_steps = 0;
        m_pause = 0;
    }
    /// Counts one step of the stage. Returns true if it must be painted now.
    [[nodiscard]] bool isStepDue();
    /// Returns true if the run must be painted now, between two steps.
    [[nodiscard]] bool isDue() const;
    /// Paints by calling \a painting; its duration determines when the next one is due.
    void paint(const std::function<void()> &painting);

private:
    int m_steps = 0; ///< of this stage; counted up to firstSteps
    QElapsedTimer m_sincePainted;
    qint64 m_pause = 0; ///< milliseconds from one painting to the next
};

} // namespace brisel
