#pragma once

#include "memory/playerlist.h"

#include <QList>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class QToolBar;

namespace brisel
{

class SongListModel;

namespace Ui
{
class PlayerView;
}

/// The songs of a memory in the lists that the player shows, with the jumps of its alphabet tables
/// and a search. Songs are dragged out as songDragType; a group stands for its songs.
class PlayerView : public QWidget
{
    Q_OBJECT

public:
    explicit PlayerView(QWidget *parent = nullptr);
    ~PlayerView() override;

    /// Null shows nothing. Choice, place and search stay as far as the songs do.
    void setContents(std::shared_ptr<const MemoryContents> contents);
    /// The marks of the files; null while they are unknown. \a look must outlive this, or the next
    /// call of this or of setContents().
    void setLook(const MemoryLook *look);
    SetFiles::ListIndex list() const;
    /// The positions of the chosen songs, in the order shown; those without a path are left out.
    QList<qsizetype> chosenSongs() const;

signals:
    void choiceChanged();
    void contextMenuRequested(const QPoint &globalPos);

protected:
    void changeEvent(QEvent *event) override;

private:
    void connectKeys();
    void chooseList(int list);
    void search();
    void enterRows();
    void showAll();
    void showJumps();
    void showCount();
    void jump(const PlayerList::Jump &jump);
    void reset(const std::function<void()> &change);
    void chooseFirst(const std::function<bool(const PlayerList::Song &)> &isWanted, bool isGroup);
    QByteArray currentPath() const;
    void chooseByPath(const QByteArray &path);
    void readSomeTexts();

    std::unique_ptr<Ui::PlayerView> m_ui;
    SongListModel *m_model;
    QToolBar *m_jumps;
    SongSearch m_search;
    QTimer m_reading; ///< active while songs may be without texts for the search
};

} // namespace brisel
