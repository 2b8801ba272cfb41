// The window's part in taking changes back.

#include "app/libraryrun.h"
#include "base/filefailure.h"
#include "base/lastfolder.h"
#include "history/historyrecorder.h"
#include "library/backuprestore.h"
#include "library/dialogs/backuprestoredialog.h"
#include "library/dialogs/historydialog.h"
#include "library/restore.h"

#include <QFileDialog>
#include <QMessageBox>

namespace brisel
{

static constexpr qint64 mebibyte = 1024 * 1024; // bytes

void MainWindow::on_actionHistory_triggered()
{
    if (!canStartRun())
        return;
    HistoryDialog dialog(m_history, Settings::historyLimit.in(m_settings), this);
    const int before = dialog.limit();
    dialog.exec();
    if (dialog.limit() != before)
        changeHistoryLimit(dialog.limit());
    if (!dialog.chosen().isEmpty() && canStartRun())
        restore(dialog.chosen());
}

void MainWindow::on_actionRestoreBackup_triggered()
{
    if (!canStartRun())
        return;
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Scegli cartella"), startFolder(Settings::backupFolder, QStringLiteral("/home")));
    if (folder.isEmpty())
        return;
    keepFolder(Settings::backupFolder, folder);
    const std::optional<QList<BackupList::Line>> lines = BackupList::read(folder);
    if (!lines.has_value()) {
        QMessageBox::critical(this, tr("Ripristina backup"),
                              tr("La cartella non contiene un backup che si possa ripristinare: %1")
                                  .arg(BackupList::unreadable.text()));
        return;
    }
    BackupRestoreDialog dialog(*lines, this);
    if (dialog.exec() != QDialog::Accepted || !canStartRun())
        return;
    LibraryRun run(*this, RunReport::Operation::Restore);
    HistoryRecorder recorder(m_history, RunKind::Restore);
    BackupRestore workflow(*m_model, m_history, folder, dialog.chosen(), &recorder);
    static_cast<void>(workflow.run(run)); // an interrupted one shows its report, too
    run.publish();
}

/// \a limit: in MiB.
void MainWindow::changeHistoryLimit(int limit)
{
    if (limit * mebibyte < m_history.bytesUsed() &&
        QMessageBox::question(this, tr("Cronologia modifiche"),
                              tr("Con %1 MiB le operazioni più vecchie verranno eliminate dalla "
                                 "cronologia. Continuare?")
                                  .arg(limit),
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) != QMessageBox::Yes)
        return;
    Settings::historyLimit.store(m_settings, limit);
    limitHistory();
    if (!m_history.trim())
        QMessageBox::warning(this, tr("Cronologia modifiche"),
                             m_history.trouble().value_or(FileReason::unwritable).text());
}

void MainWindow::limitHistory()
{
    m_history.setLimit(Settings::historyLimit.in(m_settings)*mebibyte);
}

/// After a search that took \a searched milliseconds.
void MainWindow::restore(const QList<HistorySong> &songs, qint64 searched)
{
    LibraryRun run(*this, RunReport::Operation::Restore);
    run.continueAfter(searched);
    HistoryRecorder recorder(m_history, RunKind::Restore);
    Restore workflow(*m_model, m_history, songs, &recorder);
    static_cast<void>(workflow.run(run)); // an interrupted one shows its report, too
    run.publish();
}

} // namespace brisel
