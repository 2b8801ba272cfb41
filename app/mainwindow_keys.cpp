// The window's keys besides those that its menus name.

#include "app/mainwindow.h"

#include "db/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QShortcut>

/// Without a mouse there is no other way to the picking of songs and to a row's actions.
void MainWindow::connectKeys()
{
    const auto connectKey = [this](const QKeySequence &key, QWidget *widget,
                                   Qt::ShortcutContext context, auto act) {
        auto *shortcut = new QShortcut(key, widget);
        shortcut->setContext(context);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    connectKey(QKeySequence::Open, this, Qt::WindowShortcut,
               [this] { on_selectDirToolButton_clicked(); });
    QTableView *view = m_ui->userLibraryTableView;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        connectKey(key, view, Qt::WidgetShortcut,
                   [this] { onSongsTableViewDoubleClicked(currentShownRow()); });
    connectKey(QKeySequence::Delete, view, Qt::WidgetShortcut, [this] { removeCurrentRow(); });
}

/// None when the search hides it: no key may work on a row that is not seen.
QModelIndex MainWindow::currentShownRow() const
{
    const QModelIndex current = m_ui->userLibraryTableView->currentIndex();
    return m_ui->userLibraryTableView->isRowHidden(current.row()) ? QModelIndex() : current;
}

/// As "Remove from list" does.
void MainWindow::removeCurrentRow()
{
    const QModelIndex current = currentShownRow();
    if (current.isValid() && canStartRun())
        removeRow(current.row());
}
