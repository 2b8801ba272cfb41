#pragma once

#include "player/songplayer.h"

#include <QTimer>

#include <memory>

namespace brisel
{

/// Plays MIDI data with FluidSynth and a sound font. Nothing is left in memory after stop().
class MidiPlayer : public SongPlayer
{
    Q_OBJECT

public:
    /// \a soundFont: the path of an SF2 or SF3 file.
    explicit MidiPlayer(QString soundFont, Output output = Output::Device,
                        QObject *parent = nullptr);
    ~MidiPlayer() override;

    bool load(const PlayableSong &song) override;
    void play() override;
    void stop() override;
    bool isPlaying() const override { return m_poll.isActive(); }
    qint64 position() const override;
    qint64 duration() const override;
    void seek(qint64 ms) override;

    /// With Output::None: computes the next \a ms milliseconds of sound, and returns the loudest
    /// sample, 0 to 1.
    float render(qint64 ms);

private:
    struct Synthesiser;

    bool openDevice();
    void moveToSought();
    float renderBlock();
    void poll();
    bool refuse(const QString &text);

    const QString m_soundFont;
    const Output m_output;
    std::unique_ptr<Synthesiser> m_synthesiser; ///< null without a song
    SongTimeline m_timeline;
    QTimer m_poll;
    qint64 m_soughtTick = -1; ///< until the player has moved there
    int m_tickBeforeSeek = 0;
    bool m_isSeekPending = false; ///< the library refused it: an earlier one was not done yet
};

} // namespace brisel
