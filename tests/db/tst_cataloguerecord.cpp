#include "db/database.h"
#include "tests/db/localcatalogue.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <limits>

using namespace brisel;

class TestCatalogueRecord : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void readsEachColumnIntoItsField();
    void readsNumbers_data();
    void readsNumbers();
    void trimsKey();
    void splitsMarkers_data();
    void splitsMarkers();
};

void TestCatalogueRecord::cleanup()
{
    QFile::remove(QStringLiteral("songsdb_debug"));
}

void TestCatalogueRecord::readsEachColumnIntoItsField()
{
    CatalogueRow row = catalogueRow(QStringLiteral("A"), QStringLiteral("ONE SONG"));
    row.markers = QStringLiteral("5;Verse;");
    writeLocalCatalogue({row});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord byFilename;
    QVERIFY(database.getRecordByFilename(QStringLiteral("A"), byFilename));
    SongsDbRecord byTitle;
    QVERIFY(database.getRecordByTitle(QStringLiteral("ONE SONG"), byTitle));
    for (const SongsDbRecord &record : {byFilename, byTitle}) {
        QCOMPARE(record.title, QStringLiteral("ONE SONG"));
        QCOMPARE(record.artist, QStringLiteral("ARTIST OF ONE SONG"));
        QCOMPARE(record.altArtist, QStringLiteral("ALT OF ONE SONG"));
        QCOMPARE(record.genre, QStringLiteral("GENRE"));
        QCOMPARE(record.author, QStringLiteral("AUTHOR"));
        QCOMPARE(record.length, 100);
        QCOMPARE(record.bpm, 120);
        QCOMPARE(record.key, QStringLiteral("A -"));
        QCOMPARE(record.markers.size(), 1);
        QCOMPARE(record.markers.first().bar, 5);
        QCOMPARE(record.markers.first().text, QStringLiteral("Verse"));
    }
}

void TestCatalogueRecord::readsNumbers_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("expected");
    QTest::newRow("number") << "215" << 215;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("negative") << "-7" << -7;
    QTest::newRow("NULL") << "NULL" << -1;
    QTest::newRow("text") << "'abc'" << -1;
    QTest::newRow("empty text") << "''" << -1;
    QTest::newRow("text of digits becomes a number") << "'120'" << 120;
    QTest::newRow("largest") << "2147483647" << 2147483647;
    QTest::newRow("smallest") << "-2147483648" << std::numeric_limits<int>::min();
    QTest::newRow("too large") << "2147483648" << -1;
    QTest::newRow("far too large") << "3000000000" << -1;
    QTest::newRow("too small") << "-2147483649" << -1;
    QTest::newRow("infinite") << "9e999" << -1;
    QTest::newRow("fraction below a half") << "2.25" << 2;
    QTest::newRow("fraction above a half") << "2.75" << 3;
}

void TestCatalogueRecord::readsNumbers()
{
    QFETCH(QString, stored);
    QFETCH(int, expected);
    writeLocalCatalogue(
        {catalogueRow(QStringLiteral("A"), QStringLiteral("A"))},
        {QStringLiteral("update songs set length=%1, bpm=%1, markers=NULL").arg(stored)});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(QStringLiteral("A"), record));
    QCOMPARE(record.length, expected);
    QCOMPARE(record.bpm, expected);
    QVERIFY(record.markers.isEmpty());
}

void TestCatalogueRecord::trimsKey()
{
    CatalogueRow row = catalogueRow(QStringLiteral("A"), QStringLiteral(" A "));
    row.key = QStringLiteral(" F# -\u00a0");
    writeLocalCatalogue({row});
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(QStringLiteral("A"), record));
    QCOMPARE(record.key, QStringLiteral("F# -"));
    QCOMPARE(record.title, QStringLiteral(" A "));
}

void TestCatalogueRecord::splitsMarkers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *text, const QStringList &expected) {
        QTest::newRow(text) << QString::fromLatin1(text) << expected;
    };
    row("1;Intro;9;Verse 1;25;Chorus;41;Fine;",
        {QStringLiteral("1 Intro"), QStringLiteral("9 Verse 1"), QStringLiteral("25 Chorus"),
         QStringLiteral("41 Fine")});
    row("3;Intro;x;Bad;-2;Neg;17;Fine;", {QStringLiteral("3 Intro"), QStringLiteral("17 Fine")});
    row("5;Solo", {QStringLiteral("5 Solo")});
    row("5;", {});
    row("", {});
    row(";;;;", {});
    row("1;;A;", {QStringLiteral("1 A")});
    row("1;A;2", {QStringLiteral("1 A")});
    row("0; A ;", {QStringLiteral("0  A ")});
    row("99999999999;A;2;B;", {QStringLiteral("2 B")});
    row("65536;A;", {QStringLiteral("65536 A")});
    row("1.5;A;0x10;B;", {});
}

void TestCatalogueRecord::splitsMarkers()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QList<Marker> markers(3);
    Database::splitMarkers(text, markers);
    QStringList got;
    for (const Marker &marker : std::as_const(markers))
        got.append(QStringLiteral("%1 %2").arg(marker.bar).arg(marker.text));
    QCOMPARE(got, expected);
}

BRISEL_TEST(QCoreApplication, TestCatalogueRecord)
#include "tst_cataloguerecord.moc"
