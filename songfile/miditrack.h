#pragma once

#include <QByteArrayView>

/// An event of a track. Positions are those of the bytes that are walked. See
/// docs/formats/midi-meta-events.md.
struct MidiEvent {
    bool isMeta() const { return status == 0xFF; }

    qsizetype start = 0; ///< of the delta-time
    quint32 delta = 0;   ///< ticks since the event before
    quint8 status = 0;   ///< also where it is running status
    quint8 metaType = 0; ///< 0 unless isMeta()
    qsizetype data = 0;  ///< behind status, type and length
    qsizetype end = 0;
};

/// Goes through a track's events in one pass: channel messages with running status, which meta and
/// SysEx events leave as it is, SysEx, and meta-events. Nothing is copied. A system common or
/// real-time status, a number of more than four bytes, a data byte without a status before it and
/// an event that is not whole end the walk.
class MidiTrackWalk
{
public:
    /// Walks \a bytes from \a start on; they must outlive the walk.
    MidiTrackWalk(QByteArrayView bytes, qsizetype start);

    /// Moves to the next event. False at the end of the track, or when the event can't be read.
    [[nodiscard]] bool next();
    /// The event that next() moved to.
    const MidiEvent &event() const { return m_event; }
    /// True when next() gave the end-of-track event, or all bytes have been walked.
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
