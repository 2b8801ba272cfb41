// How the actions and the playlists work together with the lists of the window.

#include "memory/dialogs/foldersview.h"
#include "memory/dialogs/memoryactions.h"
#include "memory/dialogs/memorywindow.h"
#include "memory/dialogs/playerview.h"
#include "memory/dialogs/playlistspanel.h"
#include "ui_memorywindow.h"

#include <QMenu>
#include <QToolBar>

namespace brisel
{

void MemoryWindow::joinParts()
{
    m_ui->playlistsLayout->addWidget(m_playlists);
    joinActions();
    joinPlaylists();
    connect(m_ui->transferPushButton, &QPushButton::clicked, this, [this] {
        if (m_isThere)
            emit transferWanted(m_root);
    });
}

void MemoryWindow::joinActions()
{
    // In a narrow window, tool bars have a menu of what has no room.
    auto *songBar = new QToolBar;
    songBar->setObjectName(QStringLiteral("songActionsToolBar"));
    songBar->addActions(m_actions->songActions());
    m_ui->songsLayout->addWidget(songBar);
    auto *memoryBar = new QToolBar;
    memoryBar->setObjectName(QStringLiteral("memoryActionsToolBar"));
    memoryBar->addActions(m_actions->memoryActions());
    m_ui->buttonLayout->insertWidget(0, memoryBar, 1);
    m_actions->setMayWrite([this] { return m_playlists->mayDiscard(); });
    connect(m_actions, &MemoryActions::changed, this, &MemoryWindow::readAgain);
    connect(m_actions, &MemoryActions::aboutToUnmount, this, [this] {
        clear();
        showState();
    });
    connect(m_player, &PlayerView::choiceChanged, this, &MemoryWindow::passChoice);
    connect(m_folders, &FoldersView::choiceChanged, this, &MemoryWindow::passChoice);
    connect(m_ui->tabWidget, &QTabWidget::currentChanged, this, &MemoryWindow::passChoice);
    connect(m_player, &PlayerView::contextMenuRequested, this, &MemoryWindow::showMenu);
    connect(m_folders, &FoldersView::contextMenuRequested, this, &MemoryWindow::showMenu);
}

void MemoryWindow::joinPlaylists()
{
    connect(m_playlists, &PlaylistsPanel::saved, this, &MemoryWindow::readAgain);
    connect(m_playlists, &PlaylistsPanel::outdated, this, &MemoryWindow::readAgain);
    connect(m_ui->addToPlaylistPushButton, &QPushButton::clicked, this,
            &MemoryWindow::addChosenToPlaylist);
}

void MemoryWindow::setTransfer(
    std::function<QStringList(const QString &, const QStringList &)> send)
{
    m_playlists->setTransfer([this, send = std::move(send)](const QStringList &files) {
        QStringList places = send(m_root, files);
        readAgain();
        return places;
    });
}

/// The actions work on what is chosen in the tab in front.
void MemoryWindow::passChoice()
{
    m_actions->setList(m_player->list());
    const bool isPlayer = m_ui->tabWidget->currentWidget() == m_ui->playerTab;
    if (isPlayer)
        m_actions->setSongs(m_player->chosenSongs());
    else
        m_actions->setFiles(m_folders->chosenPaths(), m_folders->lastCopies());
    m_ui->addToPlaylistPushButton->setEnabled(isPlayer && m_readOnlyReason.isEmpty() &&
                                              !m_player->chosenSongs().isEmpty() &&
                                              !m_contents->playlists().isEmpty());
}

void MemoryWindow::passContents()
{
    m_actions->setMemory(root());
    m_actions->setContents(m_contents);
    // Unsaved changes outlast a memory that vanishes.
    if (!m_playlists->isModified() || m_outcome == MemoryContents::Outcome::Done)
        m_playlists->updateContents(m_contents);
    passChoice();
}

void MemoryWindow::passReadOnly()
{
    m_actions->setReadOnly(m_readOnlyReason);
    m_playlists->setReadOnly(m_readOnlyReason);
    passChoice();
}

/// The songs whose files the look has not found.
void MemoryWindow::passMissing()
{
    QSet<qsizetype> missing;
    for (qsizetype position = 0; position < m_contents->size(); ++position) {
        if (m_look->marks(position).testFlag(MemoryLook::FileMark::Missing))
            missing.insert(position);
    }
    m_playlists->setMissing(missing);
}

void MemoryWindow::addChosenToPlaylist()
{
    QList<quint32> ids;
    for (const qsizetype position : m_player->chosenSongs())
        ids.append(m_contents->id(position));
    m_playlists->addSongs(ids);
}

void MemoryWindow::showMenu(const QPoint &place)
{
    QMenu menu(this);
    menu.addActions(m_actions->songActions());
    menu.setToolTipsVisible(true);
    if (m_ui->addToPlaylistPushButton->isEnabled()) {
        menu.addSeparator();
        connect(menu.addAction(m_ui->addToPlaylistPushButton->text()), &QAction::triggered, this,
                &MemoryWindow::addChosenToPlaylist);
    }
    menu.exec(place);
}

} // namespace brisel
