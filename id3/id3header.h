#pragma once

#include <QByteArray>

namespace brisel
{

/// The ten bytes at the start of an ID3v2 tag: see docs/formats/id3.md.
struct Id3Header {
    static constexpr int size = 10; ///< bytes

    enum Flag : quint8 {
        Unsynchronised = 0x80,
        Compressed = 0x40, ///< version 2.2: such a tag can't be read
        Extended = 0x40,   ///< versions 2.3 and 2.4
        Footer = 0x10,     ///< version 2.4
    };

    int version = 0;     ///< 2, 3 or 4; 0 for other versions
    quint8 flags = 0;    ///< as stored in the tag
    quint32 tagSize = 0; ///< bytes after the header, without a footer

    bool isUnsynchronised() const { return (flags & Unsynchronised) != 0; }
    bool hasExtendedHeader() const { return version >= 3 && (flags & Extended) != 0; }
    bool hasFooter() const { return version == 4 && (flags & Footer) != 0; }

    /// True if \a data start with "ID3".
    [[nodiscard]] static bool isAt(const QByteArray &data) { return data.startsWith("ID3"); }
    /// Reads the header of the tag at the start of \a data; missing bytes are read as 0.
    [[nodiscard]] static Id3Header read(const QByteArray &data);

    /// The size field: 7 bits from each of four bytes. A byte above 128 makes it 0; a byte of
    /// exactly 128 counts as 128, as files with it have always been read.
    static quint32 sizeAt(const QByteArray &data);
    /// Writes the size field, 7 bits in each byte.
    static void putSize(QByteArray &data, quint32 tagSize);
    static void clearFlag(QByteArray &data, Flag flag);
};

/// Numbers with 7 bits in each byte, like the sizes of tags and of version 2.4's frames.
namespace Id3Number
{

/// True if none of the four bytes at \a pos has its highest bit set.
bool isSynchsafe(const QByteArray &data, qsizetype pos);
/// The 28 bits of the four bytes at \a pos, without their highest bits.
quint32 synchsafe(const QByteArray &data, qsizetype pos);
/// Writes the low 28 bits of \a value to \a pos.
void putSynchsafe(QByteArray &data, qsizetype pos, quint32 value);

} // namespace Id3Number

} // namespace brisel
