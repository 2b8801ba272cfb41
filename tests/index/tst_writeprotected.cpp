#include "base/filefailure.h"
#include "index/index.h"
#include "tests/index/changedmemory.h"
#include "tests/scriptedindex.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <optional>

using namespace brisel;

using namespace Qt::StringLiterals;
using namespace Sample;

/// Runs on a real write-protected memory fail, report the reason, and leave the old set unchanged.
class TestWriteProtected : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void refusesARunThatWouldWrite_data() { addRuns(); }
    void refusesARunThatWouldWrite();
    void refusesAFirstIndex();
    void updatesWhatHasNotChanged();
    void refusesWithoutTheFoldersOfThePlayer();
    void asksNoQuestionThatCannotBeHonoured_data() { addRuns(); }
    void asksNoQuestionThatCannotBeHonoured();
    void endsWhenItTurnsReadOnlyInAQuestion_data() { addRuns(); }
    void endsWhenItTurnsReadOnlyInAQuestion();
    void endsWhenItTurnsReadOnlyBetweenTwoFiles_data() { addRuns(); }
    void endsWhenItTurnsReadOnlyBetweenTwoFiles();
    void keepsTheSetOfAMemoryThatLostItsSongs();
    void reportsAFullMemory_data() { addRuns(); }
    void reportsAFullMemory();

private:
    void addRuns();
    bool run(Index &index) const;
    /// After a failed run the files are unchanged and can be indexed again.
    void checkOldSet();

    std::optional<SampleMemory> m_memory;
    std::optional<SmallDisk> m_disk;
    QMap<QString, QByteArray> m_before;
};

namespace
{

const QString longName = u"A long name.mid"_s;

} // namespace

void TestWriteProtected::initTestCase()
{
    init();
    if (!m_disk->isMounted())
        QSKIP("only root can mount a file system");
}

void TestWriteProtected::init()
{
    m_memory.emplace();
    m_disk.emplace(m_memory->root(), SmallDisk::memorySize);
    copyChangedMemory(*m_memory);
    m_before = m_memory->rootFiles();
}

void TestWriteProtected::cleanup()
{
    m_disk.reset();
}

void TestWriteProtected::addRuns()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

bool TestWriteProtected::run(Index &index) const
{
    QFETCH(bool, isRebuild);
    return isRebuild ? index.createIndex(m_memory->root()) : index.updateIndex(m_memory->root());
}

void TestWriteProtected::checkOldSet()
{
    QCOMPARE(m_memory->rootFiles(), m_before);
    QVERIFY(m_disk->setReadOnly(false));
    m_memory->remove(longName);
    checkRepaired(*m_memory, setOf(*m_memory));
}

void TestWriteProtected::refusesARunThatWouldWrite()
{
    QVERIFY(m_disk->setReadOnly(true));
    ScriptedIndex index;
    QVERIFY(!run(index));
    QCOMPARE(index.failure(), FileReason::writeProtected);
    checkOldSet();
}

void TestWriteProtected::refusesAFirstIndex()
{
    for (const QString &name : IndexSet::names())
        m_memory->remove(name);
    QVERIFY(m_disk->setReadOnly(true));
    ScriptedIndex index;
    QVERIFY(!index.updateIndex(m_memory->root()));
    QCOMPARE(index.failure(), FileReason::writeProtected);
}

void TestWriteProtected::updatesWhatHasNotChanged()
{
    m_memory->remove(accented); // gets a new id in every update
    QVERIFY(ScriptedIndex().updateIndex(m_memory->root()));
    m_before = m_memory->rootFiles();
    QVERIFY(m_disk->setReadOnly(true));
    QVERIFY(ScriptedIndex().updateIndex(m_memory->root()));
    QCOMPARE(m_memory->rootFiles(), m_before);
}

void TestWriteProtected::refusesWithoutTheFoldersOfThePlayer()
{
    m_memory->remove(accented);
    QVERIFY(ScriptedIndex().updateIndex(m_memory->root()));
    QVERIFY(QDir(m_memory->root()).rmdir(u"sfx"_s));
    QVERIFY(m_disk->setReadOnly(true));
    ScriptedIndex index;
    QVERIFY(!index.updateIndex(m_memory->root()));
    QCOMPARE(index.failure(), FileReason::writeProtected);
}

void TestWriteProtected::asksNoQuestionThatCannotBeHonoured()
{
    m_memory->write(longName, midiSong("L", "Artist", "Genre"));
    m_before = m_memory->rootFiles();
    QVERIFY(m_disk->setReadOnly(true));
    ScriptedIndex index;
    int questions = 0;
    index.setRenameQuestion([&](const QString &, const QString &) {
        ++questions;
        return 0;
    });
    QVERIFY(!run(index));
    QCOMPARE(questions, 0);
    QCOMPARE(index.failure(), FileReason::writeProtected);
    checkOldSet();
}

void TestWriteProtected::endsWhenItTurnsReadOnlyInAQuestion()
{
    m_memory->write(longName, midiSong("L", "Artist", "Genre"));
    m_memory->write(u"Another long name.mid"_s, midiSong("M", "Artist", "Genre"));
    m_before = m_memory->rootFiles();
    ScriptedIndex index;
    int questions = 0;
    index.setRenameQuestion([&](const QString &, const QString &) {
        ++questions;
        return m_disk->setReadOnly(true) ? 0 : 3;
    });
    QVERIFY(!run(index));
    QCOMPARE(questions, 1);
    QCOMPARE(index.failure(), FileReason::writeProtected);
    QCOMPARE(m_memory->rootFiles(), m_before);
}

void TestWriteProtected::endsWhenItTurnsReadOnlyBetweenTwoFiles()
{
    ScriptedIndex index;
    int found = 0;
    connect(&index, &Index::progressValueChanged, &index,
            [&](int value) { found += value == 30 && m_disk->setReadOnly(true) ? 1 : 0; });
    QVERIFY(!run(index));
    QCOMPARE(found, 1);
    QCOMPARE(index.failure(), FileReason::writeProtected);
    checkOldSet();
}

void TestWriteProtected::keepsTheSetOfAMemoryThatLostItsSongs()
{
    for (const QString &name : m_before.keys()) {
        if (!name.endsWith(u".id2"_s))
            m_memory->remove(name);
    }
    m_before = m_memory->rootFiles();
    QVERIFY(m_disk->setReadOnly(true));
    ScriptedIndex index;
    QVERIFY(!index.createIndex(m_memory->root()));
    QCOMPARE(index.failure(), FileReason::writeProtected);
    QCOMPARE(m_memory->rootFiles(), m_before);
}

void TestWriteProtected::reportsAFullMemory()
{
    QFile filler(m_memory->path(u"filler"_s));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(SmallDisk::pageSize, 'x')) > 0)
        continue;
    filler.close();
    ScriptedIndex index;
    QVERIFY(!run(index));
    QCOMPARE(index.failure(), FileReason::noSpace);
    m_memory->remove(u"filler"_s);
    checkOldSet();
}

BRISEL_TEST(QCoreApplication, TestWriteProtected)
#include "tst_writeprotected.moc"
