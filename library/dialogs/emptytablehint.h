#pragma once

#include <QLabel>

class QAction;
class QTableView;
class QToolButton;

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
    /// Shows a button for \a action below the text while that is shown and the action is enabled.
    void offer(QAction &action);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();

    QToolButton *m_button = nullptr; ///< beside the label, which does not take clicks
};

} // namespace brisel
