#include "memory/dialogs/playlistspanel.h"

#include "memory/dialogs/playlistmodels.h"
#include "memory/dialogs/treecolumns.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTableView>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>

namespace brisel
{

PlaylistsPanel::PlaylistsPanel(QWidget *parent)
    : QWidget(parent), m_playlists(new PlaylistsModel(m_document, this)),
      m_entries(new PlaylistEntriesModel(
          m_document, style()->standardIcon(QStyle::SP_MessageBoxWarning), this)),
      m_list(new QListView(this)), m_table(new QTableView(this)), m_hint(new QLabel(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    buildLists();
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    layout->addWidget(m_hint);
    buildButtons();
    connectDocument();
    retranslate();
    setReadOnly({});
}

// The models are children and outlive the members.
PlaylistsPanel::~PlaylistsPanel()
{
    m_document.disconnect(this);
    m_document.undoStack().disconnect(this);
    delete m_table;
    delete m_list;
    delete m_entries;
    delete m_playlists;
}

void PlaylistsPanel::buildLists()
{
    auto *splitter = new QSplitter(Qt::Vertical, this);
    m_list->setObjectName(QStringLiteral("playlistsListView"));
    m_list->setModel(m_playlists);
    m_list->setUniformItemSizes(true);
    m_table->setObjectName(QStringLiteral("entriesTableView"));
    m_table->setModel(m_entries);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setDragDropMode(QAbstractItemView::DragDrop);
    m_table->setDragDropOverwriteMode(false);
    m_table->setDefaultDropAction(Qt::MoveAction);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false); // bold headings would be truncated
    constexpr int titleWidth = 170;
    m_table->setColumnWidth(PlaylistEntriesModel::Title, titleWidth);
    for (const auto column :
         {PlaylistEntriesModel::Number, PlaylistEntriesModel::Tempo, PlaylistEntriesModel::Format})
        m_table->setColumnWidth(column, m_table->fontMetrics().averageCharWidth() * 10);
    splitter->addWidget(m_list);
    splitter->addWidget(m_table);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 3); // most of the room is for the songs
    splitter->setChildrenCollapsible(false);
    layout()->addWidget(splitter);
    const auto onKey = [this](const QKeySequence &keys, QPushButton *PlaylistsPanel::*button) {
        auto *shortcut = new QShortcut(keys, m_table);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this,
                [this, button] { (this->*button)->click(); });
    };
    onKey(QKeyCombination(Qt::AltModifier, Qt::Key_Up), &PlaylistsPanel::m_up);
    onKey(QKeyCombination(Qt::AltModifier, Qt::Key_Down), &PlaylistsPanel::m_down);
    onKey(QKeySequence::Delete, &PlaylistsPanel::m_remove);
}

void PlaylistsPanel::buildButtons()
{
    constexpr int columns = 3;
    m_up = addButton("upPushButton", &PlaylistsPanel::moveUp);
    m_down = addButton("downPushButton", &PlaylistsPanel::moveDown);
    m_remove = addButton("removePushButton", &PlaylistsPanel::removeEntries);
    m_repair = addButton("repairPushButton", &PlaylistsPanel::repairEntry);
    m_undo = addButton("undoPushButton", &PlaylistsPanel::undo);
    m_redo = addButton("redoPushButton", &PlaylistsPanel::redo);
    m_print = addButton("printPushButton", &PlaylistsPanel::print);
    m_pdf = addButton("pdfPushButton", &PlaylistsPanel::savePdf);
    m_save = addButton("savePushButton", &PlaylistsPanel::saveClicked);
    auto *grid = new QGridLayout;
    int number = 0;
    for (QPushButton *button :
         {m_up, m_down, m_remove, m_repair, m_undo, m_redo, m_print, m_pdf, m_save}) {
        grid->addWidget(button, number / columns, number % columns);
        ++number;
    }
    qobject_cast<QVBoxLayout *>(layout())->addLayout(grid);
    for (const auto &[keys, button] :
         {std::pair(QKeySequence::Undo, m_undo), std::pair(QKeySequence::Redo, m_redo)}) {
        auto *action = new QAction(this);
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, button, &QPushButton::click);
        addAction(action);
    }
}

QPushButton *PlaylistsPanel::addButton(const char *name, void (PlaylistsPanel::*slot)())
{
    auto *button = new QPushButton(this);
    button->setObjectName(QLatin1StringView(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void PlaylistsPanel::connectDocument()
{
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PlaylistsPanel::showPlaylist);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PlaylistsPanel::updateButtons);
    connect(m_entries, &PlaylistEntriesModel::rowsChanged, this, &PlaylistsPanel::selectEntries);
    connect(m_entries, &PlaylistEntriesModel::songsRefused, this, &PlaylistsPanel::showRefused,
            Qt::QueuedConnection);
    // The source of the drop does not wait for the transfer.
    connect(m_entries, &PlaylistEntriesModel::filesDropped, this, &PlaylistsPanel::addFiles,
            Qt::QueuedConnection);
    connect(m_table, &QTableView::doubleClicked, m_repair, &QPushButton::click);
    connect(&m_document, &PlaylistDocument::modifiedChanged, this, &PlaylistsPanel::showModified);
    connect(&m_document, &PlaylistDocument::changed, this, &PlaylistsPanel::showChange);
    connect(&m_document.undoStack(), &QUndoStack::indexChanged, this,
            &PlaylistsPanel::updateButtons);
}

void PlaylistsPanel::retranslate()
{
    m_up->setText(tr("S&u"));
    m_down->setText(tr("&Giù"));
    m_remove->setText(tr("T&ogli"));
    m_repair->setText(tr("Ri&para..."));
    m_undo->setText(tr("A&nnulla"));
    m_redo->setText(tr("Ripet&i"));
    m_print->setText(tr("&Stampa..."));
    m_pdf->setText(tr("PD&F..."));
    m_save->setText(tr("Sal&va"));
    const auto explain = [](QWidget *widget, const QString &tip) {
        widget->setToolTip(tip);
        widget->setAccessibleDescription(tip);
    };
    explain(m_up, tr("Sposta più su le song scelte della playlist (Alt+Su)"));
    explain(m_down, tr("Sposta più giù le song scelte della playlist (Alt+Giù)"));
    explain(m_remove, tr("Toglie dalla playlist le song scelte, che restano nella memoria (Canc)"));
    explain(m_repair, tr("Sceglie un'altra song al posto di quella scelta"));
    explain(m_undo, tr("Annulla l'ultima modifica delle playlist (Ctrl+Z)"));
    explain(m_redo, tr("Ripete la modifica annullata (Ctrl+Maiusc+Z)"));
    explain(m_print, tr("Stampa la playlist come scaletta"));
    explain(m_pdf, tr("Salva la playlist come scaletta in un file PDF"));
    explain(m_save, tr("Scrive nella memoria le playlist modificate"));
    explain(m_list, tr("Le playlist che sono state fatte sul player"));
    explain(m_table, tr("Trascina qui le song; Alt+Su e Alt+Giù le spostano, Canc le toglie"));
    m_list->setAccessibleName(tr("Playlist della memoria"));
    m_table->setAccessibleName(tr("Song della playlist"));
    m_hint->setAccessibleName(tr("Stato delle playlist"));
    m_playlists->retranslate();
    m_table->viewport()->update();
    m_table->horizontalHeader()->viewport()->update();
    showWholeHeadings(*m_table);
}

void PlaylistsPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void PlaylistsPanel::setContents(std::shared_ptr<const MemoryContents> contents)
{
    m_identity = contents != nullptr ? MemoryIdentity(contents->root()) : MemoryIdentity();
    m_document.setContents(std::move(contents));
    showFirst();
}

/// Shows the playlist that was shown last, or the first, if none is shown.
void PlaylistsPanel::showFirst()
{
    if (playlist() < 0 && m_document.count() > 0) {
        const qsizetype same = m_document.playlistWith(m_number);
        m_list->setCurrentIndex(m_playlists->index(static_cast<int>(same < 0 ? 0 : same)));
    }
    showPlaylist();
}

void PlaylistsPanel::updateContents(std::shared_ptr<const MemoryContents> contents)
{
    if (!isModified() || contents == nullptr) {
        setContents(std::move(contents));
        return;
    }
    m_identity = MemoryIdentity(contents->root()); // it may have been mounted again
    if (m_document.isSameAs(*contents))
        return;
    const QList<qint16> lost = m_document.takeOver(std::move(contents));
    showFirst();
    // The caller is not ready for a dialog.
    if (!lost.isEmpty())
        QMetaObject::invokeMethod(
            this, [this, lost] { showLost(lost); }, Qt::QueuedConnection);
}

qsizetype PlaylistsPanel::playlist() const
{
    const QModelIndex current = m_list->currentIndex();
    return current.isValid() ? current.row() : -1;
}

void PlaylistsPanel::showPlaylist()
{
    if (playlist() >= 0)
        m_number = m_document.number(playlist());
    if (m_entries->playlist() != playlist())
        m_entries->setPlaylist(playlist());
    updateButtons();
}

void PlaylistsPanel::showModified()
{
    if (std::exchange(m_wasModified, isModified()) != isModified())
        emit modifiedChanged(isModified());
    updateButtons();
}

bool PlaylistsPanel::mayChange(qsizetype playlist) const
{
    return m_readOnly.isEmpty() && playlist >= 0 && m_document.isEditable(playlist);
}

void PlaylistsPanel::setReadOnly(const QString &reason)
{
    m_readOnly = reason;
    m_entries->setWritable(reason.isEmpty());
    m_hint->setText(reason);
    m_hint->setVisible(!reason.isEmpty());
    updateButtons();
}

void PlaylistsPanel::updateButtons()
{
    const QList<qsizetype> chosen = chosenEntries();
    const qsizetype size = playlist() < 0 ? 0 : m_document.size(playlist());
    const bool mayMove = mayChange() && !chosen.isEmpty();
    m_up->setEnabled(mayMove && chosen.last() >= chosen.size());
    m_down->setEnabled(mayMove && chosen.first() < size - chosen.size());
    m_remove->setEnabled(mayMove);
    m_repair->setEnabled(mayMove && chosen.size() == 1);
    m_undo->setEnabled(m_readOnly.isEmpty() && m_document.undoStack().canUndo());
    m_redo->setEnabled(m_readOnly.isEmpty() && m_document.undoStack().canRedo());
    m_print->setEnabled(size > 0);
    m_pdf->setEnabled(size > 0);
    m_save->setEnabled(m_readOnly.isEmpty() && isModified());
}

/// In ascending order.
QList<qsizetype> PlaylistsPanel::chosenEntries() const
{
    QList<qsizetype> entries;
    // QItemSelectionModel::selectedRows() takes a pass over all ranges for each row.
    const QItemSelection selection = m_table->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            entries.append(row);
    }
    std::sort(entries.begin(), entries.end());
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    return entries;
}

/// Neighbours among \a entries, in ascending order, become one range: each range costs time.
void PlaylistsPanel::selectEntries(const QList<qsizetype> &entries)
{
    QItemSelection selection;
    const auto indexOf = [this](qsizetype entry) {
        return m_entries->index(static_cast<int>(entry), 0);
    };
    for (qsizetype first = 0, next = 0; first < entries.size(); first = next) {
        for (next = first + 1; next < entries.size(); ++next) {
            if (entries.at(next) != entries.at(next - 1) + 1)
                break;
        }
        selection.select(indexOf(entries.at(first)), indexOf(entries.at(next - 1)));
    }
    if (!entries.isEmpty())
        m_table->selectionModel()->setCurrentIndex(
            m_entries->index(static_cast<int>(entries.first()), 0), QItemSelectionModel::NoUpdate);
    m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect |
                                                     QItemSelectionModel::Rows);
    if (!entries.isEmpty())
        m_table->scrollTo(m_table->currentIndex());
}

/// Undo may change a playlist that is not shown; none is shown while changes are taken over.
void PlaylistsPanel::showChange(qsizetype changed, const QList<qsizetype> &entries)
{
    if (playlist() >= 0 && changed != playlist()) {
        m_list->setCurrentIndex(m_playlists->index(static_cast<int>(changed)));
        selectEntries(entries);
    }
    updateButtons();
}

void PlaylistsPanel::moveUp()
{
    m_document.moveStep(playlist(), chosenEntries(), true);
}

void PlaylistsPanel::moveDown()
{
    m_document.moveStep(playlist(), chosenEntries(), false);
}

void PlaylistsPanel::removeEntries()
{
    m_document.remove(playlist(), chosenEntries());
}

void PlaylistsPanel::undo()
{
    m_document.undoStack().undo();
}

void PlaylistsPanel::redo()
{
    m_document.undoStack().redo();
}

void PlaylistsPanel::saveClicked()
{
    (void)save(); // a failure was shown
}

} // namespace brisel
