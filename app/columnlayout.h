#pragma once

#include <QHash>
#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QSettings;
class QTableView;

namespace brisel
{

class UserSongsRelTableModel;

/// The columns of the library's table as the user arranges them: which are shown, their order and
/// widths, and the sorting. They are stored when the window is closed, and used by the next start.
///
/// Columns are stored by their names, so that a state of another version of the program keeps its
/// meaning. What does not make sense in a stored state is ignored.
class ColumnLayout : public QObject
{
    Q_OBJECT

public:
    /// Offers the columns in \a menu, before its other entries, and by a right click on the heading
    /// of \a view, which shows \a model. Owned by the view.
    ColumnLayout(QTableView &view, UserSongsRelTableModel &model, QMenu &menu);

    /// Makes the columns as wide as their contents, except those with a width that the user has
    /// chosen. If they need more room than there is, the widest are made narrower, but not
    /// narrower than their headings.
    void fit();
    /// Shows the columns as a first start does.
    void reset();

    /// Arranges the columns as in \a settings.
    void restore(const QSettings &settings);
    void store(QSettings &settings) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeActions(QMenu &menu);
    void showFirst();
    void retranslate(int first, int last);
    void showColumn(int column, bool on);
    void arrange(const QByteArray &state);
    void updateActions();
    QString nameOf(int column) const;

    QTableView &m_view;
    UserSongsRelTableModel &m_model;
    QList<int> m_columns;           ///< those that can be shown, in their first order
    QList<QAction *> m_actions;     ///< one for each of them
    QHash<int, int> m_chosenWidths; ///< of the columns that the user has made wider or narrower
    bool m_isDragging = false;      ///< a mouse button is down on the heading
};

} // namespace brisel
