#include "memory/dialogs/playerview.h"

#include "base/runguard.h"
#include "memory/dialogs/songlistmodel.h"
#include "memory/dialogs/treecolumns.h"
#include "ui_playerview.h"

#include <QEvent>
#include <QShortcut>
#include <QStyle>
#include <QToolBar>

#include <algorithm>

namespace brisel
{

PlayerView::PlayerView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::PlayerView>()),
      m_model(new SongListModel(style()->standardIcon(QStyle::SP_MessageBoxWarning), this)),
      m_jumps(new QToolBar(this))
{
    m_ui->setupUi(this);
    m_jumps->setObjectName(QStringLiteral("jumpsToolBar"));
    m_ui->viewLayout->insertWidget(1, m_jumps);
    QTreeView *view = m_ui->songsTreeView;
    view->setModel(m_model);
    constexpr int widths[] = {220, 180, 60, 70, 70}; // pixels
    for (int column = 0; column < SongListModel::Note; ++column)
        view->setColumnWidth(column, widths[column]);
    chooseList(0);
    connect(m_ui->listComboBox, &QComboBox::currentIndexChanged, this, &PlayerView::chooseList);
    connect(m_ui->songSearchLineEdit, &QLineEdit::textChanged, this, &PlayerView::search);
    showWholeHeadings(*view);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PlayerView::choiceChanged);
    connect(m_model, &QAbstractItemModel::modelReset, this, &PlayerView::choiceChanged);
    connect(view, &QTreeView::customContextMenuRequested, this, [this, view](const QPoint &place) {
        emit contextMenuRequested(view->viewport()->mapToGlobal(place));
    });
    constexpr int pause = 20; // milliseconds between two portions of texts
    m_reading.setInterval(pause);
    connect(&m_reading, &QTimer::timeout, this, &PlayerView::readSomeTexts);
    connectKeys();
}

PlayerView::~PlayerView() = default;

void PlayerView::connectKeys()
{
    const auto connectKey = [this](const QKeySequence &key, QWidget &widget,
                                   Qt::ShortcutContext context, void (PlayerView::*act)()) {
        auto *shortcut = new QShortcut(key, &widget);
        shortcut->setContext(context);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        m_ui->songSearchLineEdit->setFocus(Qt::ShortcutFocusReason);
        m_ui->songSearchLineEdit->selectAll();
    });
    connectKey(Qt::Key_Escape, *m_ui->songSearchLineEdit, Qt::WidgetShortcut, &PlayerView::showAll);
    connectKey(Qt::Key_Escape, *m_ui->songsTreeView, Qt::WidgetShortcut, &PlayerView::showAll);
    connectKey(Qt::Key_Down, *m_ui->songSearchLineEdit, Qt::WidgetShortcut, &PlayerView::enterRows);
    connect(m_ui->songSearchLineEdit, &QLineEdit::returnPressed, this, &PlayerView::enterRows);
}

void PlayerView::setContents(std::shared_ptr<const MemoryContents> contents)
{
    if (contents == nullptr)
        contents = std::make_shared<MemoryContents>();
    const QByteArray path = currentPath();
    reset([&] { m_model->setContents(std::move(contents)); });
    chooseByPath(path);
    showJumps();
    showCount();
    m_reading.start();
}

void PlayerView::setLook(const MemoryLook *look)
{
    m_model->setLook(look);
    m_ui->songsTreeView->viewport()->update();
}

SetFiles::ListIndex PlayerView::list() const
{
    return static_cast<SetFiles::ListIndex>(m_ui->listComboBox->currentIndex());
}

QList<qsizetype> PlayerView::chosenSongs() const
{
    const PlayerList &list = m_model->list();
    QList<bool> areChosen(list.size(), false);
    const QItemSelection ranges = m_ui->songsTreeView->selectionModel()->selection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const auto [first, count] =
                m_model->songsOf(m_model->index(row, SongListModel::Title, range.parent()));
            std::fill_n(areChosen.begin() + first, count, true);
        }
    }
    QList<qsizetype> positions;
    for (qsizetype shown = 0; shown < areChosen.size(); ++shown) {
        if (areChosen.at(shown) && list.song(shown).position >= 0)
            positions.append(list.song(shown).position);
    }
    return positions;
}

void PlayerView::chooseList(int list)
{
    reset([&] { m_model->setList(static_cast<std::size_t>(list)); });
    m_ui->songsTreeView->setRootIsDecorated(m_model->list().isGrouped());
    showJumps();
    showCount();
}

void PlayerView::search()
{
    const SongSearch wanted(m_ui->songSearchLineEdit->text());
    if (wanted == m_search)
        return;
    m_search = wanted;
    reset([this] { m_model->setSearch(m_search); });
    showCount();
}

/// Does \a change, which resets the model, and chooses the song again that was current, if it is
/// still shown. Groups with few songs found are open.
void PlayerView::reset(const std::function<void()> &change)
{
    constexpr qsizetype fewSongs = 200;
    QTreeView *view = m_ui->songsTreeView;
    const PlayerList &list = m_model->list();
    const bool isGroup = list.isGrouped() && !view->currentIndex().parent().isValid();
    const auto [number, count] = m_model->songsOf(view->currentIndex());
    const quint32 id = count > 0 ? list.id(list.song(number)) : 0;
    change();
    if (list.isGrouped() && !m_search.isEmpty() && list.size() <= fewSongs)
        view->expandAll();
    if (count == 0)
        return;
    chooseFirst([&](const PlayerList::Song &song) { return list.id(song) == id; }, isGroup);
}

/// Makes the first song current of which \a isWanted returns true, or its group.
void PlayerView::chooseFirst(const std::function<bool(const PlayerList::Song &)> &isWanted,
                             bool isGroup)
{
    const PlayerList &list = m_model->list();
    for (qsizetype shown = 0; shown < list.size(); ++shown) {
        if (!isWanted(list.song(shown)))
            continue;
        const QModelIndex song = m_model->indexOf(shown);
        m_ui->songsTreeView->setCurrentIndex(isGroup && song.parent().isValid() ? song.parent()
                                                                                : song);
        return;
    }
}

/// The path of the current song, or of the first one of the current group, in the bytes of the
/// index; empty if there is none.
QByteArray PlayerView::currentPath() const
{
    const PlayerList &list = m_model->list();
    const auto [number, count] = m_model->songsOf(m_ui->songsTreeView->currentIndex());
    const qsizetype position = count > 0 ? list.song(number).position : -1;
    return position < 0 ? QByteArray() : list.contents().pathBytes(position);
}

/// A rebuild gives the ids to other songs.
void PlayerView::chooseByPath(const QByteArray &path)
{
    if (path.isEmpty() || currentPath() == path)
        return;
    const PlayerList &list = m_model->list();
    const QModelIndex current = m_ui->songsTreeView->currentIndex();
    const bool isGroup = list.isGrouped() && current.isValid() && !current.parent().isValid();
    chooseFirst(
        [&](const PlayerList::Song &song) {
            return song.position >= 0 && list.contents().pathBytes(song.position) == path;
        },
        isGroup);
}

void PlayerView::readSomeTexts()
{
    constexpr qsizetype portion = 1000; // songs
    if (!RunGuard::isActive() && !m_model->prepare(portion))
        m_reading.stop();
}

/// Moves the focus from the field to the current song, or to the first one.
void PlayerView::enterRows()
{
    QTreeView *view = m_ui->songsTreeView;
    if (m_model->list().size() == 0)
        return;
    if (!view->currentIndex().isValid())
        view->setCurrentIndex(m_model->indexOf(0));
    view->setFocus(Qt::ShortcutFocusReason);
}

void PlayerView::showAll()
{
    m_ui->songSearchLineEdit->clear();
    m_ui->songsTreeView->setFocus(Qt::ShortcutFocusReason);
    m_ui->songsTreeView->scrollTo(m_ui->songsTreeView->currentIndex());
}

void PlayerView::showCount()
{
    const PlayerList &list = m_model->list();
    m_ui->songCountLabel->setText(
        m_search.isEmpty() ? QString() : tr("%1 di %2").arg(list.size()).arg(list.total()));
}

/// A button for each entry of the player's table of this list.
void PlayerView::showJumps()
{
    m_jumps->clear();
    const QList<PlayerList::Jump> jumps = m_model->list().jumps();
    for (const PlayerList::Jump &entry : jumps) {
        const bool isBlank = entry.character == u' ';
        QString text = isBlank ? QString(QChar(0x2423)) : QString(entry.character);
        QAction *action = m_jumps->addAction(text.replace(u'&', QStringLiteral("&&")));
        const QString what = isBlank ? tr("lo spazio") : QString(entry.character);
        const QString tip =
            entry.leads ? tr("Va al primo testo che comincia con %1").arg(what)
                        : tr("La voce %1 della tabella di Brisel non porta a nulla").arg(what);
        action->setToolTip(tip.toHtmlEscaped());
        action->setEnabled(entry.leads);
        connect(action, &QAction::triggered, this, [this, entry] { jump(entry); });
        QWidget *button = m_jumps->widgetForAction(action);
        button->setAccessibleName(tr("Vai a %1").arg(what));
        button->setAccessibleDescription(tip);
    }
    m_jumps->setVisible(!jumps.isEmpty());
}

void PlayerView::jump(const PlayerList::Jump &jump)
{
    const QModelIndex song = m_model->indexOf(m_model->list().target(jump));
    if (!song.isValid())
        return;
    QTreeView *view = m_ui->songsTreeView;
    const QModelIndex row = m_model->list().isGrouped() ? song.parent() : song;
    view->setCurrentIndex(row);
    view->scrollTo(row, QAbstractItemView::PositionAtTop);
    view->setFocus(Qt::OtherFocusReason);
}

void PlayerView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showJumps();
    showCount();
    emit m_model->headerDataChanged(Qt::Horizontal, 0, SongListModel::ColumnCount - 1);
    showWholeHeadings(*m_ui->songsTreeView);
    m_ui->songsTreeView->viewport()->update();
}

} // namespace brisel
