#include "db/database.h"
#include "tests/db/localcatalogue.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QResource>
#include <QSqlRecord>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace brisel;

class TestDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensNothingBeforeInit();
    void unpacksBuiltInCatalogue();
    void keepsCopyPrivateAndRemovesIt();
    void failsWithoutTemporaryFolder();
    void failsWithoutBuiltInCatalogue();
    void failsWhenDiskIsFull();
    void createsLibraryTable();
    void clearsEmptyLibrary();
    void clearsLibraryRows();
    void failsToClearWithoutTable();
    void fillsListsTrimmedInTableOrder();
    void opensCatalogueReadOnly();
    void twoDatabasesLiveSideBySide();
    void removesItsConnections();
    void dumpsRecordWithMarkers();
    void dumpsRecordWithoutMarkers();

private:
    QString m_temporary;
    bool m_hasResource = false;
    void addBuiltIn();
};

void TestDatabase::init()
{
    m_temporary = QDir::current().filePath(QStringLiteral("tmp"));
    QVERIFY(QDir().mkpath(m_temporary));
    qputenv("TMPDIR", QFile::encodeName(m_temporary));
}

void TestDatabase::cleanup()
{
    if (m_hasResource)
        QVERIFY(QResource::unregisterResource(QStringLiteral(TEST_CATALOGUE)));
    m_hasResource = false;
    QDir(QStringLiteral("songsdb_debug")).removeRecursively();
    QFile::remove(QStringLiteral("songsdb_debug"));
    QDir(m_temporary).removeRecursively();
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
}

void TestDatabase::addBuiltIn()
{
    m_hasResource = QResource::registerResource(QStringLiteral(TEST_CATALOGUE));
    QVERIFY(m_hasResource);
}

void TestDatabase::opensNothingBeforeInit()
{
    Database database;
    QVERIFY(!database.userLibraryDb()->isOpen());
    QVERIFY(!database.clearUserLibraryDb());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(QStringLiteral("SY000000"), record));
    QVERIFY(!database.getRecordByTitle(QStringLiteral("SYNTHETIC SONG 0"), record));
    QVERIFY(database.genresList()->isEmpty());
    QVERIFY(database.artistsList()->isEmpty());
}

void TestDatabase::unpacksBuiltInCatalogue()
{
    addBuiltIn();
    Database database;
    LogCapture log;
    QVERIFY(database.init());
    const QStringList files = QDir(m_temporary).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QCOMPARE(log.messages(),
             QStringList{QStringLiteral("[Database::init] Created temporary db file:  \"%1/%2\" ")
                             .arg(m_temporary, files.first())});
    QCOMPARE(database.genresList()->size(), 20);
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(QStringLiteral("SY387101"), record));
    QCOMPARE(record.title, QStringLiteral("SYNTHETIC SONG 1"));
    QCOMPARE(record.artist, QStringLiteral("NAME101 SURNAME101"));
    QCOMPARE(record.altArtist, QStringLiteral("SURNAME101 NAME101"));
    QCOMPARE(record.genre, QStringLiteral("SYNTHETIC GENRE 1"));
    QCOMPARE(record.author, QStringLiteral("AUTHOR101 - AUTHOR1"));
    QCOMPARE(record.length, 61);
    QCOMPARE(record.bpm, 61);
    QCOMPARE(record.key, QStringLiteral("A -"));
    QVERIFY(record.markers.isEmpty());
    QVERIFY(database.getRecordByFilename(QStringLiteral("SY774202"), record));
    QCOMPARE(record.markers.size(), 4);
    QCOMPARE(record.markers.at(1).bar, 7);
    QCOMPARE(record.markers.at(1).text, QStringLiteral("Verse 1"));
}

void TestDatabase::keepsCopyPrivateAndRemovesIt()
{
    addBuiltIn();
    {
        Database database;
        QVERIFY(database.init());
        const QFileInfoList files = QDir(m_temporary).entryInfoList(QDir::Files);
        QCOMPARE(files.size(), 1);
        struct stat state = {};
        QCOMPARE(::stat(QFile::encodeName(files.first().filePath()).constData(), &state), 0);
        QCOMPARE(state.st_mode & 0777, 0600U);
        QFile copy(files.first().filePath());
        QFile original(QStringLiteral(TEST_CATALOGUE_FILE));
        QVERIFY(copy.open(QIODevice::ReadOnly) && original.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), original.readAll());
    }
    QVERIFY(QDir(m_temporary).isEmpty());
}

void TestDatabase::failsWithoutTemporaryFolder()
{
    addBuiltIn();
    qputenv("TMPDIR", "/proc"); // no file can be created there
    Database database;
    LogCapture log;
    QVERIFY(!database.init());
    QCOMPARE(log.messages(), QStringList{QStringLiteral(
                                 "[Database::init] FATAL: Unable to create temporary files !!! ")});
    QVERIFY(database.userLibraryDb()->isOpen());
    QVERIFY(database.genresList()->isEmpty());
}

void TestDatabase::failsWithoutBuiltInCatalogue()
{
    Database database;
    LogCapture log;
    QVERIFY(!database.init());
    QCOMPARE(log.messages().size(), 2);
    QVERIFY(log.messages().first().startsWith(
        QStringLiteral("[Database::init] Created temporary db file:  \"")));
    QCOMPARE(log.messages().last(),
             QStringLiteral("[Database::init] FATAL: Unable to open db resource file !!! "));
}

void TestDatabase::failsWhenDiskIsFull()
{
    addBuiltIn();
    // A limit on file sizes ends a write like a full disk: after some of the bytes.
    const auto oldAction = std::signal(SIGXFSZ, SIG_IGN);
    rlimit oldLimit = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &oldLimit), 0);
    rlimit limit = oldLimit;
    limit.rlim_cur = 4096;
    Database database;
    LogCapture log;
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const bool done = database.init();
    ::setrlimit(RLIMIT_FSIZE, &oldLimit);
    std::signal(SIGXFSZ, oldAction);
    QVERIFY(!done);
    QCOMPARE(log.messages().last(),
             QStringLiteral("[Database::init] FATAL: Unable to create temporary files !!! "));
}

void TestDatabase::createsLibraryTable()
{
    addBuiltIn();
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.userLibraryDb()->databaseName(), QStringLiteral(":memory:"));
    QCOMPARE(database.userLibraryDb()->connectionName(), QStringLiteral("con_mem"));
    QSqlQuery query(*database.userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("select sql from sqlite_master where name='usersongs'")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(),
             QStringLiteral("CREATE TABLE usersongs (id integer primary key, type varchar, title "
                            "varchar, artist varchar, genre varchar, author varchar, length "
                            "varchar, userbpm int, key varchar, filename varchar, shortname "
                            "varchar, status int)"));
}

void TestDatabase::clearsEmptyLibrary()
{
    addBuiltIn();
    Database database;
    QVERIFY(database.init());
    QVERIFY(database.clearUserLibraryDb());
}

void TestDatabase::clearsLibraryRows()
{
    addBuiltIn();
    Database database;
    QVERIFY(database.init());
    QSqlQuery query(*database.userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("insert into usersongs (title) values ('a'), ('b')")));
    QVERIFY(database.clearUserLibraryDb());
    QVERIFY(query.exec(QStringLiteral("select count(*) from usersongs")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toInt(), 0);
}

void TestDatabase::failsToClearWithoutTable()
{
    addBuiltIn();
    Database database;
    QVERIFY(database.init());
    QSqlQuery query(*database.userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("drop table usersongs")));
    QVERIFY(!database.clearUserLibraryDb());
}

void TestDatabase::fillsListsTrimmedInTableOrder()
{
    QList<CatalogueRow> rows;
    const QStringList genres{QStringLiteral("ROCK"), QStringLiteral(" ROCK\u00a0"),
                             QStringLiteral("  "),   QStringLiteral("BLUES"),
                             QStringLiteral("ROCK"), QString()};
    for (const QString &genre : genres) {
        rows.append(catalogueRow(QStringLiteral("F%1").arg(rows.size()),
                                 QStringLiteral("T%1").arg(rows.size() / 2)));
        rows.last().genre = genre;
    }
    writeLocalCatalogue(rows, {QStringLiteral("update songs set genre=NULL where genre=''")});
    Database database;
    QVERIFY(database.init());
    QCOMPARE(*database.genresList(), QStringList({QStringLiteral("ROCK"), QStringLiteral("ROCK"),
                                                  QStringLiteral("BLUES")}));
    QCOMPARE(*database.artistsList(),
             QStringList({QStringLiteral("ALT OF T0"), QStringLiteral("ALT OF T1"),
                          QStringLiteral("ALT OF T2")}));
}

void TestDatabase::opensCatalogueReadOnly()
{
    addBuiltIn();
    Database database;
    QVERIFY(database.init());
    QSqlQuery query(QSqlDatabase::database(QStringLiteral("con_songsdb")));
    QVERIFY(query.exec(QStringLiteral("select count(*) from songs")));
    QVERIFY(!query.exec(QStringLiteral("delete from songs")));
    QVERIFY(!query.exec(QStringLiteral("create table more (a int)")));
}

void TestDatabase::twoDatabasesLiveSideBySide()
{
    addBuiltIn();
    Database first;
    QVERIFY(first.init());
    QSqlQuery query(*first.userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("insert into usersongs (title) values ('a')")));
    {
        Database second;
        QVERIFY(second.init());
        QCOMPARE(QSqlDatabase::connectionNames().size(), 4);
        QVERIFY(second.clearUserLibraryDb());
        SongsDbRecord record;
        QVERIFY(second.getRecordByFilename(QStringLiteral("SY000000"), record));
    }
    QVERIFY(query.exec(QStringLiteral("select count(*) from usersongs")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toInt(), 1);
    SongsDbRecord record;
    QVERIFY(first.getRecordByFilename(QStringLiteral("SY000000"), record));
}

void TestDatabase::removesItsConnections()
{
    addBuiltIn();
    for (int i = 0; i < 3; ++i) {
        Database database;
        QVERIFY(database.init());
        QStringList names = QSqlDatabase::connectionNames();
        names.sort();
        QCOMPARE(names, QStringList({QStringLiteral("con_mem"), QStringLiteral("con_songsdb")}));
    }
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
}

void TestDatabase::dumpsRecordWithMarkers()
{
    SongsDbRecord record;
    record.title = QStringLiteral("TITLE");
    record.artist = QStringLiteral("SOME \"ARTIST\"");
    record.altArtist = QStringLiteral("ARTIST SOME");
    record.genre = QStringLiteral("POP");
    record.author = QStringLiteral("A - B");
    record.length = 215;
    record.bpm = -1;
    record.key = QStringLiteral("Bb");
    Database::splitMarkers(QStringLiteral("1;Intro;9;Verse 1;"), record.markers);
    LogCapture log;
    record.dbgDump();
    const QStringList expected{
        QStringLiteral("  Title     : \"TITLE\" "),
        QStringLiteral("  Genre     : \"POP\" "),
        QStringLiteral("  Artist    : \"SOME \"ARTIST\"\" "),
        QStringLiteral("  AltArtist : \"ARTIST SOME\" "),
        QStringLiteral("  Author    : \"A - B\" "),
        QStringLiteral("  Bpm       : -1 "),
        QStringLiteral("  Key       : \"Bb\" "),
        QStringLiteral("  Length    : 215 "),
        QStringLiteral("  Markers: "),
        QStringLiteral("    bar: 1   text: \"Intro\" "),
        QStringLiteral("    bar: 9   text: \"Verse 1\" "),
        QStringLiteral(" "),
    };
    QCOMPARE(log.messages(), expected);
}

void TestDatabase::dumpsRecordWithoutMarkers()
{
    LogCapture log;
    SongsDbRecord().dbgDump();
    QCOMPARE(log.messages().size(), 10);
    QCOMPARE(log.messages().at(8), QStringLiteral("  NO Markers "));
    QCOMPARE(log.messages().at(9), QStringLiteral(" "));
}

BRISEL_TEST(QCoreApplication, TestDatabase)
#include "tst_database.moc"
