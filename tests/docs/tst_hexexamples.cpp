#include "tests/docs/examples.h"
#include "tests/docs/formatpages.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

/// The reader of the examples in the format pages.
class TestHexExamples : public QObject
{
    Q_OBJECT

private slots:
    void readsBytes();
    void refusesOtherLines_data();
    void refusesOtherLines();
    void noticesBytesWithoutAName();
};

void TestHexExamples::readsBytes()
{
    const auto read = HexExample::parse(u"01 0A  fF   00 not this\n00000006  .. 2 0\n"_qs);
    QVERIFY(!read);
    const auto example = HexExample::parse(u"01 0A  fF   00 not this\n0006  .. 20\n30\n"_qs);
    QVERIFY(example.has_value());
    QVERIFY(!example->isComplete());
    QCOMPARE(example->over("abcdefghijk"), QByteArray("\x01\x0A\xFF"
                                                      "defg 0jk"));
    QCOMPARE(example->over("abc"), QByteArray("\x01\x0A\xFF\0\0\0\0 0", 9));
    QVERIFY(HexExample::parse(u"0000  01\n0001  02"_qs)->isComplete());
}

void TestHexExamples::refusesOtherLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << u""_qs;
    QTest::newRow("no byte given") << u"0000  .. .."_qs;
    QTest::newRow("half a byte") << u"00 1 00"_qs;
    QTest::newRow("three digits") << u"00 123"_qs;
    QTest::newRow("no number") << u"00 0G"_qs;
    QTest::newRow("remark too near") << u"00  remark"_qs;
    QTest::newRow("offset alone") << u"00000000"_qs;
    QTest::newRow("offset goes back") << u"0000  00 00\n0001  00"_qs;
    QTest::newRow("offset far away") << u"00010000  00"_qs;
    QTest::newRow("indented") << u"  00 00"_qs;
}

void TestHexExamples::refusesOtherLines()
{
    QFETCH(QString, text);
    QVERIFY(!HexExample::parse(text).has_value());
}

void TestHexExamples::noticesBytesWithoutAName()
{
    const QString indented = u"    00 FF text"_qs;
    const QString fenced = u"0010  4d 54"_qs;
    const QString page = u"Text 00 FF 00\n\n%1\n\n```\n%2\n```\n\n```hex named\n00 FF\n```\n"_qs;
    QCOMPARE(FormatPages::strayBytesIn(page.arg(indented, fenced)),
             QStringList({indented, fenced}));
    QCOMPARE(FormatPages::strayBytesIn(page.arg(u"    cmake"_qs, u"title"_qs)), QStringList());
}

BRISEL_TEST(QApplication, TestHexExamples)
#include "tst_hexexamples.moc"
