#pragma once

#include "base/reason.h"
#include "history/historyfile.h"
#include "history/packing.h"
#include "songfile/fieldchange.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace brisel
{

/// The numbers are stored.
enum class RunKind { Synchronisation = 1, Edit = 2, ApplyToAll = 3, Restore = 4 };

/// A run that changed songs.
struct HistoryRun {
    qint64 id = 0;
    QDateTime time; ///< of its start
    RunKind kind = RunKind::Synchronisation;
    int songs = 0;
    bool hasReport = false; ///< false if the program ended before the run did
};

/// A song that a run changed. Its file was not changed if the program ended immediately after the
/// entry was made.
struct HistorySong {
    qint64 id = 0;
    qint64 run = 0;
    QString path;
    QString format; ///< MetaSong::getFormatString()
    Fingerprint before;
    Fingerprint after;
};

/// What the program changed in song files, in one SQLite file: docs/formats/history.md. Nothing is
/// created before the first change. Numbers of runs and songs are never used again.
///
/// If the file is missing, there are no runs; if it can't be read, trouble() has the reason.
/// Several programs may use the same file at once.
class History
{
public:
    explicit History(const QString &path = defaultPath());

    /// "history.sqlite" in the user's folder for the data of this program.
    static QString defaultPath();

    /// All runs, newest first.
    QList<HistoryRun> runs();
    /// The songs of a run, in the order in which they were changed.
    QList<HistorySong> songs(qint64 run);
    std::optional<HistorySong> song(qint64 id);
    QList<FieldChange> fields(qint64 song);
    /// What KeptSong::oldBytes was. Returns nothing if the song is not there or damaged.
    std::optional<QByteArray> oldBytes(qint64 song);
    /// The report of a run; empty if it was not stored.
    QString report(qint64 run);
    /// The newest entry of the file at \a path.
    std::optional<HistorySong> lastChange(const QString &path);
    /// The entries of the file at \a path that are newer than the entry \a after, oldest first.
    QList<HistorySong> changes(const QString &path, qint64 after = 0);
    /// The newest entries, up to 1,000, of files that had \a size bytes after the change, newest
    /// first.
    QList<HistorySong> changesTo(qint64 size);

    /// The disk space that the history takes, in bytes.
    qint64 bytesUsed() const;
    /// The most that it may take: limit set by setLimit(), but not more than 5 % of its disk.
    qint64 limit() const;
    /// Sets the limit in bytes; initially 1 GiB.
    void setLimit(qint64 bytes) { m_limit = bytes; }
    /// From now on \a runs are not deleted to make room for others, because they are being
    /// restored: the limit is exceeded instead. They can still be cleared.
    void setProtected(const QSet<qint64> &runs) { m_protected = runs; }
    /// Deletes the oldest runs until the limit is kept. Returns false on failure.
    [[nodiscard]] bool trim();
    /// Deletes all runs; a file that can't be used is deleted. Returns false on failure.
    [[nodiscard]] bool clear();

    /// Why the next run could not be kept; nothing if it probably can. Creates nothing.
    /// \a bytes: the space that the run will take, about.
    std::optional<Reason> whyUnusable(qint64 bytes = 0);
    /// Why the last call failed.
    const std::optional<Reason> &trouble() const { return m_file.trouble(); }

    /// Adds songs to a run, in one transaction, and sets \a ids to their numbers; deletes the
    /// entries \a unwritten, and the oldest runs if the limit would be exceeded. With the number 0
    /// starts a run of \a kind, and sets it. On the disk when it returns true; on failure nothing
    /// is written.
    [[nodiscard]] bool add(qint64 &run, RunKind kind, const QList<PackedSong> &songs,
                           QList<qint64> &ids, const QList<qint64> &unwritten = {});
    /// Returns true if the last add() or finish() had to delete older entries of its own run,
    /// because this run alone exceeds the limit.
    bool wasCut() const { return m_wasCut; }
    /// Ends a run: deletes the entries \a unwritten, then the run if it has no songs left,
    /// otherwise stores its report. May be called again.
    [[nodiscard]] bool finish(qint64 run, const QList<qint64> &unwritten, const QString &report);

private:
    static constexpr qint64 defaultLimit = 1024 * 1024 * 1024; ///< bytes

    QList<HistorySong> readSongs(QSqlQuery &query);
    std::optional<HistorySong> readSong(QSqlQuery &query);
    [[nodiscard]] bool makeRoom(qint64 run, qint64 bytes);
    std::optional<qint64> oldestRun(qint64 except);
    [[nodiscard]] bool cutRun(qint64 run, qint64 bytes);
    [[nodiscard]] bool deleteSongs(const QList<qint64> &songs);
    [[nodiscard]] bool insertRun(qint64 &run, RunKind kind);
    [[nodiscard]] bool addSongs(qint64 &run, RunKind kind, const QList<PackedSong> &songs,
                                QList<qint64> &ids);
    [[nodiscard]] bool execWith(const QString &statement, const QVariantList &values);

    HistoryFile m_file;
    qint64 m_limit = defaultLimit;
    QSet<qint64> m_protected;
    bool m_wasCut = false;
};

} // namespace brisel
