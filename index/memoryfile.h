#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace brisel
{

/// One file of a memory, for the check of the memory. It deliberately shares no code and no
/// constants with the writers of these files or the reader of an update, so that it finds their
/// mistakes. Layouts: docs/formats/player-index.md.
///
/// Values beyond the end of the file are 0 or an empty text.
class MemoryFile
{
public:
    enum class State { Good, Missing, Unreadable, BadLength };

    MemoryFile() = default;
    /// Reads the file at \a path, which should have \a least to \a most units of \a unit bytes. A
    /// file that is too long or ends within a unit is not read.
    MemoryFile(const QString &path, qint64 unit, qint64 least, qint64 most);

    State state() const { return m_state; }
    bool isGood() const { return m_state == State::Good; }
    qint64 size() const { return m_size; } ///< bytes, also of a file that was not read

    quint8 byte(qsizetype pos) const;
    quint16 bigEndian16(qsizetype pos) const;
    quint32 bigEndian32(qsizetype pos) const;
    quint16 littleEndian16(qsizetype pos) const;

    /// The number of whole records.
    qsizetype records() const { return m_content.size() / recordSize; }
    quint32 id(qsizetype record) const { return bigEndian32(record * recordSize); }
    /// The title, artist or genre.
    QString text(qsizetype record) const;
    /// The path below the root, in code page "IBM 850".
    QByteArray path(qsizetype record) const { return upToZero(record * recordSize + 4, 46); }
    /// The record without its id.
    QByteArrayView body(qsizetype record) const;
    /// Returns true for the header before the songs of an artist or genre.
    bool isHeader(qsizetype record) const;
    /// Of a header: the number of songs in its group and in the group before.
    int announcedSongs(qsizetype record) const { return bigEndian16(record * recordSize + 2); }
    int announcedSongsBefore(qsizetype record) const { return bigEndian16(record * recordSize); }
    bool isMp3(qsizetype record) const { return (byte(record * recordSize + 63) & 7) == 1; }

    static constexpr int recordSize = 64; ///< bytes

private:
    QByteArray upToZero(qsizetype pos, qsizetype width) const;

    State m_state = State::Missing;
    qint64 m_size = 0;
    QByteArray m_content;
};

} // namespace brisel
