#include "history/historyrecorder.h"
#include "tests/history/keptsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// How the songs of a run get into the history.
class TestHistoryRecorder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_folder.reset(); }
    void writesSongsWhenFlushed();
    void dropsSongsThatWereNotWritten();
    void keepsEntriesOfDamagedSongs();
    void goesOnWithoutAHistory();
    void goesOnAfterALock();
    void reportsEntriesThatAreDeletedAtTheEnd();

private:
    QString song(const QByteArray &content) const
    {
        makeFile(m_folder->filePath(u"song.mid"_s), content);
        return m_folder->filePath(u"song.mid"_s);
    }
    int songsOf(History &history) const { return history.runs().value(0).songs; }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestHistoryRecorder::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"history.sqlite"_s);
}

void TestHistoryRecorder::writesSongsWhenFlushed()
{
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::ApplyToAll);
    recorder.keep(keptSong(u"/a"_s, "1", "2"));
    QVERIFY(!QFile::exists(m_path));
    recorder.flush();
    QCOMPARE(songsOf(history), 1);
    QCOMPARE(history.runs().value(0).id, recorder.run());
    recorder.keep(keptSong(u"/b"_s, "1", "2"));
    recorder.flush();
    recorder.flush();
    QCOMPARE(songsOf(history), 2);
    RunReport report(RunReport::Operation::Edit);
    report.count(RunReport::Success::Edited);
    recorder.finish(report);
    QCOMPARE(history.report(recorder.run()), report.text());
    QVERIFY(report.isEmpty());
    QVERIFY(!recorder.trouble().has_value());
}

void TestHistoryRecorder::dropsSongsThatWereNotWritten()
{
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::Edit);
    const QString path = song("1");
    recorder.keep(keptSong(u"/never"_s, "1", "2"));
    recorder.settle(u"/never"_s, WriteResult::Changed);
    recorder.keep(keptSong(path, "1", "2"));
    recorder.keep(keptSong(u"/changed"_s, "1", "2"));
    recorder.keep(keptSong(u"/done"_s, "1", "2"));
    recorder.flush();
    QCOMPARE(songsOf(history), 3);
    recorder.settle(path, WriteResult::Failed);
    recorder.settle(u"/changed"_s, WriteResult::Changed);
    RunReport report;
    recorder.finish(report);
    QCOMPARE(songsOf(history), 1);
    QCOMPARE(history.songs(recorder.run()).value(0).path, u"/done"_s);
}

void TestHistoryRecorder::keepsEntriesOfDamagedSongs()
{
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::Edit);
    const QString path = song("half");
    recorder.keep(keptSong(path, "whole", "whole2"));
    recorder.flush();
    recorder.settle(path, WriteResult::Failed);
    RunReport report;
    recorder.finish(report);
    QCOMPARE(songsOf(history), 1);
}

void TestHistoryRecorder::goesOnWithoutAHistory()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"history.sqlite"_s));
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::Edit);
    const KeptSong kept = keptSong(u"/a"_s, "1", "2");
    recorder.keep(kept);
    recorder.flush();
    QVERIFY(recorder.trouble().has_value());
    recorder.settle(u"/a"_s, WriteResult::Done);
    recorder.keep(kept);
    recorder.flush();
    RunReport report;
    recorder.finish(report);
    QCOMPARE(report.text().trimmed(),
             u"Non tutte le modifiche sono nella cronologia: non è un file"_s);
    QCOMPARE(recorder.run(), 0);
    QVERIFY(QFileInfo(m_path).isDir());
}

void TestHistoryRecorder::goesOnAfterALock()
{
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::Edit);
    recorder.keep(keptSong(u"/a"_s, "1", "2"));
    recorder.flush();
    const QString name = u"other program"_s;
    {
        QSqlDatabase other = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        other.setDatabaseName(m_path);
        QVERIFY(other.open());
        QVERIFY(QSqlQuery(other).exec(u"BEGIN IMMEDIATE"_s));
        recorder.keep(keptSong(u"/b"_s, "1", "2"));
        recorder.flush();
    }
    QSqlDatabase::removeDatabase(name);
    QVERIFY(recorder.trouble() == HistoryReason::locked);
    recorder.keep(keptSong(u"/c"_s, "1", "2"));
    recorder.flush();
    RunReport report;
    recorder.finish(report);
    const QString notice = u"Non tutte le modifiche sono nella cronologia: un altro programma sta "
                           "usando la cronologia"_s;
    QCOMPARE(report.text().trimmed(), notice);
    QCOMPARE(history.report(recorder.run()), report.text());
    QStringList paths;
    for (const HistorySong &song : history.songs(recorder.run()))
        paths.append(song.path);
    QCOMPARE(paths, (QStringList{u"/a"_s, u"/c"_s}));
}

void TestHistoryRecorder::reportsEntriesThatAreDeletedAtTheEnd()
{
    History history(m_path);
    HistoryRecorder recorder(history, RunKind::Edit);
    for (int i = 0; i < 4; ++i)
        recorder.keep(keptSong(QString::number(i), "1", "2"));
    recorder.flush();
    history.setLimit(1);
    RunReport report;
    recorder.finish(report);
    QVERIFY2(report.text().contains(u"La cronologia è piena"_s), qPrintable(report.text()));
    QCOMPARE(report.text().count(u"La cronologia"_s), 1);
}

BRISEL_TEST(QCoreApplication, TestHistoryRecorder)
#include "tst_historyrecorder.moc"
