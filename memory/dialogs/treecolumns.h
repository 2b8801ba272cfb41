#pragma once

#include <QHeaderView>
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

} // namespace brisel
