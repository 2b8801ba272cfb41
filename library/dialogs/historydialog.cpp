#include "library/dialogs/historydialog.h"

#include "library/dialogs/historymodel.h"
#include "library/dialogs/reportdialog.h"
#include "library/dialogs/wheelguard.h"
#include "ui_historydialog.h"

#include <QEvent>
#include <QLocale>
#include <QMessageBox>
#include <QSet>

namespace brisel
{

HistoryDialog::HistoryDialog(History &history, int limit, QWidget *parent)
    : QDialog(parent), m_history(history), m_ui(std::make_unique<Ui::HistoryDialog>()),
      m_model(new HistoryModel(history, this))
{
    constexpr int whatWidth = 32; // percent of the window; the rest is for the state
    constexpr int textWidth = 17;
    m_ui->setupUi(this);
    new WheelGuard(*this);
    m_ui->limitSpinBox->setValue(limit);
    QTreeView *view = m_ui->historyTreeView;
    view->setModel(m_model);
    view->setColumnWidth(HistoryModel::What, width() * whatWidth / 100);
    view->setColumnWidth(HistoryModel::Before, width() * textWidth / 100);
    view->setColumnWidth(HistoryModel::After, width() * textWidth / 100);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &HistoryDialog::updateButtons);
    connect(m_model, &QAbstractItemModel::modelReset, this, &HistoryDialog::showState);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &HistoryDialog::showState);
    view->setCurrentIndex(m_model->index(0, HistoryModel::What));
    showState();
    view->setFocus();
}

HistoryDialog::~HistoryDialog() = default;

int HistoryDialog::limit() const
{
    return m_ui->limitSpinBox->value();
}

void HistoryDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_model->reload();
}

void HistoryDialog::showState()
{
    const QLocale locale;
    m_ui->sizeLabel->setText(tr("Spazio usato: %1 (al massimo %2)")
                                 .arg(locale.formattedDataSize(m_history.bytesUsed()),
                                      locale.formattedDataSize(m_history.limit())));
    QString message;
    if (const auto &trouble = m_model->trouble(); trouble.has_value())
        message = tr("La cronologia non si può leggere: %1").arg(trouble->text());
    else if (m_model->rowCount() == 0)
        message = tr("La cronologia è vuota: il programma non ha ancora modificato song");
    m_ui->messageLabel->setText(message);
    m_ui->messageLabel->setVisible(!message.isEmpty());
    m_ui->clearPushButton->setEnabled(m_model->rowCount() > 0 || m_model->trouble().has_value());
    updateButtons();
}

void HistoryDialog::updateButtons()
{
    const QList<QModelIndex> rows = selectedRows();
    m_ui->restorePushButton->setEnabled(!rows.isEmpty());
    m_ui->reportPushButton->setEnabled(rows.size() == 1 && m_model->runOf(rows.first()).hasReport);
}

QList<QModelIndex> HistoryDialog::selectedRows() const
{
    return m_ui->historyTreeView->selectionModel()->selectedRows();
}

void HistoryDialog::on_restorePushButton_clicked()
{
    QSet<qint64> known;
    QList<HistorySong> chosen;
    const QList<QModelIndex> rows = selectedRows();
    for (const QModelIndex &row : rows) {
        const QList<HistorySong> songs = m_model->songsOf(row);
        for (const HistorySong &song : songs) {
            if (!known.contains(song.id))
                chosen.append(song);
            known.insert(song.id);
        }
    }
    if (chosen.isEmpty()) // they could not be read
        return;
    m_chosen = chosen;
    accept();
}

void HistoryDialog::on_reportPushButton_clicked()
{
    const QList<QModelIndex> rows = selectedRows();
    if (rows.isEmpty())
        return;
    const QString text = m_history.report(m_model->runOf(rows.first()).id);
    if (const std::optional<Reason> trouble = m_history.trouble()) {
        QMessageBox::critical(this, windowTitle(),
                              tr("La cronologia non si può leggere: %1").arg(trouble->text()));
        return;
    }
    ReportDialog dialog(text, this);
    dialog.exec();
}

void HistoryDialog::on_clearPushButton_clicked()
{
    const int answer = QMessageBox::question(
        this, windowTitle(),
        tr("Vuotare la cronologia? Le modifiche fatte finora non si potranno più annullare."),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    const bool isCleared = m_history.clear();
    const std::optional<Reason> trouble = m_history.trouble();
    m_model->reload();
    if (!isCleared)
        QMessageBox::critical(this, windowTitle(),
                              trouble.has_value()
                                  ? tr("La cronologia non si può vuotare: %1").arg(trouble->text())
                                  : tr("La cronologia non si può vuotare"));
}

} // namespace brisel
