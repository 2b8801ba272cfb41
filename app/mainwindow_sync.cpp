// The window's part in the synchronisation with the catalogue, and the backup before it.

#include "app/mainwindow.h"

#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "library/backup.h"
#include "library/dialogs/backupdialog.h"
#include "library/dialogs/nocopyrightdialog.h"
#include "library/dialogs/proceeddialog.h"
#include "library/libraryimport.h"
#include "library/synchroniser.h"
#include "library/workflowlog.h"

#include "ui_mainwindow.h"

#include <QDateTime>
#include <QMessageBox>

void MainWindow::on_updateDataToolButton_clicked()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this);
    m_ui->updateDataToolButton->setEnabled(false);
    m_ui->transferFilesToolButton->setEnabled(false);
    // A library that is in line stays so until the next import.
    if (!updateUserLibrary())
        m_ui->updateDataToolButton->setEnabled(true);
    m_ui->transferFilesToolButton->setEnabled(true);
}

/// The summary of an import. True when the library was synchronised then and there.
bool MainWindow::offerSynchronisation(const SongCounts &counts)
{
    if (!isCopyrightAskOn())
        return false;
    ProceedDialog dialog(this);
    dialog.setFilesCount(counts.songs, counts.publisherSongs, counts.unknown);
    const bool accepted = dialog.exec() == ProceedDialog::Yes;
    enableCopyrightMessage(dialog.getShowAgainValue());
    if (!accepted)
        return false;
    m_statusLine->continueRun(RunReport::Operation::Synchronisation);
    return synchroniseLibrary();
}

bool MainWindow::updateUserLibrary()
{
    m_statusLine->beginRun(RunReport::Operation::Synchronisation);
    return synchroniseLibrary();
}

bool MainWindow::synchroniseLibrary()
{
    if (m_model == nullptr)
        return false;
    const LibraryRun run(*this);
    logBanner("UPDATE USER LIBRARY");
    const int count = m_model->goodRowCount();
    if (count < 1) {
        debug() << "[UPDATE] WARNING: Empty table. Aborting update !!!";
        return false;
    }
    if (!suggestBackup() || RunGuard::endRequested())
        return false;

    m_database.prepareLookUps();
    m_progress.begin(tr("Aggiornamento file"), tr("Aggiorno la libreria..."), count);
    Synchroniser synchroniser(
        *m_model, m_database, isCopyrightAskOn(),
        [this](const QString &fileName) { return askAboutFile(fileName, QString()); });
    const bool done = synchroniser.updateRows(m_progress);
    m_progress.end();
    m_statusLine->addReport(synchroniser.report());
    adjustUserLibraryHeaders(); // the catalogue's texts may be longer than the files' own
    return done;
}

bool MainWindow::updateFileWithDb(int row)
{
    if (m_model == nullptr)
        return false;
    const LibraryRun run(*this);
    Synchroniser synchroniser(
        *m_model, m_database, isCopyrightAskOn(),
        [this](const QString &fileName) { return askAboutFile(fileName, QString()); });
    const bool updated = synchroniser.updateFileWithDb(row);
    m_statusLine->beginRun(RunReport::Operation::Synchronisation);
    m_statusLine->addReport(synchroniser.report());
    return updated;
}

bool MainWindow::suggestBackup()
{
    BackupDialog dialog(this);
    switch (dialog.exec()) {
    case BackupDialog::NoBackup:
        return true;
    case BackupDialog::DoBackup:
        return backUpPickedFiles(dialog.directory());
    default:
        return false;
    }
}

bool MainWindow::backUpPickedFiles(const QString &chosen)
{
    const QString title = tr("Backup");
    QString folder;
    if (!chosen.isEmpty()) {
        logBanner("BACKUP USER LIBRARY");
        folder = makeBackupFolder(chosen, QDateTime::currentDateTime());
    }
    if (folder.isEmpty()) {
        QMessageBox::critical(this, title, tr("Backup FALLITO !!!"));
        return false;
    }
    // "dellla": users and their support know the text as it is.
    m_statusLine->addReport(RunReport(RunReport::Operation::Backup));
    m_progress.begin(title, tr("Eseguo backup dellla libreria..."),
                     static_cast<int>(m_fileList.size()));
    int copied = 0;
    const bool done = copyFiles(folder, copied);
    m_progress.end();
    if (RunGuard::endRequested())
        return false;
    if (done)
        QMessageBox::information(this, title, tr("Backup eseguito correttamente"));
    else
        QMessageBox::critical(this, title, tr("Backup FALLITO !!!"));
    debug() << "";
    return true;
}

/// The four-way question; an empty message leaves the preset one, about the publisher.
int MainWindow::askAboutFile(const QString &path, const QString &message)
{
    NoCopyrightDialog dialog(this);
    dialog.setFilename(path);
    if (!message.isEmpty())
        dialog.setMessage(message);
    return dialog.exec();
}

void MainWindow::on_dbgBackupPushButton_clicked()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this);
    m_statusLine->beginRun(RunReport::Operation::Backup);
    suggestBackup();
}
