#include "songfile/miditrack.h"

namespace brisel
{

namespace
{

constexpr quint8 firstStatus = 0x80;
constexpr quint8 sysEx = 0xF0; ///< above all statuses of channel messages
constexpr quint8 sysExRest = 0xF7;
constexpr quint8 endOfTrack = 0x2F;

/// The number of data bytes of a channel message: 1 for program change and channel pressure,
/// else 2.
int channelDataSize(quint8 status)
{
    return (status & 0xE0) == 0xC0 ? 1 : 2;
}

} // namespace

MidiTrackWalk::MidiTrackWalk(QByteArrayView bytes, qsizetype start) : m_bytes(bytes), m_pos(start)
{
}

bool MidiTrackWalk::isAtEnd() const
{
    return !m_hasFailed &&
           (m_pos >= m_bytes.size() || (m_event.isMeta() && m_event.metaType == endOfTrack));
}

bool MidiTrackWalk::next()
{
    if (m_hasFailed || isAtEnd())
        return false;
    MidiEvent event;
    m_hasFailed = !readEvent(event);
    if (!m_hasFailed)
        m_event = event;
    return !m_hasFailed;
}

bool MidiTrackWalk::readByte(quint8 &byte)
{
    if (m_pos >= m_bytes.size())
        return false;
    byte = static_cast<quint8>(m_bytes[m_pos++]);
    return true;
}

bool MidiTrackWalk::readNumber(quint32 &number)
{
    constexpr int mostBytes = 4;
    number = 0;
    for (int i = 0; i < mostBytes; ++i) {
        quint8 byte = 0;
        if (!readByte(byte))
            return false;
        number = number << 7 | (byte & 0x7FU);
        if (byte < 0x80)
            return true;
    }
    return false;
}

bool MidiTrackWalk::readEvent(MidiEvent &event)
{
    event.start = m_pos;
    if (!readNumber(event.delta) || !readByte(event.status))
        return false;
    quint32 size = 0;
    if (event.status < firstStatus) {
        event.status = m_runningStatus;
        --m_pos;
    }
    if (event.status < firstStatus)
        return false;
    if (event.status < sysEx) {
        m_runningStatus = event.status;
        size = static_cast<quint32>(channelDataSize(event.status));
    } else {
        const bool isKnown = event.status == sysEx || event.status == sysExRest || event.isMeta();
        if (!isKnown || (event.isMeta() && !readByte(event.metaType)) || !readNumber(size))
            return false;
    }
    if (m_bytes.size() - m_pos < static_cast<qsizetype>(size))
        return false;
    event.data = m_pos;
    m_pos += size;
    event.end = m_pos;
    return true;
}

} // namespace brisel
