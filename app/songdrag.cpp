#include "app/songdrag.h"

#include <QMouseEvent>
#include <QTableView>

namespace brisel
{

SongDrag::SongDrag(QTableView &view) : QObject(&view), m_view(view)
{
    m_view.setDragDropMode(QAbstractItemView::DragOnly);
    m_view.setDragEnabled(false);
    m_view.viewport()->installEventFilter(this);
}

bool SongDrag::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && m_view.selectionModel() != nullptr) {
        const QPoint place = static_cast<QMouseEvent *>(event)->position().toPoint();
        m_view.setDragEnabled(m_view.selectionModel()->isSelected(m_view.indexAt(place)));
    }
    return QObject::eventFilter(watched, event);
}

} // namespace brisel
