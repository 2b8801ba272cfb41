#include "base/runguard.h"
#include "tests/app/workflowtest.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace brisel;

/// The transfer to a memory through the real window, by clicks and keys.
class TestMainWindowTransfer : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void transfersToTheMemorysSongsFolder();
    void refusesToTransfer_data();
    void refusesToTransfer();
    void cancelledFolderDialogTransfersNothing();
    void emptyLineEndsATransferInTheLog_data();
    void emptyLineEndsATransferInTheLog();
    void skippedFilesNeedNoIndex();
    void vanishedVolumeLeavesTheWindowUsable();
    void interruptedTransferIsReported();
    void copyErrorIsNotHiddenByAGoodIndex();
    void runsDoNotStartInsideOthers();
    void backsUpAFolderTree();
};

void TestMainWindowTransfer::transfersToTheMemorysSongsFolder()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expectMessage(u"Trasferimento"_qs,
                            u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    const LogCapture log;
    clickTransfer();
    verifyScript();
    QVERIFY(log.contains(u"          TRASFERIMENTO FILE "_qs));
    QCOMPARE(log.messages().last(), u" "_qs);
    QCOMPARE(fileContent(at(u"volumes/CARD/songs/one.mid"_qs)), fileContent(at(u"one.mid"_qs)));
    QVERIFY(QFile::exists(at(u"volumes/CARD/index.id2"_qs)));
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestMainWindowTransfer::refusesToTransfer_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("text");
    QTest::newRow("system disk") << u"elsewhere"_qs
                                 << u"Non è possibile copiare i file sul disco di sistema"_qs;
    QTest::newRow("songs in the way")
        << u"volumes/FULL"_qs
        << u"Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella"_qs;
    QTest::newRow("reserved")
        << u"volumes/CARD/playlist"_qs
        << u"Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Brisel, selezionare un'altra cartella"_qs;
}

void TestMainWindowTransfer::refusesToTransfer()
{
    QFETCH(QString, folder);
    QFETCH(QString, text);
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    makeFile(at(u"volumes/FULL/songs"_qs), "a file in the way");
    QVERIFY(QDir(m_folder->path()).mkpath(folder));
    m_script->expectFiles({at(folder)});
    m_script->expectMessage(u"Trasferimento"_qs, text, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(!QFile::exists(at(folder + u"/one.mid"_qs)));
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestMainWindowTransfer::cancelledFolderDialogTransfersNothing()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    m_script->expect("QFileDialog", [this](QWidget *widget) {
        QCOMPARE(widget->windowTitle(), u"Scegli cartella"_qs);
        QCOMPARE(qobject_cast<QFileDialog *>(widget)->directory().path(), at(u"volumes"_qs));
        qobject_cast<QDialog *>(widget)->reject();
    });
    const LogCapture log;
    clickTransfer();
    verifyScript();
    QCOMPARE(log.messages(), QStringList());
}

void TestMainWindowTransfer::emptyLineEndsATransferInTheLog_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QString>("text");
    QTest::newRow("done") << true << u"Tutti i file sono stati copiati correttamente"_qs;
    QTest::newRow("failed") << false << u"Non è stato possibile copiare uno o più file"_qs;
}

void TestMainWindowTransfer::emptyLineEndsATransferInTheLog()
{
    QFETCH(bool, isThere);
    QFETCH(QString, text);
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    if (!isThere)
        QVERIFY(QFile::remove(at(u"one.mid"_qs)));
    const LogCapture log;
    qsizetype before = 0;
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    expectMessageWithLog(text, log, before);
    clickTransfer();
    verifyScript();
    QVERIFY(before > 0);
    QCOMPARE(log.messages().mid(before), QStringList(u" "_qs));
}

void TestMainWindowTransfer::skippedFilesNeedNoIndex()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QCOMPARE(widget->findChild<QLabel *>(u"fileNameLabel"_qs)->text(),
                 at(u"volumes/CARD/songs/one.mid"_qs));
        QCOMPARE(widget->findChild<QLabel *>(u"messageLabel"_qs)->text(),
                 u"esiste già, vuoi sostituirlo?"_qs);
        DialogScript::click(widget, u"noPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs,
                            u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(fileContent(at(u"volumes/CARD/songs/one.mid"_qs)), QByteArray("old"));
    QVERIFY(!QFile::exists(at(u"volumes/CARD/index.id2"_qs)));
}

void TestMainWindowTransfer::vanishedVolumeLeavesTheWindowUsable()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    makeFile(at(u"volumes/CARD/songs/two.mid"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QVERIFY(QDir(at(u"volumes/CARD"_qs)).removeRecursively());
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs, u"Non è stato possibile copiare uno o più file"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
    QCOMPARE(statuses(), u"00"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    QVERIFY(m_window->findChild<QProgressDialog *>() == nullptr);
}

void TestMainWindowTransfer::interruptedTransferIsReported()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    expectYesThenInterrupt();
    m_script->expectMessage(u"Trasferimento"_qs, u"Non è stato possibile copiare uno o più file"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(!QFile::exists(at(u"volumes/CARD/songs/two.mid"_qs)));
    QVERIFY(!QFile::exists(at(u"volumes/CARD/index.id2"_qs)));
}

void TestMainWindowTransfer::copyErrorIsNotHiddenByAGoodIndex()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    QVERIFY(QFile::remove(at(u"two.mid"_qs)));
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expectMessage(u"Trasferimento"_qs, u"Non è stato possibile copiare uno o più file"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(QFile::exists(at(u"volumes/CARD/index.id2"_qs)));
}

void TestMainWindowTransfer::runsDoNotStartInsideOthers()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    const RunGuard guard;
    clickSync();
    clickTransfer();
    doubleClick(0);
    emit table()->customContextMenuRequested(cell(0));
    for (const QString &name : {u"dbgSavePushButton"_qs, u"dbgAddMarkerPushButton"_qs,
                                u"dbgShowDialogPushButton"_qs, u"dbgBackupPushButton"_qs})
        m_window->findChild<QPushButton *>(name)->click();
    verifyScript();
    QVERIFY(!QFile::exists(at(u"test_save.bin"_qs)));
}

void TestMainWindowTransfer::backsUpAFolderTree()
{
    makeSongs({u"tree/one.mid"_qs, u"tree/sub/two.mid"_qs}, false);
    QVERIFY(QDir(m_folder->path()).mkdir(u"to"_qs));
    int count = 0;
    QVERIFY(m_window->backupDirectory(at(u"tree"_qs), at(u"to"_qs), count));
    QCOMPARE(count, 2);
    QVERIFY(QFile::exists(at(u"to/sub/two.mid"_qs)));
}

BRISEL_TEST(QApplication, TestMainWindowTransfer)
#include "tst_mainwindow_transfer.moc"
