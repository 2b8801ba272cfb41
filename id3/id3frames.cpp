#include "id3/id3frames.h"

#include "base/bytes.h"
#include "id3/unsynchronisation.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qsizetype nameSize = 4;
constexpr qsizetype sizeOffset = 4;
constexpr qsizetype frameHeader = 10; ///< bytes
constexpr qsizetype frameHeader22 = 6;
constexpr qsizetype formatOffset = 9; ///< the second byte of a frame's flags

struct Format {
    quint8 grouped;
    quint8 compressed;
    quint8 encrypted;
    quint8 unsynchronised;
    quint8 hasLength;
};
constexpr Format format23{0x20, 0x80, 0x40, 0, 0};
constexpr Format format24{0x40, 0x08, 0x04, 0x02, 0x01};

struct Names {
    const char *current;
    const char *ofVersion22;
};
/// The frames that the program reads and writes.
constexpr Names knownNames[] = {{"TIT2", "TT2"}, {"TPE1", "TP1"}, {"TCOM", "TCM"},
                                {"TCON", "TCO"}, {"TKEY", "TKE"}, {"TLEN", "TLE"},
                                {"TBPM", "TBP"}, {"TCOP", "TCR"}, {"MEDT", "MED"}};

bool isNameLetter(quint8 letter)
{
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
}

/// The name in version 2.2 of a frame of version 2.3; empty if the program doesn't use the frame.
QByteArray olderName(QByteArrayView id)
{
    const auto *known = std::find_if(std::begin(knownNames), std::end(knownNames),
                                     [id](const Names &names) { return id == names.current; });
    return known == std::end(knownNames) ? QByteArray() : QByteArray(known->ofVersion22);
}

bool isText(QByteArrayView bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(),
                       [](char byte) { return byte >= ' ' && byte <= '~'; });
}

bool isZero(QByteArrayView bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(), [](char byte) { return byte == '\0'; });
}

} // namespace

Id3Frames::Id3Frames(const QByteArray &tag, qint64 end)
    : m_header(Id3Header::read(tag)), m_tagEnd(end)
{
    const bool isCompressed = m_header.version == 2 && (m_header.flags & Id3Header::Compressed);
    m_isWalkable = findStart(tag) && m_header.version != 0 && !isCompressed;
    if (!m_isWalkable) {
        m_framesEnd = m_framesStart;
        return;
    }
    walk(tag, m_header.version == 4 ? Sizes::Synchsafe : Sizes::Plain);
    if (m_header.version != 4 || m_end == End::Clean)
        return;
    // Some programs write plain sizes into tags of version 2.4: the kind of size that leads from
    // frame to frame is the right one.
    Id3Frames plain = *this;
    plain.walk(tag, Sizes::Plain);
    const bool isAsFar = plain.m_end == End::Clean && plain.lastStart() == lastStart();
    if (isAsFar || plain.lastStart() > lastStart())
        *this = plain;
}

void Id3Frames::walkAgain(const QByteArray &tag, qint64 end)
{
    m_tagEnd = end;
    m_framesStart = std::min(m_framesStart, tag.size());
    if (m_isWalkable)
        walk(tag, m_sizes);
    else // the new first frame may make the tag walkable
        *this = Id3Frames(tag, end);
}

/// Some programs set the flag for an extended header without writing one. Returns false if the
/// bytes there are neither an extended header nor a frame nor padding.
bool Id3Frames::findStart(const QByteArray &tag)
{
    constexpr qint64 shortest = 6;
    m_framesStart = Id3Header::size;
    if (!m_header.hasExtendedHeader() || isFrameName(tag, m_framesStart))
        return true;
    const bool isPlain = m_header.version == 3;
    const bool isSize = isPlain || Id3Number::isSynchsafe(tag, m_framesStart);
    const qint64 size =
        isPlain ? be32At(tag, m_framesStart) : Id3Number::synchsafe(tag, m_framesStart);
    const qint64 start = m_framesStart + size + (isPlain ? 4 : 0); // 2.4 includes the field itself
    if (!isSize || size < shortest || start > m_tagEnd)
        return isZero(QByteArrayView(tag).sliced(std::min(m_framesStart, tag.size())));
    m_framesStart = start;
    return true;
}

qsizetype Id3Frames::frameHeaderSize() const
{
    return m_header.version == 2 ? frameHeader22 : frameHeader;
}

/// True for letters and digits; some programs write a blank or a zero byte as the fourth.
bool Id3Frames::isFrameName(const QByteArray &tag, qsizetype pos) const
{
    for (qsizetype i = 0; i < 3; ++i) {
        if (!isNameLetter(byteAt(tag, pos + i)))
            return false;
    }
    const quint8 fourth = byteAt(tag, pos + 3);
    return m_header.version == 2 || isNameLetter(fourth) || fourth == ' ' || fourth == 0;
}

/// The bytes after the header of the frame at \a pos; -1 if its size is invalid.
qint64 Id3Frames::contentSize(const QByteArray &tag, qsizetype pos) const
{
    if (m_header.version == 2)
        return be32At(tag, pos + 2) & 0xFFFFFF;
    if (m_sizes == Sizes::Plain)
        return be32At(tag, pos + sizeOffset);
    return Id3Number::isSynchsafe(tag, pos + sizeOffset)
               ? static_cast<qint64>(Id3Number::synchsafe(tag, pos + sizeOffset))
               : -1;
}

void Id3Frames::walk(const QByteArray &tag, Sizes sizes)
{
    m_sizes = sizes;
    m_frames.clear();
    m_framesEnd = m_framesStart;
    m_end = End::Broken;
    const qint64 dataEnd = std::min<qint64>(m_tagEnd, tag.size());
    while (m_framesEnd + frameHeaderSize() <= dataEnd && byteAt(tag, m_framesEnd) != 0) {
        if (!takeFrame(tag, dataEnd))
            return;
    }
    const bool isCut = dataEnd < m_tagEnd && m_framesEnd + frameHeaderSize() > dataEnd;
    m_framesEnd = std::min<qint64>(m_framesEnd, dataEnd);
    const bool isPadded = isZero(QByteArrayView(tag).sliced(m_framesEnd, dataEnd - m_framesEnd));
    m_end = isCut || isPadded ? End::Clean : End::Opaque;
}

bool Id3Frames::mayFollow(const QByteArray &tag, qint64 pos, qint64 dataEnd) const
{
    return pos >= dataEnd || isFrameName(tag, pos) ||
           isZero(QByteArrayView(tag).sliced(pos, dataEnd - pos));
}

bool Id3Frames::takeFrame(const QByteArray &tag, qint64 dataEnd)
{
    const qint64 claimed = contentSize(tag, m_framesEnd);
    const qint64 contentStart = m_framesEnd + frameHeaderSize();
    if (claimed < 0 || claimed > m_tagEnd - contentStart)
        return false;
    // Like other programs, the walk skips frames with invalid names if it can continue after
    // them.
    const bool isNamed = isFrameName(tag, m_framesEnd);
    if ((!isNamed && !isText(QByteArrayView(tag).sliced(m_framesEnd, nameSize))) ||
        ((!isNamed || claimed == 0) && !mayFollow(tag, contentStart + claimed, dataEnd)))
        return false;
    Id3Frame frame;
    frame.start = m_framesEnd;
    frame.headerSize = frameHeaderSize();
    frame.claimed = claimed;
    frame.size = std::min(contentStart + claimed, dataEnd) - m_framesEnd;
    frame.format = m_header.version == 2 ? 0 : byteAt(tag, m_framesEnd + formatOffset);
    m_frames.append(frame);
    m_framesEnd = contentStart + claimed;
    return true;
}

QByteArray Id3Frames::nameInVersion(QByteArrayView id) const
{
    return m_header.version != 2 || isUnknown() ? id.toByteArray() : olderName(id);
}

/// Some programs give frames of newer versions the names of version 2.2 and a zero byte or a blank.
bool Id3Frames::isCalled(const QByteArray &tag, qsizetype pos, const QByteArray &name) const
{
    const QByteArrayView bytes = QByteArrayView(tag).sliced(pos);
    if (name.isEmpty() || bytes.startsWith(name))
        return !name.isEmpty();
    const QByteArray older = olderName(name);
    const quint8 fourth = byteAt(tag, pos + older.size());
    return m_header.version > 2 && !older.isEmpty() && bytes.startsWith(older) &&
           (fourth == 0 || fourth == ' ');
}

std::optional<Id3Frame> Id3Frames::find(const QByteArray &tag, QByteArrayView id,
                                        qsizetype limit) const
{
    const QByteArray name = nameInVersion(id);
    for (const Id3Frame &frame : m_frames) {
        if (frame.start + name.size() > limit)
            return std::nullopt;
        if (isCalled(tag, frame.start, name))
            return frame;
    }
    return endsInPadding() ? std::nullopt : search(tag, id, limit);
}

std::optional<Id3Frame> Id3Frames::search(const QByteArray &tag, QByteArrayView id,
                                          qsizetype limit) const
{
    const qint64 dataEnd = std::min<qint64>(m_tagEnd, tag.size());
    const QByteArrayView window = QByteArrayView(tag).first(std::min(tag.size(), limit));
    // If no frame follows an extended header, its bytes may be frames.
    const qsizetype hit = window.indexOf(id, isUnknown() ? Id3Header::size : m_framesEnd);
    if (hit < 0 || hit >= dataEnd)
        return std::nullopt;
    Id3Frame frame;
    frame.start = hit;
    frame.headerSize = frameHeader;
    frame.claimed = be32At(tag, hit + nameSize);
    frame.size = std::min(frame.claimed + frameHeader, dataEnd - hit);
    frame.isSearched = true;
    return frame;
}

QByteArray Id3Frames::content(const QByteArray &tag, const Id3Frame &frame) const
{
    constexpr qsizetype groupSize = 1;
    constexpr qsizetype lengthSize = 4;
    QByteArray bytes = tag.mid(frame.start + frame.headerSize,
                               std::max<qsizetype>(frame.size - frame.headerSize, 0));
    if (frame.isSearched || m_header.version == 2)
        return bytes;
    const Format &format = m_header.version == 3 ? format23 : format24;
    if ((frame.format & (format.compressed | format.encrypted)) != 0)
        return {};
    const qsizetype added = ((frame.format & format.grouped) != 0 ? groupSize : 0) +
                            ((frame.format & format.hasLength) != 0 ? lengthSize : 0);
    const QByteArray text = bytes.mid(added);
    const bool isUnsynchronised =
        m_header.version == 4 &&
        (m_header.isUnsynchronised() || (frame.format & format.unsynchronised) != 0);
    return isUnsynchronised && Unsynchronisation::isPossible(text) ? Unsynchronisation::undone(text)
                                                                   : text;
}

bool Id3Frames::isBeyondText(const Id3Frame &frame) const
{
    const Format &format = m_header.version == 3 ? format23 : format24;
    return !frame.isSearched && m_header.version > 2 &&
           (frame.format & (format.compressed | format.encrypted | format.grouped)) != 0;
}

QByteArray Id3Frames::frame(QByteArrayView id, const QByteArray &content) const
{
    const QByteArray name = nameInVersion(id);
    if (name.isEmpty())
        return {};
    QByteArray size(4, '\0');
    if (m_sizes == Sizes::Synchsafe)
        Id3Number::putSynchsafe(size, 0, static_cast<quint32>(content.size()));
    else
        putBe32(size, 0, static_cast<quint32>(content.size()));
    if (name.size() < nameSize)
        return name + size.sliced(1) + content;
    return name + size + QByteArray(2, '\0') + content;
}

void Id3Frames::makeSizesSynchsafe(QByteArray &tag) const
{
    if (m_header.version != 4 || m_sizes == Sizes::Synchsafe || m_end != End::Clean)
        return;
    for (const Id3Frame &frame : m_frames)
        Id3Number::putSynchsafe(tag, frame.start + sizeOffset, static_cast<quint32>(frame.claimed));
}

} // namespace brisel
