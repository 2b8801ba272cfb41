#include "index/indexrecords.h"

#include "base/bytes.h"
#include "base/songtext.h"
#include "index/songinfoindex.h"

namespace
{

constexpr quint16 headerMark = 0x00FF;
constexpr quint32 noEntry = 0xFFFFFFFF;
constexpr char16_t firstCharacter = 0x20;
constexpr char16_t lastCharacter = 0x5F;

QByteArray emptyRecord()
{
    return QByteArray(IndexRecord::size, '\0');
}

/// \a number in at least \a width decimal digits; a year above 9999 would give one more.
QByteArray digits(quint32 number, int width)
{
    return QByteArray::number(number).rightJustified(width, '0').left(width);
}

/// The number in the field of digits at \a pos; 0 when it holds anything else.
quint32 numberAt(const QByteArray &file, qsizetype pos, int width)
{
    return fieldAt(file, pos, width).toUInt();
}

} // namespace

PathRecord::PathRecord(const SongInfoIndex &song)
    : id(song.id), path(pathBytes(song.path)), date(song.date), time(song.time)
{
}

bool PathRecord::read(const QByteArray &file, qsizetype offset, PathRecord &record)
{
    if (!fits(file, offset, IndexRecord::size))
        return false;
    record.id = be32At(file, offset);
    record.path = fieldAt(file, offset + pathAt, pathWidth);
    // Part by part: a field that holds no number reads as 0 and leaves its neighbours alone.
    record.date = numberAt(file, offset + dateAt, 4) * 10000 +
                  numberAt(file, offset + dateAt + 4, 2) * 100 +
                  numberAt(file, offset + dateAt + 6, 2);
    record.time = numberAt(file, offset + timeAt, 2) * 10000 +
                  numberAt(file, offset + timeAt + 2, 2) * 100 +
                  numberAt(file, offset + timeAt + 4, 2);
    return true;
}

QByteArray PathRecord::bytes() const
{
    QByteArray record = emptyRecord();
    putBe32(record, 0, id);
    putField(record, pathAt, pathWidth - 1, path);
    putField(record, dateAt, dateWidth, digits(date, dateWidth));
    putField(record, timeAt, timeWidth, digits(time, timeWidth));
    return record;
}

SongRecord::SongRecord(const SongInfoIndex &song)
    : id(song.id), title(songBytes(song.title)), bpm(song.bpm), type(song.type), flag(song.flag)
{
}

bool SongRecord::read(const QByteArray &file, qsizetype offset, SongRecord &record)
{
    if (!fits(file, offset, IndexRecord::size))
        return false;
    record.id = be32At(file, offset);
    record.title = fieldAt(file, offset + titleAt, titleWidth);
    record.bpm = byteAt(file, offset + bpmAt);
    record.type = byteAt(file, offset + typeAt) & 7;
    record.flag = (byteAt(file, offset + typeAt) >> 3) & 1;
    return true;
}

QByteArray SongRecord::bytes() const
{
    QByteArray record = emptyRecord();
    putBe32(record, 0, id);
    putField(record, titleAt, titleWidth, title);
    putByte(record, bpmAt, bpm);
    putByte(record, typeAt, static_cast<quint8>((type & 7) | (flag * 8)));
    return record;
}

bool GroupHeader::isAt(const QByteArray &file, qsizetype offset)
{
    return fits(file, offset, IndexRecord::size) && be16At(file, offset + markAt) == headerMark;
}

bool GroupHeader::read(const QByteArray &file, qsizetype offset, GroupHeader &header)
{
    if (!isAt(file, offset))
        return false;
    header.previousCount = be16At(file, offset);
    header.count = be16At(file, offset + 2);
    header.name = fieldAt(file, offset + SongRecord::titleAt, SongRecord::titleWidth);
    return true;
}

QByteArray GroupHeader::bytes() const
{
    QByteArray record = emptyRecord();
    putBe16(record, 0, previousCount);
    putBe16(record, 2, count);
    putField(record, SongRecord::titleAt, SongRecord::titleWidth, name);
    putBe16(record, markAt, headerMark);
    return record;
}

void AlphabetTable::clear()
{
    m_bytes = QByteArray(size, '\xFF');
}

void AlphabetTable::add(const QString &text, quint32 offset)
{
    if (text.isEmpty())
        return;
    const char16_t character = text.at(0).toUpper().unicode();
    if (character < firstCharacter || character > lastCharacter)
        return;
    const qsizetype entry = (character - firstCharacter) * 4;
    if (be32At(m_bytes, entry) == noEntry)
        putBe32(m_bytes, entry, offset);
}
