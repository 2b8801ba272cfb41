#include "library/dialogs/backuprestoredialog.h"

#include "library/dialogs/backupmodel.h"
#include "ui_backuprestoredialog.h"

#include <QEvent>

namespace brisel
{

BackupRestoreDialog::BackupRestoreDialog(const QList<BackupList::Line> &lines, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::BackupRestoreDialog>()),
      m_model(new BackupModel(lines, this))
{
    constexpr int nameWidth = 26; // percent of the window; the rest is for the note
    constexpr int pathWidth = 38;
    m_ui->setupUi(this);
    m_ui->songsTreeView->setModel(m_model);
    m_ui->songsTreeView->setColumnWidth(BackupModel::Name, width() * nameWidth / 100);
    m_ui->songsTreeView->setColumnWidth(BackupModel::Path, width() * pathWidth / 100);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &BackupRestoreDialog::updateButtons);
    updateButtons();
    m_ui->songsTreeView->setCurrentIndex(m_model->index(0, BackupModel::Name));
    m_ui->songsTreeView->setFocus();
}

BackupRestoreDialog::~BackupRestoreDialog() = default;

QList<BackupEntry> BackupRestoreDialog::chosen() const
{
    return m_model->checked();
}

void BackupRestoreDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

void BackupRestoreDialog::on_selectAllPushButton_clicked()
{
    m_model->checkAll(true);
}

void BackupRestoreDialog::on_selectNonePushButton_clicked()
{
    m_model->checkAll(false);
}

void BackupRestoreDialog::updateButtons()
{
    m_ui->restorePushButton->setEnabled(m_model->hasChecked());
}

} // namespace brisel
