#pragma once

#include "player/songplayer.h"

#include <memory>

class QAudioOutput;
class QMediaPlayer;

namespace brisel
{

/// Plays MP3 files with Qt Multimedia. The file is open until stop().
class Mp3Player : public SongPlayer
{
    Q_OBJECT

public:
    explicit Mp3Player(Output output = Output::Device, QObject *parent = nullptr);
    ~Mp3Player() override;

    bool load(const PlayableSong &song) override;
    void play() override;
    void stop() override;
    bool isPlaying() const override;
    qint64 position() const override;
    qint64 duration() const override;
    void seek(qint64 ms) override;

private:
    void makePlayer();
    bool refuse(const QString &text);

    const Output m_output;
    std::unique_ptr<QMediaPlayer> m_player; ///< null until the first song
    std::unique_ptr<QAudioOutput> m_audio;  ///< null until then, and without output
};

} // namespace brisel
