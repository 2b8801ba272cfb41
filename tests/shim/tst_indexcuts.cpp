#include "index/index.h"
#include "tests/index/changedmemory.h"
#include "tests/index/setreader.h"
#include "tests/scriptedindex.h"
#include "tests/shim/faultyrun.h"
#include "tests/testprogram.h"

#include <QCryptographicHash>
#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

bool rebuild(ScriptedIndex &index, const QString &root)
{
    return index.createIndex(root);
}

bool update(ScriptedIndex &index, const QString &root)
{
    return index.updateIndex(root);
}

QByteArray checksumOf(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex();
}

/// Writes the file \a name into the work folder. Returns its line of a mark.
QByteArray staged(const SampleMemory &memory, const QString &name, const QByteArray &content)
{
    memory.write(u".brisel2pc/"_qs + name.section(u'/', -1), content);
    return checksumOf(content) + ' ' + QByteArray::number(content.size()) + ' ' + name.toLatin1() +
           '\n';
}

} // namespace

/// No cut and no failure leaves files that don't belong together, and the next run repairs
/// everything.
class TestIndexCuts : public QObject
{
    Q_OBJECT

private slots:
    /// Suppresses the many log lines of thousands of runs.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void survivesFaultAtEveryStep_data();
    void survivesFaultAtEveryStep();
    void finishesSwapThatWasCut();
    void ignoresTruncatedMarks();
    void leavesChangedPlaylistsAlone();
    void takesOnlyMarksThatEndInTheirSum();
    void ignoresForgedMarks();
    void ignoresMarksThatNameOtherFiles();
    void refusesMarksOfAbsurdSize();
    void removesAFileInPlaceOfTheWorkFolder();
    void survivesCutOfRecovery();

private:
    /// Leaves \a memory as a cut of a swap does, with the mark \a lines, and lets it recover.
    static void recover(const SampleMemory &memory, const QByteArray &lines, const QByteArray &sum)
    {
        memory.remove(u"fsinfos.id2"_qs);
        memory.write(u".brisel2pc/swap"_qs, lines + "end " + sum + '\n');
        Run setRun;
        IndexSet set(setRun);
        set.setRoot(memory.root());
        set.recover();
    }
    /// Stages all files that \a memory has. Returns the lines of the mark.
    static QByteArray stagedSet(const SampleMemory &memory)
    {
        QByteArray lines = "brisel2pc swap 1\n";
        const auto set = setOf(memory);
        for (auto file = set.cbegin(); file != set.cend(); ++file)
            lines += staged(memory, file.key(), file.value());
        return lines;
    }
};

void TestIndexCuts::survivesFaultAtEveryStep_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::addColumn<int>("fault");
    const QList<std::pair<const char *, Shim::Action>> faults{
        {"killed", Shim::Kill},    {"torn", Shim::Torn},   {"full", Shim::NoSpace},
        {"broken", Shim::IoError}, {"short", Shim::Short}, {"read-only", Shim::ReadOnly}};
    for (const auto &[name, fault] : faults) {
        QTest::addRow("update %s", name) << false << int(fault);
        QTest::addRow("rebuild %s", name) << true << int(fault);
    }
}

void TestIndexCuts::survivesFaultAtEveryStep()
{
    QFETCH(bool, isRebuild);
    QFETCH(int, fault);
    const IndexWork run = isRebuild ? IndexWork(rebuild) : IndexWork(update);
    const int fewestSteps = 100;
    bool reached = true;
    int number = 0;
    int overcome = 0;
    while (reached) {
        ++number;
        const SampleMemory memory;
        copyChangedMemory(memory);
        const auto before = setOf(memory);
        const int result =
            runWithFault(memory, run, number, static_cast<Shim::Action>(fault), reached);
        const QString where = u"step %1"_qs.arg(number);
        const auto set = setOf(memory);
        const bool isComplete = set.size() == IndexSet::names().size();
        // The old set names a song that is gone; the new set must be consistent.
        if (isComplete && set != before)
            QVERIFY2(SetReader(memory).problem().isEmpty(), qPrintable(where));
        if (result == 1)
            QVERIFY2(isComplete && set != before, qPrintable(where));
        // Without it a cut could leave playlists whose songs nothing names.
        QVERIFY2(result != 1 || memory.has(u"playlist/play0007.pts"_qs), qPrintable(where));
        if (result == 1 && reached)
            ++overcome;
        checkRepaired(memory, before);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(where));
    }
    // When everything is staged and the old set removed, no room for a second copy is needed.
    if (fault == Shim::NoSpace)
        QVERIFY2(overcome > 10, qPrintable(QString::number(overcome)));
    QVERIFY2(number > fewestSteps, qPrintable(QString::number(number)));
    std::printf("%s: %d steps\n", QTest::currentDataTag(), number - 1);
}

void TestIndexCuts::finishesSwapThatWasCut()
{
    // Tries all steps to find those at which the old set is gone and the mark exists.
    int finished = 0;
    bool reached = true;
    for (int number = 1; reached; ++number) {
        const SampleMemory memory;
        copyChangedMemory(memory);
        runWithFault(memory, rebuild, number, Shim::Kill, reached);
        if (!memory.has(u".brisel2pc/swap"_qs) || memory.has(u"fsinfos.id2"_qs))
            continue;
        Run setRun;
        IndexSet set(setRun);
        set.setRoot(memory.root());
        set.recover();
        if (!set.isComplete())
            continue;
        ++finished;
        const SetReader reader(memory);
        QCOMPARE(reader.problem(), QString());
        QCOMPARE(reader.playlist(songsFile), keptSongs);
    }
    QVERIFY2(finished > 20, qPrintable(QString::number(finished)));
}

void TestIndexCuts::ignoresTruncatedMarks()
{
    const QString mark = u".brisel2pc/swap"_qs;
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        qint64 size = 1;
        for (qint64 offset = 0; offset < size; offset += 512) {
            const SampleMemory memory;
            copyChangedMemory(memory);
            const auto old = setOf(memory);
            bool reached = false;
            for (int cut = 60; !memory.has(mark) || memory.has(u"fsinfos.id2"_qs); ++cut)
                runWithFault(memory, rebuild, cut, Shim::Kill, reached);
            size = QFileInfo(memory.path(mark)).size();
            const auto before = setOf(memory);
            Run setRun;
            IndexSet set(setRun);
            set.setRoot(memory.root());
            Shim::failReads(QFile::encodeName(memory.path(mark)).constData(), offset, failure);
            set.recover();
            Shim::readAll();
            QCOMPARE(setOf(memory), before);
            checkRepaired(memory, old);
        }
    }
}

void TestIndexCuts::leavesChangedPlaylistsAlone()
{
    // Cut just before or after the swap: the player had a whole set, and its user has changed the
    // playlist since then.
    int oldSets = 0;
    int newSets = 0;
    bool reached = true;
    for (int number = 30; reached; ++number) {
        const SampleMemory memory;
        copyChangedMemory(memory);
        const auto before = setOf(memory);
        runWithFault(memory, rebuild, number, Shim::Kill, reached);
        const auto set = setOf(memory);
        if (!memory.has(u".brisel2pc/swap"_qs) || set.size() != IndexSet::names().size())
            continue;
        ++(set == before ? oldSets : newSets);
        memory.write(songsFile, playlistRecord(set == before ? 1 : 0));
        QVERIFY(ScriptedIndex().updateIndex(memory.root()));
        QCOMPARE(SetReader(memory).playlist(songsFile), QList<QByteArray>{"/B.MP3"});
    }
    QVERIFY(oldSets > 0);
    QVERIFY(newSets > 0);
}

/// A mark that lost a line would leave the playlists with the ids of the old set.
void TestIndexCuts::takesOnlyMarksThatEndInTheirSum()
{
    for (const bool isWhole : {true, false}) {
        const SampleMemory memory;
        copyChangedMemory(memory);
        const QByteArray lines = stagedSet(memory);
        const QByteArray playlist = staged(memory, songsFile, playlistRecord(1));
        recover(memory, isWhole ? lines + playlist : lines, checksumOf(lines + playlist));
        QCOMPARE(memory.has(u"fsinfos.id2"_qs), isWhole);
        QCOMPARE(memory.read(songsFile) == playlistRecord(1), isWhole);
    }
}

void TestIndexCuts::ignoresMarksThatNameOtherFiles()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    memory.write(u"D.MID"_qs, "mine");
    const QByteArray lines = stagedSet(memory) + staged(memory, u"D.MID"_qs, "evil");
    recover(memory, lines, checksumOf(lines));
    QCOMPARE(memory.read(u"D.MID"_qs), QByteArray("mine"));
    QVERIFY(!memory.has(u"fsinfos.id2"_qs));
}

void TestIndexCuts::ignoresForgedMarks()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    memory.write(u"victim.txt"_qs, "mine");
    const QByteArray evil = "evil";
    const QByteArray sum = "7e0bb8a64f8d1b7a0f5b1b7fb0c1c0e4a6f1e6b1";
    memory.remove(u"fsinfos.id2"_qs);
    const auto before = setOf(memory);
    for (const QByteArray &body :
         {QByteArray(), QByteArray("brisel2pc swap 1\n" + sum + " 4 ../victim.txt\n"),
          QByteArray("brisel2pc swap 1\n" + sum + " 4 victim.txt\n"),
          QByteArray("brisel2pc swap 1\n"), QByteArray("brisel2pc swap 1\nx\n")}) {
        memory.write(u".brisel2pc/victim.txt"_qs, evil);
        const QByteArray check = QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex();
        memory.write(u".brisel2pc/swap"_qs, body + "end " + check + '\n');
        Run setRun;
        IndexSet set(setRun);
        set.setRoot(memory.root());
        set.recover();
        QCOMPARE(memory.read(u"victim.txt"_qs), QByteArray("mine"));
        QCOMPARE(setOf(memory), before);
        QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    }
    // A link instead of the work folder leads to files of another program.
    const QTemporaryDir other;
    QVERIFY(QFile::link(other.path(), memory.path(u".brisel2pc"_qs)));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QVERIFY(QFileInfo::exists(other.path()));
    QVERIFY(QDir(other.path()).isEmpty());
}

void TestIndexCuts::refusesMarksOfAbsurdSize()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    memory.remove(u"fsinfos.id2"_qs);
    const auto before = setOf(memory);
    const QByteArray content = "evil";
    const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex();
    for (const char *size : {"9000000000000000000", "99999999999999999999", "5", "3", "-4"}) {
        memory.write(u".brisel2pc/title.id2"_qs, content);
        const QByteArray body =
            "brisel2pc swap 1\n" + sum + ' ' + size + " title.id2\n" + sum + " 4 title.id2\n";
        const QByteArray check = QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex();
        memory.write(u".brisel2pc/swap"_qs, body + "end " + check + '\n');
        Run setRun;
        IndexSet set(setRun);
        set.setRoot(memory.root());
        set.recover();
        QCOMPARE(setOf(memory), before);
    }
}

void TestIndexCuts::removesAFileInPlaceOfTheWorkFolder()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    const auto before = setOf(memory);
    memory.write(u".brisel2pc"_qs, "no folder");
    checkRepaired(memory, before);
}

void TestIndexCuts::survivesCutOfRecovery()
{
    // Killed in the swap, and killed again in each step of the run that repairs it.
    bool reached = true;
    for (int number = 1; reached; ++number) {
        const SampleMemory memory;
        copyChangedMemory(memory);
        const auto before = setOf(memory);
        bool first = false;
        for (int cut = 60; !memory.has(u".brisel2pc/swap"_qs) || memory.has(u"fsinfos.id2"_qs);
             ++cut)
            runWithFault(memory, rebuild, cut, Shim::Kill, first);
        runWithFault(memory, update, number, Shim::Kill, reached);
        const auto set = setOf(memory);
        if (set.size() == IndexSet::names().size())
            QCOMPARE(SetReader(memory).problem(), QString());
        checkRepaired(memory, before);
    }
}

BRISEL_TEST(QCoreApplication, TestIndexCuts)
#include "tst_indexcuts.moc"
