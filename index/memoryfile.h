#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// One file of a memory as it stands there, for the check of the memory. On purpose it shares no
/// code and no constant with those who write these files, nor with the reader of an update: what
/// they hold in common can't find each other's mistakes. Layouts: docs/formats/player-index.md.
///
/// What lies outside the file reads as 0 or as an empty text.
class MemoryFile
{
public:
    enum class State { Good, Missing, Unreadable, BadLength };

    MemoryFile() = default;
    /// Reads the file at \a path, which should hold \a least to \a most units of \a unit bytes.
    /// One that is too long or holds half a unit is not read.
    MemoryFile(const QString &path, qint64 unit, qint64 least, qint64 most);

    State state() const { return m_state; }
    bool isGood() const { return m_state == State::Good; }
    qint64 size() const { return m_size; } ///< bytes, also of a file that was not read

    quint8 byte(qsizetype pos) const;
    quint16 bigEndian16(qsizetype pos) const;
    quint32 bigEndian32(qsizetype pos) const;
    quint16 littleEndian16(qsizetype pos) const;

    /// Of a file of records: how many whole ones it holds.
    qsizetype records() const;
    quint32 id(qsizetype record) const;
    /// The title, artist or genre.
    QString text(qsizetype record) const;
    /// The path below the root, in code page "IBM 850".
    QByteArray path(qsizetype record) const;
    /// All of the record but its id.
    QByteArrayView body(qsizetype record) const;
    /// True for the record in front of the songs of an artist or genre.
    bool isHeader(qsizetype record) const;
    /// Of a header: the songs of its group, and of the group before.
    int announcedSongs(qsizetype record) const;
    int announcedSongsBefore(qsizetype record) const;
    bool isMp3(qsizetype record) const;

    static constexpr int recordSize = 64; ///< bytes

private:
    QByteArray upToZero(qsizetype pos, qsizetype width) const;

    State m_state = State::Missing;
    qint64 m_size = 0;
    QByteArray m_content;
};
