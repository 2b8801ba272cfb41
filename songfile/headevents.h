#pragma once

#include <QByteArray>
#include <QList>

/// A kind of meta-event.
struct MetaKind {
    static constexpr int anySubType = -1;

    char type = 0;
    int subType = anySubType; ///< of the publisher's events: the first data byte
};

/// Bytes of the first track that are removed before an event of their kind is written.
struct HeadEvent {
    qsizetype start = 0; ///< of the delta-time
    qsizetype data = 0;  ///< behind the length, and behind the sub-type; may lie behind the end
    qsizetype end = 0;
    bool isWhole = true; ///< false for bytes that may be a part of another event, or of several
    bool isAtTickZero = true;
};

/// Finds the events of the first track that have a delta-time of 0, by walking the track or by
/// their bytes: see docs/formats/midi-meta-events.md.
class HeadEventSearch
{
public:
    /// The track's data lie from \a start up to \a end, or to the end of \a stream, which must
    /// outlive the search.
    HeadEventSearch(const QByteArray &stream, qsizetype start, qint64 end);

    /// True when the track's events can be walked to the end.
    bool isWalkable() const;
    /// Events that a walk finds, in their order, all or only the first.
    QList<HeadEvent> walked(const MetaKind &kind, bool onlyFirst) const;
    /// Events that look like it. Whole are those that a walk finds as well before it fails, among
    /// the events at tick 0 that the track begins with.
    QList<HeadEvent> matched(const MetaKind &kind, bool onlyFirst) const;
    /// False when neither of the two would find one.
    bool mayHold(const MetaKind &kind) const;

private:
    qsizetype indexOf(const MetaKind &kind, qsizetype from) const;
    void markWhole(QList<HeadEvent> &events) const;

    const QByteArray &m_stream;
    qsizetype m_start;
    qsizetype m_end;
};
