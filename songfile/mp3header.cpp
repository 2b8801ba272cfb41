#include "songfile/mp3header.h"

#include "base/bytes.h"
#include "base/songtext.h"
#include "id3/id3plain.h"
#include "id3/id3text.h"

#include <algorithm>
#include <limits>

namespace brisel
{

namespace
{

constexpr qsizetype frameSizeOffset = 4;
constexpr char emptyTag[] = "ID3\x03\x00\x00\x00\x00\x00"; // and the terminator: ten bytes
constexpr qint64 millisecondsPerSecond = 1000;

constexpr char copyrightId[] = "TCOP";

constexpr qsizetype anyLength = std::numeric_limits<qsizetype>::max();

/// A decimal number from 0 up; 0 if it is invalid or too large.
int boundedNumber(const QString &text, qint64 divisor)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber) / divisor;
    return isNumber && number > 0 && number <= std::numeric_limits<int>::max()
               ? static_cast<int>(number)
               : 0;
}

QString lengthText(int seconds)
{
    return seconds > 0 ? QString::number(seconds * millisecondsPerSecond) : QString();
}

QString bpmText(int bpm)
{
    return bpm > 0 ? QString::number(bpm) : QString();
}

} // namespace

bool Mp3Header::loadHeader(const QByteArray &data)
{
    *this = Mp3Header();
    if (data.size() < tagHeaderSize)
        return false;
    if (!Id3Header::isAt(data)) {
        m_tag = QByteArray(emptyTag, sizeof emptyTag);
        m_isChanged = true;
        noteLoaded();
        return true;
    }
    const Id3Header header = Id3Header::read(data);
    if (header.tagSize > data.size())
        return false;
    const qint64 end = static_cast<qint64>(header.tagSize) + tagHeaderSize;
    const QByteArray withoutFooter = data.first(std::min<qint64>(end, data.size()));
    const qsizetype footer = Id3Plain::footerSize(data);
    m_loaded = data.first(std::min<qint64>(end + footer, data.size()));
    m_audioStart = static_cast<quint32>(end + footer);
    m_tag = Id3Plain::tag(withoutFooter);
    noteLoaded();
    return true;
}

/// Stores the frames' end and the padding from which the tag's growth is counted.
void Mp3Header::noteLoaded()
{
    m_tagSize = Id3Header::sizeAt(m_tag);
    m_frames = Id3Frames(m_tag, end());
    m_loadedFrames = m_frames.framesEnd();
    m_loadedPadding = m_frames.endsInPadding() ? m_tag.size() - m_frames.framesEnd() : 0;
}

void Mp3Header::noteSaved()
{
    m_loaded = stream();
    m_isChanged = false;
    m_audioStart = static_cast<quint32>(m_loaded.size());
    noteLoaded();
}

unsigned Mp3Header::getSingleFrameLength(int pos) const
{
    return be32At(m_tag, pos + frameSizeOffset);
}

std::optional<Id3Frame> Mp3Header::frame(QByteArrayView id) const
{
    return m_frames.find(m_tag, id, m_tag.size());
}

QByteArray Mp3Header::frameContent(const Id3Frame &frame) const
{
    // A size of 0 means the rest of the tag up to its first zero byte.
    if (frame.isSearched && frame.claimed == 0)
        return m_tag.mid(frame.start + frame.headerSize);
    return m_frames.content(m_tag, frame);
}

int Mp3Header::extractId3Frame(QString &text, const QString &id) const
{
    text.clear();
    const std::optional<Id3Frame> found = frame(id.toLatin1());
    if (!found)
        return -1;
    text = Id3Text::read(frameContent(*found), anyLength);
    return static_cast<int>(found->start);
}

int Mp3Header::insertId3Frame(const QByteArray &data, const QString &id, int pos)
{
    return data.isEmpty() ? 0 : insertFrame(id.toLatin1(), '\0' + data, pos);
}

int Mp3Header::insertFrame(QByteArrayView id, const QByteArray &content, qsizetype pos)
{
    const QByteArray frame = m_frames.frame(id, content);
    if (pos < 0 || pos > m_tag.size() || m_tag.isEmpty())
        return 0;
    m_tag.insert(pos, frame);
    resized(frame.size());
    return static_cast<int>(frame.size());
}

int Mp3Header::removeId3Frame(const QString &id)
{
    const std::optional<Id3Frame> found = frame(id.toLatin1());
    if (!found)
        return 0;
    m_tag.remove(found->start, found->size);
    resized(-found->size);
    return static_cast<int>(found->size);
}

void Mp3Header::resized(qsizetype bytes)
{
    m_isChanged = true;
    m_tagSize = static_cast<quint32>(m_tagSize + bytes);
    m_frames.walkAgain(m_tag, end());
    fitPadding();
    updateId3TagSize();
}

/// If the frames have grown since the tag was loaded, they use the padding. If they have shrunk,
/// the padding keeps its size.
void Mp3Header::fitPadding()
{
    if (m_loadedPadding == 0 || !m_frames.endsInPadding())
        return;
    const qsizetype growth = std::max<qsizetype>(m_frames.framesEnd() - m_loadedFrames, 0);
    const qsizetype wanted = std::max<qsizetype>(m_loadedPadding - growth, 0);
    const qsizetype present = m_tag.size() - m_frames.framesEnd();
    m_tag.resize(m_frames.framesEnd());
    m_tag.append(wanted, '\0');
    m_tagSize = static_cast<quint32>(m_tagSize + wanted - present);
    m_frames.walkAgain(m_tag, end());
}

QString Mp3Header::text(QByteArrayView id) const
{
    const std::optional<Id3Frame> found = frame(id);
    return found ? Id3Text::read(frameContent(*found), anyLength) : QString();
}

QByteArray Mp3Header::textContent(const QString &text) const
{
    // In an unsynchronised tag of version 2.4 each frame would have to be unsynchronised, too.
    constexpr QChar changedByScheme(0xFF);
    const Id3Header header = Id3Header::read(m_tag);
    if (header.version == 4 && header.isUnsynchronised() && text.contains(changedByScheme))
        return Id3Text::utf8Content(text);
    return Id3Text::content(text, header.version);
}

void Mp3Header::setText(QByteArrayView id, const QString &text)
{
    removeId3Frame(QString::fromLatin1(id));
    if (!text.isEmpty())
        insertFrame(id, textContent(text), m_frames.framesStart());
}

/// True if the frame has more than \a text, another encoding, or can't be read.
bool Mp3Header::wouldLose(QByteArrayView id, const QString &text) const
{
    const std::optional<Id3Frame> found = frame(id);
    if (!found)
        return false;
    if (text.isEmpty()) // the frame would be removed
        return true;
    const QByteArrayView stored = QByteArrayView(m_tag).sliced(found->start, found->size);
    if (stored == m_frames.frame(id, textContent(text)))
        return false;
    const QByteArray content = frameContent(*found);
    const QString shown = Id3Text::read(content, anyLength);
    bool isNumber = false;
    const qint64 number = shown.toLongLong(&isNumber);
    const bool isSame = shown == text || (isNumber && QString::number(number) == text);
    return !isSame || m_frames.isBeyondText(*found) || !Id3Text::isPlain(content) ||
           !Id3Text::isPlain(textContent(text));
}

bool Mp3Header::wouldLose(Field field, const SongInfo &info) const
{
    const auto isLost = [this](QByteArrayView id, const QString &held, const QString &text) {
        return held == text && wouldLose(id, text);
    };
    switch (field) {
    case Field::Title:
        return isLost(titleId, title(), info.title);
    case Field::Artist:
        return isLost(artistId, artist(), info.artist);
    case Field::Author:
        return isLost(authorId, author(), info.author);
    case Field::Genre:
        return isLost(genreId, genre(), info.genre);
    case Field::Key:
        return isLost(keyId, key(), info.key);
    case Field::Length:
        return isLost(lengthId, lengthText(length()), lengthText(info.length));
    case Field::UserBpm:
        return isLost(userBpmId, bpmText(userBpm()), bpmText(info.userBpm));
    }
    return false;
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
    return text(copyrightId).toUpper().contains(QStringLiteral("KORDIA"));
}

void Mp3Header::setLength(int seconds)
{
    setText(lengthId, lengthText(seconds));
}

void Mp3Header::setUserBpm(int bpm)
{
    setText(userBpmId, bpmText(bpm));
}

void Mp3Header::setBriselEditParam()
{
    insertFrame(editId, QByteArray(4, '\0'), m_frames.framesStart());
}

} // namespace brisel
