#include "app/songdrop.h"

#include "base/runguard.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

QStringList localPaths(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

bool holdsLocalPath(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    return std::any_of(urls.cbegin(), urls.cend(),
                       [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

SongDrop::SongDrop(QWidget &window) : QObject(&window)
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool SongDrop::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::DragLeave)
        end();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto *drag = static_cast<QDropEvent *>(event);
    if (type == QEvent::DragEnter)
        m_isWanted = drag->source() == nullptr && holdsLocalPath(*drag->mimeData());
    const bool isBusy = RunGuard::isActive();
    drag->setDropAction(Qt::CopyAction); // a move would let the source delete its files
    drag->setAccepted(m_isWanted && !isBusy);
    if (isBusy && type == QEvent::DragEnter)
        emit refused();
    if (!drag->isAccepted())
        return true;
    const bool adds = drag->modifiers().testFlag(Qt::ControlModifier);
    if (type == QEvent::Drop) {
        takeLater(localPaths(*drag->mimeData()), adds);
        return true;
    }
    m_isOver = true;
    emit hovered(adds);
    return true;
}

void SongDrop::end()
{
    if (std::exchange(m_isOver, false))
        emit ended();
}

void SongDrop::takeLater(const QStringList &paths, bool adds)
{
    end();
    QMetaObject::invokeMethod(
        this, [this, paths, adds] { adds ? emit droppedToAdd(paths) : emit dropped(paths); },
        Qt::QueuedConnection);
}

} // namespace brisel
