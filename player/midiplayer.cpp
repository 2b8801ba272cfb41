#include "player/midiplayer.h"

#include "base/fileidentity.h"

#include <QFile>

#include <fluidsynth.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace brisel
{

static constexpr int pollInterval = 50;     ///< milliseconds
static constexpr int blockSize = 64;        ///< frames, as the library computes them
static constexpr double sampleRate = 44100; ///< a second

/// The objects of the library, which are freed in reverse order.
struct MidiPlayer::Synthesiser {
    template <auto Free>
    struct Freed {
        void operator()(auto *object) const { Free(object); }
    };
    std::unique_ptr<fluid_settings_t, Freed<delete_fluid_settings>> settings{new_fluid_settings()};
    std::unique_ptr<fluid_synth_t, Freed<delete_fluid_synth>> synth;
    std::unique_ptr<fluid_player_t, Freed<delete_fluid_player>> player;
    std::unique_ptr<fluid_audio_driver_t, Freed<delete_fluid_audio_driver>> driver;
};

MidiPlayer::MidiPlayer(QString soundFont, Output output, QObject *parent)
    : SongPlayer(parent), m_soundFont(std::move(soundFont)), m_output(output)
{
    // The library would print a line for each note that it leaves out.
    for (const auto level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
    m_poll.setInterval(pollInterval);
    connect(&m_poll, &QTimer::timeout, this, &MidiPlayer::poll);
}

MidiPlayer::~MidiPlayer()
{
    stop();
}

bool MidiPlayer::load(const PlayableSong &song)
{
    stop();
    auto made = std::make_unique<Synthesiser>();
    constexpr double gain = 0.5; // of 10; the library's default is very quiet
    fluid_settings_t *settings = made->settings.get();
    fluid_settings_setnum(settings, "synth.gain", gain);
    fluid_settings_setnum(settings, "synth.sample-rate", sampleRate);
    fluid_settings_setint(settings, "audio.realtime-prio", 0);
    fluid_settings_setstr(settings, "player.timing-source", "sample");
    made->synth.reset(new_fluid_synth(settings));
    // A FIFO would block.
    const QByteArray soundFont = QFile::encodeName(m_soundFont);
    if (made->synth == nullptr || !isRegularFile(m_soundFont) ||
        fluid_is_soundfont(soundFont.constData()) == 0 ||
        fluid_synth_sfload(made->synth.get(), soundFont.constData(), 1) < 0)
        return refuse(tr("Il SoundFont non si può leggere:") + u' ' + m_soundFont);
    made->player.reset(new_fluid_player(made->synth.get()));
    if (made->player == nullptr ||
        fluid_player_add_mem(made->player.get(), song.midi.constData(),
                             static_cast<size_t>(song.midi.size())) != FLUID_OK)
        return refuse(tr("I dati MIDI del brano non si possono suonare."));
    m_synthesiser = std::move(made);
    m_timeline = song.timeline;
    m_soughtTick = -1;
    m_isSeekPending = false;
    return true;
}

void MidiPlayer::play()
{
    if (m_synthesiser == nullptr || isPlaying())
        return;
    fluid_player_t *player = m_synthesiser->player.get();
    fluid_player_play(player);
    renderBlock(); // the library reads the data when it begins to play them
    if (fluid_player_get_total_ticks(player) <= 0 && m_timeline.lastTick() > 0) {
        refuse(tr("I dati MIDI del brano non si possono suonare."));
        return;
    }
    if (m_output == Output::Device && !openDevice()) {
        refuse(tr("Nessun dispositivo audio è disponibile."));
        return;
    }
    m_poll.start();
}

/// Tries the sound servers before the bare device, which they may occupy.
bool MidiPlayer::openDevice()
{
    fluid_settings_t *settings = m_synthesiser->settings.get();
    fluid_settings_setint(settings, "audio.period-size", 256); // frames
    fluid_settings_setint(settings, "audio.periods", 16);
    for (const char *driver : {"pipewire", "pulseaudio", "alsa", "coreaudio", "wasapi", "dsound"}) {
        if (fluid_settings_setstr(settings, "audio.driver", driver) != FLUID_OK)
            continue;
        m_synthesiser->driver.reset(new_fluid_audio_driver(settings, m_synthesiser->synth.get()));
        if (m_synthesiser->driver != nullptr)
            return true;
    }
    return false;
}

void MidiPlayer::stop()
{
    m_poll.stop();
    if (m_synthesiser != nullptr)
        fluid_player_stop(m_synthesiser->player.get());
    m_synthesiser.reset();
    m_timeline = {};
}

qint64 MidiPlayer::position() const
{
    if (m_synthesiser == nullptr)
        return 0;
    const int tick = fluid_player_get_current_tick(m_synthesiser->player.get());
    if (m_soughtTick >= 0 && (m_isSeekPending || tick == m_tickBeforeSeek))
        return m_timeline.msAt(m_soughtTick);
    return std::min(m_timeline.msAt(tick), duration());
}

qint64 MidiPlayer::duration() const
{
    return m_timeline.duration();
}

void MidiPlayer::seek(qint64 ms)
{
    if (m_synthesiser == nullptr)
        return;
    fluid_player_t *player = m_synthesiser->player.get();
    const int total = fluid_player_get_total_ticks(player);
    m_soughtTick = std::clamp(m_timeline.tickAt(ms), qint64(0), qint64(std::max(total - 1, 0)));
    moveToSought();
    emit positionChanged(position());
}

void MidiPlayer::moveToSought()
{
    fluid_player_t *player = m_synthesiser->player.get();
    m_tickBeforeSeek = fluid_player_get_current_tick(player);
    m_isSeekPending = fluid_player_seek(player, static_cast<int>(m_soughtTick)) != FLUID_OK;
}

float MidiPlayer::render(qint64 ms)
{
    constexpr int msPerSecond = 1000;
    float loudest = 0;
    const auto frames = static_cast<qint64>(static_cast<double>(ms) * sampleRate / msPerSecond);
    for (qint64 done = 0; m_synthesiser != nullptr && done < frames; done += blockSize)
        loudest = std::max(loudest, renderBlock());
    if (isPlaying())
        poll();
    return loudest;
}

/// Returns the loudest sample of the block.
float MidiPlayer::renderBlock()
{
    std::array<float, blockSize> left{};
    std::array<float, blockSize> right{};
    fluid_synth_write_float(m_synthesiser->synth.get(), blockSize, left.data(), 0, 1, right.data(),
                            0, 1);
    float loudest = 0;
    for (const float sample : left)
        loudest = std::max(loudest, std::abs(sample));
    return loudest;
}

void MidiPlayer::poll()
{
    if (m_isSeekPending)
        moveToSought();
    // The library waits until all notes have faded away, and some never do.
    constexpr qint64 longestFading = 4000; // milliseconds
    fluid_player_t *player = m_synthesiser->player.get();
    const qint64 now = m_timeline.msAt(fluid_player_get_current_tick(player));
    if (fluid_player_get_status(player) != FLUID_PLAYER_DONE &&
        now <= m_timeline.duration() + longestFading) {
        emit positionChanged(position());
        return;
    }
    stop();
    emit finished();
}

/// Returns false.
bool MidiPlayer::refuse(const QString &text)
{
    stop();
    emit failed(text);
    return false;
}

} // namespace brisel
