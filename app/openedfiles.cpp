#include "app/openedfiles.h"

#include "base/runguard.h"

#include <QCoreApplication>
#include <QFileOpenEvent>

#include <utility>

namespace brisel
{

OpenedFiles::OpenedFiles(QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &OpenedFiles::report);
    QCoreApplication::instance()->installEventFilter(this);
}

bool OpenedFiles::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::FileOpen)
        return QObject::eventFilter(watched, event);
    const QString path = static_cast<const QFileOpenEvent *>(event)->file();
    if (!path.isEmpty()) {
        m_paths.append(path);
        m_timer.start(0);
    }
    return true;
}

void OpenedFiles::report()
{
    constexpr int retryTime = 200; // milliseconds
    if (RunGuard::isActive())
        m_timer.start(retryTime);
    else
        emit opened(std::exchange(m_paths, {}));
}

} // namespace brisel
