#include "songfile/rawmidifile.h"

#include "base/songtext.h"

#include <algorithm>
#include <limits>

namespace brisel
{

namespace
{

constexpr char metaEvent = '\xFF';
constexpr char endOfTrackMeta = '\x2F';
constexpr qsizetype formatOffset = 8;
constexpr qsizetype chunkHeaderSize = 8; ///< "MTrk" and the length

// Offsets from an event's 0xFF.
constexpr qsizetype lengthOffset = 2;
constexpr qsizetype typeOffset = 3; ///< publisher's events; in standard ones the data
constexpr qsizetype kordiaDataOffset = 4;
constexpr qsizetype markerTextOffset = 6;

/// The bytes of a text with the stored \a length, up to its first zero byte and at most \a limit; a
/// negative or too large length gives the rest of the data.
QByteArray textBytes(const QByteArray &data, qsizetype pos, qsizetype length, qsizetype limit)
{
    if (pos >= data.size())
        return {};
    const qsizetype left = data.size() - pos;
    const qsizetype width = std::min(length < 0 ? left : std::min(length, left), limit);
    const QByteArrayView window(data.constData() + pos, width);
    const qsizetype end = window.indexOf('\0');
    return window.first(end < 0 ? width : end).toByteArray();
}

QString textAt(const QByteArray &data, qsizetype pos, qsizetype length)
{
    return songText(textBytes(data, pos, length, data.size()));
}

} // namespace

bool RawMidiFile::loadData(const QByteArray &data)
{
    const qsizetype track = data.indexOf("MTrk");
    if (!data.startsWith("MThd") || track <= 0 || !fits(data, formatOffset, 2) ||
        data.size() > std::numeric_limits<int>::max())
        return false;
    const quint16 format = be16At(data, formatOffset);
    if (format > 1)
        return false;
    m_stream = data;
    m_firstEvents.reset();
    m_isWalkable.reset();
    m_scannedBytes = 0;
    m_trackWalks = 0;
    m_fileType = format == 0 ? SongInfo::Midi0 : SongInfo::Midi1;
    m_trackSizePos = static_cast<int>(track + 4);
    m_trackSize = be32At(data, m_trackSizePos);
    m_trackStart = static_cast<int>(track + chunkHeaderSize);
    return true;
}

void RawMidiFile::growTrack(qsizetype bytes)
{
    // A hostile length stays at the limit instead of wrapping around to 0.
    const qint64 size = static_cast<qint64>(m_trackSize) + bytes;
    m_trackSize =
        static_cast<quint32>(std::clamp<qint64>(size, 0, std::numeric_limits<quint32>::max()));
    updateTrackSize();
}

int RawMidiFile::indexOfKordiaMetaevent(const QByteArray &data, int from, kordiaMetaTypeEnum type)
{
    // Searches for the rarest byte with a fast search.
    qsizetype hit = data.indexOf(metaEvent, from);
    while (hit >= 0 &&
           (byteAt(data, hit + 1) != kordiaMeta || byteAt(data, hit + typeOffset) != type))
        hit = data.indexOf(metaEvent, hit + 1);
    return static_cast<int>(hit);
}

const RawMidiFile::FirstEvents &RawMidiFile::firstEvents() const
{
    if (m_firstEvents)
        return *m_firstEvents;
    FirstEvents &first = m_firstEvents.emplace();
    first.standard.fill(-1);
    first.kordia.fill(-1);
    const auto keep = [](int &place, qsizetype hit) {
        if (place < 0)
            place = static_cast<int>(hit);
    };
    qsizetype hit = m_stream.indexOf(metaEvent, m_trackStart);
    for (; hit >= 0 && hit + 1 < m_stream.size(); hit = m_stream.indexOf(metaEvent, hit + 1)) {
        const quint8 type = byteAt(m_stream, hit + 1);
        keep(first.standard[type], hit);
        if (type == kordiaMeta)
            keep(first.kordia[byteAt(m_stream, hit + typeOffset)], hit);
    }
    m_scannedBytes += m_stream.size();
    return first;
}

int RawMidiFile::extractMetaevent(QString &text, kordiaMetaTypeEnum type) const
{
    text.clear();
    const int hit = firstEvents().kordia[type];
    if (hit >= 0)
        text = textAt(m_stream, hit + kordiaDataOffset,
                      signedByteAt(m_stream, hit + lengthOffset) - 1);
    return hit;
}

int RawMidiFile::extractMetaevent(QString &text, char metaType) const
{
    text.clear();
    const int hit = firstEvents().standard[static_cast<quint8>(metaType)];
    if (hit >= 0)
        text = textAt(m_stream, hit + typeOffset, signedByteAt(m_stream, hit + lengthOffset));
    return hit;
}

unsigned RawMidiFile::removeHeadMetaevent(kordiaMetaTypeEnum type, bool onlyFirst)
{
    return removeEvents({kordiaMeta, type}, onlyFirst);
}

unsigned RawMidiFile::removeHeadMetaevent(char metaType, bool onlyFirst)
{
    return removeEvents({metaType}, onlyFirst);
}

QList<HeadEvent> RawMidiFile::eventsToRemove(const MetaKind &kind, bool onlyFirst) const
{
    const HeadEventSearch search(m_stream, m_trackStart, trackEnd());
    if (!search.mayHold(kind))
        return {};
    if (!m_isWalkable) {
        m_isWalkable = search.isWalkable();
        ++m_trackWalks;
    }
    return *m_isWalkable ? search.walked(kind, onlyFirst) : search.matched(kind, onlyFirst);
}

unsigned RawMidiFile::removeEvents(const MetaKind &kind, bool onlyFirst)
{
    // The remaining bytes are collected in one pass, so that a file full of such events takes no
    // longer than another.
    QByteArray kept;
    qsizetype copied = 0;
    qsizetype removed = 0;
    for (const HeadEvent &event : eventsToRemove(kind, onlyFirst)) {
        kept += QByteArrayView(m_stream).sliced(copied, event.start - copied);
        copied = event.end;
        removed += event.end - event.start;
    }
    if (removed > 0) {
        m_stream = kept + m_stream.mid(copied);
        m_firstEvents.reset();
        // A track without some of its events can still be walked, unless it lost its end.
        if (!*m_isWalkable || kind.type == endOfTrackMeta)
            m_isWalkable.reset();
        growTrack(-removed);
    }
    return static_cast<unsigned>(removed);
}

unsigned RawMidiFile::insertBytes(const QByteArray &bytes, int pos)
{
    if (pos < 0 || pos > m_stream.size())
        return 0;
    m_stream.insert(pos, bytes);
    m_firstEvents.reset();
    m_isWalkable.reset();
    growTrack(bytes.size());
    return static_cast<unsigned>(bytes.size());
}

unsigned RawMidiFile::insertAtHead(const QByteArray &events)
{
    const std::optional<bool> isWalkable = m_isWalkable; // whole events do not change it
    const unsigned inserted = insertBytes(events, m_trackStart);
    m_isWalkable = isWalkable;
    return inserted;
}

int RawMidiFile::extractMarkersList(QList<brisel::Marker> &list) const
{
    list.clear();
    const int first = firstEvents().kordia[Marker];
    if (first >= 0)
        m_scannedBytes += m_stream.size() - first;
    // Texts of real markers don't overlap: thousands of markers that each claim the rest of the
    // file get at most its size together.
    qsizetype unclaimed = m_stream.size();
    for (int hit = first; hit >= 0;) {
        const int textLength = byteAt(m_stream, hit + lengthOffset) - 3;
        const QByteArray text = textBytes(m_stream, hit + markerTextOffset, textLength, unclaimed);
        unclaimed -= text.size();
        list.append({songText(text), be16At(m_stream, hit + kordiaDataOffset)});
        hit = indexOfKordiaMetaevent(m_stream,
                                     hit + static_cast<int>(markerTextOffset) + textLength, Marker);
    }
    return first;
}

} // namespace brisel
