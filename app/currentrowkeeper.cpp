#include "app/currentrowkeeper.h"

#include <QItemSelectionModel>
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
    rememberSelection();
    const QModelIndex current = m_view.currentIndex();
    m_id = current.isValid() ? current.siblingAtColumn(0).data() : QVariant();
    m_column = current.column();
    m_above.reset();
    const int top = m_view.rowAt(0);
    const int last = m_view.rowAt(m_view.viewport()->height() - 1);
    const int row = current.row();
    if (top < 0 || row < top || (last >= 0 && row > last) || m_view.isRowHidden(row))
        return;
    m_above = 0;
    for (int above = top; above < row; ++above)
        m_above = *m_above + (m_view.isRowHidden(above) ? 0 : 1);
}

void CurrentRowKeeper::rememberSelection()
{
    m_selected.clear();
    const QItemSelection selection = m_view.selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (const QVariant id = m_view.model()->index(row, 0).data(); id.isValid())
                m_selected.insert(id.toLongLong());
        }
    }
    // Making the current row current again selects it.
    if (m_selected.size() == 1 && m_id.isValid() && m_selected.contains(m_id.toLongLong()))
        m_selected.clear();
}

void CurrentRowKeeper::restore()
{
    restoreCurrent();
    if (!m_selected.isEmpty())
        restoreSelection();
}

void CurrentRowKeeper::restoreSelection()
{
    const QAbstractItemModel *model = m_view.model();
    const auto isSelected = [this, model](int row) {
        const QVariant id = model->index(row, 0).data();
        return id.isValid() && m_selected.contains(id.toLongLong());
    };
    QItemSelection selection;
    const int rows = model->rowCount();
    for (int first = 0; first < rows; ++first) {
        if (!isSelected(first))
            continue;
        int last = first;
        while (last + 1 < rows && isSelected(last + 1))
            ++last;
        selection.append(QItemSelectionRange(model->index(first, 0),
                                             model->index(last, model->columnCount() - 1)));
        first = last;
    }
    m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void CurrentRowKeeper::restoreCurrent()
{
    if (!m_id.isValid())
        return;
    const QAbstractItemModel *model = m_view.model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data() != m_id)
            continue;
        const int left = m_view.horizontalScrollBar()->value();
        m_view.setCurrentIndex(model->index(row, m_column)); // scrolls to it
        scrollBack(row);
        m_view.horizontalScrollBar()->setValue(left);
        return;
    }
}

/// A row that was in sight has as many rows above it as before, if there are enough.
void CurrentRowKeeper::scrollBack(int row)
{
    if (!m_above.has_value() || m_view.isRowHidden(row))
        return;
    int top = row;
    for (int above = 0; above < *m_above && top > 0; --top)
        above += m_view.isRowHidden(top - 1) ? 0 : 1;
    m_view.scrollTo(m_view.model()->index(top, m_column), QAbstractItemView::PositionAtTop);
}

} // namespace brisel
