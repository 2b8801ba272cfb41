#include "library/dialogs/nocopyrightdialog.h"
#include "tests/dialogscript.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace brisel;

/// The four-way question, answered by clicks and keys.
class TestNoCopyrightDialog : public QObject
{
    Q_OBJECT

private slots:
    void givesEachButtonItsResult_data();
    void givesEachButtonItsResult();
    void enterPressesTheFocusedButton_data();
    void enterPressesTheFocusedButton();
    void enterFirstMeansYes();
    void tabWalksTheButtonsInOrder();
    void countsEscapeAsYes();
    void countsClosingAsYes();
    void showsItsTexts();
    void showsFileNamesAsTheyAre();
    void breaksNamesWithoutBlanks();
    void cutsEndlessNamesInTheMiddle();
    void hidesTheButtonsForAll();
    void keepsTextsWhenTheLanguageChanges();
};

void TestNoCopyrightDialog::givesEachButtonItsResult_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("result");
    QTest::newRow("yes") << u"yesPushButton"_qs << u"Si"_qs << 0;
    QTest::newRow("yes to all") << u"yesAllPushButton"_qs << u"Si tutti"_qs << 1;
    QTest::newRow("no") << u"noPushButton"_qs << u"No"_qs << 2;
    QTest::newRow("no to all") << u"noAllPushButton"_qs << u"No tutti"_qs << 3;
}

void TestNoCopyrightDialog::givesEachButtonItsResult()
{
    QFETCH(QString, button);
    QFETCH(QString, label);
    NoCopyrightDialog dialog;
    QCOMPARE(dialog.findChild<QPushButton *>(button)->text(), label);
    DialogScript script;
    script.expect("NoCopyrightDialog", [&](QWidget *shown) { DialogScript::click(shown, button); });
    QTEST(dialog.exec(), "result");
    QVERIFY(script.isDone());
}

void TestNoCopyrightDialog::enterPressesTheFocusedButton_data()
{
    givesEachButtonItsResult_data();
}

void TestNoCopyrightDialog::enterPressesTheFocusedButton()
{
    QFETCH(QString, button);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        NoCopyrightDialog dialog;
        DialogScript script;
        script.expect("NoCopyrightDialog", [&](QWidget *shown) {
            auto *focused = shown->findChild<QPushButton *>(button);
            focused->setFocus();
            QTest::keyClick(focused, key);
        });
        QTEST(dialog.exec(), "result");
        QVERIFY(script.isDone());
    }
}

void TestNoCopyrightDialog::enterFirstMeansYes()
{
    NoCopyrightDialog dialog;
    DialogScript script;
    script.expect("NoCopyrightDialog",
                  [](QWidget *shown) { QTest::keyClick(shown, Qt::Key_Return); });
    QCOMPARE(dialog.exec(), int(Run::Answer::Yes));
}

void TestNoCopyrightDialog::tabWalksTheButtonsInOrder()
{
    NoCopyrightDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList walked;
    for (int step = 0; step < 4; ++step) {
        walked.append(dialog.focusWidget()->objectName());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(walked.join(u' '), u"yesPushButton yesAllPushButton noPushButton noAllPushButton"_qs);
}

void TestNoCopyrightDialog::countsEscapeAsYes()
{
    NoCopyrightDialog dialog;
    DialogScript script;
    script.expect("NoCopyrightDialog",
                  [](QWidget *shown) { QTest::keyClick(shown, Qt::Key_Escape); });
    QCOMPARE(dialog.exec(), int(Run::Answer::Yes));
}

void TestNoCopyrightDialog::countsClosingAsYes()
{
    NoCopyrightDialog dialog;
    DialogScript script;
    script.expect("NoCopyrightDialog", [](QWidget *shown) { shown->close(); });
    QCOMPARE(dialog.exec(), int(Run::Answer::Yes));
}

void TestNoCopyrightDialog::showsItsTexts()
{
    NoCopyrightDialog dialog;
    QCOMPARE(dialog.windowTitle(), u"Richiesta conferma"_qs);
    QCOMPARE(dialog.findChild<QLabel *>(u"fileLabel"_qs)->text(), u"Il file:"_qs);
    auto *message = dialog.findChild<QLabel *>(u"messageLabel"_qs);
    QCOMPARE(message->text(),
             u"Non è stato pubblicato da Kordia. Si vuole procedere comunque con le modifiche?"_qs);
    dialog.setMessage(u"esiste già, vuoi sostituirlo?"_qs);
    QCOMPARE(message->text(), u"esiste già, vuoi sostituirlo?"_qs);
}

void TestNoCopyrightDialog::showsFileNamesAsTheyAre()
{
    NoCopyrightDialog dialog;
    dialog.setFilename(u"/x/<b>&amp;.mid"_qs);
    auto *name = dialog.findChild<QLabel *>(u"fileNameLabel"_qs);
    QCOMPARE(name->text(), u"/x/<b>&amp;.mid"_qs);
    QCOMPARE(name->textFormat(), Qt::PlainText);
    QCOMPARE(dialog.findChild<QLabel *>(u"messageLabel"_qs)->textFormat(), Qt::PlainText);
}

void TestNoCopyrightDialog::breaksNamesWithoutBlanks()
{
    NoCopyrightDialog dialog;
    dialog.setFilename(u"/x/"_qs + QString(250, u'W') + u".mid"_qs);
    dialog.setMessage(u"verrà rinominato: /x/"_qs + QString(250, u'W'));
    dialog.show();
    QVERIFY(dialog.width() < 700);
    for (const char *name : {"fileNameLabel", "messageLabel"}) {
        const auto *label = dialog.findChild<QLabel *>(QString::fromLatin1(name));
        QVERIFY(label->height() >= label->fontMetrics().height() * 4);
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
    }
}

void TestNoCopyrightDialog::cutsEndlessNamesInTheMiddle()
{
    NoCopyrightDialog dialog;
    const QString name = u'/' + QString(4000, u'W') + u".mid"_qs;
    dialog.setFilename(name);
    dialog.show();
    QVERIFY(dialog.height() < 500);
    QCOMPARE(dialog.findChild<QLabel *>(u"fileNameLabel"_qs)->text(), name);
}

void TestNoCopyrightDialog::hidesTheButtonsForAll()
{
    NoCopyrightDialog dialog;
    dialog.setYesNoOnly(true);
    dialog.show();
    QVERIFY(!dialog.findChild<QPushButton *>(u"yesAllPushButton"_qs)->isVisible());
    QVERIFY(!dialog.findChild<QPushButton *>(u"noAllPushButton"_qs)->isVisible());
    QVERIFY(dialog.findChild<QPushButton *>(u"yesPushButton"_qs)->isVisible());
    DialogScript::click(&dialog, u"noPushButton"_qs);
    QCOMPARE(dialog.result(), 2);
    dialog.show();
    DialogScript::click(&dialog, u"yesPushButton"_qs);
    QCOMPARE(dialog.result(), 0);
    dialog.setYesNoOnly(false);
    dialog.show();
    QVERIFY(dialog.findChild<QPushButton *>(u"yesAllPushButton"_qs)->isVisible());
}

void TestNoCopyrightDialog::keepsTextsWhenTheLanguageChanges()
{
    NoCopyrightDialog dialog;
    dialog.setFilename(u"/x/a.mid"_qs);
    dialog.setMessage(u"verrà rinominato: b"_qs);
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(&dialog, &change);
    QCOMPARE(dialog.findChild<QLabel *>(u"fileNameLabel"_qs)->text(), u"/x/a.mid"_qs);
    QCOMPARE(dialog.findChild<QLabel *>(u"messageLabel"_qs)->text(), u"verrà rinominato: b"_qs);
    QCOMPARE(dialog.windowTitle(), u"Richiesta conferma"_qs);
}

BRISEL_TEST(QApplication, TestNoCopyrightDialog)
#include "tst_nocopyrightdialog.moc"
