#include "id3/id3text.h"
#include "tests/id3/handmadetag.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using HandMade::bytes;

namespace
{

constexpr qsizetype noLimit = 1000000;

QString text(const QByteArray &content, qsizetype limit = noLimit)
{
    return Id3Text::read(content, limit);
}

const QString city = QStringLiteral("Citt\u00E0");

} // namespace

class TestId3Text : public QObject
{
    Q_OBJECT

private slots:
    void readsLatin1();
    void readsUtf16InBothOrders();
    void readsUtf16WithoutItsMarkAsLittleEndian();
    void readsBigEndianUtf16();
    void readsUtf8();
    void readsUnknownEncodingsAsLatin1();
    void endsAtTheTerminator();
    void readsHalfAUnitAsNothing();
    void keepsSurrogatePairs();
    void trims();
    void cutsAtTheLimit();
    void readsEmptyContentAsEmptyText();
    void writesLatin1WhereItHoldsTheText();
    void writesUtf16InOlderVersions();
    void writesUtf8InVersion24();
    void readsWhatItWrites();
};

void TestId3Text::readsLatin1()
{
    QCOMPARE(text(bytes("\0Citt\xE0")), city);
    QCOMPARE(text(bytes("\0\xFF\xFE")), QStringLiteral("\u00FF\u00FE"));
}

void TestId3Text::readsUtf16InBothOrders()
{
    QCOMPARE(text(bytes("\1\xFF\xFE"
                        "C\0i\0t\0t\0\xE0\0")),
             city);
    QCOMPARE(text(bytes("\1\xFE\xFF"
                        "\0C\0i\0t\0t\0\xE0")),
             city);
}

void TestId3Text::readsUtf16WithoutItsMarkAsLittleEndian()
{
    QCOMPARE(text(bytes("\1C\0i\0t\0t\0\xE0\0")), city);
}

void TestId3Text::readsBigEndianUtf16()
{
    QCOMPARE(text(bytes("\2\0C\0i\0t\0t\0\xE0")), city);
    // A byte order mark of either order is not part of the text.
    QCOMPARE(text(bytes("\2\xFE\xFF"
                        "\0C\0i\0t\0t\0\xE0")),
             city);
    QCOMPARE(text(bytes("\2\xFF\xFE"
                        "C\0i\0t\0t\0\xE0\0")),
             city);
}

void TestId3Text::readsUtf8()
{
    QCOMPARE(text(bytes("\3Citt\xC3\xA0")), city);
    QCOMPARE(text(bytes("\3"
                        "a\xE0"
                        "b")),
             QStringLiteral("a\uFFFDb"));
}

void TestId3Text::readsUnknownEncodingsAsLatin1()
{
    for (const char encoding : {'\4', 'C', '\x80', '\xFF'})
        QCOMPARE(text(encoding + bytes("Citt\xE0")), city);
}

void TestId3Text::endsAtTheTerminator()
{
    QCOMPARE(text(bytes("\0Citt\xE0\0more")), city);
    QCOMPARE(text(bytes("\1\xFF\xFE"
                        "C\0i\0t\0t\0\xE0\0\0\0m\0")),
             city);
    QCOMPARE(text(bytes("\2\0C\0i\0t\0t\0\xE0\0\0\0m")), city);
    QCOMPARE(text(bytes("\3Citt\xC3\xA0\0more")), city);
    // A zero byte that is half of a code unit does not end the text.
    QCOMPARE(text(bytes("\2\x01\0\0C")), QStringLiteral("\u0100C"));
}

void TestId3Text::readsHalfAUnitAsNothing()
{
    QCOMPARE(text(bytes("\1\xFF\xFE"
                        "C\0i")),
             QStringLiteral("C"));
    QCOMPARE(text(bytes("\1\xFF")), QString());
    QCOMPARE(text(bytes("\2\0")), QString());
}

void TestId3Text::keepsSurrogatePairs()
{
    QCOMPARE(text(bytes("\1\xFF\xFE\x3C\xD8\xB5\xDF")), QStringLiteral("\U0001F3B5"));
    QCOMPARE(text(bytes("\3\xF0\x9F\x8E\xB5")), QStringLiteral("\U0001F3B5"));
}

void TestId3Text::trims()
{
    QCOMPARE(text(bytes("\0 \tCitt\xE0\xA0\n")), city);
    QCOMPARE(text(bytes("\1\xFF\xFE \0C\0i\0t\0t\0\xE0\0\xA0\0")), city);
    QCOMPARE(text(bytes("\3  Citt\xC3\xA0  ")), city);
}

void TestId3Text::cutsAtTheLimit()
{
    QCOMPARE(text(bytes("\0Citt\xE0"), 3), QStringLiteral("Cit"));
    QCOMPARE(text(bytes("\1\xFF\xFE"
                        "C\0i\0t\0t\0\xE0\0"),
                  3),
             QStringLiteral("Cit"));
    QCOMPARE(text(bytes("\2\0C\0i\0t\0t\0\xE0"), 5), city);
    QCOMPARE(text(bytes("\3\xC3\xA0\xC3\xA8\xC3\xAC"), 2), QStringLiteral("\u00E0\u00E8"));
    QCOMPARE(text(bytes("\0"
                        "ab c"),
                  3),
             QStringLiteral("ab")); // cut, then trimmed
}

void TestId3Text::readsEmptyContentAsEmptyText()
{
    QCOMPARE(text({}), QString());
    for (const char encoding : {'\0', '\1', '\2', '\3', '\4'})
        QCOMPARE(text(QByteArray(1, encoding)), QString());
}

void TestId3Text::writesLatin1WhereItHoldsTheText()
{
    for (const int version : {2, 3, 4}) {
        QCOMPARE(Id3Text::content(city, version), bytes("\0Citt\xE0"));
        QCOMPARE(Id3Text::content(QStringLiteral("\u00FF"), version), bytes("\0\xFF"));
    }
}

void TestId3Text::writesUtf16InOlderVersions()
{
    for (const int version : {0, 2, 3}) {
        QCOMPARE(Id3Text::content(QStringLiteral("\u03A9 \u0100"), version),
                 bytes("\1\xFF\xFE\xA9\x03 \0\0\x01"));
        QCOMPARE(Id3Text::content(QStringLiteral("\U0001F3B5"), version),
                 bytes("\1\xFF\xFE\x3C\xD8\xB5\xDF"));
    }
}

void TestId3Text::writesUtf8InVersion24()
{
    QCOMPARE(Id3Text::content(QStringLiteral("\u03A9 \u0100"), 4), bytes("\3\xCE\xA9 \xC4\x80"));
    QCOMPARE(Id3Text::utf8Content(city), bytes("\3Citt\xC3\xA0"));
}

void TestId3Text::readsWhatItWrites()
{
    for (const QString &written :
         {city, QStringLiteral("\u03A9mega \u2014 \u266A"), QStringLiteral("\U0001F3B5 x"),
          QStringLiteral("\u0100"), QString(300, u'\u0101')}) {
        for (const int version : {2, 3, 4})
            QCOMPARE(text(Id3Text::content(written, version)), written);
    }
}

BRISEL_TEST(QCoreApplication, TestId3Text)
#include "tst_id3text.moc"
