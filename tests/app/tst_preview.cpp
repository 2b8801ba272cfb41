#include "library/dialogs/previewdialog.h"
#include "tests/app/previewtest.h"
#include "tests/testprogram.h"

using namespace brisel;

/// The preview of the synchronisation through the real window, by clicks and keys.
class TestPreview : public PreviewTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void opensFromMenuAndButton();
    void isEnabledLikeTheSynchronisation();
    void showsFieldsWithOldAndNewTexts();
    void filtersRows();
    void writesWhatIsTicked();
    void writesAllAsASynchronisationDoes();
    void writesNothingWhenCancelled();
    void writesNothingWithoutBackupAnswer();
    void ticksAndUnticksByKeys();
    void spaceTicksTheFieldOfItsRow();
    void ticksAWholeSong();
    void leavesUnpublishedSongsUntickedWhileAsking();
    void explainsATableWithoutRows();
    void interruptedPreviewShowsNothing();
    void reportsAFileChangedMeanwhile();
    void followsTheLanguage();
};

void TestPreview::opensFromMenuAndButton()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    const auto cancel = [](QWidget *dialog, QTableView *) {
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    };
    expectPreview(cancel);
    openPreview();
    expectPreview(cancel);
    QTest::mouseClick(tool("previewToolButton"), Qt::LeftButton);
    verifyScript();
    QCOMPARE(action()->text(), u"Anteprima sincronizzazione..."_qs);
    QCOMPARE(tool("previewToolButton")->text(), action()->text());
}

void TestPreview::isEnabledLikeTheSynchronisation()
{
    QVERIFY(!action()->isEnabled() && !tool("previewToolButton")->isEnabled());
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    QVERIFY(action()->isEnabled() && tool("previewToolButton")->isEnabled());
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QVERIFY(!action()->isEnabled() && !tool("previewToolButton")->isEnabled());
}

void TestPreview::showsFieldsWithOldAndNewTexts()
{
    makeSongs({u"one.mid"_qs, u"other.mid"_qs}, true);
    import({u"one.mid"_qs, u"other.mid"_qs});
    makeFile(at(u"bad.mid"_qs), "no song");
    expectPreview([](QWidget *dialog, QTableView *view) {
        QCOMPARE(rows(view).join(u'\n'), u"[x]one.mid|[x]Titolo|one|ONE LOVE|nome del file\n"
                                         "one.mid|[x]Artista||ARTIST ALT|nome del file\n"
                                         "one.mid|[x]Genere||FOLK|nome del file\n"
                                         "one.mid|[x]Autore||AUTHOR|nome del file\n"
                                         "one.mid|[x]Durata||03:05|nome del file\n"
                                         "one.mid|[x]Bpm||120|nome del file\n"
                                         "one.mid|[x]Tonalità||A-|nome del file\n"
                                         "other.mid|non trovata|||"_qs);
        QCOMPARE(countText(dialog), u"1 song, 7 campi da scrivere"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreview::filtersRows()
{
    makeFile(at(u"one.mid"_qs), Sample::midi("My own title", true));
    const QByteArray lost = MidiBytes::metaEvent(3, "Two") + MidiBytes::kordiaEvent(2, "Somebody");
    makeFile(at(u"two.mid"_qs), MidiBytes::file({lost + MidiBytes::endOfTrack()}));
    makeSongs({u"other.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs, u"other.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        using Filter = PreviewModel::Filter;
        const auto shown = [&](Filter filter) {
            choose(dialog, filter);
            return rows(view);
        };
        QCOMPARE(shown(Filter::All).size(), 6 + 4 + 1);
        QCOMPARE(shown(Filter::Found).size(), 6 + 4);
        QCOMPARE(shown(Filter::NotFound), QStringList(u"other.mid|non trovata|||"_qs));
        QCOMPARE(shown(Filter::Published).size(), 6 + 1);
        QCOMPARE(shown(Filter::LosesText),
                 QStringList(u"[x]two.mid|[x]Artista|Somebody|ARTIST|nome del file"_qs));
        // Only what is shown is unticked.
        DialogScript::click(dialog, u"selectNonePushButton"_qs);
        QCOMPARE(countText(dialog), u"2 song, 9 campi da scrivere"_qs);
        choose(dialog, Filter::All);
        DialogScript::click(dialog, u"selectAllPushButton"_qs);
        QCOMPARE(countText(dialog), u"2 song, 10 campi da scrivere"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreview::writesWhatIsTicked()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        toggle(view, 0, PreviewModel::FieldColumn); // the title of one.mid
        toggle(view, 7, PreviewModel::SongColumn);  // two.mid
        QVERIFY(rowText(view, 0).startsWith(u"[-]one.mid|[ ]Titolo"_qs));
        QVERIFY(rowText(view, 7).startsWith(u"[ ]two.mid|[ ]Titolo"_qs));
        QCOMPARE(countText(dialog), u"1 song, 6 campi da scrivere"_qs);
        DialogScript::click(dialog, u"writePushButton"_qs);
    });
    expectBackup(u"exitPushButton"_qs);
    openPreview();
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    QCOMPARE(Sample::infoOf(at(u"one.mid"_qs)).artist, u"ARTIST ALT"_qs);
    QCOMPARE(title(u"two.mid"_qs), u"two"_qs);
    QCOMPARE(statuses(), u"10"_qs);
    QVERIFY(action()->isEnabled() && tool("updateDataToolButton")->isEnabled());
}

void TestPreview::writesAllAsASynchronisationDoes()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs});
    expectPreview(
        [](QWidget *dialog, QTableView *) { DialogScript::click(dialog, u"writePushButton"_qs); });
    expectBackup(u"exitPushButton"_qs);
    openPreview();
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
    QCOMPARE(title(u"two.mid"_qs), u"TWO SONGS"_qs);
    QCOMPARE(statuses(), u"11"_qs);
    QVERIFY(!action()->isEnabled() && !tool("updateDataToolButton")->isEnabled());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestPreview::writesNothingWhenCancelled()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    const QByteArray before = fileContent(at(u"one.mid"_qs));
    expectPreview([](QWidget *dialog, QTableView *) { QTest::keyClick(dialog, Qt::Key_Escape); });
    openPreview();
    QCOMPARE(fileContent(at(u"one.mid"_qs)), before);
    QCOMPARE(statuses(), u"0"_qs);
    QVERIFY(action()->isEnabled());
}

void TestPreview::writesNothingWithoutBackupAnswer()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectPreview(
        [](QWidget *dialog, QTableView *) { DialogScript::click(dialog, u"writePushButton"_qs); });
    expectBackup(u"abortPushButton"_qs);
    openPreview();
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    QVERIFY(action()->isEnabled());
}

void TestPreview::ticksAndUnticksByKeys()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        DialogScript::click(dialog, u"selectNonePushButton"_qs);
        QCOMPARE(countText(dialog), u"0 song, 0 campi da scrivere"_qs);
        QVERIFY(!dialog->findChild<QPushButton *>(u"writePushButton"_qs)->isEnabled());
        toggle(view, 2, PreviewModel::FieldColumn);
        toggle(view, 3, PreviewModel::FieldColumn);
        QCOMPARE(countText(dialog), u"1 song, 2 campi da scrivere"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreview::spaceTicksTheFieldOfItsRow()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        for (const int column : {0, 2, 3, 4})
            toggle(view, 1 + column, column); // in cells without a tick of their own
        QCOMPARE(countText(dialog), u"1 song, 3 campi da scrivere"_qs);
        toggle(view, 1, PreviewModel::NewColumn);
        QCOMPARE(rowText(view, 1), u"one.mid|[x]Artista||ARTIST ALT|nome del file"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreview::ticksAWholeSong()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        toggle(view, 1, PreviewModel::FieldColumn);
        QVERIFY(rowText(view, 0).startsWith(u"[-]"_qs));
        toggle(view, 0, PreviewModel::SongColumn); // partly ticked: all
        QVERIFY(rowText(view, 0).startsWith(u"[x]"_qs));
        QVERIFY(rowText(view, 1).contains(u"[x]Artista"_qs));
        toggle(view, 0, PreviewModel::SongColumn);
        QVERIFY(rowText(view, 1).contains(u"[ ]Artista"_qs));
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreview::leavesUnpublishedSongsUntickedWhileAsking()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectPreview([](QWidget *dialog, QTableView *view) {
        QVERIFY(rowText(view, 0).startsWith(u"[ ]one.mid|[ ]Titolo"_qs));
        toggle(view, 0, PreviewModel::SongColumn);
        DialogScript::click(dialog, u"writePushButton"_qs);
    });
    expectBackup(u"exitPushButton"_qs); // no question: the user has ticked the song
    openPreview();
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
}

void TestPreview::explainsATableWithoutRows()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        const auto *hint = view->findChild<QLabel *>(u"emptyTableHint"_qs);
        QVERIFY(!hint->isVisible());
        choose(dialog, PreviewModel::Filter::NotFound);
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), u"Nessuna song da mostrare"_qs);
        choose(dialog, PreviewModel::Filter::All);
        QVERIFY(!hint->isVisible());
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreview::interruptedPreviewShowsNothing()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    atProgress(u"Anteprima"_qs, u"1 di 3"_qs, [](QProgressDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    });
    openPreview(); // no dialog follows
    QCOMPARE(statuses(), u"000"_qs);
    QVERIFY(action()->isEnabled());
}

void TestPreview::reportsAFileChangedMeanwhile()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs});
    expectPreview([this](QWidget *dialog, QTableView *) {
        makeFile(at(u"one.mid"_qs), Sample::midi("of another program", true));
        DialogScript::click(dialog, u"writePushButton"_qs);
    });
    expectBackup(u"exitPushButton"_qs);
    openPreview();
    QCOMPARE(title(u"one.mid"_qs), u"of another program"_qs);
    QCOMPARE(statuses(), u"31"_qs);
    QVERIFY(action()->isEnabled()); // not all rows were written
}

void TestPreview::followsTheLanguage()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    m_window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    QTRY_COMPARE(action()->text(), u"Preview of the synchronisation..."_qs);
    QCOMPARE(tool("previewToolButton")->text(), action()->text());
    expectPreview([](QWidget *dialog, QTableView *view) {
        QCOMPARE(dialog->windowTitle(), u"Preview of the synchronisation"_qs);
        QCOMPARE(rowText(view, 0), u"[x]one.mid|[x]Title|one|ONE LOVE|file name"_qs);
        QCOMPARE(countText(dialog), u"1 song, 7 fields to write"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
    m_window->findChild<QAction *>(u"actionItalian"_qs)->trigger();
}

BRISEL_TEST(QApplication, TestPreview)

#include "tst_preview.moc"
