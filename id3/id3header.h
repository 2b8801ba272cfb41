#pragma once

#include <QByteArray>

/// The ten bytes at the start of an ID3v2 tag: see docs/formats/id3.md.
struct Id3Header {
    static constexpr int size = 10; ///< bytes

    enum Flag : quint8 {
        Unsynchronised = 0x80,
        Compressed = 0x40, ///< of version 2.2: such a tag can't be read
        Extended = 0x40,   ///< of versions 2.3 and 2.4
        Footer = 0x10,     ///< of version 2.4
    };

    int version = 0;     ///< 2, 3 or 4; 0 for any other
    quint8 flags = 0;    ///< as they stand in the tag
    quint32 tagSize = 0; ///< bytes of what follows the header, without a footer

    bool isUnsynchronised() const { return (flags & Unsynchronised) != 0; }
    bool hasExtendedHeader() const { return version >= 3 && (flags & Extended) != 0; }
    bool hasFooter() const { return version == 4 && (flags & Footer) != 0; }

    /// True when \a data begin with "ID3".
    [[nodiscard]] static bool isAt(const QByteArray &data);
    /// Reads the header of the tag that begins \a data; what is missing there reads as 0.
    [[nodiscard]] static Id3Header read(const QByteArray &data);

    /// The size field: 7 bits from each of four bytes. A byte above 128 makes it 0; one of exactly
    /// 128 passes and counts whole, as files with it have always been read.
    static quint32 sizeAt(const QByteArray &data);
    /// Writes the size field, 7 bits a byte.
    static void putSize(QByteArray &data, quint32 tagSize);
    static void clearFlag(QByteArray &data, Flag flag);
};

/// Numbers of 7 bits a byte, as the tag's and version 2.4's sizes are.
namespace Id3Number
{

/// True when none of the four bytes at \a pos uses its highest bit.
bool isSynchsafe(const QByteArray &data, qsizetype pos);
/// The 28 bits of the four bytes at \a pos, their highest bits left out.
quint32 synchsafe(const QByteArray &data, qsizetype pos);
/// Writes the low 28 bits of \a value to \a pos.
void putSynchsafe(QByteArray &data, qsizetype pos, quint32 value);

} // namespace Id3Number
