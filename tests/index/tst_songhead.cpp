#include "base/bytes.h"
#include "index/index.h"
#include "index/songhead.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

SongInfoIndex parsed(const QByteArray &content, const QString &name = u"Song.mid"_qs)
{
    SongInfoIndex song;
    song.absolutePath = u"/Volumes/CARD/"_qs + name;
    song.bpm = 99;
    song.flag = 9;
    song.reserved = 9;
    SongHead::parse(content.left(SongHead::prefixSize), song);
    return song;
}

/// A container's head with the \a fields (offset, text).
QByteArray container(const QByteArray &magic, const QList<std::pair<int, QByteArray>> &fields)
{
    QByteArray head = field(magic, 512);
    for (const auto &[offset, text] : fields)
        head.replace(offset, text.size(), text);
    return head;
}

QByteArray exclusive(const QByteArray &text, int length)
{
    return QByteArray("\0\xF0", 2) + static_cast<char>(length) + hex("0020240005") + text;
}

} // namespace

/// What the index reads from the first bytes of a song.
class TestSongHead : public QObject
{
    Q_OBJECT

private slots:
    void readsContainersAtItsOwnOffsets();
    void runsOnWhereContainerFieldsAreFull();
    void namesEmptyContainersByFile();
    void readsFirstMidiTexts();
    void readsTitleOfTextEvent();
    void keepsTempoInEightBits();
    void survivesTempoZero();
    void hasNoTempoWithoutEvent();
    void findsArtistInExclusiveMessage();
    void prefersMakersArtistToExclusiveMessage();
    void stopsAtEventCutByThePrefix();
    void boundsMidiTexts();
    void ignoresEmptyTexts();
    void readsFramesOfMp3();
    void keepsDefaultsOfMp3WithoutTag();
    void takesSizeFromHostileFrame();
    void findsFramesOnlyInFirst512Bytes();
    void marksUnrecognisedFiles();
    void refusesFourBytes();
    void refusesMissingFile();
    void survivesEveryTruncation();
};

void TestSongHead::readsContainersAtItsOwnOffsets()
{
    for (int generation = 3; generation <= 5; ++generation) {
        const SongInfoIndex song =
            parsed(container("_ZB" + QByteArray::number(generation), {{38, "\x64\x01"},
                                                                      {122, "not this"},
                                                                      {138, " Title "},
                                                                      {201, "\1"},
                                                                      {234, "Artist"},
                                                                      {266, "Genre"}}),
                   u"x.zb3"_qs);
        QCOMPARE(song.title, u"TITLE"_qs);
        QCOMPARE(song.artist, u"ARTIST"_qs);
        QCOMPARE(song.genre, u"GENRE"_qs);
        QCOMPARE(int(song.type), generation - 1);
        QCOMPARE(int(song.bpm), 100);
        QCOMPARE(int(song.flag), 1);
        QCOMPARE(int(song.reserved), 0);
    }
    QCOMPARE(int(parsed(container("_ZB3", {{201, "\3"}})).flag), 0);
}

void TestSongHead::runsOnWhereContainerFieldsAreFull()
{
    const SongInfoIndex song =
        parsed(container("_ZB4", {{234, QByteArray(32, 'A')}, {266, "Genre"}}), u"x.zb4"_qs);
    QCOMPARE(song.artist, QString(32, u'A') + u"GENRE"_qs);
    const SongInfoIndex full = parsed(container("_ZB4", {{138, QByteArray(80, 'T')}}));
    QCOMPARE(full.title, QString(58, u'T'));
}

void TestSongHead::namesEmptyContainersByFile()
{
    const SongInfoIndex song = parsed(container("_ZB5", {}), u"name.zb5"_qs);
    QCOMPARE(song.title, u"NAME.ZB5"_qs);
    QCOMPARE(song.artist, u"<UNKNOWN>"_qs);
    QCOMPARE(song.genre, u"<UNKNOWN>"_qs);
    QCOMPARE(parsed("_ZB5x", u"name.zb5"_qs).title, u"NAME.ZB5"_qs);
}

void TestSongHead::readsFirstMidiTexts()
{
    const SongInfoIndex song =
        parsed(midi(metaEvent(3, " Perch\xE9 ") + metaEvent(3, "Second") +
                    kordiaEvent(2, "Artist") + kordiaEvent(2, "Other") + kordiaEvent(1, "Genre") +
                    kordiaEvent(3, "Author") + metaEvent(6, "Intro")));
    QCOMPARE(song.title, u"PERCH\u00C9"_qs);
    QCOMPARE(song.artist, u"ARTIST"_qs);
    QCOMPARE(song.genre, u"GENRE"_qs);
    QCOMPARE(int(song.flag), 1);
    QCOMPARE(int(song.type), 0);
    QCOMPARE(int(song.reserved), 0);
}

void TestSongHead::readsTitleOfTextEvent()
{
    QCOMPARE(
        parsed(midi(metaEvent(1, "words") + metaEvent(1, "@TTitle") + metaEvent(3, "Name"))).title,
        u"TITLE"_qs);
    QCOMPARE(parsed(midi(metaEvent(3, "Name") + metaEvent(1, "@TTitle"))).title, u"NAME"_qs);
    QCOMPARE(parsed(midi(metaEvent(1, "@T" + QByteArray(70, 'x')))).title, QString(56, u'X'));
}

void TestSongHead::keepsTempoInEightBits()
{
    const QByteArray bpm100 = metaEvent(0x51, hex("0927C0"));
    const QByteArray bpm300 = metaEvent(0x51, hex("030D40"));
    QCOMPARE(int(parsed(midi(bpm100 + bpm300)).bpm), 100);
    QCOMPARE(int(parsed(midi(bpm300 + bpm100)).bpm), 300 - 256);
}

void TestSongHead::survivesTempoZero()
{
    QCOMPARE(int(parsed(midi(metaEvent(0x51, hex("000000")))).bpm), 0);
}

void TestSongHead::hasNoTempoWithoutEvent()
{
    const SongInfoIndex song = parsed(midi(QByteArray()));
    QCOMPARE(int(song.bpm), 0);
    QCOMPARE(int(song.flag), 0);
    QCOMPARE(song.title, u"SONG.MID"_qs);
}

void TestSongHead::findsArtistInExclusiveMessage()
{
    // The five bytes of the mark, "(ARTIST" and one more that is dropped: 7 more than the text's 8.
    QCOMPARE(parsed(midi(exclusive("(ARTIST)\0\xF7", 15))).artist, u"ARTIST"_qs);
    QCOMPARE(parsed(midi(exclusive("ARTIST)\0\xF7", 15))).artist, u"<UNKNOWN>"_qs);
    QCOMPARE(parsed(midi(exclusive("(ARTIST)", 7))).artist, u"<UNKNOWN>"_qs);
    QCOMPARE(parsed(midi(exclusive("(" + QByteArray(100, 'x'), 120))).artist, QString(56, u'X'));
    QCOMPARE(parsed(midi(exclusive("(ARTIST)", 0x80 + 7))).artist, u"<UNKNOWN>"_qs);
}

void TestSongHead::prefersMakersArtistToExclusiveMessage()
{
    QCOMPARE(parsed(midi(exclusive("(FIRST)\0\xF7", 14) + kordiaEvent(2, "Second"))).artist,
             u"SECOND"_qs);
}

void TestSongHead::stopsAtEventCutByThePrefix()
{
    const QByteArray filler(SongHead::prefixSize - 22 - 20, '\1');
    const SongInfoIndex song = parsed(midi(kordiaEvent(1, "Genre")).left(22 + 12) + filler +
                                      metaEvent(3, "A title that ends behind the prefix"));
    QCOMPARE(song.genre, u"GENRE"_qs);
    QCOMPARE(song.title, u"SONG.MID"_qs);
}

void TestSongHead::boundsMidiTexts()
{
    const SongInfoIndex song =
        parsed(midi(metaEvent(3, QByteArray(70, 't')) + kordiaEvent(2, QByteArray(70, 'a')) +
                    kordiaEvent(1, "g\0rest")));
    QCOMPARE(song.title, QString(58, u'T'));
    QCOMPARE(song.artist, QString(58, u'A'));
    QCOMPARE(song.genre, u"G"_qs);
}

void TestSongHead::ignoresEmptyTexts()
{
    const SongInfoIndex song = parsed(midi(metaEvent(3, "") + metaEvent(3, "Title") +
                                           metaEvent(0x4B, "") + kordiaEvent(2, "  ")));
    QCOMPARE(song.title, u"TITLE"_qs);
    QCOMPARE(song.artist, u"<UNKNOWN>"_qs);
}

void TestSongHead::readsFramesOfMp3()
{
    const SongInfoIndex song = parsed(mp3(id3Frame("TIT2", QByteArray(70, 't')) +
                                          id3Frame("TPE1", " Artist ") + id3Frame("TPE1", "Other")),
                                      u"x.mP3"_qs);
    QCOMPARE(song.title, QString(58, u'T'));
    QCOMPARE(song.artist, u"ARTIST"_qs);
    QCOMPARE(song.genre, u"<UNKNOWN>"_qs);
    QCOMPARE(int(song.type), 1);
    QCOMPARE(int(song.bpm), 0);
    QCOMPARE(int(song.flag), 0);
}

void TestSongHead::keepsDefaultsOfMp3WithoutTag()
{
    const SongInfoIndex song = parsed(QByteArray(100, 'x'), u"Song.mp3"_qs);
    QCOMPARE(song.title, u"SONG.MP3"_qs);
    QCOMPARE(song.artist, u"<UNKNOWN>"_qs);
    QCOMPARE(song.genre, u"<UNKNOWN>"_qs);
    QCOMPARE(int(song.type), 1);
}

void TestSongHead::takesSizeFromHostileFrame()
{
    for (const char *size : {"00000000", "00000001", "FFFFFFFF", "80000000", "7FFFFFFF"}) {
        const QByteArray frame = "TIT2" + hex(size) + hex("000000") + "Title" + '\0';
        const QString title = parsed(mp3(frame), u"x.mp3"_qs).title;
        QCOMPARE(title,
                 size[7] == '1' || QByteArray(size) == "00000000" ? u"X.MP3"_qs : u"TITLE"_qs);
    }
    QCOMPARE(parsed("ID3xxTIT2", u"x.mp3"_qs).title, u"X.MP3"_qs);
}

void TestSongHead::findsFramesOnlyInFirst512Bytes()
{
    const QByteArray frame = id3Frame("TIT2", "Title");
    const QByteArray head = "ID3" + QByteArray(505, 'x');
    QCOMPARE(parsed(head + frame, u"x.mp3"_qs).title, u"TITLE"_qs);
    QCOMPARE(parsed(head + 'x' + frame, u"x.mp3"_qs).title, u"X.MP3"_qs);
}

void TestSongHead::marksUnrecognisedFiles()
{
    const SongInfoIndex song = parsed("hello", u"x.kar"_qs);
    QCOMPARE(song.title, u"X.KAR"_qs);
    QCOMPARE(int(song.type), 0);
    QCOMPARE(int(song.bpm), 120);
    QCOMPARE(int(song.flag), 0);
}

void TestSongHead::refusesFourBytes()
{
    const SampleMemory memory;
    memory.write(u"Four.mid"_qs, "MThd");
    SongInfoIndex song;
    song.absolutePath = memory.path(u"Four.mid"_qs);
    song.bpm = 5;
    QVERIFY(!Index::setSongInfo(song));
    QCOMPARE(song.title, u"Four.mid"_qs);
    QCOMPARE(song.artist, u"<unknown>"_qs);
    QCOMPARE(song.genre, u"<unknown>"_qs);
    QCOMPARE(int(song.type), 0);
    QCOMPARE(int(song.bpm), 0);
    // It is still indexed, unchanged.
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"title.id2"_qs), songRecord("00000000", "Four.mid", "0000"));
    QCOMPARE(memory.read(u"artist.id2"_qs).left(64), groupHeader("00000001", "<unknown>"));
}

void TestSongHead::refusesMissingFile()
{
    SongInfoIndex song;
    song.absolutePath = u"/nowhere/Song.mid"_qs;
    QVERIFY(!Index::setSongInfo(song));
    QCOMPARE(song.title, u"Song.mid"_qs);
}

void TestSongHead::survivesEveryTruncation()
{
    const QByteArray song = midi(metaEvent(3, "Title") + metaEvent(0x51, hex("07A120")) +
                                 kordiaEvent(2, "Artist") + exclusive("(X)\0\xF7", 10));
    for (qsizetype size = 5; size < song.size(); ++size) {
        const SongInfoIndex cut = parsed(song.left(size));
        QVERIFY(cut.title == u"TITLE" || cut.title == u"SONG.MID");
        QVERIFY(cut.bpm == 120 || cut.bpm == 0);
    }
    for (int value : {0, 1, 0x7F, 0x80, 0xFC, 0xFF}) {
        for (qsizetype pos = 22; pos < song.size(); ++pos) {
            QByteArray spoilt = song;
            putByte(spoilt, pos, static_cast<quint8>(value));
            QVERIFY(!parsed(spoilt).artist.isEmpty());
        }
    }
}

BRISEL_TEST(QCoreApplication, TestSongHead)
#include "tst_songhead.moc"
