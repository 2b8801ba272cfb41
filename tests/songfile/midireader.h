#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace brisel
{

/// A strict reader of Standard MIDI Files, for tests only, which shares no code with the program.
namespace MidiReader
{

struct Event {
    qint64 tick = 0; ///< from the start of the track
    quint32 delta = 0;
    int status = 0;    ///< running status filled in
    int metaType = -1; ///< of meta-events
    QByteArray data;   ///< after status, type and length
    qsizetype start = 0;
    qsizetype end = 0; ///< the end of the event's bytes in the file
};

struct Track {
    qsizetype start = 0;
    qsizetype end = 0;
    QList<Event> events; ///< up to the end-of-track event, if there is one
};

/// Calls \a visit with each event from byte \a start of \a file on, up to \a end or past the
/// end-of-track event. Returns false if an event is invalid. The event's data are not copied.
bool forEachEvent(const QByteArray &file, qsizetype start, qsizetype end,
                  const std::function<void(const Event &)> &visit);

/// These events; nothing if one is invalid.
std::optional<QList<Event>> readEvents(const QByteArray &file, qsizetype start, qsizetype end);

/// The tracks that the header announces; nothing if the header, a chunk or an event is invalid,
/// or bytes of the header look like a track. Bytes after the last track, and after a track's
/// end-of-track event, are not read.
std::optional<QList<Track>> readTracks(const QByteArray &file);

/// A kind of meta-event: its type, and its first data byte where \a subType is not -1.
struct Kind {
    int type = 0;
    int subType = -1;
};

/// True for an event of \a kind with a delta-time of 0.
bool isAtZero(const Event &event, const Kind &kind);

/// Describes what is wrong with \a after, which should be \a before without the first track's
/// events of \a kind with a delta-time of 0, and with \a written, whole events, at that track's
/// start. All other events must be there at their ticks, and all bytes outside of the first track
/// and its length must be the same. Empty if nothing is wrong.
QString whatChanged(const QByteArray &before, const QByteArray &after, const Kind &kind,
                    const QByteArray &written);

} // namespace MidiReader

} // namespace brisel
