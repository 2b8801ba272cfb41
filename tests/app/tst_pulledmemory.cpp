#include "index/index.h"
#include "tests/app/reporttest.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>

using namespace brisel;

/// The memory is removed during each run that works on it: the run ends with its error, the rows
/// stay unchanged, and the next run works. All in two ways: the system removes the mount folder, or
/// leaves it as an empty folder of its own disk.
class TestPulledMemory : public ReportTest
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init() { openWindow(); }
    void cleanup();

    void whileCopying();
    void beforeTheLastCopyIsIndexed();
    void whileIndexingCopies();
    void whileUpdatingTheIndex_data();
    void whileUpdatingTheIndex();
    void whileImporting();
    void whileSynchronising();
    void whileAskingToSynchronise();
    void whileEditing();
    void whileBackingUp();
    void whileSavingAListThere();

private:
    QString card() const { return at(u"volumes/CARD"_qs); }
    QString onCard(const QString &name) const { return card() + u'/' + name; }
    void pull();
    void plugIn();
    /// Pulls the memory when the progress dialog shows \a label under \a title.
    void pullAt(const QString &title, const QString &label);
    /// Pulls the memory while the next four-way question is open, and then answers it by \a button.
    void pullInQuestion(DialogScript &script, const QString &button);
    /// Checks that nothing was written at the path of the memory.
    void checkNothingIsLeft() const;
    /// Everything that the table shows, except the status.
    QStringList rows() const;
    void importFromCard();
    void transfer(const QString &outcome);
    void transferAll() { transfer(u"Tutti i file sono stati copiati correttamente"_qs); }
    void transferNotAll() { transfer(u"Non è stato possibile copiare uno o più file"_qs); }
    /// Checks that the report has the memory once, with the number of its songs.
    void checkReportedOnce(const QString &counts, const QString &lack, int songs);
    void runIndex(bool rebuild, const QString &outcome, bool isPulled);
};

void TestPulledMemory::initTestCase_data()
{
    QTest::addColumn<bool>("leavesFolder");
    QTest::newRow("folder gone") << false;
    QTest::newRow("folder left empty") << true;
}

void TestPulledMemory::cleanup()
{
    verifyScript();
    QVERIFY(m_window->findChild<QProgressDialog *>() == nullptr);
    QVERIFY(tool("selectDirToolButton")->isEnabled());
    closeWindow();
}

void TestPulledMemory::pull()
{
    QFETCH_GLOBAL(bool, leavesFolder);
    QVERIFY(QDir().rename(card(), at(u"pulled"_qs)));
    if (leavesFolder)
        QVERIFY(QDir().mkdir(card()));
}

void TestPulledMemory::plugIn()
{
    checkNothingIsLeft();
    QDir().rmdir(card());
    QVERIFY(QDir().rename(at(u"pulled"_qs), card()));
}

void TestPulledMemory::pullAt(const QString &title, const QString &label)
{
    atProgress(title, label, [this](QProgressDialog *) { pull(); });
}

void TestPulledMemory::pullInQuestion(DialogScript &script, const QString &button)
{
    script.expect("NoCopyrightDialog", [this, button](QWidget *widget) {
        pull();
        DialogScript::click(widget, button);
    });
}

void TestPulledMemory::checkNothingIsLeft() const
{
    QCOMPARE(QDir(card()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
    QVERIFY2(QFileInfo::exists(at(u"pulled"_qs)), "it was not pulled");
}

QStringList TestPulledMemory::rows() const
{
    QStringList rows;
    for (int row = 0; row < model().goodRowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model().columnCount(); ++column) {
            if (column != model().colIdxStatus() && column != model().colIdxOutcome() &&
                column != model().fieldIndex(u"reason"_qs))
                cells.append(model().index(row, column).data().toString());
        }
        rows.append(cells.join(u'|'));
    }
    return rows;
}

void TestPulledMemory::importFromCard()
{
    import({u"volumes/CARD/one.mid"_qs, u"volumes/CARD/two.mid"_qs, u"volumes/CARD/three.mid"_qs});
}

void TestPulledMemory::transfer(const QString &outcome)
{
    m_script->expectMessage(u"Trasferimento"_qs, outcome, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestPulledMemory::checkReportedOnce(const QString &counts, const QString &lack, int songs)
{
    QCOMPARE(reportLines(), QStringList({counts, line(lack, u"volumes/CARD"_qs,
                                                      u"la memoria non è più presente"_qs) +
                                                     u" (%1 song)"_qs.arg(songs)}));
}

void TestPulledMemory::whileCopying()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    const QStringList before = rows();
    m_script->expectFiles({card()});
    pullAt(u"Trasferimento"_qs, u"1 di 3"_qs);
    transferNotAll();
    checkReportedOnce(u"Trasferimento: 3 non riuscite"_qs, u"Non copiata"_qs, 3);
    QCOMPARE(rows(), before);
    QCOMPARE(statuses(), u"000"_qs);
    plugIn();
    // The copies are still in the work folder, which the next run clears.
    QCOMPARE(QDir(onCard(u"songs"_qs)).entryList(QDir::Files | QDir::Hidden), QStringList());
    QVERIFY(!QDir(onCard(u".brisel2pc"_qs)).isEmpty());

    m_script->expectFiles({card()});
    transferAll();
    QVERIFY(!QFile::exists(onCard(u".brisel2pc"_qs)));
    QVERIFY(QFile::exists(onCard(u"songs/three.mid"_qs)));
    QVERIFY(QFile::exists(onCard(u"fsinfos.id2"_qs)));
}

void TestPulledMemory::beforeTheLastCopyIsIndexed()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    m_script->expectFiles({card()});
    pullAt(u"Trasferimento"_qs, u"1 di 1"_qs);
    transferNotAll();
    plugIn();
}

void TestPulledMemory::whileIndexingCopies()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    const QStringList before = rows();
    makeFile(onCard(u"A.MID"_qs), Sample::midi("A", false));
    QVERIFY(ScriptedIndex().createIndex(card()));
    const QByteArray paths = fileContent(onCard(u"index.id2"_qs));
    makeFile(onCard(u"A long name.mid"_qs), Sample::midi("Long", false));
    m_script->expectFiles({card()});
    pullInQuestion(*m_script, u"noPushButton"_qs);
    transferNotAll();
    QCOMPARE(rows(), before);
    QCOMPARE(statuses(), u"00"_qs);
    plugIn();
    QCOMPARE(fileContent(onCard(u"index.id2"_qs)), paths);

    m_script->expectFiles({card()});
    m_script->expect("NoCopyrightDialog",
                     [](QWidget *widget) { DialogScript::click(widget, u"yesAllPushButton"_qs); });
    m_script->expect("NoCopyrightDialog",
                     [](QWidget *widget) { DialogScript::click(widget, u"yesAllPushButton"_qs); });
    transferAll();
    constexpr int recordSize = 64;
    QCOMPARE(fileContent(onCard(u"index.id2"_qs)).size(), 4 * recordSize);
}

void TestPulledMemory::whileUpdatingTheIndex_data()
{
    QTest::addColumn<bool>("rebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

void TestPulledMemory::runIndex(bool rebuild, const QString &outcome, bool isPulled)
{
    m_script->expect("IndexDialog", [this, rebuild, outcome, isPulled](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        widget
            ->findChild<QRadioButton *>(rebuild ? u"radioButtonRebuild"_qs
                                                : u"radioButtonUpdate"_qs)
            ->setChecked(true);
        DialogScript inner;
        if (isPulled)
            pullInQuestion(inner, u"noPushButton"_qs);
        else
            inner.expect("NoCopyrightDialog", [](QWidget *question) {
                DialogScript::click(question, u"noPushButton"_qs);
            });
        inner.expectMessage(u"Ottimizza memoria"_qs, outcome, QMessageBox::Ok);
        DialogScript::click(widget, u"pushButtonStart"_qs);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        QVERIFY(widget->findChild<QPushButton *>(u"pushButtonStart"_qs)->isEnabled());
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(u"optimizeMemory"_qs)->trigger();
    verifyScript();
}

void TestPulledMemory::whileUpdatingTheIndex()
{
    QFETCH(bool, rebuild);
    makeFile(onCard(u"A.MID"_qs), Sample::midi("A", false));
    QVERIFY(ScriptedIndex().createIndex(card()));
    const QByteArray paths = fileContent(onCard(u"index.id2"_qs));
    makeFile(onCard(u"A long name.mid"_qs), Sample::midi("Long", false));
    makeSongs({u"volumes/CARD/B.MID"_qs}, false);
    import({u"volumes/CARD/B.MID"_qs});
    const QStringList before = rows();
    runIndex(rebuild,
             u"Operazione non riuscita.\nAssicurarsi che il disco abbia sufficiente spazio libero "
             "e che non sia protetto da scrittura."_qs,
             true);
    QCOMPARE(rows(), before);
    plugIn();
    QCOMPARE(fileContent(onCard(u"index.id2"_qs)), paths);
    runIndex(rebuild, u"Operazione completata con successo"_qs, false);
    constexpr int recordSize = 64;
    QCOMPARE(fileContent(onCard(u"index.id2"_qs)).size(), 3 * recordSize);
}

void TestPulledMemory::whileImporting()
{
    makeSongs(
        {u"volumes/CARD/one.mid"_qs, u"volumes/CARD/two.mid"_qs, u"volumes/CARD/three.mid"_qs},
        true);
    m_window->enableCopyrightMessage(true);
    pullAt(u"Lettura file"_qs, u"1 di 3"_qs);
    m_script->expectFiles({onCard(u"one.mid"_qs), onCard(u"two.mid"_qs), onCard(u"three.mid"_qs)});
    m_script->expect("ProceedDialog", [](QWidget *widget) {
        QCOMPARE(widget->findChild<QLabel *>(u"summaryLabel"_qs)->text(),
                 u"Sono stati esaminti 3 files, trovate 1 songs di cui 1 di (c)Kordia"_qs);
        DialogScript::click(widget, u"noPushButton"_qs);
    });
    m_sample->press("selectDirToolButton");
    verifyScript();
    checkReportedOnce(u"Importazione: 2 non riuscite"_qs, u"Non letta"_qs, 2);
    QCOMPARE(statuses(), u"0"_qs);
    QCOMPARE(model().fileName(0), onCard(u"one.mid"_qs));
    plugIn();
    m_window->enableCopyrightMessage(false);
    importFromCard();
    QCOMPARE(statuses(), u"000"_qs);
}

void TestPulledMemory::whileSynchronising()
{
    makeSongs(
        {u"volumes/CARD/one.mid"_qs, u"volumes/CARD/two.mid"_qs, u"volumes/CARD/three.mid"_qs},
        true);
    importFromCard();
    const QStringList before = rows();
    expectBackup(u"exitPushButton"_qs);
    pullAt(u"Aggiornamento file"_qs, u"1 di 3"_qs);
    clickSync();
    verifyScript();
    checkReportedOnce(u"Sincronizzazione: 3 non riuscite"_qs, u"Non letta"_qs, 3);
    QCOMPARE(statuses(), u"333"_qs);
    QCOMPARE(rows(), before);
    plugIn();
    QCOMPARE(Sample::infoOf(onCard(u"one.mid"_qs)).author, QString());
    QCOMPARE(Sample::infoOf(onCard(u"two.mid"_qs)).author, QString());

    importFromCard();
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"111"_qs);
}

void TestPulledMemory::whileAskingToSynchronise()
{
    makeSongs(
        {u"volumes/CARD/one.mid"_qs, u"volumes/CARD/two.mid"_qs, u"volumes/CARD/three.mid"_qs},
        false);
    importFromCard();
    const QStringList before = rows();
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    pullInQuestion(*m_script, u"yesAllPushButton"_qs);
    clickSync();
    verifyScript();
    checkReportedOnce(u"Sincronizzazione: 3 non riuscite"_qs, u"Non salvata"_qs, 3);
    QCOMPARE(statuses(), u"333"_qs);
    QCOMPARE(rows(), before);
    plugIn();
    QCOMPARE(title(u"volumes/CARD/one.mid"_qs), u"volumes/CARD/one"_qs);
}

void TestPulledMemory::whileEditing()
{
    makeSongs(
        {u"volumes/CARD/one.mid"_qs, u"volumes/CARD/two.mid"_qs, u"volumes/CARD/three.mid"_qs},
        false);
    importFromCard();
    const QStringList before = rows();
    expectEdit([this](QWidget *widget) {
        pull();
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Typed"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    m_script->expect("QMessageBox", [this](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QVERIFY(box->text().startsWith(u"La song non è stata salvata: "_qs));
        QCOMPARE(box->informativeText(), at(u"volumes/CARD/two.mid"_qs));
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"exitPushButton"_qs); });
    doubleClick(1);
    verifyScript();
    QCOMPARE(rows(), before);
    plugIn();
    QCOMPARE(title(u"volumes/CARD/two.mid"_qs), u"volumes/CARD/two"_qs);
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Typed"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(1);
    verifyScript();
    QCOMPARE(title(u"volumes/CARD/two.mid"_qs), u"Typed"_qs);
}

void TestPulledMemory::whileBackingUp()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_script->expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({card()});
        DialogScript::click(widget, u"browsePushButton"_qs);
        DialogScript::click(widget, u"doBackupPushButton"_qs);
    });
    pullAt(u"Backup"_qs, u"1 di 2"_qs);
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"11"_qs);
    plugIn();
}

void TestPulledMemory::whileSavingAListThere()
{
    makeFile(onCard(u"A.MID"_qs), Sample::midi("A", false));
    QVERIFY(ScriptedIndex().createIndex(card()));
    m_script->expect("SongsListDialog", [this](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        widget->findChild<QLineEdit *>(u"lineEditFile"_qs)->setText(onCard(u"new/list.csv"_qs));
        QVERIFY(QDir().mkdir(onCard(u"new"_qs)));
        auto *timer = new QTimer(m_window);
        auto *start = widget->findChild<QPushButton *>(u"pushButtonStart"_qs);
        connect(timer, &QTimer::timeout, this, [this, timer, start] {
            if (start->isEnabled())
                return;
            timer->stop();
            pull();
        });
        timer->start(0);
        DialogScript inner;
        inner.expectMessage(u"Salva lista song"_qs, u"Errore durante la creazione del file"_qs,
                            QMessageBox::Ok);
        start->click();
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        plugIn();
        inner.expectMessage(u"Salva lista song"_qs, u"Operazione completata"_qs, QMessageBox::Ok);
        start->click();
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(u"actionSongsList"_qs)->trigger();
    QVERIFY(QFile::exists(onCard(u"new/list.csv"_qs)));
}

BRISEL_TEST(QApplication, TestPulledMemory)
#include "tst_pulledmemory.moc"
