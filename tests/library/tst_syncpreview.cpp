#include "base/filefailure.h"
#include "index/memoryreasons.h"
#include "library/synchroniser.h"
#include "library/syncpreview.h"

#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"
#include "tools/samplesongs.h"

#include <QTest>

using namespace brisel;

using Field = FieldChange::Field;

namespace
{

/// "field: before > after" of each change; the fields by their numbers.
QStringList textsOf(const PreviewSong &song)
{
    QStringList texts;
    for (const FieldChange &change : song.changes)
        texts.append(QStringLiteral("%1: %2 > %3")
                         .arg(static_cast<int>(change.field))
                         .arg(change.before, change.after));
    return texts;
}

bool wouldLose(Field field, const char *before, const char *after)
{
    return losesText({field, QString::fromLatin1(before), QString::fromLatin1(after)});
}

} // namespace

class TestSyncPreview : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup()
    {
        m_run.reset();
        m_library.reset();
    }
    void showsTheChangesOfEachSong();
    void showsHowASongWasFound();
    void showsSongsWithoutChanges();
    void showsWhySongsAreNotRead();
    void writesAndAsksNothing();
    void showsWhatASynchronisationWrites();
    void replacesTheAuthorByMarkersAsASynchronisationDoes();
    void takesTheRecordThatTheUserChose();
    void recordsTheStateOfTheFile();
    void sharesEqualTexts();
    void takesAnEmptyLibrary();
    void stopsWhenInterrupted();
    void stopsAtTheEndOfTheProgram();
    void losesTextsThatAreNotContained();

private:
    QList<PreviewSong> preview()
    {
        SyncPreview preview(m_library->model(), m_library->database());
        if (preview.run(*m_run) != SyncPreview::Outcome::Done)
            qFatal("interrupted");
        return preview.songs();
    }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<ScriptedRun> m_run;
};

void TestSyncPreview::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{QStringLiteral("ONE"), QStringLiteral("ONE LOVE"),
                                     QStringLiteral("X"), QStringLiteral("1;Intro;9;Verse;")},
                                    {QStringLiteral("TWO"), QStringLiteral("TWO SONGS")}});
    m_run = std::make_unique<ScriptedRun>();
}

void TestSyncPreview::showsTheChangesOfEachSong()
{
    const QString path = m_library->add(QStringLiteral("one.mid"), Sample::midi("One", true));
    m_library->add(QStringLiteral("two.mid"), Sample::midi("My own", false));
    const QList<PreviewSong> songs = preview();
    QCOMPARE(songs.size(), 2);
    QCOMPARE(songs.at(0).row, 0);
    QCOMPARE(songs.at(0).path, path);
    QVERIFY(songs.at(0).isPublished);
    QCOMPARE(textsOf(songs.at(0)).join(u'\n'),
             QStringLiteral("1: One > ONE LOVE\n2:  > X ALT\n3:  > FOLK\n4:  > AUTHOR\n"
                            "5:  > 03:05\n6:  > 120\n7:  > A-\n8:  > 1 Intro; 9 Verse"));
    QCOMPARE(songs.at(1).row, 1);
    QVERIFY(!songs.at(1).isPublished);
    QCOMPARE(textsOf(songs.at(1)).join(u'\n'),
             QStringLiteral("2:  > ARTIST ALT\n3:  > FOLK\n4:  > AUTHOR"));
    QCOMPARE(m_run->steps, QList<int>({1, 2}));
    QCOMPARE(m_run->eventRounds, 2);
}

void TestSyncPreview::showsHowASongWasFound()
{
    m_library->add(QStringLiteral("one.mid"), Sample::midi("x", true));
    m_library->add(QStringLiteral("a.mid"), Sample::midi("Two Songs", true));
    m_library->add(QStringLiteral("b.mid"), Sample::midi("Unknown", true));
    SongInfo info;
    info.zbxLongName = QStringLiteral("two.mid");
    m_library->add(QStringLiteral("c.zb3"),
                   SampleSongs::container(SongInfo::Zb3, info, Sample::midi("x", true)));
    const QList<PreviewSong> songs = preview();
    QCOMPARE(songs.at(0).foundBy, FoundBy::FileName);
    QCOMPARE(songs.at(1).foundBy, FoundBy::Title);
    QVERIFY(!songs.at(2).wasFound());
    QVERIFY(songs.at(2).changes.isEmpty() && !songs.at(2).whyNotRead.has_value());
    QCOMPARE(songs.at(3).foundBy, FoundBy::LongName);
}

void TestSyncPreview::showsSongsWithoutChanges()
{
    m_library->add(QStringLiteral("one.mid"), Sample::midi("One", true));
    QCOMPARE(Synchroniser(m_library->model(), m_library->database(), false).run(*m_run),
             Synchroniser::Outcome::Done);
    const QList<PreviewSong> songs = preview();
    QVERIFY(songs.first().wasFound());
    QVERIFY(songs.first().changes.isEmpty());
}

void TestSyncPreview::showsWhySongsAreNotRead()
{
    QFile::remove(m_library->add(QStringLiteral("one.mid"), Sample::midi("One", true)));
    makeFile(m_library->add(QStringLiteral("two.mid"), Sample::midi("Two", true)), "no song");
    const QList<PreviewSong> songs = preview();
    QCOMPARE(songs.at(0).whyNotRead->text(), FileReason::missing.text());
    QVERIFY(songs.at(1).whyNotRead.has_value());
    QVERIFY(!songs.at(0).wasFound() && !songs.at(1).wasFound());
    QVERIFY(m_run->report().isUntouched());
}

void TestSyncPreview::writesAndAsksNothing()
{
    const QByteArray content = Sample::midi("One", false);
    const QString path = m_library->add(QStringLiteral("one.mid"), content);
    const FileState before = fileState(path);
    QCOMPARE(preview().first().changes.size(), 5);
    QVERIFY(fileState(path) == before);
    QCOMPARE(fileContent(path), content);
    QCOMPARE(m_library->statuses(), QStringLiteral("0"));
    QCOMPARE(m_library->shown(0, QStringLiteral("title")), QStringLiteral("One"));
    QVERIFY(m_run->asked.isEmpty());
    QCOMPARE(QDir(path.section(u'/', 0, -2)).entryList(QDir::Files).size(), 2);
}

void TestSyncPreview::showsWhatASynchronisationWrites()
{
    QList<Sample::CatalogueRow> rows;
    for (const SampleSongs::Sample &sample : SampleSongs::set()) {
        if (!sample.catalogueName.isEmpty())
            rows.append({sample.catalogueName, sample.expected.title.toUpper(),
                         QStringLiteral("SOMEBODY"), QStringLiteral("1;Intro;")});
    }
    m_library.reset();
    m_library = std::make_unique<Sample::Library>(rows);
    for (const SampleSongs::Sample &sample : SampleSongs::set()) {
        if (sample.isSong)
            m_library->add(sample.fileName, sample.content);
    }
    const QList<PreviewSong> songs = preview();
    QList<SongInfo> before;
    for (const PreviewSong &song : songs)
        before.append(Sample::infoOf(song.path));
    QCOMPARE(Synchroniser(m_library->model(), m_library->database(), false).run(*m_run),
             Synchroniser::Outcome::Done);
    int changed = 0;
    for (const PreviewSong &song : songs) {
        QCOMPARE(song.changes, fieldChanges(before.at(song.row), Sample::infoOf(song.path)));
        QCOMPARE(m_library->statuses().at(song.row), QChar(song.wasFound() ? u'1' : u'3'));
        changed += song.changes.isEmpty() ? 0 : 1;
    }
    QVERIFY(changed > 5);
}

void TestSyncPreview::replacesTheAuthorByMarkersAsASynchronisationDoes()
{
    const QByteArray track = MidiBytes::kordiaEvent(3, "Old author") + MidiBytes::endOfTrack();
    m_library->add(QStringLiteral("one.mid"), MidiBytes::file({track}));
    const QList<PreviewSong> songs = preview();
    QVERIFY(textsOf(songs.first()).contains(QStringLiteral("4: Old author > AUTHOR")));
}

void TestSyncPreview::takesTheRecordThatTheUserChose()
{
    m_library->add(QStringLiteral("one.mid"), Sample::midi("One", true));
    m_library->add(QStringLiteral("b.mid"), Sample::midi("Unknown", true));
    SyncPreview preview(m_library->model(), m_library->database());
    QCOMPARE(preview.run(*m_run), SyncPreview::Outcome::Done);
    auto chosen = std::make_shared<SongsDbRecord>();
    chosen->title = QStringLiteral("Unknown soldier");
    chosen->artist = QStringLiteral("Somebody");
    const PreviewSong song = preview.matched(1, chosen);
    QCOMPARE(song.row, 1);
    QCOMPARE(song.foundBy, FoundBy::Hand);
    QCOMPARE(song.chosen, chosen);
    QCOMPARE(textsOf(song).mid(0, 2), QStringList({QStringLiteral("1: Unknown > Unknown soldier"),
                                                   QStringLiteral("2:  > Somebody")}));
    // Also a song that the catalogue has.
    QCOMPARE(preview.matched(0, chosen).foundBy, FoundBy::Hand);
}

void TestSyncPreview::recordsTheStateOfTheFile()
{
    const QString path = m_library->add(QStringLiteral("one.mid"), Sample::midi("One", true));
    const QList<PreviewSong> songs = preview();
    QVERIFY(songs.first().state == fileState(path));
    makeFile(path, Sample::midi("Longer", true));
    QVERIFY(songs.first().state != fileState(path));
}

void TestSyncPreview::sharesEqualTexts()
{
    m_library->add(QStringLiteral("one.mid"), Sample::midi("x", true));
    m_library->add(QStringLiteral("two.mid"), Sample::midi("y", true));
    const QList<PreviewSong> songs = preview();
    const auto genreOf = [&](qsizetype song) { return songs.at(song).changes.at(1).after; };
    QCOMPARE(genreOf(0), QStringLiteral("FOLK"));
    QCOMPARE(static_cast<const void *>(genreOf(0).constData()),
             static_cast<const void *>(genreOf(1).constData()));
}

void TestSyncPreview::takesAnEmptyLibrary()
{
    QVERIFY(preview().isEmpty());
}

void TestSyncPreview::stopsWhenInterrupted()
{
    for (const char *name : {"one.mid", "two.mid", "three.mid"})
        m_library->add(QString::fromLatin1(name), Sample::midi("x", true));
    m_run->onStep = [this](int done) { m_run->isStopped = done == 2; };
    SyncPreview preview(m_library->model(), m_library->database());
    QCOMPARE(preview.run(*m_run), SyncPreview::Outcome::Interrupted);
    QCOMPARE(preview.songs().size(), 2);
    QVERIFY(m_run->report().isUntouched());
}

void TestSyncPreview::stopsAtTheEndOfTheProgram()
{
    m_library->add(QStringLiteral("one.mid"), Sample::midi("x", true));
    m_run->onEvents = [] { RunGuard::requestEnd(); };
    SyncPreview preview(m_library->model(), m_library->database());
    QCOMPARE(preview.run(*m_run), SyncPreview::Outcome::Interrupted);
}

void TestSyncPreview::losesTextsThatAreNotContained()
{
    QVERIFY(wouldLose(Field::Title, "My own", "OTHER"));
    QVERIFY(wouldLose(Field::Artist, "D. Modugno", "MODUGNO DOMENICO"));
    QVERIFY(wouldLose(Field::Genre, "Jazz", ""));
    QVERIFY(wouldLose(Field::Author, "A", "B"));
    QVERIFY(!wouldLose(Field::Title, "One", "ONE LOVE"));
    QVERIFY(!wouldLose(Field::Title, "", "ONE LOVE"));
    QVERIFY(!wouldLose(Field::Artist, "--", "SOMEBODY"));
    QVERIFY(!wouldLose(Field::Bpm, "100", "120"));
    QVERIFY(!wouldLose(Field::Key, "A", "B"));
    QVERIFY(!wouldLose(Field::Length, "03:00", "04:00"));
}

BRISEL_TEST(QCoreApplication, TestSyncPreview)

#include "tst_syncpreview.moc"
