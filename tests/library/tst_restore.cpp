#include "history/historyrecorder.h"
#include "library/manualedit.h"
#include "library/restore.h"
#include "library/synchroniser.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

QByteArray container(const QByteArray &magic, const QByteArray &midi)
{
    const auto size = static_cast<int>(ZbxHeader::sizeOf(ZbxHeader::typeOf(magic)));
    return Samples::container(Samples::containerHeader(magic, size), midi);
}

} // namespace

/// Taking changes back, of every format, and what may have happened to the songs since.
class TestRestore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void restoresEveryFormat();
    void takesARestoreBack();
    void restoresSeveralChangesOfOneSong();
    void restoresAnOlderChangeUnasked();
    void restoresAnOlderChangeOfAnMp3Unasked();
    void followsOwnChangesOverARestore();
    void asksIfAnotherProgramWroteBetweenOwnChanges();
    void restoresToTheEndWithAFullHistory();
    void leavesSongsThatAreAsBefore();
    void asksAboutChangedSongs();
    void restoresChangedSongsAfterAYes();
    void keepsTheAudioOfAChangedMp3();
    void findsMovedSongs();
    void takesEachOfTwoMovedCopiesOnce();
    void takesTheFirstOfTwoEqualCopies();
    void findsSongsThatChangedPlaces();
    void findsSongsThatChangedPlacesAndWereEqual();
    void leavesTheCopyOfADeletedSongToItsOwnChange();
    void leavesWhatIsInTheOldPlaceOfAMovedSong();
    void followsASongThroughSeveralChanges();
    void followsASongThatMovedBetweenItsChanges();
    void reportsMissingSongs();
    void reportsAMissingEntry();
    void stopsWhenInterrupted();

private:
    QString add(const QString &name, const QByteArray &content);
    void synchronise();
    void edit(int row, const QString &title);
    void move(const QString &from, const QString &to);
    Restore::Outcome restore(QList<HistorySong> songs);
    Restore::Outcome restoreLastRun() { return restore(songsOfLastRun()); }
    QList<HistorySong> songsOfLastRun() { return m_history->songs(m_history->runs().value(0).id); }
    QList<HistorySong> songsOfFirstRun() { return m_history->songs(m_history->runs().last().id); }
    QList<HistorySong> allSongs();
    void writeMarked(const QString &path);

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<History> m_history;
    std::unique_ptr<ScriptedRun> m_run;
    QMap<QString, QByteArray> m_before;
};

void TestRestore::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
    m_history = std::make_unique<History>(m_library->path(u"data/history.sqlite"_s));
    m_run = std::make_unique<ScriptedRun>(RunReport::Operation::Restore);
}

void TestRestore::cleanup()
{
    m_run.reset();
    m_history.reset();
    m_library.reset();
    m_before.clear();
}

QString TestRestore::add(const QString &name, const QByteArray &content)
{
    m_before.insert(m_library->path(name), content);
    return m_library->add(name, content);
}

void TestRestore::synchronise()
{
    ScriptedRun run;
    HistoryRecorder recorder(*m_history, RunKind::Synchronisation);
    Synchroniser synchroniser(m_library->model(), m_library->database(), false);
    synchroniser.setRecorder(&recorder);
    QCOMPARE(synchroniser.run(run), Synchroniser::Outcome::Done);
    QVERIFY2(run.report().failed() == 0, qPrintable(run.report().text()));
}

void TestRestore::edit(int row, const QString &title)
{
    const QString path = m_library->model().fileName(row);
    SongFile file(path);
    SongInfo info = file.info;
    info.title = title;
    HistoryRecorder recorder(*m_history, RunKind::Edit);
    ManualEdit edit(m_library->model(), file.song, info, path, row, {});
    edit.setRecorder(&recorder);
    ScriptedRun run;
    QCOMPARE(edit.run(run), ManualEdit::Outcome::Done);
    QVERIFY2(run.report().failed() == 0, qPrintable(run.report().text()));
}

/// As another program might; both paths stay in the list.
void TestRestore::move(const QString &from, const QString &to)
{
    QVERIFY(QFile::rename(from, to));
}

QList<HistorySong> TestRestore::allSongs()
{
    QList<HistorySong> songs;
    for (const HistoryRun &run : m_history->runs())
        songs += m_history->songs(run.id);
    return songs;
}

Restore::Outcome TestRestore::restore(QList<HistorySong> songs)
{
    HistoryRecorder recorder(*m_history, RunKind::Restore);
    return Restore(m_library->model(), *m_history, std::move(songs), &recorder).run(*m_run);
}

/// Changes the song as another program might.
void TestRestore::writeMarked(const QString &path)
{
    MetaSong song;
    QVERIFY(song.importFile(path));
    SongInfo info;
    song.getSongInfo(info);
    info.title = u"By another program"_s;
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(path));
}

void TestRestore::restoresEveryFormat()
{
    const QByteArray midi = Samples::midi(Samples::metaEvent(3, "One"));
    add(u"a/ONE.MID"_s, midi);
    add(u"b/one.mp3"_s, Samples::tag(Samples::frame("TIT2", "One")) + Samples::audio(9000));
    add(u"c/one.mp3"_s, Samples::audio(2000));
    add(u"d/one.mp3"_s, Samples::audio(20));
    add(u"e/one.zb3"_s, container("_ZB3", midi));
    add(u"f/one.zb4"_s, container("_ZB4", midi));
    add(u"g/one.zb5"_s, container("_ZB5", midi));
    synchronise();
    for (auto song = m_before.cbegin(); song != m_before.cend(); ++song)
        QVERIFY2(fileContent(song.key()) != song.value(), qPrintable(song.key()));
    QCOMPARE(m_library->shown(0, u"artist"_s), u"X ALT"_s);

    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    for (auto song = m_before.cbegin(); song != m_before.cend(); ++song)
        QVERIFY2(fileContent(song.key()) == song.value(), qPrintable(song.key()));
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), m_before.size());
    QCOMPARE(m_run->report().failed(), 0);
    QCOMPARE(m_library->shown(0, u"artist"_s), QString());
    QCOMPARE(m_library->statuses(), QString(m_before.size(), u'0'));
}

void TestRestore::takesARestoreBack()
{
    const QString midi = add(u"one.mid"_s, Sample::midi("One", true));
    const QString mp3 = add(u"one.mp3"_s, Samples::audio(9000));
    synchronise();
    const QByteArray newMidi = fileContent(midi);
    const QByteArray newMp3 = fileContent(mp3);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QVERIFY(m_history->runs().value(0).kind == RunKind::Restore);
    QVERIFY(!m_history->fields(songsOfLastRun().value(0).id).isEmpty());
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(midi), newMidi);
    QCOMPARE(fileContent(mp3), newMp3);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(midi), m_before[midi]);
    QCOMPARE(fileContent(mp3), m_before[mp3]);
}

void TestRestore::restoresSeveralChangesOfOneSong()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    edit(0, u"Edited"_s);
    QCOMPARE(m_history->runs().size(), 2);

    QCOMPARE(restore(allSongs()), Restore::Outcome::Done);
    QCOMPARE(fileContent(path), m_before[path]);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 2);
}

void TestRestore::restoresAnOlderChangeUnasked()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    edit(0, u"Edited"_s);
    edit(0, u"Edited again"_s);
    const QByteArray last = fileContent(path);
    QCOMPARE(restore(songsOfFirstRun()), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(path), m_before[path]);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 1);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(path), last);
}

/// Each change gives the tag another length.
void TestRestore::restoresAnOlderChangeOfAnMp3Unasked()
{
    const QString path = add(u"one.mp3"_s, Samples::audio(9000));
    synchronise();
    edit(0, QString(3000, u'e'));
    edit(0, QString(9000, u'f'));
    QCOMPARE(restore(songsOfFirstRun()), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(path), m_before[path]);
}

void TestRestore::followsOwnChangesOverARestore()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    edit(0, u"Edited"_s);
    QCOMPARE(restore(songsOfFirstRun()), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(path), m_before[path]);
}

/// The change of the other program would be lost.
void TestRestore::asksIfAnotherProgramWroteBetweenOwnChanges()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    writeMarked(path);
    edit(0, u"Edited"_s);
    const QByteArray last = fileContent(path);
    QCOMPARE(restore(songsOfFirstRun()), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList{path});
    QCOMPARE(fileContent(path), last);
    QVERIFY(m_run->report().text().contains(Restore::changedSince.text()));
}

/// What is overwritten needs room, but not at the cost of the runs that are being restored.
void TestRestore::restoresToTheEndWithAFullHistory()
{
    const QString path = add(u"one.mid"_s, Sample::midi("one", true));
    synchronise();
    edit(0, u"Edited"_s);
    m_history->setLimit(m_history->bytesUsed());
    QCOMPARE(restore(allSongs()), Restore::Outcome::Done);
    QVERIFY2(m_run->report().failed() == 0, qPrintable(m_run->report().text()));
    QCOMPARE(fileContent(path), m_before.value(path));
}

void TestRestore::leavesSongsThatAreAsBefore()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    makeFile(path, m_before[path]);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(m_run->report().skipped(), 1);
    QVERIFY(m_run->report().text().contains(
        u"Non ripristinata (la song è già come prima della modifica): "_s + path));
    QCOMPARE(m_history->runs().size(), 1);
}

void TestRestore::asksAboutChangedSongs()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    writeMarked(path);
    const QByteArray changed = fileContent(path);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList{path});
    QCOMPARE(fileContent(path), changed);
    QCOMPARE(m_run->report().skipped(), 1);
    QVERIFY(m_run->report().text().contains(Restore::changedSince.text()));
}

void TestRestore::restoresChangedSongsAfterAYes()
{
    const QString midi = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    makeFile(midi, "no song at all");
    m_run->answers = {Run::Answer::Yes};
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(midi), m_before[midi]);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 1);
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(midi), "no song at all");
}

void TestRestore::keepsTheAudioOfAChangedMp3()
{
    const QString path = add(u"one.mp3"_s, Samples::audio(9000));
    synchronise();
    const QByteArray other = Samples::audio(7000);
    makeFile(path, Samples::tag(Samples::frame("TIT2", "Other")) + other);
    m_run->answers = {Run::Answer::Yes};
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QCOMPARE(fileContent(path), other);
}

void TestRestore::findsMovedSongs()
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

void TestRestore::takesEachOfTwoMovedCopiesOnce()
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

void TestRestore::takesTheFirstOfTwoEqualCopies()
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

void TestRestore::findsSongsThatChangedPlaces()
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
void TestRestore::findsSongsThatChangedPlacesAndWereEqual()
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
void TestRestore::leavesTheCopyOfADeletedSongToItsOwnChange()
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

void TestRestore::leavesWhatIsInTheOldPlaceOfAMovedSong()
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

void TestRestore::followsASongThroughSeveralChanges()
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

void TestRestore::followsASongThatMovedBetweenItsChanges()
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

void TestRestore::reportsMissingSongs()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    QVERIFY(QFile::remove(path));
    QCOMPARE(restoreLastRun(), Restore::Outcome::Done);
    QVERIFY(m_run->report().text().contains(u"Non ripristinata (il file non esiste): "_s + path));
    QVERIFY(m_run->asked.isEmpty());
}

void TestRestore::reportsAMissingEntry()
{
    const QString path = add(u"one.mid"_s, Sample::midi("One", true));
    synchronise();
    const QByteArray written = fileContent(path);
    const QList<HistorySong> songs = songsOfLastRun();
    QVERIFY(m_history->clear());
    QCOMPARE(restore(songs), Restore::Outcome::Done);
    QCOMPARE(fileContent(path), written);
    QVERIFY(m_run->report().text().contains(Restore::notKept.text()));
}

void TestRestore::stopsWhenInterrupted()
{
    for (const QString &name : {u"a/one.mid"_s, u"b/one.mid"_s, u"c/one.mid"_s})
        add(name, Sample::midi("One", true));
    synchronise();
    m_run->onStep = [this](int) { m_run->isStopped = true; };
    QCOMPARE(restoreLastRun(), Restore::Outcome::Interrupted);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 1);
    QCOMPARE(m_run->report().skipped(), 2);
    QCOMPARE(fileContent(m_library->path(u"c/one.mid"_s)), Sample::midi("One", true));
}

BRISEL_TEST(QCoreApplication, TestRestore)
#include "tst_restore.moc"
