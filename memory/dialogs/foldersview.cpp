#include "memory/dialogs/foldersview.h"

#include "base/runguard.h"
#include "memory/dialogs/foldersmodel.h"
#include "memory/dialogs/treecolumns.h"
#include "ui_foldersview.h"

#include <QEvent>
#include <QSet>

#include <algorithm>
#include <utility>

namespace brisel
{

FoldersView::FoldersView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::FoldersView>()), m_model(new FoldersModel(this))
{
    m_ui->setupUi(this);
    QTreeView *view = m_ui->foldersTreeView;
    view->setModel(m_model);
    constexpr int pathWidth = 320; // pixels
    view->setColumnWidth(FoldersModel::Path, pathWidth);
    showWholeHeadings(*view);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FoldersView::choiceChanged);
    connect(m_model, &QAbstractItemModel::modelReset, this, &FoldersView::choiceChanged);
    connect(view, &QTreeView::customContextMenuRequested, this, [this, view](const QPoint &place) {
        emit contextMenuRequested(view->viewport()->mapToGlobal(place));
    });
    connect(&m_reading, &QTimer::timeout, this, &FoldersView::readSome);
    showState();
}

FoldersView::~FoldersView() = default;

void FoldersView::setLook(const QString &root, const MemoryLook *look)
{
    m_root = root;
    m_look = look;
    m_wasSearched = false;
    endSearch();
    m_model->setLook(look);
    m_ui->foldersTreeView->expandAll();
    showState();
}

QStringList FoldersView::chosenPaths() const
{
    QModelIndexList rows = m_ui->foldersTreeView->selectionModel()->selectedRows();
    const auto place = [](const QModelIndex &row) {
        return row.parent().isValid() ? std::pair(row.parent().row(), row.row())
                                      : std::pair(row.row(), -1);
    };
    std::sort(rows.begin(), rows.end(),
              [&place](const QModelIndex &a, const QModelIndex &b) { return place(a) < place(b); });
    QStringList paths;
    for (const QModelIndex &row : std::as_const(rows)) {
        for (const QString &path : m_model->pathsOf(row))
            paths.append(m_root + path);
    }
    paths.removeDuplicates();
    return paths;
}

int FoldersView::lastCopies() const
{
    QSet<QString> chosen;
    for (const QString &path : chosenPaths())
        chosen.insert(path.mid(m_root.size()));
    return m_model->lastCopies(chosen);
}

/// The button also ends a search.
void FoldersView::on_duplicatesPushButton_clicked()
{
    if (m_search != nullptr) {
        endSearch();
    } else if (m_look != nullptr) {
        m_search = std::make_unique<DuplicateSearch>(m_root, m_look->songs());
        m_reading.start();
    }
    showState();
}

void FoldersView::readSome()
{
    constexpr int portion = 15; // milliseconds
    if (RunGuard::isActive())
        return;
    const bool isOn = m_search->work(portion);
    if (!isOn) {
        const QList<QList<MemoryLook::SongFile>> duplicates = m_search->duplicates();
        m_wasSearched = true;
        m_hasDuplicates = !duplicates.isEmpty();
        endSearch();
        m_model->setDuplicates(duplicates);
        m_ui->foldersTreeView->expandAll();
    }
    showState();
}

void FoldersView::endSearch()
{
    m_reading.stop();
    m_search.reset();
}

void FoldersView::showState()
{
    const bool isSearching = m_search != nullptr;
    m_ui->duplicatesPushButton->setEnabled(m_look != nullptr);
    m_ui->duplicatesPushButton->setText(isSearching ? tr("&Interrompi") : tr("Cerca &doppioni"));
    m_ui->duplicatesProgressBar->setVisible(isSearching);
    if (isSearching && m_search->bytes() > 0)
        m_ui->duplicatesProgressBar->setValue(static_cast<int>(
            m_search->bytesRead() * m_ui->duplicatesProgressBar->maximum() / m_search->bytes()));
    QString text;
    if (m_look == nullptr)
        text = tr("La memoria non è ancora letta");
    else if (m_wasSearched && !m_hasDuplicates)
        text = tr("Nessun doppione");
    else if (m_model->rowCount() == 0)
        text = tr("Sulla memoria ci sono solo le song dell'indice");
    m_ui->foldersLabel->setText(text);
    m_ui->foldersLabel->setVisible(!text.isEmpty());
}

void FoldersView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showState();
    emit m_model->headerDataChanged(Qt::Horizontal, 0, FoldersModel::ColumnCount - 1);
    showWholeHeadings(*m_ui->foldersTreeView);
    m_ui->foldersTreeView->viewport()->update();
}

} // namespace brisel
