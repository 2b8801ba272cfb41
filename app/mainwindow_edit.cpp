// The window's part in editing songs by hand, the table's context menu, and the debug controls.

#include "app/mainwindow.h"

#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "library/dialogs/dataeditdialog.h"
#include "library/manualedit.h"
#include "library/songfailure.h"
#include "songfile/metasong.h"

#include "ui_mainwindow.h"

#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>

void MainWindow::onSongsTableViewDoubleClicked(const QModelIndex &index)
{
    if (index.row() < 0 || !canStartRun())
        return;
    const LibraryRun run(*this);
    editSong(index.row());
}

void MainWindow::editSong(int row)
{
    const QString path = m_model->fileName(row);
    debug() << "File name: " << path;
    debug() << "[MainWindow] Manual modifing row: " << row; // the log has always spelt it so
    MetaSong song;
    m_statusLine->beginRun(RunReport::Operation::Edit);
    if (!song.importFile(path)) {
        RunReport report;
        report.add(RunReport::Step::Read, path, whyNoSong(song, path));
        m_statusLine->addReport(report);
        return;
    }
    SongInfo info;
    song.getSongInfo(info);
    info.fileName = path;
    DataEditDialog &dialog = editDialog();
    dialog.setArtistsCombo(*m_database.artistsList());
    dialog.setGenresCombo(*m_database.genresList());
    dialog.setKeysCombo(MetaSong::getKeysList());
    dialog.setOtherInfo(info);
    if (dialog.exec() != DataEditDialog::Accepted) {
        debug() << "Rejected!";
        info.dbgDump();
        return;
    }
    debug() << "Accepted";
    dialog.getInfo(info);
    info.dbgDump();
    manualModifySong(song, info, path, row);
    spreadEdit(info, row);
    centreRow(row);
}

/// Made when it is first needed: the window opens sooner without it.
DataEditDialog &MainWindow::editDialog()
{
    if (m_editDialog == nullptr)
        m_editDialog = std::make_unique<DataEditDialog>(this);
    return *m_editDialog;
}

void MainWindow::manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row)
{
    if (m_model == nullptr)
        return;
    ManualEdit edit(*m_model);
    edit.modifySong(song, info, path, row);
    m_statusLine->addReport(edit.report());
}

void MainWindow::spreadEdit(const SongInfo &edited, int row)
{
    const ManualEdit::Spread spread{
        m_editDialog->isApplyToAllAuthor(), m_editDialog->isApplyToAllArtist(),
        m_editDialog->isApplyToAllGenre(), m_editDialog->isApplyToAllFname()};
    if (!spread.any())
        return;
    m_progress.begin(tr("Aggiornamento file"), tr("Aggiorno la libreria..."),
                     m_model->goodRowCount());
    ManualEdit edit(*m_model);
    edit.spreadOverList(edited, row, spread, m_progress);
    m_progress.end();
    m_statusLine->addReport(edit.report());
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

void MainWindow::onSongsTableViewShowContextMenu(const QPoint &pos)
{
    const QTableView *view = m_ui->userLibraryTableView;
    const QModelIndex index = view->indexAt(pos);
    if (!canStartRun())
        return;
    const LibraryRun run(*this);
    QMenu menu(this);
    QAction *removeAction = menu.addAction(tr("Remove from list"));
    QAction *deleteAction = menu.addAction(tr("Delete file"));
    menu.setToolTipsVisible(true);
    removeAction->setToolTip(tr("Toglie la riga dalla tabella; il file resta sul disco (Canc)"));
    deleteAction->setToolTip(tr("Cancella il file dal disco, dopo una domanda"));
    for (QAction *action : menu.actions())
        action->setEnabled(index.isValid());
    const QAction *chosen = menu.exec(view->viewport()->mapToGlobal(pos));
    if (chosen == nullptr || !index.isValid())
        return;
    if (chosen == removeAction)
        removeRow(index.row());
    else if (chosen == deleteAction)
        deleteSongFile(index.row());
}

void MainWindow::deleteSongFile(int row)
{
    const int answer =
        QMessageBox::question(this, tr("Attenzione"), tr("Sei sicuro di voler cancellare il file?"),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    // A file that can't be deleted leaves the list all the same.
    QFile::remove(m_model->fileName(row));
    removeRow(row);
}

/// The file stays, but is neither sent nor backed up any more.
void MainWindow::removeRow(int row)
{
    const QString path = m_model->fileName(row);
    if (!m_model->removeRows(row, 1))
        return;
    m_fileList.removeOne(path);
    if (m_fileList.isEmpty()) {
        m_ui->updateDataToolButton->setEnabled(false);
        m_ui->transferFilesToolButton->setEnabled(false);
    }
}

void MainWindow::on_dbgSavePushButton_clicked()
{
    if (!canStartRun())
        return;
    const int row = m_ui->userLibraryTableView->currentIndex().row();
    debug() << "[MainWindow] Saving row: " << row;
    const QString path = QStringLiteral("test_save.bin");
    MetaSong song;
    (void)song.importFile(m_model->fileName(row)); // what is not a song is not saved
    debug() << "Saving to file: " << path;
    if (song.saveToFile(path))
        debug() << "Ok";
    else
        debug() << "Error!";
}

void MainWindow::on_dbgAddMarkerPushButton_clicked()
{
    if (!canStartRun())
        return;
    const int row = m_ui->userLibraryTableView->currentIndex().row();
    debug() << "[MainWindow] Adding marker to row: " << row;
    MetaSong song;
    (void)song.importFile(m_model->fileName(row)); // what is not a song is not saved
    // The marker's bar is the row's number; the bar field of the debug group says nothing here.
    if (song.dbgAddMarker(m_ui->dbgMarkerTextLineEdit->text(), static_cast<unsigned short>(row)) <
        1)
        debug() << "Error!";
    else
        debug() << "Ok";
    const QString path = QStringLiteral("test_addmarker.bin");
    debug() << "Saving to file: " << path;
    (void)song.saveToFile(path); // logs its failure
}

void MainWindow::on_dbgShowDialogPushButton_clicked()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this);
    DataEditDialog &dialog = editDialog();
    dialog.setArtistsCombo(*m_database.artistsList());
    dialog.setGenresCombo(*m_database.genresList());
    dialog.setOtherInfo(SongInfo());
    if (dialog.exec() == DataEditDialog::Accepted)
        debug() << "Accettato";
    else
        debug() << "Rifiutato";
}
