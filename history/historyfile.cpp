#include "history/historyfile.h"

#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/freespace.h"

#include <QAtomicInteger>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

constexpr int version = 1; ///< of the tables

// Milliseconds to wait for another program's lock.
constexpr int longWait = 2000;
constexpr int shortWait = 20; ///< after a long one was in vain

/// SQLite's own codes, of which the higher bits are details.
Reason reasonOf(const QSqlError &error)
{
    constexpr int codeBits = 0xFF;
    switch (error.nativeErrorCode().toInt() & codeBits) {
    case 5: // busy
    case 6: // locked
        return HistoryReason::locked;
    case 11: // corrupt
    case 26: // not a database
        return HistoryReason::damaged;
    case 13: // full
        return FileReason::noSpace;
    case 3:  // permission
    case 8:  // read-only
    case 14: // can't open
        return FileReason::notAllowed;
    default:
        return FileReason::unwritable;
    }
}

/// Moves the log of the file at \a path into it; no-op on failure.
void moveLog(const QString &path, const QString &connection)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=0"_s);
        // A file that was deleted meanwhile must not be made again.
        database.setDatabaseName(
            QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded() + "?mode=rw"));
        if (database.open())
            QSqlQuery(database).exec(u"PRAGMA wal_checkpoint(PASSIVE)"_s);
    }
    QSqlDatabase::removeDatabase(connection);
}

} // namespace

HistoryFile::HistoryFile(QString path) : m_path(std::move(path))
{
    static QAtomicInteger<int> connections = 0;
    m_connection = u"history %1"_s.arg(++connections);
    m_thread.setMaxThreadCount(1);
}

HistoryFile::~HistoryFile()
{
    close();
}

void HistoryFile::close()
{
    m_thread.waitForDone();
    m_database = QSqlDatabase();
    if (QSqlDatabase::contains(m_connection))
        QSqlDatabase::removeDatabase(m_connection);
}

bool HistoryFile::open()
{
    m_trouble.reset();
    if (m_database.isOpen() && isStillThere())
        return true;
    close();
    const FileKind kind = fileKind(m_path);
    if (kind == FileKind::Missing)
        return false;
    if (kind != FileKind::Regular)
        return fail(kind == FileKind::Unreachable ? FileReason::unreachable : FileReason::notAFile);
    return openFile();
}

bool HistoryFile::openOrCreate()
{
    if (open())
        return true;
    if (m_trouble.has_value())
        return false;
    if (!QDir().mkpath(QFileInfo(m_path).absolutePath()))
        return fail(FileReason::notAllowed);
    return openFile();
}

bool HistoryFile::openFile()
{
    if (connectTo() && checkVersion())
        return true;
    close(); // the next call tries again
    return false;
}

/// Returns false if another file has replaced the one that was opened, or it was deleted.
bool HistoryFile::isStillThere() const
{
    const FileState now = fileState(m_path);
    return now.kind == FileKind::Regular && now.device == m_opened.device &&
           now.inode == m_opened.inode;
}

bool HistoryFile::connectTo()
{
    m_database = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connection);
    m_database.setDatabaseName(m_path);
    m_isPatient = true;
    m_database.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(longWait));
    if (!m_database.open())
        return fail(m_database.lastError());
    m_opened = fileState(m_path);
    // The pages of a lot stay in memory until they are written together, and end() moves the log
    // into the file.
    return exec(u"PRAGMA foreign_keys = ON"_s) && exec(u"PRAGMA synchronous = FULL"_s) &&
           exec(u"PRAGMA cache_size = -16384"_s) &&      // KiB
           exec(u"PRAGMA wal_autocheckpoint = 10000"_s); // pages
}

bool HistoryFile::checkVersion()
{
    const std::optional<qint64> found = number(u"PRAGMA user_version"_s);
    const std::optional<qint64> tables = number(u"SELECT count(*) FROM sqlite_master"_s);
    if (!found || !tables)
        return fail(m_trouble.value_or(HistoryReason::damaged));
    if (found == 0 && tables == 0)
        return makeTables();
    if (found > version)
        return fail(HistoryReason::newer);
    return found == version || fail(HistoryReason::damaged);
}

bool HistoryFile::makeTables()
{
    // The first three have an effect only before there are tables.
    if (!exec(u"PRAGMA auto_vacuum = INCREMENTAL"_s) || !exec(u"PRAGMA page_size = 8192"_s) ||
        !exec(u"PRAGMA journal_mode = WAL"_s) || !begin())
        return false;
    const bool isMade =
        number(u"PRAGMA user_version"_s) == version || // another program was faster
        (exec(u"CREATE TABLE run(id INTEGER PRIMARY KEY AUTOINCREMENT, time INTEGER NOT NULL, "
              "kind INTEGER NOT NULL, report TEXT)"_s) &&
         exec(u"CREATE TABLE song(id INTEGER PRIMARY KEY AUTOINCREMENT, run INTEGER NOT NULL "
              "REFERENCES run ON DELETE CASCADE, path TEXT NOT NULL, format TEXT NOT NULL, "
              "before BLOB NOT NULL, sizebefore INTEGER NOT NULL, tagbefore INTEGER NOT NULL, "
              "after BLOB NOT NULL, sizeafter INTEGER NOT NULL, tagafter INTEGER NOT NULL, "
              "fields TEXT NOT NULL)"_s) &&
         exec(u"CREATE INDEX songsofrun ON song(run)"_s) &&
         exec(u"CREATE INDEX songsbypath ON song(path)"_s) &&
         exec(u"CREATE TABLE old(song INTEGER PRIMARY KEY REFERENCES song ON DELETE CASCADE, "
              "packing INTEGER NOT NULL, size INTEGER NOT NULL, bytes BLOB NOT NULL)"_s) &&
         exec(u"PRAGMA user_version = %1"_s.arg(version)));
    if (isMade && end())
        return true;
    drop();
    return false;
}

QSqlQuery HistoryFile::query(const QString &statement)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        (void)fail(query.lastError());
    return query;
}

bool HistoryFile::exec(QSqlQuery &query)
{
    return query.exec() || fail(query.lastError());
}

bool HistoryFile::exec(const QString &statement)
{
    QSqlQuery query(m_database);
    return query.exec(statement) || fail(query.lastError());
}

std::optional<qint64> HistoryFile::number(const QString &statement)
{
    QSqlQuery found = query(statement);
    if (!exec(found))
        return {};
    return found.next() ? std::optional(found.value(0).toLongLong()) : std::nullopt;
}

qint64 HistoryFile::usedBytes()
{
    const std::optional<qint64> pages = number(u"PRAGMA page_count"_s);
    const std::optional<qint64> free = number(u"PRAGMA freelist_count"_s);
    const std::optional<qint64> size = number(u"PRAGMA page_size"_s);
    return pages && free && size ? (*pages - *free) * *size : -1;
}

/// In short transactions, because other programs wait for their ends.
void HistoryFile::giveBack(int pages)
{
    constexpr qint64 pagesAtOnce = 1024;
    qint64 left = std::min<qint64>(number(u"PRAGMA freelist_count"_s).value_or(0), pages);
    // A query that returns no columns takes only its first step, which frees one page.
    QSqlQuery freePage = query(u"PRAGMA incremental_vacuum(1)"_s);
    bool isDone = left <= 0;
    while (!isDone && begin()) {
        const qint64 most = left - std::min(left, pagesAtOnce);
        for (isDone = false; left > most && !isDone; --left) {
            isDone = !exec(freePage);
            freePage.finish();
        }
        isDone = !end() || isDone || left == 0;
    }
    m_thread.waitForDone();
    (void)exec(u"PRAGMA wal_checkpoint(TRUNCATE)"_s);
}

bool HistoryFile::begin()
{
    m_thread.waitForDone(); // the log starts again if all of it was moved
    const bool hasBegun = exec(u"BEGIN IMMEDIATE"_s);
    setPatience(hasBegun || m_trouble != HistoryReason::locked);
    return hasBegun;
}

/// A run with many lots must not wait for the same lock each time.
void HistoryFile::setPatience(bool isPatient)
{
    if (std::exchange(m_isPatient, isPatient) != isPatient)
        (void)exec(u"PRAGMA busy_timeout = %1"_s.arg(isPatient ? longWait : shortWait));
}

bool HistoryFile::end(qint64 bytes)
{
    constexpr qint64 longLog = 16 * 1024 * 1024; // each move has flushes of its own
    if (!exec(u"COMMIT"_s)) {
        drop();
        return false;
    }
    m_logBytes += bytes;
    if (m_logBytes >= longLog) {
        m_logBytes = 0;
        m_thread.waitForDone();
        m_thread.start(
            [path = m_path, connection = m_connection + u" log"_s] { moveLog(path, connection); });
    }
    return true;
}

void HistoryFile::drop()
{
    QSqlQuery(m_database).exec(u"ROLLBACK"_s);
}

/// The first reason is kept.
bool HistoryFile::fail(Reason reason)
{
    if (!m_trouble.has_value())
        m_trouble = reason;
    close();
    return false;
}

bool HistoryFile::fail(const QSqlError &error)
{
    debug() << "[History]" << error.text();
    if (m_trouble.has_value())
        return false;
    m_trouble = reasonOf(error);
    // On a full disk some calls fail with other codes.
    const qint64 space = freeSpace(QFileInfo(m_path).absolutePath());
    if (space >= 0 && space < leastSpace &&
        (m_trouble == FileReason::unwritable || m_trouble == FileReason::notAllowed))
        m_trouble = FileReason::noSpace;
    return false;
}

} // namespace brisel
