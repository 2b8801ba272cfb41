#include "songfile/rawmidifile.h"

#include "base/bytes.h"
#include "base/debugstream.h"
#include "base/songtext.h"
#include "songfile/midikeys.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

constexpr char metaEvent = '\xFF';
constexpr char kordiaMeta = '\x4B';
constexpr char copyrightMeta = '\x02';
constexpr char titleMeta = '\x03';
constexpr char keyMeta = '\x59';
constexpr qsizetype formatOffset = 8;
constexpr qsizetype chunkHeaderSize = 8; ///< "MTrk" and the length
constexpr int anyType = -1;

// Offsets from an event's 0xFF.
constexpr qsizetype lengthOffset = 2;
constexpr qsizetype typeOffset = 3; ///< of a publisher's event; data of a standard one
constexpr qsizetype kordiaDataOffset = 4;
constexpr qsizetype markerTextOffset = 6;

QByteArray writtenText(const QString &text)
{
    return songBytes(text.left(RawMidiFile::maxText));
}

QByteArray shortLength(qsizetype length)
{
    return QByteArray(1, static_cast<char>(length));
}

/// The bytes of a text that is said to be \a length bytes long, up to its first zero byte and at
/// most \a limit; a negative or too large length gives what is left.
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
    m_scannedBytes = 0;
    m_fileType = format == 0 ? SongInfo::Midi0 : SongInfo::Midi1;
    m_trackSizePos = static_cast<int>(track + 4);
    m_trackSize = be32At(data, m_trackSizePos);
    m_trackStart = static_cast<int>(track + chunkHeaderSize);
    return true;
}

void RawMidiFile::updateTrackSize()
{
    putBe32(m_stream, m_trackSizePos, m_trackSize);
}

qint64 RawMidiFile::trackEnd() const
{
    return static_cast<qint64>(m_trackStart) + m_trackSize;
}

void RawMidiFile::growTrack(qsizetype bytes)
{
    // A hostile length near the limit stays there instead of starting again from 0.
    const qint64 size = static_cast<qint64>(m_trackSize) + bytes;
    m_trackSize =
        static_cast<quint32>(std::clamp<qint64>(size, 0, std::numeric_limits<quint32>::max()));
    updateTrackSize();
}

int RawMidiFile::indexOfKordiaMetaevent(const QByteArray &data, int from, kordiaMetaTypeEnum type)
{
    // By its rarest byte: that is looked for many at a time.
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
    return removeEvents('\0' + QByteArray(1, metaEvent) + kordiaMeta, type, onlyFirst);
}

unsigned RawMidiFile::removeHeadMetaevent(char metaType, bool onlyFirst)
{
    return removeEvents('\0' + QByteArray(1, metaEvent) + metaType, anyType, onlyFirst);
}

unsigned RawMidiFile::removeEvents(const QByteArray &pattern, int type, bool onlyFirst)
{
    // What stays is collected in one pass, so that a file full of such events takes no longer
    // than another. An event that seems to run on behind the first track ends with it.
    const qint64 end = std::min<qint64>(trackEnd(), m_stream.size());
    const qsizetype eventHeader = pattern.size() + 1;
    QByteArray kept;
    qsizetype copied = 0;
    qsizetype removed = 0;
    qsizetype hit = m_stream.indexOf(pattern, m_trackStart);
    while (hit >= 0 && hit < end) {
        // A length that would not lead forward, as a signed byte below -3, is no event.
        const qsizetype length =
            std::min<qint64>(signedByteAt(m_stream, hit + pattern.size()) + eventHeader, end - hit);
        const bool wanted = type == anyType || byteAt(m_stream, hit + eventHeader) == type;
        if (!wanted || length <= 0) {
            hit = m_stream.indexOf(pattern, hit + 1);
            continue;
        }
        kept += QByteArrayView(m_stream).sliced(copied, hit - copied);
        copied = hit + length;
        removed += length;
        hit = onlyFirst ? -1 : m_stream.indexOf(pattern, copied);
    }
    if (removed > 0) {
        m_stream = kept + m_stream.mid(copied);
        m_firstEvents.reset();
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
    growTrack(bytes.size());
    return static_cast<unsigned>(bytes.size());
}

static QByteArray kordiaEvent(const QByteArray &data, RawMidiFile::kordiaMetaTypeEnum type)
{
    return '\0' + QByteArray(1, metaEvent) + kordiaMeta + shortLength(data.size() + 1) +
           static_cast<char>(type) + data;
}

static QByteArray markerEvent(const QString &text, quint16 bar)
{
    QByteArray data(2, '\0');
    putBe16(data, 0, bar);
    return kordiaEvent(data + writtenText(text), RawMidiFile::Marker);
}

unsigned RawMidiFile::insertMetaevent(const QByteArray &data, kordiaMetaTypeEnum type, int pos)
{
    return insertBytes(kordiaEvent(data, type), pos);
}

unsigned RawMidiFile::insertMetaevent(const QByteArray &data, char metaType, int pos)
{
    return insertBytes('\0' + QByteArray(1, metaEvent) + metaType + shortLength(data.size()) + data,
                       pos);
}

int RawMidiFile::insertMarker(const QString &text, unsigned short bar)
{
    return static_cast<int>(insertBytes(markerEvent(text, bar), m_trackStart));
}

int RawMidiFile::dbgInsertMarker(const QString &text, unsigned short bar)
{
    return insertMarker(text, bar);
}

int RawMidiFile::extractMarkersList(QList<::Marker> &list) const
{
    list.clear();
    const int first = firstEvents().kordia[Marker];
    if (first >= 0)
        m_scannedBytes += m_stream.size() - first;
    // The texts of true markers don't overlap. Thousands of markers that each claim the rest of
    // the file share its size.
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

int RawMidiFile::extractKey(QString &key) const
{
    key.clear();
    const int hit = firstEvents().standard[keyMeta];
    if (hit < 0)
        return -1;
    const uint sharps = byteAt(m_stream, hit + 3);
    const uint minor = byteAt(m_stream, hit + 4);
    key = MidiKeys::nameOf(static_cast<quint16>(sharps * 256 + minor));
    if (key.isEmpty()) {
        const QString minorDigits = u"%1"_s.arg(minor, 2, 16, QChar(u'0')).toUpper();
        debug() << "[RawMidiFile::extractKey] WARNING: unknown key metaevent"
                << u"[sf=%1|mi=%2]"_s.arg(sharps, 2, 16, QChar(u'0')).arg(minorDigits)
                << "in MIDI file.";
    }
    return hit;
}

QString RawMidiFile::kordiaText(kordiaMetaTypeEnum type) const
{
    QString text;
    extractMetaevent(text, type);
    return text;
}

int RawMidiFile::kordiaNumber(kordiaMetaTypeEnum type) const
{
    return std::max(kordiaText(type).toInt(), 0);
}

void RawMidiFile::setKordiaText(kordiaMetaTypeEnum type, const QString &text)
{
    removeHeadMetaevent(type, false);
    insertMetaevent(writtenText(text), type, m_trackStart);
}

QString RawMidiFile::title() const
{
    QString text;
    extractMetaevent(text, titleMeta);
    return text;
}

QString RawMidiFile::genre() const
{
    return kordiaText(Genre);
}

QString RawMidiFile::artist() const
{
    return kordiaText(Artist);
}

QString RawMidiFile::author() const
{
    return kordiaText(Author);
}

int RawMidiFile::length() const
{
    return kordiaNumber(Length);
}

int RawMidiFile::userBpm() const
{
    return kordiaNumber(UserBpm);
}

QString RawMidiFile::key() const
{
    QString name;
    extractKey(name);
    return name;
}

QList<Marker> RawMidiFile::markersList() const
{
    QList<::Marker> list;
    extractMarkersList(list);
    return list;
}

bool RawMidiFile::isKordia() const
{
    QString copyright;
    extractMetaevent(copyright, copyrightMeta);
    const QString upper = copyright.toUpper();
    return upper.contains(u"KORDIA"_s) || upper.contains(u"SONWERKS"_s);
}

bool RawMidiFile::hasTitle() const
{
    return firstEvents().standard[titleMeta] >= 0;
}

bool RawMidiFile::hasGenre() const
{
    return firstEvents().kordia[Genre] >= 0;
}

bool RawMidiFile::hasArtist() const
{
    return firstEvents().kordia[Artist] >= 0;
}

bool RawMidiFile::hasAuthor() const
{
    return firstEvents().kordia[Author] >= 0;
}

bool RawMidiFile::hasLength() const
{
    return firstEvents().kordia[Length] >= 0;
}

bool RawMidiFile::hasUserBpm() const
{
    return firstEvents().kordia[UserBpm] >= 0;
}

bool RawMidiFile::hasKey() const
{
    QString name;
    return extractKey(name) >= 0;
}

bool RawMidiFile::hasMarkers() const
{
    return firstEvents().kordia[Marker] >= 0;
}

void RawMidiFile::setTitle(const QString &text)
{
    removeHeadMetaevent(titleMeta, false);
    insertMetaevent(writtenText(text), titleMeta, m_trackStart);
}

void RawMidiFile::setGenre(const QString &text)
{
    setKordiaText(Genre, text);
}

void RawMidiFile::setArtist(const QString &text)
{
    setKordiaText(Artist, text);
}

void RawMidiFile::setAuthor(const QString &text)
{
    setKordiaText(Author, text);
}

void RawMidiFile::setLength(int seconds)
{
    setKordiaText(Length, QString::number(seconds));
}

void RawMidiFile::setUserBpm(int bpm)
{
    setKordiaText(UserBpm, QString::number(bpm));
}

void RawMidiFile::setKey(const QString &name)
{
    removeHeadMetaevent(keyMeta, false);
    if (name.isEmpty())
        return;
    // A name of nothing but blanks is written as "C", without a warning: always so.
    const QString plainName = QString(name).remove(u' ');
    const std::optional<quint16> value =
        plainName.isEmpty() ? std::optional<quint16>(0) : MidiKeys::valueOf(plainName);
    if (!value) {
        debug() << "[RawMidiFile::setKey] WARNING: unknown key:" << plainName
                << ". Metaevent not added !!!";
        return;
    }
    QByteArray data(2, '\0');
    putBe16(data, 0, *value);
    insertMetaevent(data, keyMeta, m_trackStart);
}

void RawMidiFile::setMarkersList(const QList<::Marker> &list)
{
    removeHeadMetaevent(Author, false);
    QByteArray events;
    for (const ::Marker &marker : list)
        events += markerEvent(marker.text, static_cast<quint16>(marker.bar));
    insertBytes(events, m_trackStart);
}

QStringList RawMidiFile::getKeysList()
{
    return MidiKeys::names();
}
