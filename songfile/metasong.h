#pragma once

#include "songfile/mp3header.h"
#include "songfile/rawmidifile.h"
#include "songfile/songinfo.h"
#include "songfile/zbxheader.h"

#include <QString>
#include <QStringList>

class QFile;

/// A song file of any format: the one way by which the program reads and writes songs. Used for one
/// file at a time: import, read or change, save.
class MetaSong
{
public:
    /// Bytes: a MIDI file or container that is larger is no song, and is not read.
    static constexpr qint64 maxSongSize = 16 * 1024 * 1024;

    /// Recognises and loads the file at \a path, a plain file or a link to one. False when it is
    /// none that can be used; no song is held then.
    bool importFile(const QString &path);

    /// Fills \a info with what the file holds. Its names and the alternative artist stay empty.
    void getSongInfo(SongInfo &info) const;

    /// Puts \a info into the song in memory: with \a manual all of it, otherwise only where the
    /// file lacks something, so that the publisher's data are never overwritten.
    void setSongInfo(const SongInfo &info, bool manual);

    /// False when saveToFile() refuses: no song is held, or it has grown larger than a reader
    /// takes.
    bool isWholeInMemory() const;

    /// Writes the song to \a path. An MP3 must stand there already: its audio is kept and the tag
    /// replaced. False when that failed: what was there before is there still. Every failure is
    /// logged but that of an MP3's last step, the renaming.
    bool saveToFile(const QString &path);

    /// "MIDI", "ZB3", "ZB4", "ZB5", "MP3", or "UNKNOWN" for anything else.
    static QString getFormatString(SongInfo::fileTypeEnum type);

    /// Takes the system's immutable attribute from a file. Logged; a failure stops nothing.
    static void removeReadOnlyFlag(const QString &path);

    /// The key names for choosers, see RawMidiFile::getKeysList().
    static QStringList getKeysList();

    /// Debug aid: puts a marker at the head of the MIDI data; returns the bytes inserted, 0 when
    /// there are none.
    int dbgAddMarker(const QString &text, unsigned short bar);

private:
    bool importContainer(QFile &file);
    bool importMidi(QFile &file);
    bool importMp3(QFile &file);

    bool isContainer() const;
    void setMidiData(const SongInfo &info, bool manual);
    void setMidiTexts(const SongInfo &info, bool manual);
    void setContainerHeader(const SongInfo &info, bool manual);
    void setMp3Tag(const SongInfo &info, bool manual);

    bool saveMp3(const QString &path);
    bool saveMidi(const QString &path);
    QByteArray containerBytes();
    QByteArray payload() const;

    Mp3Header m_mp3Header;
    ZbxHeader m_zbxHeader;
    RawMidiFile m_midiFile;
    SongInfo::fileTypeEnum m_fileType = SongInfo::Unknown;
};
