#include "songfile/rawmidifile.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <functional>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;

class TestRawMidiFile : public QObject
{
    Q_OBJECT

private slots:
    void acceptsFormats0And1();
    void refusesOtherData();
    void keepsItsDataWhenRefused();
    void readsEveryField();
    void readsNothingFromAPlainFile();
    void searchesAfterTheFirstTrack();
    void writesEachFieldAtTheHead_data();
    void writesEachFieldAtTheHead();
    void setsTheArtistTwice();
    void setsTheTitleTwice();
    void cutsTextsAt125();
    void keepsAnEventForAnEmptyText();
    void readsUpToAZeroByteAndTrims();
    void readsNumbersOnly();
    void readsANegativeLengthAsTheRest_data();
    void readsANegativeLengthAsTheRest();
    void insertsNothingOutside();
    void keepsAnInvalidTrackLengthFromWrapping();
    void keepsMarkersInOrder();
    void removesTheAuthorWithTheMarkers();
    void removesAuthorOfEmptyMarkerList();
    void keepsOldMarkers();
    void cutsMarkersAt124AndBarsAt16Bits();
    void cutsEachInsertedMarkerAt124();
    void readsMarkersOfEveryLength();
    void insertsAMarker();
    void knowsTheMakersNames();
    void scansASongTwiceAtMost();
};

void TestRawMidiFile::acceptsFormats0And1()
{
    QCOMPARE(loaded(midi({}, 0)).fileType(), SongInfo::Midi0);
    QCOMPARE(loaded(midi({}, 1)).fileType(), SongInfo::Midi1);
    QCOMPARE(loaded(midi({}, 1)).stream(), midi({}, 1));
}

void TestRawMidiFile::refusesOtherData()
{
    RawMidiFile file;
    QVERIFY(!file.loadData(midi({}, 2)));
    QVERIFY(!file.loadData(midi().replace(8, 1, "\x01"))); // format 256
    QVERIFY(!file.loadData('x' + midi()));
    QVERIFY(!file.loadData(midi().replace(0, 4, "MThe")));
    QVERIFY(!file.loadData(midi().replace("MTrk", "MTrj")));
    QVERIFY(!file.loadData("MTrkMThd"));
    QVERIFY(!file.loadData("MThdMTrk")); // without a format
    QVERIFY(!file.loadData({}));
}

void TestRawMidiFile::keepsItsDataWhenRefused()
{
    RawMidiFile file = loaded(midi(metaEvent(3, "T"), 1));
    QVERIFY(!file.loadData(midi({}, 2)));
    QCOMPARE(file.fileType(), SongInfo::Midi1);
    QCOMPARE(file.title(), u"T"_s);
}

void TestRawMidiFile::readsEveryField()
{
    const RawMidiFile file =
        loaded(midi(metaEvent(3, " Title\xE9 ") + kordiaEvent(1, "Pop") + kordiaEvent(2, "Anna") +
                    kordiaEvent(3, "Bea") + kordiaEvent(4, "185") + kordiaEvent(5, "120") +
                    keyEvent("\xFD\x01") + kordiaEvent(6, Samples::bytes("\x01\x02Verse"))));
    QCOMPARE(file.title(), u"Title\u00e9"_s);
    QCOMPARE(file.genre(), u"Pop"_s);
    QCOMPARE(file.artist(), u"Anna"_s);
    QCOMPARE(file.author(), u"Bea"_s);
    QCOMPARE(file.length(), 185);
    QCOMPARE(file.userBpm(), 120);
    QCOMPARE(file.key(), u"C-"_s);
    QCOMPARE(file.markersList().size(), 1);
    QCOMPARE(file.markersList().first().bar, 258);
    QCOMPARE(file.markersList().first().text, u"Verse"_s);
    QVERIFY(file.hasTitle() && file.hasGenre() && file.hasArtist() && file.hasAuthor());
    QVERIFY(file.hasLength() && file.hasUserBpm() && file.hasKey() && file.hasMarkers());
}

void TestRawMidiFile::readsNothingFromAPlainFile()
{
    const RawMidiFile file = loaded(midi());
    QVERIFY(file.title().isEmpty() && file.genre().isEmpty() && file.artist().isEmpty());
    QVERIFY(file.author().isEmpty() && file.key().isEmpty() && file.markersList().isEmpty());
    QCOMPARE(file.length(), 0);
    QCOMPARE(file.userBpm(), 0);
    QVERIFY(!file.hasTitle() && !file.hasGenre() && !file.hasArtist() && !file.hasAuthor());
    QVERIFY(!file.hasLength() && !file.hasUserBpm() && !file.hasKey() && !file.hasMarkers());
    QVERIFY(!file.isKordia());
    QString text = u"old"_s;
    QCOMPARE(file.extractMetaevent(text, RawMidiFile::Genre), -1);
    QVERIFY(text.isEmpty());
}

void TestRawMidiFile::searchesAfterTheFirstTrack()
{
    RawMidiFile file = loaded(midi({}, 1) + kordiaEvent(2, "Anna") + metaEvent(3, "Late"));
    QCOMPARE(file.artist(), u"Anna"_s);
    QCOMPARE(file.title(), u"Late"_s);
    QString text;
    QCOMPARE(file.extractMetaevent(text, RawMidiFile::Artist), midi({}, 1).size() + 1);
    QCOMPARE(RawMidiFile::indexOfKordiaMetaevent(file.stream(), 0, RawMidiFile::Genre), -1);
}

using Change = std::function<void(RawMidiFile &)>;

void TestRawMidiFile::writesEachFieldAtTheHead_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("event");
    const auto row = [](const char *name, const Change &change, const QByteArray &event) {
        QTest::newRow(name) << change << event;
    };
    row(
        "title", [](auto &f) { f.setTitle(u"La"_s); }, Samples::bytes("\0\xFF\x03\x02La"));
    row(
        "genre", [](auto &f) { f.setGenre(u"La"_s); }, Samples::bytes("\0\xFF\x4B\x03\x01La"));
    row(
        "artist", [](auto &f) { f.setArtist(u"\u00e9"_s); }, Samples::bytes("\0\xFF\x4B\2\2\xE9"));
    row(
        "author", [](auto &f) { f.setAuthor(u"La"_s); }, Samples::bytes("\0\xFF\x4B\x03\x03La"));
    row(
        "length", [](auto &f) { f.setLength(185); }, Samples::bytes("\0\xFF\x4B\x04\x04") + "185");
    row(
        "tempo", [](auto &f) { f.setUserBpm(97); }, Samples::bytes("\0\xFF\x4B\x03\x05") + "97");
    row(
        "key", [](auto &f) { f.setKey(u"F#-"_s); }, Samples::bytes("\0\xFF\x59\x02\x03\x01"));
    row(
        "marker",
        [](auto &f) {
            f.setMarkersList({{u"V"_s, 0x0102}});
        },
        Samples::bytes("\0\xFF\x4B\x04\x06\x01\x02V"));
}

void TestRawMidiFile::writesEachFieldAtTheHead()
{
    QFETCH(const Change, change);
    QFETCH(const QByteArray, event);
    for (const int format : {0, 1}) {
        RawMidiFile file = loaded(midi(metaEvent(1, "kept"), format));
        change(file);
        QCOMPARE(file.stream(), midi(event + metaEvent(1, "kept"), format));
    }
}

void TestRawMidiFile::setsTheArtistTwice()
{
    RawMidiFile file =
        loaded(midi(kordiaEvent(2, "A") + kordiaEvent(1, "G") + kordiaEvent(2, "B")));
    file.setArtist(u"First"_s);
    file.setArtist(u"Second"_s);
    QCOMPARE(file.stream(), midi(kordiaEvent(2, "Second") + kordiaEvent(1, "G")));
}

void TestRawMidiFile::setsTheTitleTwice()
{
    RawMidiFile file = loaded(midi(metaEvent(3, "A") + metaEvent(1, "kept") + metaEvent(3, "B")));
    file.setTitle(u"First"_s);
    file.setTitle(u"Second"_s);
    QCOMPARE(file.stream(), midi(metaEvent(3, "Second") + metaEvent(1, "kept")));
}

void TestRawMidiFile::cutsTextsAt125()
{
    RawMidiFile file = loaded(midi());
    file.setTitle(QString(200, u't'));
    file.setGenre(QString(126, u'g'));
    QCOMPARE(file.stream(), midi(Samples::bytes("\0\xFF\x4B\x7E\x01") + QByteArray(125, 'g') +
                                 Samples::bytes("\0\xFF\x03\x7D") + QByteArray(125, 't')));
    QCOMPARE(file.title(), QString(125, u't'));
    QCOMPARE(file.genre(), QString(125, u'g'));
}

void TestRawMidiFile::keepsAnEventForAnEmptyText()
{
    RawMidiFile file = loaded(midi());
    file.setAuthor(QString());
    file.setTitle(QString());
    QCOMPARE(file.stream(), midi(metaEvent(3, {}) + kordiaEvent(3, {})));
    QVERIFY(file.hasTitle() && file.hasAuthor());
    QVERIFY(file.title().isEmpty() && file.author().isEmpty());
}

void TestRawMidiFile::readsUpToAZeroByteAndTrims()
{
    const RawMidiFile file = loaded(midi(kordiaEvent(2, Samples::bytes(" \tAn na\n\0rest"))));
    QCOMPARE(file.artist(), u"An na"_s);
}

void TestRawMidiFile::readsNumbersOnly()
{
    const auto length = [](const QByteArray &text) {
        return loaded(midi(kordiaEvent(4, text))).length();
    };
    QCOMPARE(length(" 7 "), 7);
    QCOMPARE(length("-7"), 0);
    QCOMPARE(length("7x"), 0);
    QCOMPARE(length(""), 0);
    QCOMPARE(length("3000000000"), 0);
    QCOMPARE(length("2147483647"), 2147483647);
    RawMidiFile file = loaded(midi());
    file.setLength(-5);
    QCOMPARE(file.stream(), midi(kordiaEvent(4, "-5")));
    QCOMPARE(file.length(), 0);
    QVERIFY(file.hasLength());
}

void TestRawMidiFile::readsANegativeLengthAsTheRest_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {0x80, 0x81, 0xFC, 0xFF})
        QTest::addRow("0x%X", length) << length;
}

void TestRawMidiFile::readsANegativeLengthAsTheRest()
{
    QFETCH(const int, length);
    // A title of 130 characters with a length of two bytes, 0x81 0x02: the second is read as text.
    const QByteArray title =
        Samples::bytes("\0\xFF\x03") + static_cast<char>(length) + QByteArray(130, 't');
    QCOMPARE(loaded(midi(title)).title(), QString(130, u't'));
    const QByteArray genre =
        Samples::bytes("\0\xFF\x4B") + static_cast<char>(length) + "\x01" + QByteArray(130, 'g');
    QCOMPARE(loaded(midi(genre)).genre(), QString(130, u'g'));
}

void TestRawMidiFile::insertsNothingOutside()
{
    RawMidiFile file = loaded(midi());
    const int size = static_cast<int>(midi().size());
    QCOMPARE(file.insertMetaevent("x", RawMidiFile::Genre, size + 1), 0U);
    QCOMPARE(file.insertMetaevent("x", '\x03', size + 1), 0U);
    QCOMPARE(file.insertMetaevent("x", '\x03', -1), 0U);
    QCOMPARE(file.stream(), midi());
    QCOMPARE(file.insertMetaevent("x", '\x03', size), 5U);
    // An "MTrk" at the very end: its data would start after the end of the file.
    file = loaded(midi().left(18));
    file.setTitle(u"T"_s);
    file.setKey(u"C"_s);
    QCOMPARE(file.stream(), midi().left(18));
}

void TestRawMidiFile::keepsAnInvalidTrackLengthFromWrapping()
{
    constexpr int lengthAt = 18;
    const QByteArray highest(4, '\xFF');
    RawMidiFile file = loaded(midi().replace(lengthAt, 4, highest));
    file.setTitle(u"T"_s);
    QCOMPARE(file.stream().mid(lengthAt, 4), highest);
}

void TestRawMidiFile::keepsMarkersInOrder()
{
    RawMidiFile file = loaded(midi());
    file.setMarkersList({{u"Intro"_s, 5}, {u"Verse"_s, 9}, {u"Coda"_s, 17}});
    QCOMPARE(file.stream(), midi(kordiaEvent(6, Samples::bytes("\0\5Intro")) +
                                 kordiaEvent(6, Samples::bytes("\0\x09Verse")) +
                                 kordiaEvent(6, Samples::bytes("\0\x11") + "Coda")));
    const QList<Marker> list = file.markersList();
    QCOMPARE(list.size(), 3);
    QCOMPARE(list.at(0).bar, 5);
    QCOMPARE(list.at(1).bar, 9);
    QCOMPARE(list.at(2).bar, 17);
    QCOMPARE(list.at(2).text, u"Coda"_s);
    QList<Marker> again{{u"old"_s, 1}};
    QCOMPARE(file.extractMarkersList(again), 23);
    QCOMPARE(again.size(), 3);
}

void TestRawMidiFile::removesTheAuthorWithTheMarkers()
{
    RawMidiFile file = loaded(midi(kordiaEvent(3, "Bea") + kordiaEvent(2, "Anna")));
    file.setMarkersList({{u"A"_s, 1}});
    QCOMPARE(file.stream(), midi(kordiaEvent(6, Samples::bytes("\0\1A")) + kordiaEvent(2, "Anna")));
}

void TestRawMidiFile::removesAuthorOfEmptyMarkerList()
{
    RawMidiFile file = loaded(midi(kordiaEvent(3, "Bea")));
    file.setMarkersList({});
    QCOMPARE(file.stream(), midi());
}

void TestRawMidiFile::keepsOldMarkers()
{
    RawMidiFile file = loaded(midi(kordiaEvent(6, Samples::bytes("\0\1A"))));
    file.setMarkersList({{u"B"_s, 2}});
    QCOMPARE(file.markersList().size(), 2);
    QCOMPARE(file.markersList().first().text, u"B"_s);
}

void TestRawMidiFile::cutsMarkersAt124AndBarsAt16Bits()
{
    RawMidiFile file = loaded(midi());
    file.setMarkersList({{QString(200, u'm'), 65536 + 7}, {u"neg"_s, -1}});
    // The longest marker's length is 127: bar and type take three bytes.
    QCOMPARE(file.stream(),
             midi(Samples::bytes("\0\xFF\x4B\x7F\x06\x00\x07") + QByteArray(124, 'm') +
                  Samples::bytes("\0\xFF\x4B\x06\x06\xFF\xFFneg")));
    const QList<Marker> list = file.markersList();
    QCOMPARE(list.first().text, QString(124, u'm'));
    QCOMPARE(list.first().bar, 7);
    QCOMPARE(list.last().bar, 65535);
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Marker, false), 141U);
    QCOMPARE(file.stream(), midi());
}

void TestRawMidiFile::readsMarkersOfEveryLength()
{
    for (int length = 0; length < 256; ++length) {
        QByteArray event = kordiaEvent(6, Samples::bytes("\0\1") + QByteArray(260, 'm') + '\0');
        event[3] = static_cast<char>(length);
        const QList<Marker> list =
            loaded(midi(event + kordiaEvent(6, Samples::bytes("\0\2B")))).markersList();
        QCOMPARE(list.size(), 2);
        // Shorter than its bar number: the text is the following bytes up to a zero byte.
        QCOMPARE(list.first().text.size(), length < 3 ? 260 : length - 3);
        QCOMPARE(list.last().text, u"B"_s);
    }
}

void TestRawMidiFile::insertsAMarker()
{
    RawMidiFile file = loaded(midi());
    QCOMPARE(file.insertMarker(u"Hi"_s, 300), 9);
    QCOMPARE(file.dbgInsertMarker(QString(), 1), 7);
    QCOMPARE(file.stream(), midi(kordiaEvent(6, Samples::bytes("\0\1")) +
                                 kordiaEvent(6, Samples::bytes("\1\x2CHi"))));
}

void TestRawMidiFile::cutsEachInsertedMarkerAt124()
{
    const QByteArray event = Samples::bytes("\0\xFF\x4B\x7F\x06\x00\x01") + QByteArray(124, 'm');
    for (const int length : {124, 125}) {
        RawMidiFile file = loaded(midi());
        QCOMPARE(file.insertMarker(QString(length, u'm'), 1), 131);
        QCOMPARE(file.stream(), midi(event));
        QCOMPARE(file.dbgInsertMarker(QString(length, u'm'), 1), 131);
        QCOMPARE(file.stream(), midi(event + event));
    }
}

void TestRawMidiFile::knowsTheMakersNames()
{
    QVERIFY(loaded(midi(metaEvent(2, "(c) Kordia 2001"))).isKordia());
    QVERIFY(loaded(midi(metaEvent(2, "by sonwerks"))).isKordia());
    QVERIFY(!loaded(midi(metaEvent(2, "somebody else"))).isKordia());
    QVERIFY(!loaded(midi(metaEvent(1, "Kordia"))).isKordia());
}

void TestRawMidiFile::scansASongTwiceAtMost()
{
    RawMidiFile file =
        loaded(midi(kordiaEvent(RawMidiFile::Marker, Samples::bytes("\0\1Intro")), 1) +
               QByteArray(100000, '\0'));
    const auto readAll = [&file] {
        for (int i = 0; i < 3; ++i) {
            QVERIFY(file.title().isEmpty() && file.artist().isEmpty() && file.genre().isEmpty());
            QVERIFY(file.author().isEmpty() && file.key().isEmpty() && !file.isKordia());
            QVERIFY(file.length() == 0 && file.userBpm() == 0 && !file.hasKey());
        }
        QCOMPARE(file.markersList().size(), 1);
    };
    readAll();
    QVERIFY(file.scannedBytes() >= 100000 && file.scannedBytes() <= 2 * file.stream().size());
    // After a change the song is scanned again.
    file.setTitle(QStringLiteral("A song"));
    QCOMPARE(file.title(), QStringLiteral("A song"));
    file.removeHeadMetaevent('\x03', false);
    QVERIFY(!file.hasTitle());
    QVERIFY(file.scannedBytes() <= 4 * file.stream().size());
}

BRISEL_TEST(QCoreApplication, TestRawMidiFile)
#include "tst_rawmidifile.moc"
