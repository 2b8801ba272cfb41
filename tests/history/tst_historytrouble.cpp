#include "base/filefailure.h"
#include "history/historyrecorder.h"
#include "tests/history/keptsongs.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace brisel;

using namespace Qt::StringLiterals;

/// Histories that can't be used: nothing fails but the history, and the reason is reported.
class TestHistoryTrouble : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_folder.reset(); }
    void reportsEntriesThatAreNoFiles();
    void reportsADamagedFile();
    void reportsDamagedPages();
    void reportsAnotherDatabase();
    void reportsANewerVersion();
    void reportsAnotherProgramsLock();
    void makesTheTablesAfterALock();
    void reportsAFullDisk();
    void reportsTooLittleSpaceBeforehand();
    void reportsAReadOnlyDisk();
    void takesOverAnEmptyFile();
    void clearsADamagedFile();
    void opensAFileThatReplacedTheOldOne();
    void writesWithTwoProgramsAtOnce();

private:
    std::optional<Reason> whyNotAdded();
    void makeHistory();
    void execute(const QString &statement);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestHistoryTrouble::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"history.sqlite"_s);
}

/// Why a run with one song could not be kept.
std::optional<Reason> TestHistoryTrouble::whyNotAdded()
{
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::Edit);
    recorder.keep(keptSong(u"/a.mid"_s, QByteArray(100, 'a'), "new"));
    recorder.flush();
    RunReport report;
    recorder.finish(report);
    const QString notice = u"Non tutte le modifiche sono nella cronologia: "_s;
    const bool hasNotice = report.text().contains(notice);
    return hasNotice == recorder.trouble().has_value() ? recorder.trouble() : FileReason::changed;
}

void TestHistoryTrouble::makeHistory()
{
    QVERIFY(!whyNotAdded().has_value());
}

void TestHistoryTrouble::execute(const QString &statement)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other program"_s);
        database.setDatabaseName(m_path);
        QVERIFY(database.open());
        QVERIFY(QSqlQuery(database).exec(statement));
    }
    QSqlDatabase::removeDatabase(u"other program"_s);
}

void TestHistoryTrouble::reportsEntriesThatAreNoFiles()
{
    QVERIFY(QDir().mkdir(m_path));
    QVERIFY(History(m_path).whyUnusable() == FileReason::notAFile);
    QVERIFY(whyNotAdded() == FileReason::notAFile);
    QVERIFY(QDir().rmdir(m_path));
    QVERIFY(::mkfifo(qPrintable(m_path), 0600) == 0);
    QVERIFY(History(m_path).whyUnusable() == FileReason::notAFile);
    QVERIFY(whyNotAdded() == FileReason::notAFile);
    m_path = m_folder->filePath(u"file/history.sqlite"_s);
    makeFile(m_folder->filePath(u"file"_s), "");
    QVERIFY(History(m_path).whyUnusable().has_value());
    QVERIFY(whyNotAdded().has_value());
}

void TestHistoryTrouble::reportsADamagedFile()
{
    makeFile(m_path, QByteArray(5000, 'x'));
    History history(m_path);
    QVERIFY(history.whyUnusable() == HistoryReason::damaged);
    QVERIFY(history.runs().isEmpty());
    QVERIFY(history.trouble() == HistoryReason::damaged);
    QVERIFY(whyNotAdded() == HistoryReason::damaged);
    QCOMPARE(fileContent(m_path), QByteArray(5000, 'x'));
}

void TestHistoryTrouble::reportsDamagedPages()
{
    makeHistory();
    QByteArray content = fileContent(m_path);
    content.replace(8192, content.size() - 8192, QByteArray(content.size() - 8192, '\xEE'));
    makeFile(m_path, content);
    QVERIFY(whyNotAdded() == HistoryReason::damaged);
    History history(m_path);
    QVERIFY(history.songs(1).isEmpty());
    QVERIFY(history.trouble() == HistoryReason::damaged);
}

void TestHistoryTrouble::reportsAnotherDatabase()
{
    execute(u"CREATE TABLE mine(text)"_s);
    QVERIFY(History(m_path).whyUnusable() == HistoryReason::damaged);
    QVERIFY(whyNotAdded() == HistoryReason::damaged);
}

void TestHistoryTrouble::reportsANewerVersion()
{
    makeHistory();
    execute(u"PRAGMA user_version = 2"_s);
    QVERIFY(History(m_path).whyUnusable() == HistoryReason::newer);
    QVERIFY(whyNotAdded() == HistoryReason::newer);
    QVERIFY(History(m_path).runs().isEmpty());
}

void TestHistoryTrouble::reportsAnotherProgramsLock()
{
    makeHistory();
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other program"_s);
        database.setDatabaseName(m_path);
        QVERIFY(database.open());
        QVERIFY(QSqlQuery(database).exec(u"BEGIN IMMEDIATE"_s));
        QVERIFY(History(m_path).whyUnusable() == HistoryReason::locked);
        QVERIFY(whyNotAdded() == HistoryReason::locked);
        QVERIFY(!History(m_path).clear());
        QCOMPARE(History(m_path).runs().size(), 1); // what is written can be read
    }
    QSqlDatabase::removeDatabase(u"other program"_s);
    QVERIFY(!whyNotAdded().has_value());
}

void TestHistoryTrouble::makesTheTablesAfterALock()
{
    makeFile(m_path, "");
    History history(m_path);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other program"_s);
        database.setDatabaseName(m_path);
        QVERIFY(database.open());
        QVERIFY(QSqlQuery(database).exec(u"BEGIN EXCLUSIVE"_s));
        QVERIFY(history.whyUnusable() == HistoryReason::locked);
    }
    QSqlDatabase::removeDatabase(u"other program"_s);
    QVERIFY(!history.whyUnusable().has_value());
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(history.add(run, RunKind::Edit, {keptSong(u"/a.mid"_s, "old", "new")}, ids));
}

void TestHistoryTrouble::reportsTooLittleSpaceBeforehand()
{
    const SmallDisk disk(m_folder->path(), 64 << 20);
    if (!disk.isMounted())
        QSKIP("only root may mount a disk");
    History history(m_path);
    QVERIFY(!history.whyUnusable(1 << 20).has_value());
    QVERIFY(history.whyUnusable(4 << 20) == HistoryReason::tooSmall); // 5 % of the disk
    QVERIFY(history.whyUnusable(64 << 20) == FileReason::noSpace);
}

void TestHistoryTrouble::reportsAFullDisk()
{
    const SmallDisk disk(m_folder->path(), 1 << 20);
    if (!disk.isMounted())
        QSKIP("only root may mount a disk");
    makeHistory();
    QFile filler(m_folder->filePath(u"filler"_s));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'x')) == 4096) {
    }
    QVERIFY(History(m_path).whyUnusable() == FileReason::noSpace);
    const std::optional<Reason> reason = whyNotAdded();
    QVERIFY2(reason == FileReason::noSpace, qPrintable(reason ? reason->text() : QString()));
    QVERIFY(filler.remove());
    QVERIFY(!whyNotAdded().has_value());
    QCOMPARE(History(m_path).runs().size(), 2);
}

void TestHistoryTrouble::reportsAReadOnlyDisk()
{
    const SmallDisk disk(m_folder->path(), 2 << 20);
    if (!disk.isMounted())
        QSKIP("only root may mount a disk");
    QVERIFY(disk.setReadOnly(true));
    QVERIFY(History(m_path).whyUnusable() == FileReason::notAllowed);
    QVERIFY(whyNotAdded() == FileReason::notAllowed);
    QVERIFY(disk.setReadOnly(false));
    makeHistory();
    QVERIFY(disk.setReadOnly(true));
    QVERIFY(History(m_path).whyUnusable() == FileReason::notAllowed);
    QVERIFY(whyNotAdded() == FileReason::notAllowed);
}

void TestHistoryTrouble::takesOverAnEmptyFile()
{
    makeFile(m_path, "");
    QVERIFY(!History(m_path).whyUnusable().has_value());
    QVERIFY(!whyNotAdded().has_value());
}

void TestHistoryTrouble::clearsADamagedFile()
{
    makeFile(m_path, QByteArray(5000, 'x'));
    History history(m_path);
    QVERIFY(history.clear());
    QVERIFY(!QFile::exists(m_path));
    QVERIFY(!whyNotAdded().has_value());
}

void TestHistoryTrouble::opensAFileThatReplacedTheOldOne()
{
    History history(m_path);
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(history.add(run, RunKind::Edit, {keptSong(u"/a"_s, "1", "2")}, ids));
    for (const QString &suffix : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(m_path + suffix);
    QVERIFY(history.runs().isEmpty());
    QVERIFY(history.add(run, RunKind::Edit, {keptSong(u"/a"_s, "1", "2")}, ids));
    QCOMPARE(History(m_path).runs().size(), 1);
}

void TestHistoryTrouble::writesWithTwoProgramsAtOnce()
{
    History first(m_path);
    History second(m_path);
    HistoryRecorder one(first, RunKind::Edit);
    HistoryRecorder two(second, RunKind::Synchronisation);
    for (int i = 0; i < 20; ++i) {
        one.keep(keptSong(u"/a/%1"_s.arg(i), "1", "2"));
        two.keep(keptSong(u"/b/%1"_s.arg(i), "1", "2"));
        one.flush();
        two.flush();
    }
    RunReport report;
    one.finish(report);
    two.finish(report);
    QVERIFY2(report.isEmpty(), qPrintable(report.text()));
    QVERIFY(one.run() != two.run());
    QCOMPARE(first.songs(two.run()).size(), 20);
    QCOMPARE(second.songs(one.run()).size(), 20);
}

BRISEL_TEST(QCoreApplication, TestHistoryTrouble)
#include "tst_historytrouble.moc"
