#pragma once

#include "base/memoryidentity.h"
#include "memory/memorycontents.h"
#include "memory/memorylook.h"
#include "memory/mountedmemories.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace brisel
{

class FoldersView;
class MemoryActions;
class PlayerView;
class PlaylistsPanel;

namespace Ui
{
class MemoryWindow;
}

/// Shows what is on a player's memory: the songs as the player lists them, the folders, and the
/// playlists. It stays open beside the main window and follows the memories that are mounted: a
/// memory that vanishes is greyed, one that comes back is read again.
class MemoryWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MemoryWindow(QWidget *parent = nullptr);
    ~MemoryWindow() override;

    /// The root of the chosen memory; empty if no memory is chosen, or it has vanished.
    QString root() const { return m_isThere ? m_root : QString(); }
    /// What is on it; empty, but never null, if it has no index or could not be read.
    const std::shared_ptr<const MemoryContents> &contents() const { return m_contents; }
    /// Why the memory can't be changed; empty if it can be.
    const QString &readOnlyReason() const { return m_readOnlyReason; }

    /// \a send transfers files to the memory with the root of its first parameter and returns their
    /// paths there: for files that are dropped on a playlist.
    void
    setTransfer(std::function<QStringList(const QString &root, const QStringList &files)> send);

public slots:
    /// Reads the chosen memory again, after something was written on it.
    void readAgain();

signals:
    /// The songs of the main window are to be transferred to the memory \a root.
    void transferWanted(const QString &root);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private slots:
    void on_memoryComboBox_activated(int number);

private:
    void joinParts();
    void joinActions();
    void joinPlaylists();
    void passChoice();
    void passContents();
    void passReadOnly();
    void passMissing();
    void addChosenToPlaylist();
    void showMenu(const QPoint &place);
    void followMemories();
    void showMemories();
    void chooseFirst();
    void choose(const QString &root);
    void endLook();
    void clear();
    void look();
    void showState();
    QString stateText() const;
    QString differenceText() const;
    void showSpace();
    void noteWriteProtection();

    std::unique_ptr<Ui::MemoryWindow> m_ui;
    MountedMemories m_memories;
    PlayerView *m_player;
    FoldersView *m_folders;
    MemoryActions *m_actions;
    PlaylistsPanel *m_playlists;

    QString m_root;            ///< empty if none was chosen
    bool m_isThere = false;    ///< the chosen memory is mounted
    MemoryIdentity m_identity; ///< of the memory as it was read
    MemoryContents::Outcome m_outcome = MemoryContents::Outcome::Gone;
    std::shared_ptr<const MemoryContents> m_contents = std::make_shared<MemoryContents>();
    QList<FileState> m_states;          ///< of the files of the index and the playlists
    std::unique_ptr<MemoryLook> m_look; ///< null until the memory is read
    QString m_readOnlyReason;
    QTimer m_looking; ///< active during a look
    QTimer m_retry;   ///< active until the memory can be read
    QTimer m_later;   ///< active while a run delays a change of the memories
};

} // namespace brisel
