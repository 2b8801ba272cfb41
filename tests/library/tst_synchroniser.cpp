#include "base/filefailure.h"
#include "library/synchroniser.h"

#include "tests/library/filesizelimit.h"
#include "tests/library/samplelibrary.h"
#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

static constexpr Run::Answer yes = Run::Answer::Yes;

class TestSynchroniser : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup()
    {
        m_run.reset();
        m_library.reset();
    }
    void rewritesFoundSongAndReloadsItsRow();
    void findsByTitleWhenTheNamesMiss();
    void looksUpMidiExtensionWhole();
    void logsEachRow();
    void logsAMissAndLeavesTheFile();
    void failsUnreadableFile();
    void answersOfTheQuestion_data();
    void answersOfTheQuestion();
    void savesChangedSongsBeforeTheNextQuestion();
    void unknownAnswerChangesNothing();
    void asksNothingWhenSwitchedOff();
    void neverAsksForThePublishersSongs();
    void visitsEveryRowOnce_data();
    void visitsEveryRowOnce();
    void cancelTakesEffectAtTheNextRow();
    void processesEventsAfterEveryRow();
    void endsWithTheProgram();
    void answerGivenByTheEndOfTheProgramChangesNothing();
    void failedSaveShowsWhatTheFileHolds();
    void vanishedFileKeepsItsRow();
    void writesNothingOverASongThatBecameAnother();

private:
    bool synchronise(bool ask = true, const QList<Run::Answer> &answers = {})
    {
        m_run->answers = answers;
        return Synchroniser(m_library->model(), m_library->database(), ask).run(*m_run) ==
               Synchroniser::Outcome::Done;
    }
    void addThree(bool published)
    {
        for (const char *name : {"ONE", "TWO", "THREE"})
            m_library->add(QString::fromLatin1(name) + u".mid"_qs, Sample::midi(name, published));
    }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<ScriptedRun> m_run;
};

void TestSynchroniser::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_qs, u"ONE LOVE"_qs, u"X"_qs, u"1;Intro;9;Verse;"_qs},
                                    {u"TWO"_qs, u"TWO SONGS"_qs},
                                    {u"THREE"_qs, u"THREE KINGS"_qs},
                                    {u"DOUBLE1"_qs, u"DOUBLE"_qs},
                                    {u"DOUBLE2"_qs, u"DOUBLE"_qs}});
    m_run = std::make_unique<ScriptedRun>();
}

void TestSynchroniser::rewritesFoundSongAndReloadsItsRow()
{
    const QString path = m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    QVERIFY(synchronise());
    const SongInfo info = Sample::infoOf(path);
    QCOMPARE(info.title, u"ONE LOVE"_qs);
    QCOMPARE(info.artist, u"X ALT"_qs);
    QCOMPARE(info.genre, u"FOLK"_qs);
    QCOMPARE(info.author, u"AUTHOR"_qs);
    QCOMPARE(info.length, 185);
    QCOMPARE(info.userBpm, 120);
    QCOMPARE(info.key, u"A-"_qs);
    QCOMPARE(info.markers.size(), 2);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"ONE LOVE"_qs);
    QCOMPARE(m_library->shown(0, u"length"_qs), u"03:05"_qs);
    QCOMPARE(m_library->shown(0, u"key"_qs), u"A-"_qs);
    QCOMPARE(m_library->statuses(), u"1"_qs);
}

void TestSynchroniser::findsByTitleWhenTheNamesMiss()
{
    m_library->add(u"a.mid"_qs, Sample::midi("Two Songs", true));
    m_library->add(u"b.mid"_qs, Sample::midi("Double", true));
    QVERIFY(synchronise());
    QCOMPARE(m_library->statuses(), u"13"_qs);
}

void TestSynchroniser::looksUpMidiExtensionWhole()
{
    m_library->add(u"one.midi"_qs, Sample::midi("x", true));
    QVERIFY(synchronise());
    QCOMPARE(m_library->statuses(), u"3"_qs);
}

void TestSynchroniser::logsEachRow()
{
    const QString path = m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    const LogCapture log;
    QVERIFY(synchronise());
    QCOMPARE(
        log.messages().mid(0, 3),
        QStringList({u"[UPDATE] rowIdx:  0 "_qs, u"[UPDATE] updating file:  \"%1\" "_qs.arg(path),
                     u"Found in DB by:  \"FILENAME: ONE\" "_qs}));
    QVERIFY(log.contains(u"  Title     : \"ONE LOVE\" "_qs));
    QCOMPARE(log.messages().mid(log.messages().size() - 2),
             QStringList({QString(74, u'=') + u' ', u" "_qs}));
}

void TestSynchroniser::logsAMissAndLeavesTheFile()
{
    const QByteArray content = Sample::midi("My Title", true);
    const QString path = m_library->add(u"song.mid"_qs, content);
    const LogCapture log;
    QVERIFY(synchronise());
    QVERIFY(log.contains(u"Record  \"SONG/MY TITLE\" NOT found in DB "_qs));
    QCOMPARE(fileContent(path), content);
    QCOMPARE(m_library->statuses(), u"3"_qs);
}

void TestSynchroniser::failsUnreadableFile()
{
    const QString path = m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    makeFile(path, "no song any more");
    QVERIFY(synchronise());
    QCOMPARE(m_library->statuses(), u"3"_qs);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"One"_qs);
    QCOMPARE(fileContent(path), QByteArray("no song any more"));
}

void TestSynchroniser::answersOfTheQuestion_data()
{
    QTest::addColumn<QList<Run::Answer>>("answers");
    QTest::addColumn<int>("asked");
    QTest::addColumn<QString>("statuses");
    using D = Run::Answer;
    QTest::newRow("Si each time") << QList<D>{D::Yes, D::Yes, D::Yes} << 3 << u"111"_qs;
    QTest::newRow("No each time") << QList<D>{D::No, D::No, D::No} << 3 << u"333"_qs;
    QTest::newRow("Si tutti") << QList<D>{D::YesToAll} << 1 << u"111"_qs;
    QTest::newRow("No tutti") << QList<D>{D::NoToAll} << 1 << u"333"_qs;
    QTest::newRow("No, Si tutti") << QList<D>{D::No, D::YesToAll} << 2 << u"311"_qs;
    QTest::newRow("Si, No tutti") << QList<D>{D::Yes, D::NoToAll} << 2 << u"133"_qs;
}

void TestSynchroniser::answersOfTheQuestion()
{
    addThree(false);
    QFETCH(QList<Run::Answer>, answers);
    QVERIFY(synchronise(true, answers));
    QTEST(int(m_run->asked.size()), "asked");
    QTEST(m_library->statuses(), "statuses");
    QCOMPARE(m_run->asked.first(), m_library->path(u"ONE.mid"_qs));
    const bool changed = m_library->statuses().startsWith(u'1');
    QCOMPARE(Sample::infoOf(m_library->path(u"ONE.mid"_qs)).title,
             changed ? u"ONE LOVE"_qs : u"ONE"_qs);
}

/// The program may be ended while the question waits.
void TestSynchroniser::savesChangedSongsBeforeTheNextQuestion()
{
    addThree(false);
    QStringList titles;
    m_run->onQuestion = [&](const QString &) {
        titles.append(Sample::infoOf(m_library->path(u"ONE.mid"_qs)).title);
    };
    QVERIFY(synchronise(true, {yes, yes, yes}));
    QCOMPARE(titles, QStringList({u"ONE"_qs, u"ONE LOVE"_qs, u"ONE LOVE"_qs}));
}

void TestSynchroniser::unknownAnswerChangesNothing()
{
    addThree(false);
    QVERIFY(synchronise(true, {Run::Answer(-1), Run::Answer(4), Run::Answer(16384)}));
    QCOMPARE(m_library->statuses(), u"333"_qs);
    QCOMPARE(m_run->asked.size(), 3);
}

void TestSynchroniser::asksNothingWhenSwitchedOff()
{
    addThree(false);
    QVERIFY(synchronise(false));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(m_library->statuses(), u"111"_qs);
}

void TestSynchroniser::neverAsksForThePublishersSongs()
{
    addThree(true);
    QVERIFY(synchronise());
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(m_library->statuses(), u"111"_qs);
}

void TestSynchroniser::visitsEveryRowOnce_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<Qt::SortOrder>("order");
    for (const char *column : {"id", "title", "status", "artist"}) {
        QTest::addRow("%s ascending", column) << QString::fromLatin1(column) << Qt::AscendingOrder;
        QTest::addRow("%s descending", column)
            << QString::fromLatin1(column) << Qt::DescendingOrder;
    }
}

void TestSynchroniser::visitsEveryRowOnce()
{
    QFETCH(QString, column);
    QFETCH(Qt::SortOrder, order);
    UserSongsRelTableModel &model = m_library->model();
    QMap<QString, int> wanted;
    for (int i = 0; i < 60; ++i) {
        // Every third is found, and gets another title, artist and status.
        const bool known = i % 3 == 0;
        const QByteArray title = known ? "TWO SONGS" : "unknown " + QByteArray::number(97 - i);
        const QString path =
            m_library->add(u"%1.mid"_qs.arg(i, 2, 10, QChar(u'0')), Sample::midi(title, true));
        wanted.insert(path, known ? Database::Updated : Database::Failed);
        if (i % 7 == 0)
            model.setStatus(i, Database::Edited);
    }
    model.sort(model.fieldIndex(column), order);
    model.setSortingLocked(true);
    const LogCapture log;
    QVERIFY(synchronise());
    model.setSortingLocked(false);
    QCOMPARE(model.goodRowCount(), 60);
    for (int row = 0; row < 60; ++row) {
        QCOMPARE(model.status(row), wanted.value(model.fileName(row)));
        QCOMPARE(
            log.messages().count(u"[UPDATE] updating file:  \"%1\" "_qs.arg(model.fileName(row))),
            1);
    }
}

void TestSynchroniser::cancelTakesEffectAtTheNextRow()
{
    addThree(true);
    m_run->onEvents = [this] { m_run->isStopped = m_run->steps.last() == 2; };
    QVERIFY(!synchronise());
    QCOMPARE(m_library->statuses(), u"110"_qs);
    QCOMPARE(Sample::infoOf(m_library->path(u"THREE.mid"_qs)).title, u"THREE"_qs);
}

void TestSynchroniser::processesEventsAfterEveryRow()
{
    addThree(true);
    QVERIFY(synchronise());
    QCOMPARE(m_run->steps, QList<int>({1, 2, 3}));
    QCOMPARE(m_run->eventRounds, 3);
}

void TestSynchroniser::endsWithTheProgram()
{
    addThree(false);
    m_run->onEvents = [this] {
        RunGuard::requestEnd();
        m_run->isStopped = true;
    };
    QVERIFY(!synchronise(true, {yes, yes}));
    QCOMPARE(m_run->asked.size(), 1);
    QCOMPARE(m_library->statuses(), u"100"_qs);
}

void TestSynchroniser::answerGivenByTheEndOfTheProgramChangesNothing()
{
    addThree(false);
    m_run->onQuestion = [](const QString &) { RunGuard::requestEnd(); };
    QVERIFY(!synchronise(true, {yes}));
    QCOMPARE(m_library->statuses(), u"000"_qs);
    QCOMPARE(Sample::infoOf(m_library->path(u"ONE.mid"_qs)).title, u"ONE"_qs);
}

void TestSynchroniser::failedSaveShowsWhatTheFileHolds()
{
    const QByteArray content = Sample::midi("One", true);
    const QString path = m_library->add(u"one.mid"_qs, content);
    {
        const FileSizeLimit limit(20);
        QVERIFY(synchronise());
    }
    QCOMPARE(fileContent(path), content);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"One"_qs);
    QCOMPARE(m_library->statuses(), u"1"_qs);
}

void TestSynchroniser::vanishedFileKeepsItsRow()
{
    m_library->add(u"sub/one.mid"_qs, Sample::midi("One", false));
    m_run->onQuestion = [this](const QString &) {
        QDir(m_library->path(u"sub"_qs)).removeRecursively();
    };
    QVERIFY(synchronise(true, {yes}));
    QCOMPARE(m_library->statuses(), u"3"_qs);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"One"_qs);
}

void TestSynchroniser::writesNothingOverASongThatBecameAnother()
{
    const QString path = m_library->add(u"ONE.mid"_qs, Sample::midi("ONE", false));
    QByteArray other = Sample::midi("Another song", false);
    other.replace(QByteArray::fromHex("3c40"), QByteArray::fromHex("4540"));
    m_run->onQuestion = [&](const QString &) { makeFile(path, other); };
    QVERIFY(synchronise(true, {yes}));
    QCOMPARE(fileContent(path), other);
    QCOMPARE(m_run->report().failed(), 1);
    QVERIFY(m_run->report().text().contains(FileReason::changed.text()));
}

BRISEL_TEST(QCoreApplication, TestSynchroniser)
#include "tst_synchroniser.moc"
