#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/songfile/songs.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <memory>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::artistField;
using Samples::authorField;
using Samples::frame;
using Samples::fullInfo;
using Samples::genreField;
using Samples::header;
using Samples::infoOf;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;
using Samples::opened;
using Samples::tag;
using Samples::titleField;

class TestSongMerge : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log = std::make_unique<LogCapture>(); }
    void cleanup() { m_log.reset(); }

    void logsTheMode();
    void overwritesMidiFilesByHand();
    void overwritesContainersByHand();
    void overwritesMp3sByHand();
    void fillsAnEmptySongAutomatically_data();
    void fillsAnEmptySongAutomatically();
    void keepsAFullSongAutomatically_data();
    void keepsAFullSongAutomatically();
    void lengthensATitleOnly_data();
    void lengthensATitleOnly();
    void suppliesNoNegativeNumbers();
    void suppliesTheTempoOfAContainer_data();
    void suppliesTheTempoOfAContainer();
    void replacesPlaceholders_data();
    void replacesPlaceholders();
    void choosesTheArtist_data();
    void choosesTheArtist();
    void replacesAPlaceholderArtistEvenByNothing();
    void marksAnMp3Once();

private:
    std::unique_ptr<LogCapture> m_log;
};

void TestSongMerge::logsTheMode()
{
    MetaSong song;
    song.setSongInfo(SongInfo(), true);
    song.setSongInfo(SongInfo(), false);
    QCOMPARE(m_log->messages(),
             QStringList({u"[MetaSong] setSongInfo, manual:  true "_s, u" "_s,
                          u"[MetaSong] setSongInfo, manual:  false "_s, u" "_s}));
}

void TestSongMerge::overwritesMidiFilesByHand()
{
    MetaSong song = opened(u"a.mid"_s, midi(kordiaEvent(6, Samples::bytes("\0\1Old"))));
    song.setSongInfo(fullInfo(false), true);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QCOMPARE(Samples::read(u"a.mid"_s),
             midi(kordiaEvent(1, "New genre") + kordiaEvent(2, "New artist") +
                  kordiaEvent(5, "130") + kordiaEvent(3, "New author") + metaEvent(3, "New title") +
                  kordiaEvent(4, "200") + metaEvent('\x59', Samples::bytes("\1\0")) +
                  kordiaEvent(6, Samples::bytes("\0\1Old"))));
    song.setSongInfo(SongInfo(), true);
    const SongInfo info = infoOf(song);
    QVERIFY(info.title.isEmpty() && info.artist.isEmpty() && info.genre.isEmpty());
    QVERIFY(info.author.isEmpty() && info.key.isEmpty());
    QCOMPARE(info.length, 0);
    QCOMPARE(info.userBpm, 0);
    QCOMPARE(info.markers.size(), 1); // not changed by a save by hand
}

void TestSongMerge::overwritesContainersByHand()
{
    const QByteArray head = header(titleField, "Old").replace(185, 1, "\x02");
    MetaSong song = opened(u"a.zb3"_s, Samples::container(head, midi(metaEvent(3, "inner"))));
    song.setSongInfo(fullInfo(false), true);
    SongInfo info = infoOf(song);
    QCOMPARE(info.title, u"New title"_s);
    QCOMPARE(info.artist, u"New artist"_s);
    QCOMPARE(info.genre, u"New genre"_s);
    QCOMPARE(info.author, u"New author"_s);
    QCOMPARE(info.userBpm, 130);
    QCOMPARE(info.length, 200);
    QCOMPARE(info.key, u"G"_s);
    QVERIFY(info.markers.isEmpty());
    QCOMPARE(info.zbxFlags, qint8(3)); // the flag is set by the record's markers
    song.setSongInfo(SongInfo(), true);
    info = infoOf(song);
    QVERIFY(info.title.isEmpty() && info.artist.isEmpty() && info.key.isEmpty());
    QCOMPARE(info.userBpm, 0);
    QCOMPARE(info.zbxFlags, qint8(3));
}

void TestSongMerge::overwritesMp3sByHand()
{
    MetaSong song = opened(u"a.mp3"_s, tag(frame("TIT2", "Old") + frame("TALB", "Album")));
    song.setSongInfo(fullInfo(false), true);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QCOMPARE(Samples::read(u"a.mp3"_s),
             tag(frame("MEDT", QByteArray(3, '\0')) + frame("TCON", "New genre") +
                 frame("TPE1", "New artist") + frame("TLEN", "200000") + frame("TKEY", "G") +
                 frame("TBPM", "130") + frame("TCOM", "New author") + frame("TIT2", "New title") +
                 frame("TALB", "Album")));
    song.setSongInfo(SongInfo(), true);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QCOMPARE(Samples::read(u"a.mp3"_s),
             tag(frame("MEDT", QByteArray(3, '\0')) + frame("TALB", "Album")));
}

static void addFormatAndMaker()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("isKordia");
    for (const char *format : {"mid", "zb3", "mp3"}) {
        QTest::addRow("%s", format) << QString::fromLatin1(format) << false;
        QTest::addRow("%s of the maker", format) << QString::fromLatin1(format) << true;
    }
}

void TestSongMerge::fillsAnEmptySongAutomatically_data()
{
    addFormatAndMaker();
}

void TestSongMerge::fillsAnEmptySongAutomatically()
{
    QFETCH(const QString, format);
    QFETCH(const bool, isKordia);
    const bool isContainer = format == u"zb3"_s;
    const QByteArray content =
        format == u"mid"_s ? midi()
        : isContainer      ? Samples::container(Samples::containerHeader("_ZB3", 512), midi())
                           : tag({}) + Samples::audio(10);
    MetaSong song = opened(u"a."_s + format, content);
    song.setSongInfo(fullInfo(isKordia), false);
    const SongInfo info = infoOf(song);
    QCOMPARE(info.title, u"New title"_s);
    QCOMPARE(info.author, u"New author"_s);
    QCOMPARE(info.artist, u"New artist"_s);
    QCOMPARE(info.genre, u"New genre"_s);
    QCOMPARE(info.key, isKordia ? u"G"_s : QString());
    QCOMPARE(info.length, isKordia ? 200 : 0);
    QCOMPARE(info.userBpm, isKordia || isContainer ? 130 : 0);
    QCOMPARE(info.markers.size(), format == u"mp3"_s ? 0 : 1);
    QCOMPARE(info.zbxFlags, qint8(isContainer ? 1 : 0));
}

void TestSongMerge::keepsAFullSongAutomatically_data()
{
    addFormatAndMaker();
}

void TestSongMerge::keepsAFullSongAutomatically()
{
    QFETCH(const QString, format);
    QFETCH(const bool, isKordia);
    const QByteArray music =
        midi(metaEvent(3, "T") + kordiaEvent(1, "G") + kordiaEvent(2, "New artist") +
             kordiaEvent(3, "C") + kordiaEvent(4, "99") + kordiaEvent(5, "88") +
             metaEvent('\x59', "\x01\x01") + kordiaEvent(6, Samples::bytes("\0\x07M")));
    const QByteArray head = header(titleField, "T")
                                .replace(authorField, 1, "C")
                                .replace(artistField, 10, "New artist")
                                .replace(genreField, 1, "G")
                                .replace(38, 2, Samples::bytes("\x58\0"));
    const QByteArray content =
        format == u"mid"_s   ? music
        : format == u"zb3"_s ? Samples::container(head, music)
                             : tag(frame("TIT2", "T") + frame("TPE1", "New artist") +
                                   frame("TCOM", "C") + frame("TCON", "G") + frame("TKEY", "E-") +
                                   frame("TLEN", "99000") + frame("TBPM", "88"));
    MetaSong song = opened(u"a."_s + format, content);
    song.setSongInfo(fullInfo(isKordia), false);
    const SongInfo info = infoOf(song);
    QCOMPARE(info.title, u"T"_s);
    QCOMPARE(info.author, u"C"_s);
    QCOMPARE(info.artist, u"New artist"_s);
    QCOMPARE(info.genre, u"G"_s);
    QCOMPARE(info.key, u"E-"_s);
    QCOMPARE(info.length, 99);
    QCOMPARE(info.userBpm, 88);
    QCOMPARE(info.markers.size(), format == u"mp3"_s ? 0 : 1);
    if (format == u"mid"_s)
        QCOMPARE(info.markers.first().text, u"M"_s);
}

void TestSongMerge::lengthensATitleOnly_data()
{
    QTest::addColumn<QByteArray>("inFile");
    QTest::addColumn<QString>("inCatalogue");
    QTest::addColumn<QString>("result");
    QTest::newRow("longer") << QByteArray("Love") << u"LOVE SONG"_s << u"LOVE SONG"_s;
    QTest::newRow("other") << QByteArray("My Love") << u"LOVE SONG"_s << u"My Love"_s;
    QTest::newRow("shorter") << QByteArray("Love song") << u"LOVE"_s << u"Love song"_s;
    QTest::newRow("same") << QByteArray("love") << u"LOVE"_s << u"LOVE"_s;
    QTest::newRow("empty event") << QByteArray() << u"LOVE"_s << u"LOVE"_s;
}

void TestSongMerge::lengthensATitleOnly()
{
    QFETCH(const QByteArray, inFile);
    QFETCH(const QString, inCatalogue);
    QFETCH(const QString, result);
    SongInfo info;
    info.title = inCatalogue;
    MetaSong song = opened(u"a.mid"_s, midi(metaEvent(3, inFile)));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).title, result);
    if (inFile.isEmpty())
        return;
    // This rule applies to MIDI files only.
    song = opened(u"a.mp3"_s, tag(frame("TIT2", inFile)));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).title, QString::fromLatin1(inFile));
    song = opened(u"a.zb3"_s, Samples::container(header(titleField, inFile), midi()));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).title, QString::fromLatin1(inFile));
}

void TestSongMerge::suppliesNoNegativeNumbers()
{
    SongInfo info;
    info.isKordia = true;
    info.length = info.userBpm = -1;
    MetaSong song = opened(u"a.mid"_s, midi());
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    const QByteArray saved = Samples::read(u"a.mid"_s);
    QVERIFY(!saved.contains(QByteArray("\x04-1")) && !saved.contains(QByteArray("\x05-1")));
    info.length = info.userBpm = 0; // zero is a valid value
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QVERIFY(Samples::read(u"a.mid"_s).contains(kordiaEvent(4, "0")));
    QVERIFY(Samples::read(u"a.mid"_s).contains(kordiaEvent(5, "0")));
}

void TestSongMerge::suppliesTheTempoOfAContainer_data()
{
    QTest::addColumn<int>("inFile");
    QTest::addColumn<int>("inCatalogue");
    QTest::addColumn<int>("result");
    QTest::newRow("none") << 0 << 120 << 120;
    QTest::newRow("too high") << 500 << 120 << 120;
    QTest::newRow("valid") << 499 << 120 << 499;
    QTest::newRow("negative") << 500 << -1 << 500;
    QTest::newRow("to zero") << 500 << 0 << 0;
}

void TestSongMerge::suppliesTheTempoOfAContainer()
{
    QFETCH(const int, inFile);
    QFETCH(const int, inCatalogue);
    QFETCH(const int, result);
    const QByteArray tempo =
        QByteArray(1, static_cast<char>(inFile)) + static_cast<char>(inFile >> 8);
    MetaSong song = opened(u"a.zb3"_s, Samples::container(header(38, tempo), midi()));
    SongInfo info;
    info.userBpm = inCatalogue;
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).userBpm, result);
}

void TestSongMerge::replacesPlaceholders_data()
{
    QTest::addColumn<QByteArray>("inFile");
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("-") << QByteArray("-") << true;
    QTest::newRow("--") << QByteArray("--") << true;
    QTest::newRow("---") << QByteArray("---") << false;
    QTest::newRow("text") << QByteArray("text") << false;
}

void TestSongMerge::replacesPlaceholders()
{
    QFETCH(const QByteArray, inFile);
    QFETCH(const bool, isReplaced);
    const auto size = inFile.size();
    const QByteArray head = header(titleField, inFile)
                                .replace(authorField, size, inFile)
                                .replace(genreField, size, inFile);
    MetaSong song = opened(u"a.zb3"_s, Samples::container(head, midi()));
    song.setSongInfo(fullInfo(false), false);
    const SongInfo info = infoOf(song);
    const QString old = QString::fromLatin1(inFile);
    QCOMPARE(info.title, isReplaced ? u"New title"_s : old);
    QCOMPARE(info.author, isReplaced ? u"New author"_s : old);
    QCOMPARE(info.genre, isReplaced ? u"New genre"_s : old);
    // In a MIDI file a dash is an ordinary text.
    if (size > 0) {
        song = opened(u"a.mid"_s, midi(kordiaEvent(1, inFile)));
        song.setSongInfo(fullInfo(false), false);
        QCOMPARE(infoOf(song).genre, old);
    }
}

void TestSongMerge::choosesTheArtist_data()
{
    QTest::addColumn<QByteArray>("inFile");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("altArtist");
    QTest::addColumn<QString>("result");
    QTest::newRow("none, no alternative") << QByteArray() << u"Art"_s << QString() << u"Art"_s;
    QTest::newRow("none, alternative") << QByteArray() << u"Art"_s << u"Alt"_s << u"Alt"_s;
    QTest::newRow("none, alternative alone") << QByteArray() << QString() << u"Alt"_s << u"Alt"_s;
    QTest::newRow("artist, none") << QByteArray("Art") << u"Art"_s << QString() << u"Art"_s;
    QTest::newRow("artist, alternative") << QByteArray("Art") << u"Art"_s << u"Alt"_s << u"Alt"_s;
    QTest::newRow("alternative") << QByteArray("Alt") << u"Art"_s << u"Alt"_s << u"Alt"_s;
    QTest::newRow("other, none") << QByteArray("Oth") << u"Art"_s << QString() << u"Art"_s;
    QTest::newRow("other, alternative") << QByteArray("Oth") << u"Art"_s << u"Alt"_s << u"Art"_s;
    QTest::newRow("other, nothing known")
        << QByteArray("Oth") << QString() << QString() << QString();
    QTest::newRow("all the same") << QByteArray("Art") << u"Art"_s << u"Art"_s << u"Art"_s;
}

void TestSongMerge::choosesTheArtist()
{
    QFETCH(const QByteArray, inFile);
    QFETCH(const QString, artist);
    QFETCH(const QString, altArtist);
    QFETCH(const QString, result);
    SongInfo info;
    info.artist = artist;
    info.altArtist = altArtist;
    const bool has = !inFile.isEmpty();
    MetaSong song = opened(u"a.mid"_s, midi(has ? kordiaEvent(2, inFile) : QByteArray()));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).artist, result);
    song = opened(u"a.zb3"_s, Samples::container(header(artistField, inFile), midi()));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).artist, result);
    song = opened(u"a.mp3"_s, tag(has ? frame("TPE1", inFile) : QByteArray()));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).artist, result);
}

void TestSongMerge::replacesAPlaceholderArtistEvenByNothing()
{
    for (const char *placeholder : {"-", "--"}) {
        for (const QString &altArtist : {QString(), u"Alt"_s}) {
            SongInfo info;
            info.artist = u"Art"_s;
            info.altArtist = altArtist;
            MetaSong song =
                opened(u"a.zb3"_s, Samples::container(header(artistField, placeholder), midi()));
            song.setSongInfo(info, false);
            QCOMPARE(infoOf(song).artist, altArtist);
        }
    }
}

void TestSongMerge::marksAnMp3Once()
{
    MetaSong song = opened(u"a.mp3"_s, tag({}));
    song.setSongInfo(SongInfo(), false);
    song.setSongInfo(SongInfo(), true);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QCOMPARE(Samples::read(u"a.mp3"_s), tag(frame("MEDT", QByteArray(3, '\0'))));
}

BRISEL_TEST(QCoreApplication, TestSongMerge)
#include "tst_songmerge.moc"
