#pragma once

#include <QObject>
#include <QSet>
#include <QVariant>

#include <optional>

class QTableView;

namespace brisel
{

/// Keeps the current row of a table current, and its selected rows selected, when its model is read
/// again, as for a sort: the row is found again by the value in its first column, and stays at its
/// place on the screen if it was in sight. If it is gone there is no current row.
class CurrentRowKeeper : public QObject
{
    Q_OBJECT

public:
    /// \a view has its model. Owned by the view.
    explicit CurrentRowKeeper(QTableView &view);

private:
    void remember();
    void rememberSelection();
    void restore();
    void restoreCurrent();
    void restoreSelection();
    void scrollBack(int row);

    QTableView &m_view;
    QSet<qlonglong>
        m_selected;   ///< the values of the selected rows; empty for the current one alone
    QVariant m_id;    ///< invalid when no row was current
    int m_column = 0; ///< of the current cell
    std::optional<int>
        m_above; ///< shown rows between it and the top of the view, if it is in sight
};

} // namespace brisel
