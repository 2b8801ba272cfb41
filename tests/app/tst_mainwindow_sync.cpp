#include "history/history.h"
#include "tests/app/workflowtest.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace brisel;

/// The synchronisation and its backup through the real window, by clicks and keys.
class TestMainWindowSync : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void synchronisesAfterTheImportSummary();
    void emptyTableIsNotSynchronised();
    void abortedBackupLeavesTheButtonEnabled();
    void backupDialogWarnsOfAnUnusableHistory();
    void completedSynchronisationDisablesTheButton();
    void asksForUnpublishedSongsUnlessSwitchedOff();
    void escapeInTheQuestionUpdatesTheSong();
    void noToAllHoldsUntilTheRunEnds();
    void interruptKeepsWhatWasDone();
    void quitDuringTheQuestionChangesNothing();
    void backupWithoutFolderIsRefused();
    void backupThatCannotMakeItsFolderIsRefused();
    void backupCopiesThePickedFiles();
    void failedBackupStillSynchronises();
    void cancelledBackupStillSynchronises();
    void emptyLineEndsABackupInTheLog_data();
    void emptyLineEndsABackupInTheLog();

private:
    void cancelBackupAfterTheFirstOfThree()
    {
        atProgress(u"Backup"_qs, u"1 di 3"_qs, [](QProgressDialog *dialog) {
            QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        });
    }
};

void TestMainWindowSync::synchronisesAfterTheImportSummary()
{
    m_window->enableCopyrightMessage(true);
    makeSongs({u"one.mid"_qs}, true);
    m_script->expectFiles({at(u"one.mid"_qs)});
    m_script->expect("ProceedDialog",
                     [](QWidget *widget) { DialogScript::click(widget, u"yesPushButton"_qs); });
    expectBackup(u"exitPushButton"_qs);
    QTest::mouseClick(tool("selectDirToolButton"), Qt::LeftButton);
    verifyScript();
    QCOMPARE(statuses(), u"1"_qs);
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());

    m_script->expectFiles({at(u"one.mid"_qs)});
    m_script->expect("ProceedDialog",
                     [](QWidget *widget) { DialogScript::click(widget, u"yesPushButton"_qs); });
    expectBackup(u"abortPushButton"_qs);
    QTest::mouseClick(tool("selectDirToolButton"), Qt::LeftButton);
    verifyScript();
    QVERIFY(tool("updateDataToolButton")->isEnabled());
}

void TestMainWindowSync::emptyTableIsNotSynchronised()
{
    makeFile(at(u"bad.mid"_qs), "no song");
    import({u"bad.mid"_qs});
    const LogCapture log;
    clickSync();
    verifyScript();
    QCOMPARE(log.messages(),
             QStringList({QString(44, u'=') + u' ', u"          UPDATE USER LIBRARY "_qs,
                          QString(44, u'=') + u' ',
                          u"[UPDATE] WARNING: Empty table. Aborting update !!! "_qs}));
    QVERIFY(tool("updateDataToolButton")->isEnabled());
}

void TestMainWindowSync::abortedBackupLeavesTheButtonEnabled()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectBackup(u"abortPushButton"_qs);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"0"_qs);
    QVERIFY(tool("updateDataToolButton")->isEnabled());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

/// The line is hidden while the history can keep the changes.
void TestMainWindowSync::backupDialogWarnsOfAnUnusableHistory()
{
    const QString history = History::defaultPath();
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    QStringList shown;
    const auto lookAtWarning = [this, &shown] {
        m_script->expect("BackupDialog", [&shown](QWidget *widget) {
            const auto *label = widget->findChild<QLabel *>(u"historyLabel"_qs);
            shown.append(label->isVisible() ? label->text() : QString());
            DialogScript::click(widget, u"abortPushButton"_qs);
        });
        clickSync();
        verifyScript();
    };
    lookAtWarning();
    for (const QString &suffix : {QString(), u"-wal"_qs, u"-shm"_qs})
        QFile::remove(history + suffix); // of the cases before
    QVERIFY(QDir().mkpath(history));
    lookAtWarning();
    QVERIFY(QDir().rmdir(history));
    QCOMPARE(shown,
             QStringList({QString(),
                          u"La cronologia non può conservare queste modifiche: non è un file"_qs}));
}

void TestMainWindowSync::completedSynchronisationDisablesTheButton()
{
    makeSongs({u"one.mid"_qs, u"none.mid"_qs}, true);
    import({u"one.mid"_qs, u"none.mid"_qs});
    QStringList seen;
    m_script->expect("BackupDialog", [this, &seen](QWidget *widget) {
        // The progress of the next run.
        QTimer::singleShot(0, m_window, [this, &seen] {
            if (const auto *dialog = m_window->findChild<QProgressDialog *>())
                seen = {dialog->windowTitle(), dialog->isModal() ? u"modal"_qs : QString()};
        });
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"13"_qs);
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
    QCOMPARE(seen, QStringList({u"Aggiornamento file"_qs, u"modal"_qs}));
}

void TestMainWindowSync::asksForUnpublishedSongsUnlessSwitchedOff()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"1"_qs);

    import({u"one.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectQuestion(Run::Answer::No);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"3"_qs);
}

void TestMainWindowSync::escapeInTheQuestionUpdatesTheSong()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QCOMPARE(widget->findChild<QLabel *>(u"fileNameLabel"_qs)->text(), at(u"one.mid"_qs));
        QTest::keyClick(widget, Qt::Key_Escape);
    });
    clickSync();
    verifyScript();
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
}

void TestMainWindowSync::noToAllHoldsUntilTheRunEnds()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectQuestion(Run::Answer::NoToAll);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"33"_qs);

    m_window->enableCopyrightMessage(false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectQuestion(Run::Answer::Yes);
    expectQuestion(Run::Answer::Yes);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"11"_qs);
}

void TestMainWindowSync::interruptKeepsWhatWasDone()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectYesThenInterrupt();
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"100"_qs);
    QCOMPARE(title(u"two.mid"_qs), u"two"_qs);
    QVERIFY(tool("updateDataToolButton")->isEnabled());
}

void TestMainWindowSync::quitDuringTheQuestionChangesNothing()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QVERIFY(!m_window->close());
        qobject_cast<QDialog *>(widget)->reject();
    });
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"00"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    QVERIFY(m_window->isVisible());
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
}

void TestMainWindowSync::backupWithoutFolderIsRefused()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectBackup(u"doBackupPushButton"_qs);
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    const LogCapture log;
    clickSync();
    verifyScript();
    QCOMPARE(log.messages(),
             QStringList({QString(44, u'=') + u' ', u"          UPDATE USER LIBRARY "_qs,
                          QString(44, u'=') + u' '}));
    QCOMPARE(statuses(), u"0"_qs);
    QVERIFY(tool("updateDataToolButton")->isEnabled());
}

void TestMainWindowSync::backupThatCannotMakeItsFolderIsRefused()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    QVERIFY(QDir(m_folder->path()).mkdir(u"gone"_qs));
    m_script->expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({at(u"gone"_qs)});
        DialogScript::click(widget, u"browsePushButton"_qs);
        QVERIFY(QDir(m_folder->path()).rmdir(u"gone"_qs));
        DialogScript::click(widget, u"doBackupPushButton"_qs);
    });
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    const LogCapture log;
    clickSync();
    verifyScript();
    QCOMPARE(log.messages().constLast(), u"Dest root dir creation failed "_qs);
    QCOMPARE(statuses(), u"0"_qs);
}

void TestMainWindowSync::backupCopiesThePickedFiles()
{
    makeSongs({u"one.mid"_qs, u"deep/two.mid"_qs}, true);
    import({u"one.mid"_qs, u"deep/two.mid"_qs});
    expectBackupToFolder();
    m_script->expectMessage(u"Backup"_qs, u"Backup eseguito correttamente"_qs, QMessageBox::Ok);
    const LogCapture log;
    clickSync();
    verifyScript();
    QVERIFY(log.contains(u"          BACKUP USER LIBRARY "_qs));
    const QStringList made = QDir(at(u"backups"_qs)).entryList({u"backup_kordia_*"_qs});
    QCOMPARE(made.size(), 1);
    QCOMPARE(QDir(at(u"backups/"_qs + made.first())).entryList(QDir::Files),
             QStringList({u"contenuto.csv"_qs, u"one.mid"_qs, u"two.mid"_qs}));
    // The copies were made before the songs were changed.
    QCOMPARE(title(u"backups/"_qs + made.first() + u"/one.mid"_qs), u"one"_qs);
    QCOMPARE(statuses(), u"11"_qs);
}

void TestMainWindowSync::failedBackupStillSynchronises()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs});
    QVERIFY(QFile::remove(at(u"two.mid"_qs)));
    expectBackupToFolder();
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"13"_qs);
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
}

void TestMainWindowSync::cancelledBackupStillSynchronises()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    expectBackupToFolder();
    cancelBackupAfterTheFirstOfThree();
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    clickSync();
    verifyScript();
    const QStringList made = QDir(at(u"backups"_qs)).entryList({u"backup_kordia_*"_qs});
    QCOMPARE(made.size(), 1);
    QCOMPARE(QDir(at(u"backups/"_qs + made.first())).entryList(QDir::Files),
             QStringList({u"contenuto.csv"_qs, u"one.mid"_qs}));
    QCOMPARE(statuses(), u"111"_qs);
    QCOMPARE(title(u"three.mid"_qs), u"THREE KINGS"_qs);
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
}

void TestMainWindowSync::emptyLineEndsABackupInTheLog_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<bool>("isCancelled");
    QTest::addColumn<QString>("text");
    QTest::newRow("done") << true << false << u"Backup eseguito correttamente"_qs;
    QTest::newRow("failed") << false << false << u"Backup FALLITO !!!"_qs;
    QTest::newRow("cancelled") << true << true << u"Backup FALLITO !!!"_qs;
}

void TestMainWindowSync::emptyLineEndsABackupInTheLog()
{
    QFETCH(bool, isThere);
    QFETCH(bool, isCancelled);
    QFETCH(QString, text);
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    if (!isThere)
        QVERIFY(QFile::remove(at(u"two.mid"_qs)));
    const LogCapture log;
    qsizetype before = 0;
    expectBackupToFolder();
    if (isCancelled)
        cancelBackupAfterTheFirstOfThree();
    expectMessageWithLog(text, log, before);
    clickSync();
    verifyScript();
    QVERIFY(before > 0);
    QCOMPARE(log.messages().mid(before, 2), QStringList({u" "_qs, u"[UPDATE] rowIdx:  0 "_qs}));
}

BRISEL_TEST(QApplication, TestMainWindowSync)
#include "tst_mainwindow_sync.moc"
