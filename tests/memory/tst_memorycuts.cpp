#include "memory/memoryclaim.h"
#include "memory/songremoval.h"
#include "memory/songrename.h"
#include "tests/index/handmadeset.h"
#include "tests/index/namesfile.h"
#include "tests/index/setreader.h"
#include "tests/shim/faultyrun.h"
#include "tests/testprogram.h"

#include <QTest>

#include <unistd.h>

using namespace brisel;

using namespace Sample;

namespace
{

const QString songsOfCuts = u"playlist/play0007.dat"_qs;
const QString pathsOfCuts = u"playlist/play0007.pts"_qs;

/// A memory with a playlist of the songs 2, 1, 4 and 2, and its path file.
class MemoryToCut : public HandMadeSet
{
public:
    MemoryToCut()
    {
        write(u"BASI/B.cdg"_qs, "graphics");
        addPlaylist(two() + one() + four() + two());
        write(pathsOfCuts, field("/BASI/B.MP3", 64) + field("/A.MID", 64) +
                               field("/BASI/D.MP3", 64) + field("/BASI/B.MP3", 64));
    }
};

/// The paths of the playlist's entries, without dead ones.
QList<QByteArray> playedPaths(const SampleMemory &memory)
{
    QList<QByteArray> paths = SetReader(memory).playlist(songsOfCuts);
    paths.removeAll("<none>");
    return paths;
}

/// A song that got a short name and is twice in a playlist.
void fillForRename(const HandMadeSet &memory)
{
    memory.write(u"BASI/A long name.MP3"_qs, mp3Song("Long", "Anna", "Pop"));
    memory.write(u"BASI/A long name.cdg"_qs, "graphics");
    if (!updateNames(memory))
        qFatal("no index");
    const QByteArray song = songRecord("00000008", "LONG", "0001");
    memory.addPlaylist(song + HandMadeSet::one() + song);
}

} // namespace

/// A change of a memory is cut, or its disk fails: the next run repairs everything.
class TestMemoryCuts : public QObject
{
    Q_OBJECT

private slots:
    /// Suppresses the many log lines of hundreds of runs.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void repairsARemoval_data() { faults(); }
    void repairsARemoval();
    void letsPlaylistsFollowARename_data() { faults(); }
    void letsPlaylistsFollowARename();
    void reportsANameInBetween();

private:
    static void faults()
    {
        QTest::addColumn<int>("fault");
        QTest::newRow("killed") << int(Shim::Kill);
        QTest::newRow("torn") << int(Shim::Torn);
        QTest::newRow("broken") << int(Shim::IoError);
        QTest::newRow("full") << int(Shim::NoSpace);
    }
};

void TestMemoryCuts::repairsARemoval()
{
    QFETCH(const int, fault);
    const auto remove = [](ScriptedIndex &, const QString &root) {
        MemoryClaim claim(root);
        ScriptedRun run;
        return SongRemoval(claim, {root + u"/BASI/B.MP3"_qs}).run(run) ==
               SongRemoval::Outcome::Done;
    };
    bool reached = true;
    int number = 0;
    while (reached) {
        const QByteArray where = "step " + QByteArray::number(++number);
        const MemoryToCut memory;
        const int result =
            runWithFault(memory, remove, number, static_cast<Shim::Action>(fault), reached);
        const bool isGone = !memory.has(u"BASI/B.MP3"_qs);
        QVERIFY2(result != 1 || isGone, where);
        // Before the next run: dead entries at most, and the others are there.
        const QByteArray songs = memory.read(songsOfCuts);
        QVERIFY2(songs == HandMadeSet::one() + HandMadeSet::four() ||
                     songs == HandMadeSet::two() + HandMadeSet::one() + HandMadeSet::four() +
                                  HandMadeSet::two(),
                 where);
        QVERIFY2(isGone || songs.size() == 4 * 64, where);
        ScriptedIndex index;
        QVERIFY2(index.updateIndex(memory.root()), where);
        const SetReader reader(memory);
        QVERIFY2(reader.problem().isEmpty(), where);
        QCOMPARE(reader.songCount(), isGone ? 3 : 4);
        if (isGone)
            QCOMPARE(playedPaths(memory), (QList<QByteArray>{"/A.MID", "/BASI/D.MP3"}));
        else
            QCOMPARE(playedPaths(memory).size(), 4);
        QVERIFY2(!memory.has(u".brisel2pc"_qs), where);
        QVERIFY2(memory.read(u"playlist/playlist.dat"_qs) == field("\x07", 32), where);
    }
    QVERIFY2(number > 60, qPrintable(QString::number(number)));
    std::printf("%s: %d steps\n", QTest::currentDataTag(), number - 1);
}

/// A song is renamed only after its new name is stored.
void TestMemoryCuts::letsPlaylistsFollowARename()
{
    QFETCH(const int, fault);
    const QString before = u"BASI/Alongn-1.MP3"_qs;
    const QString after = u"BASI/NEW.MP3"_qs;
    const auto rename = [&before](ScriptedIndex &, const QString &root) {
        MemoryClaim claim(root);
        ScriptedRun run;
        MemoryContents contents;
        return contents.read(root, run) == MemoryContents::Outcome::Done &&
               SongRename(root, contents, root + u'/' + before).run(run, claim, u"NEW"_qs) ==
                   SongRename::Outcome::Done;
    };
    bool reached = true;
    int number = 0;
    while (reached) {
        const QByteArray where = "step " + QByteArray::number(++number);
        const HandMadeSet memory;
        fillForRename(memory);
        const int result =
            runWithFault(memory, rename, number, static_cast<Shim::Action>(fault), reached);
        const bool isRenamed = memory.has(after);
        QVERIFY2(isRenamed != memory.has(before), where);
        QVERIFY2(memory.has(u"BASI/NEW.cdg"_qs) || memory.has(u"BASI/Alongn-1.cdg"_qs), where);
        QVERIFY2(result != 1 || isRenamed, where);
        ScriptedIndex index;
        QVERIFY2(index.updateIndex(memory.root()), where);
        QVERIFY2(SetReader(memory).problem().isEmpty(), where);
        const QString song = isRenamed ? after : before;
        const QList<QByteArray> wanted{'/' + song.toLatin1(), "/A.MID", '/' + song.toLatin1()};
        QCOMPARE(playedPaths(memory), wanted);
        QCOMPARE(place(memory, u"BASI/A long name.MP3"_qs), song);
    }
    QVERIFY2(number > 60, qPrintable(QString::number(number)));
    std::printf("%s: %d steps\n", QTest::currentDataTag(), number - 1);
}

/// A change of letter case needs a name in between. A second name of the same file, which comes
/// while the first one is changed, stands for a file system that ignores letter case.
void TestMemoryCuts::reportsANameInBetween()
{
    const auto rename = [](ScriptedIndex &, const QString &root) {
        MemoryClaim claim(root);
        ScriptedRun run;
        MemoryContents contents;
        if (contents.read(root, run) != MemoryContents::Outcome::Done)
            return false;
        const QString song = root + u"/C.KAR"_qs;
        SongRename work(root, contents, song);
        const bool isLinked = ::link(QFile::encodeName(song).constData(),
                                     QFile::encodeName(root + u"/c.KAR"_qs).constData()) == 0;
        const SongRename::Outcome outcome = work.run(run, claim, u"c"_qs);
        const QString between = root + u"/REN1.KAR"_qs;
        const bool isReported =
            run.report().text().contains(u"Non rinominata (la song ha ora questo nome)"_qs) &&
            run.report().text().contains(between);
        // A failed step is not what is tested here.
        return isLinked &&
               (outcome == SongRename::Outcome::Done || QFileInfo::exists(between) != isReported);
    };
    int stays = 0;
    bool reached = true;
    for (int number = 1; reached; ++number) {
        const MemoryToCut memory;
        QCOMPARE(runWithFault(memory, rename, number, Shim::IoError, reached), 0);
        stays += memory.has(u"REN1.KAR"_qs) ? 1 : 0;
    }
    QVERIFY(stays > 0);
}

BRISEL_TEST(QApplication, TestMemoryCuts)

#include "tst_memorycuts.moc"
