#pragma once

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

namespace brisel
{

/// Makes columns of \a view wider whose headings would be truncated.
inline void showWholeHeadings(QTreeView &view)
{
    for (int column = 0; column < view.header()->count(); ++column) {
        const int needed = view.header()->sectionSizeHint(column);
        if (view.columnWidth(column) < needed)
            view.setColumnWidth(column, needed);
    }
}

/// The same for a table.
inline void showWholeHeadings(QTableView &view)
{
    const QHeaderView &header = *view.horizontalHeader();
    for (int column = 0; column < header.count(); ++column)
        view.setColumnWidth(column, qMax(view.columnWidth(column), header.sectionSizeHint(column)));
}

} // namespace brisel
