#pragma once

#include "songfile/songinfo.h"
#include "tests/db/countingmodel.h"
#include "tests/testprogram.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QColor>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QSet>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTableView>
#include <QTranslator>
#include <QtTest>

#include <memory>

namespace brisel
{

inline SongInfo song(int number)
{
    SongInfo info;
    info.format = QStringLiteral("MIDI");
    info.title = QStringLiteral("TITLE %1").arg((number * 7) % 10);
    info.artist = QStringLiteral("ARTIST");
    info.genre = QStringLiteral("GENRE");
    info.author = QStringLiteral("AUTHOR");
    info.length = number;
    info.userBpm = 120;
    info.key = QStringLiteral("C");
    info.fileName = QStringLiteral("/songs/SONG%1.MID").arg(number);
    info.shortName = QStringLiteral("SONG%1.MID").arg(number);
    return info;
}

inline QColor colour(int red, int green, int blue)
{
    return {red, green, blue};
}

/// The library table, with a new database for each case.
class SongsModelTest : public QObject
{
protected:
    void setUp();
    void tearDown();

    QVariant stored(const QString &column, int id = 1) const;
    QStringList shownNames() const;
    void addSongs(int count);
    int column(const char *name) const { return m_model->fieldIndex(QString::fromLatin1(name)); }
    QVariant cell(int row, const char *name, int role = Qt::DisplayRole) const
    {
        return m_model->data(m_model->index(row, column(name)), role);
    }

    std::unique_ptr<Database> m_database;
    std::unique_ptr<CountingModel> m_model;
};

inline void SongsModelTest::setUp()
{
    QFile file(QStringLiteral("songsdb_debug"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<CountingModel>(nullptr, *m_database->userLibraryDb());
}

inline void SongsModelTest::tearDown()
{
    m_model.reset();
    m_database.reset();
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
}

inline QVariant SongsModelTest::stored(const QString &column, int id) const
{
    QSqlQuery query(*m_database->userLibraryDb());
    const QString statement = QStringLiteral("select %1 from usersongs where id=%2");
    return query.exec(statement.arg(column).arg(id)) && query.next() ? query.value(0) : QVariant();
}

inline QStringList SongsModelTest::shownNames() const
{
    QStringList names;
    for (int row = 0; row < m_model->goodRowCount(); ++row)
        names.append(m_model->shortName(row));
    return names;
}

inline void SongsModelTest::addSongs(int count)
{
    for (int i = 0; i < count; ++i)
        QVERIFY(m_model->addSong(song(i)));
}

} // namespace brisel
