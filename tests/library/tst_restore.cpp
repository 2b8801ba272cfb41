#include "tests/library/restoretest.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

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

/// Taking changes back, of every format, and songs that were changed again since.
class TestRestore : public RestoreTest
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }
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
    void reportsMissingSongs();
    void reportsAMissingEntry();
    void stopsWhenInterrupted();
};

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
