#include "tools/cataloguefile.h"

#include "base/filewriting.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace brisel
{

namespace
{

const QString connectionName = QStringLiteral("con_writecatalogue");

bool execAll(QSqlQuery &query, const QStringList &statements)
{
    for (const QString &statement : statements) {
        if (!query.exec(statement))
            return false;
    }
    return true;
}

/// SQLite stores a null text as NULL, which is allowed only for markers.
QVariant boundText(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

bool insertRows(QSqlQuery &query, const QList<CatalogueRow> &rows)
{
    if (!query.prepare(QStringLiteral("INSERT INTO Songs VALUES (?,?,?,?,?,?,?,?,?,?)")))
        return false;
    for (const CatalogueRow &row : rows) {
        for (const QString &text : {row.title, row.artist, row.genre, row.author})
            query.addBindValue(boundText(text));
        query.addBindValue(row.length);
        query.addBindValue(row.bpm);
        query.addBindValue(boundText(row.key));
        query.addBindValue(boundText(row.fileName));
        query.addBindValue(row.markers.isEmpty() ? QVariant(QMetaType::fromType<QString>())
                                                 : QVariant(row.markers));
        query.addBindValue(boundText(row.altArtist));
        if (!query.exec())
            return false;
    }
    return true;
}

/// No journal and no flushing: if the tool is stopped, the incomplete file is deleted.
bool fill(QSqlQuery &query, const QList<CatalogueRow> &rows)
{
    return execAll(query,
                   {QStringLiteral("PRAGMA page_size=4096"),
                    QStringLiteral("PRAGMA journal_mode=off"),
                    QStringLiteral("PRAGMA synchronous=off"),
                    QStringLiteral("PRAGMA encoding='UTF-8'"), QStringLiteral("BEGIN"),
                    QStringLiteral(
                        "CREATE TABLE Songs(title varchar, artist varchar, genre varchar, author "
                        "varchar, length integer, bpm integer, key varchar, filename varchar "
                        "primary key, markers varchar, altartist varchar)")}) &&
           insertRows(query, rows) && query.exec(QStringLiteral("COMMIT"));
}

bool writeDatabase(const QString &path, const QList<CatalogueRow> &rows, QString &error)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    database.setDatabaseName(path);
    if (!database.open()) {
        error = database.lastError().text();
        return false;
    }
    QSqlQuery query(database);
    const bool done = fill(query, rows);
    if (!done)
        error = query.lastError().text();
    query.clear();
    database.close();
    return done;
}

} // namespace

bool writeCatalogue(const QString &path, const QList<CatalogueRow> &rows, QString &error)
{
    const QString unfinished = path + QStringLiteral(".new");
    QFile::remove(unfinished);
    QFile::remove(path);
    bool done = writeDatabase(unfinished, rows, error);
    QSqlDatabase::removeDatabase(connectionName);
    if (done && !moveIntoPlace(unfinished, path)) {
        error = QStringLiteral("can't be written");
        done = false;
    }
    if (!done)
        QFile::remove(unfinished);
    return done;
}

} // namespace brisel
