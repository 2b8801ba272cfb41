#include "songfile/metasong.h"
#include "songfile/songinfo.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <limits>

using namespace brisel;

using namespace Qt::StringLiterals;

class TestSongInfo : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void clearsEveryField();
    void copiesItsMarkers();
    void dumpsEveryField();
    void dumpsNoMarkersAfterClear();
    void dumpsFlagsWithTheirSign_data();
    void dumpsFlagsWithTheirSign();
    void namesTheFormats();

private:
    static SongInfo filled();
};

SongInfo TestSongInfo::filled()
{
    SongInfo info;
    info.title = u"Title"_s;
    info.artist = u"Artist"_s;
    info.altArtist = u"Alt"_s;
    info.genre = u"Genre"_s;
    info.author = u"Author"_s;
    info.length = 185;
    info.userBpm = 120;
    info.key = u"A-"_s;
    info.fileName = u"/songs/a.mid"_s;
    info.shortName = u"a.mid"_s;
    info.isKordia = true;
    info.markers = {{u"Intro"_s, 1}, {u"Verse \"1\""_s, 9}};
    info.format = u"MIDI"_s;
    info.zbxLongName = u"LONG"_s;
    info.zbxFlags = 5;
    return info;
}

void TestSongInfo::startsEmpty()
{
    const SongInfo info;
    QVERIFY(info.title.isEmpty() && info.markers.isEmpty() && !info.isKordia);
    QCOMPARE(info.length, 0);
    QCOMPARE(info.userBpm, 0);
    QCOMPARE(info.zbxFlags, qint8(0));
}

void TestSongInfo::clearsEveryField()
{
    SongInfo info = filled();
    info.clear();
    for (const QString &text :
         {info.title, info.artist, info.altArtist, info.genre, info.author, info.key, info.fileName,
          info.shortName, info.format, info.zbxLongName})
        QVERIFY(text.isEmpty());
    QCOMPARE(info.length, 0);
    QCOMPARE(info.userBpm, 0);
    QVERIFY(!info.isKordia);
    QVERIFY(info.markers.isEmpty());
    QCOMPARE(info.zbxFlags, qint8(0));
}

void TestSongInfo::copiesItsMarkers()
{
    const SongInfo info = filled();
    SongInfo copy = info;
    copy.markers.first().text = u"changed"_s;
    copy.markers.append({u"more"_s, 3});
    QCOMPARE(info.markers.size(), 2);
    QCOMPARE(info.markers.first().text, u"Intro"_s);
    copy = info;
    QCOMPARE(copy.markers.size(), 2);
    QCOMPARE(copy.zbxFlags, qint8(5));
}

void TestSongInfo::dumpsEveryField()
{
    LogCapture log;
    filled().dbgDump();
    const QStringList expected{u"Dump Info song "_s + QString(46, u'-') + u' ',
                               u"Format     : \"MIDI\" "_s,
                               u"Filename   : \"/songs/a.mid\" "_s,
                               u"Shortname  : \"a.mid\" "_s,
                               u"Is Kordia  : true "_s,
                               u"Title      : \"Title\" "_s,
                               u"Artist     : \"Artist\" "_s,
                               u"AltArtist  : \"Alt\" "_s,
                               u"Genre      : \"Genre\" "_s,
                               u"Author     : \"Author\" "_s,
                               u"Length     : 185 "_s,
                               u"userBpm    : 120 "_s,
                               u"Markers: "_s,
                               u"  bar: 1   text: \"Intro\" "_s,
                               u"  bar: 9   text: \"Verse \"1\"\" "_s,
                               u"ZbxLongName: \"LONG\" "_s,
                               u"ZbxFlags   : \"0x05\" "_s,
                               u"Dump END "_s + QString(52, u'-') + u' '};
    QCOMPARE(log.messages(), expected);
}

void TestSongInfo::dumpsNoMarkersAfterClear()
{
    SongInfo info = filled();
    info.clear();
    LogCapture log;
    info.dbgDump();
    QCOMPARE(log.messages().at(4), u"Is Kordia  : false "_s);
    QCOMPARE(log.messages().at(12), u"NO Markers "_s);
    QCOMPARE(log.messages().size(), 16);
}

void TestSongInfo::dumpsFlagsWithTheirSign_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << u"0x00"_s;
    QTest::newRow("5") << 5 << u"0x05"_s;
    QTest::newRow("31") << 31 << u"0x1f"_s;
    QTest::newRow("200") << 200 << u"0x-38"_s;
}

void TestSongInfo::dumpsFlagsWithTheirSign()
{
    QFETCH(const int, flags);
    QFETCH(const QString, text);
    SongInfo info;
    info.zbxFlags = static_cast<qint8>(flags);
    LogCapture log;
    info.dbgDump();
    QVERIFY(log.contains(u"ZbxFlags   : \"%1\" "_s.arg(text)));
}

void TestSongInfo::namesTheFormats()
{
    const QStringList names{u"UNKNOWN"_s, u"MIDI"_s, u"MIDI"_s, u"ZB3"_s,
                            u"ZB4"_s,     u"ZB5"_s,  u"MP3"_s,  u"UNKNOWN"_s};
    for (int type = 0; type < names.size(); ++type)
        QCOMPARE(MetaSong::getFormatString(static_cast<SongInfo::fileTypeEnum>(type)),
                 names.at(type));
    for (const int type : {-1, 8, 256 + 1, std::numeric_limits<int>::min()})
        QCOMPARE(MetaSong::getFormatString(static_cast<SongInfo::fileTypeEnum>(type)),
                 u"UNKNOWN"_s);
}

BRISEL_TEST(QCoreApplication, TestSongInfo)
#include "tst_songinfo.moc"
