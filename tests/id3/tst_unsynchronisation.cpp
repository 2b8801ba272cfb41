#include "id3/unsynchronisation.h"
#include "tests/id3/handmadetag.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using HandMade::bytes;

class TestUnsynchronisation : public QObject
{
    Q_OBJECT

private slots:
    void removesInsertedBytes_data();
    void removesInsertedBytes();
    void detectsWhatTheSchemeNeverWrites();
};

void TestUnsynchronisation::removesInsertedBytes_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QByteArray>("meant");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("no mark") << bytes("abc\0d") << bytes("abc\0d");
    QTest::newRow("before a sync") << bytes("a\xFF\0\xE0") << bytes("a\xFF\xE0");
    QTest::newRow("before a zero byte") << bytes("a\xFF\0\0z") << bytes("a\xFF\0z");
    QTest::newRow("at the end") << bytes("a\xFF\0") << bytes("a\xFF");
    QTest::newRow("two marks") << bytes("\xFF\0\xFF\0\xFE") << bytes("\xFF\xFF\xFE");
    QTest::newRow("a mark before less") << bytes("\xFF\x01\xFF\xDF") << bytes("\xFF\x01\xFF\xDF");
    QTest::newRow("only one byte") << bytes("\xFF\0\0\0") << bytes("\xFF\0\0");
    QTest::newRow("cut after a mark") << bytes("ab\xFF") << bytes("ab\xFF");
}

void TestUnsynchronisation::removesInsertedBytes()
{
    QFETCH(const QByteArray, stored);
    QFETCH(const QByteArray, meant);
    QCOMPARE(Unsynchronisation::undone(stored), meant);
}

void TestUnsynchronisation::detectsWhatTheSchemeNeverWrites()
{
    QVERIFY(Unsynchronisation::isPossible({}));
    QVERIFY(Unsynchronisation::isPossible(bytes("abc")));
    QVERIFY(Unsynchronisation::isPossible(bytes("\xFF\0\xFE\xFF\0")));
    QVERIFY(Unsynchronisation::isPossible(bytes("\xFF\xDF\xFF\x01")));
    QVERIFY(!Unsynchronisation::isPossible(bytes("a\xFF\xE0")));
    QVERIFY(!Unsynchronisation::isPossible(bytes("\xFF\0\xFE\xFF\xFE")));
    QVERIFY(!Unsynchronisation::isPossible(bytes("\xFF\xFF\0")));
    QVERIFY(!Unsynchronisation::isPossible(bytes("abc\xFF")));
}

BRISEL_TEST(QCoreApplication, TestUnsynchronisation)
#include "tst_unsynchronisation.moc"
