// The window's part in taking changes back.

#include "app/libraryrun.h"
#include "history/historyrecorder.h"
#include "library/backuprestore.h"
#include "library/dialogs/backuprestoredialog.h"
#include "library/dialogs/historydialog.h"
#include "library/restore.h"

#include <QFileDialog>
#include <QMessageBox>

namespace brisel
{

void MainWindow::on_actionHistory_triggered()
{
    if (!canStartRun())
        return;
    HistoryDialog dialog(m_history, Settings::historyLimit.in(m_settings), this);
    const int before = dialog.limit();
    dialog.exec();
    if (dialog.limit() != before) {
        Settings::historyLimit.store(m_settings, dialog.limit());
        limitHistory();
    }
    if (!dialog.chosen().isEmpty() && canStartRun())
        restore(dialog.chosen());
}

void MainWindow::on_actionRestoreBackup_triggered()
{
    if (!canStartRun())
        return;
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Scegli cartella"), QStringLiteral("/home"));
    if (folder.isEmpty())
        return;
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

void MainWindow::limitHistory()
{
    constexpr qint64 mebibyte = 1024 * 1024;
    m_history.setLimit(Settings::historyLimit.in(m_settings)*mebibyte);
}

void MainWindow::restore(const QList<HistorySong> &songs)
{
    LibraryRun run(*this, RunReport::Operation::Restore);
    HistoryRecorder recorder(m_history, RunKind::Restore);
    Restore workflow(*m_model, m_history, songs, &recorder);
    static_cast<void>(workflow.run(run)); // an interrupted one shows its report, too
    run.publish();
}

} // namespace brisel
