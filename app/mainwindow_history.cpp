// The window's part in taking changes back.

#include "app/libraryrun.h"
#include "history/historyrecorder.h"
#include "library/dialogs/historydialog.h"
#include "library/restore.h"

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

void MainWindow::limitHistory()
{
    constexpr qint64 mebibyte = 1024 * 1024;
    m_history.setLimit(Settings::historyLimit.in(m_settings)*mebibyte);
}

void MainWindow::restore(const QList<HistorySong> &songs)
{
    LibraryRun run(*this, RunReport::Operation::Restore);
    HistoryRecorder recorder(m_history, RunKind::Restore);
    Restore restore(*m_model, m_history, songs, &recorder);
    static_cast<void>(restore.run(run)); // an interrupted one shows its report, too
    run.publish();
}

} // namespace brisel
