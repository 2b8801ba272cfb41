// The window's hidden controls for diagnosis.

#include "app/libraryrun.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "library/dialogs/dataeditdialog.h"
#include "library/songactions.h"

#include "ui_mainwindow.h"

namespace brisel
{

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
