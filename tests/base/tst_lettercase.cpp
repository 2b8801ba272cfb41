#include "base/lettercase.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestLetterCase : public QObject
{
    Q_OBJECT

private slots:
    void changesEveryLetterAsTheLibraryDoes();
    void changesTextsOfAllKindsAsTheLibraryDoes();
};

void TestLetterCase::changesEveryLetterAsTheLibraryDoes()
{
    for (char32_t letter = 0; letter < 0x11000; ++letter) {
        const QString text = QStringLiteral("a%1Z").arg(QString::fromUcs4(&letter, 1));
        QCOMPARE(upperCased(text), text.toUpper());
        QCOMPARE(lowerCased(text), text.toLower());
    }
}

void TestLetterCase::changesTextsOfAllKindsAsTheLibraryDoes()
{
    for (const QString &text : {QString(), QStringLiteral(""), QStringLiteral("@AZ[`az{"),
                                QStringLiteral("straße"), QStringLiteral("È Già Ora.mid")}) {
        QCOMPARE(upperCased(text), text.toUpper());
        QCOMPARE(lowerCased(text), text.toLower());
        QCOMPARE(asciiUpperCased(text), QString::fromUtf8(text.toUtf8().toUpper()));
        QCOMPARE(upperCased(text).isNull(), text.toUpper().isNull());
        QCOMPARE(lowerCased(text).isNull(), text.toLower().isNull());
    }
}

BRISEL_TEST(QCoreApplication, TestLetterCase)
#include "tst_lettercase.moc"
