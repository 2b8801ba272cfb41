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

/// Finding frames in a walked tag, and the frames that are written into it.
class TestId3Content : public QObject
{
    Q_OBJECT

private slots:
    void findsNoNameInsideAFrame_data();
    void findsNoNameInsideAFrame();
    void findsTheFirstOfAName();
    void findsNamesThatLieBeforeTheLimit();
    void leavesOutWhatFlagsAdd_data();
    void leavesOutWhatFlagsAdd();
    void readsNoCompressedOrEncryptedText();
    void makesFramesOfTheTagsVersion();
    void makesSizesSynchsafe();
};

void TestId3Content::findsNoNameInsideAFrame_data()
{
    QTest::addColumn<QByteArray>("frame");
    const QByteArray inner = bytes("TIT2\0\0\0\4\0\0\0Not"); // 14 bytes
    QTest::newRow("PRIV") << bytes("PRIV\0\0\0\x14\0\0"
                                   "owner\0") +
                                 inner;
    QTest::newRow("TXXX") << bytes("TXXX\0\0\0\x14\0\0"
                                   "\0name\0") +
                                 inner;
    QTest::newRow("CHAP") << bytes("CHAP\0\0\0\x21\0\0"
                                   "c1\0"
                                   "\0\0\0\0\0\0\x27\x10"
                                   "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF") +
                                 inner;
    QTest::newRow("APIC") << bytes("APIC\0\0\0\x1B\0\0"
                                   "\0image/png\0\3\0") +
                                 inner;
}

void TestId3Content::findsNoNameInsideAFrame()
{
    QFETCH(const QByteArray, frame);
    for (const int version : {3, 4}) {
        const Walked before(tag(version, 0, frame + artistTwo));
        QVERIFY(before.frames.endsInPadding());
        QCOMPARE(before.start("TIT2"), -1);
        QCOMPARE(before.start("TPE1"), 10 + frame.size());
        const Walked behind(tag(version, 0, frame + titleOne));
        QCOMPARE(behind.content("TIT2"), bytes("\0One"));
    }
}

void TestId3Content::findsTheFirstOfAName()
{
    const Walked walked(tag(3, 0, artistTwo + titleOne + bytes("TIT2\0\0\0\4\0\0\0Six")));
    QCOMPARE(walked.content("TIT2"), bytes("\0One"));
    QCOMPARE(walked.start("TIT2"), 24);
}

void TestId3Content::findsNamesThatLieBeforeTheLimit()
{
    const auto isFound = [](const QByteArray &tag, qsizetype limit) {
        return Id3Frames(tag, tag.size()).find(tag, "TIT2", limit).has_value();
    };
    const QByteArray walked = tag(3, 0, artistTwo + titleOne);
    QVERIFY(isFound(walked, 28));
    QVERIFY(!isFound(walked, 27));
    const QByteArray ofVersion22 = tag(2, 0, bytes("TT2\0\0\2\0x"));
    QVERIFY(isFound(ofVersion22, 13));
    QVERIFY(!isFound(ofVersion22, 12));
    const QByteArray searched = tag(1, 0, artistTwo + titleOne);
    QVERIFY(isFound(searched, 28));
    QVERIFY(!isFound(searched, 27));
}

void TestId3Content::leavesOutWhatFlagsAdd_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("tagFlags");
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("2.3 grouped") << 3 << 0
                                 << bytes("TIT2\0\0\0\4\0\x20"
                                          "G\0La")
                                 << bytes("\0La");
    QTest::newRow("2.4 grouped") << 4 << 0
                                 << bytes("TIT2\0\0\0\4\0\x40"
                                          "G\0La")
                                 << bytes("\0La");
    QTest::newRow("2.4 length") << 4 << 0
                                << bytes("TIT2\0\0\0\7\0\1"
                                         "\0\0\0\3"
                                         "\0La")
                                << bytes("\0La");
    QTest::newRow("2.4 grouped, length") << 4 << 0
                                         << bytes("TIT2\0\0\0\x08\0\x41"
                                                  "G"
                                                  "\0\0\0\3"
                                                  "\0La")
                                         << bytes("\0La");
    QTest::newRow("2.4 unsynchronised") << 4 << 0
                                        << bytes("TIT2\0\0\0\6\0\2"
                                                 "\1\xFF\0\xFEL\0")
                                        << bytes("\1\xFF\xFEL\0");
    QTest::newRow("2.4 unsynchronised, length") << 4 << 0
                                                << bytes("TIT2\0\0\0\x0A\0\3"
                                                         "\0\0\0\5"
                                                         "\1\xFF\0\xFEL\0")
                                                << bytes("\1\xFF\xFEL\0");
    QTest::newRow("2.4, said by the tag alone") << 4 << 0x80
                                                << bytes("TIT2\0\0\0\6\0\0"
                                                         "\1\xFF\0\xFEL\0")
                                                << bytes("\1\xFF\xFEL\0");
    QTest::newRow("2.4, said without cause") << 4 << 0x80
                                             << bytes("TIT2\0\0\0\7\0\2"
                                                      "\1\xFF\xFE\xFF\0L\0")
                                             << bytes("\1\xFF\xFE\xFF\0L\0");
    QTest::newRow("2.3, flags of 2.4") << 3 << 0
                                       << bytes("TIT2\0\0\0\4\0\3"
                                                "\0\xFF\0L")
                                       << bytes("\0\xFF\0L");
    QTest::newRow("nothing after the added bytes") << 4 << 0
                                                   << bytes("TIT2\0\0\0\3\0\1"
                                                            "\0\0\0")
                                                   << QByteArray();
}

void TestId3Content::leavesOutWhatFlagsAdd()
{
    QFETCH(const int, version);
    QFETCH(const int, tagFlags);
    QFETCH(const QByteArray, frame);
    QFETCH(const QByteArray, content);
    const Walked walked(tag(version, tagFlags, frame + artistTwo));
    QVERIFY(walked.frames.endsInPadding());
    QCOMPARE(walked.content("TIT2"), content);
    QCOMPARE(walked.content("TPE1"), bytes("\0Two"));
}

void TestId3Content::readsNoCompressedOrEncryptedText()
{
    for (const int flag : {0x80, 0x40}) {
        QByteArray frame = titleOne;
        frame[9] = static_cast<char>(flag);
        QCOMPARE(Walked(tag(3, 0, frame + artistTwo)).content("TIT2"), QByteArray());
    }
    for (const int flag : {0x08, 0x04}) {
        QByteArray frame = titleOne;
        frame[9] = static_cast<char>(flag);
        QCOMPARE(Walked(tag(4, 0, frame + artistTwo)).content("TIT2"), QByteArray());
    }
}

void TestId3Content::makesFramesOfTheTagsVersion()
{
    const QByteArray content = '\0' + QByteArray(199, 'x');
    const auto made = [&content](const QByteArray &tag, const char *id) {
        return Id3Frames(tag, tag.size()).frame(id, content);
    };
    QCOMPARE(made(tag(2, 0, {}), "TIT2"), bytes("TT2\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TPE1"), bytes("TP1\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TCOM"), bytes("TCM\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TCON"), bytes("TCO\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TKEY"), bytes("TKE\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TLEN"), bytes("TLE\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TBPM"), bytes("TBP\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TCOP"), bytes("TCR\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "MEDT"), bytes("MED\0\0\xC8") + content);
    QCOMPARE(made(tag(2, 0, {}), "TPUB"), QByteArray());
    QCOMPARE(made(tag(3, 0, {}), "TIT2"), bytes("TIT2\0\0\0\xC8\0\0") + content);
    QCOMPARE(made(tag(4, 0, {}), "TIT2"), bytes("TIT2\0\0\1\x48\0\0") + content);
    QCOMPARE(made(tag(4, 0, frameOf200("TALB", bytes("\0\0\0\xC8"))), "TIT2"),
             bytes("TIT2\0\0\0\xC8\0\0") + content);
    // Frame names of version 2.3 in a tag that claims to be of version 2.2.
    QCOMPARE(made(tag(2, 0, titleOne), "TIT2"), bytes("TIT2\0\0\0\xC8\0\0") + content);
}

void TestId3Content::makesSizesSynchsafe()
{
    const QByteArray padding(30, '\0');
    Walked walked(tag(4, 0, frameOf200("TALB", bytes("\0\0\0\xC8")) + titleOne + padding));
    walked.frames.makeSizesSynchsafe(walked.tag);
    const QByteArray synchsafe =
        tag(4, 0, frameOf200("TALB", bytes("\0\0\1\x48")) + titleOne + padding);
    QCOMPARE(walked.tag, synchsafe);
    Walked again(synchsafe);
    again.frames.makeSizesSynchsafe(again.tag);
    QCOMPARE(again.tag, synchsafe);
    const QByteArray broken =
        tag(4, 0, frameOf200("TALB", bytes("\0\0\0\xC8")) + "junk" + titleOne);
    Walked kept(broken);
    kept.frames.makeSizesSynchsafe(kept.tag);
    QCOMPARE(kept.tag, broken);
}

BRISEL_TEST(QCoreApplication, TestId3Content)
#include "tst_id3content.moc"
