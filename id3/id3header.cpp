#include "id3/id3header.h"

#include "base/bytes.h"

namespace brisel
{

namespace
{

constexpr qsizetype versionOffset = 3;
constexpr qsizetype flagsOffset = 5;
constexpr qsizetype tagSizeOffset = 6;
constexpr int sizeBytes = 4;

} // namespace

Id3Header Id3Header::read(const QByteArray &data)
{
    constexpr int oldest = 2;
    constexpr int newest = 4;
    Id3Header header;
    const int version = byteAt(data, versionOffset);
    header.version = version >= oldest && version <= newest ? version : 0;
    header.flags = byteAt(data, flagsOffset);
    header.tagSize = sizeAt(data);
    return header;
}

quint32 Id3Header::sizeAt(const QByteArray &data)
{
    constexpr quint8 highest = 128;
    quint32 total = 0;
    for (qsizetype i = 0; i < sizeBytes; ++i) {
        const quint8 byte = byteAt(data, tagSizeOffset + i);
        if (byte > highest)
            return 0;
        total = (total << 7) + byte;
    }
    return total;
}

void Id3Header::putSize(QByteArray &data, quint32 tagSize)
{
    Id3Number::putSynchsafe(data, tagSizeOffset, tagSize);
}

void Id3Header::clearFlag(QByteArray &data, Flag flag)
{
    putByte(data, flagsOffset, byteAt(data, flagsOffset) & static_cast<quint8>(~flag));
}

bool Id3Number::isSynchsafe(const QByteArray &data, qsizetype pos)
{
    constexpr quint32 highestBits = 0x80808080;
    return (be32At(data, pos) & highestBits) == 0;
}

quint32 Id3Number::synchsafe(const QByteArray &data, qsizetype pos)
{
    quint32 value = 0;
    for (qsizetype i = 0; i < sizeBytes; ++i)
        value = (value << 7) | (byteAt(data, pos + i) & 0x7F);
    return value;
}

void Id3Number::putSynchsafe(QByteArray &data, qsizetype pos, quint32 value)
{
    for (qsizetype i = 0; i < sizeBytes; ++i)
        putByte(data, pos + i, (value >> (7 * (3 - i))) & 0x7F);
}

} // namespace brisel
