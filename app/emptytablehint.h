#pragma once

#include <QLabel>

class QTableView;

/// A text in the middle of a table that shows no rows, which says why. Clicks and drops go through
/// to the table.
class EmptyTableHint : public QLabel
{
    Q_OBJECT

public:
    /// Belongs to \a view.
    explicit EmptyTableHint(QTableView &view);

    /// Shows \a text; an empty one hides the hint.
    void tell(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
