#include "base/freespace.h"
#include "tests/index/changedmemory.h"
#include "tests/scriptedindex.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <cstdio>

using namespace brisel;

using namespace Sample;

/// Runs on a real file system that is full: they leave the whole old set or the whole new one, and
/// with enough room the next run has nothing to repair.
class TestIndexFullDisk : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void survivesEverySize_data();
    void survivesEverySize();
    void putsTheOldSetBackWhereThereIsNoRoomForTwo();
};

namespace
{

constexpr qint64 diskSize = 4 << 20; ///< bytes

/// Fills \a memory up to \a pages free pages.
void fill(const SampleMemory &memory, int pages)
{
    QFile filler(memory.path(u"filler"_qs));
    const qint64 size = freeSpace(memory.root()) - pages * SmallDisk::pageSize;
    if (!filler.open(QIODevice::WriteOnly) || filler.write(QByteArray(size, 'x')) != size)
        qFatal("can't fill the disk");
}

} // namespace

void TestIndexFullDisk::initTestCase()
{
    const SampleMemory memory;
    if (!SmallDisk(memory.root(), diskSize).isMounted())
        QSKIP("only root can mount a file system");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

void TestIndexFullDisk::survivesEverySize_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

void TestIndexFullDisk::survivesEverySize()
{
    QFETCH(bool, isRebuild);
    int kept = 0;
    int whole = 0;
    constexpr int sizes = 64; // pages: more than two sets and the playlist need
    for (int pages = 0; pages < sizes; ++pages) {
        const SampleMemory memory;
        const SmallDisk disk(memory.root(), diskSize);
        copyChangedMemory(memory);
        const auto before = setOf(memory);
        const auto songs = memory.rootFiles();
        fill(memory, pages);
        const bool result = isRebuild ? ScriptedIndex().createIndex(memory.root())
                                      : ScriptedIndex().updateIndex(memory.root());
        const QByteArray where = QByteArray::number(pages) + " pages";
        const auto set = setOf(memory);
        const bool isComplete = set.size() == IndexSet::names().size();
        if (isComplete && set != before)
            QVERIFY2(SetReader(memory).problem().isEmpty(), where);
        QVERIFY2(!result || (isComplete && set != before), where);
        QVERIFY2(isComplete, where);
        ++(set == before ? kept : whole);
        for (auto song = songs.cbegin(); song != songs.cend(); ++song)
            QVERIFY2(before.contains(song.key()) || memory.read(song.key()) == song.value(), where);
        QFile::remove(memory.path(u"filler"_qs));
        checkRepaired(memory, before);
        QVERIFY2(!QTest::currentTestFailed(), where);
    }
    std::printf("%s: %d sizes of the disk, old set %d times, new set %d\n", QTest::currentDataTag(),
                sizes, kept, whole);
    QVERIFY(kept > 0);
    QVERIFY(whole > 0);
}

/// The new set has a playlist whose folder is gone.
void TestIndexFullDisk::putsTheOldSetBackWhereThereIsNoRoomForTwo()
{
    const SampleMemory memory;
    const SmallDisk disk(memory.root(), diskSize);
    for (const QString &name : IndexSet::names())
        memory.write(name, "old " + name.toLatin1());
    const auto before = setOf(memory);
    fill(memory, IndexSet::names().size() / 2);
    Run run;
    IndexSet set(run);
    set.setRoot(memory.root());
    QVERIFY(set.beginStaging());
    for (const QString &name : IndexSet::names())
        QVERIFY(set.stage(name, "new " + name.toLatin1()));
    QVERIFY(set.stage(songsFile, "new"));
    QVERIFY(!set.commit());
    QCOMPARE(setOf(memory), before);
}

BRISEL_TEST(QCoreApplication, TestIndexFullDisk)
#include "tst_indexfulldisk.moc"
