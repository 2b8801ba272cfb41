#pragma once

#include "base/filecopying.h"
#include "base/filelot.h"
#include "base/graphicsfiles.h"
#include "base/run.h"
#include "library/placedsong.h"
#include "library/pulledmemories.h"
#include "library/songplaces.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSet>
#include <QStringList>

namespace brisel
{

class BackupList;

/// Copies picked song files flat into one folder, with the question before a file is replaced and
/// the karaoke graphics of MP3s. Serves the transfer to the memory and the backup.
class FileCopier
{
    Q_DECLARE_TR_FUNCTIONS(FileCopier)

public:
    /// The user did not want to replace the existing file.
    static constexpr Reason kept{
        QT_TRANSLATE_NOOP("RunReport", "esiste già e non doveva essere sostituita"),
        Reason::Kind::Skip};
    static constexpr Reason alreadyThere{QT_TRANSLATE_NOOP("RunReport", "esiste già")};
    static constexpr Reason pickedToo{
        QT_TRANSLATE_NOOP("RunReport", "al suo posto si trova un'altra delle song scelte")};

    /// Shows, asks and reports through \a run, which must outlive this.
    explicit FileCopier(Run &run) : m_run(run) {}

    /// For copies to the memory \a root, which keep \a reserve bytes free for its index. A song
    /// that has a short name there keeps it.
    void setMemory(const QString &root, qint64 reserve);

    /// The place of each file in the next call, instead of searching it.
    void setPlaces(const QStringList &places) { m_plannedPlaces = places; }

    /// For a backup: songs of one name get numbers (numberedNames()), and each copy is added to
    /// \a list, which must outlive this. A copy that can't be read again is an error.
    void setList(BackupList &list) { m_list = &list; }

    /// For copies that replace nothing: songs whose names the folder already has, or has twice, get
    /// numbers, too. No question is asked.
    void setNumbered() { m_isNumbered = true; }

    /// Copies \a files in lots into the folder \a destDir. Returns true if no file failed and the
    /// user did not interrupt. If there is not enough room for all files, copies none. Sources are
    /// never changed, and copies are flushed to the disk. The caller must have begun a stage of the
    /// run with a step for each file.
    [[nodiscard]] bool copyFiles(const QStringList &files, const QString &destDir);

    /// The number of songs in the folder after the last call; 0 if it was interrupted.
    int copied() const { return m_copied; }
    /// What became of each file of the last call. A later file may have replaced a copy.
    const QList<PlacedSong> &placed() const { return m_placed; }
    /// A text with the room that the last call needed and the free room; empty if there was enough.
    const QString &shortage() const { return m_shortage; }
    /// The bytes per second that the first lot of the last call was written with; 0 if unknown.
    qint64 speed() const { return m_speed; }

private:
    /// A song that is copied to \a place, with its graphics file if it has one.
    struct Song {
        QString source;
        QString place;
        qsizetype number = 0; ///< among the files of this run
        QString companion = {};
        QString companionPlace = {};
        bool isStaged = false;
        bool isCompanionStaged = false;
        bool isThere = false; ///< the song itself, whatever became of its graphics
        bool hasFailed = false;
    };

    void begin(const QStringList &files, const QString &destDir);
    bool copyEach(const QStringList &files);
    bool copyOne(const QString &source, qsizetype number);
    bool mayCopyTo(const QString &source, const QString &place);
    void findPlaces(const QStringList &files);
    bool hasRoom(const QStringList &files);
    bool mayOverwrite(const QString &source, const QString &destination);
    void measure(qint64 bytes);
    void copySong(Song song);
    bool copyFile(Song &song, const QString &source, const QString &place, bool &isStaged);
    void finishLot(Song *current = nullptr);
    void finishFile(Song &song, const QString &source, const QString &place, WriteResult result);
    bool addToList(const QString &source, const QString &place);
    void finishSong(const Song &song);
    void countBytes(const QStringList &files);
    void showSpace(int next);
    void noteFilesLeft(const QStringList &files, int first);
    QString pulledMemory(const QString &source);
    void note(const QString &path, Reason reason);
    void noteCopy(CopyResult result, const QString &source, const QString &destination);

    Run &m_run;
    BackupList *m_list = nullptr; ///< null for other copies than a backup
    bool m_isNumbered = false;
    QSet<QString> m_sources; ///< identities of the files being copied
    GraphicsFiles m_graphics;
    PulledMemories m_memories;
    QString m_destination; ///< the folder of this run
    QString m_memory;      ///< the root of the memory, empty for other copies
    SongPlaces m_songPlaces;
    QStringList m_plannedPlaces;
    QStringList m_places;  ///< of the files of this run
    QList<qint64> m_bytes; ///< of each file
    qint64 m_bytesLeft = 0;
    qint64 m_reserve = 0; ///< bytes
    QString m_shortage;
    FileLot m_lot;
    QElapsedTimer m_firstLot; ///< valid from its first file on
    bool m_isMeasured = false;
    qint64 m_speed = 0;
    QList<Song> m_staged; ///< the songs in the lot
    QList<PlacedSong> m_placed;
    int m_copied = 0;
    int m_errors = 0;
};

} // namespace brisel
