#pragma once

#include "songfile/mp3header.h"
#include "songfile/rawmidifile.h"
#include "songfile/songinfo.h"
#include "songfile/zbxheader.h"

#include <QByteArray>

/// What a song file of any format holds, in memory: read from bytes, changed by the rules of the
/// synchronisation or of an edit by hand, and given back as bytes.
class SongData
{
public:
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }
    bool isContainer() const { return ZbxHeader::sizeOf(m_fileType) > 0; }

    /// Each takes a song of its format; false when \a content is not one. What was held before is
    /// gone then, but for the type.
    [[nodiscard]] bool loadMidi(const QByteArray &content);
    [[nodiscard]] bool loadContainer(const QByteArray &content);
    /// \a head is the file's start with the whole tag.
    [[nodiscard]] bool loadMp3(const QByteArray &head);
    /// Drops what is held, but for the type.
    void clear();

    /// What the song holds. Its names, its format and the alternative artist stay empty.
    SongInfo info() const;
    /// Puts \a info in: with \a manual all of it, otherwise only where the song lacks something, so
    /// that the publisher's data are never overwritten. A field that reads as it is to be written
    /// stays untouched where writing it would lose something.
    void setInfo(const SongInfo &info, bool manual);

    /// False when no song is held, or it has grown larger than a reader takes.
    bool isWhole(qint64 maxSongSize) const;
    /// True when \a other has the same format and either the same title and artist, neither of them
    /// empty, or, of MIDI data, the same events but for those that this program writes.
    bool hasSameMusicOrNames(const SongData &other) const;

    /// The whole file, of a MIDI file or container. A container's sizes are made right.
    [[nodiscard]] QByteArray fileContent();
    /// The tag of an MP3.
    QByteArray tag() const { return m_mp3Header.stream(); }
    /// Where the audio of an MP3 begins in the file, in bytes.
    qint64 audioStart() const { return m_mp3Header.getAudioDataStartPos(); }
    /// Notes that the file now holds what is held here.
    void noteSaved() { m_mp3Header.noteSaved(); }

    /// Puts a marker at the head of the MIDI data; returns the bytes inserted, 0 when there are
    /// none.
    int addMarker(const QString &text, unsigned short bar);

private:
    void setMidiData(const SongInfo &info, bool manual);
    void setMidiTexts(const SongInfo &info, bool manual);
    void setContainerHeader(const SongInfo &info, bool manual);
    void setMp3Tag(const SongInfo &info, bool manual);
    QByteArray payload() const;
    QByteArray music() const;

    Mp3Header m_mp3Header;
    ZbxHeader m_zbxHeader;
    RawMidiFile m_midiFile;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};
