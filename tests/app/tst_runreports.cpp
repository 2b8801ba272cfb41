#include "tests/app/reporttest.h"
#include "tests/fulldisk.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>

using namespace brisel;

/// The status bar and the report after import, synchronisation, backup and edits.
class TestRunReports : public ReportTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void saysWhyTheButtonIsOff();
    void reportsFilesThatAreNotSongs();
    void disablesDetailsWhenTheNextRunHasNothingToReport();
    void reportsChangedSongs();
    void reportsSongsThatWereNotSynchronised();
    void reportsSongsThatWereNotSaved();
    void reportsASongSavedOnAFullDisk();
    void reportsTheRowsThatAnInterruptLeft();
    void continuesFromTheImport();
    void staysWhenTheNextRunIsCalledOff();
    void countsTheBackupsCopies();
    void reportsAnEdit();
    void reportsARowThatDoesNotOpen();
    void reportsSongsThatASpreadMissed();
    void reportsSongsThatASpreadChanged();
    void speaksTheLanguageChosen();

private:
    /// The next dialog edits a song: gives it and all others the author \a author.
    void expectAuthorForAll(const QString &author)
    {
        expectEdit([author](QWidget *widget) {
            widget->findChild<QLineEdit *>(u"authorLineEdit"_qs)->setText(author);
            DialogScript inner;
            inner.expect("QMessageBox", [](QWidget *box) {
                QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                                  Qt::LeftButton);
            });
            QTest::mouseClick(widget->findChild<QCheckBox *>(u"checkBoxToAllAuthor"_qs),
                              Qt::LeftButton);
            DialogScript::click(widget, u"savePushButton"_qs);
        });
    }
    void synchronise()
    {
        expectBackup(u"exitPushButton"_qs);
        clickSync();
        verifyScript();
    }
};

void TestRunReports::saysWhyTheButtonIsOff()
{
    QVERIFY(details()->isVisible());
    QVERIFY(!details()->isEnabled());
    QCOMPARE(details()->toolTip(), u"Nessun file da segnalare"_qs);
    QCOMPARE(details()->accessibleDescription(), details()->toolTip());
    QCOMPARE(outcome(), QString());
}

void TestRunReports::reportsFilesThatAreNotSongs()
{
    makeSongs({u"one.mid"_qs}, true);
    makeFile(at(u"<b>text</b>.mid"_qs), "no song");
    makeFile(at(u"empty.mp3"_qs), "");
    import({u"<b>text</b>.mid"_qs, u"one.mid"_qs, u"empty.mp3"_qs});
    QVERIFY(details()->isEnabled());
    QCOMPARE(details()->toolTip(),
             u"Elenca i file che l'ultima operazione non ha elaborato, con il motivo"_qs);
    QCOMPARE(outcome(), u"Importazione: 2 non riuscite"_qs);
    QCOMPARE(reportLines(),
             QStringList({u"Importazione: 2 non riuscite"_qs,
                          line(u"Non letta"_qs, u"<b>text</b>.mid"_qs,
                               u"formato sconosciuto o file danneggiato"_qs),
                          line(u"Non letta"_qs, u"empty.mp3"_qs, u"il file è vuoto"_qs)}));
}

void TestRunReports::disablesDetailsWhenTheNextRunHasNothingToReport()
{
    makeFile(at(u"text.mid"_qs), "no song");
    import({u"text.mid"_qs});
    QVERIFY(details()->isEnabled());
    importSongs({u"one.mid"_qs}, true);
    QVERIFY(!details()->isEnabled());
    QCOMPARE(details()->toolTip(), u"Nessun file da segnalare"_qs);
    QCOMPARE(outcome(), QString());
    synchronise();
    QCOMPARE(outcome(), u"Sincronizzazione: 1 aggiornate"_qs);
    QVERIFY(details()->isEnabled());
    import({u"one.mid"_qs});
    synchronise(); // changes nothing more
    QCOMPARE(outcome(), u"Sincronizzazione: 1 aggiornate"_qs);
    QVERIFY(!details()->isEnabled());
}

void TestRunReports::reportsChangedSongs()
{
    importSongs({u"one.mid"_qs}, true);
    synchronise();
    QCOMPARE(details()->toolTip(),
             u"Elenca le song che l'ultima operazione ha modificato, con i dati di prima e di "
             "dopo, e i file che non ha elaborato"_qs);
    QCOMPARE(reportLines(), QStringList(u"Sincronizzazione: 1 aggiornate"_qs) + linesOfOne());
}

void TestRunReports::reportsSongsThatWereNotSynchronised()
{
    makeSongs({u"two.mid"_qs}, false);
    makeSongs({u"one.mid"_qs, u"unknown.mid"_qs, u"gone.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs, u"unknown.mid"_qs, u"gone.mid"_qs});
    QVERIFY(QFile::remove(at(u"gone.mid"_qs)));
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectQuestion(Run::Answer::No);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"1333"_qs);
    const QString counts = u"Sincronizzazione: 1 aggiornate, 2 non riuscite, 1 saltate"_qs;
    QCOMPARE(outcome(), counts);
    QCOMPARE(
        reportLines(),
        QStringList(
            {counts, line(u"Non modificata"_qs, u"two.mid"_qs, u"la modifica è stata rifiutata"_qs),
             line(u"Non trovata"_qs, u"unknown.mid"_qs, u"il database Kordia non la contiene"_qs),
             line(u"Non letta"_qs, u"gone.mid"_qs, u"il file non esiste"_qs)}) +
            linesOfOne());
}

/// The row stays green, because its file was found and read again, but the report shows the
/// failure.
void TestRunReports::reportsSongsThatWereNotSaved()
{
    importSongs({u"one.mid"_qs}, true);
    {
        const FullDisk full(8);
        synchronise();
    }
    QCOMPARE(statuses(), u"1"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    QCOMPARE(reportLines(), QStringList({u"Sincronizzazione: 1 non riuscite"_qs,
                                         line(u"Non salvata"_qs, u"one.mid"_qs,
                                              u"non è stato possibile scrivere il file"_qs)}));
}

void TestRunReports::reportsASongSavedOnAFullDisk()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"disk"_qs));
    const SmallDisk disk(at(u"disk"_qs), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    makeSongs({u"disk/one.mid"_qs}, true);
    import({u"disk/one.mid"_qs});
    makeFile(at(u"disk/filler"_qs), QByteArray(3 * SmallDisk::pageSize, 'x'));
    synchronise();
    QCOMPARE(reportLines(), QStringList({u"Sincronizzazione: 1 non riuscite"_qs,
                                         line(u"Non salvata"_qs, u"disk/one.mid"_qs,
                                              u"spazio insufficiente sul disco"_qs)}));
}

void TestRunReports::reportsTheRowsThatAnInterruptLeft()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, false);
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectYesThenInterrupt();
    clickSync();
    verifyScript();
    const QString counts = u"Sincronizzazione: 1 aggiornate, 2 saltate"_qs;
    QCOMPARE(
        reportLines(),
        QStringList({counts, line(u"Non modificata"_qs, u"two.mid"_qs, u"operazione interrotta"_qs),
                     line(u"Non modificata"_qs, u"three.mid"_qs, u"operazione interrotta"_qs)}) +
            linesOfOne().first(5)); // other songs get no more
}

/// "Si" in the summary of an import starts the synchronisation before the report can be opened.
void TestRunReports::continuesFromTheImport()
{
    m_window->enableCopyrightMessage(true);
    makeSongs({u"one.mid"_qs}, true);
    makeFile(at(u"text.mid"_qs), "no song");
    m_script->expectFiles({at(u"text.mid"_qs), at(u"one.mid"_qs)});
    m_script->expect("ProceedDialog",
                     [](QWidget *widget) { DialogScript::click(widget, u"yesPushButton"_qs); });
    expectBackup(u"exitPushButton"_qs);
    m_sample->press("selectDirToolButton");
    verifyScript();
    QCOMPARE(reportLines(),
             QStringList({u"Importazione, Sincronizzazione: 1 aggiornate, 1 non riuscite"_qs,
                          line(u"Non letta"_qs, u"text.mid"_qs,
                               u"formato sconosciuto o file danneggiato"_qs)}) +
                 linesOfOne());
}

void TestRunReports::staysWhenTheNextRunIsCalledOff()
{
    makeSongs({u"one.mid"_qs}, true);
    makeFile(at(u"text.mid"_qs), "no song");
    import({u"text.mid"_qs, u"one.mid"_qs});
    const QStringList told = reportLines();
    expectBackup(u"abortPushButton"_qs);
    clickSync();
    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"exitPushButton"_qs); });
    doubleClick(0);
    m_script->expectFilesCancelled();
    clickTransfer();
    verifyScript();
    QCOMPARE(told.size(), 2);
    QCOMPARE(reportLines(), told);
}

void TestRunReports::countsTheBackupsCopies()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    QVERIFY(QFile::remove(at(u"two.mid"_qs)));
    expectBackupToFolder();
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    clickSync();
    verifyScript();
    QCOMPARE(reportLines(),
             QStringList({u"Sincronizzazione, Backup: 1 aggiornate, 1 copiate, 2 non riuscite"_qs,
                          line(u"Non trovata"_qs, u"two.mid"_qs, u"il file non esiste"_qs),
                          line(u"Non letta"_qs, u"two.mid"_qs, u"il file non esiste"_qs)}) +
                 linesOfOne());
}

void TestRunReports::reportsAnEdit()
{
    importSongs({u"one.mid"_qs}, true);
    const auto save = [](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Typed"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    };
    expectEdit(save);
    doubleClick(0);
    QCOMPARE(outcome(), u"Modifica: 1 modificate"_qs);
    QCOMPARE(reportLines(),
             QStringList({u"Modifica: 1 modificate"_qs, u"Modificata: "_qs + at(u"one.mid"_qs),
                          u"    Titolo: «one» → «Typed»"_qs}));
    expectEdit(save);
    doubleClick(0); // changes nothing more
    QVERIFY(!details()->isEnabled());
    {
        const FullDisk full(8);
        expectEdit(save);
        m_script->expect("QMessageBox", [this](QWidget *widget) {
            auto *box = qobject_cast<QMessageBox *>(widget);
            QCOMPARE(box->text(), u"La song non è stata salvata: non è stato possibile scrivere "
                                  "il file"_qs);
            QCOMPARE(box->informativeText(), at(u"one.mid"_qs));
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        expectEdit([](QWidget *widget) { DialogScript::click(widget, u"exitPushButton"_qs); });
        doubleClick(0);
    }
    QCOMPARE(reportLines(), QStringList({u"Modifica: 1 non riuscite"_qs,
                                         line(u"Non salvata"_qs, u"one.mid"_qs,
                                              u"non è stato possibile scrivere il file"_qs)}));
}

void TestRunReports::reportsARowThatDoesNotOpen()
{
    importSongs({u"one.mid"_qs}, true);
    QVERIFY(QFile::remove(at(u"one.mid"_qs)));
    doubleClick(0);
    QCOMPARE(reportLines(),
             QStringList({u"Modifica: 1 non riuscite"_qs,
                          line(u"Non letta"_qs, u"one.mid"_qs, u"il file non esiste"_qs)}));
}

void TestRunReports::reportsSongsThatASpreadMissed()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    makeFile(at(u"two.mid"_qs), "no song");
    expectAuthorForAll(QString());
    doubleClick(0);
    QCOMPARE(reportLines(), QStringList({u"Modifica: 2 modificate, 1 non riuscite"_qs,
                                         line(u"Non letta"_qs, u"two.mid"_qs,
                                              u"formato sconosciuto o file danneggiato"_qs)}));
}

void TestRunReports::reportsSongsThatASpreadChanged()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    expectAuthorForAll(u"Verdi"_qs);
    doubleClick(0);
    const QString author = u"    Autore: (vuoto) → «Verdi»"_qs;
    QCOMPARE(reportLines(),
             QStringList({u"Modifica: 2 modificate"_qs, u"Modificata: "_qs + at(u"one.mid"_qs),
                          author, u"Modificata: "_qs + at(u"two.mid"_qs), author}));
}

void TestRunReports::speaksTheLanguageChosen()
{
    makeFile(at(u"text.mid"_qs), "no song");
    const auto choose = [this](const QString &language) {
        m_window->findChild<QAction *>(language)->trigger();
        QCoreApplication::processEvents();
    };
    choose(u"actionEnglish"_qs);
    QCOMPARE(details()->text(), u"&Details"_qs);
    QCOMPARE(details()->toolTip(), u"There are no files to report"_qs);
    import({u"text.mid"_qs});
    QCOMPARE(outcome(), u"Import: 1 failed"_qs);
    QCOMPARE(reportLines().last(),
             u"Not read (unknown format or damaged file): "_qs + at(u"text.mid"_qs));
    choose(u"actionItalian"_qs);
    QCOMPARE(details()->text(), u"&Dettagli"_qs);
    QCOMPARE(outcome(), u"Importazione: 1 non riuscita"_qs);
    QCOMPARE(reportLines().first(), u"Importazione: 1 non riuscita"_qs);
    importSongs({u"one.mid"_qs}, true);
    synchronise();
    choose(u"actionEnglish"_qs);
    QCOMPARE(details()->toolTip(),
             u"Lists the songs that the last operation changed, with their data before and after, "
             "and the files that it did not process"_qs);
    QCOMPARE(reportLines().mid(1, 3), QStringList({u"Changed: "_qs + at(u"one.mid"_qs),
                                                   u"    Title: \"one\" → \"ONE LOVE\""_qs,
                                                   u"    Artist: (empty) → \"ARTIST ALT\""_qs}));
    choose(u"actionItalian"_qs);
}

BRISEL_TEST(QApplication, TestRunReports)
#include "tst_runreports.moc"
