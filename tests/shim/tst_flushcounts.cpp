#include "history/historyrecorder.h"
#include "library/filecopier.h"
#include "library/synchroniser.h"
#include "tests/index/changedmemory.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/shim/shim.h"
#include "tests/smallsongs.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

void watch(const QString &folder)
{
    Shim::arm(QFile::encodeName(folder).constData(), 0, Shim::Kill);
}

int flushesSince()
{
    Shim::disarm();
    return Shim::flushes();
}

constexpr int manySongs = 1000;
constexpr int flushTime = 30; ///< milliseconds on a slow stick

/// Writes the same song under each name.
const QByteArray anySong = smallMidi("Title");

} // namespace

/// How often a run flushes: on a slow stick each flush takes 30 ms.
class TestFlushCounts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { Shim::actLike(Shim::Plain); }
    void copiesInFewFlushes_data() { disks(); }
    void copiesInFewFlushes();
    void synchronisesInFewFlushes_data() { disks(); }
    void synchronisesInFewFlushes();
    void keepsAHistoryInFewFlushes();
    void indexesInFewFlushes_data();
    void indexesInFewFlushes();

private:
    static void disks()
    {
        QTest::addColumn<Shim::Disk>("disk");
        QTest::newRow("any disk") << Shim::Plain;
        QTest::newRow("FAT") << Shim::Fat;
    }
};

void TestFlushCounts::initTestCase()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

void TestFlushCounts::copiesInFewFlushes()
{
    QFETCH(const Shim::Disk, disk);
    const QTemporaryDir home;
    QStringList songs;
    for (int i = 0; i < manySongs; ++i) {
        songs.append(home.filePath(u"from/%1.mid"_s.arg(i)));
        makeFile(songs.last(), QByteArray(20000, 'x'));
    }
    const QString card = home.filePath(u"card"_s);
    QDir().mkpath(card + u"/songs"_s);
    ScriptedRun run;
    run.answers = {Run::Answer::YesToAll};
    FileCopier copier(run);
    copier.setMemory(card, 0);
    for (const char *round : {"new", "again, over the old ones"}) {
        Shim::actLike(disk);
        watch(card);
        QVERIFY2(copier.copyFiles(songs, card + u"/songs"_s), round);
        const int flushes = flushesSince();
        QCOMPARE(copier.copied(), manySongs);
        std::printf("%s, %s: %d flushes\n", QTest::currentDataTag(), round, flushes);
        QVERIFY2(flushes * flushTime <= 2000, round);
    }
    QCOMPARE(QDir(card + u"/songs"_s).entryList(QDir::Files | QDir::Hidden).size(), manySongs);
}

void TestFlushCounts::synchronisesInFewFlushes()
{
    QFETCH(const Shim::Disk, disk);
    Sample::Library library({{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
    constexpr int folders = 50;
    for (int i = 0; i < manySongs; ++i)
        library.add(u"card/%1/%2/one.mid"_s.arg(i % folders).arg(i), Sample::midi("One", true));
    ScriptedRun run;
    Synchroniser synchroniser(library.model(), library.database(), false);
    Shim::actLike(disk);
    watch(library.path(u"card"_s));
    QCOMPARE(synchroniser.run(run), Synchroniser::Outcome::Done);
    const int flushes = flushesSince();
    std::printf("%s: %d flushes\n", QTest::currentDataTag(), flushes);
    QVERIFY(flushes * flushTime <= 3000);
    QCOMPARE(run.report().counted(RunReport::Success::Updated), manySongs);
    QCOMPARE(library.statuses(), QString(manySongs, u'1'));
}

/// The history has its own flushes, a few for each lot.
void TestFlushCounts::keepsAHistoryInFewFlushes()
{
    Sample::Library library({{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
    for (int i = 0; i < manySongs; ++i)
        library.add(u"songs/%1/one.mid"_s.arg(i), Sample::midi("One", true));
    ScriptedRun run;
    History history(library.path(u"data/history.sqlite"_s));
    HistoryRecorder recorder(history, RunKind::Synchronisation);
    Synchroniser synchroniser(library.model(), library.database(), false);
    synchroniser.setRecorder(&recorder);
    watch(library.path(u"data"_s));
    QCOMPARE(synchroniser.run(run), Synchroniser::Outcome::Done);
    const int flushes = flushesSince();
    std::printf("%d flushes\n", flushes);
    QVERIFY(flushes > 0);
    QVERIFY(flushes * flushTime <= 1000);
    QCOMPARE(history.runs().value(0).songs, manySongs);
}

void TestFlushCounts::indexesInFewFlushes_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

void TestFlushCounts::indexesInFewFlushes()
{
    QFETCH(const bool, isRebuild);
    const SampleMemory memory;
    Sample::copyChangedMemory(memory);
    for (int i = 0; i < manySongs; ++i)
        memory.write(u"A long folder/%1 long name.mid"_s.arg(i, 4, 10, QChar(u'0')), anySong);
    watch(memory.root());
    ScriptedIndex index;
    index.setRenameQuestion(
        [](const QString &, const QString &) { return int(Run::Answer::YesToAll); });
    QVERIFY(isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root()));
    const int flushes = flushesSince();
    std::printf("%s: %d flushes\n", QTest::currentDataTag(), flushes);
    QVERIFY(flushes <= 12);
}

BRISEL_TEST(QCoreApplication, TestFlushCounts)
#include "tst_flushcounts.moc"
