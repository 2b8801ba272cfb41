#pragma once

#include "library/backuplist.h"

#include <QDialog>
#include <QList>

#include <memory>

namespace brisel
{

class BackupModel;

namespace Ui
{
class BackupRestoreDialog;
}

/// Shows the copies of a backup, and lets the user choose those that are put back.
class BackupRestoreDialog : public QDialog
{
    Q_OBJECT

public:
    explicit BackupRestoreDialog(const QList<BackupList::Line> &lines, QWidget *parent = nullptr);
    ~BackupRestoreDialog() override;

    /// The copies that are to be restored, if the dialog was accepted.
    QList<BackupEntry> chosen() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_selectAllPushButton_clicked();
    void on_selectNonePushButton_clicked();

private:
    void updateButtons();

    std::unique_ptr<Ui::BackupRestoreDialog> m_ui;
    BackupModel *m_model;
};

} // namespace brisel
