#pragma once

#include "songfile/mp3header.h"
#include "songfile/rawmidifile.h"
#include "songfile/songfields.h"
#include "songfile/songinfo.h"
#include "songfile/zbxheader.h"

#include <QByteArray>

namespace brisel
{

/// True for "-" and "--", which stand for a missing text in a container's header.
bool isPlaceholder(const QString &text);

/// The content of a song file of any format in memory: read from bytes, changed by the rules of a
/// synchronisation or of an edit by hand, and written to bytes.
class SongData
{
public:
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }
    bool isContainer() const { return ZbxHeader::sizeOf(m_fileType) > 0; }

    /// Load a song of one format. Return false if \a content is not such a song; then the previous
    /// song is dropped, except for its type.
    [[nodiscard]] bool loadMidi(const QByteArray &content);
    [[nodiscard]] bool loadContainer(const QByteArray &content);
    /// \a head: the start of the file with the whole tag.
    [[nodiscard]] bool loadMp3(const QByteArray &head);
    /// Drops the song, except for its type.
    void clear();

    /// The song's data. Names, format and the alternative artist are empty.
    SongInfo info() const;
    /// Writes \a info into the song: with \a manual all fields, otherwise only missing ones, so
    /// that the publisher's data are never overwritten. A field that already has the value is not
    /// written if that would lose data. Fields that are not in \a fields keep the file's value.
    void setInfo(const SongInfo &info, bool manual, SongFields fields = SongFields::all());

    /// False for an MP3, which has no markers, and for a song whose markers can't be replaced: see
    /// RawMidiFile::canReplaceMarkers().
    bool canSetMarkers() const { return m_midiFile.canReplaceMarkers(); }
    /// Replaces the markers, and notes in a container's header whether there are any. Returns
    /// false, and changes nothing, if this is not possible.
    [[nodiscard]] bool setMarkers(const QList<Marker> &markers);

    /// False if there is no song, or it has become too large to be read.
    bool isWhole(qint64 maxSongSize) const;
    /// True if \a other has the same format and either the same title and artist, both not empty,
    /// or, for MIDI data, the same events except for those that this program writes.
    bool hasSameMusicOrNames(const SongData &other) const;

    /// The whole file, for a MIDI file or container. Updates a container's sizes.
    [[nodiscard]] QByteArray fileContent();
    /// The MIDI data as they are played, without compression and marks; empty for an MP3.
    QByteArray midiData() const { return m_midiFile.stream(); }
    /// The tag of an MP3.
    QByteArray tag() const { return m_mp3Header.stream(); }
    /// The start of an MP3's audio in the file, in bytes.
    qint64 audioStart() const { return m_mp3Header.getAudioDataStartPos(); }
    /// Records that the song was written to the file.
    void noteSaved() { m_mp3Header.noteSaved(); }

    /// Inserts a marker at the start of the MIDI data. Returns the number of bytes inserted, 0 if
    /// there are no MIDI data.
    int addMarker(const QString &text, unsigned short bar);

private:
    void supplyMarkers(const SongInfo &info, SongFields fields);
    void setMidiData(const SongInfo &info, bool manual, SongFields fields);
    void setMidiTexts(const SongInfo &info, bool manual, SongFields fields);
    void setContainerHeader(const SongInfo &info, bool manual, SongFields fields);
    void setMp3Tag(const SongInfo &info, bool manual, SongFields fields);
    QByteArray payload() const;
    QByteArray music() const;

    Mp3Header m_mp3Header;
    ZbxHeader m_zbxHeader;
    RawMidiFile m_midiFile;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};

} // namespace brisel
