#include "tests/id3/handmadetag.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using HandMade::artistTwo;
using HandMade::bytes;
using HandMade::frameOf200;
using HandMade::tag;
using HandMade::titleOne;
using HandMade::Walked;

class TestId3Frames : public QObject
{
    Q_OBJECT

private slots:
    void readsFramesOfVersion22();
    void readsFramesOfVersion23();
    void readsSizesOfVersion23WithAllBits();
    void readsSynchsafeSizesOfVersion24();
    void readsPlainSizesInVersion24();
    void decidesBySizesThatLeadFromFrameToFrame();
    void treatsOtherVersionsAsUnknown();
    void readsNoCompressedTagOfVersion22();
    void skipsTheExtendedHeader_data();
    void skipsTheExtendedHeader();
    void takesTheFlagWithoutAnExtendedHeader();
    void searchesAfterAnInvalidExtendedHeader_data();
    void searchesAfterAnInvalidExtendedHeader();
    void acceptsNamesOfThreeLetters();
    void acceptsEmptyFrames();
    void rejectsAnEmptyFrameThatLeadsNowhere();
    void endsAtThePadding();
    void searchesJunkAfterThePadding();
    void searchesAfterABrokenFrame();
    void searchesEverythingWhenTheFirstFrameIsBroken();
    void readsATruncatedTag();
};

void TestId3Frames::readsFramesOfVersion22()
{
    const Walked walked(tag(2, 0,
                            bytes("TAL\0\0\2\0A"
                                  "TT2\0\0\4\0One"
                                  "TP1\0\0\1\0"
                                  "TBP\0\0\3\0"
                                  "97\0\0")));
    QCOMPARE(walked.content("TIT2"), bytes("\0One"));
    QCOMPARE(walked.start("TIT2"), 18);
    QCOMPARE(walked.content("TPE1"), bytes("\0"));
    QCOMPARE(walked.content("TBPM"), bytes("\0"
                                           "97"));
    QCOMPARE(walked.content("TALB"), QByteArray("none")); // not a frame that the program reads
    QVERIFY(walked.frames.endsInPadding());
    QCOMPARE(walked.frames.framesStart(), 10);
    QCOMPARE(walked.frames.framesEnd(), 44);
    const std::optional<Id3Frame> frame = walked.frames.find(walked.tag, "TIT2", 100);
    QCOMPARE(frame->size, 10);
    QCOMPARE(frame->headerSize, 6);
}

void TestId3Frames::readsFramesOfVersion23()
{
    const Walked walked(tag(3, 0, bytes("TALB\0\0\0\2\0\0\0A") + titleOne + artistTwo));
    QCOMPARE(walked.content("TIT2"), bytes("\0One"));
    QCOMPARE(walked.content("TPE1"), bytes("\0Two"));
    QCOMPARE(walked.content("TALB"), bytes("\0A"));
    QCOMPARE(walked.content("TCON"), QByteArray("none"));
    QVERIFY(walked.frames.endsInPadding()); // zero bytes long
    QCOMPARE(walked.frames.framesEnd(), walked.tag.size());
    const std::optional<Id3Frame> frame = walked.frames.find(walked.tag, "TIT2", 100);
    QCOMPARE(frame->start, 22);
    QCOMPARE(frame->size, 14);
    QCOMPARE(frame->headerSize, 10);
    QCOMPARE(frame->claimed, 4);
}

void TestId3Frames::readsSizesOfVersion23WithAllBits()
{
    const Walked walked(tag(3, 0, frameOf200("TALB", bytes("\0\0\0\xC8")) + titleOne));
    QCOMPARE(walked.start("TIT2"), 220);
    // 00 00 01 48 is 200 as a synchsafe size only.
    const Walked synchsafe(tag(3, 0, frameOf200("TALB", bytes("\0\0\1\x48")) + titleOne));
    QVERIFY(!synchsafe.frames.isWalked());
}

void TestId3Frames::readsSynchsafeSizesOfVersion24()
{
    const Walked walked(tag(4, 0, frameOf200("TALB", bytes("\0\0\1\x48")) + titleOne));
    QVERIFY(walked.frames.endsInPadding());
    QCOMPARE(walked.content("TALB").size(), 200);
    QCOMPARE(walked.start("TIT2"), 220);
}

void TestId3Frames::readsPlainSizesInVersion24()
{
    const Walked walked(tag(4, 0, frameOf200("TALB", bytes("\0\0\0\xC8")) + titleOne));
    QVERIFY(walked.frames.endsInPadding());
    QCOMPARE(walked.content("TALB").size(), 200);
    QCOMPARE(walked.start("TIT2"), 220);
}

void TestId3Frames::decidesBySizesThatLeadFromFrameToFrame()
{
    // 00 00 01 00 is 128 or 256: the bytes at either place decide.
    for (const int size : {128, 256}) {
        const QByteArray album = bytes("TALB\0\0\1\0\0\0\0") + QByteArray(size - 1, 'x');
        const Walked walked(tag(4, 0, album + titleOne + QByteArray(20, '\0')));
        QVERIFY(walked.frames.endsInPadding());
        QCOMPARE(walked.content("TALB").size(), size);
        QCOMPARE(walked.start("TIT2"), 20 + size);
    }
    // Of a single frame the size that leads to the padding is taken.
    const QByteArray album = bytes("TALB\0\0\1\0\0\0\0") + QByteArray(255, 'x');
    const Walked single(tag(4, 0, album + QByteArray(20, '\0')));
    QVERIFY(single.frames.endsInPadding());
    QCOMPARE(single.content("TALB").size(), 256);
    // Neither size leads to the end of the tag: the one that leads further counts.
    const QByteArray broken = QByteArray(50, '?');
    const Walked plain(tag(4, 0, frameOf200("TALB", bytes("\0\0\0\xC8")) + titleOne + broken));
    QCOMPARE(plain.frames.framesEnd(), 234);
    const Walked synchsafe(tag(4, 0, frameOf200("TALB", bytes("\0\0\1\x48")) + titleOne + broken));
    QCOMPARE(synchsafe.frames.framesEnd(), 234);
    // A size that leads further, but not to a frame, does not count: 00 00 01 48 is 200, not 328.
    const Walked far(tag(4, 0, frameOf200("TALB", bytes("\0\0\1\x48")) + QByteArray(200, '?')));
    QCOMPARE(far.frames.framesEnd(), 220);
    const Walked padded(tag(
        4, 0, frameOf200("TALB", bytes("\0\0\1\x48")) + titleOne + "?" + QByteArray(200, '\0')));
    QCOMPARE(padded.frames.framesEnd(), 234);
}

void TestId3Frames::treatsOtherVersionsAsUnknown()
{
    for (const int version : {0, 1, 5, 255}) {
        const Walked walked(tag(version, 0, artistTwo + titleOne));
        QVERIFY(walked.frames.isUnknown());
        QCOMPARE(walked.start("TIT2"), 24); // found by searching for its name
        QVERIFY(walked.frames.find(walked.tag, "TIT2", 100)->isSearched);
    }
}

void TestId3Frames::readsNoCompressedTagOfVersion22()
{
    const Walked walked(tag(2, 0x40, bytes("TT2\0\0\4\0One")));
    QVERIFY(walked.frames.isUnknown());
    QCOMPARE(walked.content("TIT2"), QByteArray("none"));
}

void TestId3Frames::skipsTheExtendedHeader_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("2.3") << 3
                         << bytes("\0\0\0\6"
                                  "\0\0"
                                  "\0\0\0\0");
    QTest::newRow("2.3 with a checksum") << 3
                                         << bytes("\0\0\0\x0A"
                                                  "\x80\0"
                                                  "\0\0\0\0"
                                                  "\xDE\xAD\xBE\xEF");
    QTest::newRow("2.3 with more") << 3
                                   << bytes("\0\0\0\x0C"
                                            "\x80\0"
                                            "\0\0\0\0"
                                            "\xDE\xAD\xBE\xEF"
                                            "??");
    QTest::newRow("2.4") << 4
                         << bytes("\0\0\0\6"
                                  "\1"
                                  "\0");
    QTest::newRow("2.4 with a checksum") << 4
                                         << bytes("\0\0\0\x0C"
                                                  "\1"
                                                  "\x20"
                                                  "\5\1\2\3\4\5");
    QTest::newRow("2.4 with all") << 4
                                  << bytes("\0\0\0\x0F"
                                           "\1"
                                           "\x70"
                                           "\0"
                                           "\5\1\2\3\4\5"
                                           "\1\0");
    QTest::newRow("2.4, longer than a byte tells") << 4
                                                   << bytes("\0\0\1\x48"
                                                            "\1"
                                                            "\0") +
                                                          QByteArray(194, '\1');
}

void TestId3Frames::skipsTheExtendedHeader()
{
    QFETCH(const int, version);
    QFETCH(const QByteArray, header);
    const Walked walked(tag(version, 0x40, header + titleOne + artistTwo));
    QCOMPARE(walked.frames.framesStart(), 10 + header.size());
    QVERIFY(walked.frames.endsInPadding());
    QCOMPARE(walked.start("TIT2"), 10 + header.size());
    QCOMPARE(walked.content("TPE1"), bytes("\0Two"));
}

void TestId3Frames::takesTheFlagWithoutAnExtendedHeader()
{
    for (const int version : {3, 4}) {
        const Walked walked(tag(version, 0x40, titleOne + artistTwo));
        QCOMPARE(walked.frames.framesStart(), 10);
        QVERIFY(walked.frames.endsInPadding());
        QCOMPARE(walked.start("TPE1"), 24);
        const Walked empty(tag(version, 0x40, QByteArray(20, '\0')));
        QCOMPARE(empty.frames.framesEnd(), 10);
        QVERIFY(empty.frames.endsInPadding());
    }
}

void TestId3Frames::searchesAfterAnInvalidExtendedHeader_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("2.3, no size") << 3 << bytes("\0\0\0\0");
    QTest::newRow("2.3, too short") << 3
                                    << bytes("\0\0\0\5"
                                             "\0\0\0\0\0");
    QTest::newRow("2.3, into a frame") << 3
                                       << bytes("\0\0\0\7"
                                                "\0\0\0\0\0\0");
    QTest::newRow("2.3, after the tag") << 3
                                        << bytes("\0\0\0\x60"
                                                 "\0\0\0\0\0\0");
    QTest::newRow("2.4, no size of 7 bits a byte") << 4
                                                   << bytes("\0\0\0\x86"
                                                            "\1\0");
    QTest::newRow("2.4, too short") << 4
                                    << bytes("\0\0\0\5"
                                             "\1");
    QTest::newRow("2.4, after the tag") << 4
                                        << bytes("\0\0\0\x60"
                                                 "\1\0");
}

void TestId3Frames::searchesAfterAnInvalidExtendedHeader()
{
    QFETCH(const int, version);
    QFETCH(const QByteArray, header);
    const Walked walked(tag(version, 0x40, header + titleOne + artistTwo));
    QVERIFY(walked.frames.isUnknown());
    QCOMPARE(walked.start("TIT2"), 10 + header.size());
    QCOMPARE(walked.content("TPE1"), bytes("\0Two"));
}

void TestId3Frames::acceptsNamesOfThreeLetters()
{
    const Walked walked(tag(3, 0,
                            bytes("TT2\0"
                                  "\0\0\0\2"
                                  "\0\0"
                                  "\0x"
                                  "TP1 "
                                  "\0\0\0\2"
                                  "\0\0"
                                  "\0y") +
                                titleOne));
    QVERIFY(walked.frames.endsInPadding());
    QCOMPARE(walked.start("TIT2"), 10); // accepted as TIT2
    QCOMPARE(walked.start("TPE1"), 22);
    // A space or a zero byte at another place ends the walk.
    const Walked other(tag(3, 0,
                           bytes("TT\0"
                                 "2"
                                 "\0\0\0\2"
                                 "\0\0"
                                 "\0x") +
                               titleOne));
    QVERIFY(!other.frames.isWalked());
    const Walked small(tag(3, 0,
                           bytes("Tit2"
                                 "\0\0\0\2"
                                 "\0\0"
                                 "\0x") +
                               titleOne));
    QVERIFY(small.frames.isWalked()); // the frame with the unknown name was skipped
    QCOMPARE(small.start("TIT2"), 22);
    const Walked astray(tag(3, 0,
                            bytes("Tit2"
                                  "\0\0\0\3"
                                  "\0\0"
                                  "\0x") +
                                titleOne));
    QVERIFY(!astray.frames.isWalked());
}

void TestId3Frames::acceptsEmptyFrames()
{
    const QByteArray empty = bytes("TALB\0\0\0\0\0\0");
    const Walked first(tag(3, 0, empty + titleOne));
    QVERIFY(first.frames.endsInPadding());
    QCOMPARE(first.content("TALB"), QByteArray());
    QCOMPARE(first.start("TIT2"), 20);
    const Walked last(tag(3, 0, titleOne + empty));
    QVERIFY(last.frames.endsInPadding());
    QCOMPARE(last.content("TALB"), QByteArray());
    const Walked padded(tag(3, 0, titleOne + empty + QByteArray(30, '\0')));
    QVERIFY(padded.frames.endsInPadding());
    QCOMPARE(padded.frames.framesEnd(), 34);
}

void TestId3Frames::rejectsAnEmptyFrameThatLeadsNowhere()
{
    const Walked walked(tag(3, 0, artistTwo + bytes("TIT2\0\0\0\0\0\0") + bytes("\0Rest\0x")));
    QVERIFY(!walked.frames.isWalked());
    QCOMPARE(walked.frames.framesEnd(), 24);
    const std::optional<Id3Frame> frame = walked.frames.find(walked.tag, "TIT2", 100);
    QVERIFY(frame->isSearched);
    QCOMPARE(frame->size, 10);
}

void TestId3Frames::endsAtThePadding()
{
    for (const int padding : {1, 9, 10, 11, 500}) {
        const Walked walked(tag(3, 0, titleOne + QByteArray(padding, '\0')));
        QVERIFY(walked.frames.endsInPadding());
        QVERIFY(walked.frames.isWalked());
        QCOMPARE(walked.frames.framesEnd(), 24);
    }
    const Walked empty(tag(4, 0, QByteArray(50, '\0')));
    QVERIFY(empty.frames.endsInPadding());
    QCOMPARE(empty.frames.framesEnd(), 10);
    QCOMPARE(empty.content("TIT2"), QByteArray("none"));
}

void TestId3Frames::searchesJunkAfterThePadding()
{
    const Walked walked(tag(3, 0, titleOne + QByteArray(20, '\0') + artistTwo));
    QVERIFY(!walked.frames.endsInPadding());
    QVERIFY(walked.frames.isWalked());
    QCOMPARE(walked.frames.framesEnd(), 24);
    QCOMPARE(walked.content("TPE1"), bytes("\0Two")); // found by searching for its name
    // Fewer bytes than a frame's header has.
    const Walked rest(tag(3, 0, titleOne + bytes("TPE1\0\0\0\1\0")));
    QVERIFY(rest.frames.isWalked());
    QVERIFY(!rest.frames.endsInPadding());
    QCOMPARE(rest.frames.framesEnd(), 24);
}

void TestId3Frames::searchesAfterABrokenFrame()
{
    const QByteArray priv = bytes("PRIV\0\0\0\x0E\0\0") + bytes("TCON\0\0\0\4\0\0\0Not");
    const QByteArray genre = bytes("TCON\0\0\0\4\0\0\0Yes");
    const Walked walked(
        tag(3, 0, priv + titleOne + bytes("TALB\0\x7F\0\0\0\0") + artistTwo + genre));
    QVERIFY(!walked.frames.isWalked());
    QVERIFY(!walked.frames.isUnknown());
    QCOMPARE(walked.frames.framesEnd(), 48);
    QVERIFY(!walked.frames.find(walked.tag, "TIT2", 200)->isSearched);
    QVERIFY(walked.frames.find(walked.tag, "TPE1", 200)->isSearched);
    QCOMPARE(walked.content("TPE1"), bytes("\0Two"));
    QCOMPARE(walked.content("TCON"), bytes("\0Yes")); // the walked part is not searched
}

void TestId3Frames::searchesEverythingWhenTheFirstFrameIsBroken()
{
    const Walked walked(tag(3, 0, bytes("TALB\xFF\xFF\xFF\xFF\0\0\0x") + titleOne + artistTwo));
    QVERIFY(walked.frames.isUnknown());
    QCOMPARE(walked.content("TIT2"), bytes("\0One"));
    QCOMPARE(walked.content("TPE1"), bytes("\0Two"));
    QCOMPARE(walked.start("TALB"), 10);
    QCOMPARE(walked.frames.find(walked.tag, "TALB", 100)->size, 40); // up to the end of the tag
}

void TestId3Frames::readsATruncatedTag()
{
    const QByteArray whole = tag(3, 0, artistTwo + titleOne + QByteArray(100, '\0'));
    const auto titleOf = [&whole](qsizetype size) {
        const QByteArray cut = whole.first(size);
        const Id3Frames frames(cut, whole.size());
        const std::optional<Id3Frame> frame = frames.find(cut, "TIT2", cut.size());
        return frame ? frames.content(cut, *frame) : QByteArray("none");
    };
    QCOMPARE(titleOf(100), bytes("\0One"));
    QCOMPARE(titleOf(38), bytes("\0One"));
    QCOMPARE(titleOf(37), bytes("\0On"));
    QCOMPARE(titleOf(34), QByteArray());
    QCOMPARE(titleOf(33), QByteArray("none")); // the frame's own header is truncated
    QCOMPARE(titleOf(24), QByteArray("none"));
    QCOMPARE(titleOf(10), QByteArray("none"));
    for (qsizetype size = 10; size < whole.size(); ++size) {
        const Id3Frames frames(whole.first(size), whole.size());
        QVERIFY(frames.isWalked());
        QVERIFY(frames.framesEnd() <= size);
    }
}

BRISEL_TEST(QCoreApplication, TestId3Frames)
#include "tst_id3frames.moc"
