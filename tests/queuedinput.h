#pragma once

#include <QCursor>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <functional>
#include <utility>

namespace brisel
{

/// Clicks the middle of \a widget like the window system, which respects modal dialogs, and does
/// not process events.
inline void sendClick(const QWidget &widget)
{
    QWindow *window = widget.window()->windowHandle();
    const QPoint local = widget.mapTo(widget.window(), widget.rect().center());
    const QPoint global = window->mapToGlobal(local);
    const int time = QTest::lastMouseTimestamp += QTest::mouseDoubleClickInterval;
    qt_handleMouseEvent(window, local, global, Qt::LeftButton, Qt::LeftButton,
                        QEvent::MouseButtonPress, {}, time);
    qt_handleMouseEvent(window, local, global, Qt::NoButton, Qt::LeftButton,
                        QEvent::MouseButtonRelease, {}, time);
}

/// Input that stays in the queue of the window system until the program processes input, unlike
/// that of QTest: a move of the mouse over a window that no dialog blocks.
class QueuedInput : public QWidget
{
public:
    /// \a act is called when the input is processed.
    explicit QueuedInput(std::function<void()> act) : m_act(std::move(act))
    {
        constexpr int far = 5000; // pixels: no other window is there
        setGeometry(far, far, 100, 100);
        setMouseTracking(true);
        show();
    }
    void add() const
    {
        const QPoint place = geometry().center();
        QCursor::setPos(QCursor::pos() == place ? place + QPoint(1, 0) : place);
    }

protected:
    void mouseMoveEvent(QMouseEvent * /*event*/) override { m_act(); }

private:
    std::function<void()> m_act;
};

} // namespace brisel
