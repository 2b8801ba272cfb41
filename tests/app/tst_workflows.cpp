#include "app/mainwindow.h"

#include "base/runguard.h"
#include "library/nocopyrightdialog.h"
#include "tests/dialogscript.h"
#include "tests/library/samplelibrary.h"
#include "tests/logcapture.h"
#include "tests/testfiles.h"
#include "tests/testhome.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

/// The workflows through the real window, by clicks and keys.
class TestWorkflows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void synchronisesAfterTheImportSummary();
    void emptyTableIsNotSynchronised();
    void abortedBackupLeavesTheButtonEnabled();
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

    void doubleClickEditsTheSong();
    void cancelledEditChangesNothing();
    void unreadableFileGivesNoDialog();
    void spreadsTheEditOverTheList();
    void nothingLeaksIntoTheNextEdit();
    void removesFromTheList();
    void deletesTheFile_data();
    void deletesTheFile();
    void menuOverNoRowDoesNothing();
    void debugControls();

    void transfersToTheMemorysSongsFolder();
    void refusesToTransfer_data();
    void refusesToTransfer();
    void cancelledFolderDialogTransfersNothing();
    void skippedFilesNeedNoIndex();
    void vanishedVolumeLeavesTheWindowUsable();
    void interruptedTransferIsReported();
    void copyErrorIsNotHiddenByAGoodIndex();
    void runsDoNotStartInsideOthers();
    void backsUpAFolderTree();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    QToolButton *tool(const char *name) const
    {
        return m_window->findChild<QToolButton *>(QString::fromLatin1(name));
    }
    QTableView *table() const
    {
        return m_window->findChild<QTableView *>(u"userLibraryTableView"_qs);
    }
    UserSongsRelTableModel &model() const
    {
        return *m_window->findChild<UserSongsRelTableModel *>();
    }
    QString statuses() const
    {
        QString digits;
        for (int row = 0; row < model().goodRowCount(); ++row)
            digits += QString::number(model().status(row));
        return digits;
    }
    QString title(const QString &name) const { return Sample::infoOf(at(name)).title; }
    QPoint cell(int row) const
    {
        return table()->visualRect(model().index(row, model().fieldIndex(u"title"_qs))).center();
    }

    void makeSongs(const QStringList &names, bool published);
    void import(const QStringList &names);
    void clickSync() { QTest::mouseClick(tool("updateDataToolButton"), Qt::LeftButton); }
    void clickTransfer() { QTest::mouseClick(tool("transferFilesToolButton"), Qt::LeftButton); }
    void expectBackup(const QString &button);
    void expectBackupToFolder();
    void expectQuestion(int answer);
    void expectEdit(const DialogScript::Step &edit) { m_script->expect("DataEditDialog", edit); }
    void doubleClick(int row);
    void chooseFromMenu(int entry, const QPoint &pos);
    void verifyScript()
    {
        QVERIFY2(m_script->isDone(), qPrintable(m_script->problems().join(u'\n')));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<DialogScript> m_script;
};

void TestWorkflows::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    QVERIFY(QDir(m_folder->path()).mkpath(u"volumes/CARD"_qs));
    qputenv("BRISEL_VOLUMES", QFile::encodeName(at(u"volumes"_qs)));
    Sample::makeCatalogue(m_folder->path(), {{u"ONE"_qs, u"ONE LOVE"_qs},
                                             {u"TWO"_qs, u"TWO SONGS"_qs},
                                             {u"THREE"_qs, u"THREE KINGS"_qs}});
    QSettings(u"kordia"_qs, u"brisel2pc"_qs).clear();
    m_window = std::make_unique<MainWindow>();
    m_window->resize(1000, 700);
    m_window->show();
    m_script = std::make_unique<DialogScript>();
    m_window->enableCopyrightMessage(false);
}

void TestWorkflows::cleanup()
{
    m_script.reset();
    m_window.reset();
    QVERIFY(!RunGuard::isActive());
    QDir::setCurrent(QDir::rootPath());
}

void TestWorkflows::makeSongs(const QStringList &names, bool published)
{
    for (const QString &name : names)
        makeFile(at(name), Sample::midi(name.section(u'.', 0, 0).toLatin1(), published));
}

void TestWorkflows::import(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names)
        paths.append(at(name));
    m_script->expectFiles(paths);
    QTest::mouseClick(tool("selectDirToolButton"), Qt::LeftButton);
    verifyScript();
}

void TestWorkflows::expectBackup(const QString &button)
{
    m_script->expect("BackupDialog",
                     [button](QWidget *widget) { DialogScript::click(widget, button); });
}

void TestWorkflows::expectBackupToFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"backups"_qs));
    m_script->expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({at(u"backups"_qs)});
        DialogScript::click(widget, u"browsePushButton"_qs);
        DialogScript::click(widget, u"doBackupPushButton"_qs);
    });
}

void TestWorkflows::expectQuestion(int answer)
{
    static const QStringList buttons{u"yesPushButton"_qs, u"yesAllPushButton"_qs,
                                     u"noPushButton"_qs, u"noAllPushButton"_qs};
    m_script->expect("NoCopyrightDialog", [answer](QWidget *widget) {
        DialogScript::click(widget, buttons.at(answer));
    });
}

void TestWorkflows::doubleClick(int row)
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(row));
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell(row));
}

/// Opens the context menu at \a pos and clicks the entry; -1 closes the menu.
void TestWorkflows::chooseFromMenu(int entry, const QPoint &pos)
{
    QTimer::singleShot(20, m_window.get(), [entry] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->actions().size(), 2);
        QCOMPARE(menu->actions().at(0)->text(), u"Remove from list"_qs);
        QCOMPARE(menu->actions().at(1)->text(), u"Delete file"_qs);
        if (entry >= 0)
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(menu->actions().at(entry)).center());
        if (menu->isVisible())
            menu->close();
    });
    emit table()->customContextMenuRequested(pos);
}

void TestWorkflows::synchronisesAfterTheImportSummary()
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

void TestWorkflows::emptyTableIsNotSynchronised()
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

void TestWorkflows::abortedBackupLeavesTheButtonEnabled()
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

void TestWorkflows::completedSynchronisationDisablesTheButton()
{
    makeSongs({u"one.mid"_qs, u"none.mid"_qs}, true);
    import({u"one.mid"_qs, u"none.mid"_qs});
    QStringList seen;
    m_script->expect("BackupDialog", [this, &seen](QWidget *widget) {
        // The progress of the run that follows.
        QTimer::singleShot(0, m_window.get(), [this, &seen] {
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

void TestWorkflows::asksForUnpublishedSongsUnlessSwitchedOff()
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
    expectQuestion(NoCopyrightDialog::No);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"3"_qs);
}

void TestWorkflows::escapeInTheQuestionUpdatesTheSong()
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

void TestWorkflows::noToAllHoldsUntilTheRunEnds()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectQuestion(NoCopyrightDialog::NoToAll);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"33"_qs);

    m_window->enableCopyrightMessage(false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    expectQuestion(NoCopyrightDialog::Yes);
    expectQuestion(NoCopyrightDialog::Yes);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"11"_qs);
}

void TestWorkflows::interruptKeepsWhatWasDone()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        // Pressed as soon as the row is done.
        QTimer::singleShot(0, m_window->findChild<QProgressDialog *>(), [this] {
            auto *dialog = m_window->findChild<QProgressDialog *>();
            QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        });
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"100"_qs);
    QCOMPARE(title(u"two.mid"_qs), u"two"_qs);
    QVERIFY(tool("updateDataToolButton")->isEnabled());
}

void TestWorkflows::quitDuringTheQuestionChangesNothing()
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

void TestWorkflows::backupWithoutFolderIsRefused()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    expectBackup(u"doBackupPushButton"_qs);
    m_script->expectMessage(u"Backup"_qs, u"Backup FALLITO !!!"_qs, QMessageBox::Ok);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"0"_qs);
    QVERIFY(tool("updateDataToolButton")->isEnabled());
}

void TestWorkflows::backupThatCannotMakeItsFolderIsRefused()
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
    QVERIFY(log.contains(u"Dest root dir creation failed "_qs));
    QCOMPARE(statuses(), u"0"_qs);
}

void TestWorkflows::backupCopiesThePickedFiles()
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
             QStringList({u"one.mid"_qs, u"two.mid"_qs}));
    // The copies were made before the songs were changed.
    QCOMPARE(title(u"backups/"_qs + made.first() + u"/one.mid"_qs), u"one"_qs);
    QCOMPARE(statuses(), u"11"_qs);
}

void TestWorkflows::failedBackupStillSynchronises()
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

void TestWorkflows::doubleClickEditsTheSong()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    expectEdit([](QWidget *widget) {
        auto *line = widget->findChild<QLineEdit *>(u"titleLineEdit"_qs);
        QCOMPARE(line->text(), u"two"_qs);
        line->selectAll();
        QTest::keyClicks(line, u"Typed"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    const LogCapture log;
    doubleClick(1);
    verifyScript();
    QCOMPARE(log.messages().mid(0, 2),
             QStringList({u"File name:  \"%1\" "_qs.arg(at(u"two.mid"_qs)),
                          u"[MainWindow] Manual modifing row:  1 "_qs}));
    QVERIFY(log.contains(u"Accepted "_qs));
    QCOMPARE(title(u"two.mid"_qs), u"Typed"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    QCOMPARE(statuses(), u"02"_qs);
}

void TestWorkflows::cancelledEditChangesNothing()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    const QByteArray content = fileContent(at(u"one.mid"_qs));
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Typed"_qs);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    const LogCapture log;
    doubleClick(0);
    verifyScript();
    QVERIFY(log.contains(u"Rejected! "_qs));
    QVERIFY(log.contains(u"Title      : \"one\" "_qs));
    QCOMPARE(fileContent(at(u"one.mid"_qs)), content);
    QCOMPARE(statuses(), u"0"_qs);
}

void TestWorkflows::unreadableFileGivesNoDialog()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    QVERIFY(QFile::remove(at(u"one.mid"_qs)));
    doubleClick(0);
    verifyScript();
    QCOMPARE(statuses(), u"0"_qs);
}

void TestWorkflows::spreadsTheEditOverTheList()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    model().sort(model().fieldIndex(u"title"_qs), Qt::DescendingOrder);
    QCOMPARE(model().shortName(0), u"two.mid"_qs);
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"authorLineEdit"_qs)->setText(u"Someone"_qs);
        const auto tick = [widget](const QString &box) {
            DialogScript inner;
            inner.expect("QMessageBox", [](QWidget *message) {
                QTest::mouseClick(qobject_cast<QMessageBox *>(message)->button(QMessageBox::Yes),
                                  Qt::LeftButton);
            });
            QTest::mouseClick(widget->findChild<QCheckBox *>(box), Qt::LeftButton);
        };
        tick(u"checkBoxToAllAuthor"_qs);
        QTest::mouseClick(widget->findChild<QRadioButton *>(u"radioButtonTitle2"_qs),
                          Qt::LeftButton);
        tick(u"checkBoxToAllTitle"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(statuses(), u"222"_qs);
    for (const QString &name : {u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs})
        QCOMPARE(Sample::infoOf(at(name)).author, u"Someone"_qs);
}

void TestWorkflows::nothingLeaksIntoTheNextEdit()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"authorLineEdit"_qs)->setText(u"Someone"_qs);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"savePushButton"_qs); });
    doubleClick(1);
    verifyScript();
    const SongInfo info = Sample::infoOf(at(u"two.mid"_qs));
    QCOMPARE(info.title, u"two"_qs);
    QCOMPARE(info.author, QString());
    QCOMPARE(info.key, QString());
}

void TestWorkflows::removesFromTheList()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    chooseFromMenu(-1, cell(0));
    QCOMPARE(model().goodRowCount(), 2);
    chooseFromMenu(0, cell(0));
    verifyScript();
    QCOMPARE(model().goodRowCount(), 1);
    QCOMPARE(model().shortName(0), u"two.mid"_qs);
    QVERIFY(QFile::exists(at(u"one.mid"_qs)));
}

void TestWorkflows::deletesTheFile_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<int>("rows");
    QTest::newRow("Yes") << int(QMessageBox::Yes) << false << 1;
    QTest::newRow("No") << int(QMessageBox::No) << true << 2;
}

void TestWorkflows::deletesTheFile()
{
    QFETCH(int, answer);
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_script->expect("QMessageBox", [answer](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->windowTitle(), u"Attenzione"_qs);
        QCOMPARE(box->text(), u"Sei sicuro di voler cancellare il file?"_qs);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        QTest::mouseClick(box->button(QMessageBox::StandardButton(answer)), Qt::LeftButton);
    });
    chooseFromMenu(1, cell(1));
    verifyScript();
    QTEST(QFile::exists(at(u"two.mid"_qs)), "exists");
    QTEST(model().goodRowCount(), "rows");
}

void TestWorkflows::menuOverNoRowDoesNothing()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    const QPoint below = cell(0) + QPoint(0, 300);
    QVERIFY(!table()->indexAt(below).isValid());
    chooseFromMenu(0, below);
    chooseFromMenu(1, below);
    verifyScript();
    QCOMPARE(model().goodRowCount(), 1);
    QVERIFY(QFile::exists(at(u"one.mid"_qs)));
}

void TestWorkflows::debugControls()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    const auto press = [this](const QString &name) {
        m_window->findChild<QPushButton *>(name)->click();
    };
    const LogCapture log;
    press(u"dbgSavePushButton"_qs);
    QCOMPARE(log.messages().first(), u"[MainWindow] Saving row:  -1 "_qs);
    QVERIFY(log.contains(u"Error! "_qs));
    QVERIFY(!QFile::exists(at(u"test_save.bin"_qs)));

    table()->selectRow(0);
    press(u"dbgSavePushButton"_qs);
    QVERIFY(log.contains(u"[MainWindow] Saving row:  0 "_qs));
    QVERIFY(log.contains(u"Saving to file:  \"test_save.bin\" "_qs));
    QVERIFY(log.contains(u"Ok "_qs));
    QCOMPARE(fileContent(at(u"test_save.bin"_qs)), fileContent(at(u"one.mid"_qs)));

    m_window->findChild<QLineEdit *>(u"dbgMarkerTextLineEdit"_qs)->setText(u"Bridge"_qs);
    press(u"dbgAddMarkerPushButton"_qs);
    QVERIFY(log.contains(u"[MainWindow] Adding marker to row:  0 "_qs));
    QVERIFY(log.contains(u"Saving to file:  \"test_addmarker.bin\" "_qs));
    const SongInfo marked = Sample::infoOf(at(u"test_addmarker.bin"_qs));
    QCOMPARE(marked.markers.size(), 1);
    QCOMPARE(marked.markers.first().text, u"Bridge"_qs);
    QCOMPARE(marked.markers.first().bar, 0);

    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"savePushButton"_qs); });
    press(u"dbgShowDialogPushButton"_qs);
    QCOMPARE(log.messages().last(), u"Accettato "_qs);
    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"exitPushButton"_qs); });
    press(u"dbgShowDialogPushButton"_qs);
    QCOMPARE(log.messages().last(), u"Rifiutato "_qs);
    expectBackup(u"abortPushButton"_qs);
    press(u"dbgBackupPushButton"_qs);
    verifyScript();
    QCOMPARE(statuses(), u"0"_qs);
}

void TestWorkflows::transfersToTheMemorysSongsFolder()
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

void TestWorkflows::refusesToTransfer_data()
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

void TestWorkflows::refusesToTransfer()
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

void TestWorkflows::cancelledFolderDialogTransfersNothing()
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

void TestWorkflows::skippedFilesNeedNoIndex()
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

void TestWorkflows::vanishedVolumeLeavesTheWindowUsable()
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

void TestWorkflows::interruptedTransferIsReported()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QTimer::singleShot(0, m_window->findChild<QProgressDialog *>(), [this] {
            auto *dialog = m_window->findChild<QProgressDialog *>();
            QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        });
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs, u"Non è stato possibile copiare uno o più file"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(!QFile::exists(at(u"volumes/CARD/songs/two.mid"_qs)));
    QVERIFY(!QFile::exists(at(u"volumes/CARD/index.id2"_qs)));
}

void TestWorkflows::copyErrorIsNotHiddenByAGoodIndex()
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

void TestWorkflows::runsDoNotStartInsideOthers()
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

void TestWorkflows::backsUpAFolderTree()
{
    makeSongs({u"tree/one.mid"_qs, u"tree/sub/two.mid"_qs}, false);
    QVERIFY(QDir(m_folder->path()).mkdir(u"to"_qs));
    int count = 0;
    QVERIFY(m_window->backupDirectory(at(u"tree"_qs), at(u"to"_qs), count));
    QCOMPARE(count, 2);
    QVERIFY(QFile::exists(at(u"to/sub/two.mid"_qs)));
}

BRISEL_TEST_MAIN(QApplication, TestWorkflows)
#include "tst_workflows.moc"
