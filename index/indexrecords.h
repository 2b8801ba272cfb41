#pragma once

#include <QByteArray>
#include <QString>

namespace brisel
{

class SongInfoIndex;

/// The records of the index files and of the playlists: see docs/formats/player-index.md. Every
/// record is 64 bytes long; bytes() always gives exactly that many.
namespace IndexRecord
{
constexpr int size = 64;
}

/// One record of "index.id2".
struct PathRecord {
    static constexpr int pathAt = 4;
    static constexpr int pathWidth = 46; ///< with the terminator
    static constexpr int dateAt = 50;
    static constexpr int dateWidth = 8;
    static constexpr int timeAt = 58;
    static constexpr int timeWidth = 6;

    explicit PathRecord(const SongInfoIndex &song);
    PathRecord() = default;

    /// Reads the record at \a offset. Returns false if fewer than 64 bytes are left.
    static bool read(const QByteArray &file, qsizetype offset, PathRecord &record);
    QByteArray bytes() const;
    void appendTo(QByteArray &file) const;

    quint32 id = 0;
    QByteArray path; ///< in code page "IBM 850", at most 45 bytes
    quint32 date = 0;
    quint32 time = 0;
};

/// One song of a title, artist or genre file, or of a playlist.
struct SongRecord {
    static constexpr int titleAt = 4;
    static constexpr int titleWidth = 58;
    static constexpr int bpmAt = 62;
    static constexpr int typeAt = 63; ///< bits 0-2 type, bits 3-7 flag

    /// The parts of the byte at typeAt. The flag of songs with markers is 1.
    static constexpr quint8 typeOf(quint8 byte) { return byte & 7; }
    static constexpr bool hasMarkers(quint8 byte) { return byte >> 3 == 1; }

    explicit SongRecord(const SongInfoIndex &song);
    SongRecord() = default;

    /// Reads the record at \a offset. Returns false if fewer than 64 bytes are left.
    static bool read(const QByteArray &file, qsizetype offset, SongRecord &record);
    QByteArray bytes() const;
    void appendTo(QByteArray &file) const;

    quint32 id = 0;
    QByteArray title; ///< Latin-1, at most 58 bytes
    quint8 bpm = 0;
    quint8 type = 0; ///< 0 to 7
    quint8 flag = 0; ///< read: 0 or 1
};

/// The record before the songs of one artist or genre.
struct GroupHeader {
    /// Bytes 62 and 63 of a header; no song record has them.
    static constexpr int markAt = 62;

    /// Returns true if the 64 bytes at \a offset are a header.
    static bool isAt(const QByteArray &file, qsizetype offset);
    /// Reads the record at \a offset. Returns false if fewer than 64 bytes are left or it is not a
    /// header.
    static bool read(const QByteArray &file, qsizetype offset, GroupHeader &header);
    QByteArray bytes() const;

    quint16 previousCount = 0; ///< songs of the group before; 0 in the first header
    quint16 count = 0;         ///< songs of this group
    QByteArray name;           ///< Latin-1, at most 58 bytes
};

/// The offset in a data file of the first text of each initial character.
class AlphabetTable
{
public:
    static constexpr int size = 256; ///< bytes
    static constexpr int entries = size / 4;
    static constexpr char16_t firstCharacter = 0x20; ///< of the first entry
    static constexpr quint32 noEntry = 0xFFFFFFFF;   ///< no text begins with the character

    AlphabetTable() { clear(); }
    /// Sets all bytes to 0xFF: no entry.
    void clear();
    /// Enters \a offset for the first character of \a text unless it has an entry. There are
    /// entries only for the characters 0x20 to 0x5F, after upper-casing.
    void add(const QString &text, quint32 offset);
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace brisel
