// The window's part in operations on one row: editing, the table's context menu, and the debug
// controls.

#include "app/libraryrun.h"
#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/dialogs/dataeditdialog.h"
#include "library/foundsong.h"
#include "library/manualedit.h"
#include "library/songactions.h"

#include "ui_mainwindow.h"

#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>

#include <utility>

namespace brisel
{

void MainWindow::onSongsTableViewDoubleClicked(const QModelIndex &index)
{
    if (index.row() >= 0 && canStartRun())
        editSong(index.row());
}

void MainWindow::editSong(int row)
{
    LibraryRun run(*this, RunReport::Operation::Edit);
    std::optional<SongFile> file = ManualEdit::open(run, *m_model, row);
    if (!file.has_value()) {
        run.publish();
        return;
    }
    DataEditDialog &dialog = editDialog();
    dialog.setKeysCombo(MetaSong::getKeysList());
    dialog.setOtherInfo(file->info);
    if (dialog.exec() != DataEditDialog::Accepted) {
        debug() << "Rejected!";
        file->info.dbgDump();
        return;
    }
    debug() << "Accepted";
    dialog.getInfo(file->info);
    file->info.dbgDump();
    const ManualEdit::Spread spread{dialog.isApplyToAllAuthor(), dialog.isApplyToAllArtist(),
                                    dialog.isApplyToAllGenre(), dialog.isApplyToAllFname()};
    ManualEdit edit(*m_model, file->song, file->info, file->path, row, spread);
    HistoryRecorder recorder(m_history, spread.any() ? RunKind::ApplyToAll : RunKind::Edit);
    edit.setRecorder(&recorder);
    static_cast<void>(edit.run(run)); // an interrupted edit shows its report, too
    run.publish();
    centreRow(row);
}

/// Has the catalogue's lists. Made on first use, so that the window opens sooner.
DataEditDialog &MainWindow::editDialog()
{
    if (m_editDialog == nullptr)
        m_editDialog = std::make_unique<DataEditDialog>(this);
    m_editDialog->setArtistsCombo(*m_database.artistsList());
    m_editDialog->setGenresCombo(*m_database.genresList());
    return *m_editDialog;
}

void MainWindow::manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row)
{
    if (m_model == nullptr)
        return;
    LibraryRun run(*this, RunReport::Operation::Edit);
    ManualEdit edit(*m_model, std::move(song), info, path, row, {});
    HistoryRecorder recorder(m_history, RunKind::Edit);
    edit.setRecorder(&recorder);
    static_cast<void>(edit.run(run));
    run.publish();
}

/// A view scrolls to no cell of a hidden column, such as the row's first one; and only the height
/// is to change.
void MainWindow::centreRow(int row)
{
    QTableView *view = m_ui->userLibraryTableView;
    const int left = view->horizontalScrollBar()->value();
    const QModelIndex index = m_model->rowIndex(row);
    int column = index.column();
    while (view->isColumnHidden(column) && column + 1 < m_model->columnCount())
        ++column;
    view->scrollTo(index.siblingAtColumn(column), QAbstractItemView::PositionAtCenter);
    view->horizontalScrollBar()->setValue(left);
}

/// Returns an invalid index if the search hides the row: keys must not work on hidden rows.
QModelIndex MainWindow::currentShownRow() const
{
    const QModelIndex current = m_ui->userLibraryTableView->currentIndex();
    return m_ui->userLibraryTableView->isRowHidden(current.row()) ? QModelIndex() : current;
}

void MainWindow::onSongsTableViewShowContextMenu(const QPoint &pos)
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this, RunReport::Operation::Edit);
    const QTableView *view = m_ui->userLibraryTableView;
    const QModelIndex index = view->indexAt(pos);
    QMenu menu(this);
    menu.addActions({m_ui->actionRemoveRow, m_ui->actionDeleteFile, m_ui->actionRestore});
    menu.setToolTipsVisible(true);
    for (QAction *action : menu.actions())
        action->setEnabled(index.isValid());
    std::optional<HistorySong> last;
    if (index.isValid())
        last = changeToRestore(m_model->fileName(index.row()), m_history);
    m_ui->actionRestore->setEnabled(last.has_value());
    const QAction *chosen = menu.exec(view->viewport()->mapToGlobal(pos));
    updateActions();
    if (chosen == nullptr || !index.isValid())
        return;
    if (chosen == m_ui->actionRemoveRow)
        removeRow(index.row());
    else if (chosen == m_ui->actionDeleteFile)
        askDeleteFile(index.row());
    else if (last.has_value())
        restore({*last});
}

/// Called by its key. From the context menu, which is a run, it works on the row of the menu.
void MainWindow::on_actionRemoveRow_triggered()
{
    const QModelIndex current = currentShownRow();
    if (current.isValid() && canStartRun())
        removeRow(current.row());
}

/// The file is kept, but no longer sent or backed up.
void MainWindow::removeRow(int row)
{
    const QString path = m_model->fileName(row);
    if (!m_model->removeRows(row, 1))
        return;
    m_fileList.removeOne(path);
    if (m_fileList.isEmpty())
        setPhase(Phase::NoFiles);
}

void MainWindow::askDeleteFile(int row)
{
    const int answer =
        QMessageBox::question(this, tr("Attenzione"), tr("Sei sicuro di voler cancellare il file?"),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    deleteSongFile(
        m_model->fileName(row)); // a file that can't be deleted is still removed from the list
    removeRow(row);
}

void MainWindow::on_dbgSavePushButton_clicked()
{
    if (!canStartRun())
        return;
    const int row = m_ui->userLibraryTableView->currentIndex().row();
    debug() << "[MainWindow] Saving row: " << row;
    saveTestCopy(m_model->fileName(row));
}

void MainWindow::on_dbgAddMarkerPushButton_clicked()
{
    if (!canStartRun())
        return;
    const int row = m_ui->userLibraryTableView->currentIndex().row();
    debug() << "[MainWindow] Adding marker to row: " << row;
    // The marker's bar is the row's number; the bar field of the debug group is not used.
    saveMarkedCopy(m_model->fileName(row), m_ui->dbgMarkerTextLineEdit->text(),
                   static_cast<unsigned short>(row));
}

void MainWindow::on_dbgShowDialogPushButton_clicked()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this, RunReport::Operation::Edit);
    DataEditDialog &dialog = editDialog();
    dialog.setOtherInfo(SongInfo());
    if (dialog.exec() == DataEditDialog::Accepted)
        debug() << "Accettato";
    else
        debug() << "Rifiutato";
}

} // namespace brisel
