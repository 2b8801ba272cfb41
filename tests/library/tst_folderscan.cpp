#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/folderscan.h"
#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/smallsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QTest>

#include <sys/stat.h>

using namespace brisel;

class TestFolderScan : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void countsFilesOfAllFolders();
    void addsSongsOfAllFolders();
    void logsEachStep();
    void stopsAtACancel();
    void addsToTheCountsThatItGets();
    void endsInALinkLoop();
    void survivesAMissingFolder();

private:
    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
    std::unique_ptr<ScriptedRun> m_run;
    SongCounts m_counts;
};

void TestFolderScan::initTestCase()
{
    makeFile(QStringLiteral("songsdb_debug"), {});
    makeFile(QStringLiteral("songs/b.mid"), smallMidi("B"));
    makeFile(QStringLiteral("songs/a/x.mid"), smallMidi("X", true));
    makeFile(QStringLiteral("songs/a/y.txt"), "no song");
    QVERIFY(QFile::link(QStringLiteral(".."), QStringLiteral("songs/a/up")));
    QCOMPARE(mkfifo("songs/a/pipe.mid", 0600), 0);
}

void TestFolderScan::init()
{
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<UserSongsRelTableModel>(nullptr, *m_database->userLibraryDb());
    m_run = std::make_unique<ScriptedRun>();
    m_counts = {};
}

void TestFolderScan::cleanup()
{
    m_model.reset();
    m_database.reset();
}

void TestFolderScan::countsFilesOfAllFolders()
{
    QCOMPARE(FolderScan::filesCount(QStringLiteral("songs")), 3);
    QCOMPARE(FolderScan::filesCount(QStringLiteral("songs/a/up/a/up")), 3);
}

void TestFolderScan::addsSongsOfAllFolders()
{
    m_counts = FolderScan(*m_model, QStringLiteral("songs"), m_counts).run(*m_run);
    QCOMPARE(m_counts.songs, 2);
    QCOMPARE(m_counts.publisherSongs, 1);
    QCOMPARE(m_counts.unknown, 1);
    QCOMPARE(m_run->steps, QList<int>({1, 2, 3}));
    QCOMPARE(m_model->fileName(0), QStringLiteral("songs/a/x.mid"));
    QCOMPARE(m_model->fileName(1), QStringLiteral("songs/b.mid"));
    QCOMPARE(m_model->shortName(1), QStringLiteral("b.mid"));
}

void TestFolderScan::logsEachStep()
{
    const LogCapture log;
    m_counts = FolderScan(*m_model, QStringLiteral("songs"), m_counts).run(*m_run);
    QStringList seen;
    for (const QString &message : log.messages()) {
        if (message.startsWith(QStringLiteral("[scanDir]")) ||
            message.startsWith(QStringLiteral("Song Index")) || message.startsWith(u'=') ||
            message == QStringLiteral(" "))
            seen.append(message);
    }
    const QString rule = QString(74, u'=') + u' ';
    const QStringList wanted{QStringLiteral("[scanDir] Analyzing directory: \"songs\" "),
                             QStringLiteral("[scanDir] Found directory: \"songs/a\" "),
                             QStringLiteral("[scanDir] Analyzing directory: \"songs/a\" "),
                             QStringLiteral("[scanDir] Found directory: \"songs/a/up\" "),
                             QStringLiteral("[scanDir] Analyzing directory: \"songs/a/up\" "),
                             QStringLiteral("[scanDir] Found file: \"songs/a/x.mid\" "),
                             QStringLiteral("Song Index:  1 "),
                             rule,
                             QStringLiteral(" "),
                             QStringLiteral("[scanDir] Found file: \"songs/a/y.txt\" "),
                             QStringLiteral("[scanDir] Unknown/corrupted file \"songs/a/y.txt\" "),
                             rule,
                             QStringLiteral(" "),
                             QStringLiteral("[scanDir] Found file: \"songs/b.mid\" "),
                             QStringLiteral("Song Index:  2 "),
                             rule,
                             QStringLiteral(" ")};
    QCOMPARE(seen, wanted);
}

void TestFolderScan::stopsAtACancel()
{
    m_run->onEvents = [this] { m_run->isStopped = true; };
    m_counts = FolderScan(*m_model, QStringLiteral("songs"), m_counts).run(*m_run);
    QCOMPARE(m_counts.examined(), 1);
}

void TestFolderScan::addsToTheCountsThatItGets()
{
    m_counts.songs = 5;
    m_counts.unknown = 2;
    m_counts = FolderScan(*m_model, QStringLiteral("songs"), m_counts).run(*m_run);
    QCOMPARE(m_counts.songs, 7);
    QCOMPARE(m_run->steps.last(), 10);
}

void TestFolderScan::endsInALinkLoop()
{
    m_counts = FolderScan(*m_model, QStringLiteral("songs/a/up/a/up/a"), m_counts).run(*m_run);
    QCOMPARE(m_counts.examined(), 3);
}

void TestFolderScan::survivesAMissingFolder()
{
    m_counts = FolderScan(*m_model, QStringLiteral("nowhere"), m_counts).run(*m_run);
    QCOMPARE(m_counts.examined(), 0);
    QCOMPARE(FolderScan::filesCount(QStringLiteral("nowhere")), 0);
}

BRISEL_TEST(QCoreApplication, TestFolderScan)
#include "tst_folderscan.moc"
