#pragma once

#include "player/playablesong.h"

#include <QObject>

namespace brisel
{

/// Plays one song at a time. The sound itself is made by a library, in threads of its own.
class SongPlayer : public QObject
{
    Q_OBJECT

public:
    /// Where the sound goes.
    enum class Output {
        Device, ///< the system's sound device
        None,   ///< nowhere: for tests
    };

    using QObject::QObject;

    /// Loads \a song instead of the previous one. Returns false after failed(): then no song is
    /// loaded.
    [[nodiscard]] virtual bool load(const PlayableSong &song) = 0;
    /// Plays the loaded song from its position on. failed() may follow later.
    virtual void play() = 0;
    /// Ends the song and closes its file and the sound device. A no-op without a song.
    virtual void stop() = 0;
    virtual bool isPlaying() const = 0;
    /// Milliseconds from the start of the song; 0 without a song.
    virtual qint64 position() const = 0;
    /// Milliseconds; 0 without a song, or while it is unknown.
    virtual qint64 duration() const = 0;
    /// Continues at \a ms milliseconds, or at the nearest moment in the song.
    virtual void seek(qint64 ms) = 0;

signals:
    /// A few times a second while the song plays.
    void positionChanged(qint64 ms);
    /// The song has reached its end.
    void finished();
    /// The song can't be played; \a text says why, in the current language.
    void failed(const QString &text);
};

} // namespace brisel
