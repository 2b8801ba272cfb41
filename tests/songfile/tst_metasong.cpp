#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/songfile/songs.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

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

namespace
{

bool opens(const QString &name, const QByteArray &content)
{
    Samples::write(name, content);
    return MetaSong().importFile(name);
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
    QFile file(u"huge.mp3"_s); // sparse, and too large to be read whole
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
    QVERIFY(!MetaSong().importFile(u"fifo.mid"_s)); // opening it would block forever
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
    QCOMPARE(infoOf(song).format, u"MIDI"_s); // unchanged
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

BRISEL_TEST(QCoreApplication, TestMetaSong)
#include "tst_metasong.moc"
