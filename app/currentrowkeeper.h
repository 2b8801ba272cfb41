#pragma once

#include <QObject>
#include <QVariant>

class QTableView;

namespace brisel
{

/// Keeps the current row of a table current when its model is read again, as for a sort: the row is
/// found again by the value in its first column. If it is gone there is no current row.
class CurrentRowKeeper : public QObject
{
    Q_OBJECT

public:
    /// \a view has its model. Owned by the view.
    explicit CurrentRowKeeper(QTableView &view);

private:
    void remember();
    void restore();

    QTableView &m_view;
    QVariant m_id;    ///< invalid when no row was current
    int m_column = 0; ///< of the current cell
};

} // namespace brisel
