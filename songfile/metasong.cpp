#include "songfile/metasong.h"

#include "base/bytes.h"
#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "songfile/lzhuff.h"
#include "songfile/mp3writer.h"
#include "songfile/readonlyflag.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype magicSize = 4;

/// "_ZB4" containers carry these bytes in the first track, not counted in its length.
constexpr char zb4Mark[] = {'\xFF', '\x00', '\xFF'};
constexpr qsizetype zb4MarkSize = sizeof zb4Mark;

/// Where the mark stands in MIDI data, or -1 when there is no such place.
qsizetype zb4MarkPosition(const QByteArray &midi)
{
    constexpr qsizetype chunkHeaderSize = 8;
    const qsizetype track = midi.indexOf("MTrk");
    return track >= 0 && fits(midi, track, chunkHeaderSize) ? track + chunkHeaderSize : -1;
}

/// What MP3 files begin with. The second byte is compared with its sign: 0xF3 to 0xFF pass, and 0
/// to 0x7F too. There are songs that rely on it.
bool looksLikeMp3(const QByteArray &start)
{
    constexpr qint8 lastRefused = -14;
    if (start.startsWith("ID3"))
        return true;
    const quint8 first = byteAt(start, 0);
    return (first == 0 && byteAt(start, 1) == 0) ||
           (first == 0xFF && signedByteAt(start, 1) > lastRefused);
}

bool isPlaceholder(const QString &text)
{
    return text == u"-"_s || text == u"--"_s;
}

bool isMissing(const QString &headerText)
{
    return headerText.isEmpty() || isPlaceholder(headerText);
}

/// Whether the automatic mode may write a key, length or tempo: only the publisher's own data are
/// trusted to fit the file.
bool maySupply(bool isThere, int value, const SongInfo &info)
{
    return !isThere && value >= 0 && info.isKordia;
}

/// The artist of a song in automatic mode: the alternative artist wins whenever the catalogue has
/// one. \a Target is whatever part of the song holds the artist.
template <typename Target>
void supplyArtist(Target &target, const SongInfo &info)
{
    const QString artist = target.artist();
    if (!target.hasArtist())
        target.setArtist(info.altArtist.isEmpty() ? info.artist : info.altArtist);
    else if (artist == info.altArtist)
        return;
    else if (!info.altArtist.isEmpty() && artist == info.artist)
        target.setArtist(info.altArtist);
    else
        target.setArtist(info.artist);
}

} // namespace

bool MetaSong::importFile(const QString &path)
{
    m_midiFile = RawMidiFile();
    m_zbxHeader = ZbxHeader();
    m_mp3Header = Mp3Header();
    QFile file(path);
    // Unbuffered: of an MP3 nothing but the tag is read.
    if (!isRegularFile(path) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    const QByteArray start = file.peek(magicSize);
    if (ZbxHeader::typeOf(start) != SongInfo::Unknown)
        return importContainer(file);
    if (start == "MThd")
        return importMidi(file);
    return path.toUpper().endsWith(u"MP3"_s) && looksLikeMp3(start) && importMp3(file);
}

bool MetaSong::importContainer(QFile &file)
{
    const qsizetype headerSize = ZbxHeader::sizeOf(ZbxHeader::typeOf(file.peek(magicSize)));
    if (file.size() > maxSongSize || !m_zbxHeader.loadHeader(file.read(headerSize)))
        return false;
    QByteArray midi;
    if (!LzHuff().expand(file.read(file.bytesAvailable()), midi)) {
        debug() << "[MetaSong::importFile] LzHuff Expand filed, skipping file"; // "filed": as ever
        return false;
    }
    const qsizetype mark = zb4MarkPosition(midi);
    if (m_zbxHeader.fileType() == SongInfo::Zb4 && mark >= 0)
        midi.remove(mark, zb4MarkSize);
    if (!m_midiFile.loadData(midi)) {
        debug() << "[MetaSong::importFile] MidiStream corrupted, skipping file";
        return false;
    }
    m_fileType = m_zbxHeader.fileType();
    return true;
}

bool MetaSong::importMidi(QFile &file)
{
    if (file.size() > maxSongSize || !m_midiFile.loadData(file.read(file.bytesAvailable())))
        return false;
    m_fileType = m_midiFile.fileType();
    return true;
}

bool MetaSong::importMp3(QFile &file)
{
    // Only what the tag needs is read; whether it lies in the part of the file that it must lie in
    // is told from the sizes.
    const QByteArray start = file.peek(Mp3Header::tagHeaderSize);
    const qint64 tagSize = start.startsWith("ID3") ? Mp3Header::getId3TagSize(start) : 0;
    if (tagSize > std::min<qint64>(file.size(), Mp3Header::maxFileStart))
        return false;
    constexpr qint64 footerSize = Mp3Header::tagHeaderSize;
    if (!m_mp3Header.loadHeader(file.read(tagSize + Mp3Header::tagHeaderSize + footerSize)))
        return false;
    m_fileType = SongInfo::Mp3;
    return true;
}

void MetaSong::getSongInfo(SongInfo &info) const
{
    info.clear();
    info.format = getFormatString(m_fileType);
    const auto readCommon = [&info](const auto &source) {
        info.title = source.title();
        info.artist = source.artist();
        info.author = source.author();
        info.genre = source.genre();
    };
    const auto readMusic = [&info](const auto &source) {
        info.key = source.key();
        info.length = source.length();
    };
    if (m_fileType == SongInfo::Mp3) {
        readCommon(m_mp3Header);
        readMusic(m_mp3Header);
        info.userBpm = m_mp3Header.userBpm();
        info.isKordia = m_mp3Header.isKordia();
    } else if (isContainer()) {
        readCommon(m_zbxHeader);
        readMusic(m_midiFile);
        info.userBpm = m_zbxHeader.tempo();
        info.markers = m_midiFile.markersList();
        info.isKordia = true;
        info.zbxLongName = m_zbxHeader.longName();
        info.zbxFlags = static_cast<qint8>(m_zbxHeader.flags());
    } else if (m_fileType != SongInfo::Unknown) {
        readCommon(m_midiFile);
        readMusic(m_midiFile);
        info.userBpm = m_midiFile.userBpm();
        info.markers = m_midiFile.markersList();
        info.isKordia = m_midiFile.isKordia();
    }
}

bool MetaSong::isContainer() const
{
    return ZbxHeader::sizeOf(m_fileType) > 0;
}

void MetaSong::setSongInfo(const SongInfo &info, bool manual)
{
    debug() << "[MetaSong] setSongInfo,"
            << "manual: " << manual;
    if (m_fileType == SongInfo::Mp3) {
        setMp3Tag(info, manual);
    } else {
        setMidiData(info, manual);
        if (isContainer())
            setContainerHeader(info, manual);
        else
            setMidiTexts(info, manual);
    }
    debug() << "";
}

void MetaSong::setMidiData(const SongInfo &info, bool manual)
{
    if (!manual && !m_midiFile.hasMarkers())
        m_midiFile.setMarkersList(info.markers);
    if (manual || (!m_midiFile.hasKey() && info.isKordia))
        m_midiFile.setKey(info.key);
    if (manual || maySupply(m_midiFile.hasLength(), info.length, info))
        m_midiFile.setLength(info.length);
}

void MetaSong::setMidiTexts(const SongInfo &info, bool manual)
{
    if (manual || !m_midiFile.hasTitle() ||
        info.title.toUpper().startsWith(m_midiFile.title().toUpper()))
        m_midiFile.setTitle(info.title);
    if (manual || !m_midiFile.hasAuthor())
        m_midiFile.setAuthor(info.author);
    if (manual || maySupply(m_midiFile.hasUserBpm(), info.userBpm, info))
        m_midiFile.setUserBpm(info.userBpm);
    if (manual)
        m_midiFile.setArtist(info.artist);
    else
        supplyArtist(m_midiFile, info);
    if (manual || !m_midiFile.hasGenre())
        m_midiFile.setGenre(info.genre);
}

void MetaSong::setContainerHeader(const SongInfo &info, bool manual)
{
    using Field = ZbxHeader::Field;
    const auto mayWrite = [&](Field field, const QString &text) {
        return manual ? !m_zbxHeader.wouldLose(field, info) : isMissing(text);
    };
    if (mayWrite(Field::Title, m_zbxHeader.title()))
        m_zbxHeader.setTitle(info.title);
    if (mayWrite(Field::Author, m_zbxHeader.author()))
        m_zbxHeader.setAuthor(info.author);
    if (manual || (!m_zbxHeader.hasValidTempo() && info.userBpm >= 0))
        m_zbxHeader.setTempo(info.userBpm);
    if (!manual && isPlaceholder(m_zbxHeader.artist()))
        m_zbxHeader.setArtist(info.altArtist); // an empty one too: a placeholder never stays
    else if (!manual)
        supplyArtist(m_zbxHeader, info);
    else if (mayWrite(Field::Artist, m_zbxHeader.artist()))
        m_zbxHeader.setArtist(info.artist);
    if (mayWrite(Field::Genre, m_zbxHeader.genre()))
        m_zbxHeader.setGenre(info.genre);
    if (!info.markers.isEmpty())
        m_zbxHeader.setFlag(ZbxHeader::HasMarkers);
}

void MetaSong::setMp3Tag(const SongInfo &info, bool manual)
{
    using Field = Mp3Header::Field;
    const auto mayWrite = [&](Field field, bool isMissing) {
        return manual ? !m_mp3Header.wouldLose(field, info) : isMissing;
    };
    if (mayWrite(Field::Title, !m_mp3Header.hasTitle()))
        m_mp3Header.setTitle(info.title);
    if (mayWrite(Field::Author, !m_mp3Header.hasAuthor()))
        m_mp3Header.setAuthor(info.author);
    if (mayWrite(Field::UserBpm, maySupply(m_mp3Header.hasUserBpm(), info.userBpm, info)))
        m_mp3Header.setUserBpm(info.userBpm);
    if (mayWrite(Field::Key, !m_mp3Header.hasKey() && info.isKordia))
        m_mp3Header.setKey(info.key);
    if (mayWrite(Field::Length, maySupply(m_mp3Header.hasLength(), info.length, info)))
        m_mp3Header.setLength(info.length);
    if (!manual)
        supplyArtist(m_mp3Header, info);
    else if (mayWrite(Field::Artist, false))
        m_mp3Header.setArtist(info.artist);
    if (mayWrite(Field::Genre, !m_mp3Header.hasGenre()))
        m_mp3Header.setGenre(info.genre);
    if (!m_mp3Header.hasBriselEditParam())
        m_mp3Header.setBriselEditParam();
}

bool MetaSong::saveToFile(const QString &path)
{
    if (!isWholeInMemory()) {
        debug() << "[MetaSong::saveToFile] UNKNOWN format (or data corrupted) in memory, aborting";
        return false;
    }
    makeWritable(path);
    return m_fileType == SongInfo::Mp3 ? saveMp3(path) : saveMidi(path);
}

bool MetaSong::isWholeInMemory() const
{
    // What has grown larger than a reader takes could never be read again.
    if (m_fileType == SongInfo::Mp3)
        return !m_mp3Header.stream().isEmpty() &&
               Mp3Header::getId3TagSize(m_mp3Header.stream()) <= Mp3Header::maxFileStart;
    const qsizetype size = m_midiFile.stream().size();
    if (m_fileType == SongInfo::Unknown || size == 0 || size > maxSongSize)
        return false;
    return !isContainer() || (m_zbxHeader.header().size() == ZbxHeader::sizeOf(m_fileType) &&
                              payload().size() <= LzHuff::maxTextSize);
}

bool MetaSong::saveMp3(const QString &path)
{
    PlainFile song;
    if (!song.open(path)) {
        debug() << "[MetaSong::saveToFile] Impossible to read from file.";
        return false;
    }
    if (rewriteMp3(path, song, m_mp3Header.stream(), m_mp3Header.getAudioDataStartPos()) !=
        WriteResult::Done)
        return false;
    m_mp3Header.noteSaved();
    return true;
}

/// True when a file can be written at \a path, as far as can be told without touching it.
static bool mayBeWritten(const QString &path)
{
    const QFileInfo file(path);
    switch (fileKind(path)) {
    case FileKind::Regular:
        return file.isWritable();
    case FileKind::Missing:
        return !file.isSymLink() && QFileInfo(file.absolutePath()).isWritable();
    default:
        return false;
    }
}

bool MetaSong::saveMidi(const QString &path)
{
    bool isWritten = mayBeWritten(path);
    if (isWritten) {
        debug() << (isContainer() ? "[MetaSong::saveToFile] ZBx" : "[MetaSong::saveToFile] MIDI");
        isWritten = replaceFile(path, isContainer() ? containerBytes() : m_midiFile.stream());
    }
    if (!isWritten)
        debug() << "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
                   "protected? Aborting!";
    return isWritten;
}

QByteArray MetaSong::payload() const
{
    QByteArray midi = m_midiFile.stream();
    const qsizetype mark = zb4MarkPosition(midi);
    if (m_fileType == SongInfo::Zb4 && mark >= 0)
        midi.insert(mark, QByteArrayView(zb4Mark, zb4MarkSize));
    return midi;
}

QByteArray MetaSong::containerBytes()
{
    const QByteArray midi = payload();
    QByteArray compressed;
    LzHuff().compress(midi, compressed);
    m_zbxHeader.setSize(static_cast<unsigned>(m_zbxHeader.header().size() + compressed.size()));
    m_zbxHeader.setOrigSize(static_cast<unsigned>(midi.size()));
    return m_zbxHeader.header() + compressed;
}

QString MetaSong::getFormatString(SongInfo::fileTypeEnum type)
{
    switch (type) {
    case SongInfo::Midi0:
    case SongInfo::Midi1:
        return u"MIDI"_s;
    case SongInfo::Zb3:
        return u"ZB3"_s;
    case SongInfo::Zb4:
        return u"ZB4"_s;
    case SongInfo::Zb5:
        return u"ZB5"_s;
    case SongInfo::Mp3:
        return u"MP3"_s;
    default:
        return u"UNKNOWN"_s;
    }
}

void MetaSong::removeReadOnlyFlag(const QString &path)
{
    clearReadOnlyFlag(path);
}

QStringList MetaSong::getKeysList()
{
    return RawMidiFile::getKeysList();
}

int MetaSong::dbgAddMarker(const QString &text, unsigned short bar)
{
    debug() << "[MetaSong] addMarker";
    const int inserted = m_midiFile.dbgInsertMarker(text, bar);
    debug() << "Marker added, len= " << inserted;
    debug() << "-----------------------------------";
    debug() << "";
    return inserted;
}
