#include "library/transferplan.h"

#include "base/filefailure.h"
#include "base/folderlock.h"
#include "base/freespace.h"
#include "index/memoryreasons.h"
#include "library/filecopier.h"
#include "tests/base/diskkind.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/smallsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace brisel;

using PlanOutcome = TransferPlan::Outcome;

class TestTransferPlan : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void findsWhatEachSongWouldDo();
    void writesNothing();
    void givesTheReasonsOfTheCopies();
    void refusesASongThatWasPickedToo();
    void followsTheTicksOfSongsOfOneName();
    void comparesNamesAsTheMemoryDoes();
    void hasSomethingToDoForMissingGraphics();
    void showsTheNamesOfLongFolders();
    void givesFreeNumbersToTickedSongsOnly();
    void countsTheRoom();
    void plansNothingOnAWriteProtectedMemory();
    void endsWhenTheMemoryIsPulled();
    void endsWhenInterrupted();
    void refusesFoldersAsTheTransferDoes();
    void copiesWhatIsTickedWithoutQuestions();
    void asksAboutWhatHasChangedSince();
    void copiesNothingToAnotherMemory();
    void asksForOtherLongNames();
    void measuresTheFirstLot();

private:
    QString home(const QString &name) const { return m_home->filePath(name); }
    QString stick(const QString &name = {}) const
    {
        return m_volumes->filePath(name.isEmpty() ? u"STICK"_qs : u"STICK/"_qs + name);
    }
    QString song(const QString &name, const QByteArray &title = "Song") const
    {
        makeFile(home(name), smallMidi(title));
        return home(name);
    }
    QList<PlanOutcome> outcomes() const
    {
        QList<PlanOutcome> all;
        for (const TransferPlan::Song &planned : m_plan->songs())
            all.append(planned.outcome);
        return all;
    }
    Transfer::Outcome makePlan(const QStringList &files, const QString &chosen)
    {
        m_plan = std::make_unique<TransferPlan>(files, chosen);
        return m_plan->run(*m_run);
    }
    Transfer::Outcome makePlan(const QStringList &files) { return makePlan(files, stick()); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<QTemporaryDir> m_volumes;
    std::unique_ptr<ScriptedRun> m_run;
    std::unique_ptr<TransferPlan> m_plan;
};

void TestTransferPlan::init()
{
    m_plan.reset();
    m_home = std::make_unique<QTemporaryDir>();
    m_volumes = std::make_unique<QTemporaryDir>();
    qputenv("BRISEL_VOLUMES", QFile::encodeName(m_volumes->path()));
    QVERIFY(QDir().mkdir(stick()));
    m_run = std::make_unique<ScriptedRun>(RunReport::Operation::Transfer);
}

void TestTransferPlan::findsWhatEachSongWouldDo()
{
    makeFile(stick(u"songs/same.mid"_qs), smallMidi("Song"));
    makeFile(stick(u"songs/other.mid"_qs), smallMidi("Else"));
    QCOMPARE(makePlan({song(u"new.mid"_qs), song(u"same.mid"_qs), song(u"other.mid"_qs),
                       song(u"b/new.mid"_qs), home(u"missing.mid"_qs)}),
             Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::New, PlanOutcome::Same, PlanOutcome::Replaces,
                                PlanOutcome::ReplacesSong, PlanOutcome::Failed}));
    QCOMPARE(m_plan->songs().at(0).place, stick(u"songs/new.mid"_qs));
    QCOMPARE(m_plan->songs().at(2).there, fileState(stick(u"songs/other.mid"_qs)));
    QCOMPARE(m_plan->songs().at(3).replaced, 0);
    QCOMPARE(m_plan->ticked(), 3);
    QVERIFY(!m_plan->isTicked(1) && !m_plan->isTickable(1));
    QVERIFY(!m_plan->isTicked(4) && !m_plan->isTickable(4));
    QCOMPARE(m_plan->count(PlanOutcome::New), 1);
    QCOMPARE(m_plan->count(PlanOutcome::NoRoom), 0);
    QCOMPARE(m_plan->bytes(), 3 * smallMidi("Song").size());
    QCOMPARE(m_run->steps, QList({1, 2, 3, 4, 5}));
    QVERIFY(m_run->report().isUntouched());
}

void TestTransferPlan::writesNothing()
{
    QCOMPARE(makePlan({song(u"A long name.mid"_qs)}), Transfer::Outcome::Done);
    QCOMPARE(m_plan->songs().first().newPath, stick(u"songs/Alongn-1.mid"_qs));
    QVERIFY(QDir(stick()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void TestTransferPlan::givesTheReasonsOfTheCopies()
{
    QVERIFY(QDir().mkpath(stick(u"songs/folder.mid"_qs)));
    QVERIFY(QDir().mkpath(home(u"nofile.mid"_qs)));
    QCOMPARE(makePlan({home(u"missing.mid"_qs), home(u"nofile.mid"_qs), song(u"folder.mid"_qs)}),
             Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList<PlanOutcome>(3, PlanOutcome::Failed));
    QCOMPARE(m_plan->songs().at(0).failure, FileReason::missing);
    QCOMPARE(m_plan->songs().at(1).failure, FileReason::notAFile);
    QCOMPARE(m_plan->songs().at(2).failure, FileReason::unwritable);
    QCOMPARE(m_plan->ticked(), 0);
    m_plan->tick({0, 1, 2}, true);
    QCOMPARE(m_plan->copies().files, QStringList());
}

void TestTransferPlan::refusesASongThatWasPickedToo()
{
    makeFile(stick(u"songs/one.mid"_qs), smallMidi("Else"));
    QCOMPARE(makePlan({song(u"one.mid"_qs), stick(u"songs/one.mid"_qs)}), Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::Failed, PlanOutcome::Same}));
    QCOMPARE(m_plan->songs().at(0).failure, FileCopier::pickedToo);
}

void TestTransferPlan::followsTheTicksOfSongsOfOneName()
{
    makeFile(stick(u"songs/one.mid"_qs), smallMidi("Song"));
    QCOMPARE(makePlan({song(u"a/one.mid"_qs, "Else"), song(u"b/one.mid"_qs)}),
             Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::Replaces, PlanOutcome::ReplacesSong}));
    QCOMPARE(m_plan->ticked(), 2);
    m_plan->tick({0}, false);
    QCOMPARE(outcomes(), QList({PlanOutcome::Replaces, PlanOutcome::Same}));
    QCOMPARE(m_plan->ticked(), 0);
    m_plan->tick({0}, true);
    QCOMPARE(m_plan->copies().files.size(), 2);
}

void TestTransferPlan::comparesNamesAsTheMemoryDoes()
{
    const QStringList files{song(u"a/one.mid"_qs), song(u"b/ONE.MID"_qs)};
    QCOMPARE(makePlan(files), Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::New, PlanOutcome::New}));
    constexpr unsigned fat = 0x4D44;
    const DiskKind kind(fat);
    QCOMPARE(makePlan(files), Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::New, PlanOutcome::ReplacesSong}));
}

void TestTransferPlan::hasSomethingToDoForMissingGraphics()
{
    const QByteArray content = Sample::mp3Song("Song", "Artist", "Genre");
    makeFile(home(u"one.mp3"_qs), content);
    makeFile(home(u"one.cdg"_qs), "graphics");
    makeFile(stick(u"songs/one.mp3"_qs), content);
    QCOMPARE(makePlan({home(u"one.mp3"_qs)}), Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::Replaces}));
    QCOMPARE(m_plan->bytes(), content.size() + 8);
    makeFile(stick(u"songs/one.cdg"_qs), "graphics");
    QCOMPARE(makePlan({home(u"one.mp3"_qs)}), Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::Same}));
}

void TestTransferPlan::showsTheNamesOfLongFolders()
{
    QVERIFY(QDir().mkpath(stick(u"My favourite songs/Pop"_qs)));
    makeFile(stick(u"My favourite papers/a text.txt"_qs), "no song");
    QCOMPARE(makePlan({song(u"A long name.mid"_qs)}, stick(u"My favourite songs/Pop"_qs)),
             Transfer::Outcome::Done);
    QCOMPARE(m_plan->songs().first().newPath, stick(u"Myfavo-1/Pop/Alongn-1.mid"_qs));
    const PlannedCopies copies = m_plan->copies();
    QCOMPARE(copies.renames.size(), 2);
    QCOMPARE(copies.renames.first().from, stick(u"My favourite songs"_qs));
    QCOMPARE(copies.renames.last().from, stick(u"Myfavo-1/Pop/A long name.mid"_qs));
}

void TestTransferPlan::givesFreeNumbersToTickedSongsOnly()
{
    makeFile(stick(u"songs/Alongn-1.mid"_qs), smallMidi("Else"));
    QCOMPARE(makePlan({song(u"A long name.mid"_qs), song(u"A long nose.mid"_qs)}),
             Transfer::Outcome::Done);
    QCOMPARE(m_plan->songs().at(1).newPath, stick(u"songs/Alongn-3.mid"_qs));
    m_plan->tick({0}, false);
    QCOMPARE(m_plan->songs().at(1).newPath, stick(u"songs/Alongn-2.mid"_qs));
    QCOMPARE(m_plan->songs().at(0).newPath, stick(u"songs/A long name.mid"_qs));
}

void TestTransferPlan::countsTheRoom()
{
    const SmallDisk disk(stick(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    constexpr int pages = 40; // the index keeps about 25 of them free
    makeFile(stick(u"filler"_qs),
             QByteArray(freeSpace(stick()) - pages * SmallDisk::pageSize, 'x'));
    makeFile(home(u"large.mid"_qs), QByteArray(30 * SmallDisk::pageSize, 'x'));
    QCOMPARE(makePlan({song(u"a.mid"_qs), home(u"large.mid"_qs), song(u"b.mid"_qs)}),
             Transfer::Outcome::Done);
    QCOMPARE(outcomes(), QList({PlanOutcome::New, PlanOutcome::NoRoom, PlanOutcome::New}));
    QVERIFY(m_plan->room().shortage().startsWith(u"Spazio insufficiente: servono "_qs));
    QCOMPARE(m_plan->room().free(), pages * SmallDisk::pageSize);
    // The transfer finds the same.
    Transfer all(*m_plan);
    QCOMPARE(all.run(*m_run), Transfer::Outcome::Failed);
    QCOMPARE(all.shortage(), m_plan->room().shortage());
    m_plan->tick({1}, false);
    QCOMPARE(outcomes(), QList({PlanOutcome::New, PlanOutcome::New, PlanOutcome::New}));
    QCOMPARE(m_plan->room().shortage(), QString());
    QCOMPARE(Transfer(*m_plan).run(*m_run), Transfer::Outcome::Done);
}

void TestTransferPlan::plansNothingOnAWriteProtectedMemory()
{
    const SmallDisk disk(stick(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    makeFile(stick(u"songs/other.mid"_qs), smallMidi("Else"));
    const QStringList files{song(u"new.mid"_qs), song(u"other.mid"_qs)};
    QVERIFY(disk.setReadOnly(true));
    QCOMPARE(makePlan(files), Transfer::Outcome::Done);
    QCOMPARE(m_plan->count(PlanOutcome::Failed), 2);
    QCOMPARE(m_plan->songs().at(0).failure, FileReason::writeProtected);
    QCOMPARE(m_plan->songs().at(1).failure, FileReason::writeProtected);
    QVERIFY(disk.setReadOnly(false));
    QVERIFY(QDir(stick(u"songs"_qs)).removeRecursively());
    QVERIFY(disk.setReadOnly(true));
    QCOMPARE(makePlan(files), Transfer::Outcome::NoSongsFolder);
}

void TestTransferPlan::endsWhenTheMemoryIsPulled()
{
    std::optional<SmallDisk> disk(std::in_place, stick(), SmallDisk::memorySize);
    if (!disk->isMounted())
        QSKIP("only root can mount a file system");
    m_run->onStep = [&disk](int) { disk.reset(); };
    QCOMPARE(makePlan({song(u"a.mid"_qs), song(u"b.mid"_qs)}), Transfer::Outcome::Failed);
    QVERIFY2(m_run->report().text().contains(MemoryReason::gone.text()),
             qPrintable(m_run->report().text()));
    QCOMPARE(m_run->steps.size(), 1);
}

void TestTransferPlan::endsWhenInterrupted()
{
    m_run->onStep = [this](int) { m_run->isStopped = true; };
    QCOMPARE(makePlan({song(u"a.mid"_qs), song(u"b.mid"_qs)}), Transfer::Outcome::Failed);
    QCOMPARE(m_run->steps.size(), 1);
    QVERIFY(m_run->report().isUntouched());
}

void TestTransferPlan::refusesFoldersAsTheTransferDoes()
{
    QVERIFY(QDir().mkdir(stick(u"sfx"_qs)));
    QCOMPARE(makePlan({}, stick(u"sfx"_qs)), Transfer::Outcome::ReservedFolder);
    QCOMPARE(makePlan({}, u"/Users/me/Music"_qs), Transfer::Outcome::SystemDisk);
    const FolderLock lock(stick(), FolderLock::Kind::Exclusive);
    QCOMPARE(makePlan({}), Transfer::Outcome::Done);
    QCOMPARE(m_plan->ticked(), 0);
}

void TestTransferPlan::copiesWhatIsTickedWithoutQuestions()
{
    makeFile(stick(u"songs/other.mid"_qs), smallMidi("Else"));
    makeFile(stick(u"songs/third.mid"_qs), smallMidi("Else"));
    QCOMPARE(makePlan({song(u"A long name.mid"_qs), song(u"other.mid"_qs), song(u"third.mid"_qs),
                       song(u"b/other.mid"_qs, "Last")}),
             Transfer::Outcome::Done);
    m_plan->tick({2}, false);
    QCOMPARE(Transfer(*m_plan).run(*m_run), Transfer::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QVERIFY(QFile::exists(stick(u"songs/Alongn-1.mid"_qs)));
    QCOMPARE(fileContent(stick(u"songs/other.mid"_qs)), smallMidi("Last"));
    QCOMPARE(fileContent(stick(u"songs/third.mid"_qs)), smallMidi("Else"));
}

void TestTransferPlan::asksAboutWhatHasChangedSince()
{
    makeFile(stick(u"songs/other.mid"_qs), smallMidi("Else"));
    QCOMPARE(makePlan({song(u"new.mid"_qs), song(u"other.mid"_qs)}), Transfer::Outcome::Done);
    makeFile(stick(u"songs/new.mid"_qs), smallMidi("Appeared"));
    makeFile(stick(u"songs/other.mid"_qs), smallMidi("Changed"));
    QCOMPARE(Transfer(*m_plan).run(*m_run), Transfer::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList({stick(u"songs/new.mid"_qs), stick(u"songs/other.mid"_qs)}));
    QCOMPARE(fileContent(stick(u"songs/new.mid"_qs)), smallMidi("Appeared"));
}

void TestTransferPlan::copiesNothingToAnotherMemory()
{
    QCOMPARE(makePlan({song(u"new.mid"_qs)}), Transfer::Outcome::Done);
    QVERIFY(QDir().rename(stick(), m_volumes->filePath(u"PULLED"_qs)));
    QVERIFY(QDir().mkdir(stick()));
    QCOMPARE(Transfer(*m_plan).run(*m_run), Transfer::Outcome::Failed);
    QVERIFY2(m_run->report().text().contains(MemoryReason::gone.text()),
             qPrintable(m_run->report().text()));
    QVERIFY(QDir(stick()).isEmpty());
}

void TestTransferPlan::asksForOtherLongNames()
{
    QCOMPARE(makePlan({song(u"A long name.mid"_qs)}), Transfer::Outcome::Done);
    makeFile(stick(u"songs/A long nail.mid"_qs), smallMidi("Else"));
    m_run->answerTo = [](const QString &, const QString &) { return 0; };
    QCOMPARE(Transfer(*m_plan).run(*m_run), Transfer::Outcome::Done);
    // It takes the name that the plan had for the song.
    QCOMPARE(m_run->asked,
             QStringList({stick(u"songs/A long nail.mid"_qs), stick(u"songs/A long name.mid"_qs)}));
}

void TestTransferPlan::measuresTheFirstLot()
{
    Transfer small({song(u"small.mid"_qs)}, stick());
    QCOMPARE(small.run(*m_run), Transfer::Outcome::Done);
    QCOMPARE(small.speed(), 0); // its flush takes most of the time
    makeFile(home(u"large.mid"_qs), smallMidi("Song") + QByteArray(1 << 20, 'x'));
    Transfer large({home(u"large.mid"_qs)}, stick());
    QCOMPARE(large.run(*m_run), Transfer::Outcome::Done);
    QVERIFY(large.speed() > 0);
    Transfer again({home(u"large.mid"_qs)}, stick());
    m_run->answers = {Run::Answer::No};
    QCOMPARE(again.run(*m_run), Transfer::Outcome::Done);
    QCOMPARE(again.speed(), 0);
}

BRISEL_TEST(QCoreApplication, TestTransferPlan)
#include "tst_transferplan.moc"
