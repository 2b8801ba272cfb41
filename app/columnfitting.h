#pragma once

#include <QList>

class QTableView;

/// Makes each of \a columns that is shown as wide as its contents, as
/// QTableView::resizeColumnToContents() does. A library's texts come again and again (a genre, an
/// artist, a key): each is measured once.
///
/// Returns how many texts were measured.
int fitColumns(QTableView &view, const QList<int> &columns);
