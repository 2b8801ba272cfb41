#pragma once

#include "base/filewriting.h"
#include "songfile/songdata.h"
#include "songfile/songinfo.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class PlainFile;

/// A song file of any format: the one way by which the program reads and writes songs. Used for one
/// file at a time: import, read or change, save.
class MetaSong
{
public:
    /// Bytes: a MIDI file or container that is larger is no song, and is not read.
    static constexpr qint64 maxSongSize = 16 * 1024 * 1024;

    /// Why the last import or save failed, where a later look at the file can't show it.
    enum class Trouble {
        None,
        CutShort,         ///< the file could not be read to its end
        ChangedMeanwhile, ///< it is no longer the song that was read
    };

    /// Recognises and loads the file at \a path, a plain file or a link to one. False when it
    /// can't be used as a song; no song is held then.
    [[nodiscard]] bool importFile(const QString &path);

    /// Fills \a info with what the file holds. Its names and the alternative artist stay empty.
    void getSongInfo(SongInfo &info) const;

    /// Puts \a info into the song in memory: with \a manual all of it, otherwise only where the
    /// file lacks something, so that the publisher's data are never overwritten.
    void setSongInfo(const SongInfo &info, bool manual);

    /// False when saveToFile() refuses: no song is held, or it has grown larger than a reader
    /// takes.
    [[nodiscard]] bool isWholeInMemory() const;

    /// Writes the song to \a path. An MP3 must stand there already: its audio is kept and the tag
    /// replaced. When it is the file that was imported, and another program has changed it since,
    /// the changes are made again in what stands there now; when that is another song, the save
    /// fails. False when it failed: what was there before is there still, but where rewriteMp3()
    /// and replaceFile() say otherwise. Every failure is logged but that of an MP3's last step, the
    /// renaming.
    [[nodiscard]] bool saveToFile(const QString &path);

    /// The same for one of many songs: Staged when the song will be in its place after commit() of
    /// \a lot. Should that find the file Changed, the song is to be imported and changed again.
    [[nodiscard]] WriteResult saveInLot(const QString &path, FileLot &lot);
    /// Logs that a song which was Staged could not be written.
    static void logFailedSave();

    Trouble trouble() const { return m_trouble; }

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
    struct Change {
        SongInfo info;
        bool manual = false;
    };

    [[nodiscard]] bool load(const PlainFile &file, const QString &path);
    [[nodiscard]] bool readWhole(const PlainFile &file);
    [[nodiscard]] std::optional<QByteArray> readMp3Head(const PlainFile &file);
    bool isMp3() const { return m_song.fileType() == SongInfo::Mp3; }

    bool isAsRead(const PlainFile &file);
    [[nodiscard]] bool catchUp(const QString &path);
    bool isSameSong(const MetaSong &other) const;
    [[nodiscard]] WriteResult save(const QString &path, FileLot *lot);
    [[nodiscard]] WriteResult saveMp3(const QString &path, FileLot *lot);
    [[nodiscard]] WriteResult saveMidi(const QString &path, FileLot *lot);
    [[nodiscard]] bool openUnchanged(const QString &path, PlainFile &file);
    void logTrouble(const PlainFile &file) const;
    void noteSaved(const QString &path, const QByteArray &content);

    SongData m_song;
    SongData m_loaded;    ///< the song as it was read
    QByteArray m_content; ///< the bytes that it was read from: an MP3's head, else the whole file
    qint64 m_size = 0;    ///< of the file, in bytes
    QString m_path;       ///< where it was read
    QList<Change> m_changes; ///< since it was read, to be made again should the file have changed
    Trouble m_trouble = Trouble::None;
};
