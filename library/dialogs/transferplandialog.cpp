#include "library/dialogs/transferplandialog.h"

#include "library/dialogs/emptytablehint.h"
#include "library/dialogs/spacetick.h"
#include "library/dialogs/transferplanmodel.h"
#include "library/dialogs/wheelguard.h"
#include "ui_transferplandialog.h"

#include <QEvent>
#include <QHeaderView>

#include <algorithm>

namespace brisel
{

TransferPlanDialog::TransferPlanDialog(TransferPlan &plan, qint64 speed, QWidget *parent)
    : QDialog(parent), m_plan(plan), m_speed(speed), m_model(new TransferPlanModel(plan, this)),
      m_ui(std::make_unique<Ui::TransferPlanDialog>())
{
    m_ui->setupUi(this);
    new WheelGuard(*this);
    QTableView *view = m_ui->planTableView;
    view->setModel(m_model);
    new SpaceTick(*view, TransferPlanModel::SongColumn);
    // No row is measured: a memory takes 65,535 songs.
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 8);
    fitColumns();
    m_hint = new EmptyTableHint(*view);
    connect(m_model, &TransferPlanModel::ticksChanged, this, &TransferPlanDialog::showSums);
    showSums();
    showFirstRow();
    view->setFocus();
}

TransferPlanDialog::~TransferPlanDialog() = default;

void TransferPlanDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_model->retranslate();
    fitColumns();
    showSums();
    m_hint->showText(m_model->rowCount() == 0 ? tr("Nessuna song da mostrare") : QString());
}

void TransferPlanDialog::on_filterComboBox_currentIndexChanged(int number)
{
    m_model->setFilter(static_cast<TransferPlanModel::Filter>(number));
    showFirstRow();
}

void TransferPlanDialog::on_selectAllPushButton_clicked()
{
    m_model->tickShown(true);
}

void TransferPlanDialog::on_selectNonePushButton_clicked()
{
    m_model->tickShown(false);
}

/// Sizes are short; the texts get the space.
void TransferPlanDialog::fitColumns()
{
    constexpr int sizeCharacters = 14;
    QHeaderView *header = m_ui->planTableView->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(TransferPlanModel::SizeColumn, QHeaderView::Interactive);
    header->resizeSection(TransferPlanModel::SizeColumn,
                          std::max(fontMetrics().averageCharWidth() * sizeCharacters,
                                   header->sectionSizeHint(TransferPlanModel::SizeColumn)));
}

void TransferPlanDialog::showFirstRow()
{
    m_ui->planTableView->setCurrentIndex(m_model->index(0, TransferPlanModel::SongColumn));
    m_hint->showText(m_model->rowCount() == 0 ? tr("Nessuna song da mostrare") : QString());
}

void TransferPlanDialog::showSums()
{
    m_ui->countLabel->setText(countText());
    m_ui->roomLabel->setText(roomText());
    m_ui->timeLabel->setText(timeText());
    m_ui->copyPushButton->setEnabled(m_plan.ticked() > 0 && m_plan.room().isEnough());
}

QString TransferPlanDialog::countText() const
{
    using Outcome = TransferPlan::Outcome;
    QStringList counts{tr("%n da copiare", "", m_plan.ticked()),
                       tr("%n nuove", "", m_plan.count(Outcome::New)),
                       tr("%n uguali", "", m_plan.count(Outcome::Same)),
                       tr("%n sostituiscono", "",
                          m_plan.count(Outcome::Replaces) + m_plan.count(Outcome::ReplacesSong)),
                       tr("%n non ci stanno", "", m_plan.count(Outcome::NoRoom))};
    if (const int failed = m_plan.count(Outcome::Failed); failed > 0)
        counts.append(tr("%n non si possono copiare", "", failed));
    if (const int shortened = m_plan.shortened(); shortened > 0)
        counts.append(tr("%n con un nome più corto", "", shortened));
    return counts.join(QStringLiteral(", "));
}

QString TransferPlanDialog::roomText() const
{
    const CopyRoom &room = m_plan.room();
    if (!room.isEnough())
        return room.shortage();
    return room.free() < 0
               ? QString()
               : tr("Spazio: servono %1, liberi %2")
                     .arg(CopyRoom::sizeText(room.needed()), CopyRoom::sizeText(room.free()));
}

QString TransferPlanDialog::timeText() const
{
    constexpr qint64 minute = 60; // seconds
    if (m_plan.ticked() == 0)
        return {};
    if (m_speed <= 0)
        return tr("Durata: si saprà dopo le prime song");
    const qint64 seconds = m_plan.bytes() / m_speed;
    return seconds < minute / 2 ? tr("Durata: meno di un minuto")
                                : tr("Durata: circa %1 min").arg((seconds + minute / 2) / minute);
}

} // namespace brisel
