#pragma once

#include <QWidget>

#include <memory>

class QBoxLayout;

namespace brisel
{

namespace Ui
{
class MemoryWindow;
}

/// Shows what is on a player's memory: the songs as the player lists them, the folders, and the
/// playlists. It stays open beside the main window.
class MemoryWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MemoryWindow(QWidget *parent = nullptr);
    ~MemoryWindow() override;

    /// Where the panel of the playlists goes.
    QBoxLayout &playlistsLayout() const;
    /// Where the buttons of the actions go.
    QBoxLayout &actionsLayout() const;

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    std::unique_ptr<Ui::MemoryWindow> m_ui;
};

} // namespace brisel
