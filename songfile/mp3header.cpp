#include "songfile/mp3header.h"

#include "base/bytes.h"
#include "base/songtext.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

constexpr int framesStart = Mp3Header::tagHeaderSize;
constexpr qsizetype tagSizeOffset = 6;
constexpr qsizetype frameSizeOffset = 4;
constexpr qsizetype frameHeaderSize = 10;
constexpr char emptyTag[] = "ID3\x03\x00\x00\x00\x00\x00"; // and the terminator: ten bytes
constexpr qint64 millisecondsPerSecond = 1000;

const QString titleId = u"TIT2"_s;
const QString artistId = u"TPE1"_s;
const QString authorId = u"TCOM"_s;
const QString genreId = u"TCON"_s;
const QString keyId = u"TKEY"_s;
const QString lengthId = u"TLEN"_s;
const QString userBpmId = u"TBPM"_s;
const QString copyrightId = u"TCOP"_s;
const QString editId = u"MEDT"_s;

/// A decimal number from 0 up; what is none, or does not fit, counts as 0.
int boundedNumber(const QString &text, qint64 divisor)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber) / divisor;
    return isNumber && number > 0 && number <= std::numeric_limits<int>::max()
               ? static_cast<int>(number)
               : 0;
}

} // namespace

bool Mp3Header::loadHeader(const QByteArray &data)
{
    m_stream.clear();
    m_tagSize = 0;
    m_audioStart = 0;
    if (data.size() < tagHeaderSize)
        return false;
    if (!data.startsWith("ID3")) {
        m_stream = QByteArray(emptyTag, sizeof emptyTag);
        return true;
    }
    const unsigned size = getId3TagSize(data);
    if (size > data.size())
        return false;
    m_stream = data.left(static_cast<qsizetype>(size) + tagHeaderSize);
    m_audioStart = size + tagHeaderSize;
    m_tagSize = size;
    return true;
}

unsigned Mp3Header::getId3TagSize(const QByteArray &data)
{
    constexpr quint8 highest = 128;
    unsigned size = 0;
    for (qsizetype i = 0; i < 4; ++i) {
        const quint8 byte = byteAt(data, tagSizeOffset + i);
        if (byte > highest)
            return 0;
        size = (size << 7) + byte;
    }
    return size;
}

void Mp3Header::updateId3TagSize()
{
    for (qsizetype i = 0; i < 4; ++i)
        putByte(m_stream, tagSizeOffset + i, (m_tagSize >> (7 * (3 - i))) & 0x7F);
}

unsigned Mp3Header::getSingleFrameLength(int pos) const
{
    return be32At(m_stream, pos + frameSizeOffset);
}

int Mp3Header::extractId3Frame(QString &text, const QString &id) const
{
    text.clear();
    const qsizetype pos = m_stream.indexOf(id.toLatin1(), framesStart);
    if (pos < 0)
        return -1;
    // A size of 0 gives the rest of the tag, up to its first zero byte.
    const qint64 length = static_cast<qint64>(getSingleFrameLength(static_cast<int>(pos))) - 1;
    text = songText(m_stream.mid(pos + frameHeaderSize + 1, length));
    return static_cast<int>(pos);
}

int Mp3Header::insertId3Frame(const QByteArray &data, const QString &id, int pos)
{
    if (pos < 0 || pos > m_stream.size() || data.isEmpty())
        return 0;
    QByteArray frame =
        id.toLatin1() + QByteArray(frameHeaderSize - frameSizeOffset + 1, '\0') + data;
    putBe32(frame, frameSizeOffset, static_cast<quint32>(data.size() + 1));
    m_stream.insert(pos, frame);
    m_tagSize += static_cast<quint32>(frame.size());
    updateId3TagSize();
    return static_cast<int>(frame.size());
}

int Mp3Header::removeId3Frame(const QString &id)
{
    const qsizetype pos = m_stream.indexOf(id.toLatin1(), framesStart);
    const qint64 tagEnd = static_cast<qint64>(m_tagSize) + tagHeaderSize;
    if (pos < 0 || pos >= tagEnd)
        return 0;
    // A frame ends with the tag at the latest, whatever its size field says.
    const qint64 claimed = getSingleFrameLength(static_cast<int>(pos)) + frameHeaderSize;
    const qint64 removed = std::min({claimed, tagEnd - pos, m_stream.size() - pos});
    m_stream.remove(pos, removed);
    m_tagSize -= static_cast<quint32>(removed);
    updateId3TagSize();
    return static_cast<int>(removed);
}

QString Mp3Header::text(const QString &id) const
{
    QString text;
    extractId3Frame(text, id);
    return text;
}

bool Mp3Header::has(const QString &id) const
{
    QString text;
    return extractId3Frame(text, id) >= 0;
}

void Mp3Header::setText(const QString &id, const QString &text)
{
    removeId3Frame(id);
    insertId3Frame(songBytes(text), id, framesStart);
}

QString Mp3Header::title() const
{
    return text(titleId);
}

QString Mp3Header::artist() const
{
    return text(artistId);
}

QString Mp3Header::author() const
{
    return text(authorId);
}

QString Mp3Header::genre() const
{
    return text(genreId);
}

QString Mp3Header::key() const
{
    return text(keyId);
}

int Mp3Header::length() const
{
    return boundedNumber(text(lengthId), millisecondsPerSecond);
}

int Mp3Header::userBpm() const
{
    return boundedNumber(text(userBpmId), 1);
}

bool Mp3Header::isKordia() const
{
    return text(copyrightId).toUpper().contains(u"KORDIA"_s);
}

bool Mp3Header::hasTitle() const
{
    return has(titleId);
}

bool Mp3Header::hasArtist() const
{
    return has(artistId);
}

bool Mp3Header::hasAuthor() const
{
    return has(authorId);
}

bool Mp3Header::hasGenre() const
{
    return has(genreId);
}

bool Mp3Header::hasKey() const
{
    return has(keyId);
}

bool Mp3Header::hasLength() const
{
    return has(lengthId);
}

bool Mp3Header::hasUserBpm() const
{
    return has(userBpmId);
}

bool Mp3Header::hasBriselEditParam() const
{
    return has(editId);
}

void Mp3Header::setTitle(const QString &text)
{
    setText(titleId, text);
}

void Mp3Header::setArtist(const QString &text)
{
    setText(artistId, text);
}

void Mp3Header::setAuthor(const QString &text)
{
    setText(authorId, text);
}

void Mp3Header::setGenre(const QString &text)
{
    setText(genreId, text);
}

void Mp3Header::setKey(const QString &text)
{
    setText(keyId, text);
}

void Mp3Header::setLength(int seconds)
{
    setText(lengthId, seconds > 0 ? QString::number(seconds * millisecondsPerSecond) : QString());
}

void Mp3Header::setUserBpm(int bpm)
{
    setText(userBpmId, bpm > 0 ? QString::number(bpm) : QString());
}

void Mp3Header::setBriselEditParam()
{
    insertId3Frame(QByteArray(3, '\0'), editId, framesStart);
}
