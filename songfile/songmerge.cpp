// The rules for writing a record into a song, for each format.

#include "songfile/songdata.h"

namespace brisel
{

using namespace Qt::StringLiterals;

bool isPlaceholder(const QString &text)
{
    return text == u"-"_s || text == u"--"_s;
}

namespace
{

using Wanted = SongFields::Field;

bool isMissing(const QString &headerText)
{
    return headerText.isEmpty() || isPlaceholder(headerText);
}

/// Whether the automatic mode may write a key, length or tempo: only the publisher's data are known
/// to fit the file.
bool maySupply(bool isThere, int value, const SongInfo &info)
{
    return !isThere && value >= 0 && info.isKordia;
}

/// Sets the artist of a song in automatic mode: the alternative artist takes precedence if the
/// catalogue has one. An existing artist is not written again if that would lose data. \a Target is
/// the part of the song with the artist.
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
    else if (!target.wouldLose(Target::Field::Artist, info))
        target.setArtist(info.artist);
}

} // namespace

void SongData::setInfo(const SongInfo &info, bool manual, SongFields fields)
{
    if (m_fileType == SongInfo::Mp3) {
        setMp3Tag(info, manual, fields);
    } else {
        setMidiData(info, manual, fields);
        if (isContainer())
            setContainerHeader(info, manual, fields);
        else
            setMidiTexts(info, manual, fields);
    }
}

/// The markers replace the author, which is then missing.
void SongData::supplyMarkers(const SongInfo &info, SongFields fields)
{
    const QList<Marker> markers = fields.holds(Wanted::Markers) ? info.markers : QList<Marker>();
    if (fields.holds(Wanted::Author))
        m_midiFile.setMarkersList(markers);
    else
        m_midiFile.addMarkers(markers);
}

void SongData::setMidiData(const SongInfo &info, bool manual, SongFields fields)
{
    using Field = RawMidiFile::Field;
    const auto mayWrite = [&](Field field, bool isMissing) {
        return manual ? !m_midiFile.wouldLose(field, info) : isMissing;
    };
    if (!manual && !m_midiFile.hasMarkers())
        supplyMarkers(info, fields);
    if (fields.holds(Wanted::Key) && mayWrite(Field::Key, !m_midiFile.hasKey() && info.isKordia))
        m_midiFile.setKey(info.key);
    if (fields.holds(Wanted::Length) &&
        mayWrite(Field::Length, maySupply(m_midiFile.hasLength(), info.length, info)))
        m_midiFile.setLength(info.length);
}

void SongData::setMidiTexts(const SongInfo &info, bool manual, SongFields fields)
{
    using Field = RawMidiFile::Field;
    const auto mayWrite = [&](Field field, bool isMissing) {
        return manual ? !m_midiFile.wouldLose(field, info) : isMissing;
    };
    const bool isMoreOfIt = info.title.toUpper().startsWith(m_midiFile.title().toUpper());
    if (fields.holds(Wanted::Title) && (manual || !m_midiFile.hasTitle() || isMoreOfIt) &&
        !m_midiFile.wouldLose(Field::Title, info))
        m_midiFile.setTitle(info.title);
    if (fields.holds(Wanted::Author) && mayWrite(Field::Author, !m_midiFile.hasAuthor()))
        m_midiFile.setAuthor(info.author);
    if (fields.holds(Wanted::Bpm) &&
        mayWrite(Field::UserBpm, maySupply(m_midiFile.hasUserBpm(), info.userBpm, info)))
        m_midiFile.setUserBpm(info.userBpm);
    if (fields.holds(Wanted::Artist)) {
        if (!manual)
            supplyArtist(m_midiFile, info);
        else if (mayWrite(Field::Artist, false))
            m_midiFile.setArtist(info.artist);
    }
    if (fields.holds(Wanted::Genre) && mayWrite(Field::Genre, !m_midiFile.hasGenre()))
        m_midiFile.setGenre(info.genre);
}

void SongData::setContainerHeader(const SongInfo &info, bool manual, SongFields fields)
{
    using Field = ZbxHeader::Field;
    const auto mayWrite = [&](Field field, const QString &text) {
        return manual ? !m_zbxHeader.wouldLose(field, info) : isMissing(text);
    };
    if (fields.holds(Wanted::Title) && mayWrite(Field::Title, m_zbxHeader.title()))
        m_zbxHeader.setTitle(info.title);
    if (fields.holds(Wanted::Author) && mayWrite(Field::Author, m_zbxHeader.author()))
        m_zbxHeader.setAuthor(info.author);
    if (fields.holds(Wanted::Bpm) &&
        (manual || (!m_zbxHeader.hasValidTempo() && info.userBpm >= 0)))
        m_zbxHeader.setTempo(info.userBpm);
    if (fields.holds(Wanted::Artist)) {
        if (!manual && isPlaceholder(m_zbxHeader.artist()))
            m_zbxHeader.setArtist(info.altArtist); // even if empty: a placeholder is replaced
        else if (!manual)
            supplyArtist(m_zbxHeader, info);
        else if (mayWrite(Field::Artist, m_zbxHeader.artist()))
            m_zbxHeader.setArtist(info.artist);
    }
    if (fields.holds(Wanted::Genre) && mayWrite(Field::Genre, m_zbxHeader.genre()))
        m_zbxHeader.setGenre(info.genre);
    if (fields.holds(Wanted::Markers) && !info.markers.isEmpty())
        m_zbxHeader.setFlag(ZbxHeader::HasMarkers);
}

void SongData::setMp3Tag(const SongInfo &info, bool manual, SongFields fields)
{
    using Field = Mp3Header::Field;
    const auto mayWrite = [&](Field field, bool isMissing) {
        return manual ? !m_mp3Header.wouldLose(field, info) : isMissing;
    };
    if (fields.holds(Wanted::Title) && mayWrite(Field::Title, !m_mp3Header.hasTitle()))
        m_mp3Header.setTitle(info.title);
    if (fields.holds(Wanted::Author) && mayWrite(Field::Author, !m_mp3Header.hasAuthor()))
        m_mp3Header.setAuthor(info.author);
    if (fields.holds(Wanted::Bpm) &&
        mayWrite(Field::UserBpm, maySupply(m_mp3Header.hasUserBpm(), info.userBpm, info)))
        m_mp3Header.setUserBpm(info.userBpm);
    if (fields.holds(Wanted::Key) && mayWrite(Field::Key, !m_mp3Header.hasKey() && info.isKordia))
        m_mp3Header.setKey(info.key);
    if (fields.holds(Wanted::Length) &&
        mayWrite(Field::Length, maySupply(m_mp3Header.hasLength(), info.length, info)))
        m_mp3Header.setLength(info.length);
    // A compressed or encrypted text can't be compared with the catalogue's.
    const bool isHidden = m_mp3Header.wouldLose(Field::Artist, SongInfo());
    if (fields.holds(Wanted::Artist)) {
        if (!manual && !isHidden)
            supplyArtist(m_mp3Header, info);
        else if (mayWrite(Field::Artist, false))
            m_mp3Header.setArtist(info.artist);
    }
    if (fields.holds(Wanted::Genre) && mayWrite(Field::Genre, !m_mp3Header.hasGenre()))
        m_mp3Header.setGenre(info.genre);
    if (!m_mp3Header.hasBriselEditParam())
        m_mp3Header.setBriselEditParam();
}

} // namespace brisel
