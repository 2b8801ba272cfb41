#pragma once

#include <QList>

class QTableView;

namespace brisel
{

/// Makes each visible one of \a columns as wide as its contents, as
/// QTableView::resizeColumnToContents() does. Many texts of a library are the same (genres,
/// artists, keys): each is measured once.
///
/// Returns how many texts were measured.
int fitColumns(QTableView &view, const QList<int> &columns);

/// Widens each visible column that is narrower than its heading.
void showWholeHeadings(QTableView &view);

/// Makes the widest of \a columns narrower until all columns that \a view shows are in sight beside
/// a vertical scroll bar, or each of \a columns is as narrow as its heading.
void narrowColumns(QTableView &view, const QList<int> &columns);

} // namespace brisel
