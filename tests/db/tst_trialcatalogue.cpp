#include "db/cataloguesource.h"
#include "db/database.h"
#include "tests/db/localcatalogue.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

using namespace brisel;

/// A catalogue in the working folder, which is for trials.
class TestTrialCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void prefersLocalFileAndMakesNoCopy();
    void refusesAFolder();
    void doesNotWaitForAFifo();
    void opensGarbageWithEmptyLists();
    void opensEmptyFileWithEmptyLists();
    void writesNothingBesideACatalogueWithALog();
    void refusesACatalogueWithComputedRows_data();
    void refusesACatalogueWithComputedRows();
    void refusesAFileThatCannotBeRead();
    void isNotFoundInAFolderThatCannotBeEntered();
    void readsTheWriteAheadLog();
    void refusesAWriteAheadLogThatCannotBeCopied();
    void findsSongsBehindANameThatIsNoPattern();

private:
    QString m_temporary;
};

namespace
{

QString refusal(const QString &reason)
{
    return QStringLiteral("[Database::init] FATAL: Unable to use the db: %1 ").arg(reason);
}

/// The rights of a user who owns nothing. Root may do everything.
class Nobody
{
public:
    Nobody() : m_isRoot(::geteuid() == 0)
    {
        constexpr uid_t someone = 12345;
        if (m_isRoot)
            m_isActive = ::seteuid(someone) == 0;
    }
    ~Nobody()
    {
        if (m_isRoot && ::seteuid(0) != 0)
            std::abort();
    }
    Nobody(const Nobody &) = delete;
    Nobody &operator=(const Nobody &) = delete;
    bool isActive() const { return m_isActive; }

private:
    const bool m_isRoot;
    bool m_isActive = true;
};

void copyFile(const QString &from, const QString &to)
{
    QVERIFY2(QFile::copy(from, to), qPrintable(from));
}

} // namespace

void TestTrialCatalogue::init()
{
    m_temporary = QDir::current().filePath(QStringLiteral("tmp"));
    QVERIFY(QDir().mkpath(m_temporary));
    qputenv("TMPDIR", QFile::encodeName(m_temporary));
}

void TestTrialCatalogue::cleanup()
{
    QDir(QStringLiteral("songsdb_debug")).removeRecursively();
    QFile::remove(QStringLiteral("songsdb_debug"));
    QFile::remove(QStringLiteral("songsdb_debug-wal"));
    QDir(m_temporary).removeRecursively();
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
}

void TestTrialCatalogue::prefersLocalFileAndMakesNoCopy()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("LOCAL"), QStringLiteral("LOCAL SONG"))});
    Database database;
    LogCapture log;
    QVERIFY(database.init());
    QCOMPARE(log.messages(),
             QStringList{QStringLiteral("Using local file: 'songsdb_debug' as database ")});
    QVERIFY(QDir(m_temporary).isEmpty());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(QStringLiteral("LOCAL"), record));
    QVERIFY(!database.getRecordByFilename(QStringLiteral("SY000000"), record));
}

void TestTrialCatalogue::refusesAFolder()
{
    QVERIFY(QDir().mkdir(QStringLiteral("songsdb_debug")));
    Database database;
    LogCapture log;
    QVERIFY(!database.init());
    QCOMPARE(log.messages(),
             QStringList({QStringLiteral("Using local file: 'songsdb_debug' as database "),
                          refusal(QStringLiteral("it is not a file"))}));
    QVERIFY(database.genresList()->isEmpty());
    QVERIFY(database.artistsList()->isEmpty());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(QStringLiteral("SY000000"), record));
    QVERIFY(!database.getRecordByTitle(QStringLiteral("SYNTHETIC SONG 0"), record));
}

void TestTrialCatalogue::doesNotWaitForAFifo()
{
    QCOMPARE(::mkfifo("songsdb_debug", 0600), 0);
    Database database;
    LogCapture log;
    QVERIFY(!database.init());
    QCOMPARE(log.messages().last(), refusal(QStringLiteral("it is not a file")));
}

void TestTrialCatalogue::opensGarbageWithEmptyLists()
{
    QFile file(QStringLiteral("songsdb_debug"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    Database database;
    QVERIFY(database.init());
    QVERIFY(database.genresList()->isEmpty());
    QVERIFY(database.artistsList()->isEmpty());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(QStringLiteral("A"), record));
    QVERIFY(!database.getRecordByTitle(QStringLiteral("A"), record));
}

void TestTrialCatalogue::opensEmptyFileWithEmptyLists()
{
    QFile file(QStringLiteral("songsdb_debug"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    Database database;
    QVERIFY(database.init());
    QVERIFY(database.genresList()->isEmpty());
    QCOMPARE(QFileInfo(QStringLiteral("songsdb_debug")).size(), 0);
}

void TestTrialCatalogue::writesNothingBesideACatalogueWithALog()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SONG"))},
                        {QStringLiteral("PRAGMA journal_mode=WAL")});
    const QStringList before = QDir().entryList(QDir::Files | QDir::Hidden);
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(QStringLiteral("A"), record));
    QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden), before);
}

void TestTrialCatalogue::refusesACatalogueWithComputedRows_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::newRow("endless view") << QStringList{
        QStringLiteral("DROP TABLE songs"),
        QStringLiteral("CREATE VIEW songs AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 "
                       "FROM n) SELECT i AS title,i AS artist,i AS genre,i AS author,i AS length,i "
                       "AS bpm,i AS key,i AS filename,i AS markers,i AS altartist FROM n")};
    QTest::newRow("huge computed column") << QStringList{
        QStringLiteral("ALTER TABLE songs RENAME COLUMN genre TO oldgenre"),
        QStringLiteral("ALTER TABLE songs ADD COLUMN genre AS (zeroblob(900000000))")};
}

void TestTrialCatalogue::refusesACatalogueWithComputedRows()
{
    QFETCH(QStringList, statements);
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SONG"))}, statements);
    Database database;
    LogCapture log;
    QVERIFY(!database.init());
    QCOMPARE(log.messages().last(), refusal(QStringLiteral("its songs are not stored in a table")));
}

void TestTrialCatalogue::refusesAFileThatCannotBeRead()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SONG"))});
    QVERIFY(QFile::setPermissions(QStringLiteral("songsdb_debug"), {}));
    const Nobody nobody;
    QVERIFY(nobody.isActive());
    Database database;
    LogCapture log;
    QVERIFY(!database.init());
    QCOMPARE(log.messages().last(), refusal(QStringLiteral("the file can't be read")));
}

/// The program starts with its own catalogue from wherever it is started.
void TestTrialCatalogue::isNotFoundInAFolderThatCannotBeEntered()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir().mkdir(QStringLiteral("closed")));
    QVERIFY(QDir::setCurrent(QStringLiteral("closed")));
    qputenv("TMPDIR", "/proc"); // no file can be created there
    QVERIFY(QFile::setPermissions(QStringLiteral("."), {}));
    QStringList messages;
    bool isStarted = false;
    {
        const Nobody nobody;
        QVERIFY(nobody.isActive());
        CatalogueSource source;
        LogCapture log;
        isStarted = source.prepare();
        messages = log.messages();
    }
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(QDir().rmdir(QStringLiteral("closed")));
    // The built-in catalogue was unpacked.
    QVERIFY(!isStarted);
    QCOMPARE(messages.last(),
             QStringLiteral("[Database::init] FATAL: Unable to create temporary files !!! "));
}

void TestTrialCatalogue::readsTheWriteAheadLog()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SONG"))});
    QVERIFY(QFile::rename(QStringLiteral("songsdb_debug"), QStringLiteral("written")));
    const QString name = QStringLiteral("con_writer");
    {
        // As another program leaves it that was killed: with the latest song in the log only.
        QSqlDatabase writer = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        writer.setDatabaseName(QStringLiteral("written"));
        QVERIFY(writer.open());
        QSqlQuery query(writer);
        QVERIFY(query.exec(QStringLiteral("PRAGMA journal_mode=WAL")));
        QVERIFY(query.exec(QStringLiteral(
            "INSERT INTO songs (title, filename, genre) VALUES ('LATEST', 'B', 'POLKA')")));
        copyFile(QStringLiteral("written"), QStringLiteral("songsdb_debug"));
        copyFile(QStringLiteral("written-wal"), QStringLiteral("songsdb_debug-wal"));
    }
    QSqlDatabase::removeDatabase(name);
    QFile::remove(QStringLiteral("written"));
    const QStringList before = QDir().entryList(QDir::Files | QDir::Hidden);
    const FileState file = fileState(QStringLiteral("songsdb_debug"));
    const FileState log = fileState(QStringLiteral("songsdb_debug-wal"));
    {
        Database database;
        QVERIFY(database.init());
        QVERIFY(database.genresList()->contains(QStringLiteral("POLKA")));
        SongsDbRecord record;
        QVERIFY(database.getRecordByFilename(QStringLiteral("A"), record));
        QVERIFY(database.getRecordByFilename(QStringLiteral("B"), record));
        QCOMPARE(record.title, QStringLiteral("LATEST"));
        QVERIFY(!database.catalogueUri().isEmpty());
    }
    QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden), before);
    QVERIFY(fileState(QStringLiteral("songsdb_debug")) == file);
    QVERIFY(fileState(QStringLiteral("songsdb_debug-wal")) == log);
    QVERIFY(QDir(m_temporary).isEmpty());
}

void TestTrialCatalogue::refusesAWriteAheadLogThatCannotBeCopied()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("SONG"))});
    QFile log(QStringLiteral("songsdb_debug-wal"));
    QVERIFY(log.open(QIODevice::WriteOnly) && log.write("log") == 3);
    log.close();
    qputenv("TMPDIR", "/proc"); // no file can be created there
    Database database;
    LogCapture capture;
    QVERIFY(!database.init());
    QCOMPARE(capture.messages().last(),
             refusal(QStringLiteral("its write-ahead log can't be copied")));
}

/// SQLite refuses names of more than 50,000 bytes as patterns, which ends the reading of all names.
void TestTrialCatalogue::findsSongsBehindANameThatIsNoPattern()
{
    writeLocalCatalogue({catalogueRow(QStringLiteral("A"), QStringLiteral("FIRST")),
                         catalogueRow(QString(60000, u'x'), QStringLiteral("LONG")),
                         catalogueRow(QStringLiteral("B"), QStringLiteral("LAST"))});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(QStringLiteral("B"), record));
    QCOMPARE(record.title, QStringLiteral("LAST"));
    QVERIFY(database.getRecordByTitle(QStringLiteral("FIRST"), record));
}

BRISEL_TEST(QCoreApplication, TestTrialCatalogue)
#include "tst_trialcatalogue.moc"
