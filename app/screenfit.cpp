#include "app/screenfit.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace brisel
{

namespace
{

/// The room of the window's title bar and borders. A window manager adds them after the window was
/// shown.
QSize frameSize(const QWidget &window)
{
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return (window.frameSize() - window.size()).expandedTo({0, title});
}

void fit(QWidget &window)
{
    const QRect available = window.screen()->availableGeometry();
    const QSize room = available.size() - frameSize(window);
    if (window.width() <= room.width() && window.height() <= room.height())
        return;
    window.resize(window.size().boundedTo(room));
    const int right = available.right() + 1 - window.width() - frameSize(window).width();
    window.move(std::clamp(window.x(), available.left(), std::max(available.left(), right)),
                available.top());
}

} // namespace

ScreenFit::ScreenFit(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ScreenFit::eventFilter(QObject *watched, QEvent *event)
{
    auto *window = qobject_cast<QWidget *>(watched);
    const bool isOpening = event->type() == QEvent::Show && !event->spontaneous();
    if (isOpening && window != nullptr && window->isWindow() && !window->isMaximized() &&
        (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
        fit(*window);
    return QObject::eventFilter(watched, event);
}

} // namespace brisel
