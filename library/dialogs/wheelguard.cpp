#include "library/dialogs/wheelguard.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>

namespace brisel
{

WheelGuard::WheelGuard(QWidget &window) : QObject(&window)
{
    const auto guard = [this](QWidget *control) {
        control->setFocusPolicy(Qt::StrongFocus); // the wheel alone does not give it the focus
        control->installEventFilter(this);
    };
    for (auto *combo : window.findChildren<QComboBox *>())
        guard(combo);
    for (auto *spinBox : window.findChildren<QAbstractSpinBox *>())
        guard(spinBox);
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Wheel || control == nullptr)
        return false;
    const QWidget *focused = QApplication::focusWidget(); // the line edit of the control, maybe
    if (focused == control || control->isAncestorOf(focused))
        return false;
    event->ignore(); // the window may scroll instead
    return true;
}

} // namespace brisel
