#include "library/cataloguelookup.h"

#include "tests/library/samplelibrary.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestCatalogueKeys : public QObject
{
    Q_OBJECT

private slots:
    void stripsOneExtensionOfThreeWordCharacters_data();
    void stripsOneExtensionOfThreeWordCharacters();
    void makesTheThreeKeys();
    void firstHitWins_data();
    void firstHitWins();
    void sharedTitleGivesNoMatch();
    void emptyLongNameIsNotLookedUp();
    void findsNothingInAnEmptyCatalogue();
    void quoteInANameOnlyBreaksItsOwnLookup();
    void wildcardsFindTheFirstRow();
    void mergesSongDataAndKeepsFileData();
};

void TestCatalogueKeys::stripsOneExtensionOfThreeWordCharacters_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("lower case") << u"song.mid"_qs << u"SONG"_qs;
    QTest::newRow("upper case") << u"SONG.MID"_qs << u"SONG"_qs;
    QTest::newRow("four characters") << u"song.midi"_qs << u"SONG.MIDI"_qs;
    QTest::newRow("two characters") << u"SONG.MP"_qs << u"SONG.MP"_qs;
    QTest::newRow("only the last one") << u"my.old.kar"_qs << u"MY.OLD"_qs;
    QTest::newRow("digits") << u"song.mp3"_qs << u"SONG"_qs;
    QTest::newRow("underscore") << u"song._a1"_qs << u"SONG"_qs;
    QTest::newRow("accents") << u"song.\u00e0\u00e8\u00f9"_qs << u"SONG"_qs;
    QTest::newRow("combining mark") << u"song.ae\u0301"_qs << u"SONG"_qs;
    QTest::newRow("no word character") << u"song.m-d"_qs << u"SONG.M-D"_qs;
    QTest::newRow("line feed at the end") << u"song.mid\n"_qs << u"SONG.MID\n"_qs;
    QTest::newRow("extension alone") << u".mid"_qs << QString();
    QTest::newRow("no extension") << u"song"_qs << u"SONG"_qs;
    QTest::newRow("empty") << QString() << QString();
}

void TestCatalogueKeys::stripsOneExtensionOfThreeWordCharacters()
{
    QFETCH(QString, name);
    QTEST(catalogueKey(name), "key");
}

void TestCatalogueKeys::makesTheThreeKeys()
{
    SongInfo info;
    info.zbxLongName = u"Long Name.zb4"_qs;
    info.title = u"Title.mid"_qs;
    const CatalogueKeys keys = catalogueKeys(u"short.zb4"_qs, info);
    QCOMPARE(keys.file, u"SHORT"_qs);
    QCOMPARE(keys.longName, u"LONG NAME"_qs);
    QCOMPARE(keys.title, u"TITLE.MID"_qs);
}

void TestCatalogueKeys::firstHitWins_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("longName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("trace");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *tag, const QString &file, const QString &longName,
                        const QString &title, const QString &trace, const QString &found) {
        QTest::newRow(tag) << file << longName << title << trace << found;
    };
    row("file name", u"ONE"_qs, u"TWO"_qs, u"THIRD"_qs, u"FILENAME: ONE"_qs, u"FIRST"_qs);
    row("long name", u"NONE"_qs, u"TWO"_qs, u"THIRD"_qs, u"ZBXLONGNAME: TWO"_qs, u"SECOND"_qs);
    row("title", u"NONE"_qs, u"NONE"_qs, u"THIRD"_qs, u"TITLE: THIRD"_qs, u"THIRD"_qs);
    row("title without long name", u"NONE"_qs, QString(), u"THIRD"_qs, u"TITLE: THIRD"_qs,
        u"THIRD"_qs);
    row("long name is no title", u"NONE"_qs, u"FIRST"_qs, u"THIRD"_qs, u"TITLE: THIRD"_qs,
        u"THIRD"_qs);
    row("none", u"NONE"_qs, u"NONE"_qs, u"NONE"_qs, QString(), QString());
}

void TestCatalogueKeys::firstHitWins()
{
    Sample::Library library(
        {{u"ONE"_qs, u"FIRST"_qs}, {u"TWO"_qs, u"SECOND"_qs}, {u"THREE"_qs, u"THIRD"_qs}});
    QFETCH(QString, file);
    QFETCH(QString, longName);
    QFETCH(QString, title);
    QFETCH(QString, found);
    const auto hit = findInCatalogue(library.database(), {file, longName, title});
    QCOMPARE(hit.has_value(), !found.isEmpty());
    QTEST(hit.has_value() ? hit->trace : QString(), "trace");
    QCOMPARE(hit.has_value() ? hit->record.title : QString(), found);
}

void TestCatalogueKeys::sharedTitleGivesNoMatch()
{
    Sample::Library library({{u"ONE"_qs, u"SAME"_qs}, {u"TWO"_qs, u"SAME"_qs}});
    QVERIFY(!findInCatalogue(library.database(), {u"NONE"_qs, {}, u"SAME"_qs}));
}

void TestCatalogueKeys::emptyLongNameIsNotLookedUp()
{
    Sample::Library library({{u""_qs, u"NAMELESS"_qs}});
    QVERIFY(!findInCatalogue(library.database(), {u"NONE"_qs, {}, u"NONE"_qs}));
}

void TestCatalogueKeys::findsNothingInAnEmptyCatalogue()
{
    Sample::Library library;
    QVERIFY(!findInCatalogue(library.database(), {u"A"_qs, u"B"_qs, u"C"_qs}));
}

void TestCatalogueKeys::quoteInANameOnlyBreaksItsOwnLookup()
{
    Sample::Library library({{u"ONE"_qs, u"FIRST"_qs}});
    const QString hostile = u"X\"; DROP TABLE Songs; --"_qs;
    const auto hit = findInCatalogue(library.database(), {hostile, hostile, u"FIRST"_qs});
    QVERIFY(hit.has_value());
    QCOMPARE(hit->trace, u"TITLE: FIRST"_qs);
    QVERIFY(findInCatalogue(library.database(), {u"ONE"_qs, {}, hostile}));
}

void TestCatalogueKeys::wildcardsFindTheFirstRow()
{
    Sample::Library library({{u"MY-SONG"_qs, u"FIRST"_qs}, {u"MY_SONG"_qs, u"SECOND"_qs}});
    const auto hit = findInCatalogue(library.database(), {u"MY_SONG"_qs, {}, {}});
    QVERIFY(hit.has_value());
    QCOMPARE(hit->record.title, u"FIRST"_qs);
}

void TestCatalogueKeys::mergesSongDataAndKeepsFileData()
{
    SongInfo info;
    info.title = u"old"_qs;
    info.format = u"ZB4"_qs;
    info.fileName = u"/songs/a.zb4"_qs;
    info.shortName = u"a.zb4"_qs;
    info.isKordia = true;
    info.zbxLongName = u"long"_qs;
    info.zbxFlags = 5;
    info.markers = {{}};
    SongsDbRecord record;
    record.title = u"t"_qs;
    record.artist = u"a"_qs;
    record.altArtist = u"aa"_qs;
    record.genre = u"g"_qs;
    record.author = u"au"_qs;
    record.length = 61;
    record.bpm = -1;
    record.key = u"A -"_qs;
    const SongInfo merged = mergedWithCatalogue(info, record);
    QCOMPARE(merged.title, u"t"_qs);
    QCOMPARE(merged.artist, u"a"_qs);
    QCOMPARE(merged.altArtist, u"aa"_qs);
    QCOMPARE(merged.genre, u"g"_qs);
    QCOMPARE(merged.author, u"au"_qs);
    QCOMPARE(merged.length, 61);
    QCOMPARE(merged.userBpm, -1);
    QCOMPARE(merged.key, u"A -"_qs);
    QVERIFY(merged.markers.isEmpty());
    QCOMPARE(merged.format, info.format);
    QCOMPARE(merged.fileName, info.fileName);
    QCOMPARE(merged.shortName, info.shortName);
    QVERIFY(merged.isKordia);
    QCOMPARE(merged.zbxLongName, info.zbxLongName);
    QCOMPARE(merged.zbxFlags, info.zbxFlags);
}

BRISEL_TEST(QCoreApplication, TestCatalogueKeys)
#include "tst_cataloguekeys.moc"
