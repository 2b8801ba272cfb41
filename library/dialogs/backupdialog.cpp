#include "library/dialogs/backupdialog.h"

#include "base/lastfolder.h"
#include "ui_backupdialog.h"

#include <QEvent>
#include <QFileDialog>

namespace brisel
{

BackupDialog::BackupDialog(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::BackupDialog>())
{
    m_ui->setupUi(this);
    // Without a folder no backup can start: Enter opens the folder dialog first.
    m_ui->browsePushButton->setFocus();
}

BackupDialog::~BackupDialog() = default;

void BackupDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    retranslateHistory();
}

void BackupDialog::showHistoryTrouble(const Reason &reason)
{
    m_historyTrouble = reason;
    retranslateHistory();
}

void BackupDialog::retranslateHistory()
{
    m_ui->historyLabel->setVisible(m_historyTrouble.has_value());
    if (m_historyTrouble.has_value())
        m_ui->historyLabel->setText(tr("La cronologia non può conservare queste modifiche: %1")
                                        .arg(m_historyTrouble->text()));
}

void BackupDialog::on_browsePushButton_clicked()
{
    const QString chosen = QFileDialog::getExistingDirectory(
        this, tr("Scegli cartella"), startFolder(Settings::backupFolder, QStringLiteral("/home")));
    if (chosen.isEmpty())
        return;
    keepFolder(Settings::backupFolder, chosen);
    m_directory = chosen;
    m_ui->directoryLineEdit->setText(chosen);
    m_ui->doBackupPushButton->setFocus();
}

} // namespace brisel
