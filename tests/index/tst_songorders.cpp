#include "index/runsort.h"
#include "index/songorders.h"
#include "tests/testprogram.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <array>
#include <numeric>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

using SongCompare = bool (*)(const SongInfoIndex &, const SongInfoIndex &);

/// The plain way: every comparison reads the songs themselves.
SongOrder plainOrder(const QList<SongInfoIndex> &songs, SongCompare compare)
{
    SongOrder order(songs.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](qsizetype i, qsizetype j) {
        const SongInfoIndex &a = songs.at(i);
        const SongInfoIndex &b = songs.at(j);
        return compare(a, b) || (!compare(b, a) && a.path < b.path);
    });
    return order;
}

SongInfoIndex songAt(const QString &path, const QString &title = {}, const QString &artist = {})
{
    SongInfoIndex record;
    record.setPath(path);
    record.title = title;
    record.artist = artist;
    return record;
}

QStringList pathsIn(const QList<SongInfoIndex> &songs, const SongOrder &order)
{
    QStringList paths;
    for (const qsizetype position : order)
        paths.append(songs.at(position).path);
    return paths;
}

/// One to \a most of letters whose order and case are difficult: plain, accented, those that fold
/// or upper-case to others, and two beyond the first plane.
QString anyText(QRandomGenerator &random, int most)
{
    static const QStringList letters{
        u"a"_s,      u"A"_s,      u"b"_s,      u"Z"_s,      u"_"_s,          u"1"_s,
        u" "_s,      u"\u00E0"_s, u"\u00C0"_s, u"\u00DF"_s, u"\u1E9E"_s,     u"\u017F"_s,
        u"\u212A"_s, u"\u0130"_s, u"\u0131"_s, u"\u03A3"_s, u"\u03C2"_s,     u"\u4E00"_s,
        u"\uFF21"_s, u"\uFF41"_s, u"\u0178"_s, u"\u039C"_s, u"\U00010400"_s, u"\U00010428"_s};
    QString text;
    for (int left = random.bounded(most) + 1; left > 0; --left)
        text += letters.at(random.bounded(static_cast<int>(letters.size())));
    return text;
}

QList<SongInfoIndex> anySongs()
{
    constexpr quint32 seed = 20131203;
    constexpr int count = 3000;
    constexpr std::array types{SongInfoIndex::Mp3, SongInfoIndex::Midi, SongInfoIndex::Zb3};
    QRandomGenerator random(seed);
    QList<SongInfoIndex> songs;
    for (int i = 0; i < count; ++i) {
        songs.append(songAt(u'/' + anyText(random, 3) + QString::number(i % 7) + u".mid"_s,
                            u"A plain beginning"_s.left(i % 19) + anyText(random, 6),
                            anyText(random, 2)));
        songs.last().genre = anyText(random, 1);
        songs.last().type = types.at(i % 3);
    }
    return songs;
}

/// Identifies songs that are equal in an order.
QStringList keysIn(const QList<SongInfoIndex> &songs, const SongOrder &order)
{
    QStringList keys;
    for (const qsizetype position : order)
        keys.append(songs.at(position).path + u'|' + songs.at(position).title.toCaseFolded());
    return keys;
}

} // namespace

/// The orders of the index's files: the same as by plain comparisons, for all letters.
class TestSongOrders : public QObject
{
    Q_OBJECT

private slots:
    void breaksTiesByPathOnDisk();
    void takesLettersAsPlainComparisonsDo();
    void keepsOnlyMp3s();
    void takesEmptyLists();
    void sortsRunsOfAllKinds();
    void comparesSortedListsOnce();
    void comparesNoMoreThanSortingNeeds_data();
    void comparesNoMoreThanSortingNeeds();
};

void TestSongOrders::breaksTiesByPathOnDisk()
{
    const QList<SongInfoIndex> songs{songAt(u"/c"_s), songAt(u"/a"_s), songAt(u"/B"_s),
                                     songAt(u"/A"_s)};
    QCOMPARE(pathsIn(songs, SongOrders::byPath(songs)),
             QStringList({u"/A"_s, u"/a"_s, u"/B"_s, u"/c"_s}));
    const QList<SongInfoIndex> alike{songAt(u"/c"_s, u"T"_s, u"x"_s),
                                     songAt(u"/a"_s, u"t"_s, u"X"_s),
                                     songAt(u"/B"_s, u"T"_s, u"x"_s)};
    const SongOrder byTitle = SongOrders::byTitle(alike);
    const QStringList byPathOnDisk{u"/B"_s, u"/a"_s, u"/c"_s};
    QCOMPARE(pathsIn(alike, byTitle), byPathOnDisk);
    QCOMPARE(pathsIn(alike, SongOrders::byGroup(alike, byTitle, &SongInfoIndex::artist).order),
             byPathOnDisk);
}

void TestSongOrders::takesLettersAsPlainComparisonsDo()
{
    const QList<SongInfoIndex> songs = anySongs();
    QCOMPARE(pathsIn(songs, SongOrders::byPath(songs)),
             pathsIn(songs, plainOrder(songs, compareByPath)));
    const SongOrder byTitle = SongOrders::byTitle(songs);
    QCOMPARE(keysIn(songs, byTitle), keysIn(songs, plainOrder(songs, compareTitle)));
    QCOMPARE(keysIn(songs, SongOrders::byGroup(songs, byTitle, &SongInfoIndex::artist).order),
             keysIn(songs, plainOrder(songs, compareArtist)));
    QCOMPARE(keysIn(songs, SongOrders::byGroup(songs, byTitle, &SongInfoIndex::genre).order),
             keysIn(songs, plainOrder(songs, compareGenre)));
}

void TestSongOrders::keepsOnlyMp3s()
{
    const QList<SongInfoIndex> songs = anySongs();
    const SongOrder byTitle = SongOrders::byTitle(songs);
    SongOrder mp3s = byTitle;
    mp3s.removeIf([&](qsizetype i) { return i % 3 != 0; });
    QVERIFY(!mp3s.isEmpty());
    QCOMPARE(SongOrders::mp3Only(songs, byTitle), mp3s);
}

void TestSongOrders::takesEmptyLists()
{
    QVERIFY(SongOrders::byPath({}).isEmpty());
    QVERIFY(SongOrders::byTitle({}).isEmpty());
    QVERIFY(SongOrders::byGroup({}, {}, &SongInfoIndex::genre).order.isEmpty());
}

void TestSongOrders::sortsRunsOfAllKinds()
{
    QRandomGenerator random(1);
    for (int length = 0; length < 200; ++length) {
        for (const int runs : {1, 2, 3, 5, length / 9 + 1, length + 1}) {
            QList<int> list;
            for (int i = 0; i < length; ++i)
                list.append(i * runs % (length + 1) * 1000 + random.bounded(1000));
            QList<int> sorted = list;
            std::sort(sorted.begin(), sorted.end());
            sortRuns(list, std::less<>());
            QCOMPARE(list, sorted);
        }
    }
}

void TestSongOrders::comparesSortedListsOnce()
{
    QList<int> list(10000);
    std::iota(list.begin(), list.end(), 0);
    int compared = 0;
    sortRuns(list, [&compared](int a, int b) {
        ++compared;
        return a < b;
    });
    QCOMPARE(compared, list.size() - 1);
}

void TestSongOrders::comparesNoMoreThanSortingNeeds_data()
{
    QTest::addColumn<QList<int>>("list");
    constexpr int count = 65536;
    QRandomGenerator random(2);
    QList<int> any(count);
    std::generate(any.begin(), any.end(), [&random] { return random.bounded(count); });
    QTest::newRow("in no order") << any;
    QList<int> back(count);
    std::iota(back.rbegin(), back.rend(), 0);
    QTest::newRow("backwards") << back;
    for (const int runs : {2, 200, count / 9}) {
        QList<int> list;
        for (int run = 0; run < runs; ++run) {
            for (int i = run; i < count; i += runs)
                list.append(i);
        }
        QTest::addRow("%d runs", runs) << list;
    }
}

void TestSongOrders::comparesNoMoreThanSortingNeeds()
{
    QFETCH(QList<int>, list);
    constexpr qint64 most = 65536 * (2 * 16 + 1); // twice n log n, and the search for runs
    qint64 compared = 0;
    sortRuns(list, [&compared](int a, int b) {
        ++compared;
        return a < b;
    });
    QVERIFY(std::is_sorted(list.cbegin(), list.cend()));
    QVERIFY2(compared <= most, qPrintable(QString::number(compared)));
}

BRISEL_TEST(QCoreApplication, TestSongOrders)
#include "tst_songorders.moc"
