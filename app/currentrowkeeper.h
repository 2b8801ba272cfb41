#pragma once

#include <QObject>
#include <QVariant>

class QTableView;

/// Keeps the current row of a table current while its model is read anew, as it is for a sort: the
/// row is known again by the value in its first column. A row that is gone leaves none current.
class CurrentRowKeeper : public QObject
{
    Q_OBJECT

public:
    /// \a view has its model. Belongs to the view.
    explicit CurrentRowKeeper(QTableView &view);

private:
    void remember();
    void restore();

    QTableView &m_view;
    QVariant m_id;    ///< invalid when no row was current
    int m_column = 0; ///< of the current cell
};
