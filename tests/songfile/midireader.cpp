#include "tests/songfile/midireader.h"

#include <algorithm>

namespace brisel
{

namespace
{

using MidiReader::Event;
using MidiReader::Track;

/// The byte at \a pos; -1 if \a pos is not before \a end.
int at(const QByteArray &file, qsizetype pos, qsizetype end)
{
    return pos < std::min(end, file.size()) ? static_cast<uchar>(file[pos]) : -1;
}

/// A big-endian number; its bytes must exist.
qint64 bigEndian(const QByteArray &file, qsizetype pos, int bytes)
{
    return bytes == 0
               ? 0
               : bigEndian(file, pos, bytes - 1) * 256 + at(file, pos + bytes - 1, file.size());
}

/// A variable-length number of one to four bytes; -1 if it is longer or truncated.
qint64 takeNumber(const QByteArray &file, qsizetype &pos, qsizetype end)
{
    qint64 number = 0;
    for (int left = 4; left > 0; --left) {
        const int byte = at(file, pos++, end);
        if (byte < 0)
            return -1;
        number = number * 128 + byte % 128;
        if (byte < 128)
            return number;
    }
    return -1;
}

qsizetype eventsEnd(const Track &track)
{
    return track.events.isEmpty() ? track.start : track.events.last().end;
}

QString described(const QList<Event> &events, qsizetype index)
{
    if (index >= events.size())
        return QStringLiteral("nothing");
    const Event &event = events.at(index);
    return QStringLiteral("tick %1: %2 %3 %4")
        .arg(event.tick)
        .arg(event.status, 0, 16)
        .arg(event.metaType, 0, 16)
        .arg(QLatin1StringView(event.data.left(40).toHex(' ')));
}

/// The first difference of two tracks; empty if their events are the same.
QString difference(const QList<Event> &wanted, const QList<Event> &found)
{
    for (qsizetype i = 0; i < std::max(wanted.size(), found.size()); ++i) {
        if (i < wanted.size() && i < found.size() && wanted[i].tick == found[i].tick &&
            wanted[i].status == found[i].status && wanted[i].metaType == found[i].metaType &&
            wanted[i].data == found[i].data)
            continue;
        return QStringLiteral("event %1 is %2 instead of %3")
            .arg(QString::number(i), described(found, i), described(wanted, i));
    }
    return {};
}

} // namespace

bool MidiReader::forEachEvent(const QByteArray &file, qsizetype start, qsizetype end,
                              const std::function<void(const Event &)> &visit)
{
    qint64 tick = 0;
    int lastChannelStatus = -1;
    for (qsizetype pos = start; pos < end;) {
        Event event;
        event.start = pos;
        const qint64 delta = takeNumber(file, pos, end);
        event.status = at(file, pos, end);
        if (delta < 0 || event.status < 0)
            return false;
        event.delta = static_cast<quint32>(delta);
        event.tick = tick += delta;
        if (event.status >= 128)
            ++pos;
        else
            event.status = lastChannelStatus;
        qint64 size = -1;
        switch (event.status < 0 ? 0 : event.status / 16) {
        case 0xC:
        case 0xD:
            size = 1;
            lastChannelStatus = event.status;
            break;
        case 0x8:
        case 0x9:
        case 0xA:
        case 0xB:
        case 0xE:
            size = 2;
            lastChannelStatus = event.status;
            break;
        case 0xF:
            if (event.status == 0xFF)
                event.metaType = at(file, pos++, end);
            if (event.status == 0xF0 || event.status == 0xF7 || event.metaType >= 0)
                size = takeNumber(file, pos, end);
            break;
        default:
            break;
        }
        if (size < 0 || pos + size > end)
            return false;
        event.data = QByteArray::fromRawData(file.constData() + pos, size);
        pos += size;
        event.end = pos;
        visit(event);
        if (event.metaType == 0x2F)
            break;
    }
    return true;
}

std::optional<QList<Event>> MidiReader::readEvents(const QByteArray &file, qsizetype start,
                                                   qsizetype end)
{
    QList<Event> events;
    const bool isRead = forEachEvent(file, start, end, [&events](Event event) {
        event.data = QByteArray(event.data.constData(), event.data.size());
        events.append(event);
    });
    return isRead ? std::optional(events) : std::nullopt;
}

std::optional<QList<Track>> MidiReader::readTracks(const QByteArray &file)
{
    if (file.size() < 14 || !file.startsWith("MThd"))
        return {};
    const qint64 announced = bigEndian(file, 10, 2);
    const qint64 header = bigEndian(file, 4, 4);
    if (bigEndian(file, 8, 2) > 1 || header < 6 || announced < 1)
        return {};
    QList<Track> tracks;
    for (qint64 chunk = 8 + header; tracks.size() < announced;) {
        if (chunk + 8 > file.size())
            return {};
        Track track;
        track.start = chunk + 8;
        track.end = track.start + bigEndian(file, chunk + 4, 4);
        if (track.end > file.size())
            return {};
        if (file.mid(chunk, 4) == "MTrk") {
            const std::optional<QList<Event>> events = readEvents(file, track.start, track.end);
            if (!events)
                return {};
            track.events = *events;
            tracks.append(track);
        }
        chunk = track.end;
    }
    if (file.indexOf("MTrk") + 8 != tracks.first().start)
        return {};
    return tracks;
}

bool MidiReader::isAtZero(const Event &event, const Kind &kind)
{
    return event.delta == 0 && event.metaType == kind.type &&
           (kind.subType < 0 ||
            (!event.data.isEmpty() && static_cast<quint8>(event.data.front()) == kind.subType));
}

QString MidiReader::whatChanged(const QByteArray &before, const QByteArray &after, const Kind &kind,
                                const QByteArray &written)
{
    const std::optional<QList<Track>> old = readTracks(before);
    const std::optional<QList<Track>> now = readTracks(after);
    const std::optional<QList<Event>> added = readEvents(written, 0, written.size());
    if (!old || !now || !added)
        return QStringLiteral("the song can't be read");
    if (old->size() != now->size())
        return QStringLiteral("another number of tracks");
    const Track &oldFirst = old->first();
    const Track &nowFirst = now->first();
    QList<Event> wanted = *added;
    for (const Event &event : oldFirst.events) {
        if (!isAtZero(event, kind))
            wanted.append(event);
    }
    if (const QString text = difference(wanted, nowFirst.events); !text.isEmpty())
        return QStringLiteral("first track, ") + text;
    for (qsizetype i = 1; i < old->size(); ++i) {
        if (const QString text = difference(old->at(i).events, now->at(i).events); !text.isEmpty())
            return QStringLiteral("track %1, %2").arg(QString::number(i), text);
    }
    const qsizetype length = oldFirst.start - 4;
    if (oldFirst.start != nowFirst.start || before.left(length) != after.left(length) ||
        before.mid(eventsEnd(oldFirst)) != after.mid(eventsEnd(nowFirst)))
        return QStringLiteral("other bytes around the first track");
    return {};
}

} // namespace brisel
