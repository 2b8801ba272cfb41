#include "app/rowselection.h"

#include <QTableView>

#include <algorithm>

namespace brisel
{

static int rowCountOf(const QTableView &view)
{
    return view.model() == nullptr ? 0 : view.model()->rowCount();
}

QList<int> chosenRows(const QTableView &view)
{
    if (view.selectionModel() == nullptr)
        return {};
    QList<int> rows;
    const auto add = [&](int row) {
        if (row >= 0 && !view.isRowHidden(row))
            rows.append(row);
    };
    // QItemSelectionModel::selectedRows() takes a pass over all ranges for each row.
    const QItemSelection selection = view.selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            add(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (rows.isEmpty())
        add(view.currentIndex().row());
    return rows;
}

QList<int> rowsOfMenu(QTableView &view, int row)
{
    QList<int> rows = chosenRows(view);
    if (std::binary_search(rows.cbegin(), rows.cend(), row))
        return rows;
    chooseRow(view, row);
    return {row};
}

QPoint menuPlace(const QTableView &view, const QList<int> &rows)
{
    const QRect viewport = view.viewport()->rect();
    const auto seenPart = [&](int row) {
        return viewport.intersected(
            QRect(0, view.rowViewportPosition(row), viewport.width(), view.rowHeight(row)));
    };
    const auto isInSight = [&](int row) { return !seenPart(row).isEmpty(); };
    const QModelIndex current = view.currentIndex();
    int row = current.row();
    if (!std::binary_search(rows.cbegin(), rows.cend(), row) || !isInSight(row)) {
        const auto first = std::find_if(rows.cbegin(), rows.cend(), isInSight);
        if (first == rows.cend())
            return viewport.center();
        row = *first;
    }
    const QRect cell = viewport.intersected(view.visualRect(current.siblingAtRow(row)));
    return cell.isEmpty() ? seenPart(row).center() : cell.center();
}

void chooseRow(QTableView &view, int row)
{
    const int column = std::max(view.currentIndex().column(), 0);
    if (row >= 0)
        view.selectionModel()->setCurrentIndex(view.model()->index(row, column),
                                               QItemSelectionModel::ClearAndSelect |
                                                   QItemSelectionModel::Rows);
}

int rowChosenAfterRemoval(const QTableView &view, const QList<int> &rows)
{
    const auto isRemoved = [&rows](int row) {
        return std::binary_search(rows.cbegin(), rows.cend(), row);
    };
    int next = nextShownRow(view, rows.constFirst(), 1);
    while (next >= 0 && isRemoved(next))
        next = nextShownRow(view, next, 1);
    if (next < 0)
        next = nextShownRow(view, rows.constFirst(), -1);
    const auto before = std::lower_bound(rows.cbegin(), rows.cend(), next);
    return next - static_cast<int>(before - rows.cbegin());
}

int hiddenRowCount(const QTableView &view, int count)
{
    int hidden = 0;
    for (int row = 0; row < count; ++row)
        hidden += view.isRowHidden(row) ? 1 : 0;
    return hidden;
}

int nextShownRow(const QTableView &view, int row, int step)
{
    const int rows = rowCountOf(view);
    for (int next = row + step; next >= 0 && next < rows; next += step) {
        if (!view.isRowHidden(next))
            return next;
    }
    return -1;
}

} // namespace brisel
