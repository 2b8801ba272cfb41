#include "library/synchroniser.h"
#include "library/syncpreview.h"

#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using Field = SongFields::Field;

class TestSyncPlan : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup()
    {
        m_run.reset();
        m_preview.reset();
        m_library.reset();
    }
    void writesTheRowsOfThePlanOnly();
    void writesChosenFieldsOnly();
    void writesTheRecordThatTheUserChose();
    void asksNothing();
    void leavesAFileThatWasChangedSinceThePreview();
    void leavesASongThatLooksOtherThanSeen();
    void leavesAFileThatIsChangedDuringTheRun();
    void writesBothRowsOfOneFile();
    void reportsRowsOfThePlanThatWereNotReached();
    void writesNothingForAnEmptyPlan();

private:
    PreviewSong seen(int row)
    {
        m_preview = std::make_unique<SyncPreview>(m_library->model(), m_library->database());
        Run run;
        if (m_preview->run(run) != SyncPreview::Outcome::Done)
            qFatal("interrupted");
        return m_preview->songs().at(row);
    }
    /// Writes \a plan; the publisher question is on.
    Synchroniser::Outcome write(const SyncPlan &plan)
    {
        Synchroniser synchroniser(m_library->model(), m_library->database(), true);
        synchroniser.setPlan(plan);
        return synchroniser.run(*m_run);
    }
    QString reported() const { return m_run->report().text(); }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<SyncPreview> m_preview;
    std::unique_ptr<ScriptedRun> m_run;
    QString m_one;
    QString m_two;
    QString m_three;
};

void TestSyncPlan::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{QStringLiteral("ONE"), QStringLiteral("ONE LOVE")},
                                    {QStringLiteral("TWO"), QStringLiteral("TWO SONGS")},
                                    {QStringLiteral("THREE"), QStringLiteral("THREE KINGS")}});
    m_run = std::make_unique<ScriptedRun>();
    m_one = m_library->add(QStringLiteral("one.mid"), Sample::midi("One", true));
    m_two = m_library->add(QStringLiteral("two.mid"), Sample::midi("Two", true));
    m_three = m_library->add(QStringLiteral("three.mid"), Sample::midi("Three", false));
}

void TestSyncPlan::writesTheRowsOfThePlanOnly()
{
    const QByteArray before = fileContent(m_one);
    SyncPlan plan;
    plan.add(seen(2), SongFields::all());
    plan.add(seen(1), SongFields::all());
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QCOMPARE(m_library->statuses(), QStringLiteral("011"));
    QCOMPARE(fileContent(m_one), before);
    QCOMPARE(Sample::infoOf(m_two).title, QStringLiteral("TWO SONGS"));
    QCOMPARE(m_library->shown(2, QStringLiteral("title")), QStringLiteral("THREE KINGS"));
    QCOMPARE(m_run->report().counted(RunReport::Success::Updated), 2);
    QCOMPARE(m_run->report().failed() + m_run->report().skipped(), 0);
    QCOMPARE(m_run->steps, QList<int>({1, 2}));
}

void TestSyncPlan::writesChosenFieldsOnly()
{
    SyncPlan plan;
    SongFields fields = SongFields::all();
    fields.remove(Field::Title);
    fields.remove(Field::Genre);
    plan.add(seen(0), fields);
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    const SongInfo info = Sample::infoOf(m_one);
    QCOMPARE(info.title, QStringLiteral("One"));
    QCOMPARE(info.genre, QString());
    QCOMPARE(info.artist, QStringLiteral("ARTIST ALT"));
    QCOMPARE(m_library->shown(0, QStringLiteral("title")), QStringLiteral("One"));
    QCOMPARE(m_library->statuses(), QStringLiteral("100"));
}

void TestSyncPlan::writesTheRecordThatTheUserChose()
{
    auto chosen = std::make_shared<SongsDbRecord>();
    chosen->title = QStringLiteral("ONE OF MINE");
    SyncPlan plan;
    seen(0);
    plan.add(m_preview->matched(0, chosen), SongFields::all());
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QCOMPARE(Sample::infoOf(m_one).title, QStringLiteral("ONE OF MINE"));
}

void TestSyncPlan::asksNothing()
{
    SyncPlan plan;
    plan.add(seen(2), SongFields::all());
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QVERIFY(m_run->asked.isEmpty());
    QCOMPARE(Sample::infoOf(m_three).title, QStringLiteral("THREE KINGS"));
}

void TestSyncPlan::leavesAFileThatWasChangedSinceThePreview()
{
    SyncPlan plan;
    plan.add(seen(0), SongFields::all());
    plan.add(seen(1), SongFields::all());
    const QByteArray others = Sample::midi("One of another program", true);
    makeFile(m_one, others);
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QCOMPARE(fileContent(m_one), others);
    QCOMPARE(m_library->statuses(), QStringLiteral("310"));
    QCOMPARE(m_run->report().failed(), 1);
    QVERIFY(reported().contains(
        QStringLiteral("Non modificata (il file è cambiato dopo l'anteprima): ") + m_one));
}

void TestSyncPlan::leavesASongThatLooksOtherThanSeen()
{
    PreviewSong song = seen(0);
    song.changes.first().before = QStringLiteral("Other");
    SyncPlan plan;
    plan.add(song, SongFields::all());
    const QByteArray before = fileContent(m_one);
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QCOMPARE(fileContent(m_one), before);
    QVERIFY(reported().contains(Synchroniser::changedAfterPreview.text()));
}

void TestSyncPlan::leavesAFileThatIsChangedDuringTheRun()
{
    SyncPlan plan;
    plan.add(seen(0), SongFields::all());
    plan.add(seen(1), SongFields::all());
    const QByteArray others = Sample::midi("One of another program", true);
    m_run->onStep = [&](int done) {
        if (done == 1) // staged, but not yet in its place
            makeFile(m_one, others);
    };
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QCOMPARE(fileContent(m_one), others);
    QCOMPARE(m_library->statuses(), QStringLiteral("310"));
    QVERIFY(reported().contains(Synchroniser::changedAfterPreview.text()));
}

void TestSyncPlan::writesBothRowsOfOneFile()
{
    SongInfo again = Sample::infoOf(m_one);
    again.fileName = m_one;
    again.shortName = QStringLiteral("one.mid");
    QVERIFY(m_library->model().addSong(again));
    SyncPlan plan;
    plan.add(seen(0), SongFields::all());
    plan.add(seen(3), SongFields::all());
    QCOMPARE(write(plan), Synchroniser::Outcome::Done);
    QCOMPARE(m_library->statuses(), QStringLiteral("1001"));
    QCOMPARE(m_library->shown(3, QStringLiteral("title")), QStringLiteral("ONE LOVE"));
    QCOMPARE(m_run->report().failed() + m_run->report().skipped(), 0);
}

void TestSyncPlan::reportsRowsOfThePlanThatWereNotReached()
{
    SyncPlan plan;
    plan.add(seen(0), SongFields::all());
    plan.add(seen(2), SongFields::all());
    m_run->onStep = [this](int) { m_run->isStopped = true; };
    QCOMPARE(write(plan), Synchroniser::Outcome::Interrupted);
    QCOMPARE(m_library->statuses(), QStringLiteral("100"));
    QCOMPARE(m_run->report().skipped(), 1);
    QVERIFY(reported().contains(m_three) && !reported().contains(m_two));
}

void TestSyncPlan::writesNothingForAnEmptyPlan()
{
    QVERIFY(SyncPlan().isEmpty());
    QCOMPARE(write(SyncPlan()), Synchroniser::Outcome::Done);
    QCOMPARE(m_library->statuses(), QStringLiteral("000"));
    QVERIFY(m_run->report().isUntouched());
}

BRISEL_TEST(QCoreApplication, TestSyncPlan)

#include "tst_syncplan.moc"
