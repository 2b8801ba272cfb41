#include "index/songhead.h"

#include "base/bytes.h"
#include "base/filereading.h"
#include "base/songtext.h"
#include "id3/id3frames.h"
#include "id3/id3plain.h"
#include "id3/id3text.h"
#include "index/songinfoindex.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr int minimumSize = 5;       ///< bytes; a shorter file is not a song
constexpr int textWidth = 58;        ///< characters of a text in the player's records
constexpr int midiScanStart = 22;    ///< after the headers of file and first track
constexpr qsizetype id3Window = 512; ///< bytes of a tag that are searched for frames' names

const QString unknownText = QStringLiteral("<unknown>");

/// Takes the text of \a width bytes at \a pos, at most 58 of them; empty if there is no text.
QString textAt(const QByteArray &prefix, qsizetype pos, qint64 width)
{
    const qsizetype start = std::min(pos, prefix.size());
    const qsizetype size = std::min<qint64>(width, prefix.size() - start);
    return songText(
        QByteArrayView(prefix).sliced(start, std::clamp<qsizetype>(size, 0, textWidth)));
}

/// Puts \a value into \a field unless it is empty.
void setText(QString &field, const QString &value)
{
    if (!value.isEmpty())
        field = value;
}

/// The offsets of the index's reader differ from those of the container's fields, and the fields
/// overlap: a text that fills its field continues in the next one.
void parseContainer(const QByteArray &prefix, SongInfoIndex &song)
{
    constexpr int bpmAt = 38;
    constexpr int titleAt = 138;
    constexpr int flagAt = 201;
    constexpr int artistAt = 234;
    constexpr int genreAt = 266;
    setText(song.title, textAt(prefix, titleAt, textWidth));
    setText(song.artist, textAt(prefix, artistAt, textWidth));
    setText(song.genre, textAt(prefix, genreAt, textWidth));
    song.bpm = byteAt(prefix, bpmAt);
    song.flag = byteAt(prefix, flagAt) == 1 ? 1 : 0;
}

/// Searches the first bytes of a MIDI file for its meta-events.
class MidiScan
{
public:
    explicit MidiScan(const QByteArray &prefix) : m_prefix(prefix) {}

    void run(SongInfoIndex &song);

private:
    enum MetaType : quint8 { Text = 1, TrackName = 3, MarkerText = 6, Makers = 0x4B, Tempo = 0x51 };

    static bool isWanted(quint8 type);
    /// Reads one event with \a length data bytes at \a data.
    void take(quint8 type, qsizetype data, int length, SongInfoIndex &song);
    void takeTempo(qsizetype data, int length, SongInfoIndex &song);
    void takeMakersText(qsizetype data, int length);
    QString artistOfSystemExclusive() const;
    static void keepFirst(QString &found, const QString &value);

    const QByteArray &m_prefix;
    bool m_hasTempo = false;
    QString m_title;
    QString m_artist;
    QString m_genre;
};

void MidiScan::run(SongInfoIndex &song)
{
    constexpr int headSize = 3; // 0xFF, type, length
    qsizetype pos = m_prefix.indexOf('\xFF', midiScanStart);
    for (; pos >= 0 && fits(m_prefix, pos, headSize); pos = m_prefix.indexOf('\xFF', pos)) {
        const quint8 type = byteAt(m_prefix, pos + 1);
        const int length = byteAt(m_prefix, pos + 2);
        if (!isWanted(type)) {
            ++pos;
            continue;
        }
        pos += headSize;
        if (!fits(m_prefix, pos, length))
            break;
        take(type, pos, length, song);
        pos += length;
    }
    if (m_artist.isEmpty())
        m_artist = artistOfSystemExclusive();
    setText(song.title, m_title);
    setText(song.artist, m_artist);
    setText(song.genre, m_genre);
}

bool MidiScan::isWanted(quint8 type)
{
    return type == Text || type == TrackName || type == MarkerText || type == Makers ||
           type == Tempo;
}

void MidiScan::take(quint8 type, qsizetype data, int length, SongInfoIndex &song)
{
    constexpr int titleMarkSize = 2;
    if (type == Tempo)
        takeTempo(data, length, song);
    else if (type == MarkerText)
        song.flag = 1;
    else if (type == TrackName)
        keepFirst(m_title, textAt(m_prefix, data, length));
    else if (type == Makers)
        takeMakersText(data, length);
    else if (QByteArrayView(m_prefix).sliced(data, std::min(length, titleMarkSize)) == "@T")
        keepFirst(m_title, textAt(m_prefix, data + titleMarkSize,
                                  std::min(length, textWidth) - titleMarkSize));
}

void MidiScan::takeTempo(qsizetype data, int length, SongInfoIndex &song)
{
    constexpr int tempoSize = 3;
    constexpr quint32 microsecondsPerMinute = 60000000;
    if (m_hasTempo || length < tempoSize)
        return;
    m_hasTempo = true;
    const quint32 tempo = static_cast<quint32>(byteAt(m_prefix, data)) << 16 |
                          static_cast<quint32>(be16At(m_prefix, data + 1));
    // Stored in 8 bits: a tempo above 255 wraps around, as in the player.
    if (tempo != 0)
        song.bpm = static_cast<quint8>(microsecondsPerMinute / tempo);
}

void MidiScan::takeMakersText(qsizetype data, int length)
{
    enum SubType : quint8 { Genre = 1, Artist = 2 };
    if (length == 0)
        return;
    const QString text = textAt(m_prefix, data + 1, length - 1);
    if (byteAt(m_prefix, data) == Artist)
        keepFirst(m_artist, text);
    else if (byteAt(m_prefix, data) == Genre)
        keepFirst(m_genre, text);
}

/// Older files have the artist as "(ARTIST" in an exclusive message.
QString MidiScan::artistOfSystemExclusive() const
{
    static const QByteArray mark = QByteArray::fromHex("0020240005");
    constexpr int headSize = 2; // 0xF0, length
    constexpr int overhead = 7;
    const qsizetype textOffset = headSize + mark.size();
    for (qsizetype start = m_prefix.indexOf('\xF0', midiScanStart); start >= 0;
         start = m_prefix.indexOf('\xF0', start + 1)) {
        if (!fits(m_prefix, start, textOffset))
            return {};
        if (QByteArrayView(m_prefix).sliced(start + headSize, mark.size()) != mark)
            continue;
        const int length = std::min(byteAt(m_prefix, start + 1) - overhead, textWidth);
        if (length < 2 || !fits(m_prefix, start + textOffset, length))
            return {};
        const QByteArray text = m_prefix.mid(start + textOffset, length - 1);
        return text.startsWith('(') ? songText(text.mid(1)) : QString();
    }
    return {};
}

void MidiScan::keepFirst(QString &found, const QString &value)
{
    if (found.isEmpty())
        found = value;
}

/// Returns the frames of the tag at the start of \a bytes. A tag with an invalid size or first
/// frame is read as filling all of \a bytes.
Id3Frames framesOf(const QByteArray &bytes, QByteArray &tag)
{
    const qint64 end = static_cast<qint64>(Id3Header::sizeAt(bytes)) + Id3Header::size;
    tag = Id3Plain::tag(bytes.first(std::min<qint64>(end, bytes.size())));
    Id3Frames frames(tag, static_cast<qint64>(Id3Header::sizeAt(tag)) + Id3Header::size);
    if (end > Id3Header::size && !frames.isUnknown())
        return frames;
    tag = bytes;
    return Id3Frames(bytes, bytes.size());
}

void parseMp3(const QByteArray &prefix, SongInfoIndex &song)
{
    if (!Id3Header::isAt(prefix))
        return;
    QByteArray tag;
    const Id3Frames frames = framesOf(prefix, tag);
    const auto take = [&frames, &tag](QString &field, QByteArrayView id) {
        if (const std::optional<Id3Frame> frame = frames.find(tag, id, id3Window))
            setText(field, Id3Text::read(frames.content(tag, *frame), textWidth));
    };
    take(song.title, "TIT2");
    take(song.artist, "TPE1");
    take(song.genre, "TCON");
}

void parseByMagic(const QByteArray &prefix, SongInfoIndex &song)
{
    constexpr quint8 bpmOfUnrecognised = 120;
    const QByteArray magic = prefix.left(4);
    if (magic == "MThd") {
        MidiScan(prefix).run(song);
    } else if (magic == "_ZB3" || magic == "_ZB4" || magic == "_ZB5") {
        song.type = static_cast<quint8>(SongInfoIndex::Zb3 + (magic.at(3) - '3'));
        parseContainer(prefix, song);
    } else {
        song.bpm = bpmOfUnrecognised;
    }
}

void setDefaults(SongInfoIndex &song)
{
    song.title = song.absolutePath.mid(song.absolutePath.lastIndexOf(u'/') + 1);
    song.artist = unknownText;
    song.genre = unknownText;
    song.type = SongInfoIndex::Midi;
    song.bpm = 0;
    song.reserved = 0;
    song.flag = 0;
}

} // namespace

bool SongHead::read(const QString &path, QByteArray &prefix, FileState &state)
{
    return readFileStart(path, prefixSize, prefix, state);
}

bool SongHead::parse(const QByteArray &prefix, SongInfoIndex &song)
{
    setDefaults(song);
    if (prefix.size() < minimumSize)
        return false;
    const QStringView extension =
        QStringView(song.absolutePath).sliced(song.absolutePath.lastIndexOf(u'.') + 1);
    if (extension.compare(QStringLiteral("MP3"), Qt::CaseInsensitive) == 0) {
        song.type = SongInfoIndex::Mp3;
        parseMp3(prefix, song);
    } else {
        parseByMagic(prefix, song);
    }
    for (QString *text : {&song.title, &song.artist, &song.genre})
        *text = trimmedSongText(stringToUpper(*text));
    return true;
}

} // namespace brisel
