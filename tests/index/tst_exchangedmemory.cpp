#include "index/index.h"
#include "index/memoryreasons.h"
#include "tests/index/changedmemory.h"
#include "tests/scriptedindex.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <optional>

using namespace brisel;

using namespace Qt::StringLiterals;
using namespace Sample;

/// A real memory is pulled during a run and replaced by another one: the run ends and changes
/// nothing on the other one.
class TestExchangedMemory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void leavesTheOtherAloneAfterAQuestion_data();
    void leavesTheOtherAloneAfterAQuestion();
    void leavesTheOtherAloneWhileItReads_data();
    void leavesTheOtherAloneWhileItReads();
    void leavesTheOtherAloneWhileItWrites();
    void removesItsMarkAtTheEnd();
};

namespace
{

const QString pulledSong = u"A long name.mid"_s;

/// Replaces the memory by another one that has long names and an index. Returns the files of the
/// other one.
QMap<QString, QByteArray> exchange(const SampleMemory &memory, std::optional<SmallDisk> &disk)
{
    disk.reset();
    disk.emplace(memory.root(), SmallDisk::memorySize);
    for (const QString &name : {u"Another long name.mid"_s, u"Yet another long name.mid"_s})
        memory.write(name, midiSong("Z", "Other artist", "Other genre"));
    for (const QString &name : IndexSet::names())
        memory.write(name, "of the other memory");
    return memory.rootFiles();
}

} // namespace

void TestExchangedMemory::initTestCase()
{
    const SampleMemory memory;
    if (!SmallDisk(memory.root(), SmallDisk::memorySize).isMounted())
        QSKIP("only root can mount a file system");
}

void TestExchangedMemory::leavesTheOtherAloneAfterAQuestion_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::addColumn<int>("answer");
    for (const bool isRebuild : {false, true}) {
        for (int answer = 0; answer < 4; ++answer)
            QTest::addRow("%s, answer %d", isRebuild ? "rebuild" : "update", answer)
                << isRebuild << answer;
    }
}

void TestExchangedMemory::leavesTheOtherAloneAfterAQuestion()
{
    QFETCH(bool, isRebuild);
    QFETCH(int, answer);
    const SampleMemory memory;
    std::optional<SmallDisk> disk(std::in_place, memory.root(), SmallDisk::memorySize);
    copyChangedMemory(memory);
    memory.write(pulledSong, midiSong("L", "Artist", "Genre"));
    QMap<QString, QByteArray> other;
    int questions = 0;
    ScriptedIndex index;
    index.setRenameQuestion([&](const QString &, const QString &) {
        ++questions;
        other = exchange(memory, disk);
        return answer;
    });
    QVERIFY(!(isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root())));
    QCOMPARE(questions, 1);
    QCOMPARE(index.failure(), MemoryReason::gone);
    QCOMPARE(memory.rootFiles(), other);
    QCOMPARE(QDir(memory.root()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void TestExchangedMemory::leavesTheOtherAloneWhileItReads_data()
{
    QTest::addColumn<int>("found");
    for (const int found : {1, 3, 5})
        QTest::addRow("at song %d", found) << found;
}

void TestExchangedMemory::leavesTheOtherAloneWhileItReads()
{
    QFETCH(int, found);
    const SampleMemory memory;
    std::optional<SmallDisk> disk(std::in_place, memory.root(), SmallDisk::memorySize);
    copyChangedMemory(memory);
    QMap<QString, QByteArray> other;
    ScriptedIndex index;
    index.setRenameQuestion([&](const QString &, const QString &) { return 1; });
    connect(&index, &Index::fileFoundChanged, &index, [&](int count) {
        if (count == found)
            other = exchange(memory, disk);
    });
    QVERIFY(!index.updateIndex(memory.root()));
    QCOMPARE(index.failure(), MemoryReason::gone);
    QVERIFY(!other.isEmpty());
    QCOMPARE(memory.rootFiles(), other);
}

void TestExchangedMemory::leavesTheOtherAloneWhileItWrites()
{
    for (const int moment : {0, 10, 20, 60, 90}) {
        const SampleMemory memory;
        std::optional<SmallDisk> disk(std::in_place, memory.root(), SmallDisk::memorySize);
        copyChangedMemory(memory);
        QMap<QString, QByteArray> other;
        bool isWriting = false;
        ScriptedIndex index;
        connect(&index, &Index::progressMaxSetup, &index,
                [&](int maximum) { isWriting = maximum == 100; });
        connect(&index, &Index::progressValueChanged, &index, [&](int value) {
            if (isWriting && value == moment && other.isEmpty())
                other = exchange(memory, disk);
        });
        QVERIFY(!index.createIndex(memory.root()));
        QCOMPARE(index.failure(), MemoryReason::gone);
        QVERIFY(!other.isEmpty());
        QCOMPARE(memory.rootFiles(), other);
    }
}

void TestExchangedMemory::removesItsMarkAtTheEnd()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    memory.write(pulledSong, midiSong("L", "Artist", "Genre"));
    ScriptedIndex index;
    int marks = 0;
    index.setRenameQuestion([&](const QString &, const QString &) {
        marks += memory.has(u".brisel2pc/mark"_s) ? 1 : 0;
        return 3;
    });
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(marks, 1);
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_s)));
}

BRISEL_TEST(QCoreApplication, TestExchangedMemory)
#include "tst_exchangedmemory.moc"
