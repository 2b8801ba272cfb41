#include "library/manualedit.h"

#include "tests/library/filesizelimit.h"
#include "tests/library/samplelibrary.h"
#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestManualEdit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup()
    {
        m_run.reset();
        m_library.reset();
    }
    void savesAndReloads();
    void writesMarkersOnlyOnRequest();
    void reportsMarkersThatCannotBeRewritten();
    void failedSaveIsLoggedAndTheRowShowsTheDisk();
    void vanishedFileKeepsItsRow();
    void spreadsOnlyWhatIsFlagged_data();
    void spreadsOnlyWhatIsFlagged();
    void titleComesFromEachFilesName();
    void skipsUnreadableFiles();
    void spreadsNothingOverASingleRow();
    void stopsAtTheNextSong();
    void endsItsStageAfterEverySongIsWritten();
    void endsWithTheProgram();
    void visitsEveryRowOnceInASortedTable_data();
    void visitsEveryRowOnceInASortedTable();

private:
    ManualEdit::Outcome edit(const QString &path, const ManualEdit::Spread &flags = {}, int row = 0)
    {
        MetaSong song;
        if (!song.importFile(path))
            qFatal("no song");
        return save(song, path, flags, row);
    }
    ManualEdit::Outcome save(const MetaSong &song, const QString &path,
                             const ManualEdit::Spread &flags = {}, int row = 0)
    {
        return ManualEdit(m_library->model(), song, m_edited, path, row, flags).run(*m_run);
    }
    /// Edits the song in \a row and spreads what is flagged.
    ManualEdit::Outcome spread(int row, const ManualEdit::Spread &flags)
    {
        return edit(m_library->model().fileName(row), flags, row);
    }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<ScriptedRun> m_run;
    SongInfo m_edited;
};

void TestManualEdit::init()
{
    m_library = std::make_unique<Sample::Library>();
    m_run = std::make_unique<ScriptedRun>();
    m_edited.clear();
    m_edited.title = u"Edited"_qs;
    m_edited.author = u"E. Author"_qs;
    m_edited.artist = u"E. Artist"_qs;
    m_edited.genre = u"E. Genre"_qs;
    m_edited.length = 99;
    m_edited.userBpm = 99;
    m_edited.key = u"Bb"_qs;
}

void TestManualEdit::savesAndReloads()
{
    const QString path = m_library->add(u"one.mid"_qs, Sample::midi("One", false));
    MetaSong song;
    QVERIFY(song.importFile(path));
    const LogCapture log;
    QCOMPARE(save(song, path), ManualEdit::Outcome::Done);
    const qsizetype saving = log.messages().indexOf(u"Saving to file:  \"%1\" "_qs.arg(path));
    QVERIFY(saving >= 0);
    QVERIFY(log.messages().indexOf(u"Ok "_qs) > saving);
    QVERIFY(log.contains(u"[MetaSong] setSongInfo, manual:  true "_qs));
    const SongInfo info = Sample::infoOf(path);
    QCOMPARE(info.title, u"Edited"_qs);
    QCOMPARE(info.length, 99);
    QCOMPARE(info.userBpm, 99);
    QCOMPARE(info.key, u"Bb"_qs);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"Edited"_qs);
    QCOMPARE(m_library->shown(0, u"length"_qs), u"01:39"_qs);
    QCOMPARE(m_library->statuses(), u"2"_qs);
}

void TestManualEdit::writesMarkersOnlyOnRequest()
{
    const QByteArray verse("\0\4Verse", 7);
    const QString path = m_library->add(
        u"one.mid"_qs,
        MidiBytes::file({MidiBytes::kordiaEvent(6, verse) + MidiBytes::endOfTrack()}));
    QCOMPARE(edit(path), ManualEdit::Outcome::Done);
    QCOMPARE(Sample::infoOf(path).markers, (QList<Marker>{{u"Verse"_qs, 4}}));

    MetaSong song;
    QVERIFY(song.importFile(path));
    ManualEdit edit(m_library->model(), song, m_edited, path, 0, {});
    edit.setMarkers({{u"Fine"_qs, 8}});
    QCOMPARE(edit.run(*m_run), ManualEdit::Outcome::Done);
    QCOMPARE(Sample::infoOf(path).markers, (QList<Marker>{{u"Fine"_qs, 8}}));
    QCOMPARE(m_library->shown(0, u"markers"_qs), u"1"_qs);
}

void TestManualEdit::reportsMarkersThatCannotBeRewritten()
{
    const QByteArray verse = MidiBytes::kordiaEvent(6, QByteArray("\0\4Verse", 7));
    const QByteArray content =
        MidiBytes::file({MidiBytes::metaEvent(1, verse) + MidiBytes::endOfTrack()});
    const QString path = m_library->add(u"one.mid"_qs, content);
    MetaSong song;
    QVERIFY(song.importFile(path));
    ManualEdit edit(m_library->model(), song, m_edited, path, 0, {});
    edit.setMarkers({});
    QCOMPARE(edit.run(*m_run), ManualEdit::Outcome::Done);
    QVERIFY(edit.whyNotSaved() == ManualEdit::markersNotWritable);
    QCOMPARE(fileContent(path), content);
    QCOMPARE(m_run->report().failed(), 1);
}

void TestManualEdit::failedSaveIsLoggedAndTheRowShowsTheDisk()
{
    const QByteArray content = Sample::midi("One", false);
    const QString path = m_library->add(u"one.mid"_qs, content);
    MetaSong song;
    QVERIFY(song.importFile(path));
    const LogCapture log;
    {
        const FileSizeLimit limit(20);
        QCOMPARE(save(song, path), ManualEdit::Outcome::Done);
    }
    QVERIFY(log.contains(u"Error! "_qs));
    QVERIFY(!log.contains(u"Ok "_qs));
    QCOMPARE(fileContent(path), content);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"One"_qs);
    QCOMPARE(m_library->statuses(), u"2"_qs);
}

void TestManualEdit::vanishedFileKeepsItsRow()
{
    const QString path = m_library->add(u"sub/one.mid"_qs, Sample::midi("One", false));
    MetaSong song;
    QVERIFY(song.importFile(path));
    QVERIFY(QDir(m_library->path(u"sub"_qs)).removeRecursively());
    QCOMPARE(save(song, path), ManualEdit::Outcome::Done);
    QCOMPARE(m_library->shown(0, u"title"_qs), u"One"_qs);
    QCOMPARE(m_library->statuses(), u"2"_qs);
}

void TestManualEdit::spreadsOnlyWhatIsFlagged_data()
{
    QTest::addColumn<bool>("author");
    QTest::addColumn<bool>("artist");
    QTest::addColumn<bool>("genre");
    QTest::addColumn<bool>("title");
    for (int bits = 0; bits < 16; ++bits)
        QTest::addRow("%d", bits) << bool(bits & 1) << bool(bits & 2) << bool(bits & 4)
                                  << bool(bits & 8);
}

void TestManualEdit::spreadsOnlyWhatIsFlagged()
{
    QFETCH(bool, author);
    QFETCH(bool, artist);
    QFETCH(bool, genre);
    QFETCH(bool, title);
    m_library->add(u"one.mid"_qs, Sample::midi("One", false));
    const QString edited = m_library->add(u"two.mid"_qs, Sample::midi("Two", false));
    m_library->add(u"three.mid"_qs, Sample::midi("Three", false));
    const QString alike = m_library->path(u"alike.mid"_qs);
    makeFile(alike, fileContent(edited));
    QCOMPARE(edit(alike, {}, 1), ManualEdit::Outcome::Done);
    QCOMPARE(spread(1, {author, artist, genre, title}), ManualEdit::Outcome::Done);
    for (const int row : {0, 2}) {
        const SongInfo info = Sample::infoOf(m_library->model().fileName(row));
        const QString fromFile = row == 0 ? u"one"_qs : u"three"_qs;
        const QString own = row == 0 ? u"One"_qs : u"Three"_qs;
        QCOMPARE(info.title, title ? fromFile : own);
        QCOMPARE(info.author, author ? u"E. Author"_qs : QString());
        QCOMPARE(info.artist, artist ? u"E. Artist"_qs : QString());
        QCOMPARE(info.genre, genre ? u"E. Genre"_qs : QString());
        QCOMPARE(info.length, 0);
        QCOMPARE(info.userBpm, 0);
        QCOMPARE(info.key, QString());
        QCOMPARE(m_library->shown(row, u"title"_qs), info.title);
    }
    // What is spread leaves the edited song as the edit alone has made it.
    QCOMPARE(fileContent(edited), fileContent(alike));
    const bool isSpread = author || artist || genre || title;
    QCOMPARE(m_library->statuses(), isSpread ? u"222"_qs : u"020"_qs);
    QCOMPARE(m_run->steps, isSpread ? QList<int>({1, 3}) : QList<int>());
    QCOMPARE(m_run->eventRounds, isSpread ? 2 : 0);
}

void TestManualEdit::titleComesFromEachFilesName()
{
    m_library->add(u"edited.mid"_qs, Sample::midi("x", false));
    m_library->add(u"with.dots/no dot"_qs, Sample::midi("x", false));
    m_library->add(u"My.Song.kar"_qs, Sample::midi("x", false));
    QCOMPARE(spread(0, {false, false, false, true}), ManualEdit::Outcome::Done);
    QCOMPARE(m_library->shown(1, u"title"_qs), u"no dot"_qs);
    QCOMPARE(m_library->shown(2, u"title"_qs), u"My.Song"_qs);
}

void TestManualEdit::skipsUnreadableFiles()
{
    m_library->add(u"one.mid"_qs, Sample::midi("One", false));
    const QString gone = m_library->add(u"two.mid"_qs, Sample::midi("Two", false));
    m_library->add(u"three.mid"_qs, Sample::midi("Three", false));
    QVERIFY(QFile::remove(gone));
    QCOMPARE(spread(0, {true, false, false, false}), ManualEdit::Outcome::Done);
    QCOMPARE(m_library->statuses(), u"202"_qs);
    QCOMPARE(m_library->shown(1, u"title"_qs), u"Two"_qs);
    QCOMPARE(m_run->steps, QList<int>({3}));
}

void TestManualEdit::spreadsNothingOverASingleRow()
{
    const QString path = m_library->add(u"one.mid"_qs, Sample::midi("One", false));
    const QString alike = m_library->path(u"alike.mid"_qs);
    makeFile(alike, fileContent(path));
    QCOMPARE(edit(alike), ManualEdit::Outcome::Done);
    QCOMPARE(spread(0, {true, true, true, true}), ManualEdit::Outcome::Done);
    QCOMPARE(fileContent(path), fileContent(alike));
    QCOMPARE(m_library->statuses(), u"2"_qs);
    QCOMPARE(m_run->steps, QList<int>());
}

void TestManualEdit::stopsAtTheNextSong()
{
    for (const QString &name : {u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs, u"d.mid"_qs})
        m_library->add(name, Sample::midi("x", false));
    m_run->onStep = [this](int done) { m_run->isStopped = done == 2; };
    QCOMPARE(spread(0, {true, false, false, false}), ManualEdit::Outcome::Interrupted);
    QCOMPARE(m_library->statuses(), u"2200"_qs);
    QCOMPARE(Sample::infoOf(m_library->model().fileName(1)).author, u"E. Author"_qs);
    QCOMPARE(Sample::infoOf(m_library->model().fileName(2)).author, QString());
    QCOMPARE(m_run->report().skipped(), 2);
    QVERIFY(m_run->report().text().contains(m_library->model().fileName(3)));
}

/// The end processes the clicks during the last song, which must not reach the window.
void TestManualEdit::endsItsStageAfterEverySongIsWritten()
{
    for (const QString &name : {u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs})
        m_library->add(name, Sample::midi("x", false));
    QStringList seen;
    m_run->onEvents = [&] { seen.append(m_library->statuses()); };
    m_run->onEnd = [&] { seen.append(m_library->statuses()); };
    QCOMPARE(spread(0, {true, false, false, false}), ManualEdit::Outcome::Done);
    QCOMPARE(seen.constFirst(), u"200"_qs);
    QCOMPARE(seen.constLast(), u"222"_qs);
}

void TestManualEdit::endsWithTheProgram()
{
    for (const QString &name : {u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs})
        m_library->add(name, Sample::midi("x", false));
    m_run->onStep = [](int) { RunGuard::requestEnd(); };
    QCOMPARE(spread(0, {true, false, false, false}), ManualEdit::Outcome::Interrupted);
    QCOMPARE(m_library->statuses(), u"220"_qs);
}

void TestManualEdit::visitsEveryRowOnceInASortedTable_data()
{
    QTest::addColumn<QString>("column");
    QTest::newRow("title") << u"title"_qs;
    QTest::newRow("status") << u"status"_qs;
    QTest::newRow("author") << u"author"_qs;
}

void TestManualEdit::visitsEveryRowOnceInASortedTable()
{
    QFETCH(QString, column);
    UserSongsRelTableModel &model = m_library->model();
    for (int i = 0; i < 40; ++i) {
        const QString name = u"file %1.mid"_qs.arg(40 - i, 2, 10, QChar(u'0'));
        m_library->add(name, Sample::midi("title " + QByteArray::number(i * 7 % 40), false));
        if (i % 4 == 0)
            model.setStatus(i, Database::Failed);
    }
    model.sort(model.fieldIndex(column), Qt::DescendingOrder);
    const QString edited = model.fileName(5);
    model.setSortingLocked(true);
    QCOMPARE(spread(5, {true, false, false, true}), ManualEdit::Outcome::Done);
    model.setSortingLocked(false);
    QCOMPARE(model.goodRowCount(), 40);
    QCOMPARE(m_run->steps.size(), 39);
    for (int row = 0; row < 40; ++row) {
        const bool isEdited = model.fileName(row) == edited;
        QCOMPARE(model.status(row), int(Database::Edited));
        QCOMPARE(m_library->shown(row, u"author"_qs), u"E. Author"_qs);
        QCOMPARE(m_library->shown(row, u"artist"_qs), isEdited ? u"E. Artist"_qs : QString());
        QCOMPARE(m_library->shown(row, u"title"_qs) + u".mid"_qs,
                 isEdited ? u"Edited.mid"_qs : model.shortName(row));
    }
}

BRISEL_TEST(QCoreApplication, TestManualEdit)
#include "tst_manualedit.moc"
