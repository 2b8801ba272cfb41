// The window's part in the runs over the library: import, synchronisation and backup.

#include "app/libraryrun.h"
#include "app/songlistener.h"
#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/cataloguesearch.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/backup.h"
#include "library/dialogs/backupdialog.h"
#include "library/dialogs/previewdialog.h"
#include "library/dialogs/proceeddialog.h"
#include "library/folderscan.h"
#include "library/foldertreebackup.h"
#include "library/libraryimport.h"
#include "library/songchanges.h"
#include "library/synchroniser.h"
#include "library/syncpreview.h"

#include "ui_mainwindow.h"

#include <QMessageBox>

namespace brisel
{

using Operation = RunReport::Operation;

void MainWindow::importUserLibrary()
{
    importAfter(0);
}

void MainWindow::importAfter(qint64 searched)
{
    if (!canStartRun())
        return;
    LibraryImport import(m_database, *m_model, m_fileList);
    {
        LibraryRun run(*this, Operation::Import);
        run.continueAfter(searched);
        if (import.run(run) != LibraryImport::Outcome::Done)
            return;
    }
    adjustUserLibraryHeaders();
    if (!offerSynchronisation(import.counts()))
        setPhase(Phase::Imported);
}

void MainWindow::filesCount(const QString &dir, int &count) const
{
    count += FolderScan::filesCount(dir);
}

void MainWindow::scanDir(const QString &dir, int &songs, int &publisherSongs, int &unknown)
{
    if (!canStartRun())
        return;
    LibraryRun run(*this, Operation::Import);
    m_ui->userLibraryTableView->setUpdatesEnabled(false);
    const SongCounts counts = FolderScan(*m_model, dir, {songs, publisherSongs, unknown}).run(run);
    run.end();
    songs = counts.songs;
    publisherSongs = counts.publisherSongs;
    unknown = counts.unknown;
}

void MainWindow::updateProgress(int value)
{
    if (m_run != nullptr)
        m_run->setStep(value);
}

void MainWindow::on_updateDataToolButton_clicked()
{
    if (!canStartRun())
        return;
    setPhase(Phase::Working);
    setPhase(updateUserLibrary() ? Phase::Sendable : Phase::Imported);
}

bool MainWindow::updateUserLibrary()
{
    LibraryRun run(*this, Operation::Synchronisation);
    return synchronise(run);
}

/// The summary of an import. Returns true if it was followed by a synchronisation.
bool MainWindow::offerSynchronisation(const SongCounts &counts)
{
    if (!isCopyrightAskOn())
        return false;
    ProceedDialog dialog(this);
    dialog.setFilesCount(counts.songs, counts.publisherSongs, counts.unknown);
    const bool isAccepted = dialog.exec() == ProceedDialog::Yes;
    enableCopyrightMessage(dialog.getShowAgainValue());
    if (!isAccepted)
        return false;
    LibraryRun run(*this, Operation::Synchronisation, m_statusLine->report());
    return synchronise(run);
}

bool MainWindow::synchronise(LibraryRun &run, const SyncPlan *plan)
{
    if (m_model == nullptr)
        return false;
    Synchroniser synchroniser(*m_model, m_database, isCopyrightAskOn());
    HistoryRecorder recorder(m_history, RunKind::Synchronisation);
    synchroniser.setRecorder(&recorder);
    if (plan != nullptr)
        synchroniser.setPlan(*plan);
    if (!synchroniser.announce() || !offerBackup(run) || Run::isEnding())
        return false;
    const bool isDone = synchroniser.run(run) == Synchroniser::Outcome::Done;
    adjustUserLibraryHeaders(); // the catalogue's texts may be longer than the files' own
    return isDone;
}

void MainWindow::on_actionPreview_triggered()
{
    if (!canStartRun() || m_phase != Phase::Imported)
        return;
    LibraryRun run(*this, Operation::Synchronisation);
    const std::optional<SyncPlan> plan = previewedPlan();
    if (!plan.has_value() || Run::isEnding())
        return;
    const bool isDone = synchronise(run, &*plan);
    const int updated = run.report().counted(RunReport::Success::Updated);
    if (isDone && updated == m_model->goodRowCount())
        setPhase(Phase::Sendable);
}

/// Shows the preview and returns what the user wants to write, if anything.
std::optional<SyncPlan> MainWindow::previewedPlan()
{
    SyncPreview preview(*m_model, m_database);
    {
        WindowRun run(this, Operation::Synchronisation); // reports nothing: the last report stays
        if (preview.run(run) != SyncPreview::Outcome::Done)
            return std::nullopt;
    }
    CatalogueSearch search(m_database);
    PreviewDialog dialog(preview, search, !isCopyrightAskOn(), this);
    if (dialog.exec() != PreviewDialog::Accepted)
        return std::nullopt;
    return dialog.plan();
}

bool MainWindow::updateFileWithDb(int row)
{
    if (m_model == nullptr)
        return false;
    m_listener->stop();
    LibraryRun run(*this, Operation::Synchronisation);
    Synchroniser synchroniser(*m_model, m_database, isCopyrightAskOn());
    HistoryRecorder recorder(m_history, RunKind::Synchronisation);
    synchroniser.setRecorder(&recorder);
    const bool isUpdated = synchroniser.updateFileWithDb(run, row);
    run.publish();
    return isUpdated;
}

void MainWindow::on_dbgBackupPushButton_clicked()
{
    if (canStartRun())
        suggestBackup();
}

bool MainWindow::suggestBackup()
{
    LibraryRun run(*this, Operation::Backup);
    return offerBackup(run);
}

bool MainWindow::offerBackup(LibraryRun &run)
{
    BackupDialog dialog(this);
    if (const std::optional<Reason> reason = m_history.whyUnusable(historyBytes(m_fileList)))
        dialog.showHistoryTrouble(*reason);
    const int answer = dialog.exec();
    if (answer != BackupDialog::DoBackup)
        return answer == BackupDialog::NoBackup;
    const Backup::Outcome outcome = Backup(m_fileList, dialog.directory()).run(run);
    if (outcome == Backup::Outcome::Ended)
        return false;
    if (outcome == Backup::Outcome::Done)
        QMessageBox::information(this, tr("Backup"), tr("Backup eseguito correttamente"));
    else
        QMessageBox::critical(this, tr("Backup"), tr("Backup FALLITO !!!"));
    if (outcome == Backup::Outcome::NoFolder)
        return false;
    debug() << "";
    return true;
}

bool MainWindow::backupDirectory(const QString &source, const QString &dest, int &count)
{
    LibraryRun run(*this, Operation::Backup);
    FolderTreeBackup backup(source, dest, count);
    const bool isDone = backup.run(run);
    count = backup.count();
    return isDone;
}

} // namespace brisel
