#pragma once

#include <QObject>

class QTableView;

namespace brisel
{

/// Lets the space bar change the tick of the current row in cells without a tick of their own.
class SpaceTick : public QObject
{
    Q_OBJECT

public:
    /// The ticks of the rows of \a view, which owns this, are in \a column.
    SpaceTick(QTableView &view, int column);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTableView &m_view;
    int m_column;
};

} // namespace brisel
