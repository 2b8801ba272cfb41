#include "songfile/zbxheader.h"

#include "base/bytes.h"
#include "base/songtext.h"

namespace brisel
{

namespace
{

struct TextField {
    qsizetype offset;
    qsizetype size;
};

constexpr qsizetype sizeOffset = 4;
constexpr qsizetype origSizeOffset = 12;
constexpr qsizetype tempoOffset = 38;
constexpr TextField longNameField{42, 13};
constexpr TextField copyrightField{90, 20};
constexpr TextField titleField{122, 32};
constexpr TextField editorField{154, 31};
constexpr qsizetype flagsOffset = 185;
constexpr TextField authorField{186, 32};
constexpr TextField artistField{218, 32};
constexpr TextField genreField{250, 32};
constexpr int tempoLimit = 500; ///< beats per minute; lower numbers are valid

QString read(const QByteArray &header, TextField field)
{
    return songText(fieldAt(header, field.offset, field.size));
}

void write(QByteArray &header, TextField field, const QString &text)
{
    putField(header, field.offset, field.size, songBytes(text.left(field.size)));
}

bool wouldLoseBytes(const QByteArray &header, TextField field, const QString &text)
{
    return read(header, field) == text &&
           holdsMoreThanSongText(header.mid(field.offset, field.size));
}

} // namespace

SongInfo::fileTypeEnum ZbxHeader::typeOf(const QByteArray &data)
{
    if (data.startsWith("_ZB3"))
        return SongInfo::Zb3;
    if (data.startsWith("_ZB4"))
        return SongInfo::Zb4;
    return data.startsWith("_ZB5") ? SongInfo::Zb5 : SongInfo::Unknown;
}

qsizetype ZbxHeader::sizeOf(SongInfo::fileTypeEnum type)
{
    switch (type) {
    case SongInfo::Zb3:
    case SongInfo::Zb4:
        return shortSize;
    case SongInfo::Zb5:
        return longSize;
    default:
        return 0;
    }
}

bool ZbxHeader::loadHeader(const QByteArray &data)
{
    m_header.clear();
    const SongInfo::fileTypeEnum type = typeOf(data);
    if (type != SongInfo::Unknown && data.size() < sizeOf(type))
        return false;
    m_fileType = type;
    if (type != SongInfo::Unknown)
        m_header = data;
    return type != SongInfo::Unknown;
}

QString ZbxHeader::title() const
{
    return read(m_header, titleField);
}

QString ZbxHeader::artist() const
{
    return read(m_header, artistField);
}

QString ZbxHeader::author() const
{
    return read(m_header, authorField);
}

QString ZbxHeader::genre() const
{
    return read(m_header, genreField);
}

QString ZbxHeader::editor() const
{
    return read(m_header, editorField);
}

QString ZbxHeader::copyright() const
{
    return read(m_header, copyrightField);
}

QString ZbxHeader::longName() const
{
    return read(m_header, longNameField);
}

int ZbxHeader::flags() const
{
    return signedByteAt(m_header, flagsOffset);
}

int ZbxHeader::tempo() const
{
    return le16At(m_header, tempoOffset);
}

bool ZbxHeader::hasValidTempo() const
{
    return tempo() > 0 && tempo() < tempoLimit;
}

void ZbxHeader::setTitle(const QString &text)
{
    write(m_header, titleField, text);
}

void ZbxHeader::setAuthor(const QString &text)
{
    write(m_header, authorField, text);
}

void ZbxHeader::setArtist(const QString &text)
{
    write(m_header, artistField, text);
}

void ZbxHeader::setGenre(const QString &text)
{
    write(m_header, genreField, text);
}

void ZbxHeader::setTempo(int bpm)
{
    putLe16(m_header, tempoOffset, static_cast<quint16>(bpm));
}

void ZbxHeader::setFlag(FlagsEnum flag)
{
    putByte(m_header, flagsOffset, byteAt(m_header, flagsOffset) | static_cast<quint8>(flag));
}

void ZbxHeader::clearFlag(FlagsEnum flag)
{
    putByte(m_header, flagsOffset,
            static_cast<quint8>(byteAt(m_header, flagsOffset) & ~static_cast<unsigned>(flag)));
}

void ZbxHeader::setSize(unsigned bytes)
{
    putLe32(m_header, sizeOffset, bytes);
}

void ZbxHeader::setOrigSize(unsigned bytes)
{
    putLe32(m_header, origSizeOffset, bytes);
}

bool ZbxHeader::wouldLose(Field field, const SongInfo &info) const
{
    switch (field) {
    case Field::Title:
        return wouldLoseBytes(m_header, titleField, info.title);
    case Field::Artist:
        return wouldLoseBytes(m_header, artistField, info.artist);
    case Field::Author:
        return wouldLoseBytes(m_header, authorField, info.author);
    case Field::Genre:
        return wouldLoseBytes(m_header, genreField, info.genre);
    }
    return false;
}

} // namespace brisel
