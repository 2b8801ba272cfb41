#include "history/historyrecorder.h"
#include "tests/history/keptsongs.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 kibibyte = 1024;

/// A song whose old bytes can't be compressed.
KeptSong songOf(qint64 size, int number)
{
    return keptSong(u"/songs/%1.mid"_s.arg(number), noise(size, number), "new");
}

} // namespace

/// The space that the history takes.
class TestHistoryLimits : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { m_folder.reset(); }
    void deletesTheOldestRuns();
    void keepsTheRunUnderWay();
    void cutsARunThatAloneExceedsTheLimit();
    void keepsProtectedRunsUntilTheEnd();
    void trimsToANewLimit();
    void givesSpaceBack();
    void takesOneTwentiethOfTheDisk();
    void insertsADeletedRunAgain();

private:
    QString path() const { return m_folder->filePath(u"history.sqlite"_s); }
    qint64 addRun(History &history, int songs, qint64 size);

    std::unique_ptr<QTemporaryDir> m_folder;
    int m_songs = 0;
};

qint64 TestHistoryLimits::addRun(History &history, int songs, qint64 size)
{
    qint64 run = 0;
    for (int i = 0; i < songs; ++i) {
        QList<qint64> ids;
        if (!history.add(run, RunKind::Edit, {songOf(size, ++m_songs)}, ids))
            return 0;
    }
    return history.finish(run, {}, u"report"_s) ? run : 0;
}

void TestHistoryLimits::deletesTheOldestRuns()
{
    History history(path());
    history.setLimit(1000 * kibibyte);
    QList<qint64> runs;
    for (int i = 0; i < 8; ++i) {
        runs.prepend(addRun(history, 2, 100 * kibibyte));
        QVERIFY(runs.first() != 0);
        QVERIFY2(history.bytesUsed() <= history.limit(), qPrintable(QString::number(i)));
    }
    QList<qint64> kept;
    for (const HistoryRun &run : history.runs())
        kept.append(run.id);
    QCOMPARE(kept, runs.first(4));
    QCOMPARE(history.songs(runs.at(3)).size(), 2);
}

void TestHistoryLimits::keepsTheRunUnderWay()
{
    History history(path());
    history.setLimit(1000 * kibibyte);
    QVERIFY(addRun(history, 1, 100 * kibibyte) != 0);
    const qint64 run = addRun(history, 9, 100 * kibibyte);
    QCOMPARE(history.runs().size(), 1);
    QCOMPARE(history.songs(run).size(), 9);
    QVERIFY(!history.wasCut());
}

void TestHistoryLimits::cutsARunThatAloneExceedsTheLimit()
{
    History history(path());
    history.setLimit(1000 * kibibyte);
    HistoryRecorder recorder(history, RunKind::Synchronisation);
    for (int i = 0; i < 20; ++i) {
        recorder.keep(songOf(100 * kibibyte, i));
        recorder.flush();
    }
    QVERIFY(!recorder.trouble().has_value());
    RunReport report;
    recorder.finish(report);
    QVERIFY(report.text().contains(u"La cronologia è piena"_s));
    const QList<HistorySong> songs = history.songs(recorder.run());
    QVERIFY(songs.size() >= 8 && songs.size() <= 10);
    QCOMPARE(songs.last().path, u"/songs/19.mid"_s);
    QVERIFY(history.bytesUsed() <= history.limit());
    // A single song that exceeds it is kept: there is nothing older to delete.
    history.setLimit(kibibyte);
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(history.add(run, RunKind::Edit, {songOf(100 * kibibyte, 100)}, ids));
    QCOMPARE(history.runs().size(), 1);
    QVERIFY(!history.wasCut());
}

/// A run that is being restored is needed to its last song.
void TestHistoryLimits::keepsProtectedRunsUntilTheEnd()
{
    History history(path());
    history.setLimit(1000 * kibibyte);
    const qint64 other = addRun(history, 1, 100 * kibibyte);
    const qint64 restored = addRun(history, 6, 100 * kibibyte);
    history.setProtected({restored});
    qint64 run = 0;
    QList<qint64> ids;
    for (int i = 0; i < 6; ++i) {
        QVERIFY(history.add(run, RunKind::Restore, {songOf(100 * kibibyte, 100 + i)}, ids));
        QVERIFY(!history.wasCut());
    }
    QCOMPARE(history.runs().size(), 2);
    QVERIFY(history.songs(other).isEmpty());
    QCOMPARE(history.songs(restored).size(), 6);
    history.setProtected({});
    QVERIFY(history.finish(run, {}, u"report"_s));
    QCOMPARE(history.runs().size(), 1);
    QCOMPARE(history.songs(run).size(), 6);
    QVERIFY(history.bytesUsed() <= history.limit());
}

void TestHistoryLimits::trimsToANewLimit()
{
    History history(path());
    QVERIFY(history.trim());
    for (int i = 0; i < 4; ++i)
        QVERIFY(addRun(history, 1, 500 * kibibyte) != 0);
    QVERIFY(history.trim());
    QCOMPARE(history.runs().size(), 4);
    history.setLimit(1200 * kibibyte);
    QVERIFY(history.trim());
    QCOMPARE(history.runs().size(), 2);
    QVERIFY(history.bytesUsed() <= history.limit());
}

void TestHistoryLimits::givesSpaceBack()
{
    History history(path());
    QVERIFY(addRun(history, 5, 500 * kibibyte) != 0);
    QVERIFY(history.bytesUsed() > 2500 * kibibyte);
    QVERIFY(history.clear());
    QVERIFY(history.bytesUsed() < 100 * kibibyte);
}

void TestHistoryLimits::takesOneTwentiethOfTheDisk()
{
    const SmallDisk disk(m_folder->path(), 4 << 20);
    if (!disk.isMounted())
        QSKIP("only root may mount a disk");
    QCOMPARE(History(path()).limit(), (4 << 20) / 20);
    QCOMPARE(History(m_folder->filePath(u"new/folders/history.sqlite"_s)).limit(), (4 << 20) / 20);
}

void TestHistoryLimits::insertsADeletedRunAgain()
{
    History history(path());
    QList<qint64> ids;
    qint64 run = 0;
    QVERIFY(history.add(run, RunKind::Edit, {songOf(10, 1)}, ids));
    QVERIFY(History(path()).clear());
    QVERIFY(history.add(run, RunKind::Edit, {songOf(10, 2)}, ids));
    QVERIFY(history.finish(run, {}, u"report"_s));
    QCOMPARE(history.runs().value(0).id, run);
    QCOMPARE(history.songs(run).size(), 1);
}

BRISEL_TEST(QCoreApplication, TestHistoryLimits)
#include "tst_historylimits.moc"
