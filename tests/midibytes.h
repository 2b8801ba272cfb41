#pragma once

#include <QByteArray>
#include <QList>
#include <QtEndian>

namespace brisel
{

/// Standard MIDI Files written out by hand, without the program's own writers.
namespace MidiBytes
{

/// A meta-event with the delta-time 0; at most 127 bytes of data.
inline QByteArray metaEvent(int type, const QByteArray &data)
{
    return QByteArray("\x00\xFF", 2) + static_cast<char>(type) + static_cast<char>(data.size()) +
           data;
}

/// A publisher's meta-event with the delta-time 0; at most 126 bytes of data.
inline QByteArray kordiaEvent(int type, const QByteArray &data)
{
    return metaEvent(0x4B, static_cast<char>(type) + data);
}

inline QByteArray endOfTrack()
{
    return metaEvent(0x2F, {});
}

/// A file of \a tracks, which hold their events with the end of the track; \a division: ticks a
/// quarter note.
inline QByteArray file(const QList<QByteArray> &tracks, int format = 0, int division = 96)
{
    const auto number = [](auto value) {
        QByteArray bytes(sizeof value, '\0');
        qToBigEndian(value, bytes.data());
        return bytes;
    };
    QByteArray content = "MThd" + number(quint32(6)) + number(static_cast<quint16>(format)) +
                         number(static_cast<quint16>(tracks.size())) +
                         number(static_cast<quint16>(division));
    for (const QByteArray &track : tracks)
        content += "MTrk" + number(static_cast<quint32>(track.size())) + track;
    return content;
}

/// A file with the longest bars that can be stored, at the slowest tempo.
inline QByteArray longestBars()
{
    const QByteArray tempo = metaEvent(0x51, "\xFF\xFF\xFF");
    const QByteArray meter = metaEvent(0x58, QByteArray("\xFF\x00\x18\x08", 4));
    return file({tempo + meter + endOfTrack()}, 0, 0x7FFF);
}

} // namespace MidiBytes

} // namespace brisel
