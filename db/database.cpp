#include "db/database.h"

#include "base/debugstream.h"
#include "base/songtext.h"
#include "db/sqliteconnection.h"

#include <QSqlError>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace brisel
{

namespace
{

const QString selectRecord =
    QStringLiteral("SELECT title,artist,genre,author,length,bpm,key,markers,altartist,"
                   "filename FROM songs ");

/// The number in a column; -1 for NULL, text and values beyond 32 signed bits.
qint32 numberOf(const QVariant &value)
{
    if (value.isNull())
        return -1;
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !(number >= std::numeric_limits<qint32>::min()) ||
        !(number <= std::numeric_limits<qint32>::max()))
        return -1;
    return static_cast<qint32>(std::lround(number));
}

/// \a valueOf(column) is the value of a column of selectRecord.
template <typename ValueOf>
void fillRecord(const ValueOf &valueOf, SongsDbRecord &record)
{
    record.title = valueOf(0).toString();
    record.artist = valueOf(1).toString();
    record.genre = valueOf(2).toString();
    record.author = valueOf(3).toString();
    record.length = numberOf(valueOf(4));
    record.bpm = numberOf(valueOf(5));
    record.key = trimmedSongText(valueOf(6).toString());
    Database::splitMarkers(valueOf(7).toString(), record.markers);
    record.altArtist = valueOf(8).toString();
}

void fillRecord(const QSqlQuery &query, SongsDbRecord &record)
{
    fillRecord([&query](int column) { return query.value(column); }, record);
}

constexpr QChar unitSeparator(0x1F);

/// All rows: each record as one text, with a separator between the columns of selectRecord, and its
/// names. A query for each song takes longer, most of it in Qt, which describes each column anew.
/// LIKE never finds a name that does not match itself (NULL, or blobs in some builds of SQLite).
QString selectIndex()
{
    QStringList columns;
    for (const char *name :
         {"title", "artist", "genre", "author", "length", "bpm", "key", "markers", "altartist"})
        columns.append(QStringLiteral("coalesce(%1,'')").arg(QLatin1StringView(name)));
    const QString name = QStringLiteral("CASE WHEN %1 LIKE %1 THEN cast(%1 as text) END");
    return QStringLiteral("SELECT rowid,%1,%2,%3 FROM songs ORDER BY rowid")
        .arg(columns.join(QStringLiteral("||char(31)||")), name.arg(QLatin1StringView("filename")),
             name.arg(QLatin1StringView("title")));
}

/// Returns false if a column has a separator in it.
bool fillFromJoined(const QString &joined, SongsDbRecord &record)
{
    constexpr qsizetype columns = 9;
    const QStringList texts = joined.split(unitSeparator);
    if (texts.size() != columns)
        return false;
    fillRecord([&texts](int column) { return QVariant(texts.at(column)); }, record);
    return true;
}

/// SQLite reads a double-quoted name as a column if there is a column of that name.
bool isColumnName(const QString &text)
{
    static const std::array names{u"title", u"artist", u"genre",    u"author",  u"length",
                                  u"bpm",   u"key",    u"filename", u"markers", u"altartist",
                                  u"rowid", u"oid",    u"_rowid_"};
    return std::any_of(names.begin(), names.end(), [&text](const char16_t *name) {
        return text.compare(QStringView(name), Qt::CaseInsensitive) == 0;
    });
}

/// True if SQLite reads the text in double quotes as a string, so that it can be bound instead.
bool isPlainText(const QString &text)
{
    return !text.contains(u'"') && !isColumnName(text);
}

/// After a double quote a name is read as SQL. A condition on the same row is allowed; parts that
/// could keep the catalogue busy forever (a sub-select, a second table, a function) are not. Two
/// quotes mean one in the text and do not end it.
bool isTooClever(const QString &text)
{
    return QString(text).remove(QStringLiteral("\"\"")).contains(u'"') &&
           (text.contains(u'(') || text.contains(QStringLiteral("select"), Qt::CaseInsensitive));
}

/// Runs a statement that ends with LIKE and \a text in double quotes, not escaped.
bool execLike(QSqlQuery &query, const QString &statement, const QString &text)
{
    if (text.contains(QChar::Null) || isTooClever(text))
        return false;
    if (!isPlainText(text))
        return query.exec(statement + u'"' + text + u'"');
    if (!query.prepare(statement + u'?'))
        return false;
    query.addBindValue(text.isNull() ? QStringLiteral("") : text);
    return query.exec();
}

} // namespace

Database::Database() = default;

Database::~Database()
{
    closeConnections();
}

bool Database::init()
{
    closeConnections();
    if (!openUserLibrary() || !openCatalogue())
        return false;
    fillList(m_genres, QStringLiteral("select distinct genre from songs"));
    fillList(m_artists, QStringLiteral("select distinct altartist from songs"));
    return true;
}

bool Database::openUserLibrary()
{
    m_userLibraryDb = addSqliteConnection(QStringLiteral("con_mem"));
    m_userLibraryDb.setDatabaseName(QStringLiteral(":memory:"));
    if (!m_userLibraryDb.open())
        return false;
    QSqlQuery query(m_userLibraryDb);
    query.exec(QStringLiteral("create table usersongs (id integer primary key, type varchar, "
                              "title varchar, artist varchar, genre varchar, author varchar, "
                              "length varchar, userbpm int, key varchar, filename varchar, "
                              "shortname varchar, status int)"));
    return true;
}

bool Database::openCatalogue()
{
    if (!m_catalogue.prepare())
        return false;
    m_songsDb = addSqliteConnection(QStringLiteral("con_songsdb"));
    m_songsDb.setDatabaseName(m_catalogue.uri());
    m_songsDb.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI"));
    if (!m_songsDb.open())
        return m_catalogue.refuse(m_songsDb.lastError().text());
    // SQLite opens by name: it must have opened the file that was checked.
    if (!m_catalogue.isUnchanged())
        return m_catalogue.refuse(QStringLiteral("another program is writing it"));
    return holdsPlainSongs() ||
           m_catalogue.refuse(QStringLiteral("its songs are not stored in a table"));
}

/// False if the catalogue's "songs" are computed (a view, a computed column), which could take
/// forever. A catalogue without "songs" counts as empty.
bool Database::holdsPlainSongs() const
{
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    const QString computed =
        QStringLiteral("SELECT 1 FROM pragma_table_list('songs') WHERE type<>'table' UNION ALL "
                       "SELECT 1 FROM pragma_table_xinfo('songs') WHERE hidden<>0");
    return !query.exec(computed) || !query.next();
}

void Database::closeConnections()
{
    m_records.clear();
    m_isIndexed = false;
    m_fileNames = {};
    m_titles = {};
    m_hasTriedIndex = false;
    removeSqliteConnection(m_songsDb);
    removeSqliteConnection(m_userLibraryDb);
    m_catalogue.clear();
}

void Database::fillList(QStringList &list, const QString &statement) const
{
    list.clear();
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    if (!query.exec(statement))
        return;
    while (query.next()) {
        const QString entry = trimmedSongText(query.value(0).toString());
        if (!entry.isEmpty())
            list.append(entry);
    }
}

/// True if SQLite scans the rows in order to find the first match: with an index of the names in
/// the catalogue's file the order might differ.
bool Database::areNamesScanned() const
{
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    return query.exec(QStringLiteral("EXPLAIN QUERY PLAN ") + selectRecord +
                      QStringLiteral("WHERE filename like 'A%'")) &&
           query.next() && !query.value(3).toString().contains(QStringLiteral("INDEX"));
}

/// Called by the first look-up, so that the window opens sooner.
void Database::indexNames()
{
    if (m_hasTriedIndex)
        return;
    m_hasTriedIndex = true;
    m_isIndexed = areNamesScanned() && fillIndex();
}

/// Returns false if the catalogue can't be read.
bool Database::fillIndex()
{
    constexpr qsizetype mostCharacters = 16 * 1024 * 1024; // of the records in memory
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    if (!query.exec(selectIndex()))
        return false;
    qsizetype characters = 0;
    while (query.next()) {
        const qint64 row = query.value(0).toLongLong();
        const QString joined = query.value(1).toString();
        characters += joined.size();
        if (characters <= mostCharacters)
            m_records.insert(row, joined);
        if (const QVariant fileName = query.value(2); !fileName.isNull())
            m_fileNames.add(fileName.toString(), row);
        if (const QVariant title = query.value(3); !title.isNull())
            m_titles.add(title.toString(), row);
    }
    if (!query.lastError().isValid())
        return true;
    m_records.clear();
    m_fileNames = {};
    m_titles = {};
    return false;
}

bool Database::getIndexedRecord(std::optional<qint64> row, SongsDbRecord &record) const
{
    if (!row.has_value())
        return false;
    if (fillFromJoined(m_records.value(*row), record))
        return true;
    const std::optional<CatalogueSong> song = songAt(*row);
    if (song.has_value())
        record = song->record;
    return song.has_value();
}

bool Database::clearUserLibraryDb()
{
    QSqlQuery query(m_userLibraryDb);
    return query.exec(QStringLiteral("DELETE from usersongs"));
}

bool Database::getRecordByFilename(const QString &fileName, SongsDbRecord &record)
{
    indexNames();
    if (m_isIndexed && isPlainText(fileName) && m_fileNames.canAnswer(fileName))
        return getIndexedRecord(m_fileNames.firstRow(fileName), record);
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    if (!execLike(query, selectRecord + QStringLiteral("WHERE filename like "), fileName) ||
        !query.next())
        return false;
    fillRecord(query, record);
    return true;
}

bool Database::getRecordByTitle(const QString &title, SongsDbRecord &record)
{
    indexNames();
    if (m_isIndexed && isPlainText(title) && m_titles.canAnswer(title) &&
        !FileNameIndex::hasWildcards(title) && m_titles.rowsOf(title) < 2)
        return getIndexedRecord(m_titles.firstRow(title), record);
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    if (!execLike(query, selectRecord + QStringLiteral("WHERE title like "), title) ||
        !query.next())
        return false;

    QSqlQuery countQuery(m_songsDb);
    if (!execLike(countQuery, QStringLiteral("SELECT count(*) from songs WHERE title like "),
                  title) ||
        !countQuery.next()) {
        debug() << "[getRecordByTitle] WARNING: unable to count reusults, aborting !!!";
        return false;
    }
    bool isNumber = false;
    if (countQuery.value(0).toInt(&isNumber) != 1 || !isNumber) {
        debug() << "[getRecordByTitle] WARNING: multiple reusults in query, aborting !!!";
        return false;
    }
    fillRecord(query, record);
    return true;
}

QString Database::catalogueUri() const
{
    return m_songsDb.isOpen() && m_catalogue.isUnchanged() ? m_catalogue.uri() : QString();
}

std::optional<CatalogueSong> Database::songAt(qint64 row) const
{
    QSqlQuery query(m_songsDb);
    query.setForwardOnly(true);
    query.prepare(selectRecord + QStringLiteral("WHERE rowid=?"));
    query.addBindValue(row);
    if (!query.exec() || !query.next())
        return std::nullopt;
    CatalogueSong song{row, query.value(9).toString(), {}};
    fillRecord(query, song.record);
    return song;
}

void Database::splitMarkers(const QString &text, QList<Marker> &markers)
{
    markers.clear();
    const QStringList parts = text.split(u';', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        bool isNumber = false;
        const int bar = parts.at(i).toInt(&isNumber);
        if (!isNumber || bar < 0)
            continue;
        Marker marker;
        marker.text = parts.at(i + 1);
        marker.bar = bar;
        markers.append(marker);
    }
}

} // namespace brisel
