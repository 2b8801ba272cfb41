#include "app/currentrowkeeper.h"

#include <QScrollBar>
#include <QTableView>

namespace brisel
{

CurrentRowKeeper::CurrentRowKeeper(QTableView &view) : QObject(&view), m_view(view)
{
    const QAbstractItemModel *model = view.model();
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, &CurrentRowKeeper::remember);
    connect(model, &QAbstractItemModel::modelReset, this, &CurrentRowKeeper::restore);
}

void CurrentRowKeeper::remember()
{
    const QModelIndex current = m_view.currentIndex();
    m_id = current.isValid() ? current.siblingAtColumn(0).data() : QVariant();
    m_column = current.column();
}

void CurrentRowKeeper::restore()
{
    if (!m_id.isValid())
        return;
    const QAbstractItemModel *model = m_view.model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data() != m_id)
            continue;
        const int left = m_view.horizontalScrollBar()->value();
        m_view.setCurrentIndex(model->index(row, m_column)); // scrolls to it
        m_view.horizontalScrollBar()->setValue(left);
        return;
    }
}

} // namespace brisel
