#include "tests/app/workflowtest.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace brisel;

/// Editing and the context menu through the real window, by clicks and keys.
class TestMainWindowEdit : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void doubleClickEditsTheSong();
    void cancelledEditChangesNothing();
    void unreadableFileGivesNoDialog();
    void spreadsTheEditOverTheList();
    void nothingLeaksIntoTheNextEdit();
    void removesFromTheList();
    void deletesTheFile_data();
    void deletesTheFile();
    void keysAnswerTheQuestionBeforeDeleting_data();
    void keysAnswerTheQuestionBeforeDeleting();
    void fileThatCannotBeDeletedLeavesTheListAllTheSame();
    void menuOverNoRowDoesNothing();
    void debugControls();
};

void TestMainWindowEdit::doubleClickEditsTheSong()
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

void TestMainWindowEdit::cancelledEditChangesNothing()
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

void TestMainWindowEdit::unreadableFileGivesNoDialog()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    QVERIFY(QFile::remove(at(u"one.mid"_qs)));
    doubleClick(0);
    verifyScript();
    QCOMPARE(statuses(), u"0"_qs);
}

void TestMainWindowEdit::spreadsTheEditOverTheList()
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

void TestMainWindowEdit::nothingLeaksIntoTheNextEdit()
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

void TestMainWindowEdit::removesFromTheList()
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

void TestMainWindowEdit::deletesTheFile_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<int>("rows");
    QTest::newRow("Yes") << int(QMessageBox::Yes) << false << 1;
    QTest::newRow("No") << int(QMessageBox::No) << true << 2;
}

void TestMainWindowEdit::deletesTheFile()
{
    QFETCH(int, answer);
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    m_script->expect("QMessageBox", [answer](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->windowTitle(), u"Attenzione"_qs);
        QCOMPARE(box->text(), u"Sei sicuro di voler cancellare il file?"_qs);
        QCOMPARE(box->informativeText(), u"two.mid"_qs);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        QTest::mouseClick(box->button(QMessageBox::StandardButton(answer)), Qt::LeftButton);
    });
    chooseFromMenu(1, cell(1));
    verifyScript();
    QTEST(QFile::exists(at(u"two.mid"_qs)), "exists");
    QTEST(model().goodRowCount(), "rows");
}

void TestMainWindowEdit::keysAnswerTheQuestionBeforeDeleting_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

/// None of these deletes the song.
void TestMainWindowEdit::keysAnswerTheQuestionBeforeDeleting()
{
    QFETCH(int, key);
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    m_script->expect("QMessageBox",
                     [key](QWidget *widget) { QTest::keyClick(widget, Qt::Key(key)); });
    chooseFromMenu(1, cell(0));
    verifyScript();
    QVERIFY(QFile::exists(at(u"one.mid"_qs)));
    QCOMPARE(model().goodRowCount(), 1);
}

void TestMainWindowEdit::fileThatCannotBeDeletedLeavesTheListAllTheSame()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    // Not even root can delete a folder as a file.
    QVERIFY(QFile::remove(at(u"two.mid"_qs)));
    makeFile(at(u"two.mid/inside.mid"_qs), "kept");
    m_script->expectMessage(u"Attenzione"_qs, u"Sei sicuro di voler cancellare il file?"_qs,
                            QMessageBox::Yes);
    chooseFromMenu(1, cell(1));
    verifyScript();
    QCOMPARE(fileContent(at(u"two.mid/inside.mid"_qs)), QByteArray("kept"));
    QCOMPARE(model().goodRowCount(), 1);
    QCOMPARE(model().shortName(0), u"one.mid"_qs);
    QVERIFY(QFile::exists(at(u"one.mid"_qs)));
}

void TestMainWindowEdit::menuOverNoRowDoesNothing()
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

void TestMainWindowEdit::debugControls()
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

BRISEL_TEST(QApplication, TestMainWindowEdit)
#include "tst_mainwindow_edit.moc"
