#include "library/transfer.h"

#include "base/folderlock.h"
#include "base/freespace.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/smallsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <optional>

using namespace brisel;

class TestTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void findsTheFolder_data();
    void findsTheFolder();
    void makesTheSongsFolder();
    void refusesWhenSongsCannotBeMade();
    void refusesSongsFolderThatLeadsOffTheMemory();
    void copiesAndIndexes();
    void reportsNothingOfARefusedFolder();
    void reportsThatSongsCannotBeMade();
    void copiesNothingToAMemoryInUse();
    void indexesNothingAfterAnInterruption();
    void indexesNothingInTheFolderOfAPulledMemory();
    void copiesNothingThatTheIndexWouldLackRoomFor();
    void findsTheSongsThatAreThere();
    void comparesNothingAfterAnInterruption();
    void findsSongsThatTheIndexRenames();

private:
    std::unique_ptr<QTemporaryDir> m_volumes;
};

void TestTransfer::init()
{
    m_volumes = std::make_unique<QTemporaryDir>();
    qputenv("BRISEL_VOLUMES", QFile::encodeName(m_volumes->path()));
    for (const char *folder : {"CARD/songs", "CARD/playlist", "CARD/PLAYLIST/old", "CARD/Sfx/x",
                               "CARD/bridge", "CARD/pop", "CARD/songs/SFX", "sfx"})
        QVERIFY(QDir(m_volumes->path()).mkpath(QString::fromLatin1(folder)));
}

void TestTransfer::findsTheFolder_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("destination");
    const auto row = [](const char *tag, const QString &chosen, Transfer::Outcome outcome,
                        const QString &destination = {}) {
        QTest::newRow(tag) << chosen << int(outcome) << destination;
    };
    using R = Transfer::Outcome;
    row("memory", u"%1/CARD"_qs, R::Done, u"%1/CARD/songs"_qs);
    row("memory, not clean", u"%1//CARD/."_qs, R::Done, u"%1/CARD/songs"_qs);
    row("subfolder", u"%1/CARD/pop"_qs, R::Done, u"%1/CARD/pop"_qs);
    row("songs itself", u"%1/CARD/songs"_qs, R::Done, u"%1/CARD/songs"_qs);
    row("playlist", u"%1/CARD/playlist"_qs, R::ReservedFolder);
    row("bridge", u"%1/CARD/bridge"_qs, R::ReservedFolder);
    row("Sfx", u"%1/CARD/Sfx"_qs, R::ReservedFolder);
    row("SFX deeper", u"%1/CARD/songs/SFX"_qs, R::ReservedFolder);
    row("below PLAYLIST", u"%1/CARD/PLAYLIST/old"_qs, R::Done, u"%1/CARD/PLAYLIST/old"_qs);
    row("below SFX", u"%1/CARD/Sfx/x"_qs, R::Done, u"%1/CARD/Sfx/x"_qs);
    row("memory called sfx", u"%1/sfx"_qs, R::Done, u"%1/sfx/songs"_qs);
    row("mount folder", u"%1"_qs, R::SystemDisk);
    row("out of the memory", u"%1/CARD/../.."_qs, R::SystemDisk);
    row("home", u"/Users/me/Music"_qs, R::SystemDisk);
    row("Volumes", u"/Volumes/"_qs, R::SystemDisk);
    row("root", u"/"_qs, R::SystemDisk);
}

void TestTransfer::findsTheFolder()
{
    QFETCH(QString, chosen);
    QFETCH(int, outcome);
    QFETCH(QString, destination);
    chosen.replace(u"%1"_qs, m_volumes->path());
    destination.replace(u"%1"_qs, m_volumes->path());
    const Transfer::Destination found = Transfer::destinationOf(chosen);
    QCOMPARE(int(found.outcome), outcome);
    if (found.outcome == Transfer::Outcome::Done)
        QCOMPARE(found.folder, destination);
}

void TestTransfer::makesTheSongsFolder()
{
    QVERIFY(QDir(m_volumes->path()).mkdir(u"STICK"_qs));
    QCOMPARE(Transfer::destinationOf(m_volumes->filePath(u"STICK"_qs)).outcome,
             Transfer::Outcome::Done);
    QVERIFY(QFileInfo(m_volumes->filePath(u"STICK/songs"_qs)).isDir());
}

void TestTransfer::refusesWhenSongsCannotBeMade()
{
    makeFile(m_volumes->filePath(u"STICK/songs"_qs), "a file in the way");
    QCOMPARE(Transfer::destinationOf(m_volumes->filePath(u"STICK"_qs)).outcome,
             Transfer::Outcome::NoSongsFolder);
    QCOMPARE(Transfer::destinationOf(m_volumes->filePath(u"GONE"_qs)).outcome,
             Transfer::Outcome::NoSongsFolder);
}

void TestTransfer::refusesSongsFolderThatLeadsOffTheMemory()
{
    const QTemporaryDir elsewhere;
    QVERIFY(QDir(m_volumes->path()).mkdir(u"STICK"_qs));
    QVERIFY(QFile::link(elsewhere.path(), m_volumes->filePath(u"STICK/songs"_qs)));
    QCOMPARE(Transfer::destinationOf(m_volumes->filePath(u"STICK"_qs)).outcome,
             Transfer::Outcome::SystemDisk);
}

void TestTransfer::copiesAndIndexes()
{
    const QTemporaryDir home;
    makeFile(home.filePath(u"one.mid"_qs), smallMidi("One"));
    QVERIFY(QDir(m_volumes->path()).mkdir(u"STICK"_qs));
    ScriptedRun run(RunReport::Operation::Transfer);
    Transfer transfer({home.filePath(u"one.mid"_qs)}, m_volumes->filePath(u"STICK"_qs));
    const Transfer::Outcome outcome = transfer.run(run);
    QVERIFY2(outcome == Transfer::Outcome::Done, qPrintable(run.report().text()));
    QVERIFY(QFile::exists(m_volumes->filePath(u"STICK/songs/one.mid"_qs)));
    QCOMPARE(fileContent(m_volumes->filePath(u"STICK/index.id2"_qs)).size(), 64);
    QCOMPARE(run.stages, QStringList({u"Trasferimento"_qs, u"Aggiornamento"_qs}));
    QCOMPARE(run.report().summary(), u"Trasferimento: 1 copiate"_qs);
    QCOMPARE(transfer.shortage(), QString());
}

void TestTransfer::reportsNothingOfARefusedFolder()
{
    ScriptedRun run(RunReport::Operation::Transfer);
    QCOMPARE(Transfer({}, u"/Users/me/Music"_qs).run(run), Transfer::Outcome::SystemDisk);
    QCOMPARE(Transfer({}, m_volumes->filePath(u"CARD/bridge"_qs)).run(run),
             Transfer::Outcome::ReservedFolder);
    QVERIFY(run.report().isUntouched());
    QCOMPARE(run.stages, QStringList());
}

void TestTransfer::reportsThatSongsCannotBeMade()
{
    makeFile(m_volumes->filePath(u"STICK/songs"_qs), "a file in the way");
    ScriptedRun run(RunReport::Operation::Transfer);
    QCOMPARE(Transfer({}, m_volumes->filePath(u"STICK"_qs)).run(run),
             Transfer::Outcome::NoSongsFolder);
    QCOMPARE(run.report().failed(), 1);
    QCOMPARE(run.stages, QStringList());
}

void TestTransfer::copiesNothingToAMemoryInUse()
{
    const QTemporaryDir home;
    makeFile(home.filePath(u"one.mid"_qs), smallMidi("One"));
    const QString stick = m_volumes->filePath(u"STICK"_qs);
    QVERIFY(QDir().mkdir(stick));
    const FolderLock lock(stick, FolderLock::Kind::Shared);
    ScriptedRun run(RunReport::Operation::Transfer);
    QCOMPARE(Transfer({home.filePath(u"one.mid"_qs)}, stick).run(run), Transfer::Outcome::InUse);
    QCOMPARE(run.report().failed(), 1);
    QVERIFY(QDir(stick).isEmpty());
}

void TestTransfer::indexesNothingAfterAnInterruption()
{
    const QTemporaryDir home;
    const QStringList songs{home.filePath(u"one.mid"_qs), home.filePath(u"two.mid"_qs)};
    QVERIFY(QDir(m_volumes->path()).mkdir(u"STICK"_qs));
    for (const QString &song : songs)
        makeFile(song, smallMidi("Song"));
    ScriptedRun run(RunReport::Operation::Transfer);
    run.onStep = [&run](int) { run.isStopped = true; };
    QCOMPARE(Transfer(songs, m_volumes->filePath(u"STICK"_qs)).run(run), Transfer::Outcome::Failed);
    QCOMPARE(run.stages, QStringList(u"Trasferimento"_qs));
    QVERIFY(!QFile::exists(m_volumes->filePath(u"STICK/index.id2"_qs)));
    QVERIFY2(run.report().skipped() == 1, qPrintable(run.report().text()));
}

/// The memory is pulled after its first song was copied.
void TestTransfer::indexesNothingInTheFolderOfAPulledMemory()
{
    const QTemporaryDir home;
    const QStringList songs{home.filePath(u"1/one.mid"_qs), home.filePath(u"2/one.mid"_qs)};
    for (const QString &song : songs)
        makeFile(song, smallMidi("Song"));
    const QString stick = m_volumes->filePath(u"STICK"_qs);
    makeFile(stick + u"/old.mid"_qs, smallMidi("Old"));
    std::optional<SmallDisk> disk(std::in_place, stick, SmallDisk::memorySize);
    if (!disk->isMounted())
        QSKIP("only root can mount a file system");
    ScriptedRun run(RunReport::Operation::Transfer);
    run.onQuestion = [&disk](const QString &) { disk.reset(); };
    QCOMPARE(Transfer(songs, stick).run(run), Transfer::Outcome::Failed);
    QCOMPARE(run.asked.size(), 1);
    QVERIFY2(run.report().failed() == 1, qPrintable(run.report().text()));
    QCOMPARE(run.stages, QStringList(u"Trasferimento"_qs));
    QCOMPARE(QDir(stick).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(u"old.mid"_qs));
}

void TestTransfer::copiesNothingThatTheIndexWouldLackRoomFor()
{
    const QTemporaryDir home;
    const QString song = home.filePath(u"one.mid"_qs);
    makeFile(song, smallMidi("Song"));
    const QString stick = m_volumes->filePath(u"STICK"_qs);
    QVERIFY(QDir().mkdir(stick));
    const SmallDisk disk(stick, SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    constexpr int pages = 4; // more than the song needs
    makeFile(stick + u"/filler"_qs,
             QByteArray(freeSpace(stick) - pages * SmallDisk::pageSize, 'x'));
    ScriptedRun run(RunReport::Operation::Transfer);
    Transfer transfer({song}, stick);
    QCOMPARE(transfer.run(run), Transfer::Outcome::Failed);
    QVERIFY(!transfer.shortage().isEmpty());
    QVERIFY(!QFile::exists(stick + u"/songs/one.mid"_qs));
}

/// The answers are No to two songs that have the names of others, and Yes to the last one.
void TestTransfer::findsTheSongsThatAreThere()
{
    const QTemporaryDir home;
    const QString stick = m_volumes->filePath(u"STICK"_qs);
    makeFile(stick + u"/songs/same.mid"_qs, smallMidi("Same"));
    makeFile(stick + u"/songs/other.mid"_qs, smallMidi("Othe1"));
    QStringList files;
    for (const auto &[name, title] :
         {std::pair(u"1/twice.mid"_qs, "First"), //
          std::pair(u"same.mid"_qs, "Same"), std::pair(u"other.mid"_qs, "Othe2"),
          std::pair(u"2/twice.mid"_qs, "Second")}) {
        files.append(home.filePath(name));
        makeFile(files.constLast(), smallMidi(title));
    }
    files.insert(1, home.filePath(u"missing.mid"_qs));
    ScriptedRun run(RunReport::Operation::Transfer);
    run.answers = {Run::Answer::No, Run::Answer::No, Run::Answer::Yes};
    Transfer transfer(files, stick);
    QCOMPARE(transfer.placesThere(run), QStringList());
    QCOMPARE(transfer.run(run), Transfer::Outcome::Failed);
    run.stages.clear();
    run.steps.clear();
    QCOMPARE(transfer.placesThere(run),
             QStringList({QString(), QString(), stick + u"/songs/same.mid"_qs, QString(),
                          stick + u"/songs/twice.mid"_qs}));
    QCOMPARE(run.stages, QStringList(u"Trasferimento"_qs));
    QCOMPARE(run.steps, QList<int>({1, 2, 3}));
}

void TestTransfer::comparesNothingAfterAnInterruption()
{
    const QTemporaryDir home;
    const QString stick = m_volumes->filePath(u"STICK"_qs);
    QStringList files;
    for (const QString &name : {u"one.mid"_qs, u"two.mid"_qs, u"new.mid"_qs}) {
        files.append(home.filePath(name));
        makeFile(files.constLast(), smallMidi("Song"));
        if (name != u"new.mid"_qs)
            makeFile(stick + u"/songs/"_qs + name, smallMidi("Song"));
    }
    ScriptedRun run(RunReport::Operation::Transfer);
    Transfer transfer(files, stick);
    QCOMPARE(transfer.run(run), Transfer::Outcome::Done);
    run.onEvents = [&run] { run.isStopped = true; };
    const int rounds = run.eventRounds;
    QCOMPARE(transfer.placesThere(run),
             QStringList({QString(), QString(), stick + u"/songs/new.mid"_qs}));
    QVERIFY(run.eventRounds > rounds);
}

void TestTransfer::findsSongsThatTheIndexRenames()
{
    const QTemporaryDir home;
    const QString stick = m_volumes->filePath(u"STICK"_qs);
    const QString song = home.filePath(u"A song with a long name.mid"_qs);
    makeFile(song, smallMidi("Song"));
    QVERIFY(QDir().mkdir(stick));
    ScriptedRun run(RunReport::Operation::Transfer);
    run.answers = {Run::Answer::Yes};
    Transfer transfer({song}, stick);
    QCOMPARE(transfer.run(run), Transfer::Outcome::Done);
    const QStringList names = QDir(stick + u"/songs"_qs).entryList(QDir::Files);
    QCOMPARE(names.size(), 1);
    QVERIFY(names.constFirst() != u"A song with a long name.mid"_qs);
    QCOMPARE(transfer.placesThere(run), QStringList(stick + u"/songs/"_qs + names.constFirst()));
}

BRISEL_TEST(QCoreApplication, TestTransfer)
#include "tst_transfer.moc"
