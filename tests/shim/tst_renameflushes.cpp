#include "index/givennames.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"
#include "tests/shim/shim.h"

#include <utility>

using namespace brisel;

using namespace Sample;

namespace
{

/// The steps before the first question: the run makes the work folder, on FAT flushes it, and
/// writes its mark.
int stepsBefore(Shim::Disk disk)
{
    return disk == Shim::Fat ? 5 : 4;
}

struct Outcome {
    bool result = false;
    QStringList steps; ///< names and paths below the root, up to the making of the index
};

/// Indexes \a memory and shortens its names on a disk of the kind \a disk. The step \a failing,
/// counted after stepsBefore(), fails; no step if it is 0.
Outcome indexOn(Shim::Disk disk, const SampleMemory &memory, int failing)
{
    const QTemporaryDir folder;
    const QString trace = folder.filePath(u"trace"_qs);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    Shim::actLike(disk);
    Shim::startTrace(QFile::encodeName(trace).constData());
    Shim::arm(QFile::encodeName(memory.root()).constData(),
              failing == 0 ? 0 : failing + stepsBefore(disk), Shim::IoError);
    Outcome outcome;
    bool isRoomMade = false;
    outcome.result = index.createIndex(memory.root());
    Shim::disarm();
    Shim::stopTrace();
    Shim::actLike(Shim::Plain);
    QFile file(trace);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no trace");
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines.mid(stepsBefore(disk))) {
        // Other files than the given names belong to the index.
        if (line.contains(u"/.brisel2pc"_qs) && !line.endsWith(u"/names"_qs) &&
            !outcome.steps.filter(u"rename "_qs).isEmpty())
            break;
        // On FAT room for the new names is made in a folder first.
        if (line.startsWith(u"unlink "_qs) && line.contains(u"/.brisel-room-"_qs))
            isRoomMade = true;
        else if (!std::exchange(isRoomMade, false))
            outcome.steps.append(QString(line).remove(memory.root()));
    }
    return outcome;
}

void fill(const SampleMemory &memory)
{
    memory.write(u"A long name.mp3"_qs, mp3Song("Title", "Artist", "Genre"));
    memory.write(u"A long name.cdg"_qs, "graphics");
    memory.write(u"Long folder/B long name.mid"_qs, anySong);
}

const QStringList renames{u"rename /Alongn-1.mp3"_qs, u"rename /Alongn-1.cdg"_qs,
                          u"rename /Longfo-1"_qs, u"rename /Longfo-1/Blongn-1.mid"_qs};

const QStringList remembered{u"open /.brisel2pc/names"_qs, u"write /.brisel2pc/names"_qs};
const QString namesFlushed = u"flush /.brisel2pc/names"_qs;
const QStringList firstRemembered = QStringList(u"mkdir /.brisel2pc"_qs) + remembered;

/// The expected steps of the renames, with the stored names.
const QStringList allRenames = firstRemembered + renames.mid(0, 2) + remembered +
                               renames.mid(2, 1) + remembered + renames.mid(3, 1);

} // namespace

/// The moments at which new names of songs and folders are flushed to the disk.
class TestRenameFlushes : public QObject
{
    Q_OBJECT

private slots:
    void flushesEachNameByItselfOnFat();
    void flushesAllNamesAtOnceElsewhere();
    void flushesEachFolderWhereNothingElseCan();
    void flushesNamesWithoutAnIndex();
    void copiesNothingThatCannotBeRenamed();
    void failsWhenANameMayBeLost_data();
    void failsWhenANameMayBeLost();
    void givesNamesThatCannotBeRemembered_data();
    void givesNamesThatCannotBeRemembered();
};

void TestRenameFlushes::flushesEachNameByItselfOnFat()
{
    const SampleMemory memory;
    fill(memory);
    const Outcome outcome = indexOn(Shim::Fat, memory, 0);
    QVERIFY(outcome.result);
    QCOMPARE(outcome.steps,
             firstRemembered +
                 QStringList({u"flush /.brisel2pc"_qs, namesFlushed, renames.at(0),
                              u"flush /Alongn-1.mp3"_qs, u"flush "_qs, renames.at(1),
                              u"flush /Alongn-1.cdg"_qs, u"flush "_qs}) +
                 remembered +
                 QStringList({namesFlushed, renames.at(2), u"flush /Longfo-1"_qs, u"flush "_qs}) +
                 remembered +
                 QStringList({namesFlushed, renames.at(3), u"flush /Longfo-1/Blongn-1.mid"_qs,
                              u"flush /Longfo-1"_qs}));
}

void TestRenameFlushes::flushesAllNamesAtOnceElsewhere()
{
    const SampleMemory memory;
    fill(memory);
    const Outcome outcome = indexOn(Shim::Plain, memory, 0);
    QVERIFY(outcome.result);
    QCOMPARE(outcome.steps, allRenames + QStringList{u"syncfs "_qs});
}

void TestRenameFlushes::flushesEachFolderWhereNothingElseCan()
{
    const SampleMemory memory;
    fill(memory);
    Outcome outcome = indexOn(Shim::WithoutSyncfs, memory, 0);
    QVERIFY(outcome.result);
    QCOMPARE(outcome.steps.mid(0, allRenames.size()), allRenames);
    QStringList flushes = outcome.steps.mid(allRenames.size());
    flushes.sort();
    QCOMPARE(flushes, QStringList({u"flush "_qs, namesFlushed, u"flush /Longfo-1"_qs}));
}

/// The path is too long for an index, so nothing else is written to the memory.
void TestRenameFlushes::flushesNamesWithoutAnIndex()
{
    const SampleMemory memory;
    memory.write(u"Long folder/abcdefgh/abcdefgh/abcdefgh/abcdefgh/A.MID"_qs, "xxxxx");
    const Outcome outcome = indexOn(Shim::Plain, memory, 0);
    QVERIFY(!outcome.result);
    QCOMPARE(outcome.steps.mid(0, 5),
             firstRemembered + QStringList({u"rename /Longfo-1"_qs, u"syncfs "_qs}));
}

void TestRenameFlushes::copiesNothingThatCannotBeRenamed()
{
    const SampleMemory memory;
    fill(memory);
    const Outcome outcome = indexOn(Shim::Plain, memory, 4);
    QVERIFY(outcome.result);
    QCOMPARE(outcome.steps, firstRemembered + allRenames.mid(5) + QStringList{u"syncfs "_qs});
    QVERIFY(memory.has(u"A long name.mp3"_qs));
    QVERIFY(memory.has(u"A long name.cdg"_qs));
    QCOMPARE(indexedPaths(memory), QStringList{u"/Longfo-1/Blongn-1.mid"_qs});
}

void TestRenameFlushes::failsWhenANameMayBeLost_data()
{
    QTest::addColumn<Shim::Disk>("disk");
    QTest::addColumn<int>("step");
    QTest::newRow("FAT, song") << Shim::Fat << 9;
    QTest::newRow("FAT, its folder") << Shim::Fat << 10;
    QTest::newRow("all at once") << Shim::Plain << 12;
    QTest::newRow("a folder") << Shim::WithoutSyncfs << 14;
}

void TestRenameFlushes::failsWhenANameMayBeLost()
{
    QFETCH(const Shim::Disk, disk);
    QFETCH(const int, step);
    const SampleMemory memory;
    fill(memory);
    QVERIFY(!indexOn(disk, memory, step).result);
    QVERIFY(!memory.has(u"fsinfos.id2"_qs));
    // The next run has nothing to rename.
    QVERIFY(indexOn(Shim::Plain, memory, 0).result);
    QCOMPARE(indexedPaths(memory),
             QStringList({u"/Alongn-1.mp3"_qs, u"/Longfo-1/Blongn-1.mid"_qs}));
}

void TestRenameFlushes::givesNamesThatCannotBeRemembered_data()
{
    QTest::addColumn<Shim::Disk>("disk");
    QTest::addColumn<int>("step");
    QTest::newRow("not opened") << Shim::Plain << 2;
    QTest::newRow("not written") << Shim::Plain << 3;
    QTest::newRow("FAT, not flushed") << Shim::Fat << 7;
    QTest::newRow("not flushed") << Shim::WithoutSyncfs << 12;
}

void TestRenameFlushes::givesNamesThatCannotBeRemembered()
{
    QFETCH(const Shim::Disk, disk);
    QFETCH(const int, step);
    const SampleMemory memory;
    fill(memory);
    QVERIFY(indexOn(disk, memory, step).result);
    QCOMPARE(indexedPaths(memory),
             QStringList({u"/Alongn-1.mp3"_qs, u"/Longfo-1/Blongn-1.mid"_qs}));
    // The names are written again at the end of the run.
    GivenNames names;
    names.setRoot(memory.root());
    QVERIFY(names.load());
    QCOMPARE(names.placeOf(memory.path(u"A long name.mp3"_qs)), memory.path(u"Alongn-1.mp3"_qs));
}

BRISEL_TEST(QApplication, TestRenameFlushes)
#include "tst_renameflushes.moc"
