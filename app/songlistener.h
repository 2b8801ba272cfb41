#pragma once

#include "player/songplayer.h"

#include <QObject>

#include <functional>
#include <memory>

class QBoxLayout;
class QSettings;
class QTableView;

namespace brisel
{

class PlayerBar;
class UserSongsRelTableModel;

/// Plays songs of the table: the space bar plays the current row, if it is shown, and stops the
/// song when it is pressed on it again. Selecting another row changes nothing; removing the song's
/// row stops it. The sound font is read from the settings for each song.
class SongListener : public QObject
{
    Q_OBJECT

public:
    /// Makes the player for a song; null with a text for the user in the second argument.
    using Maker =
        std::function<std::unique_ptr<SongPlayer>(const PlayableSong &song, QString &trouble)>;

    /// Puts a PlayerBar below \a view in \a layout. The view owns the listener; \a settings outlive
    /// it.
    SongListener(QTableView &view, UserSongsRelTableModel &model, QSettings &settings,
                 QBoxLayout &layout);
    ~SongListener() override;

    /// Plays the current row or stops, as the space bar does. A no-op during a run.
    void toggle();
    /// Plays the song file \a path instead of the present one.
    void listen(const QString &path);
    /// Stops the song and closes its file: before songs are written.
    void stop();
    bool isPlaying() const { return m_player != nullptr; }

    /// For tests: replaces the players.
    void setMaker(Maker maker) { m_maker = std::move(maker); }

private:
    void watchRows();
    void press();
    void fail(const QString &text);
    void showPosition();

    QTableView &m_view;
    UserSongsRelTableModel &m_model;
    PlayerBar *m_bar; ///< owned by the window
    Maker m_maker;
    PlayableSong m_song;
    std::unique_ptr<SongPlayer> m_player; ///< null while nothing plays
};

} // namespace brisel
