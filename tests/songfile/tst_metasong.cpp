#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/songfile/samples.h"
#include "tests/testhome.h"

#include <QtTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Samples::frame;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;
using Samples::tag;

namespace
{

/// Writes \a content under \a name, opens it and reads its record; the name is the format's.
MetaSong opened(const QString &name, const QByteArray &content)
{
    Samples::write(name, content);
    MetaSong song;
    if (!song.importFile(name))
        qFatal("refused: %s", qPrintable(name));
    return song;
}

SongInfo infoOf(const MetaSong &song)
{
    SongInfo info;
    info.title = u"left over"_s;
    song.getSongInfo(info);
    return info;
}

bool opens(const QString &name, const QByteArray &content)
{
    Samples::write(name, content);
    return MetaSong().importFile(name);
}

QByteArray header(int field, const QByteArray &text)
{
    return Samples::containerHeader("_ZB3", 512).replace(field, text.size(), text);
}

constexpr int titleField = 122;
constexpr int authorField = 186;
constexpr int artistField = 218;
constexpr int genreField = 250;

SongInfo fullInfo(bool isKordia)
{
    SongInfo info;
    info.title = u"New title"_s;
    info.artist = u"New artist"_s;
    info.genre = u"New genre"_s;
    info.author = u"New author"_s;
    info.length = 200;
    info.userBpm = 130;
    info.key = u"G"_s;
    info.markers = {{u"M"_s, 4}};
    info.isKordia = isKordia;
    return info;
}

} // namespace

class TestMetaSong : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log = std::make_unique<LogCapture>(); }
    void cleanup() { m_log.reset(); }

    void recognisesEachFormat();
    void readsAMidiFile();
    void readsAContainer();
    void readsAnMp3();
    void setsOnlyTheFormatOfNothing();
    void judgesMp3sByNameAndStart_data();
    void judgesMp3sByNameAndStart();
    void refusesShortFiles();
    void refusesCorruptContainers();
    void removesTheMarkOfZb4();
    void survivesAZb4WithoutATrack();
    void readsOnlyTheTagOfAnMp3();
    void refusesATagBeyondAMillionBytes();
    void readsWholeTagsUpToAMillionBytes();
    void opensPlainFilesOnly();
    void refusesHugeFilesWithoutReadingThem();
    void opensNamesOfEveryKind();
    void holdsNothingAfterAFailedImport();
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
    void addsADebugMarker();
    void listsTheKeys();

private:
    std::unique_ptr<LogCapture> m_log;
};

void TestMetaSong::recognisesEachFormat()
{
    const QByteArray music = midi();
    QCOMPARE(infoOf(opened(u"a.mid"_s, music)).format, u"MIDI"_s);
    QCOMPARE(infoOf(opened(u"a.kar"_s, midi({}, 1))).format, u"MIDI"_s);
    for (const auto &[magic, size, format] :
         {std::tuple{"_ZB3", 512, u"ZB3"_s}, {"_ZB4", 512, u"ZB4"_s}, {"_ZB5", 1024, u"ZB5"_s}})
        QCOMPARE(infoOf(opened(u"any name"_s,
                               Samples::container(Samples::containerHeader(magic, size),
                                                  QByteArray(music).insert(22, "\xFF\xFF\xFF"))))
                     .format,
                 format);
    QCOMPARE(infoOf(opened(u"a.mp3"_s, tag({}))).format, u"MP3"_s);
}

void TestMetaSong::readsAMidiFile()
{
    const SongInfo info = infoOf(
        opened(u"a.mid"_s, midi(metaEvent(3, "T") + metaEvent(2, "Kordia") + kordiaEvent(1, "G") +
                                kordiaEvent(2, "A") + kordiaEvent(3, "C") + kordiaEvent(4, "99") +
                                kordiaEvent(5, "88") + metaEvent('\x59', "\x01\x01") +
                                kordiaEvent(6, Samples::bytes("\0\x07M")))));
    QCOMPARE(info.title, u"T"_s);
    QCOMPARE(info.genre, u"G"_s);
    QCOMPARE(info.artist, u"A"_s);
    QCOMPARE(info.author, u"C"_s);
    QCOMPARE(info.length, 99);
    QCOMPARE(info.userBpm, 88);
    QCOMPARE(info.key, u"E-"_s);
    QCOMPARE(info.markers.size(), 1);
    QVERIFY(info.isKordia);
    QVERIFY(info.altArtist.isEmpty() && info.fileName.isEmpty() && info.shortName.isEmpty());
}

void TestMetaSong::readsAContainer()
{
    const QByteArray head = header(titleField, "T")
                                .replace(authorField, 1, "C")
                                .replace(artistField, 1, "A")
                                .replace(genreField, 1, "G")
                                .replace(38, 2, "\x2C\x01")
                                .replace(42, 4, "LONG")
                                .replace(185, 1, "\xC8");
    const SongInfo info = infoOf(
        opened(u"a.zb3"_s,
               Samples::container(head, midi(metaEvent(3, "not this") + kordiaEvent(4, "99") +
                                             kordiaEvent(5, "88") + metaEvent('\x59', "\x01\x01") +
                                             kordiaEvent(6, Samples::bytes("\0\x07M"))))));
    QCOMPARE(info.title, u"T"_s);
    QCOMPARE(info.author, u"C"_s);
    QCOMPARE(info.artist, u"A"_s);
    QCOMPARE(info.genre, u"G"_s);
    QCOMPARE(info.userBpm, 300);
    QCOMPARE(info.length, 99);
    QCOMPARE(info.key, u"E-"_s);
    QCOMPARE(info.markers.size(), 1);
    QVERIFY(info.isKordia);
    QCOMPARE(info.zbxLongName, u"LONG"_s);
    QCOMPARE(info.zbxFlags, qint8(-56));
}

void TestMetaSong::readsAnMp3()
{
    const SongInfo info = infoOf(
        opened(u"a.mp3"_s, tag(frame("TIT2", "T") + frame("TPE1", "A") + frame("TCOM", "C") +
                               frame("TCON", "G") + frame("TKEY", "Ebm") + frame("TLEN", "99000") +
                               frame("TBPM", "88") + frame("TCOP", "kordia")) +
                               Samples::audio(50)));
    QCOMPARE(info.title, u"T"_s);
    QCOMPARE(info.artist, u"A"_s);
    QCOMPARE(info.author, u"C"_s);
    QCOMPARE(info.genre, u"G"_s);
    QCOMPARE(info.key, u"Ebm"_s);
    QCOMPARE(info.length, 99);
    QCOMPARE(info.userBpm, 88);
    QVERIFY(info.isKordia && info.markers.isEmpty());
}

void TestMetaSong::setsOnlyTheFormatOfNothing()
{
    const SongInfo info = infoOf(MetaSong());
    QCOMPARE(info.format, u"UNKNOWN"_s);
    QVERIFY(info.title.isEmpty() && !info.isKordia);
}

void TestMetaSong::judgesMp3sByNameAndStart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<bool>("isTaken");
    const auto row = [](const QString &name, const QByteArray &start, bool isTaken) {
        QTest::addRow("%s %s", qPrintable(name), start.toHex().constData())
            << name << start << isTaken;
    };
    row(u"song.mp3"_s, "\xFF\x45", true);
    row(u"song.wav"_s, tag({}), false);
    row(u"song.mp3"_s, tag({}), true);
    row(u"SONG.Mp3"_s, tag({}), true);
    row(u"songmp3"_s, tag({}), true);
    row(u"song.mp3.bak"_s, tag({}), false);
    row(u"song.mp3"_s, Samples::bytes("\0\0"), true);
    row(u"song.mp3"_s, Samples::bytes("\0\1"), false);
    for (int second = 0; second < 256; ++second)
        row(u"song.mp3"_s, QByteArray("\xFF") + static_cast<char>(second),
            second <= 0x7F || second >= 0xF3);
    row(u"song.mp3"_s, "\xFE\xFB", false);
    row(u"song.mp3"_s, "RIFF", false);
    row(u"song.mp3"_s, "id3", false);
}

void TestMetaSong::judgesMp3sByNameAndStart()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, start);
    QFETCH(const bool, isTaken);
    QCOMPARE(opens(name, start + QByteArray(20, 'x')), isTaken);
}

void TestMetaSong::refusesShortFiles()
{
    const QByteArray zb5 = Samples::container(Samples::containerHeader("_ZB5", 1024), midi());
    for (int size = 0; size < 18; ++size)
        QVERIFY(!opens(u"a.mid"_s, midi().left(size)));
    for (const int size : {4, 5, 511, 512, 1023, 1024, 1025, 1027, 1028, 1030})
        QVERIFY(!opens(u"a.zb5"_s, zb5.left(size)));
    for (int size = 0; size < 10; ++size)
        QVERIFY(!opens(u"a.mp3"_s, tag({}).left(size)));
    QVERIFY(opens(u"a.mp3"_s, tag({})));
    QVERIFY(!opens(u"a.mp3"_s, Samples::bytes("ID3\3\0\0\0\0\0\x0B")));
}

void TestMetaSong::refusesCorruptContainers()
{
    const QByteArray head = Samples::containerHeader("_ZB3", 512);
    QVERIFY(!opens(u"a.zb3"_s, head + QByteArray(4, '\0')));
    QVERIFY(m_log->contains(u"[MetaSong::importFile] LzHuff Expand filed, skipping file "_s));
    m_log->clear();
    QVERIFY(!opens(u"a.zb3"_s, Samples::container(head, "no MIDI data")));
    QVERIFY(m_log->contains(u"[MetaSong::importFile] MidiStream corrupted, skipping file "_s));
    const QByteArray whole = Samples::container(head, midi(metaEvent(3, "Title")));
    for (qsizetype size = 512; size < whole.size(); ++size)
        opens(u"a.zb3"_s, whole.left(size));
}

void TestMetaSong::removesTheMarkOfZb4()
{
    QByteArray marked = midi(metaEvent('\x59', "\x01\x01"));
    marked.insert(22, "\xFF\x01\x02");
    const QByteArray head = Samples::containerHeader("_ZB4", 512);
    const MetaSong song = opened(u"a.zb4"_s, Samples::container(head, marked));
    QCOMPARE(infoOf(song).key, u"E-"_s);
    QVERIFY(!opens(u"a.zb3"_s, Samples::container(head, "MThd" + QByteArray(30, 'x'))));
}

void TestMetaSong::survivesAZb4WithoutATrack()
{
    const QByteArray head = Samples::containerHeader("_ZB4", 512);
    QVERIFY(!opens(u"a.zb4"_s, Samples::container(head, "x")));
    const QByteArray music = midi();
    for (qsizetype size = 1; size <= music.size(); ++size)
        opens(u"a.zb4"_s, Samples::container(head, music.left(size)));
}

void TestMetaSong::readsOnlyTheTagOfAnMp3()
{
    QFile file(u"huge.mp3"_s); // sparse: to read it whole would not go unnoticed
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(tag(frame("TIT2", "Huge")));
    QVERIFY(file.resize(5LL * 1024 * 1024 * 1024));
    file.close();
    MetaSong song;
    QVERIFY(song.importFile(u"huge.mp3"_s));
    QCOMPARE(infoOf(song).title, u"Huge"_s);
    file.remove();
}

void TestMetaSong::refusesATagBeyondAMillionBytes()
{
    const QByteArray frames = frame("TIT2", "T") + QByteArray(1000000, '\0');
    QVERIFY(!opens(u"a.mp3"_s, tag(frames.left(1000001)) + Samples::audio(100)));
    QVERIFY(!opens(u"a.mp3"_s, Samples::bytes("ID3\3\0\0\x7F\x7F\x7F\x7F") + QByteArray(99, 'x')));
}

void TestMetaSong::readsWholeTagsUpToAMillionBytes()
{
    const QByteArray whole = tag(frame("TIT2", "T") + QByteArray(1000000 - 12, '\xAA'));
    MetaSong song = opened(u"a.mp3"_s, whole + Samples::audio(100));
    QCOMPARE(infoOf(song).title, u"T"_s);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s) == whole + Samples::audio(100));
}

void TestMetaSong::opensPlainFilesOnly()
{
    QVERIFY(!MetaSong().importFile(QString()));
    QVERIFY(!MetaSong().importFile(u"missing.mid"_s));
    QVERIFY(QDir().mkpath(u"folder.mid"_s));
    QVERIFY(!MetaSong().importFile(u"folder.mid"_s));
    QCOMPARE(::mkfifo("fifo.mid", 0600), 0);
    QVERIFY(!MetaSong().importFile(u"fifo.mid"_s)); // would wait for ever
    QVERIFY(QFile::link(u"fifo.mid"_s, u"fifolink.mid"_s));
    QVERIFY(!MetaSong().importFile(u"fifolink.mid"_s));
    QVERIFY(QFile::link(u"/dev/zero"_s, u"zero.mp3"_s));
    QVERIFY(!MetaSong().importFile(u"zero.mp3"_s));
    QVERIFY(QFile::link(u"loop.mid"_s, u"loop.mid"_s));
    QVERIFY(!MetaSong().importFile(u"loop.mid"_s));
    Samples::write(u"real.mid"_s, midi());
    QVERIFY(QFile::link(u"real.mid"_s, u"link.mid"_s));
    QVERIFY(MetaSong().importFile(u"link.mid"_s));
}

void TestMetaSong::refusesHugeFilesWithoutReadingThem()
{
    for (const QByteArray &content :
         {midi(), Samples::container(Samples::containerHeader("_ZB3", 512), midi())}) {
        QFile file(u"huge.mid"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        QVERIFY(file.resize(5LL * 1024 * 1024 * 1024));
        file.close();
        QVERIFY(!MetaSong().importFile(u"huge.mid"_s));
        file.remove();
    }
}

void TestMetaSong::opensNamesOfEveryKind()
{
    for (const QString &name :
         {u"it's \"100%1\".mid"_s, u"line\nbreak.mid"_s, u"\u00e0\u20ac.mid"_s,
          QString(251, u'n') + u".mid"_s, u"<b>%n"_s}) {
        MetaSong song = opened(name, midi());
        QVERIFY2(song.saveToFile(name), qPrintable(name));
        QCOMPARE(Samples::read(name), midi());
    }
}

void TestMetaSong::holdsNothingAfterAFailedImport()
{
    MetaSong song = opened(u"a.mid"_s, midi(metaEvent(3, "Old")));
    Samples::write(u"bad.mid"_s, "MThd");
    QVERIFY(!song.importFile(u"bad.mid"_s));
    QCOMPARE(infoOf(song).format, u"MIDI"_s); // as it was
    QVERIFY(infoOf(song).title.isEmpty());
    song.setSongInfo(fullInfo(true), true);
    song.setSongInfo(fullInfo(true), false);
    QVERIFY(!song.saveToFile(u"bad.mid"_s));
    QCOMPARE(Samples::read(u"bad.mid"_s), QByteArray("MThd"));
    QCOMPARE(song.dbgAddMarker(u"x"_s, 1), 0);

    MetaSong mp3 = opened(u"a.mp3"_s, tag(frame("TIT2", "Old")));
    QVERIFY(!mp3.importFile(u"missing.mp3"_s));
    mp3.setSongInfo(fullInfo(true), true);
    QVERIFY(!mp3.saveToFile(u"a.mp3"_s));
    QCOMPARE(Samples::read(u"a.mp3"_s), tag(frame("TIT2", "Old")));
}

void TestMetaSong::logsTheMode()
{
    MetaSong song;
    song.setSongInfo(SongInfo(), true);
    song.setSongInfo(SongInfo(), false);
    QCOMPARE(m_log->messages(),
             QStringList({u"[MetaSong] setSongInfo, manual:  true "_s, u" "_s,
                          u"[MetaSong] setSongInfo, manual:  false "_s, u" "_s}));
}

void TestMetaSong::overwritesMidiFilesByHand()
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
    QCOMPARE(info.markers.size(), 1); // never touched by hand
}

void TestMetaSong::overwritesContainersByHand()
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
    QCOMPARE(info.zbxFlags, qint8(3)); // the flag goes with the record's markers
    song.setSongInfo(SongInfo(), true);
    info = infoOf(song);
    QVERIFY(info.title.isEmpty() && info.artist.isEmpty() && info.key.isEmpty());
    QCOMPARE(info.userBpm, 0);
    QCOMPARE(info.zbxFlags, qint8(3));
}

void TestMetaSong::overwritesMp3sByHand()
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

void TestMetaSong::fillsAnEmptySongAutomatically_data()
{
    addFormatAndMaker();
}

void TestMetaSong::fillsAnEmptySongAutomatically()
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

void TestMetaSong::keepsAFullSongAutomatically_data()
{
    addFormatAndMaker();
}

void TestMetaSong::keepsAFullSongAutomatically()
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

void TestMetaSong::lengthensATitleOnly_data()
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

void TestMetaSong::lengthensATitleOnly()
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
    // Only MIDI files have that rule.
    song = opened(u"a.mp3"_s, tag(frame("TIT2", inFile)));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).title, QString::fromLatin1(inFile));
    song = opened(u"a.zb3"_s, Samples::container(header(titleField, inFile), midi()));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).title, QString::fromLatin1(inFile));
}

void TestMetaSong::suppliesNoNegativeNumbers()
{
    SongInfo info;
    info.isKordia = true;
    info.length = info.userBpm = -1;
    MetaSong song = opened(u"a.mid"_s, midi());
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    const QByteArray saved = Samples::read(u"a.mid"_s);
    QVERIFY(!saved.contains(QByteArray("\x04-1")) && !saved.contains(QByteArray("\x05-1")));
    info.length = info.userBpm = 0; // zero is a value
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QVERIFY(Samples::read(u"a.mid"_s).contains(kordiaEvent(4, "0")));
    QVERIFY(Samples::read(u"a.mid"_s).contains(kordiaEvent(5, "0")));
}

void TestMetaSong::suppliesTheTempoOfAContainer_data()
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

void TestMetaSong::suppliesTheTempoOfAContainer()
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

void TestMetaSong::replacesPlaceholders_data()
{
    QTest::addColumn<QByteArray>("inFile");
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("-") << QByteArray("-") << true;
    QTest::newRow("--") << QByteArray("--") << true;
    QTest::newRow("---") << QByteArray("---") << false;
    QTest::newRow("text") << QByteArray("text") << false;
}

void TestMetaSong::replacesPlaceholders()
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
    // In a MIDI file a dash is a text like any other.
    if (size > 0) {
        song = opened(u"a.mid"_s, midi(kordiaEvent(1, inFile)));
        song.setSongInfo(fullInfo(false), false);
        QCOMPARE(infoOf(song).genre, old);
    }
}

void TestMetaSong::choosesTheArtist_data()
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

void TestMetaSong::choosesTheArtist()
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

void TestMetaSong::replacesAPlaceholderArtistEvenByNothing()
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

void TestMetaSong::marksAnMp3Once()
{
    MetaSong song = opened(u"a.mp3"_s, tag({}));
    song.setSongInfo(SongInfo(), false);
    song.setSongInfo(SongInfo(), true);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QCOMPARE(Samples::read(u"a.mp3"_s), tag(frame("MEDT", QByteArray(3, '\0'))));
}

void TestMetaSong::addsADebugMarker()
{
    MetaSong song = opened(u"a.mid"_s, midi());
    m_log->clear();
    QCOMPARE(song.dbgAddMarker(u"Hi"_s, 300), 9);
    QCOMPARE(m_log->messages(),
             QStringList({u"[MetaSong] addMarker "_s, u"Marker added, len=  9 "_s,
                          QString(35, u'-') + u' ', u" "_s}));
    QCOMPARE(infoOf(song).markers.first().bar, 300);
}

void TestMetaSong::listsTheKeys()
{
    QCOMPARE(MetaSong::getKeysList().size(), 30);
    QCOMPARE(MetaSong::getKeysList().first(), u"C"_s);
}

BRISEL_TEST_MAIN(QCoreApplication, TestMetaSong)
#include "tst_metasong.moc"
