#pragma once

#include <QByteArray>
#include <QList>

namespace brisel
{

/// A kind of meta-event.
struct MetaKind {
    static constexpr int anySubType = -1;

    char type = 0;
    int subType = anySubType; ///< of the publisher's events: the first data byte
};

/// Bytes of the first track that are removed when an event of their kind is written.
struct HeadEvent {
    qsizetype start = 0; ///< of the delta-time
    qsizetype data = 0;  ///< after the length and the sub-type; may be after the end
    qsizetype end = 0;
    bool isWhole = true; ///< false for bytes that may be part of other events
    bool isAtTickZero = true;
};

/// Finds the events of the first track that have a delta-time of 0, by walking the track or by
/// searching for their bytes: see docs/formats/midi-meta-events.md.
class HeadEventSearch
{
public:
    /// The track's data start at \a start and end at \a end, or at the end of \a stream, which must
    /// outlive this object.
    HeadEventSearch(const QByteArray &stream, qsizetype start, qint64 end);

    /// True if the track's events can be walked to the end.
    bool isWalkable() const;
    /// The events of the kind that a walk finds, in order; all or only the first.
    QList<HeadEvent> walked(const MetaKind &kind, bool onlyFirst) const;
    /// All bytes that look like events of the kind. isWhole is true for those that a walk finds,
    /// too, before it fails, among the events at tick 0 at the start of the track.
    QList<HeadEvent> matched(const MetaKind &kind, bool onlyFirst) const;
    /// False if neither of the two would find an event.
    bool mayHold(const MetaKind &kind) const { return indexOf(kind, m_start) >= 0; }

private:
    qsizetype indexOf(const MetaKind &kind, qsizetype from) const;
    void markWhole(QList<HeadEvent> &events) const;

    const QByteArray &m_stream;
    qsizetype m_start;
    qsizetype m_end;
};

} // namespace brisel
