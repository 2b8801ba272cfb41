#pragma once

#include <QList>
#include <QPoint>

class QTableView;

namespace brisel
{

/// The rows on which an operation of \a view works: the selected ones, or the current one without a
/// selection. In their order; hidden rows are never among them.
QList<int> chosenRows(const QTableView &view);

/// The rows on which a menu over \a row works: the chosen ones if it is among them; otherwise it is
/// selected alone.
QList<int> rowsOfMenu(QTableView &view, int row);

/// The point of the viewport where a menu over \a rows opens: in the current row if it is one of
/// them and in sight, or in the first one in sight; in the middle if none is.
QPoint menuPlace(const QTableView &view, const QList<int> &rows);

/// Makes \a row the current and only selected one; a no-op for -1.
void chooseRow(QTableView &view, int row);

/// The number that the row gets which is to be chosen after \a rows, in ascending order, have been
/// removed: the next shown one, or the one before them; -1 if no other row is shown.
int rowChosenAfterRemoval(const QTableView &view, const QList<int> &rows);

/// The number of hidden rows among the first \a count.
int hiddenRowCount(const QTableView &view, int count);

/// Returns the number of the next shown row after \a row, or before it if \a step is -1; -1 at the
/// end of the table.
int nextShownRow(const QTableView &view, int row, int step);

} // namespace brisel
