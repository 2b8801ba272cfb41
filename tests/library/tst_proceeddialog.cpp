#include "library/dialogs/proceeddialog.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace brisel;

class TestProceedDialog : public QObject
{
    Q_OBJECT

private slots:
    void showsTheSummary();
    void endsWithOneForYesAndZeroForNo();
    void countsEscapeAsNo();
    void showsAgainUnlessTicked();
    void keepsTheSummaryWhenTheLanguageChanges();
};

void TestProceedDialog::showsTheSummary()
{
    ProceedDialog dialog;
    dialog.setFilesCount(5, 3, 2);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Riassunto importazione"));
    auto *summary = dialog.findChild<QLabel *>(QStringLiteral("summaryLabel"));
    QCOMPARE(summary->text(),
             QStringLiteral("Sono stati esaminti 7 files, trovate 5 songs di cui 3 di (c)Kordia"));
    QCOMPARE(summary->textFormat(), Qt::PlainText);
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("questionLabel"))->text(),
             QStringLiteral("Si vuole procedere alla sincronizzazione automatica con il "
                            "database?"));
    QCOMPARE(dialog.findChild<QCheckBox *>()->text(),
             QStringLiteral("Non mostrare più messaggi sul copyright"));
    QCOMPARE(dialog.findChild<QPushButton *>(QStringLiteral("yesPushButton"))->text(),
             QStringLiteral("Si"));
    QCOMPARE(dialog.findChild<QPushButton *>(QStringLiteral("noPushButton"))->text(),
             QStringLiteral("No"));
}

void TestProceedDialog::endsWithOneForYesAndZeroForNo()
{
    ProceedDialog dialog;
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("yesPushButton")),
                      Qt::LeftButton);
    QCOMPARE(dialog.result(), 1);
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("noPushButton")),
                      Qt::LeftButton);
    QCOMPARE(dialog.result(), 0);
}

void TestProceedDialog::countsEscapeAsNo()
{
    ProceedDialog dialog;
    dialog.show();
    dialog.setResult(1);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), 0);
}

void TestProceedDialog::showsAgainUnlessTicked()
{
    ProceedDialog dialog;
    QVERIFY(dialog.getShowAgainValue());
    dialog.findChild<QCheckBox *>()->click();
    QVERIFY(!dialog.getShowAgainValue());
}

void TestProceedDialog::keepsTheSummaryWhenTheLanguageChanges()
{
    ProceedDialog dialog;
    dialog.setFilesCount(5, 3, 2);
    auto *summary = dialog.findChild<QLabel *>(QStringLiteral("summaryLabel"));
    const QString text = summary->text();
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&dialog, &change);
    QCOMPARE(summary->text(), text);
}

BRISEL_TEST(QApplication, TestProceedDialog)
#include "tst_proceeddialog.moc"
