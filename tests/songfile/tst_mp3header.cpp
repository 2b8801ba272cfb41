#include "tests/songfile/loadedtag.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <limits>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::frame;
using Samples::tag;

class TestMp3Header : public QObject
{
    Q_OBJECT

private slots:
    void makesATagForAFileWithoutOne();
    void refusesFewerThanTenBytes();
    void refusesATagLargerThanTheData();
    void keepsTheWholeTagAndNoAudio();
    void readsASizeByteAbove128AsSizeZero();
    void addsASizeByteOf128();
    void writesTheSizeInSevenBits();
    void readsEveryField();
    void writesFramesFirstAndAlike();
    void keepsOtherFrames();
    void setsTheTitleTwice();
    void removesOnlyTheFirstFrame();
    void removesTheFrameOfAnEmptyText();
    void findsNoFrameInsideAnother();
    void readsEveryEncoding();
    void convertsTheLength();
    void readsNumbersOnly();
    void removesZeroTempoAndLength();
    void findsTheMakerInAnyCase();
    void marksTheTagAsEdited();
    void insertsNothingOutside();
    void survivesEveryFrameSize();
    void readsAFrameOfSizeZeroToTheNextZeroByte();
    void ignoresFramesAfterTheTag();
    void survivesEveryTruncation();
    void worksWithoutATag();
};

void TestMp3Header::makesATagForAFileWithoutOne()
{
    Mp3Header header = loadedTag(Samples::audio(100));
    QCOMPARE(header.stream(), Samples::bytes("ID3\x03\0\0\0\0\0\0"));
    QCOMPARE(header.getAudioDataStartPos(), 0U);
    QCOMPARE(header.fileType(), SongInfo::Mp3);
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), Samples::bytes("ID3\x03\0\0\0\0\0\x0DTIT2\0\0\0\x03\0\0\0La"));
}

void TestMp3Header::refusesFewerThanTenBytes()
{
    for (int size = 0; size < 10; ++size) {
        Mp3Header header = loadedTag(tag(frame("TIT2", "old")));
        QVERIFY(!header.loadHeader(tag({}).left(size)));
        QVERIFY(!header.loadHeader(Samples::audio(size)));
        QVERIFY(header.stream().isEmpty());
    }
}

void TestMp3Header::refusesATagLargerThanTheData()
{
    const QByteArray whole = tag(frame("TIT2", QByteArray(50, 'x'))); // 10 + 61
    Mp3Header header;
    QVERIFY(!header.loadHeader(whole.left(60)));
    QVERIFY(header.loadHeader(whole.left(61))); // the size does not count the tag's header
    QCOMPARE(header.stream(), whole.left(61));
    QVERIFY(
        !header.loadHeader(Samples::bytes("ID3\x03\0\0\x7F\x7F\x7F\x7F") + QByteArray(99, 'x')));
}

void TestMp3Header::keepsTheWholeTagAndNoAudio()
{
    const QByteArray whole = tag(frame("TIT2", "x") + QByteArray(300, '\0'));
    const Mp3Header header = loadedTag(whole + Samples::audio(50));
    QCOMPARE(header.stream(), whole);
    QCOMPARE(header.getAudioDataStartPos(), 322U);
}

void TestMp3Header::readsASizeByteAbove128AsSizeZero()
{
    for (int index = 6; index < 10; ++index) {
        QByteArray data = tag(frame("TIT2", "x")) + Samples::audio(50);
        data[index] = '\x81';
        Mp3Header header = loadedTag(data);
        QCOMPARE(header.stream(), data.left(10));
        QCOMPARE(header.getAudioDataStartPos(), 10U);
        QVERIFY(!header.hasTitle());
        header.setTitle(u"n"_s);
        QVERIFY(isSizeRight(header));
    }
}

void TestMp3Header::addsASizeByteOf128()
{
    const auto size = [](const QByteArray &four) {
        return Mp3Header::getId3TagSize(Samples::bytes("ID3\x03\0\0") + four);
    };
    QCOMPARE(size(Samples::bytes("\0\0\0\x80")), 128U);
    QCOMPARE(size(Samples::bytes("\0\0\x80\0")), 128U << 7);
    QCOMPARE(size(Samples::bytes("\x80\0\0\0")), 128U << 21);
    QCOMPARE(size(Samples::bytes("\x80\x80\x80\x80")),
             (128U << 21) + (128U << 14) + (128U << 7) + 128);
    QCOMPARE(size(Samples::bytes("\x7F\x7F\x7F\x7F")), 0x0FFFFFFFU);
    QCOMPARE(size(Samples::bytes("\0\0\2\1")), 257U);
    QCOMPARE(size(Samples::bytes("\0\0\0\x81")), 0U);
    QCOMPARE(size({}), 0U);
}

void TestMp3Header::writesTheSizeInSevenBits()
{
    Mp3Header header = loadedTag(tag({}));
    header.setTitle(QString(300000, u'x')); // 300011 = 18 * 2^14 + 39 * 2^7 + 107
    QCOMPARE(header.stream().mid(6, 4), Samples::bytes("\x00\x12\x27\x6B"));
}

void TestMp3Header::readsEveryField()
{
    const Mp3Header header =
        loadedTag(tag(frame("TIT2", " T\xE9 ") + frame("TPE1", "A") + frame("TCOM", "C") +
                      frame("TCON", Samples::bytes("G\0x")) + frame("TKEY", "F#-") +
                      frame("TLEN", "185999") + frame("TBPM", "120")));
    QCOMPARE(header.title(), u"T\u00e9"_s);
    QCOMPARE(header.artist(), u"A"_s);
    QCOMPARE(header.author(), u"C"_s);
    QCOMPARE(header.genre(), u"G"_s);
    QCOMPARE(header.key(), u"F#-"_s);
    QCOMPARE(header.length(), 185);
    QCOMPARE(header.userBpm(), 120);
    QVERIFY(header.hasTitle() && header.hasArtist() && header.hasAuthor() && header.hasGenre());
    QVERIFY(header.hasKey() && header.hasLength() && header.hasUserBpm());
    QVERIFY(!header.hasBriselEditParam() && !header.isKordia());
}

void TestMp3Header::writesFramesFirstAndAlike()
{
    Mp3Header header = loadedTag(tag(frame("TALB", "Album")));
    header.setArtist(u"A"_s);
    header.setAuthor(u"C"_s);
    header.setGenre(u"G"_s);
    header.setKey(u"Bb"_s);
    header.setTitle(u"T"_s);
    QCOMPARE(header.stream(),
             tag(frame("TIT2", "T") + frame("TKEY", "Bb") + frame("TCON", "G") +
                 frame("TCOM", "C") + frame("TPE1", "A") + frame("TALB", "Album")));
}

void TestMp3Header::keepsOtherFrames()
{
    const QByteArray before = frame("TALB", "Album") + frame("PRIV", QByteArray(40, '\xAA'));
    const QByteArray after = frame("COMM", "note") + QByteArray(100, '\0');
    Mp3Header header = loadedTag(tag(before + frame("TIT2", "old title") + after));
    header.setTitle(QString());
    QCOMPARE(header.stream(), tag(before + after));
}

void TestMp3Header::setsTheTitleTwice()
{
    Mp3Header header = loadedTag(Samples::audio(10));
    header.setTitle(u"First"_s);
    header.setTitle(u"Second one"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "Second one")));
}

void TestMp3Header::removesOnlyTheFirstFrame()
{
    Mp3Header header = loadedTag(tag(frame("TIT2", "one") + frame("TIT2", "two")));
    QCOMPARE(header.removeId3Frame(u"TIT2"_s), 14);
    QCOMPARE(header.stream(), tag(frame("TIT2", "two")));
    QCOMPARE(header.removeId3Frame(u"TXXX"_s), 0);
}

void TestMp3Header::removesTheFrameOfAnEmptyText()
{
    Mp3Header header = loadedTag(tag(frame("TKEY", "C")));
    header.setKey(QString());
    QCOMPARE(header.stream(), tag({}));
    QVERIFY(!header.hasKey());
}

void TestMp3Header::findsNoFrameInsideAnother()
{
    const QByteArray album = frame("TALB", Samples::bytes("xTIT2\0\0\0\4\0\0\0abc"));
    Mp3Header header = loadedTag(tag(album));
    QVERIFY(!header.hasTitle());
    header.setTitle(u"T"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "T") + album));
}

void TestMp3Header::readsEveryEncoding()
{
    const auto title = [](const QByteArray &content) {
        QByteArray bytes = "TIT2" + QByteArray(6, '\0') + content;
        bytes[7] = static_cast<char>(content.size());
        return loadedTag(tag(bytes)).title();
    };
    QCOMPARE(title(Samples::bytes("\1\xFF\xFEL\0\xE0\0")), u"L\u00E0"_s);
    QCOMPARE(title(Samples::bytes("\1\xFE\xFF\0L\0\xE0")), u"L\u00E0"_s);
    QCOMPARE(title(Samples::bytes("\1L\0\xE0\0")), u"L\u00E0"_s); // without a byte order mark
    QCOMPARE(title(Samples::bytes("\2\0L\0\xE0")), u"L\u00E0"_s);
    QCOMPARE(title(Samples::bytes("\3L\xC3\xA0")), u"L\u00E0"_s);
    QCOMPARE(title(Samples::bytes("\4L\xE0")), u"L\u00E0"_s); // read as Latin-1
    QCOMPARE(title(Samples::bytes("\1\xFF\xFE L\0\0\0x\0")), u"\u4C20"_s);
    QCOMPARE(title(Samples::bytes("\3 L\0x")), u"L"_s);
    QCOMPARE(title(Samples::bytes("\1\xFF\xFEL")), QString());
    QCOMPARE(title(Samples::bytes("\1")), QString());
}

void TestMp3Header::convertsTheLength()
{
    Mp3Header header = loadedTag(tag({}));
    header.setLength(185);
    QCOMPARE(header.stream(), tag(frame("TLEN", "185000")));
    QCOMPARE(header.length(), 185);
    header.setLength(std::numeric_limits<int>::max());
    QCOMPARE(header.length(), std::numeric_limits<int>::max());
    QCOMPARE(loadedTag(tag(frame("TLEN", "1999"))).length(), 1);
    QCOMPARE(loadedTag(tag(frame("TLEN", "999"))).length(), 0);
}

void TestMp3Header::readsNumbersOnly()
{
    for (const char *text : {"", "-5000", "12x", "1.5", "99999999999999999999"}) {
        QCOMPARE(loadedTag(tag(frame("TLEN", text))).length(), 0);
        QCOMPARE(loadedTag(tag(frame("TBPM", text))).userBpm(), 0);
    }
    QCOMPARE(loadedTag(tag(frame("TBPM", "3000000000"))).userBpm(), 0);
    QCOMPARE(loadedTag(tag({})).length(), 0);
}

void TestMp3Header::removesZeroTempoAndLength()
{
    for (const int none : {0, -1}) {
        Mp3Header header = loadedTag(tag(frame("TBPM", "90") + frame("TLEN", "1000")));
        header.setUserBpm(none);
        QVERIFY(!header.hasUserBpm());
        header.setLength(none);
        QCOMPARE(header.stream(), tag({}));
    }
    Mp3Header header = loadedTag(tag({}));
    header.setUserBpm(97);
    QCOMPARE(header.stream(), tag(frame("TBPM", "97")));
}

void TestMp3Header::findsTheMakerInAnyCase()
{
    QVERIFY(loadedTag(tag(frame("TCOP", "(c) kordia srl"))).isKordia());
    QVERIFY(loadedTag(tag(frame("TCOP", "KORDIA"))).isKordia());
    QVERIFY(!loadedTag(tag(frame("TCOP", "SONWERKS"))).isKordia()); // applies to MIDI files only
    QVERIFY(!loadedTag(tag(frame("TALB", "KORDIA"))).isKordia());
}

void TestMp3Header::marksTheTagAsEdited()
{
    Mp3Header header = loadedTag(tag({}));
    header.setBriselEditParam();
    QCOMPARE(header.stream(), tag(Samples::bytes("MEDT\0\0\0\4\0\0\0\0\0\0")));
    QVERIFY(header.hasBriselEditParam());
}

void TestMp3Header::insertsNothingOutside()
{
    Mp3Header header = loadedTag(tag({}));
    QCOMPARE(header.insertId3Frame("x", u"TIT2"_s, 11), 0);
    QCOMPARE(header.insertId3Frame("x", u"TIT2"_s, -1), 0);
    QCOMPARE(header.insertId3Frame({}, u"TIT2"_s, 10), 0);
    QCOMPARE(header.stream(), tag({}));
    QCOMPARE(header.insertId3Frame("x", u"TIT2"_s, 10), 12);
}

void TestMp3Header::survivesEveryFrameSize()
{
    for (int index = 0; index < 4; ++index) {
        for (const int value : {0, 1, 0x7F, 0x80, 0xFF}) {
            QByteArray frames = frame("TIT2", "Title") + frame("TALB", "Album");
            frames[4 + index] = static_cast<char>(value);
            Mp3Header header = loadedTag(tag(frames));
            QVERIFY(header.hasTitle());
            QVERIFY(header.title().size() <= frames.size());
            header.setTitle(u"New"_s);
            QCOMPARE(header.title(), u"New"_s);
            QVERIFY(isSizeRight(header));
            QVERIFY(header.stream().startsWith(tag({}).left(6)));
        }
    }
    // 0xFFFFFFF6 + 10 is 0 in 32 bits.
    Mp3Header header =
        loadedTag(tag(Samples::bytes("TIT2\xFF\xFF\xFF\xF6\0\0\0x") + frame("TALB", "y")));
    header.setTitle(QString());
    QCOMPARE(header.stream(), tag({}));
}

void TestMp3Header::readsAFrameOfSizeZeroToTheNextZeroByte()
{
    const Mp3Header header = loadedTag(tag(Samples::bytes("TIT2\0\0\0\0\0\0\0Rest of it\0x")));
    QCOMPARE(header.title(), u"Rest of it"_s);
}

void TestMp3Header::ignoresFramesAfterTheTag()
{
    Mp3Header header = loadedTag(tag(QByteArray(20, '\0')));
    QCOMPARE(header.removeId3Frame(u"TIT2"_s), 0);
    QCOMPARE(header.stream(), tag(QByteArray(20, '\0')));
    QByteArray short61 = tag(frame("TALB", "x"));
    short61[9] = 5; // the frame's name is inside the tag, the rest is not
    header = loadedTag(short61);
    header.setTitle(u"t"_s);
    QVERIFY(isSizeRight(header));
}

void TestMp3Header::survivesEveryTruncation()
{
    const QByteArray whole = tag(frame("TIT2", "Title") + frame("TLEN", "5000") +
                                 frame("TCOP", "Kordia") + frame("MEDT", QByteArray(3, '\0')));
    for (int size = 0; size < whole.size(); ++size) {
        QByteArray data = whole.left(size);
        if (size > 9)
            data[9] = static_cast<char>(size - 10);
        Mp3Header header;
        if (!header.loadHeader(data))
            continue;
        QVERIFY(isSizeRight(header));
        header.title();
        header.isKordia();
        header.setTitle(u"n"_s);
        header.setLength(7);
        header.setBriselEditParam();
        QVERIFY(isSizeRight(header));
        QCOMPARE(header.title(), u"n"_s);
        QCOMPARE(header.length(), 7);
    }
}

void TestMp3Header::worksWithoutATag()
{
    Mp3Header header;
    header.setTitle(u"x"_s);
    header.setLength(1);
    header.setBriselEditParam();
    header.updateId3TagSize();
    QCOMPARE(header.removeId3Frame(u"TIT2"_s), 0);
    QVERIFY(header.stream().isEmpty());
    QVERIFY(!header.hasTitle());
    QCOMPARE(header.getSingleFrameLength(-10), 0U);
    QCOMPARE(header.getAudioDataStartPos(), 0U);
}

BRISEL_TEST(QCoreApplication, TestMp3Header)
#include "tst_mp3header.moc"
