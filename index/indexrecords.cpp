#include "index/indexrecords.h"

#include "base/bytes.h"
#include "base/songtext.h"
#include "index/songinfoindex.h"

namespace brisel
{

namespace
{

constexpr quint16 headerMark = 0x00FF;

/// Appends an empty record to \a file. Returns its offset.
qsizetype appendRecord(QByteArray &file)
{
    const qsizetype offset = file.size();
    file.append(IndexRecord::size, '\0');
    return offset;
}

/// Puts \a number in decimal digits at \a pos: the first \a width of them if it has more.
void putDigits(QByteArray &file, qsizetype pos, int width, quint32 number)
{
    quint32 limit = 1;
    for (int i = 0; i < width; ++i)
        limit *= 10;
    while (number >= limit)
        number /= 10;
    for (int i = width - 1; i >= 0; --i, number /= 10)
        putByte(file, pos + i, static_cast<quint8>('0' + number % 10));
}

/// Returns the number in the field of digits at \a pos; 0 if it contains anything else.
quint32 numberAt(const QByteArray &file, qsizetype pos, int width)
{
    quint32 number = 0;
    for (int i = 0; i < width; ++i) {
        const int digit = byteAt(file, pos + i) - '0';
        if (digit < 0 || digit > 9)
            return fieldAt(file, pos, width).toUInt();
        number = number * 10 + static_cast<quint32>(digit);
    }
    return number;
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
    // Separately: a field that is not a number is read as 0 and does not affect the others.
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
    QByteArray record;
    appendTo(record);
    return record;
}

void PathRecord::appendTo(QByteArray &file) const
{
    const qsizetype offset = appendRecord(file);
    putBe32(file, offset, id);
    putField(file, offset + pathAt, pathWidth - 1, path);
    putDigits(file, offset + dateAt, dateWidth, date);
    putDigits(file, offset + timeAt, timeWidth, time);
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
    record.type = typeOf(byteAt(file, offset + typeAt));
    record.flag = (byteAt(file, offset + typeAt) >> 3) & 1;
    return true;
}

QByteArray SongRecord::bytes() const
{
    QByteArray record;
    appendTo(record);
    return record;
}

void SongRecord::appendTo(QByteArray &file) const
{
    const qsizetype offset = appendRecord(file);
    putBe32(file, offset, id);
    putField(file, offset + titleAt, titleWidth, title);
    putByte(file, offset + bpmAt, bpm);
    putByte(file, offset + typeAt, static_cast<quint8>((type & 7) | (flag * 8)));
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
    QByteArray record;
    appendRecord(record);
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
    if (character < firstCharacter || character >= firstCharacter + entries)
        return;
    const qsizetype entry = (character - firstCharacter) * 4;
    if (be32At(m_bytes, entry) == noEntry)
        putBe32(m_bytes, entry, offset);
}

} // namespace brisel
