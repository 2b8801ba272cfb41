#pragma once

#include <QLabel>

class QTableView;

namespace brisel
{

/// Explains in the middle of a table why it shows no rows. Passes clicks and drops on to the table.
class EmptyTableHint : public QLabel
{
    Q_OBJECT

public:
    /// Owned by \a view.
    explicit EmptyTableHint(QTableView &view);

    /// Shows \a text; an empty one hides the hint.
    void showText(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace brisel
