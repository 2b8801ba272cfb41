#include "player/songtimeline.h"

#include "base/bytes.h"
#include "songfile/miditrack.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr quint8 textMeta = 0x01;
constexpr quint8 lyricMeta = 0x05;
constexpr quint8 markerMeta = 0x06;
constexpr quint8 tempoMeta = 0x51;
constexpr quint8 meterMeta = 0x58;
constexpr quint8 firstSystemStatus = 0xF0;
constexpr qsizetype chunkHeaderSize = 8; ///< bytes: name and length
constexpr qint64 usPerMs = 1000;
constexpr qint64 usPerSecond = 1000000;
constexpr int finestNote = 7; ///< powers of two: a 128th note

} // namespace

/// The events of all tracks that make the map.
struct SongTimeline::Events {
    void read(QByteArrayView track, qint64 division);
    void readMeta(const MidiEvent &event, qint64 tick, const QByteArray &data, qint64 division);

    QList<Tempo> tempos;
    QList<Meter> meters;
    QList<RawText> texts;
    QList<qint64> channelTicks;
    qint64 lastTick = 0;
};

void SongTimeline::Events::read(QByteArrayView track, qint64 division)
{
    qint64 tick = 0;
    MidiTrackWalk walk(track, 0);
    while (walk.next() && tick <= maxTicks) {
        const MidiEvent &event = walk.event();
        tick += event.delta;
        lastTick = std::max(lastTick, tick);
        if (event.isMeta())
            readMeta(event, tick, track.sliced(event.data, event.end - event.data).toByteArray(),
                     division);
        else if (event.status < firstSystemStatus)
            channelTicks.append(tick);
    }
}

void SongTimeline::Events::readMeta(const MidiEvent &event, qint64 tick, const QByteArray &data,
                                    qint64 division)
{
    switch (event.metaType) {
    case textMeta:
    case lyricMeta:
    case markerMeta:
        texts.append({tick, event.metaType, data});
        break;
    case tempoMeta:
        if (fits(data, 0, 3))
            tempos.append({tick, 0, qint64(byteAt(data, 0)) << 16 | be16At(data, 1)});
        break;
    case meterMeta:
        if (fits(data, 0, 2) && byteAt(data, 1) <= finestNote) {
            const qint64 ticks = byteAt(data, 0) * 4 * division >> byteAt(data, 1);
            if (ticks > 0)
                meters.append({tick, 1, ticks});
        }
        break;
    default:
        break;
    }
}

SongTimeline::SongTimeline()
{
    m_tempos.append(Tempo());
    m_meters.append({0, 1, 4 * m_division});
}

std::optional<SongTimeline> SongTimeline::read(const QByteArray &midi)
{
    if (!midi.startsWith("MThd") || !fits(midi, 0, chunkHeaderSize + 6))
        return std::nullopt;
    SongTimeline timeline;
    timeline.m_division = be16At(midi, chunkHeaderSize + 4);
    constexpr qint64 framesFlag = 0x8000;
    if (timeline.m_division == 0 || timeline.m_division >= framesFlag)
        return std::nullopt;
    Events events;
    int tracks = 0;
    qint64 position = chunkHeaderSize + qint64(be32At(midi, 4));
    while (fits(midi, position, chunkHeaderSize)) {
        const qint64 start = position + chunkHeaderSize;
        const qint64 size = std::min(qint64(be32At(midi, position + 4)), midi.size() - start);
        if (midi.mid(position, 4) == "MTrk") {
            ++tracks;
            events.read(QByteArrayView(midi).sliced(start, size), timeline.m_division);
        }
        position = start + size;
    }
    timeline.m_lastTick = events.lastTick;
    timeline.m_texts = std::move(events.texts);
    std::stable_sort(timeline.m_texts.begin(), timeline.m_texts.end(),
                     [](const RawText &a, const RawText &b) { return a.tick < b.tick; });
    if (tracks == 0 || events.lastTick > maxTicks || !timeline.setTempos(events.tempos))
        return std::nullopt;
    timeline.setMeters(events.meters);
    if (timeline.isTooDense(std::move(events.channelTicks)))
        return std::nullopt;
    return timeline;
}

/// Returns false if a tempo is too fast.
bool SongTimeline::setTempos(QList<Tempo> tempos)
{
    std::stable_sort(tempos.begin(), tempos.end(),
                     [](const Tempo &a, const Tempo &b) { return a.tick < b.tick; });
    for (Tempo &tempo : tempos) {
        if (m_division * usPerMs > maxTicksPerMs * tempo.usPerQuarter)
            return false;
        tempo.us = usAt(tempo.tick);
        m_tempos.append(tempo);
    }
    return true;
}

void SongTimeline::setMeters(QList<Meter> meters)
{
    m_meters.first().ticksPerBar = 4 * m_division;
    std::stable_sort(meters.begin(), meters.end(),
                     [](const Meter &a, const Meter &b) { return a.tick < b.tick; });
    for (Meter &meter : meters) {
        const Meter &last = m_meters.constLast();
        // A signature within a bar ends it.
        meter.bar = last.bar + (meter.tick - last.tick + last.ticksPerBar - 1) / last.ticksPerBar;
        m_meters.append(meter);
    }
}

qint64 SongTimeline::usAt(qint64 tick) const
{
    const auto next =
        std::upper_bound(m_tempos.cbegin() + 1, m_tempos.cend(), tick,
                         [](qint64 value, const Tempo &tempo) { return value < tempo.tick; });
    const Tempo &tempo = *std::prev(next);
    return tempo.us + (std::max(tick, tempo.tick) - tempo.tick) * tempo.usPerQuarter / m_division;
}

qint64 SongTimeline::msAt(qint64 tick) const
{
    return usAt(tick) / usPerMs;
}

qint64 SongTimeline::tickAt(qint64 ms) const
{
    const qint64 us = std::clamp(ms, qint64(0), duration()) * usPerMs;
    const auto next =
        std::upper_bound(m_tempos.cbegin() + 1, m_tempos.cend(), us,
                         [](qint64 value, const Tempo &tempo) { return value < tempo.us; });
    const Tempo &tempo = *std::prev(next);
    return tempo.tick + (us - tempo.us) * m_division / tempo.usPerQuarter;
}

qint64 SongTimeline::msOfBar(qint64 bar) const
{
    const auto next =
        std::upper_bound(m_meters.cbegin() + 1, m_meters.cend(), bar,
                         [](qint64 value, const Meter &meter) { return value < meter.bar; });
    const Meter &meter = *std::prev(next);
    const qint64 bars = std::max(bar, meter.bar) - meter.bar;
    // A marker may be far behind the end.
    return msAt(bars > maxTicks / std::max<qint64>(meter.ticksPerBar, 1)
                    ? maxTicks
                    : std::min(maxTicks, meter.tick + bars * meter.ticksPerBar));
}

bool SongTimeline::isTooDense(QList<qint64> ticks) const
{
    std::sort(ticks.begin(), ticks.end());
    for (qsizetype first = 0; first + maxEventsPerSecond < ticks.size(); ++first) {
        if (usAt(ticks.at(first + maxEventsPerSecond)) - usAt(ticks.at(first)) < usPerSecond)
            return true;
    }
    return false;
}

} // namespace brisel
