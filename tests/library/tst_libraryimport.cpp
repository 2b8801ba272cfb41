#include "base/runguard.h"
#include "db/database.h"
#include "library/libraryimport.h"
#include "tests/db/countingmodel.h"
#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/smallsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTest>

#include <sys/stat.h>

using namespace brisel;

class TestLibraryImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void addsSongsInTheirOrder();
    void sortsTheNewRowsAsTheOldOnesWere();
    void readsTheTableOnce();
    void countsAndLogsWhatDoesNotOpen();
    void countsPublisherSongs();
    void logsEachStepInOrder();
    void showsTheCountAfterEachFile();
    void takesWholePathWithoutSlashAsShortName();
    void continuesAfterACancel();
    void endsWhenTheProgramIsAskedToEnd();
    void emptiesTheTableFirst();
    void keepsRowsThatCannotBeCleared();
    void refusesWhatIsNoPlainFile();
    void takesNamesAsTheyAre();

private:
    SongCounts import(const QStringList &files)
    {
        LibraryImport import(*m_database, *m_model, files);
        m_outcome = import.run(*m_run);
        return import.counts();
    }

    LibraryImport::Outcome m_outcome = LibraryImport::Outcome::Done;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
    std::unique_ptr<ScriptedRun> m_run;
};

void TestLibraryImport::init()
{
    makeFile(QStringLiteral("songsdb_debug"), {});
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<UserSongsRelTableModel>(nullptr, *m_database->userLibraryDb());
    m_run = std::make_unique<ScriptedRun>();
    makeFile(QStringLiteral("songs/one.mid"), smallMidi("One"));
    makeFile(QStringLiteral("songs/two.kar"), smallMidi("Two", true));
    makeFile(QStringLiteral("songs/bad.mid"), "no song");
}

void TestLibraryImport::cleanup()
{
    m_run.reset();
    m_model.reset();
    m_database.reset();
}

void TestLibraryImport::addsSongsInTheirOrder()
{
    const QString two = QDir::current().filePath(QStringLiteral("songs/two.kar"));
    const QString one = QDir::current().filePath(QStringLiteral("songs/one.mid"));
    const SongCounts counts = import({two, one});
    QCOMPARE(counts.songs, 2);
    QCOMPARE(m_model->goodRowCount(), 2);
    QCOMPARE(m_model->fileName(0), two);
    QCOMPARE(m_model->shortName(0), QStringLiteral("two.kar"));
    QCOMPARE(m_model->index(0, 2).data().toString(), QStringLiteral("Two"));
    QCOMPARE(m_model->index(0, 1).data().toString(), QStringLiteral("MIDI"));
    QCOMPARE(m_model->fileName(1), one);
    QCOMPARE(m_model->status(1), static_cast<int>(Database::Imported));
}

void TestLibraryImport::sortsTheNewRowsAsTheOldOnesWere()
{
    makeFile(QStringLiteral("songs/three.mid"), smallMidi("Three"));
    m_model->sort(2, Qt::DescendingOrder);
    QStringList whileReading;
    m_run->onEvents = [&] {
        whileReading.clear();
        for (int row = 0; row < m_model->goodRowCount(); ++row)
            whileReading.append(m_model->shortName(row));
    };
    import({QStringLiteral("songs/one.mid"), QStringLiteral("songs/two.kar"),
            QStringLiteral("songs/three.mid")});
    QCOMPARE(whileReading.join(u'|'), QStringLiteral("one.mid|two.kar|three.mid"));
    QCOMPARE(m_model->goodRowCount(), 3);
    QCOMPARE(m_model->shortName(0), QStringLiteral("two.kar"));
    QCOMPARE(m_model->shortName(1), QStringLiteral("three.mid"));
    QCOMPARE(m_model->shortName(2), QStringLiteral("one.mid"));
}

void TestLibraryImport::readsTheTableOnce()
{
    CountingModel model(nullptr, *m_database->userLibraryDb());
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    LibraryImport import(*m_database, model,
                         {QStringLiteral("songs/one.mid"), QStringLiteral("songs/two.kar")});
    QCOMPARE(import.run(*m_run), LibraryImport::Outcome::Done);
    QCOMPARE(model.selects, 1);
    QCOMPARE(model.statementCount(), size_t(1));
    QCOMPARE(resets.size(),
             2); // views are notified of the end: a search then includes the new rows
}

void TestLibraryImport::countsAndLogsWhatDoesNotOpen()
{
    const LogCapture log;
    const SongCounts counts =
        import({QStringLiteral("songs/bad.mid"), QStringLiteral("songs/missing.mid")});
    QCOMPARE(counts.songs, 0);
    QCOMPARE(counts.unknown, 2);
    QCOMPARE(counts.examined(), 2);
    QCOMPARE(m_model->goodRowCount(), 0);
    QVERIFY(log.contains(QStringLiteral("Unknown/corrupted file \"songs/bad.mid\" ")));
    QVERIFY(log.contains(QStringLiteral("Unknown/corrupted file \"songs/missing.mid\" ")));
}

void TestLibraryImport::countsPublisherSongs()
{
    const SongCounts counts =
        import({QStringLiteral("songs/one.mid"), QStringLiteral("songs/two.kar")});
    QCOMPARE(counts.songs, 2);
    QCOMPARE(counts.publisherSongs, 1);
}

void TestLibraryImport::logsEachStepInOrder()
{
    const LogCapture log;
    import({QStringLiteral("songs/bad.mid"), QStringLiteral("songs/one.mid")});
    const QString rule = QString(44, u'=') + u' ';
    QCOMPARE(log.messages().mid(0, 7),
             QStringList({rule, QStringLiteral("          IMPORT USER LIBRARY "), rule,
                          QStringLiteral("Found file: \"songs/bad.mid\" "),
                          QStringLiteral("Unknown/corrupted file \"songs/bad.mid\" "),
                          QStringLiteral("Found file: \"songs/one.mid\" "),
                          QStringLiteral("Song Index:  1 ")}));
    QVERIFY(log.contains(QStringLiteral("Filename   : \"songs/one.mid\" ")));
    QVERIFY(log.contains(QStringLiteral("Shortname  : \"one.mid\" ")));
}

void TestLibraryImport::showsTheCountAfterEachFile()
{
    QList<int> rowsAtEvents;
    m_run->onEvents = [&] { rowsAtEvents.append(m_model->goodRowCount()); };
    import({QStringLiteral("songs/one.mid"), QStringLiteral("songs/bad.mid"),
            QStringLiteral("songs/two.kar")});
    QCOMPARE(m_run->steps, QList<int>({1, 2, 3}));
    QCOMPARE(rowsAtEvents, QList<int>({1, 1, 2}));
}

void TestLibraryImport::takesWholePathWithoutSlashAsShortName()
{
    makeFile(QStringLiteral("here.mid"), smallMidi("Here"));
    import({QStringLiteral("here.mid")});
    QCOMPARE(m_model->shortName(0), QStringLiteral("here.mid"));
    QCOMPARE(m_model->fileName(0), QStringLiteral("here.mid"));
}

void TestLibraryImport::continuesAfterACancel()
{
    m_run->onEvents = [this] { m_run->isStopped = true; };
    const SongCounts counts =
        import({QStringLiteral("songs/one.mid"), QStringLiteral("songs/two.kar")});
    QCOMPARE(counts.songs, 2);
}

void TestLibraryImport::endsWhenTheProgramIsAskedToEnd()
{
    m_run->onEvents = [] { RunGuard::requestEnd(); };
    const SongCounts counts =
        import({QStringLiteral("songs/one.mid"), QStringLiteral("songs/two.kar")});
    QCOMPARE(counts.songs, 1);
    QCOMPARE(m_outcome, LibraryImport::Outcome::Interrupted);
    m_run.reset();
    QCoreApplication::removePostedEvents(QCoreApplication::instance(), QEvent::Quit);
}

void TestLibraryImport::emptiesTheTableFirst()
{
    import({QStringLiteral("songs/one.mid")});
    QCOMPARE(m_model->goodRowCount(), 1);
    import({});
    QCOMPARE(m_model->goodRowCount(), 0);
}

void TestLibraryImport::keepsRowsThatCannotBeCleared()
{
    import({QStringLiteral("songs/one.mid")});
    m_run->stages.clear();
    QSqlQuery(*m_database->userLibraryDb())
        .exec(QStringLiteral("create trigger keep before delete on usersongs "
                             "begin select raise(abort, 'kept'); end"));
    const LogCapture log;
    import({QStringLiteral("songs/two.kar")});
    QCOMPARE(m_outcome, LibraryImport::Outcome::NotCleared);
    QCOMPARE(m_run->stages, QStringList());
    QCOMPARE(log.messages().last(),
             QStringLiteral("[importUserLibrary] WARNING: impossible to CLEAR table. Aborting "
                            "import !!! "));
    QCOMPARE(m_model->goodRowCount(), 1);
}

void TestLibraryImport::refusesWhatIsNoPlainFile()
{
    QVERIFY(QDir().mkpath(QStringLiteral("songs/folder.mid")));
    const QString fifo = QStringLiteral("songs/fifo.mid");
    QFile::remove(fifo);
    QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    QFile::link(QStringLiteral("loop.mid"), QStringLiteral("songs/loop.mid"));
    makeFile(QStringLiteral("songs/empty.mid"), {});
    const SongCounts counts =
        import({QStringLiteral("songs/folder.mid"), fifo, QStringLiteral("songs/loop.mid"),
                QStringLiteral("songs/empty.mid")});
    QCOMPARE(counts.songs, 0);
    QCOMPARE(counts.unknown, 4);
}

void TestLibraryImport::takesNamesAsTheyAre()
{
    const QString name = QStringLiteral("songs/%1 \"x'; drop\n<b>perché</b>.mid");
    makeFile(name, smallMidi("Odd"));
    QCOMPARE(import({name}).songs, 1);
    QCOMPARE(m_model->fileName(0), name);
}

BRISEL_TEST(QCoreApplication, TestLibraryImport)
#include "tst_libraryimport.moc"
