#pragma once

#include "player/timedtext.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace brisel
{

/// The time map of a Standard MIDI File: what its tempo and time signature events say about ticks,
/// milliseconds and bars, and the texts in it. See docs/formats/midi-meta-events.md, "Playing".
class SongTimeline
{
public:
    /// A text event as it is in the file.
    struct RawText {
        qint64 tick = 0;
        quint8 metaType = 0; ///< 1 text, 5 lyric, 6 marker
        QByteArray bytes;
    };

    static constexpr qint64 maxTicks = qint64(1) << 30;
    static constexpr qint64 maxTicksPerMs = 100000; ///< at the fastest tempo
    /// Channel events in one second: more would keep the synthesiser busy instead of playing.
    static constexpr qsizetype maxEventsPerSecond = 20000;

    /// The map of an empty song.
    SongTimeline();

    /// The map of \a midi. Nothing if it has no header or no track, counts time in frames instead
    /// of quarter notes, or exceeds a limit above. A truncated track counts up to its last whole
    /// event.
    static std::optional<SongTimeline> read(const QByteArray &midi);

    /// Milliseconds from the start to the last event of the longest track.
    qint64 duration() const { return msAt(m_lastTick); }
    qint64 lastTick() const { return m_lastTick; }
    /// Milliseconds at \a tick; negative ticks count as 0.
    qint64 msAt(qint64 tick) const;
    /// The last tick that is not after \a ms.
    qint64 tickAt(qint64 ms) const;
    /// Milliseconds at the start of \a bar; the first bar is 1, and smaller numbers count as 1.
    qint64 msOfBar(qint64 bar) const;
    /// The text, lyric and marker events of all tracks, by tick and track.
    const QList<RawText> &texts() const { return m_texts; }

private:
    struct Tempo {
        qint64 tick = 0;
        qint64 us = 0; ///< microseconds from the start of the song to the tick
        qint64 usPerQuarter = 500000;
    };
    struct Meter {
        qint64 tick = 0;
        qint64 bar = 1; ///< that starts at the tick
        qint64 ticksPerBar = 0;
    };
    struct Events;

    bool setTempos(QList<Tempo> tempos);
    void setMeters(QList<Meter> meters);
    qint64 usAt(qint64 tick) const;
    bool isTooDense(QList<qint64> ticks) const;

    qint64 m_division = 96; ///< ticks of a quarter note
    qint64 m_lastTick = 0;
    QList<Tempo> m_tempos; ///< never empty, by tick
    QList<Meter> m_meters; ///< never empty, by tick
    QList<RawText> m_texts;
};

} // namespace brisel
