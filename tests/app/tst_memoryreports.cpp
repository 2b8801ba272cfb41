#include "tests/app/reporttest.h"
#include "tests/fulldisk.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QLineEdit>
#include <QMessageBox>

using namespace brisel;

/// The status bar and the report after transfers and after runs of the dialogs that work on a
/// memory.
class TestMemoryReports : public ReportTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void reportsFilesThatWereNotCopied();
    void reportsTheFilesThatACancelLeft();
    void reportsAFullMemory();
    void showsTheSpaceWhileItCopies();
    void reportsFilesThatTheTransferDidNotIndex();
    void reportsSongsThatThePlayerCannotOpen();
    void reportsAMemoryThatWasRemoved();
    void reportsWhatTheIndexDialogRefused();
    void reportsTheIndexDialogsFailure();
    void reportsTheLastOfTheDialogsRuns();
    void staysWhenADialogDidNothing();
    void reportsASongsListThatWasNotSaved();

private:
    QLabel *space() const { return m_window->findChild<QLabel *>(u"spaceLabel"_qs); }
    void expectTransfer(const QString &message)
    {
        m_script->expectFiles({at(u"volumes/CARD"_qs)});
        m_script->expectMessage(u"Trasferimento"_qs, message, QMessageBox::Ok);
    }
    void work(const char *action, const char *dialog, const QStringList &memories);

    const QString m_done = u"Tutti i file sono stati copiati correttamente"_qs;
    const QString m_failed = u"Non è stato possibile copiare uno o più file"_qs;
    const QString m_deep = u"volumes/CARD/abcdefgh/ijklmnop/qrstuvwx/yzabcdef/ghijklmn/one.mid"_qs;
};

/// Opens the dialog, runs it on each of the memories, closes its boxes and then the dialog.
void TestMemoryReports::work(const char *action, const char *dialog, const QStringList &memories)
{
    m_script->expect(dialog, [memories](QWidget *widget) {
        for (const QString &memory : memories) {
            widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(memory);
            DialogScript inner;
            inner.expect("QMessageBox", [](QWidget *box) { box->close(); });
            DialogScript::click(widget, u"pushButtonStart"_qs);
        }
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(QString::fromLatin1(action))->trigger();
    verifyScript();
}

void TestMemoryReports::reportsFilesThatWereNotCopied()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs, u"gone.mid"_qs, u"tune.mp3"_qs}, true);
    QVERIFY(QFile::remove(at(u"gone.mid"_qs)));
    makeFile(at(u"tune.cdg"_qs), "graphics");
    makeFile(at(u"volumes/CARD/songs/two.mid"_qs), "old");
    makeFile(at(u"volumes/CARD/songs/tune.cdg"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    expectQuestion(Run::Answer::No);
    m_script->expectMessage(u"Trasferimento"_qs, m_failed, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    const QString counts = u"Trasferimento: 1 copiate, 2 non riuscite, 1 saltate"_qs;
    QCOMPARE(outcome(), counts);
    QCOMPARE(reportLines(),
             QStringList({counts,
                          line(u"Non copiata"_qs, u"two.mid"_qs,
                               u"esiste già e non doveva essere sostituita"_qs),
                          line(u"Non trovata"_qs, u"gone.mid"_qs, u"il file non esiste"_qs),
                          line(u"Non copiata"_qs, u"tune.cdg"_qs, u"esiste già"_qs)}));
}

void TestMemoryReports::reportsTheFilesThatACancelLeft()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    expectYesThenInterrupt();
    m_script->expectMessage(u"Trasferimento"_qs, m_failed, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(),
             QStringList({u"Trasferimento: 1 copiate, 2 saltate"_qs,
                          line(u"Non copiata"_qs, u"two.mid"_qs, u"operazione interrotta"_qs),
                          line(u"Non copiata"_qs, u"three.mid"_qs, u"operazione interrotta"_qs)}));
}

/// Nothing is copied if the songs and the index do not all fit.
void TestMemoryReports::reportsAFullMemory()
{
    const SmallDisk disk(at(u"volumes/CARD"_qs), 100 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    makeFile(at(u"big.mp3"_qs), QByteArray(200 * SmallDisk::pageSize, 'x'));
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs, u"big.mp3"_qs});
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    // 201 pages, and 26 for the index; the folder "songs" takes none on this disk.
    const QString shortage = u"Spazio insufficiente: servono 902.0 kB, liberi 400.0 kB"_qs;
    m_script->expect("QMessageBox", [this, shortage](QWidget *widget) {
        const auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->text(), m_failed);
        QCOMPARE(box->informativeText(), shortage);
        box->button(QMessageBox::Ok)->click();
    });
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(), QStringList({u"Trasferimento: 1 non riuscite"_qs,
                                         shortage + u' ' + at(u"volumes/CARD/songs"_qs)}));
    QVERIFY(QDir(at(u"volumes/CARD/songs"_qs)).isEmpty());
}

void TestMemoryReports::showsTheSpaceWhileItCopies()
{
    const SmallDisk disk(at(u"volumes/CARD"_qs), 100 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    makeFile(at(u"big.mp3"_qs), QByteArray(50 * SmallDisk::pageSize, 'x'));
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), "old");
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs, u"big.mp3"_qs});
    QVERIFY(!space()->isVisible());
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    QString shown;
    m_script->expect("NoCopyrightDialog", [this, &shown](QWidget *widget) {
        if (space()->isVisible())
            shown = space()->text();
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs, m_done, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    // 200 KiB and a song; one page of a hundred is taken.
    QCOMPARE(shown, u"Spazio: servono 200.1 kB, liberi 396.0 kB"_qs);
    QVERIFY(!space()->isVisible());
}

void TestMemoryReports::reportsFilesThatTheTransferDidNotIndex()
{
    makeSongs({m_deep}, true);
    importSongs({u"one.mid"_qs}, true);
    expectTransfer(m_done);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(),
             QStringList({u"Trasferimento: 1 copiate, 1 non riuscite"_qs,
                          u"File non importato, path troppo lungo: "_qs + at(m_deep)}));
}

void TestMemoryReports::reportsSongsThatThePlayerCannotOpen()
{
    const QString name = u"\u0416.mid"_qs;
    const QString unknown = u"Il nome ha caratteri che Brisel non conosce e la song non si può "
                            "aprire, rinominare il file o la sua cartella: "_qs +
                            at(u"volumes/CARD/songs/"_qs + name);
    importSongs({name}, true);
    expectTransfer(m_done);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(), QStringList({u"Trasferimento: 1 copiate, 1 non riuscite"_qs, unknown}));
    work("optimizeMemory", "IndexDialog", {at(u"volumes/CARD"_qs)});
    QCOMPARE(reportLines(), QStringList({u"Ottimizzazione memoria: 1 non riuscite"_qs, unknown}));
}

void TestMemoryReports::reportsAMemoryThatWasRemoved()
{
    importSongs({u"one.mid"_qs}, true);
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QVERIFY(QDir(at(u"volumes/CARD"_qs)).removeRecursively());
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs, m_failed, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(), QStringList({u"Trasferimento: 1 non riuscite"_qs,
                                         line(u"Non copiata"_qs, u"volumes/CARD"_qs,
                                              u"la memoria non è più presente"_qs) +
                                             u" (1 song)"_qs}));
    QVERIFY(!m_window->updateBriselIndex(at(u"volumes/CARD/songs"_qs)));
    QCOMPARE(reportLines().last(),
             line(u"Non indicizzata"_qs, u"volumes/CARD"_qs, u"la memoria non è più presente"_qs));
}

void TestMemoryReports::reportsWhatTheIndexDialogRefused()
{
    makeSongs({m_deep, u"volumes/CARD/one.mid"_qs}, true);
    work("optimizeMemory", "IndexDialog", {at(u"volumes/CARD"_qs)});
    QCOMPARE(outcome(), u"Ottimizzazione memoria: 1 non riuscite"_qs);
    QCOMPARE(reportLines(),
             QStringList({u"Ottimizzazione memoria: 1 non riuscite"_qs,
                          u"File non importato, path troppo lungo: "_qs + at(m_deep)}));
}

void TestMemoryReports::reportsTheIndexDialogsFailure()
{
    makeSongs({u"volumes/CARD/one.mid"_qs}, true);
    {
        const FullDisk full(8);
        work("optimizeMemory", "IndexDialog", {at(u"volumes/CARD"_qs)});
    }
    QCOMPARE(reportLines(), QStringList({u"Ottimizzazione memoria: 1 non riuscite"_qs,
                                         line(u"Non indicizzata"_qs, u"volumes/CARD"_qs,
                                              u"gli archivi della memoria non sono completi"_qs)}));
}

void TestMemoryReports::reportsTheLastOfTheDialogsRuns()
{
    makeSongs({m_deep, u"volumes/CARD/one.mid"_qs, u"volumes/GOOD/one.mid"_qs}, true);
    work("optimizeMemory", "IndexDialog", {at(u"volumes/CARD"_qs), at(u"volumes/GOOD"_qs)});
    QVERIFY(!details()->isEnabled());
    QCOMPARE(outcome(), QString());
}

void TestMemoryReports::staysWhenADialogDidNothing()
{
    makeFile(at(u"text.mid"_qs), "no song");
    import({u"text.mid"_qs});
    work("optimizeMemory", "IndexDialog", {});
    work("actionSongsList", "SongsListDialog", {});
    QCOMPARE(outcome(), u"Importazione: 1 non riuscite"_qs);
    QVERIFY(details()->isEnabled());
}

void TestMemoryReports::reportsASongsListThatWasNotSaved()
{
    makeSongs({u"volumes/CARD/one.mid"_qs}, true);
    work("actionSongsList", "SongsListDialog", {at(u"volumes/CARD"_qs)});
    QCOMPARE(reportLines().last(),
             u"Non salvata (la memoria non è preparata per Brisel): SongsList.csv"_qs);
    work("optimizeMemory", "IndexDialog", {at(u"volumes/CARD"_qs)});
    {
        const FullDisk full(8);
        work("actionSongsList", "SongsListDialog", {at(u"volumes/CARD"_qs)});
    }
    QCOMPARE(
        reportLines(),
        QStringList(
            {u"Lista song: 1 non riuscite"_qs,
             u"Non salvata (gli archivi non si leggono o il file non si può scrivere): SongsList.csv"_qs}));
    work("actionSongsList", "SongsListDialog", {at(u"volumes/CARD"_qs)});
    QVERIFY(!details()->isEnabled());
}

BRISEL_TEST(QApplication, TestMemoryReports)
#include "tst_memoryreports.moc"
