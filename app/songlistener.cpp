#include "app/songlistener.h"

#include "app/playerbar.h"
#include "base/runguard.h"
#include "base/settings.h"
#include "db/usersongsreltablemodel.h"
#include "player/songplayers.h"

#include <QAction>
#include <QBoxLayout>
#include <QFileInfo>
#include <QTableView>

#include <utility>

namespace brisel
{

SongListener::SongListener(QTableView &view, UserSongsRelTableModel &model, QSettings &settings,
                           QBoxLayout &layout)
    : QObject(&view), m_view(view), m_model(model), m_bar(new PlayerBar(view.parentWidget())),
      m_maker([&settings](const PlayableSong &song, QString &trouble) {
          return SongPlayers(Settings::soundFont.in(settings)).make(song, trouble);
      })
{
    layout.insertWidget(layout.indexOf(&view) + 1, m_bar);
    m_bar->followInTabOrder(&view);
    auto *action = new QAction(this);
    action->setShortcut(Qt::Key_Space);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setAutoRepeat(false);
    view.addAction(action);
    connect(action, &QAction::triggered, this, &SongListener::toggle);
    connect(m_bar, &PlayerBar::buttonPressed, this, &SongListener::press);
    connect(m_bar, &PlayerBar::seekRequested, this, [this](qint64 ms) {
        if (m_player != nullptr)
            m_player->seek(ms);
    });
    watchRows();
}

SongListener::~SongListener() = default;

/// Sorting resets the model.
void SongListener::watchRows()
{
    connect(&m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex & /*parent*/, int first, int last) {
                for (int row = first; isPlaying() && row <= last; ++row) {
                    if (m_model.fileName(row) == m_song.path)
                        stop();
                }
            });
    connect(&m_model, &QAbstractItemModel::modelReset, this, [this] {
        if (!isPlaying())
            return;
        for (int row = 0; row < m_model.rowCount(); ++row) {
            if (m_model.fileName(row) == m_song.path)
                return;
        }
        stop();
    });
}

void SongListener::toggle()
{
    const QModelIndex current = m_view.currentIndex();
    if (!m_model.isSong(current.row()) || m_view.isRowHidden(current.row()) || RunGuard::isActive())
        return;
    const QString path = m_model.fileName(current.row());
    if (isPlaying() && path == m_song.path)
        stop();
    else
        listen(path);
}

/// The bar's button stops whatever plays.
void SongListener::press()
{
    if (isPlaying())
        stop();
    else
        toggle();
}

void SongListener::listen(const QString &path)
{
    stop();
    QString trouble;
    std::optional<PlayableSong> song = PlayableSong::read(path, trouble);
    std::unique_ptr<SongPlayer> player;
    if (song.has_value())
        player = m_maker(*song, trouble);
    if (player == nullptr) {
        m_bar->setTitle(song.has_value() ? song->title : QFileInfo(path).fileName());
        fail(trouble);
        return;
    }
    m_song = *std::move(song);
    m_player = std::move(player);
    connect(m_player.get(), &SongPlayer::positionChanged, this, &SongListener::showPosition);
    connect(m_player.get(), &SongPlayer::finished, this, &SongListener::stop);
    connect(m_player.get(), &SongPlayer::failed, this, &SongListener::fail);
    m_bar->showSong(m_song.title, !m_song.lines.isEmpty() || !m_song.markers.isEmpty());
    if (!m_player->load(m_song))
        return;
    m_player->play();
    showPosition();
}

void SongListener::stop()
{
    if (m_player == nullptr)
        return;
    m_player->disconnect(this);
    m_player->stop();
    // It may be the sender of the signal that led here.
    m_player.release()->deleteLater();
    m_bar->reset();
}

void SongListener::fail(const QString &text)
{
    stop();
    m_bar->showTrouble(text);
}

void SongListener::showPosition()
{
    if (m_player == nullptr)
        return;
    const qint64 ms = m_player->position();
    m_bar->setPosition(ms, m_player->duration());
    m_bar->setTexts(textAt(m_song.markers, ms), textAt(m_song.lines, ms));
}

} // namespace brisel
