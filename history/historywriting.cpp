// The part of History that writes the entries of a run.

#include "history/history.h"

#include <QVariant>

#include <algorithm>
#include <limits>
#include <utility>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

/// The statements that insert songs, prepared once for many.
class SongInsertion
{
public:
    explicit SongInsertion(HistoryFile &file)
        : m_file(file),
          m_song(file.query(
              u"INSERT INTO song(run, path, format, before, sizebefore, tagbefore, after, "
              "sizeafter, tagafter, fields) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s)),
          m_old(file.query(u"INSERT INTO old VALUES (?, ?, ?, ?)"_s))
    {
    }

    /// Returns the number of the song, nothing on failure.
    std::optional<qint64> insert(qint64 run, const PackedSong &song);

private:
    [[nodiscard]] bool exec(QSqlQuery &query, const QVariantList &values);

    HistoryFile &m_file;
    QSqlQuery m_song;
    QSqlQuery m_old;
};

bool SongInsertion::exec(QSqlQuery &query, const QVariantList &values)
{
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, values.at(i));
    return m_file.exec(query);
}

std::optional<qint64> SongInsertion::insert(qint64 run, const PackedSong &song)
{
    if (!exec(m_song, {run, song.path, song.format, song.before.checksum, song.before.size,
                       song.before.tagSize, song.after.checksum, song.after.size,
                       song.after.tagSize, song.fields}))
        return {};
    const qint64 id = m_song.lastInsertId().toLongLong();
    // Without any bytes the value would be null.
    const QByteArray stored = song.old.bytes.isNull() ? QByteArray("") : song.old.bytes;
    if (!exec(m_old, {id, static_cast<int>(song.old.kind), song.oldSize, stored}))
        return {};
    return id;
}

/// The space that \a song takes in the file, about.
qint64 bytesOf(const PackedSong &song)
{
    constexpr qint64 rest = 256; // bytes for checksums and numbers
    return song.old.bytes.size() + 2 * (song.path.size() + song.fields.size()) + rest;
}

} // namespace

bool History::execWith(const QString &statement, const QVariantList &values)
{
    QSqlQuery query = m_file.query(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    return m_file.exec(query);
}

bool History::add(qint64 &run, RunKind kind, const QList<PackedSong> &songs, QList<qint64> &ids,
                  const QList<qint64> &unwritten)
{
    ids.clear();
    m_wasCut = false;
    if (!m_file.openOrCreate() || !m_file.begin())
        return false;
    qint64 bytes = 0;
    for (const PackedSong &song : songs)
        bytes += bytesOf(song);
    qint64 written = run;
    const bool isWritten =
        deleteSongs(unwritten) && makeRoom(run, bytes) && addSongs(written, kind, songs, ids);
    if (!isWritten)
        m_file.drop();
    if (!isWritten || !m_file.end(bytes)) {
        ids.clear();
        return false;
    }
    run = written;
    return true;
}

bool History::addSongs(qint64 &run, RunKind kind, const QList<PackedSong> &songs,
                       QList<qint64> &ids)
{
    if (!insertRun(run, kind))
        return false;
    SongInsertion insertion(m_file);
    for (const PackedSong &song : songs) {
        const std::optional<qint64> id = insertion.insert(run, song);
        if (!id.has_value())
            return false;
        ids.append(*id);
    }
    return true;
}

/// Deletes the oldest runs until \a bytes more are within the limit; if that is not enough, and no
/// run is protected, also entries of the run \a run.
bool History::makeRoom(qint64 run, qint64 bytes)
{
    const qint64 most = std::max<qint64>(limit() - bytes, 0);
    qint64 used = m_file.usedBytes();
    while (used > most) {
        const std::optional<qint64> oldest = oldestRun(run);
        if (!oldest.has_value())
            return false;
        if (*oldest == 0)
            return !m_protected.isEmpty() || cutRun(run, used - most);
        if (!execWith(u"DELETE FROM run WHERE id = ?"_s, {*oldest}))
            return false;
        used = m_file.usedBytes();
    }
    return used >= 0;
}

/// The oldest run that may be deleted; 0 if there are only \a except and protected ones, nothing on
/// failure.
std::optional<qint64> History::oldestRun(qint64 except)
{
    QStringList kept{QString::number(except)};
    for (const qint64 run : std::as_const(m_protected))
        kept.append(QString::number(run));
    return m_file.number(
        u"SELECT ifnull(min(id), 0) FROM run WHERE id NOT IN (%1)"_s.arg(kept.join(u',')));
}

/// Deletes the oldest songs of a run, which occupy at least \a bytes, or all of them.
bool History::cutRun(qint64 run, qint64 bytes)
{
    QSqlQuery query =
        m_file.query(u"SELECT song.id, length(old.bytes) FROM song "
                     "JOIN old ON old.song = song.id WHERE run = ? ORDER BY song.id"_s);
    query.addBindValue(run);
    if (!m_file.exec(query))
        return false;
    QList<qint64> songs;
    for (qint64 freed = 0; freed < bytes && query.next(); freed += query.value(1).toLongLong())
        songs.append(query.value(0).toLongLong());
    query.finish();
    m_wasCut = !songs.isEmpty();
    return deleteSongs(songs);
}

bool History::trim()
{
    if (!m_file.open())
        return !m_file.trouble().has_value();
    if (!m_file.begin())
        return false;
    const bool isDone = makeRoom(0, 0);
    if (!isDone)
        m_file.drop();
    if (!isDone || !m_file.end())
        return false;
    m_file.giveBack(std::numeric_limits<int>::max());
    return true;
}

bool History::deleteSongs(const QList<qint64> &songs)
{
    for (const qint64 song : songs) {
        if (!execWith(u"DELETE FROM song WHERE id = ?"_s, {song}))
            return false;
    }
    return true;
}

/// A run that another program has deleted meanwhile is inserted again.
bool History::insertRun(qint64 &run, RunKind kind)
{
    QSqlQuery query =
        m_file.query(u"INSERT INTO run(id, time, kind) VALUES (?, ?, ?) ON CONFLICT DO NOTHING"_s);
    query.addBindValue(run == 0 ? QVariant() : QVariant(run));
    query.addBindValue(QDateTime::currentMSecsSinceEpoch());
    query.addBindValue(static_cast<int>(kind));
    if (!m_file.exec(query))
        return false;
    if (run == 0)
        run = query.lastInsertId().toLongLong();
    return true;
}

bool History::finish(qint64 run, const QList<qint64> &unwritten, const QString &report)
{
    constexpr int mostPages = 4096; // so that it takes no time that the user notices
    m_wasCut = false;
    if (!m_file.openOrCreate() || !m_file.begin())
        return false;
    const bool isWritten = deleteSongs(unwritten) &&
                           execWith(u"DELETE FROM run WHERE id = ? AND NOT EXISTS "
                                    "(SELECT 1 FROM song WHERE song.run = run.id)"_s,
                                    {run}) &&
                           execWith(u"UPDATE run SET report = ? WHERE id = ?"_s, {report, run}) &&
                           makeRoom(run, 0);
    if (!isWritten)
        m_file.drop();
    if (!isWritten || !m_file.end())
        return false;
    m_file.giveBack(mostPages);
    return true;
}

} // namespace brisel
