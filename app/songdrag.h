#pragma once

#include <QObject>

class QTableView;

namespace brisel
{

/// Lets the user drag the selected rows of a table into another window or program. A press on any
/// other row selects with the mouse, as without dragging.
class SongDrag : public QObject
{
    Q_OBJECT

public:
    /// Owned by \a view.
    explicit SongDrag(QTableView &view);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTableView &m_view;
};

} // namespace brisel
