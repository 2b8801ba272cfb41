#include "base/bytes.h"
#include "base/songtext.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

class TestBytes : public QObject
{
    Q_OBJECT

private slots:
    void readsBothByteOrders();
    void readsZeroOutside();
    void writesNothingOutside();
    void cutsAndFillsFields();
    void trimsSongTextButKeepsEllipsis();
    void findsBytesAfterASongText();
    void namesTheCharactersThatLatin1Lacks_data();
    void namesTheCharactersThatLatin1Lacks();
};

void TestBytes::readsBothByteOrders()
{
    const QByteArray data("\x81\x02\x03\x04", 4);
    QCOMPARE(be16At(data, 0), quint16(0x8102));
    QCOMPARE(le16At(data, 0), quint16(0x0281));
    QCOMPARE(be32At(data, 0), quint32(0x81020304));
    QCOMPARE(le32At(data, 0), quint32(0x04030281));
    QCOMPARE(byteAt(data, 0), quint8(0x81));
    QCOMPARE(signedByteAt(data, 0), qint8(-127));
}

void TestBytes::readsZeroOutside()
{
    const QByteArray data("\xFF\xFF\xFF", 3);
    QCOMPARE(be32At(data, 0), quint32(0));
    QCOMPARE(be16At(data, 2), quint16(0));
    QCOMPARE(be16At(data, -1), quint16(0));
    QCOMPARE(byteAt(data, 3), quint8(0));
    QVERIFY(!fits(data, 1, std::numeric_limits<qsizetype>::max()));
    QVERIFY(fits(data, 3, 0));
}

void TestBytes::writesNothingOutside()
{
    QByteArray data("abc");
    putBe32(data, 0, 1);
    putLe16(data, 2, 1);
    putByte(data, -1, 1);
    putField(data, 2, 2, QByteArrayLiteral("xy"));
    QCOMPARE(data, QByteArray("abc"));
    putBe16(data, 1, 0x4142);
    QCOMPARE(data, QByteArray("aAB"));
}

void TestBytes::cutsAndFillsFields()
{
    QByteArray data(6, '#');
    putField(data, 1, 4, QByteArrayLiteral("abcdef"));
    QCOMPARE(data, QByteArray("#abcd#"));
    putField(data, 1, 4, QByteArray("a\0b", 3));
    QCOMPARE(data, QByteArray("#a\0\0\0#", 6));
    QCOMPARE(fieldAt(data, 1, 4), QByteArray("a"));
    QCOMPARE(fieldAt(data, 5, 100), QByteArray("#"));
    QCOMPARE(fieldAt(data, 9, 1), QByteArray());
}

void TestBytes::trimsSongTextButKeepsEllipsis()
{
    QCOMPARE(songText(QByteArray("\t\xA0 Wait\x85\xA0\n\0rest", 15)), QStringLiteral("Wait\u0085"));
    QCOMPARE(songBytes(QStringLiteral("\u00e9\u20ac")), QByteArray("\xE9?"));
}

void TestBytes::findsBytesAfterASongText()
{
    QVERIFY(!holdsMoreThanSongText({}));
    QVERIFY(!holdsMoreThanSongText("Wait "));
    QVERIFY(!holdsMoreThanSongText(QByteArray("Wait\0\0", 6)));
    QVERIFY(holdsMoreThanSongText(QByteArray("Wait\0\0 ", 7)));
    QVERIFY(holdsMoreThanSongText(QByteArray("\0W", 2)));
    QVERIFY(!holdsMoreThanSongText(QByteArray(2, '\0')));
}

void TestBytes::namesTheCharactersThatLatin1Lacks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("lost");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("Latin-1") << QStringLiteral("Citt\u00e0? \u0085\u00a0\u00ff\t") << QString();
    QTest::newRow("first beyond it") << QStringLiteral("\u00ff\u0100") << QStringLiteral("\u0100");
    QTest::newRow("each once, in order") << QStringLiteral("\u03a9 a \u2019\u03a9\u0416\u2019")
                                         << QStringLiteral("\u03a9\u2019\u0416");
    QTest::newRow("accent by itself") << QStringLiteral("Citta\u0300") << QStringLiteral("\u0300");
    QTest::newRow("pairs with one half in common")
        << QStringLiteral("\U0001F3B5\U0001F3B6\U0001F3B5")
        << QStringLiteral("\U0001F3B5\U0001F3B6");
    QTest::newRow("half a pair") << QStringLiteral("a") + QChar(0xD83C) + u'b'
                                 << QStringLiteral("\uFFFD");
}

void TestBytes::namesTheCharactersThatLatin1Lacks()
{
    QFETCH(QString, text);
    QFETCH(QString, lost);
    QCOMPARE(charactersLostInSongBytes(text), lost);
    QCOMPARE(QString::fromLatin1(songBytes(text)) == text, lost.isEmpty());
}

BRISEL_TEST(QCoreApplication, TestBytes)
#include "tst_bytes.moc"
