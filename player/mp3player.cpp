#include "player/mp3player.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>

#include <algorithm>

namespace brisel
{

namespace
{

/// On Linux, Qt before 6.5 takes another backend first, which ends the program if its plug-ins are
/// not installed. A choice of the user stays.
void chooseBackend()
{
#ifdef Q_OS_LINUX
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
#endif
}

} // namespace

Mp3Player::Mp3Player(Output output, QObject *parent) : SongPlayer(parent), m_output(output) {}

Mp3Player::~Mp3Player()
{
    stop();
}

void Mp3Player::makePlayer()
{
    chooseBackend();
    m_player = std::make_unique<QMediaPlayer>();
    const auto unplayable = [this] { refuse(tr("L'MP3 non si può suonare.")); };
    // Queued: the player must not be changed from inside its own signal.
    connect(m_player.get(), &QMediaPlayer::errorOccurred, this, unplayable, Qt::QueuedConnection);
    connect(
        m_player.get(), &QMediaPlayer::mediaStatusChanged, this,
        [this, unplayable](QMediaPlayer::MediaStatus status) {
            if (m_player->source().isEmpty())
                return;
            if (status == QMediaPlayer::InvalidMedia) {
                unplayable();
            } else if (status == QMediaPlayer::EndOfMedia) {
                stop();
                emit finished();
            }
        },
        Qt::QueuedConnection);
    connect(m_player.get(), &QMediaPlayer::positionChanged, this, &SongPlayer::positionChanged);
}

bool Mp3Player::load(const PlayableSong &song)
{
    stop();
    if (m_player == nullptr)
        makePlayer();
    if (!m_player->isAvailable())
        return refuse(tr("Manca il modulo di Qt Multimedia che suona gli MP3."));
    if (m_output == Output::Device) {
        const QAudioDevice device = QMediaDevices::defaultAudioOutput();
        if (device.isNull())
            return refuse(tr("Nessun dispositivo audio è disponibile."));
        m_audio = std::make_unique<QAudioOutput>(device);
        m_player->setAudioOutput(m_audio.get());
    }
    m_player->setSource(QUrl::fromLocalFile(song.path));
    return true;
}

void Mp3Player::play()
{
    if (m_player != nullptr && !m_player->source().isEmpty())
        m_player->play();
}

void Mp3Player::stop()
{
    if (m_player == nullptr || m_player->source().isEmpty())
        return;
    m_player->stop();
    m_player->setSource(QUrl()); // closes the file
    m_player->setAudioOutput(nullptr);
    m_audio.reset();
}

bool Mp3Player::isPlaying() const
{
    return m_player != nullptr && m_player->playbackState() == QMediaPlayer::PlayingState;
}

qint64 Mp3Player::position() const
{
    return m_player == nullptr ? 0 : m_player->position();
}

qint64 Mp3Player::duration() const
{
    return m_player == nullptr ? 0 : m_player->duration();
}

void Mp3Player::seek(qint64 ms)
{
    if (m_player != nullptr)
        m_player->setPosition(std::clamp(ms, qint64(0), m_player->duration()));
}

/// Returns false.
bool Mp3Player::refuse(const QString &text)
{
    stop();
    emit failed(text);
    return false;
}

} // namespace brisel
