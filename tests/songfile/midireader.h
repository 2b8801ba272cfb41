#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

/// A strict reader of Standard MIDI Files, for tests only, which shares no code with the program.
namespace MidiReader
{

struct Event {
    qint64 tick = 0; ///< from the start of the track
    quint32 delta = 0;
    int status = 0;    ///< also where the file leaves it out
    int metaType = -1; ///< of meta-events
    QByteArray data;   ///< behind status, type and length
    qsizetype start = 0;
    qsizetype end = 0; ///< of its bytes in the file
};

struct Track {
    qsizetype start = 0;
    qsizetype end = 0;
    QList<Event> events; ///< up to the end-of-track event, if there is one
};

/// Calls \a visit with each event from byte \a start of \a file on, up to \a end or behind the
/// end-of-track event; false when one can't be understood. The event's data are not copied.
bool forEachEvent(const QByteArray &file, qsizetype start, qsizetype end,
                  const std::function<void(const Event &)> &visit);

/// These events; nothing when one can't be understood.
std::optional<QList<Event>> readEvents(const QByteArray &file, qsizetype start, qsizetype end);

/// The tracks that the header announces; nothing when the header, a chunk or an event can't be
/// understood, or bytes of the header look like a track. What stands behind the last track, and
/// behind a track's end-of-track event, is not looked at.
std::optional<QList<Track>> readTracks(const QByteArray &file);

/// A kind of meta-event: its type, and its first data byte where \a subType is not -1.
struct Kind {
    int type = 0;
    int subType = -1;
};

/// True for an event of \a kind with a delta-time of 0.
bool isAtZero(const Event &event, const Kind &kind);

/// What is wrong with \a after as the song \a before, whose first track lost all events of \a kind
/// with a delta-time of 0 and got \a written, whole events, at its start; empty when nothing is.
/// All other events must be there, at their ticks, and all bytes but the first track's and its
/// length.
QString whatChanged(const QByteArray &before, const QByteArray &after, const Kind &kind,
                    const QByteArray &written);

} // namespace MidiReader
