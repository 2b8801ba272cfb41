#include "songfile/headevents.h"

#include "base/bytes.h"
#include "songfile/miditrack.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qsizetype patternSize = 3; ///< a delta-time of 0 or its last byte, FF, the type

bool hasSubType(const MetaKind &kind)
{
    return kind.subType != MetaKind::anySubType;
}

bool isOfKind(const QByteArray &stream, const MidiEvent &event, const MetaKind &kind)
{
    return event.isMeta() && event.metaType == static_cast<quint8>(kind.type) &&
           (!hasSubType(kind) ||
            (event.data < event.end && byteAt(stream, event.data) == kind.subType));
}

} // namespace

HeadEventSearch::HeadEventSearch(const QByteArray &stream, qsizetype start, qint64 end)
    : m_stream(stream), m_start(start), m_end(std::min<qint64>(end, stream.size()))
{
}

qsizetype HeadEventSearch::indexOf(const MetaKind &kind, qsizetype from) const
{
    // Searches for the rarest byte with a fast search.
    constexpr char metaEvent = '\xFF';
    qsizetype hit = m_stream.indexOf(metaEvent, from + 1);
    for (; hit >= 0 && hit <= m_end && hit + 1 < m_stream.size();
         hit = m_stream.indexOf(metaEvent, hit + 1)) {
        if (m_stream.at(hit - 1) == 0 && m_stream.at(hit + 1) == kind.type)
            return hit - 1;
    }
    return -1;
}

bool HeadEventSearch::isWalkable() const
{
    MidiTrackWalk walk(QByteArrayView(m_stream).first(m_end), m_start);
    while (walk.next()) {
    }
    return walk.isAtEnd();
}

QList<HeadEvent> HeadEventSearch::walked(const MetaKind &kind, bool onlyFirst) const
{
    QList<HeadEvent> events;
    MidiTrackWalk walk(QByteArrayView(m_stream).first(m_end), m_start);
    bool isAtTickZero = true;
    // The events have these bytes: after their last position no walk is needed.
    qsizetype hit = indexOf(kind, m_start);
    while (hit >= 0 && walk.next()) {
        const MidiEvent &event = walk.event();
        isAtTickZero = isAtTickZero && event.delta == 0;
        if (event.end <= hit)
            continue;
        hit = indexOf(kind, event.end);
        if (event.delta != 0 || !isOfKind(m_stream, event, kind))
            continue;
        events.append(
            {event.start, event.data + (hasSubType(kind) ? 1 : 0), event.end, true, isAtTickZero});
        if (onlyFirst)
            break;
    }
    return events;
}

QList<HeadEvent> HeadEventSearch::matched(const MetaKind &kind, bool onlyFirst) const
{
    QList<HeadEvent> events;
    const qsizetype header = patternSize + 1;
    qsizetype hit = indexOf(kind, m_start);
    while (hit >= 0) {
        // Bytes with a length that does not lead forward, as a signed byte below -3, are not an
        // event. An event that is longer than the track ends with it.
        const qsizetype length =
            std::min<qsizetype>(signedByteAt(m_stream, hit + patternSize) + header, m_end - hit);
        const bool isWanted = !hasSubType(kind) || byteAt(m_stream, hit + header) == kind.subType;
        if (!isWanted || length <= 0) {
            hit = indexOf(kind, hit + 1);
            continue;
        }
        events.append({hit, hit + header + (hasSubType(kind) ? 1 : 0), hit + length, false});
        hit = onlyFirst ? -1 : indexOf(kind, hit + length);
    }
    markWhole(events);
    return events;
}

void HeadEventSearch::markWhole(QList<HeadEvent> &events) const
{
    MidiTrackWalk walk(QByteArrayView(m_stream).first(m_end), m_start);
    bool isAtTickZero = true;
    for (HeadEvent &event : events) {
        while (isAtTickZero && walk.event().start < event.start)
            isAtTickZero = walk.next() && walk.event().delta == 0;
        if (!isAtTickZero)
            return;
        event.isWhole = walk.event().start == event.start && walk.event().end == event.end &&
                        event.data <= event.end;
    }
}

} // namespace brisel
