#include "history/historyrecorder.h"
#include "library/manualedit.h"
#include "library/synchroniser.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// What runs write into the history, and that they need none.
class TestHistoryRuns : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_library.reset(); }
    void keepsNothingOfUnchangedSongs();
    void keepsTheReport();
    void goesOnWithoutAHistory();
    void dropsSongsThatAnotherProgramChanged();

private:
    QString historyPath() const { return m_library->path(u"data/history.sqlite"_s); }
    void synchronise(ScriptedRun &run, History &history);

    std::unique_ptr<Sample::Library> m_library;
    QString m_song;
};

void TestHistoryRuns::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
    m_song = m_library->add(u"one.mid"_s, Sample::midi("One", true));
}

void TestHistoryRuns::synchronise(ScriptedRun &run, History &history)
{
    HistoryRecorder recorder(history, RunKind::Synchronisation);
    Synchroniser synchroniser(m_library->model(), m_library->database(), false);
    synchroniser.setRecorder(&recorder);
    QCOMPARE(synchroniser.run(run), Synchroniser::Outcome::Done);
}

void TestHistoryRuns::keepsNothingOfUnchangedSongs()
{
    History history(historyPath());
    int changes = 0;
    for (int i = 0; i < 5; ++i) {
        const QByteArray before = fileContent(m_song);
        ScriptedRun run;
        synchronise(run, history);
        QCOMPARE(run.report().counted(RunReport::Success::Updated), 1);
        changes += fileContent(m_song) == before ? 0 : 1;
        QCOMPARE(history.runs().size(), changes);
    }
    QVERIFY(changes > 0 && changes < 5);
}

void TestHistoryRuns::keepsTheReport()
{
    History history(historyPath());
    ScriptedRun run(RunReport::Operation::Synchronisation);
    synchronise(run, history);
    QCOMPARE(history.report(history.runs().value(0).id), run.report().text());
}

void TestHistoryRuns::goesOnWithoutAHistory()
{
    QVERIFY(QDir().mkpath(historyPath()));
    const QByteArray before = fileContent(m_song);
    History history(historyPath());
    ScriptedRun run;
    synchronise(run, history);
    QVERIFY(fileContent(m_song) != before);
    QCOMPARE(m_library->statuses(), u"1"_s);
    QCOMPARE(run.report().failed(), 0);
    QVERIFY(run.report().text().contains(
        u"Non tutte le modifiche sono nella cronologia: non è un file"_s));
}

/// The song is changed when it waits in the lot: its entry keeps what was there at the end.
void TestHistoryRuns::dropsSongsThatAnotherProgramChanged()
{
    const QByteArray newer = Sample::midi("Newer", true);
    History history(historyPath());
    ScriptedRun run;
    run.onEvents = [&] { makeFile(m_song, newer); };
    synchronise(run, history);
    const QList<HistorySong> songs = history.songs(history.runs().value(0).id);
    QVERIFY2(songs.size() <= 1, "an entry was left of the song that was not replaced");
    for (const HistorySong &song : songs)
        QVERIFY(history.oldBytes(song.id) == newer);
}

BRISEL_TEST(QCoreApplication, TestHistoryRuns)
#include "tst_historyruns.moc"
