#include "memory/copyback.h"

#include "base/filedescriptor.h"
#include "index/memoryreasons.h"
#include "library/filecopier.h"
#include "tests/index/handmadeset.h"
#include "tests/memory/readmemory.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <sys/file.h>

using namespace brisel;

using namespace Sample;

/// Songs of a memory are copied into a folder of the computer.
class TestCopyBack : public QObject
{
    Q_OBJECT

    using Outcome = CopyBack::Outcome;

private slots:
    void copiesSongsWithTheirGraphics();
    void numbersNamesThatTheFolderHas();
    void numbersEqualNames();
    void replacesNoFileThatComesLater();
    void reportsAMissingSong();
    void refusesTheMemoryItself();
    void refusesAMissingFolder();
    void refusesABusyMemory();
    void needsRoomForAll();
    void endsBetweenTwoSongs();
    void isDoneIfItIsInterruptedAfterTheLastSong();
    void changesNothingOnTheMemory();

private:
    CopyBack::Outcome copy(const SampleMemory &memory, const QStringList &names,
                           ScriptedRun &run) const
    {
        QStringList files;
        for (const QString &name : names)
            files.append(memory.path(name));
        return CopyBack(memory.root(), files, m_folder.path(), *contentsOf(memory)).run(run);
    }
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QTemporaryDir m_folder;

private slots:
    void init()
    {
        QVERIFY(QDir(m_folder.path()).removeRecursively());
        QVERIFY(QDir().mkpath(m_folder.path()));
    }
};

void TestCopyBack::copiesSongsWithTheirGraphics()
{
    const HandMadeSet memory;
    memory.write(u"BASI/b.CDG"_qs, "graphics");
    ScriptedRun run;
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"BASI/B.MP3"_qs, u"A.MID"_qs}, run), Outcome::Done);
    QCOMPARE(names(), (QStringList{u"A.MID"_qs, u"B.MP3"_qs, u"B.cdg"_qs}));
    QCOMPARE(fileContent(path(u"A.MID"_qs)), memory.read(u"A.MID"_qs));
    QCOMPARE(fileContent(path(u"B.MP3"_qs)), memory.read(u"BASI/B.MP3"_qs));
    QCOMPARE(fileContent(path(u"B.cdg"_qs)), QByteArray("graphics"));
    QCOMPARE(run.report().counted(RunReport::Success::Copied), 2);
    QVERIFY(run.report().isEmpty());
    QVERIFY(run.asked.isEmpty());
}

void TestCopyBack::numbersNamesThatTheFolderHas()
{
    const HandMadeSet memory;
    memory.write(u"BASI/B.cdg"_qs, "graphics");
    makeFile(path(u"a.mid"_qs), "mine");
    makeFile(path(u"B.CDG"_qs), "my graphics");
    QVERIFY(QFile::link(u"nowhere"_qs, path(u"C.KAR"_qs)));
    ScriptedRun run;
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"BASI/B.MP3"_qs, u"C.KAR"_qs}, run), Outcome::Done);
    QCOMPARE(fileContent(path(u"a.mid"_qs)), QByteArray("mine"));
    QCOMPARE(fileContent(path(u"B.CDG"_qs)), QByteArray("my graphics"));
    QCOMPARE(fileContent(path(u"A (2).MID"_qs)), memory.read(u"A.MID"_qs));
    QCOMPARE(fileContent(path(u"B (2).MP3"_qs)), memory.read(u"BASI/B.MP3"_qs));
    QCOMPARE(fileContent(path(u"B (2).cdg"_qs)), QByteArray("graphics"));
    QCOMPARE(fileContent(path(u"C (2).KAR"_qs)), memory.read(u"C.KAR"_qs));
}

void TestCopyBack::numbersEqualNames()
{
    const HandMadeSet memory;
    memory.write(u"BASI/A.MID"_qs, "another song");
    ScriptedRun run;
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"BASI/A.MID"_qs}, run), Outcome::Done);
    QCOMPARE(fileContent(path(u"A.MID"_qs)), memory.read(u"A.MID"_qs));
    QCOMPARE(fileContent(path(u"A (2).MID"_qs)), QByteArray("another song"));
}

/// Another program makes a file while the copies are written.
void TestCopyBack::replacesNoFileThatComesLater()
{
    const HandMadeSet memory;
    ScriptedRun run;
    run.onStep = [this](int done) {
        if (done == 1)
            makeFile(path(u"C.KAR"_qs), "mine");
        if (done == 1)
            makeFile(path(u"A.MID"_qs), "mine, too");
    };
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"C.KAR"_qs}, run), Outcome::Failed);
    QCOMPARE(fileContent(path(u"C.KAR"_qs)), QByteArray("mine"));
    QCOMPARE(fileContent(path(u"A.MID"_qs)), QByteArray("mine, too"));
    QVERIFY(run.report().text().contains(FileCopier::alreadyThere.text()));
    QCOMPARE(run.report().failed(), 2);
    QCOMPARE(names().size(), 2);
    QVERIFY(run.asked.isEmpty());
}

void TestCopyBack::reportsAMissingSong()
{
    const HandMadeSet memory;
    ScriptedRun run;
    QCOMPARE(copy(memory, {u"GONE.MID"_qs, u"A.MID"_qs}, run), Outcome::Failed);
    QCOMPARE(names(), QStringList{u"A.MID"_qs});
    QVERIFY(run.report().text().contains(u"GONE.MID"_qs));
}

void TestCopyBack::refusesTheMemoryItself()
{
    const HandMadeSet memory;
    ScriptedRun run;
    QVERIFY(QFile::link(memory.path(u"BASI"_qs), path(u"link"_qs)));
    for (const QString &folder : {memory.root(), memory.path(u"BASI"_qs),
                                  memory.path(u"BASI/../BASI/"_qs), path(u"link"_qs)}) {
        QCOMPARE(CopyBack(memory.root(), {memory.path(u"A.MID"_qs)}, folder, {}).run(run),
                 Outcome::OnMemory);
    }
    QVERIFY(!memory.has(u"BASI/A.MID"_qs));
}

void TestCopyBack::refusesAMissingFolder()
{
    const HandMadeSet memory;
    ScriptedRun run;
    QCOMPARE(CopyBack(memory.root(), {memory.path(u"A.MID"_qs)}, path(u"missing"_qs), {}).run(run),
             Outcome::NoFolder);
    QCOMPARE(CopyBack(memory.root(), {memory.path(u"A.MID"_qs)}, QString(), {}).run(run),
             Outcome::NoFolder);
}

void TestCopyBack::refusesABusyMemory()
{
    const HandMadeSet memory;
    const FileDescriptor folder = FileDescriptor::openFolder(memory.root());
    QCOMPARE(::flock(folder.get(), LOCK_EX), 0);
    ScriptedRun run;
    QCOMPARE(copy(memory, {u"A.MID"_qs}, run), Outcome::InUse);
    QVERIFY(names().isEmpty());
    QVERIFY(run.report().text().contains(MemoryReason::inUse.text()));
}

void TestCopyBack::needsRoomForAll()
{
    const HandMadeSet memory;
    memory.write(u"LARGE.MID"_qs, QByteArray(4 * SmallDisk::pageSize, 'x'));
    const SmallDisk disk(m_folder.path(), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    ScriptedRun run;
    CopyBack copyBack(memory.root(), {memory.path(u"A.MID"_qs), memory.path(u"LARGE.MID"_qs)},
                      m_folder.path(), {});
    QCOMPARE(copyBack.run(run), Outcome::NoRoom);
    QVERIFY(names().isEmpty());
    QVERIFY2(copyBack.shortage().contains(u"20"_qs), qPrintable(copyBack.shortage()));
    QVERIFY(run.report().text().contains(copyBack.shortage()));
}

void TestCopyBack::endsBetweenTwoSongs()
{
    const HandMadeSet memory;
    ScriptedRun run;
    run.onStep = [&run](int) { run.isStopped = true; };
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"C.KAR"_qs}, run), Outcome::Interrupted);
    QCOMPARE(names(), QStringList{u"A.MID"_qs});
    QCOMPARE(run.report().skipped(), 1);
}

void TestCopyBack::isDoneIfItIsInterruptedAfterTheLastSong()
{
    const HandMadeSet memory;
    ScriptedRun run;
    run.onStep = [&run](int done) { run.isStopped = done == 2; };
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"C.KAR"_qs}, run), Outcome::Done);
    QCOMPARE(names(), (QStringList{u"A.MID"_qs, u"C.KAR"_qs}));
    // A song that was not copied is still an interruption.
    QVERIFY(QDir(m_folder.path()).removeRecursively() && QDir().mkpath(m_folder.path()));
    run.isStopped = false;
    QCOMPARE(copy(memory, {u"A.MID"_qs, u"GONE.MID"_qs, u"C.KAR"_qs}, run), Outcome::Interrupted);
}

void TestCopyBack::changesNothingOnTheMemory()
{
    const HandMadeSet memory;
    const auto files = memory.rootFiles();
    ScriptedRun run;
    QCOMPARE(copy(memory, {u"A.MID"_qs}, run), Outcome::Done);
    QCOMPARE(memory.rootFiles(), files);
    QVERIFY(!memory.has(u".brisel2pc"_qs));
}

BRISEL_TEST(QCoreApplication, TestCopyBack)

#include "tst_copyback.moc"
