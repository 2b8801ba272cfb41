#include "history/history.h"

#include "base/filefailure.h"
#include "base/freespace.h"
#include "songfile/metasong.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <limits>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

/// The columns that readSongs() expects.
const QString selectSongs =
    u"SELECT id, run, path, format, before, sizebefore, tagbefore, after, sizeafter, tagafter "
    "FROM song "_s;

Fingerprint fingerprintAt(const QSqlQuery &query, int column)
{
    return {query.value(column).toByteArray(), query.value(column + 1).toLongLong(),
            query.value(column + 2).toLongLong()};
}

/// The nearest folder above \a path that exists.
QString existingFolderAbove(const QString &path)
{
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo::exists(folder) && folder != QDir::rootPath())
        folder = QFileInfo(folder).absolutePath();
    return folder;
}

} // namespace

History::History(const QString &path) : m_file(path) {}

QString History::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/history.sqlite"_s;
}

QList<HistoryRun> History::runs()
{
    QList<HistoryRun> runs;
    if (!m_file.open())
        return runs;
    QSqlQuery query =
        m_file.query(u"SELECT id, time, kind, (SELECT count(*) FROM song WHERE song.run = run.id), "
                     "report IS NOT NULL FROM run ORDER BY id DESC"_s);
    if (!m_file.exec(query))
        return runs;
    while (query.next())
        runs.append({query.value(0).toLongLong(),
                     QDateTime::fromMSecsSinceEpoch(query.value(1).toLongLong()),
                     static_cast<RunKind>(query.value(2).toInt()), query.value(3).toInt(),
                     query.value(4).toBool()});
    return runs;
}

QList<HistorySong> History::readSongs(QSqlQuery &query)
{
    QList<HistorySong> songs;
    if (!m_file.exec(query))
        return songs;
    constexpr int before = 4;
    constexpr int after = 7;
    while (query.next())
        songs.append({query.value(0).toLongLong(), query.value(1).toLongLong(),
                      query.value(2).toString(), query.value(3).toString(),
                      fingerprintAt(query, before), fingerprintAt(query, after)});
    return songs;
}

std::optional<HistorySong> History::readSong(QSqlQuery &query)
{
    const QList<HistorySong> songs = readSongs(query);
    return songs.isEmpty() ? std::nullopt : std::optional(songs.first());
}

QList<HistorySong> History::songs(qint64 run)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(selectSongs + u"WHERE run = ? ORDER BY id"_s);
    query.addBindValue(run);
    return readSongs(query);
}

std::optional<HistorySong> History::song(qint64 id)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(selectSongs + u"WHERE id = ?"_s);
    query.addBindValue(id);
    return readSong(query);
}

std::optional<HistorySong> History::lastChange(const QString &path)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(selectSongs + u"WHERE path = ? ORDER BY id DESC LIMIT 1"_s);
    query.addBindValue(path);
    return readSong(query);
}

QList<HistorySong> History::changes(const QString &path, qint64 after)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(selectSongs + u"WHERE path = ? AND id > ? ORDER BY id"_s);
    query.addBindValue(path);
    query.addBindValue(after);
    return readSongs(query);
}

QList<HistorySong> History::changesTo(qint64 size)
{
    if (!m_file.open())
        return {};
    QSqlQuery query =
        m_file.query(selectSongs + u"WHERE sizeafter = ? ORDER BY id DESC LIMIT 1000"_s);
    query.addBindValue(size);
    return readSongs(query);
}

QList<FieldChange> History::fields(qint64 song)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(u"SELECT fields FROM song WHERE id = ?"_s);
    query.addBindValue(song);
    return m_file.exec(query) && query.next() ? fieldsIn(query.value(0).toString())
                                              : QList<FieldChange>();
}

std::optional<QByteArray> History::oldBytes(qint64 song)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(u"SELECT packing, bytes FROM old WHERE song = ?"_s);
    query.addBindValue(song);
    if (!m_file.exec(query) || !query.next())
        return {};
    return unpack({static_cast<Packed::Kind>(query.value(0).toInt()), query.value(1).toByteArray()},
                  MetaSong::maxSongSize);
}

QString History::report(qint64 run)
{
    if (!m_file.open())
        return {};
    QSqlQuery query = m_file.query(u"SELECT report FROM run WHERE id = ?"_s);
    query.addBindValue(run);
    return m_file.exec(query) && query.next() ? query.value(0).toString() : QString();
}

qint64 History::bytesUsed() const
{
    return fileState(m_file.path()).size + fileState(m_file.path() + u"-wal"_s).size;
}

qint64 History::limit() const
{
    constexpr qint64 parts = 20; // of the disk
    const qint64 disk = totalSpace(existingFolderAbove(m_file.path()));
    return disk > 0 ? std::min(m_limit, disk / parts) : m_limit;
}

bool History::clear()
{
    if (m_file.open()) {
        if (m_file.begin() && m_file.exec(u"DELETE FROM old"_s) &&
            m_file.exec(u"DELETE FROM song"_s) && m_file.exec(u"DELETE FROM run"_s) &&
            m_file.end()) {
            m_file.giveBack(std::numeric_limits<int>::max());
            return true;
        }
        m_file.drop();
    }
    if (!m_file.trouble().has_value())
        return true; // the file does not exist
    if (m_file.trouble() == HistoryReason::locked)
        return false;
    m_file.close();
    bool areGone = true;
    for (const QString &suffix : {u""_s, u"-wal"_s, u"-shm"_s}) {
        const QString path = m_file.path() + suffix;
        areGone = (!entryExists(path) || QFile::remove(path)) && areGone;
    }
    return areGone;
}

std::optional<Reason> History::whyUnusable(qint64 bytes)
{
    const QString folder = existingFolderAbove(m_file.path());
    const bool isThere = m_file.open();
    if (m_file.trouble().has_value())
        return m_file.trouble();
    if (!QFileInfo(folder).isDir() || !QFileInfo(folder).isWritable())
        return FileReason::notAllowed;
    const qint64 space = freeSpace(folder);
    if (space >= 0 && space < HistoryFile::leastSpace + bytes)
        return FileReason::noSpace;
    if (bytes > limit())
        return HistoryReason::tooSmall;
    if (isThere && m_file.begin())
        m_file.drop();
    return m_file.trouble();
}

} // namespace brisel
