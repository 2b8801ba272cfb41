#include "base/filefailure.h"
#include "history/historyrecorder.h"
#include "library/backup.h"
#include "library/backuprestore.h"
#include "library/synchroniser.h"
#include "tests/fulldisk.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QTest>

#include <unistd.h>

using namespace brisel;

static constexpr int audioSize = 9000; // bytes

/// An MP3 with a tag.
static QByteArray song()
{
    return Samples::tag(Samples::frame("TIT2", "One")) + Samples::audio(audioSize);
}

/// Putting the songs of a backup back where they came from.
class TestBackupRestore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void putsSynchronisedSongsBack();
    void putsSongsOfOneNameBack();
    void canBeTakenBack();
    void leavesSongsThatAreAsInTheBackup();
    void writesAMissingSongAnew();
    void makesNoFolders();
    void asksAboutASongThatChangedSince_data();
    void asksAboutASongThatChangedSince();
    void keepsTheAudioOfAnMp3();
    void asksAboutASongThatNobodyKnows();
    void replacesAnMp3WithOtherAudioWhole();
    void asksBeforeItReplacesAnotherRecording();
    void replacesTheSongBehindALink();
    void leavesASongThatChangesDuringTheQuestion();
    void rejectsADamagedCopy_data();
    void rejectsADamagedCopy();
    void reportsASongThatCannotBeWritten();
    void stopsWhenInterrupted();

private:
    QString at(const QString &name) const { return m_library->path(name); }
    QString add(const QString &name, const QByteArray &content)
    {
        m_before.insert(at(name), content);
        m_library->add(name, content);
        return at(name);
    }
    /// Makes a backup of all songs.
    void backUp()
    {
        QVERIFY(QDir().mkpath(at(u"backups"_qs)));
        ScriptedRun run(RunReport::Operation::Backup);
        QCOMPARE(Backup(m_before.keys(), at(u"backups"_qs)).run(run), Backup::Outcome::Done);
        m_backup = at(u"backups/"_qs) +
                   QDir(at(u"backups"_qs)).entryList(QDir::Dirs | QDir::NoDotAndDotDot).first();
    }
    void synchronise()
    {
        ScriptedRun run(RunReport::Operation::Synchronisation);
        Synchroniser synchroniser(m_library->model(), m_library->database(), false);
        HistoryRecorder recorder(*m_history, RunKind::Synchronisation);
        synchroniser.setRecorder(&recorder);
        QCOMPARE(synchroniser.run(run), Synchroniser::Outcome::Done);
    }
    BackupRestore::Outcome restore(const QList<Run::Answer> &answers = {})
    {
        QList<BackupEntry> entries;
        const auto lines = BackupList::read(m_backup);
        for (const BackupList::Line &line : lines.value_or(QList<BackupList::Line>()))
            entries.append(line.entry);
        m_run = std::make_unique<ScriptedRun>(RunReport::Operation::Restore);
        m_run->answers = answers;
        if (m_onStep)
            m_run->onStep = [this](int) { m_onStep(*m_run); };
        m_run->onQuestion = m_onQuestion;
        HistoryRecorder recorder(*m_history, RunKind::Restore);
        return BackupRestore(m_library->model(), *m_history, m_backup, entries, &recorder)
            .run(*m_run);
    }
    void verifyAllAreBack() const
    {
        for (auto song = m_before.cbegin(); song != m_before.cend(); ++song)
            QCOMPARE(fileContent(song.key()), song.value());
    }
    bool reports(const Reason &reason) const
    {
        return m_run->report().text().contains(reason.text());
    }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<History> m_history;
    std::unique_ptr<ScriptedRun> m_run;
    std::function<void(ScriptedRun &run)> m_onStep;
    std::function<void(const QString &path)> m_onQuestion;
    QMap<QString, QByteArray> m_before;
    QString m_backup;
};

void TestBackupRestore::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_qs, u"ONE LOVE"_qs}, {u"TWO"_qs, u"TWO SONGS"_qs}});
    m_history = std::make_unique<History>(at(u"data/history.sqlite"_qs));
}

void TestBackupRestore::cleanup()
{
    m_run.reset();
    m_history.reset();
    m_library.reset();
    m_before.clear();
    m_onStep = nullptr;
    m_onQuestion = nullptr;
}

void TestBackupRestore::putsSynchronisedSongsBack()
{
    add(u"one.mid"_qs, Sample::midi("one", true));
    const QString mp3 = add(u"two.mp3"_qs, song());
    backUp();
    synchronise();
    QVERIFY(fileContent(mp3) != m_before.value(mp3));
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    verifyAllAreBack();
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(m_run->report().summary(), u"Ripristino: 2 ripristinate"_qs);
    QVERIFY(m_run->report().text().contains(u"    Titolo: «ONE LOVE» → «one»\n"_qs));
    QCOMPARE(m_library->model().status(0), int(Database::Imported));
}

void TestBackupRestore::putsSongsOfOneNameBack()
{
    add(u"a/one.mid"_qs, Sample::midi("first", true));
    add(u"b/one.mid"_qs, Sample::midi("second", true));
    backUp();
    synchronise();
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    verifyAllAreBack();
}

void TestBackupRestore::canBeTakenBack()
{
    const QString path = add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    synchronise();
    const QByteArray written = fileContent(path);
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    const std::optional<HistorySong> last = m_history->lastChange(path);
    QVERIFY(last.has_value());
    QCOMPARE(m_history->oldBytes(last->id), written);
    QCOMPARE(m_history->runs().first().kind, RunKind::Restore);
    QVERIFY(m_history->report(last->run).contains(u"Ripristino: 1 ripristinate"_qs));
}

void TestBackupRestore::leavesSongsThatAreAsInTheBackup()
{
    add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    QVERIFY(reports(BackupRestore::asInBackup));
    QCOMPARE(m_run->report().skipped(), 1);
    QCOMPARE(m_history->runs().size(), 0);
}

void TestBackupRestore::writesAMissingSongAnew()
{
    const QString path = add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    QVERIFY(QFile::remove(path));
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    verifyAllAreBack();
    QCOMPARE(m_run->report().text(), u"Ripristino: 1 ripristinate\n"_qs);
}

void TestBackupRestore::makesNoFolders()
{
    const QString path = add(u"sub/one.mid"_qs, Sample::midi("one", true));
    backUp();
    QVERIFY(QDir(at(u"sub"_qs)).removeRecursively());
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    QVERIFY(reports(FileReason::folderMissing));
    QVERIFY(!QFile::exists(at(u"sub"_qs)));
}

void TestBackupRestore::asksAboutASongThatChangedSince_data()
{
    QTest::addColumn<Run::Answer>("answer");
    QTest::newRow("yes") << Run::Answer::Yes;
    QTest::newRow("no") << Run::Answer::No;
}

void TestBackupRestore::asksAboutASongThatChangedSince()
{
    QFETCH(Run::Answer, answer);
    const QString path = add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    synchronise();
    const QByteArray other = Sample::midi("other", true);
    makeFile(path, other);
    QCOMPARE(restore({answer}), BackupRestore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList(path));
    if (answer == Run::Answer::No) {
        QCOMPARE(fileContent(path), other);
        QVERIFY(reports(BackupRestore::changedSince));
        return;
    }
    verifyAllAreBack();
    const std::optional<HistorySong> last = m_history->lastChange(path);
    QCOMPARE(m_history->oldBytes(last->id), other);
}

/// The history has the new tag only, not all of the audio.
void TestBackupRestore::keepsTheAudioOfAnMp3()
{
    const QString path = add(u"one.mp3"_qs, song());
    backUp();
    synchronise();
    const QByteArray written = fileContent(path);
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    verifyAllAreBack();
    QCOMPARE(*m_history->oldBytes(m_history->lastChange(path)->id) + Samples::audio(audioSize),
             written);
}

void TestBackupRestore::asksAboutASongThatNobodyKnows()
{
    const QString path = add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    const QByteArray other = Sample::midi("other", true);
    makeFile(path, other);
    QCOMPARE(restore({Run::Answer::No}), BackupRestore::Outcome::Done);
    QCOMPARE(m_run->asked, QStringList(path));
    QVERIFY(m_run->messages.first().startsWith(u"Questa song è diversa dalla copia"_qs));
    QVERIFY(reports(BackupRestore::differs));
    QCOMPARE(fileContent(path), other);
}

void TestBackupRestore::replacesAnMp3WithOtherAudioWhole()
{
    const QString path = add(u"one.mp3"_qs, song());
    backUp();
    makeFile(path, song().chopped(1) + 'x');
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(restore({Run::Answer::Yes}), BackupRestore::Outcome::Done);
    verifyAllAreBack();
    QCOMPARE(m_history->runs().size(), 0);
    QVERIFY(!QFile::permissions(path).testFlag(QFile::ReadOther)); // as the replaced file
}

/// The history has the tag that this program wrote, but not the audio before it.
void TestBackupRestore::asksBeforeItReplacesAnotherRecording()
{
    const QString path = add(u"one.mp3"_qs, song());
    add(u"two.mp3"_qs, song());
    backUp();
    makeFile(path, song().chopped(1) + 'x');
    synchronise();
    const QByteArray recording = fileContent(path);
    makeFile(at(u"two.mp3"_qs), Samples::audio(audioSize));
    QCOMPARE(restore({Run::Answer::No, Run::Answer::YesToAll}), BackupRestore::Outcome::Done);
    QCOMPARE(m_run->asked, (QStringList{path, at(u"two.mp3"_qs)}));
    QVERIFY(m_run->messages.first().contains(u"non si potrà annullare"_qs));
    QVERIFY(!m_run->messages.last().contains(u"non si potrà annullare"_qs));
    QVERIFY(reports(BackupRestore::differs));
    QCOMPARE(fileContent(path), recording);
}

void TestBackupRestore::replacesTheSongBehindALink()
{
    const QString target = at(u"target.mp3"_qs);
    m_library->add(u"target.mp3"_qs, song());
    const QString link = at(u"link.mp3"_qs);
    QVERIFY(QFile::link(target, link));
    m_before.insert(link, song());
    backUp();
    makeFile(target, song().chopped(1) + 'x');
    QCOMPARE(restore({Run::Answer::Yes}), BackupRestore::Outcome::Done);
    QVERIFY(QFileInfo(link).isSymbolicLink());
    QCOMPARE(fileContent(target), song());
}

void TestBackupRestore::leavesASongThatChangesDuringTheQuestion()
{
    const QString path = add(u"one.mp3"_qs, song());
    backUp();
    makeFile(path, song().chopped(1) + 'x');
    m_onQuestion = [](const QString &asked) { makeFile(asked, song().chopped(2) + "yz"); };
    QCOMPARE(restore({Run::Answer::Yes}), BackupRestore::Outcome::Done);
    QVERIFY(reports(FileReason::changed));
    QCOMPARE(fileContent(path), song().chopped(2) + "yz");
}

void TestBackupRestore::rejectsADamagedCopy_data()
{
    QTest::addColumn<int>("damage");
    QTest::newRow("missing") << 0;
    QTest::newRow("changed") << 1;
    QTest::newRow("truncated") << 2;
    QTest::newRow("link") << 3;
    QTest::newRow("folder") << 4;
}

void TestBackupRestore::rejectsADamagedCopy()
{
    QFETCH(int, damage);
    const QString path = add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    synchronise();
    const QByteArray written = fileContent(path);
    const QString copy = m_backup + u"/one.mid"_qs;
    QVERIFY(QFile::remove(copy));
    if (damage == 1)
        makeFile(copy, Sample::midi("eno", true));
    else if (damage == 2)
        makeFile(copy, m_before.first().chopped(1));
    else if (damage == 3) {
        makeFile(at(u"elsewhere.mid"_qs), m_before.first());
        QVERIFY(QFile::link(at(u"elsewhere.mid"_qs), copy));
    } else if (damage == 4)
        QVERIFY(QDir().mkdir(copy));
    QCOMPARE(restore(), BackupRestore::Outcome::Done);
    QVERIFY(reports(BackupRestore::damagedCopy));
    QCOMPARE(m_run->report().failed(), 1);
    QCOMPARE(fileContent(path), written);
}

void TestBackupRestore::reportsASongThatCannotBeWritten()
{
    const QString path = add(u"one.mid"_qs, Sample::midi("one", true));
    backUp();
    synchronise();
    const QByteArray written = fileContent(path);
    {
        const FullDisk full(8);
        QCOMPARE(restore(), BackupRestore::Outcome::Done);
    }
    QCOMPARE(m_run->report().failed(), 1);
    QCOMPARE(m_run->report().counted(RunReport::Success::Restored), 0);
    QCOMPARE(fileContent(path), written);
}

void TestBackupRestore::stopsWhenInterrupted()
{
    add(u"one.mid"_qs, Sample::midi("one", true));
    const QString second = add(u"two.mid"_qs, Sample::midi("two", true));
    backUp();
    synchronise();
    const QByteArray written = fileContent(second);
    m_onStep = [](ScriptedRun &run) { run.isStopped = true; };
    QCOMPARE(restore(), BackupRestore::Outcome::Interrupted);
    QCOMPARE(fileContent(at(u"one.mid"_qs)), m_before.first());
    QCOMPARE(fileContent(second), written);
    QCOMPARE(m_run->report().text().count(Run::interrupted.text()), 1);
}

BRISEL_TEST(QCoreApplication, TestBackupRestore)
#include "tst_backuprestore.moc"
