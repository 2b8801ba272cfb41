#include "library/dialogs/spacetick.h"

#include <QKeyEvent>
#include <QTableView>

namespace brisel
{

SpaceTick::SpaceTick(QTableView &view, int column) : QObject(&view), m_view(view), m_column(column)
{
    view.installEventFilter(this);
}

bool SpaceTick::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent *>(event)->key() != Qt::Key_Space)
        return QObject::eventFilter(watched, event);
    const QModelIndex current = m_view.currentIndex();
    const QModelIndex ticked = current.siblingAtColumn(m_column);
    const QVariant tick = ticked.data(Qt::CheckStateRole);
    if (current.data(Qt::CheckStateRole).isValid() || !tick.isValid())
        return QObject::eventFilter(watched, event);
    const bool isTicked = tick.toInt() == Qt::Checked;
    return m_view.model()->setData(ticked, isTicked ? Qt::Unchecked : Qt::Checked,
                                   Qt::CheckStateRole);
}

} // namespace brisel
