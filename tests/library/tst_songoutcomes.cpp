#include "base/filefailure.h"
#include "library/libraryimport.h"
#include "library/manualedit.h"
#include "library/synchroniser.h"
#include "tests/library/filesizelimit.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

/// What the rows say after a run, with the reason of its report.
class TestSongOutcomes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void importKnowsTheFile();
    void listsUnreadableFilesOfAnImport();
    void clearsUnreadableFilesOfTheImportBefore();
    void synchronisingSaysWhatBecameOfEach();
    void updatedSongThatWasNotSavedSaysSo();
    void interruptedRowsKeepTheirOutcome();
    void editSaysWhetherItWasWritten();
    void spreadingSaysWhichSongsAreUnreadable();

private:
    UserSongsRelTableModel &model() { return m_library->model(); }
    QString texts()
    {
        QStringList all;
        for (int row = 0; row < model().rowCount(); ++row)
            all.append(model().outcomeText(row));
        return all.join(u'\n');
    }
    void synchronise(const QList<Run::Answer> &answers = {})
    {
        m_run->answers = answers;
        QCOMPARE(Synchroniser(model(), m_library->database(), true).run(*m_run),
                 Synchroniser::Outcome::Done);
    }
    void edit(int row, const ManualEdit::Spread &spread = {})
    {
        const QString path = model().fileName(row);
        MetaSong song;
        QVERIFY(song.importFile(path));
        SongInfo info;
        song.getSongInfo(info);
        info.title = u"Edited"_qs;
        info.genre = u"Edited"_qs;
        QCOMPARE(ManualEdit(model(), song, info, path, row, spread).run(*m_run),
                 ManualEdit::Outcome::Done);
    }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<ScriptedRun> m_run;
};

void TestSongOutcomes::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_qs, u"ONE LOVE"_qs, u"X"_qs, u"1;Intro;9;Verse;"_qs},
                                    {u"TWO"_qs, u"TWO SONGS"_qs}});
    m_run = std::make_unique<ScriptedRun>();
}

void TestSongOutcomes::cleanup()
{
    m_run.reset();
    m_library.reset();
}

void TestSongOutcomes::importKnowsTheFile()
{
    const QByteArray content = Sample::midi("One", true);
    const QString path = m_library->path(u"one.mid"_qs);
    makeFile(path, content);
    LibraryImport import(m_library->database(), model(), {path});
    QCOMPARE(import.run(*m_run), LibraryImport::Outcome::Done);
    QCOMPARE(texts(), u"importata"_qs);
    QCOMPARE(m_library->shown(0, u"folder"_qs), path.section(u'/', 0, -2));
    QCOMPARE(m_library->shown(0, u"markers"_qs), u"0"_qs);
    const auto raw = [this](const QString &column) {
        return model().index(0, model().fieldIndex(column)).data(Qt::EditRole).toLongLong();
    };
    QCOMPARE(raw(u"size"_qs), content.size());
    QCOMPARE(raw(u"modified"_qs), QFileInfo(path).lastModified().toSecsSinceEpoch());
    synchronise();
    QCOMPARE(m_library->shown(0, u"markers"_qs), u"2"_qs);
    QCOMPARE(raw(u"size"_qs), QFileInfo(path).size());
    QVERIFY(raw(u"size"_qs) > content.size());
}

void TestSongOutcomes::listsUnreadableFilesOfAnImport()
{
    const QString song = m_library->path(u"one.mid"_qs);
    const QString other = m_library->path(u"other.mid"_qs);
    makeFile(song, Sample::midi("One", true));
    makeFile(other, "not a song");
    model().showUnreadable(true);
    LibraryImport import(m_library->database(), model(), {other, song});
    QCOMPARE(import.run(*m_run), LibraryImport::Outcome::Done);
    QCOMPARE(model().goodRowCount(), 1);
    QCOMPARE(model().rowCount(), 2);
    QCOMPARE(m_library->shown(1, u"shortname"_qs), u"other.mid"_qs);
    const QString reason = u"formato sconosciuto o file danneggiato"_qs;
    QVERIFY(m_run->report().text().contains(reason));
    QCOMPARE(texts(), u"importata\nnon leggibile (%1)"_qs.arg(reason));
}

void TestSongOutcomes::clearsUnreadableFilesOfTheImportBefore()
{
    const QString other = m_library->path(u"other.mid"_qs);
    makeFile(other, "not a song");
    model().showUnreadable(true);
    for (int i = 0; i < 2; ++i) {
        LibraryImport import(m_library->database(), model(), {other});
        QCOMPARE(import.run(*m_run), LibraryImport::Outcome::Done);
        QCOMPARE(model().rowCount(), 1);
        QCOMPARE(model().outcomeCount(SongOutcome::NotReadable), 1);
    }
}

void TestSongOutcomes::synchronisingSaysWhatBecameOfEach()
{
    m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    m_library->add(u"missing.mid"_qs, Sample::midi("Missing", true));
    m_library->add(u"declined.mid"_qs, Sample::midi("Declined", false));
    const QString gone = m_library->add(u"two.mid"_qs, Sample::midi("Two", true));
    QVERIFY(QFile::remove(gone));
    synchronise({Run::Answer::No});
    QCOMPARE(m_library->statuses(), u"1333"_qs);
    QCOMPARE(texts(), u"sincronizzata con il database\n"
                      "non trovata nel database (il database Kordia non la contiene)\n"
                      "rifiutata (la modifica è stata rifiutata)\n"
                      "non leggibile (%1)"_qs.arg(FileReason::missing.text()));
    QCOMPARE(model().outcomeCount(SongOutcome::NotFound), 1);
    QCOMPARE(model().outcomeCount(SongOutcome::Imported), 0);
}

void TestSongOutcomes::updatedSongThatWasNotSavedSaysSo()
{
    m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    {
        const FileSizeLimit limit(20);
        synchronise();
    }
    QCOMPARE(m_library->statuses(), u"1"_qs); // its row was read again
    QCOMPARE(model().outcome(0), SongOutcome::NotWritten);
    QVERIFY(m_run->report().text().contains(
        texts().section(u" ("_qs, 1).chopped(1))); // the same reason
    synchronise();
    QCOMPARE(texts(), u"sincronizzata con il database"_qs);
}

void TestSongOutcomes::interruptedRowsKeepTheirOutcome()
{
    m_library->add(u"declined.mid"_qs, Sample::midi("Declined", false));
    m_library->add(u"other.mid"_qs, Sample::midi("Other", false));
    m_run->answers = {Run::Answer::No};
    m_run->onStep = [this](int /*done*/) { m_run->isStopped = true; };
    QCOMPARE(Synchroniser(model(), m_library->database(), true).run(*m_run),
             Synchroniser::Outcome::Interrupted);
    QCOMPARE(texts(), u"rifiutata (la modifica è stata rifiutata)\nimportata"_qs);
}

void TestSongOutcomes::editSaysWhetherItWasWritten()
{
    m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    {
        const FileSizeLimit limit(20);
        edit(0);
    }
    QCOMPARE(m_library->statuses(), u"2"_qs);
    QCOMPARE(model().outcome(0), SongOutcome::NotWritten);
    QVERIFY(texts().startsWith(u"non scritta ("_qs));
    edit(0);
    QCOMPARE(texts(), u"modificata a mano"_qs);
}

void TestSongOutcomes::spreadingSaysWhichSongsAreUnreadable()
{
    m_library->add(u"one.mid"_qs, Sample::midi("One", true));
    QVERIFY(QFile::remove(m_library->add(u"two.mid"_qs, Sample::midi("Two", true))));
    edit(0, {false, false, true, false});
    QCOMPARE(m_library->statuses(), u"20"_qs);
    QCOMPARE(model().outcome(0), SongOutcome::Edited);
    QCOMPARE(model().outcome(1), SongOutcome::NotReadable);
}

BRISEL_TEST(QCoreApplication, TestSongOutcomes)
#include "tst_songoutcomes.moc"
