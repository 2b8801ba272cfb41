#include "library/filecopier.h"

#include "tests/library/filesizelimit.h"
#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <unistd.h>

using namespace brisel;

static constexpr Run::Answer yes = Run::Answer::Yes;
static constexpr Run::Answer no = Run::Answer::No;
static constexpr Run::Answer noToAll = Run::Answer::NoToAll;

class TestFileCopier : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_run.reset(); }
    void copiesFlatInOrder();
    void logsEachFile();
    void countsSamePathIgnoringCaseAsCopied();
    void countsSameFileByAnotherWayAsCopied();
    void answersOfTheOverwriteQuestion_data();
    void answersOfTheOverwriteQuestion();
    void unknownAnswerKeepsTheOldFile();
    void asksAgainInTheNextRun();
    void skippedFileMovesNoProgress();
    void stopsWhenCanceled();
    void isFalseWhenCanceledAtTheLastFile();
    void asksNothingMoreWhenTheProgramEnds();
    void ignoresAnswerGivenByTheEndOfTheProgram();
    void countsUnreadableSourceAsError();
    void asksNothingForASongThatIsGone();
    void countsASongThatIsGoneAsErrorWhereItWas();
    void countsFolderInTheFilesPlaceAsError();
    void continuesAfterAnError();
    void neverReplacesAPickedSource();
    void copiesSameNameFromTwoFolders();
    void copiesKaraokeCompanion_data();
    void copiesKaraokeCompanion();
    void failsOnExistingCompanionAtDestination();
    void replacesMp3InFolderNamesToo();
    void failsForAnMp3WithoutDotInItsName();
    void copiesNoCompanionOfASkippedMp3();
    void leavesNoHalfSongOnAFullDisk();
    void failsWhenTheVolumeIsGone();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    QString picked(const QString &name, const QByteArray &content = "new")
    {
        makeFile(at(u"from/"_qs + name), content);
        return at(u"from/"_qs + name);
    }
    QStringList copies() const
    {
        return QDir(at(u"to"_qs))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    bool copy(const QStringList &files, const QList<Run::Answer> &answers = {})
    {
        m_run->answers = answers;
        FileCopier copier(*m_run);
        const bool isDone = copier.copyFiles(files, at(u"to"_qs));
        m_copied = copier.copied();
        return isDone;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedRun> m_run;
    int m_copied = -1;
};

void TestFileCopier::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkdir(u"to"_qs));
    m_run = std::make_unique<ScriptedRun>();
    m_copied = -1;
}

void TestFileCopier::copiesFlatInOrder()
{
    const QStringList files{picked(u"b.mid"_qs, "b"), picked(u"sub/deep/a.kar"_qs, "a")};
    QVERIFY(copy(files));
    QCOMPARE(m_copied, 2);
    QCOMPARE(copies(), QStringList({u"a.kar"_qs, u"b.mid"_qs}));
    QCOMPARE(fileContent(at(u"to/a.kar"_qs)), QByteArray("a"));
    QCOMPARE(m_run->steps, QList<int>({1, 2}));
    QCOMPARE(m_run->eventRounds, 2);
    QCOMPARE(m_run->asked, QStringList());
}

void TestFileCopier::logsEachFile()
{
    const QStringList files{picked(u"100%1 of %2.mid"_qs)};
    const LogCapture log;
    QVERIFY(copy(files));
    QCOMPARE(log.messages(), QStringList({u"Copying file: \"%1\" to: \"%2\" "_qs.arg(
                                 files.first(), at(u"to/100%1 of %2.mid"_qs))}));
}

void TestFileCopier::countsSamePathIgnoringCaseAsCopied()
{
    makeFile(at(u"TO/song.mid"_qs), "song");
    const LogCapture log;
    QVERIFY(copy({at(u"TO/song.mid"_qs)}));
    QCOMPARE(m_copied, 1);
    QCOMPARE(copies(), QStringList());
    QCOMPARE(log.messages(), QStringList());
    QCOMPARE(m_run->steps, QList<int>());
}

void TestFileCopier::countsSameFileByAnotherWayAsCopied()
{
    makeFile(at(u"to/song.mid"_qs), "song");
    makeFile(at(u"to/hard.mid"_qs), "hard");
    QVERIFY(QFile::link(at(u"to"_qs), at(u"way"_qs)));
    QVERIFY(QDir(m_folder->path()).mkdir(u"other"_qs));
    QCOMPARE(::link(qPrintable(at(u"to/hard.mid"_qs)), qPrintable(at(u"other/hard.mid"_qs))), 0);
    QVERIFY(copy({at(u"way/song.mid"_qs), at(u"other/hard.mid"_qs)}));
    QCOMPARE(m_copied, 2);
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(at(u"to/song.mid"_qs)), QByteArray("song"));
    QCOMPARE(fileContent(at(u"other/hard.mid"_qs)), QByteArray("hard"));
}

void TestFileCopier::answersOfTheOverwriteQuestion_data()
{
    QTest::addColumn<QList<Run::Answer>>("answers");
    QTest::addColumn<int>("asked");
    QTest::addColumn<QByteArray>("result"); // n: replaced, o: old file kept
    using D = Run::Answer;
    QTest::newRow("Si each time") << QList<D>{D::Yes, D::Yes, D::Yes} << 3 << QByteArray("nnn");
    QTest::newRow("No each time") << QList<D>{D::No, D::No, D::No} << 3 << QByteArray("ooo");
    QTest::newRow("Si tutti") << QList<D>{D::YesToAll} << 1 << QByteArray("nnn");
    QTest::newRow("No tutti") << QList<D>{D::NoToAll} << 1 << QByteArray("ooo");
    QTest::newRow("No, Si tutti") << QList<D>{D::No, D::YesToAll} << 2 << QByteArray("onn");
    QTest::newRow("Si, No tutti") << QList<D>{D::Yes, D::NoToAll} << 2 << QByteArray("noo");
    QTest::newRow("Si, No, Si") << QList<D>{D::Yes, D::No, D::Yes} << 3 << QByteArray("non");
}

void TestFileCopier::answersOfTheOverwriteQuestion()
{
    QFETCH(QList<Run::Answer>, answers);
    QFETCH(QByteArray, result);
    QStringList files;
    for (const QString &name : {u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs}) {
        files.append(picked(name));
        makeFile(at(u"to/"_qs + name), "old");
    }
    QVERIFY(copy(files, answers));
    QCOMPARE(m_copied, int(result.count('n')));
    QTEST(int(m_run->asked.size()), "asked");
    QCOMPARE(m_run->asked.first(), at(u"to/a.mid"_qs));
    QByteArray found;
    for (const QString &name : {u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs})
        found += fileContent(at(u"to/"_qs + name)).left(1);
    QCOMPARE(found, result);
}

void TestFileCopier::unknownAnswerKeepsTheOldFile()
{
    const QString song = picked(u"a.mid"_qs);
    makeFile(at(u"to/a.mid"_qs), "old");
    QVERIFY(copy({song}, {Run::Answer(7)}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(fileContent(at(u"to/a.mid"_qs)), QByteArray("old"));
}

void TestFileCopier::asksAgainInTheNextRun()
{
    const QString song = picked(u"a.mid"_qs);
    makeFile(at(u"to/a.mid"_qs), "old");
    QVERIFY(copy({song}, {noToAll}));
    QCOMPARE(m_run->asked.size(), 1);
    m_run = std::make_unique<ScriptedRun>();
    QVERIFY(copy({song}, {noToAll}));
    QCOMPARE(m_run->asked.size(), 1);
}

void TestFileCopier::skippedFileMovesNoProgress()
{
    makeFile(at(u"to/a.mid"_qs), "old");
    QVERIFY(copy({picked(u"a.mid"_qs), picked(u"b.mid"_qs)}, {no}));
    QCOMPARE(m_run->steps, QList<int>({2}));
    QCOMPARE(m_copied, 1);
}

void TestFileCopier::stopsWhenCanceled()
{
    m_run->onStep = [this](int value) { m_run->isStopped = value == 2; };
    QVERIFY(!copy({picked(u"a.mid"_qs), picked(u"b.mid"_qs), picked(u"c.mid"_qs)}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(copies(), QStringList({u"a.mid"_qs, u"b.mid"_qs}));
}

void TestFileCopier::isFalseWhenCanceledAtTheLastFile()
{
    m_run->onStep = [this](int) { m_run->isStopped = true; };
    QVERIFY(!copy({picked(u"a.mid"_qs)}));
    QCOMPARE(m_copied, 1);
}

void TestFileCopier::asksNothingMoreWhenTheProgramEnds()
{
    makeFile(at(u"to/b.mid"_qs), "old");
    m_run->onStep = [this](int) {
        RunGuard::requestEnd();
        m_run->isStopped = true;
    };
    QVERIFY(!copy({picked(u"a.mid"_qs), picked(u"b.mid"_qs)}, {yes}));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(fileContent(at(u"to/b.mid"_qs)), QByteArray("old"));
}

void TestFileCopier::ignoresAnswerGivenByTheEndOfTheProgram()
{
    makeFile(at(u"to/a.mid"_qs), "old");
    m_run->onQuestion = [this](const QString &) {
        RunGuard::requestEnd();
        m_run->isStopped = true;
    };
    QVERIFY(!copy({picked(u"a.mid"_qs)}, {yes}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(fileContent(at(u"to/a.mid"_qs)), QByteArray("old"));
}

void TestFileCopier::countsUnreadableSourceAsError()
{
    QVERIFY(!copy({at(u"from/none.mid"_qs)}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_run->steps, QList<int>({1}));
    QCOMPARE(copies(), QStringList());
}

void TestFileCopier::asksNothingForASongThatIsGone()
{
    makeFile(at(u"to/a.mid"_qs), "old");
    QVERIFY(!copy({at(u"from/a.mid"_qs)}, {yes}));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(m_copied, 0);
    QCOMPARE(fileContent(at(u"to/a.mid"_qs)), QByteArray("old"));
}

void TestFileCopier::countsASongThatIsGoneAsErrorWhereItWas()
{
    QVERIFY(!copy({at(u"to/a.mid"_qs)}, {yes}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(copies(), QStringList());
    QCOMPARE(m_run->report().text(),
             u"1 non riuscite\nNon trovata (il file non esiste): "_qs + at(u"to/a.mid"_qs) + u'\n');
}

void TestFileCopier::countsFolderInTheFilesPlaceAsError()
{
    makeFile(at(u"to/a.mid/inside"_qs), "inside");
    QVERIFY(!copy({picked(u"a.mid"_qs)}, {yes}));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(m_run->steps, QList<int>({1}));
    QCOMPARE(fileContent(at(u"to/a.mid/inside"_qs)), QByteArray("inside"));
}

void TestFileCopier::continuesAfterAnError()
{
    QVERIFY(!copy({at(u"from/none.mid"_qs), picked(u"a.mid"_qs)}));
    QCOMPARE(m_copied, 1);
    QCOMPARE(m_run->steps, QList<int>({1, 2}));
}

void TestFileCopier::neverReplacesAPickedSource()
{
    makeFile(at(u"to/a.mid"_qs), "picked too");
    const QStringList files{picked(u"a.mid"_qs), at(u"to/a.mid"_qs)};
    QVERIFY(!copy(files, {yes}));
    QCOMPARE(m_run->asked, QStringList());
    QCOMPARE(m_copied, 1);
    QCOMPARE(fileContent(at(u"to/a.mid"_qs)), QByteArray("picked too"));
    QCOMPARE(fileContent(files.first()), QByteArray("new"));
}

void TestFileCopier::copiesSameNameFromTwoFolders()
{
    const QStringList files{picked(u"1/a.mid"_qs, "first"), picked(u"2/a.mid"_qs, "second")};
    QVERIFY(copy(files, {yes}));
    QCOMPARE(m_run->asked.size(), 1);
    QCOMPARE(m_copied, 2);
    QCOMPARE(fileContent(at(u"to/a.mid"_qs)), QByteArray("second"));
}

void TestFileCopier::copiesKaraokeCompanion_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("companion");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *tag, const QString &song, const QString &companion,
                        const QStringList &expected) {
        QTest::newRow(tag) << song << companion << expected;
    };
    row("lower case", u"a.mp3"_qs, u"a.cdg"_qs, {u"a.cdg"_qs, u"a.mp3"_qs});
    row("mixed case", u"song.Mp3"_qs, u"song.cdg"_qs, {u"song.Mp3"_qs, u"song.cdg"_qs});
    row("companion in capitals", u"a.mp3"_qs, u"A.CDG"_qs, {u"a.cdg"_qs, u"a.mp3"_qs});
    row("none", u"a.mp3"_qs, u"b.cdg"_qs, {u"a.mp3"_qs});
    row("MIDI has none", u"a.mid"_qs, u"a.cdg"_qs, {u"a.mid"_qs});
    row("accents", u"\u00e8.mp3"_qs, u"\u00e8.Cdg"_qs, {u"\u00e8.cdg"_qs, u"\u00e8.mp3"_qs});
    row("name of its own", u"a.mp3.mp3"_qs, u"a.cdg.cdg"_qs, {u"a.cdg.cdg"_qs, u"a.mp3.mp3"_qs});
    row("name that is a pattern", u"[a]*.mp3"_qs, u"[a]*.cdg"_qs, {u"[a]*.cdg"_qs, u"[a]*.mp3"_qs});
}

void TestFileCopier::copiesKaraokeCompanion()
{
    QFETCH(QString, song);
    QFETCH(QString, companion);
    const QString path = picked(song);
    picked(companion, "graphics");
    QVERIFY(copy({path}));
    QCOMPARE(m_copied, 1);
    QTEST(copies(), "expected");
    if (copies().size() == 2)
        QCOMPARE(fileContent(at(u"to/"_qs + copies().filter(u"cdg"_qs).first())),
                 QByteArray("graphics"));
}

void TestFileCopier::failsOnExistingCompanionAtDestination()
{
    picked(u"a.cdg"_qs, "graphics");
    makeFile(at(u"to/a.cdg"_qs), "old graphics");
    makeFile(at(u"to/a.mp3"_qs), "old");
    QVERIFY(!copy({picked(u"a.mp3"_qs)}, {yes}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_run->asked.size(), 1);
    QCOMPARE(fileContent(at(u"to/a.mp3"_qs)), QByteArray("new"));
    QCOMPARE(fileContent(at(u"to/a.cdg"_qs)), QByteArray("old graphics"));
}

void TestFileCopier::replacesMp3InFolderNamesToo()
{
    const QString song = picked(u"my.mp3s/a.mp3"_qs);
    picked(u"my.mp3s/a.cdg"_qs, "beside");
    QVERIFY(copy({song}));
    QCOMPARE(copies(), QStringList({u"a.mp3"_qs}));
    picked(u"my.cdgs/a.cdg"_qs, "in the other folder");
    QVERIFY(copy({song}, {yes}));
    QCOMPARE(fileContent(at(u"to/a.cdg"_qs)), QByteArray("in the other folder"));
}

void TestFileCopier::failsForAnMp3WithoutDotInItsName()
{
    // Without ".mp3" to replace, the song is its own companion, whose copy exists already.
    QVERIFY(!copy({picked(u"songMP3"_qs)}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(fileContent(at(u"to/songMP3"_qs)), QByteArray("new"));
}

void TestFileCopier::copiesNoCompanionOfASkippedMp3()
{
    picked(u"a.cdg"_qs);
    makeFile(at(u"to/a.mp3"_qs), "old");
    QVERIFY(copy({picked(u"a.mp3"_qs)}, {no}));
    QCOMPARE(copies(), QStringList({u"a.mp3"_qs}));
}

void TestFileCopier::leavesNoHalfSongOnAFullDisk()
{
    const QStringList files{picked(u"big.mid"_qs, QByteArray(50000, 'x')), picked(u"small.mid"_qs)};
    makeFile(at(u"to/big.mid"_qs), "old");
    const FileSizeLimit limit(20000);
    QVERIFY(!copy(files, {yes}));
    QCOMPARE(m_copied, 1);
    QCOMPARE(copies(), QStringList({u"big.mid"_qs, u"small.mid"_qs}));
    QCOMPARE(fileContent(at(u"to/big.mid"_qs)), QByteArray("old"));
}

void TestFileCopier::failsWhenTheVolumeIsGone()
{
    m_run->onStep = [this](int) { QDir(at(u"to"_qs)).removeRecursively(); };
    QVERIFY(!copy({picked(u"a.mid"_qs), picked(u"b.mid"_qs)}));
    QCOMPARE(m_run->steps, QList<int>({1, 2}));
    QCOMPARE(fileContent(at(u"from/b.mid"_qs)), QByteArray("new"));
}

BRISEL_TEST(QCoreApplication, TestFileCopier)
#include "tst_filecopier.moc"
