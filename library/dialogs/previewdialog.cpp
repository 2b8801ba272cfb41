#include "library/dialogs/previewdialog.h"

#include "library/dialogs/cataloguesearchdialog.h"
#include "library/dialogs/emptytablehint.h"
#include "library/dialogs/previewmodel.h"
#include "library/dialogs/spacetick.h"
#include "library/dialogs/wheelguard.h"
#include "library/songfile.h"
#include "library/syncpreview.h"
#include "ui_previewdialog.h"

#include <QEvent>
#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace brisel
{

PreviewDialog::PreviewDialog(SyncPreview &preview, CatalogueSearch &search, bool ticksUnpublished,
                             QWidget *parent)
    : QDialog(parent), m_preview(preview), m_search(search),
      m_model(new PreviewModel(preview.songs(), ticksUnpublished, this)),
      m_ui(std::make_unique<Ui::PreviewDialog>())
{
    m_ui->setupUi(this);
    new WheelGuard(*this);
    QTableView *view = m_ui->previewTableView;
    view->setModel(m_model);
    new SpaceTick(*view, PreviewModel::FieldColumn);
    // No row is measured: there may be half a million of them.
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 8);
    fitColumns();
    m_hint = new EmptyTableHint(*view);
    connect(m_model, &PreviewModel::ticksChanged, this, &PreviewDialog::showCounts);
    connect(m_model, &PreviewModel::modelReset, this, &PreviewDialog::showSearch);
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PreviewDialog::showSearch);
    showCounts();
    showSearch();
    showRow(0);
    view->setFocus();
    (void)m_search.whyUnavailable(); // builds its index, so that the first search does not wait
}

PreviewDialog::~PreviewDialog() = default;

SyncPlan PreviewDialog::plan() const
{
    return m_model->plan();
}

void PreviewDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_model->retranslate();
    showCounts();
    showSearch();
}

void PreviewDialog::on_filterComboBox_currentIndexChanged(int number)
{
    m_model->setFilter(static_cast<PreviewModel::Filter>(number));
    showRow(0);
}

void PreviewDialog::on_selectAllPushButton_clicked()
{
    m_model->tickShown(true);
}

void PreviewDialog::on_selectNonePushButton_clicked()
{
    m_model->tickShown(false);
}

void PreviewDialog::on_searchPushButton_clicked()
{
    findByHand(m_model->songNumber(m_ui->previewTableView->currentIndex().row()));
}

void PreviewDialog::on_previewTableView_doubleClicked(const QModelIndex &index)
{
    const int number = m_model->songNumber(index.row());
    if (number >= 0 && !m_model->song(number).wasFound())
        findByHand(number);
}

/// The names of fields and of what a song was found by are short; the texts get the space.
void PreviewDialog::fitColumns()
{
    constexpr int fieldCharacters = 22;
    constexpr int foundByCharacters = 18;
    QHeaderView *header = m_ui->previewTableView->horizontalHeader();
    const int character = fontMetrics().averageCharWidth();
    header->setSectionResizeMode(QHeaderView::Stretch);
    for (const auto &[column, characters] :
         {std::pair(PreviewModel::FieldColumn, fieldCharacters),
          std::pair(PreviewModel::FoundByColumn, foundByCharacters)}) {
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        header->resizeSection(column, character * characters);
    }
}

/// Makes \a row the current one, or the last one before it.
void PreviewDialog::showRow(int row)
{
    const int last = m_model->rowCount() - 1;
    m_ui->previewTableView->setCurrentIndex(
        m_model->index(std::min(row, last), PreviewModel::SongColumn));
}

void PreviewDialog::showCounts()
{
    const PreviewModel::Counts counts = m_model->counts();
    m_ui->countLabel->setText(tr("%1, %2").arg(tr("%n song", "", counts.songs),
                                               tr("%n campi da scrivere", "", counts.fields)));
    m_ui->writePushButton->setEnabled(counts.songs > 0);
}

/// A file that can't be read has nothing to search for.
void PreviewDialog::showSearch()
{
    m_hint->showText(m_model->rowCount() == 0 ? tr("Nessuna song da mostrare") : QString());
    const int number = m_model->songNumber(m_ui->previewTableView->currentIndex().row());
    m_ui->searchPushButton->setEnabled(number >= 0 &&
                                       !m_model->song(number).whyNotRead.has_value());
}

void PreviewDialog::findByHand(int number)
{
    if (number < 0 || m_model->song(number).whyNotRead.has_value())
        return;
    const PreviewSong song = m_model->song(number);
    const SongFile file(song.path);
    CatalogueSearchDialog dialog(m_search, file.info, song.path.section(u'/', -1), this);
    dialog.exec();
    const std::optional<CatalogueSong> chosen = dialog.chosen();
    if (!chosen.has_value())
        return;
    const int shownRow = m_ui->previewTableView->currentIndex().row();
    m_model->replaceSong(
        number, m_preview.matched(song.row, std::make_shared<SongsDbRecord>(chosen->record)));
    // A song that is no longer among the rows makes room for the next one.
    const int row = m_model->firstRow(number);
    showRow(row >= 0 ? row : shownRow);
}

} // namespace brisel
