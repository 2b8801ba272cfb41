#include "base/bytes.h"
#include "base/debugstream.h"
#include "base/songtext.h"
#include "songfile/midikeys.h"
#include "songfile/rawmidifile.h"

#include <QByteArrayList>
#include <QHash>

#include <algorithm>
#include <limits>
#include <utility>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

constexpr char copyrightMeta = '\x02';
constexpr char titleMeta = '\x03';
constexpr char keyMeta = '\x59';

QByteArray writtenText(const QString &text)
{
    return songBytes(text.left(RawMidiFile::maxText));
}

/// The signature that setKey() writes for a name; nothing if it writes none.
std::optional<QByteArray> writtenKey(const QString &name)
{
    if (name.isEmpty())
        return {};
    // A name that has only blanks has always been written as "C", without a warning.
    const QString plainName = QString(name).remove(u' ');
    const std::optional<quint16> value =
        plainName.isEmpty() ? std::optional<quint16>(0) : MidiKeys::valueOf(plainName);
    if (!value) {
        debug() << "[RawMidiFile::setKey] WARNING: unknown key:" << plainName
                << ". Metaevent not added !!!";
        return {};
    }
    QByteArray data(2, '\0');
    putBe16(data, 0, *value);
    return data;
}

QByteArray standardEvent(const QByteArray &data, char metaType)
{
    return QByteArray("\0\xFF", 2) + metaType + static_cast<char>(data.size()) + data;
}

QByteArray kordiaEvent(const QByteArray &data, RawMidiFile::kordiaMetaTypeEnum type)
{
    return standardEvent(static_cast<char>(type) + data, RawMidiFile::kordiaMeta);
}

QByteArray markerEvent(const QString &text, quint16 bar)
{
    QByteArray data(2, '\0');
    putBe16(data, 0, bar);
    return kordiaEvent(data + songBytes(text.left(RawMidiFile::maxMarkerText)),
                       RawMidiFile::Marker);
}

/// The bytes of an event after its length and its sub-type; the event must be whole.
QByteArrayView dataOf(const QByteArray &stream, const HeadEvent &event)
{
    return QByteArrayView(stream).sliced(event.data, event.end - event.data);
}

bool losesText(QByteArrayView data, const QString &text)
{
    return songText(data) != text || text.size() > RawMidiFile::maxText ||
           holdsMoreThanSongText(data);
}

bool losesNumber(QByteArrayView data, int number)
{
    const QString text = songText(data);
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    return value != number || (!isNumber && !text.isEmpty()) || holdsMoreThanSongText(data);
}

bool losesKey(QByteArrayView data, const QString &name)
{
    const std::optional<QByteArray> written = writtenKey(name);
    const auto isZero = [](char byte) { return byte == '\0'; };
    return !written || !data.startsWith(*written) ||
           !std::all_of(data.begin() + written->size(), data.end(), isZero);
}

/// True if everything that is read of both is the same, except for the markers.
bool haveSameFields(const RawMidiFile &left, const RawMidiFile &right)
{
    for (bool (RawMidiFile::*has)() const :
         {&RawMidiFile::hasTitle, &RawMidiFile::hasGenre, &RawMidiFile::hasArtist,
          &RawMidiFile::hasAuthor, &RawMidiFile::hasLength, &RawMidiFile::hasUserBpm,
          &RawMidiFile::hasKey}) {
        if ((left.*has)() != (right.*has)())
            return false;
    }
    return left.title() == right.title() && left.genre() == right.genre() &&
           left.artist() == right.artist() && left.author() == right.author() &&
           left.length() == right.length() && left.userBpm() == right.userBpm() &&
           left.key() == right.key() && left.isKordia() == right.isKordia();
}

} // namespace

unsigned RawMidiFile::insertMetaevent(const QByteArray &data, kordiaMetaTypeEnum type, int pos)
{
    return insertBytes(kordiaEvent(data, type), pos);
}

unsigned RawMidiFile::insertMetaevent(const QByteArray &data, char metaType, int pos)
{
    return insertBytes(standardEvent(data, metaType), pos);
}

int RawMidiFile::insertMarker(const QString &text, unsigned short bar)
{
    return static_cast<int>(insertAtHead(markerEvent(text, bar)));
}

int RawMidiFile::extractKey(QString &key) const
{
    const int hit = firstEvents().standard[static_cast<quint8>(keyMeta)];
    key = keyAt(hit);
    if (hit >= 0 && key.isEmpty()) {
        const QString minorDigits = u"%1"_s.arg(byteAt(m_stream, hit + 4), 2, 16, QChar(u'0'));
        debug() << "[RawMidiFile::extractKey] WARNING: unknown key metaevent"
                << u"[sf=%1|mi=%2]"_s.arg(byteAt(m_stream, hit + 3), 2, 16, QChar(u'0'))
                       .arg(minorDigits.toUpper())
                << "in MIDI file.";
    }
    return hit;
}

QString RawMidiFile::keyAt(int hit) const
{
    return hit < 0 ? QString() : MidiKeys::nameOf(be16At(m_stream, hit + 3));
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
    insertAtHead(kordiaEvent(writtenText(text), type));
}

QString RawMidiFile::title() const
{
    QString text;
    extractMetaevent(text, titleMeta);
    return text;
}

QString RawMidiFile::key() const
{
    QString name;
    extractKey(name);
    return name;
}

QList<Marker> RawMidiFile::markersList() const
{
    QList<brisel::Marker> list;
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

bool RawMidiFile::hasKey() const
{
    QString name;
    return extractKey(name) >= 0;
}

void RawMidiFile::setTitle(const QString &text)
{
    removeHeadMetaevent(titleMeta, false);
    insertAtHead(standardEvent(writtenText(text), titleMeta));
}

void RawMidiFile::setKey(const QString &name)
{
    removeHeadMetaevent(keyMeta, false);
    if (const std::optional<QByteArray> data = writtenKey(name))
        insertAtHead(standardEvent(*data, keyMeta));
}

void RawMidiFile::setMarkersList(const QList<brisel::Marker> &list)
{
    removeHeadMetaevent(Author, false);
    addMarkers(list);
}

void RawMidiFile::addMarkers(const QList<brisel::Marker> &list)
{
    QByteArray events;
    for (const brisel::Marker &marker : list)
        events += markerEvent(marker.text, static_cast<quint16>(marker.bar));
    insertAtHead(events);
}

/// The events of the markers, in the order of markersList(); nothing if a marker that is read can't
/// be removed as a whole.
std::optional<QByteArrayList> RawMidiFile::markerEvents() const
{
    constexpr qsizetype barSize = 2;
    const QList<brisel::Marker> read = markersList();
    const QList<HeadEvent> events = eventsToRemove({kordiaMeta, Marker}, false);
    if (events.size() != read.size())
        return {};
    QByteArrayList bytes;
    for (qsizetype i = 0; i < events.size(); ++i) {
        const HeadEvent &event = events.at(i);
        if (!event.isWhole || event.end - event.data < barSize ||
            read.at(i) != brisel::Marker{songText(dataOf(m_stream, event).sliced(barSize)),
                                         be16At(m_stream, event.data)})
            return {};
        bytes.append(m_stream.mid(event.start, event.end - event.start));
    }
    RawMidiFile without = *this;
    without.removeHeadMetaevent(Marker, false);
    return without.hasMarkers() ? std::nullopt : std::optional(bytes);
}

bool RawMidiFile::canReplaceMarkers() const
{
    return !m_stream.isEmpty() && markerEvents().has_value();
}

bool RawMidiFile::isStorable(const brisel::Marker &marker)
{
    constexpr char16_t lastOfLatin1 = 0xFF;
    const auto isWritable = [](QChar character) {
        return character.unicode() <= lastOfLatin1 && character.isPrint();
    };
    return marker.bar >= 0 && marker.bar <= std::numeric_limits<quint16>::max() &&
           marker.text.size() <= maxMarkerText && marker.text == trimmedSongText(marker.text) &&
           std::all_of(marker.text.cbegin(), marker.text.cend(), isWritable);
}

bool RawMidiFile::replaceMarkers(const QList<brisel::Marker> &list)
{
    const std::optional<QByteArrayList> old = markerEvents();
    if (m_stream.isEmpty() || !old)
        return false;
    QHash<std::pair<qint32, QString>, QByteArrayList> kept;
    const QList<brisel::Marker> present = markersList();
    for (qsizetype i = 0; i < present.size(); ++i)
        kept[{present.at(i).bar, present.at(i).text}].append(old->at(i));
    QByteArray events;
    for (const brisel::Marker &marker : list) {
        const auto found = kept.find({marker.bar, marker.text});
        if (found != kept.end() && !found->isEmpty())
            events += found->takeFirst();
        else if (isStorable(marker))
            events += markerEvent(marker.text, static_cast<quint16>(marker.bar));
        else
            return false;
    }
    RawMidiFile without = *this;
    without.removeHeadMetaevent(Marker, false);
    RawMidiFile changed = without;
    changed.insertAtHead(events);
    // A removed marker may have been read as another field, too.
    if (changed.markersList() != list ||
        (!haveSameFields(changed, *this) && !haveSameFields(changed, without)))
        return false;
    *this = changed;
    return true;
}

template <typename Loses>
bool RawMidiFile::wouldLose(const MetaKind &kind, Loses loses) const
{
    const QList<HeadEvent> events = eventsToRemove(kind, false);
    return events.size() > 1 ||
           (events.size() == 1 && (!events.first().isWhole || loses(events.first())));
}

bool RawMidiFile::wouldLoseText(const MetaKind &kind, const QString &text) const
{
    return wouldLose(
        kind, [&](const HeadEvent &event) { return losesText(dataOf(m_stream, event), text); });
}

bool RawMidiFile::wouldLoseNumber(kordiaMetaTypeEnum type, int number) const
{
    return number == kordiaNumber(type) &&
           wouldLose({kordiaMeta, type}, [&](const HeadEvent &event) {
               return losesNumber(dataOf(m_stream, event), number);
           });
}

bool RawMidiFile::wouldLoseKey(const QString &name) const
{
    // A signature in the middle of the song applies from there on, unlike the other events.
    return name == keyAt(firstEvents().standard[static_cast<quint8>(keyMeta)]) &&
           wouldLose({keyMeta}, [&](const HeadEvent &event) {
               return !event.isAtTickZero || losesKey(dataOf(m_stream, event), name);
           });
}

bool RawMidiFile::wouldLose(Field field, const SongInfo &info) const
{
    const auto losesKordiaText = [this](kordiaMetaTypeEnum type, const QString &text) {
        return text == kordiaText(type) && wouldLoseText({kordiaMeta, type}, text);
    };
    switch (field) {
    case Field::Title:
        return info.title == title() && wouldLoseText({titleMeta}, info.title);
    case Field::Genre:
        return losesKordiaText(Genre, info.genre);
    case Field::Artist:
        return losesKordiaText(Artist, info.artist);
    case Field::Author:
        return losesKordiaText(Author, info.author);
    case Field::Length:
        return wouldLoseNumber(Length, info.length);
    case Field::UserBpm:
        return wouldLoseNumber(UserBpm, info.userBpm);
    case Field::Key:
        return wouldLoseKey(info.key);
    }
    return false;
}

} // namespace brisel
