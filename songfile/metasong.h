#pragma once

#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "songfile/songdata.h"
#include "songfile/songinfo.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace brisel
{

class PlainFile;
class SongKeeper;

/// A song file of any format: the program reads and writes all songs with this class. Used for one
/// file at a time: import, read or change, save.
class MetaSong
{
public:
    /// Bytes: a larger MIDI file or container is not a song, and is not read.
    static constexpr qint64 maxSongSize = 16 * 1024 * 1024;

    /// Why the last import or save failed, if the file itself does not show it later.
    enum class Trouble {
        None,
        CutShort,         ///< the file could not be read to its end
        ChangedMeanwhile, ///< it is no longer the song that was read
    };

    /// Recognises and loads the file at \a path, a plain file or a link to one. Returns false,
    /// without a song in memory, if it can't be used as a song.
    [[nodiscard]] bool importFile(const QString &path);

    /// Fills \a info with the data in the file. Its names and the alternative artist stay empty.
    void getSongInfo(SongInfo &info) const;

    /// The state of the file when it was opened by importFile().
    const FileState &stateWhenRead() const { return m_state; }

    /// Writes \a info into the song in memory: with \a manual all fields, otherwise only fields
    /// that are missing in the file, so that the publisher's data are never overwritten. Fields
    /// that are not in \a fields keep the file's value.
    void setSongInfo(const SongInfo &info, bool manual, SongFields fields = SongFields::all());

    /// Whether setMarkers() can replace the markers of this song.
    bool canSetMarkers() const { return m_song.canSetMarkers(); }
    /// Replaces the markers of the song in memory, which setSongInfo() does not change by hand.
    /// Returns false, and changes nothing, if it has none or they can't be replaced.
    [[nodiscard]] bool setMarkers(const QList<Marker> &markers);

    /// False if saveToFile() would refuse: there is no song in memory, or it has become too large
    /// to be read.
    [[nodiscard]] bool isWholeInMemory() const { return m_song.isWhole(maxSongSize); }

    /// Shows \a keeper each change of the imported file before it is made, unless its bytes stay
    /// the same, and the result, unless the song is Staged. It must outlive the song, and flush()
    /// must be called by the lot of saveInLot(): FileLot::setBeforeReplacing(). Null for nobody.
    void setKeeper(SongKeeper *keeper) { m_keeper = keeper; }

    /// Writes the song to \a path. An MP3 must already exist there: its audio is kept and the tag
    /// replaced. If it is the imported file and another program has changed it since then, the
    /// changes are applied again to the present file; if that is another song, the save fails.
    /// Returns false if it failed: then the file is unchanged, except as described at rewriteMp3()
    /// and replaceFile(). Every failure is logged, except for the renaming, the last step for an
    /// MP3.
    [[nodiscard]] bool saveToFile(const QString &path);

    /// Like saveToFile() for one of many songs: returns Staged if commit() of \a lot will replace
    /// the file. If commit() reports it as Changed, the song must be imported and changed again.
    [[nodiscard]] WriteResult saveInLot(const QString &path, FileLot &lot);
    /// Logs that a Staged song could not be written.
    static void logFailedSave();

    /// The start of an MP3's audio in the imported file, in bytes; nothing for another format.
    std::optional<qint64> audioStart() const
    {
        return isMp3() ? std::optional(m_loaded.audioStart()) : std::nullopt;
    }

    /// The MIDI data, decompressed; empty for an MP3.
    QByteArray midiData() const { return m_song.midiData(); }

    Trouble trouble() const { return m_trouble; }

    /// "MIDI", "ZB3", "ZB4", "ZB5", "MP3", or "UNKNOWN" for anything else.
    static QString getFormatString(SongInfo::fileTypeEnum type);

    /// Removes the system's immutable attribute from a file. The result is only logged.
    static void removeReadOnlyFlag(const QString &path);

    /// The key names for combo boxes, see RawMidiFile::getKeysList().
    static QStringList getKeysList() { return RawMidiFile::getKeysList(); }

    /// Debug aid: inserts a marker at the start of the MIDI data. Returns the number of bytes
    /// inserted, 0 if there are no MIDI data.
    int dbgAddMarker(const QString &text, unsigned short bar);

private:
    struct Change {
        SongInfo info;
        bool manual = false;
        SongFields fields = SongFields::all();
        std::optional<QList<Marker>> markers = {}; ///< if only these were changed
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
    void keepMidi(const QByteArray &content);
    [[nodiscard]] bool keepMp3(const PlainFile &file, const QByteArray &head, qint64 audioStart);
    std::function<void()> keeping() const;
    void noteSaved(const QString &path, const QByteArray &content);

    SongData m_song;
    SongData m_loaded;    ///< the song as it was read
    QByteArray m_content; ///< the bytes that were read: an MP3's head, otherwise the whole file
    qint64 m_size = 0;    ///< size of the file in bytes
    FileState m_state;
    QString m_path;          ///< where it was read
    QList<Change> m_changes; ///< since it was read; applied again if the file has changed
    Trouble m_trouble = Trouble::None;
    SongKeeper *m_keeper = nullptr;
};

} // namespace brisel
