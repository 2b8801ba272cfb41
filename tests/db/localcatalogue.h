#pragma once

#include "tools/cataloguefile.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

namespace brisel
{

/// The catalogue file "songsdb_debug" of the working folder, which replaces the built-in one.

inline CatalogueRow catalogueRow(const QString &fileName, const QString &title)
{
    CatalogueRow row;
    row.title = title;
    row.artist = QStringLiteral("ARTIST OF ") + title;
    row.genre = QStringLiteral("GENRE");
    row.author = QStringLiteral("AUTHOR");
    row.length = 100;
    row.bpm = 120;
    row.key = QStringLiteral("A -");
    row.fileName = fileName;
    row.altArtist = QStringLiteral("ALT OF ") + title;
    return row;
}

/// Runs \a statements on a separate connection to \a path.
inline void execOn(const QString &path, const QStringList &statements)
{
    const QString name = QStringLiteral("con_test");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(path);
        QVERIFY(database.open());
        QSqlQuery query(database);
        for (const QString &statement : statements)
            QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(name);
}

inline void writeLocalCatalogue(const QList<CatalogueRow> &rows, const QStringList &statements = {})
{
    QString error;
    QVERIFY2(writeCatalogue(QStringLiteral("songsdb_debug"), rows, error), qPrintable(error));
    if (!statements.isEmpty())
        execOn(QStringLiteral("songsdb_debug"), statements);
}

} // namespace brisel
