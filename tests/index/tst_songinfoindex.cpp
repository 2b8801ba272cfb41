#include "index/pathtable.h"
#include "index/songinfoindex.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

namespace
{

SongInfoIndex withPath(const QString &path)
{
    SongInfoIndex song;
    song.setPath(path);
    return song;
}

SongInfoIndex song(const QString &title, const QString &artist, const QString &genre)
{
    SongInfoIndex record;
    record.title = title;
    record.artist = artist;
    record.genre = genre;
    return record;
}

} // namespace

/// The record of a song, its sort orders and the look-up by path.
class TestSongInfoIndex : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void holdsPathsEqualThatDifferInCase();
    void ordersPathsByCodePage();
    void ordersNumbersUnsigned();
    void ordersTextsIgnoringCase();
    void distinguishesPathsWithEqualKeys();
    void findsPathOfBytes();
    void findsPathsAmongManyEqualKeys();
    void namesSortModes();
};

void TestSongInfoIndex::startsEmpty()
{
    const SongInfoIndex record;
    QVERIFY(record.title.isEmpty() && record.path.isEmpty() && record.absolutePath.isEmpty());
    QVERIFY(record.id == 0 && record.posidx == 0 && record.date == 0 && record.time == 0);
    QVERIFY(record.type == 0 && record.bpm == 0 && record.flag == 0 && record.reserved == 0);
}

void TestSongInfoIndex::holdsPathsEqualThatDifferInCase()
{
    const SongInfoIndex lower = withPath(u"/basi/\u00E8.mid"_qs);
    const SongInfoIndex upper = withPath(u"/BASI/\u00C8.MID"_qs);
    QVERIFY(!compareByPath(lower, upper));
    QVERIFY(!compareByPath(upper, lower));
}

void TestSongInfoIndex::ordersPathsByCodePage()
{
    QVERIFY(compareByPath(withPath(u"/A/Z.MID"_qs), withPath(u"/A0.MID"_qs)));
    QVERIFY(compareByPath(withPath(u"/Z.MID"_qs), withPath(u"/\u00E9.MID"_qs)));
    QVERIFY(compareByPath(withPath(u"/\u00E9.MID"_qs), withPath(u"/\u00C0.MID"_qs)));
    // Upper-cased first: "_" is after the letters.
    QVERIFY(compareByPath(withPath(u"/a.MID"_qs), withPath(u"/_.MID"_qs)));
    // A record whose path was set without its key.
    SongInfoIndex plain;
    plain.path = u"/b"_qs;
    QVERIFY(compareByPath(withPath(u"/A"_qs), plain));
}

void TestSongInfoIndex::ordersNumbersUnsigned()
{
    SongInfoIndex low;
    SongInfoIndex high;
    high.id = 0x80000000;
    high.posidx = 0x8000;
    QVERIFY(compareById(low, high) && !compareById(high, low) && !compareById(low, low));
    QVERIFY(compareByPosidx(low, high) && !compareByPosidx(high, low));
}

void TestSongInfoIndex::ordersTextsIgnoringCase()
{
    QVERIFY(compareTitle(song(u"a"_qs, {}, {}), song(u"B"_qs, {}, {})));
    QVERIFY(!compareTitle(song(u"a"_qs, {}, {}), song(u"A"_qs, {}, {})));
    QVERIFY(compareArtist(song(u"z"_qs, u"a"_qs, {}), song(u"a"_qs, u"B"_qs, {})));
    QVERIFY(compareArtist(song(u"a"_qs, u"X"_qs, {}), song(u"B"_qs, u"x"_qs, {})));
    QVERIFY(compareGenre(song(u"z"_qs, u"z"_qs, u"a"_qs), song(u"a"_qs, u"a"_qs, u"B"_qs)));
    QVERIFY(compareGenre(song(u"a"_qs, u"z"_qs, u"X"_qs), song(u"B"_qs, u"a"_qs, u"x"_qs)));
    QCOMPARE(stringToUpper(u"perch\u00E9 \u00DF"_qs), u"PERCH\u00C9 SS"_qs);
}

void TestSongInfoIndex::distinguishesPathsWithEqualKeys()
{
    const QList<SongInfoIndex> songs{withPath(u"/stra\u00DFe.mid"_qs), withPath(u"/\u0151.mid"_qs),
                                     withPath(u"/\u0171.mid"_qs)};
    PathTable table;
    table.enter(songs);
    QCOMPARE(table.find(songs, withPath(u"/STRASSE.MID"_qs)), -1);
    QCOMPARE(table.find(songs, withPath(u"/STRA\u00DFE.MID"_qs)), 0);
    QCOMPARE(table.find(songs, withPath(u"/\u0171.MID"_qs)), 2);
    QCOMPARE(table.find(songs, withPath(u"/\u0151.MID"_qs)), 1);
}

void TestSongInfoIndex::findsPathOfBytes()
{
    const QList<SongInfoIndex> songs{withPath(u"/\u00E9.mid"_qs), withPath(u"/\u4E00.mid"_qs),
                                     withPath(u"/x\u4E01.mid"_qs), withPath(u"/x\u4E02.mid"_qs),
                                     withPath(u"/\u00FE.mid"_qs)};
    PathTable table;
    table.enter(songs);
    QCOMPARE(table.findBytes(songs, "/\x82.MID"), 0);
    QCOMPARE(table.findBytes(songs, "/?.mid"), 1);
    QCOMPARE(table.findBytes(songs, "/x?.mid"), -1);
    // 0xFE is a square in the code page and a letter in Latin-1.
    QCOMPARE(table.findBytes(songs, "/\xFE.mid"), 4);
    QCOMPARE(table.findBytes(songs, "/none.mid"), -1);
}

void TestSongInfoIndex::findsPathsAmongManyEqualKeys()
{
    // A full memory of names whose characters the code page lacks.
    QList<SongInfoIndex> songs;
    PathTable table;
    constexpr char16_t firstLetter = 0x4E00;
    constexpr int letters = 256;
    for (int i = 0; i < SongInfoIndex::maxSongs; ++i) {
        const QChar high(firstLetter + i / letters);
        const QChar low(firstLetter + i % letters);
        const SongInfoIndex record = withPath(u"/%1%2.mid"_qs.arg(high).arg(low));
        QCOMPARE(table.find(songs, record), -1);
        table.add(PathTable::pathHash(record));
        songs.append(record);
    }
    for (int i = 0; i < songs.size(); ++i)
        QCOMPARE(table.find(songs, songs.at(i)), i);
    QVERIFY2(table.steps() <= 2 * songs.size() + songs.size() / 100,
             qPrintable(QString::number(table.steps())));
    QCOMPARE(table.findBytes(songs, "/??.mid"), -1);
}

void TestSongInfoIndex::namesSortModes()
{
    QCOMPARE(int(SortByTitle), 0);
    QCOMPARE(int(SortByArtist), 1);
    QCOMPARE(int(SortByGenre), 2);
}

BRISEL_TEST(QCoreApplication, TestSongInfoIndex)
#include "tst_songinfoindex.moc"
