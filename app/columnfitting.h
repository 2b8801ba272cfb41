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

} // namespace brisel
