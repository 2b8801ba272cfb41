#include "base/runguard.h"

#include <QCoreApplication>
#include <QEvent>

namespace brisel
{

RunGuard::RunGuard()
{
    if (s_active++ == 0)
        s_endRequested = false;
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

RunGuard::~RunGuard()
{
    if (--s_active > 0 || !s_endRequested)
        return;
    s_endRequested = false;
    if (QCoreApplication *application = QCoreApplication::instance())
        QCoreApplication::postEvent(application, new QEvent(QEvent::Quit));
}

bool RunGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Quit || watched != QCoreApplication::instance())
        return QObject::eventFilter(watched, event);
    requestEnd();
    event->ignore();
    return true;
}

} // namespace brisel
