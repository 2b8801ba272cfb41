#pragma once

#include "base/reason.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace brisel
{

namespace Ui
{
class BackupDialog;
}

/// Offers a backup of the picked files before a synchronisation changes them.
class BackupDialog : public QDialog
{
    Q_OBJECT

public:
    /// The results of exec(). Closing the dialog counts as Abort.
    enum Answer { Abort = 0, DoBackup = 1, NoBackup = 2 };

    explicit BackupDialog(QWidget *parent = nullptr);
    ~BackupDialog() override;

    /// Warns that the changes can't be taken back by the history, because of \a reason.
    void showHistoryTrouble(const Reason &reason);

    /// The folder that the user chose for the backup; empty if none was chosen.
    QString directory() const { return m_directory; }

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_browsePushButton_clicked();
    void on_abortPushButton_clicked() { done(Abort); }
    void on_doBackupPushButton_clicked() { done(DoBackup); }
    void on_exitPushButton_clicked() { done(NoBackup); }

private:
    void retranslateHistory();

    std::unique_ptr<Ui::BackupDialog> m_ui;
    std::optional<Reason> m_historyTrouble;
    QString m_directory;
};

} // namespace brisel
