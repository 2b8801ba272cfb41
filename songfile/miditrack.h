#pragma once

#include <QByteArrayView>

namespace brisel
{

/// An event of a track. Positions are offsets in the walked bytes. See
/// docs/formats/midi-meta-events.md.
struct MidiEvent {
    bool isMeta() const { return status == 0xFF; }

    qsizetype start = 0; ///< of the delta-time
    quint32 delta = 0;   ///< ticks since the previous event
    quint8 status = 0;   ///< running status filled in
    quint8 metaType = 0; ///< 0 unless isMeta()
    qsizetype data = 0;  ///< after status, type and length
    qsizetype end = 0;
};

/// Walks a track's events in one pass without copying: channel messages with running status, which
/// meta and SysEx events do not change, SysEx, and meta-events. A system common or real-time
/// status, a number of more than four bytes, a data byte without a previous status and a truncated
/// event end the walk.
class MidiTrackWalk
{
public:
    /// Walks \a bytes from \a start on; they must outlive the walk.
    MidiTrackWalk(QByteArrayView bytes, qsizetype start);

    /// Moves to the next event. Returns false at the end of the track, or if the event is invalid.
    [[nodiscard]] bool next();
    /// The event to which next() moved.
    const MidiEvent &event() const { return m_event; }
    /// True if next() has reached the end-of-track event, or all bytes have been walked.
    bool isAtEnd() const;

private:
    [[nodiscard]] bool readByte(quint8 &byte);
    [[nodiscard]] bool readNumber(quint32 &number);
    [[nodiscard]] bool readEvent(MidiEvent &event);

    QByteArrayView m_bytes;
    qsizetype m_pos;
    quint8 m_runningStatus = 0;
    MidiEvent m_event;
    bool m_hasFailed = false;
};

} // namespace brisel
