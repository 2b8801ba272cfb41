#include "base/filefailure.h"
#include "base/runreport.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using Step = RunReport::Step;

/// Texts in the lines of a report: hostile and long ones.
class TestRunReportTexts : public QObject
{
    Q_OBJECT

private slots:
    void namesCannotForgeALine_data();
    void namesCannotForgeALine();
    void textsCannotForgeALine();
    void longTextsAreCutInTheMiddle();
    void longTextsShowTheirDifference();
    void cutsNoCharacterInTwo();
};

static const char *const titleField = "Titolo";

void TestRunReportTexts::namesCannotForgeALine_data()
{
    QTest::addColumn<QChar>("character");
    for (const char16_t code :
         {u'\n', u'\r', u'\0', u'\t', u'\v', u'\f', u'\x85', u'\u2028', u'\u2029'})
        QTest::addRow("U+%04X", static_cast<unsigned>(code)) << QChar(code);
}

void TestRunReportTexts::namesCannotForgeALine()
{
    QFETCH(QChar, character);
    const QString name = QStringLiteral("/a") + character + QStringLiteral("b.mid");
    RunReport report;
    report.add(Step::Read, name, FileReason::empty);
    report.addMessage(name);
    QCOMPARE(report.text(), QStringLiteral("2 non riuscite\n"
                                           "Non letta (il file è vuoto): /a\uFFFDb.mid\n"
                                           "/a\uFFFDb.mid\n"));
}

void TestRunReportTexts::textsCannotForgeALine()
{
    RunReport report;
    report.addChanges(QStringLiteral("/a\nb.mid"),
                      {{titleField, QStringLiteral("a\r\nb"), QStringLiteral("a\u2028b")}});
    QCOMPARE(report.text(), QStringLiteral("\n"
                                           "Modificata: /a\uFFFDb.mid\n"
                                           "    Titolo: «a\uFFFD\uFFFDb» → «a\uFFFDb»\n"));
}

void TestRunReportTexts::longTextsAreCutInTheMiddle()
{
    RunReport report;
    report.addChanges(QStringLiteral("/a.mid"),
                      {{titleField, QString(160, u'a'), QString(100, u'b') + QString(61, u'c')}});
    QCOMPARE(report.text(), u"\nModificata: /a.mid\n    Titolo: «"_qs + QString(160, u'a') +
                                u"» → «"_qs + QString(80, u'b') + u"[...]"_qs + QString(19, u'b') +
                                QString(61, u'c') + u"»\n"_qs);
}

/// Two lists of markers may begin with the same thousand characters.
void TestRunReportTexts::longTextsShowTheirDifference()
{
    const QString equal(1000, u'a');
    RunReport report;
    report.addChanges(QStringLiteral("/a.mid"), {{titleField, equal + u"x"_qs, equal + u"y"_qs}});
    const QString shown = u"[...]"_qs + QString(40, u'a');
    QCOMPARE(report.text(),
             u"\nModificata: /a.mid\n    Titolo: «"_qs + shown + u"x» → «"_qs + shown + u"y»\n"_qs);
}

void TestRunReportTexts::cutsNoCharacterInTwo()
{
    const QString note = QStringLiteral("\U0001D11E"); // two code units
    QString text = QStringLiteral("a");
    for (int i = 0; i < 100; ++i)
        text += note;
    for (const QString &lead : {QString(), QStringLiteral("b")}) {
        RunReport report;
        report.addChanges(QStringLiteral("/a.mid"), {{titleField, QString(), lead + text}});
        QVERIFY(report.text().isValidUtf16());
        report.addChanges(QStringLiteral("/a.mid"),
                          {{titleField, lead + text + u"x"_qs, lead + text + u"y"_qs}});
        QVERIFY(report.text().isValidUtf16());
    }
}

BRISEL_TEST(QCoreApplication, TestRunReportTexts)
#include "tst_runreporttexts.moc"
