#include "library/foundsong.h"
#include "tests/history/keptsongs.h"
#include "tests/library/restoretest.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

using namespace brisel;

using namespace Qt::StringLiterals;

/// Taking changes back of songs that were moved, exchanged or copied since.
class TestRestoreMoved : public RestoreTest
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }
    void findsMovedSongs();
    void takesEachOfTwoMovedCopiesOnce();
    void takesTheFirstOfTwoEqualCopies();
    void findsSongsThatChangedPlaces();
    void findsSongsThatChangedPlacesAndWereEqual();
    void leavesTheCopyOfADeletedSongToItsOwnChange();
    void leavesWhatIsInTheOldPlaceOfAMovedSong();
    void leavesTheTwinOfAChangedSong();
    void followsASongThroughSeveralChanges();
    void followsASongThatMovedBetweenItsChanges();
    void offersTheChangeOfAMovedSong();
    void offersTheLastChangeThatWasMade();
};

void TestRestoreMoved::findsMovedSongs()
{
    const QString midi = add(u"one.mid"_s, Sample::midi("One", true));
    const QString mp3 = add(u"one.mp3"_s, Samples::audio(9000));
    synchronise();
    const QString movedMidi = m_library->add(u"new/one.mid"_s, fileContent(midi));
    const QString movedMp3 = m_library->add(u"new/one.mp3"_s, fileContent(mp3));
    QVERIFY(QFile::remove(midi) && QFile::remove(mp3));
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(movedMidi), m_before[midi]);
    QCOMPARE(fileContent(movedMp3), m_before[mp3]);
    QVERIFY(!QFile::exists(midi) && !QFile::exists(mp3));
    QCOMPARE(m_library->shown(2, u"artist"_s), QString());
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QVERIFY(fileContent(movedMidi) != m_before[midi]);
}

void TestRestoreMoved::takesEachOfTwoMovedCopiesOnce()
{
    const QByteArray song = Sample::midi("One", true);
    const QStringList old = {add(u"a/one.mid"_s, song), add(u"b/one.mid"_s, song)};
    synchronise();
    QStringList moved;
    for (const QString &path : old) {
        moved.append(m_library->add(u"c/%1/one.mid"_s.arg(moved.size()), fileContent(path)));
        QVERIFY(QFile::remove(path));
    }
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    for (const QString &path : moved)
        QCOMPARE(fileContent(path), song);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 2);
}

void TestRestoreMoved::takesTheFirstOfTwoEqualCopies()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    const QByteArray written = fileContent(path);
    const QString second = m_library->add(u"a/other.mid"_s, written);
    const QString third = m_library->add(u"b/another.mid"_s, written);
    QVERIFY(QFile::remove(path));
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(second), m_before[path]);
    QCOMPARE(fileContent(third), written);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 1);
}

void TestRestoreMoved::findsSongsThatChangedPlaces()
{
    const QString one = add(u"a/one.mid"_s, Sample::midi("Of the first", true));
    const QString two = add(u"b/one.mid"_s, Sample::midi("Of the other", true));
    synchronise();
    const QString aside = m_library->path(u"aside"_s);
    move(one, aside);
    move(two, one);
    move(aside, two);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(one), m_before[two]);
    QCOMPARE(fileContent(two), m_before[one]);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 2);
}

/// Before their changes.
void TestRestoreMoved::findsSongsThatChangedPlacesAndWereEqual()
{
    const QByteArray song = Sample::midi("One", true);
    const QString one = add(u"a/one.mid"_s, song);
    const QString two = add(u"b/one.mid"_s, song);
    edit(0, u"The first"_s);
    edit(1, u"The other, with a longer title"_s);
    const QString aside = m_library->path(u"aside"_s);
    move(one, aside);
    move(two, one);
    move(aside, two);
    QCOMPARE(restore(allSongs()), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(one), song);
    QCOMPARE(fileContent(two), song);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 2);
}

/// Both songs were equal after the change, and are not before it.
void TestRestoreMoved::leavesTheCopyOfADeletedSongToItsOwnChange()
{
    const QByteArray song = Sample::midi("One", true);
    const QStringList paths{add(u"a/one.mid"_s, song), add(u"b/one.mid"_s, song)};
    edit(0, u"The first"_s);
    edit(1, u"The other"_s);
    const QByteArray second = fileContent(paths.at(1));
    edit(1, u"Equal"_s);
    edit(0, u"Equal"_s);
    QCOMPARE(fileContent(paths.at(0)), fileContent(paths.at(1)));
    QVERIFY(QFile::remove(paths.at(0)));
    const QList<HistoryRun> runs = m_history->runs();
    QCOMPARE(restore(m_history->songs(runs.at(0).id) + m_history->songs(runs.at(1).id)),
             Restore::Outcome::Done);
    QCOMPARE(fileContent(paths.at(1)), second);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 1);
    QVERIFY(m_run->report().text().contains(u"Non ripristinata (il file non esiste): "_s +
                                            paths.at(0)));
}

void TestRestoreMoved::leavesWhatIsInTheOldPlaceOfAMovedSong()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    const QString moved = m_library->add(u"new/two.mid"_s, fileContent(path));
    makeFile(path, "something else");
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(path), "something else");
    QCOMPARE(fileContent(moved), m_before[path]);
}

/// Two equal songs were changed alike, then another program changed or deleted one of them.
void TestRestoreMoved::leavesTheTwinOfAChangedSong()
{
    QVERIFY(QDir().mkpath(m_library->path(u"copies"_s)));
    const QString path = add(u"one.mid"_s, Sample::midi("one", true));
    const QString twin = add(u"copies/one.mid"_s, Sample::midi("one", true));
    synchronise();
    const QByteArray written = fileContent(twin);
    QVERIFY(written != m_before.value(twin));
    QCOMPARE(fileContent(path), written);
    writeMarked(path);
    const QList<HistorySong> chosen{*m_history->lastChange(path)};
    QCOMPARE(restore(chosen), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList(path));
    QCOMPARE(fileContent(twin), written);
    QVERIFY(QFile::remove(path));
    QCOMPARE(restore(chosen), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList(path));
    QCOMPARE(fileContent(twin), written);
}

void TestRestoreMoved::followsASongThroughSeveralChanges()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    synchronise();
    const QString moved = m_library->add(u"new/one.mid"_s, fileContent(path));
    QVERIFY(QFile::remove(path));
    QCOMPARE(restore(allSongs()), Restore::Outcome::Done);
    QCOMPARE(m_run->report().failed(), 0);
    QCOMPARE(fileContent(moved), m_before[path]);
}

void TestRestoreMoved::followsASongThatMovedBetweenItsChanges()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    const QString moved = m_library->add(u"new/two.mid"_s, fileContent(path));
    QVERIFY(QFile::remove(path));
    edit(1, u"Edited"_s);
    QCOMPARE(restore(allSongs()), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QVERIFY2(m_run->report().failed() == 0, qPrintable(m_run->report().text()));
    QCOMPARE(fileContent(moved), m_before[path]);
}

void TestRestoreMoved::offersTheChangeOfAMovedSong()
{
    const QString path = add(u"one.mid"_s, Sample::midi("one", true));
    synchronise();
    const qint64 change = m_history->lastChange(path)->id;
    const QString copy = m_library->add(u"copy.mid"_s, fileContent(path));
    QVERIFY(!changeToRestore(copy, *m_history).has_value());
    QVERIFY(QFile::remove(path));
    QCOMPARE(changeToRestore(copy, *m_history)->id, change);
    QCOMPARE(changeToRestore(path, *m_history)->id, change);
    makeFile(copy, fileContent(copy) + 'x');
    QVERIFY(!changeToRestore(copy, *m_history).has_value());
}

/// The newest entry may belong to a change that was not made, because the program ended.
void TestRestoreMoved::offersTheLastChangeThatWasMade()
{
    const QString path = add(u"one.mid"_s, Sample::midi("one", true));
    synchronise();
    const QByteArray written = fileContent(path);
    const qint64 change = m_history->lastChange(path)->id;
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(m_history->add(run, RunKind::Edit, {keptSong(path, written, "never")}, ids));
    QCOMPARE(changeToRestore(path, *m_history)->id, change);
    makeFile(path, "by another program");
    QCOMPARE(changeToRestore(path, *m_history)->id, ids.first());
}

BRISEL_TEST(QCoreApplication, TestRestoreMoved)
#include "tst_restoremoved.moc"
