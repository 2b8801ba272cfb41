#include "songfile/songdata.h"

#include "base/bytes.h"
#include "base/debugstream.h"
#include "songfile/lzhuff.h"

#include <algorithm>

namespace brisel
{

namespace
{

/// "_ZB4" containers have these bytes in the first track, not included in its length.
constexpr char zb4Mark[] = {'\xFF', '\x00', '\xFF'};
constexpr qsizetype zb4MarkSize = sizeof zb4Mark;

/// The position of the mark in MIDI data; -1 if there is no track.
qsizetype zb4MarkPosition(const QByteArray &midi)
{
    constexpr qsizetype trackHeaderSize = 8;
    const qsizetype track = midi.indexOf("MTrk");
    return track >= 0 && fits(midi, track, trackHeaderSize) ? track + trackHeaderSize : -1;
}

} // namespace

void SongData::clear()
{
    const SongInfo::fileTypeEnum type = m_fileType;
    *this = SongData();
    m_fileType = type;
}

bool SongData::loadMidi(const QByteArray &content)
{
    clear();
    if (!m_midiFile.loadData(content))
        return false;
    m_fileType = m_midiFile.fileType();
    return true;
}

bool SongData::loadContainer(const QByteArray &content)
{
    clear();
    const qsizetype headerSize = ZbxHeader::sizeOf(ZbxHeader::typeOf(content));
    if (!m_zbxHeader.loadHeader(content.first(std::min(headerSize, content.size()))))
        return false;
    QByteArray midi;
    if (!LzHuff().expand(content.sliced(headerSize), midi)) {
        debug() << "[MetaSong::importFile] LzHuff Expand filed, skipping file"; // "filed": misspelt
                                                                                // as always
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

bool SongData::loadMp3(const QByteArray &head)
{
    clear();
    if (!m_mp3Header.loadHeader(head))
        return false;
    m_fileType = SongInfo::Mp3;
    return true;
}

SongInfo SongData::info() const
{
    SongInfo info;
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
    return info;
}

bool SongData::isWhole(qint64 maxSongSize) const
{
    // A song that has become too large could not be read again.
    if (m_fileType == SongInfo::Mp3)
        return !tag().isEmpty() && Mp3Header::getId3TagSize(tag()) <= Mp3Header::maxFileStart;
    const qsizetype size = m_midiFile.stream().size();
    if (m_fileType == SongInfo::Unknown || size == 0 || size > maxSongSize)
        return false;
    return !isContainer() || (m_zbxHeader.header().size() == ZbxHeader::sizeOf(m_fileType) &&
                              payload().size() <= LzHuff::maxTextSize);
}

bool SongData::hasSameMusicOrNames(const SongData &other) const
{
    if (m_fileType != other.m_fileType)
        return false;
    const SongInfo ours = info();
    const SongInfo theirs = other.info();
    if (!ours.title.isEmpty() && !ours.artist.isEmpty() && ours.title == theirs.title &&
        ours.artist == theirs.artist)
        return true;
    return m_fileType != SongInfo::Mp3 && music() == other.music();
}

/// The MIDI data without the events that this program writes.
QByteArray SongData::music() const
{
    constexpr char titleMeta = 3;
    constexpr char keyMeta = 0x59;
    RawMidiFile midi = m_midiFile;
    for (const char type : {titleMeta, keyMeta})
        midi.removeHeadMetaevent(type, false);
    for (const auto type : {RawMidiFile::Genre, RawMidiFile::Artist, RawMidiFile::Author,
                            RawMidiFile::Length, RawMidiFile::UserBpm, RawMidiFile::Marker})
        midi.removeHeadMetaevent(type, false);
    return midi.stream();
}

QByteArray SongData::payload() const
{
    QByteArray midi = m_midiFile.stream();
    const qsizetype mark = zb4MarkPosition(midi);
    if (m_fileType == SongInfo::Zb4 && mark >= 0)
        midi.insert(mark, QByteArrayView(zb4Mark, zb4MarkSize));
    return midi;
}

QByteArray SongData::fileContent()
{
    if (!isContainer())
        return m_midiFile.stream();
    const QByteArray midi = payload();
    QByteArray compressed;
    LzHuff().compress(midi, compressed);
    m_zbxHeader.setSize(static_cast<unsigned>(m_zbxHeader.header().size() + compressed.size()));
    m_zbxHeader.setOrigSize(static_cast<unsigned>(midi.size()));
    return m_zbxHeader.header() + compressed;
}

bool SongData::setMarkers(const QList<Marker> &markers)
{
    if (!m_midiFile.replaceMarkers(markers))
        return false;
    if (markers.isEmpty())
        m_zbxHeader.clearFlag(ZbxHeader::HasMarkers);
    else
        m_zbxHeader.setFlag(ZbxHeader::HasMarkers);
    return true;
}

int SongData::addMarker(const QString &text, unsigned short bar)
{
    return m_midiFile.dbgInsertMarker(text, bar);
}

} // namespace brisel
