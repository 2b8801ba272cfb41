#include "index/songhead.h"
#include "index/songinfoindex.h"
#include "tests/id3/handmadetag.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using HandMade::artistTwo;
using HandMade::bytes;
using HandMade::tag;
using HandMade::titleOne;

namespace
{

SongInfoIndex indexed(const QByteArray &mp3)
{
    SongInfoIndex song;
    song.absolutePath = u"/Volumes/CARD/x.mp3"_qs;
    SongHead::parse(mp3.left(SongHead::prefixSize), song);
    return song;
}

QString titleOf(const QByteArray &mp3)
{
    return indexed(mp3).title;
}

const QString emptyCity = u"CITT\u00C0 VUOTA"_qs;
const QByteArray city16 = bytes("C\0i\0t\0t\0\xE0\0 \0v\0u\0o\0t\0a\0");

} // namespace

/// What the index reads from ID3v2 tags of every version and form.
class TestSongHeadTags : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryEncoding();
    void readsVersion22();
    void readsAnUnsynchronisedTag();
    void readsATagThatOnlySaysSo();
    void readsABrokenUnsynchronisedTag();
    void readsUnsynchronisedFramesOfVersion24();
    void passesTheExtendedHeader();
    void walksSynchsafeSizes();
    void walksPlainSizesOfVersion24();
    void findsNoFrameInsideAnother();
    void readsFramesThatEndBehindThePrefix();
    void readsNamesInTheFirst512BytesOfThePlainForm();
    void keeps58CharactersOfUtf16();
    void cutsASurrogatePairAtTheLimit();
    void readsNoCompressedFrame();
    void searchesATagOfWrongSize();
    void searchesATagThatCantBeWalked();
    void ignoresFramesBehindTheTag();
    void survivesEveryTruncationOfTags();
};

void TestSongHeadTags::readsABrokenUnsynchronisedTag()
{
    const QByteArray title = bytes("TIT2\0\0\0\x0B\0\0\1\xFF\0\xFE") + bytes("C\0i\0t\0t\0");
    QCOMPARE(titleOf(tag(3, 0x80, title + "junk" + QByteArray(20, '?'))), u"CITT"_qs);
}

void TestSongHeadTags::readsEveryEncoding()
{
    const QByteArray little = bytes("TIT2\0\0\0\x19\0\0\1\xFF\xFE") + city16;
    QCOMPARE(titleOf(tag(3, 0, little)), emptyCity);
    QCOMPARE(titleOf(tag(4, 0, little)), emptyCity);
    const QByteArray big = bytes("\0C\0i\0t\0t\0\xE0\0 \0v\0u\0o\0t\0a");
    QCOMPARE(titleOf(tag(3, 0, bytes("TIT2\0\0\0\x19\0\0\1\xFE\xFF") + big)), emptyCity);
    QCOMPARE(titleOf(tag(4, 0, bytes("TIT2\0\0\0\x17\0\0\2") + big)), emptyCity);
    QCOMPARE(titleOf(tag(4, 0, bytes("TIT2\0\0\0\x0D\0\0\3Citt\xC3\xA0 vuota"))), emptyCity);
    QCOMPARE(titleOf(tag(3, 0, bytes("TIT2\0\0\0\x0C\0\0\0Citt\xE0 vuota"))), emptyCity);
}

void TestSongHeadTags::readsVersion22()
{
    const SongInfoIndex song = indexed(tag(2, 0,
                                           bytes("TAL\0\0\2\0A"
                                                 "TT2\0\0\4\0One"
                                                 "TP1\0\0\7\1\xFF\xFEI\0o\0"
                                                 "TCO\0\0\3\0Go")));
    QCOMPARE(song.title, u"ONE"_qs);
    QCOMPARE(song.artist, u"IO"_qs);
    QCOMPARE(song.genre, u"GO"_qs);
    QCOMPARE(int(song.type), int(SongInfoIndex::Mp3));
}

void TestSongHeadTags::readsAnUnsynchronisedTag()
{
    QByteArray stored = city16;
    stored.prepend(bytes("TIT2\0\0\0\x19\0\0\1\xFF\0\xFE"));
    QCOMPARE(titleOf(tag(3, 0x80, stored)), emptyCity);
    QCOMPARE(titleOf(tag(2, 0x80, bytes("TT2\0\0\7\1\xFF\0\xFEL\0a\0"))), u"LA"_qs);
    // Sizes are those of the decoded frames, not of the stored bytes.
    const QByteArray priv = bytes("PRIV\0\0\0\6\0\0x\0\xFF\0\xFE\xFF\0\xFE");
    QCOMPARE(titleOf(tag(3, 0x80, priv + titleOne)), u"ONE"_qs);
}

void TestSongHeadTags::readsATagThatOnlySaysSo()
{
    const QByteArray priv = bytes("PRIV\0\0\0\6\0\0x\0\xFF\0\xFF\0");
    QCOMPARE(titleOf(tag(3, 0x80, priv + titleOne)), u"ONE"_qs);
}

void TestSongHeadTags::readsUnsynchronisedFramesOfVersion24()
{
    QCOMPARE(titleOf(tag(4, 0x80, bytes("TIT2\0\0\0\x0C\0\3\0\0\0\7\1\xFF\0\xFEL\0a\0"))),
             u"LA"_qs);
}

void TestSongHeadTags::passesTheExtendedHeader()
{
    QCOMPARE(titleOf(tag(3, 0x40, bytes("\0\0\0\6\0\0\0\0\0\0") + titleOne)), u"ONE"_qs);
    QCOMPARE(titleOf(tag(3, 0x40, bytes("\0\0\0\x0A\x80\0\0\0\0\0TIT2") + titleOne)), u"ONE"_qs);
    QCOMPARE(titleOf(tag(4, 0x40, bytes("\0\0\0\x0C\1\x20\5\1TIT2") + titleOne)), u"ONE"_qs);
}

void TestSongHeadTags::walksSynchsafeSizes()
{
    const QByteArray album = HandMade::frameOf200("TALB", bytes("\0\0\1\x48"));
    const SongInfoIndex song = indexed(tag(4, 0, album + artistTwo + titleOne));
    QCOMPARE(song.title, u"ONE"_qs);
    QCOMPARE(song.artist, u"TWO"_qs);
    QCOMPARE(titleOf(tag(4, 0, bytes("TIT2\0\0\1\x48\0\0\3") + QByteArray(199, 'x'))),
             QString(58, u'X'));
}

void TestSongHeadTags::walksPlainSizesOfVersion24()
{
    const QByteArray album = HandMade::frameOf200("TALB", bytes("\0\0\0\xC8"));
    QCOMPARE(titleOf(tag(4, 0, album + titleOne)), u"ONE"_qs);
}

void TestSongHeadTags::findsNoFrameInsideAnother()
{
    const QByteArray priv = bytes("PRIV\0\0\0\x10\0\0x\0"
                                  "TIT2\0\0\0\4\0\0\0Not");
    for (const int version : {3, 4}) {
        QCOMPARE(titleOf(tag(version, 0, priv)), u"X.MP3"_qs);
        QCOMPARE(titleOf(tag(version, 0, priv + titleOne)), u"ONE"_qs);
    }
}

void TestSongHeadTags::readsFramesThatEndBehindThePrefix()
{
    const QByteArray picture = bytes("APIC\0\0\x7F\x7F\0\0") + QByteArray(0x7F7F, 'x');
    const SongInfoIndex song = indexed(tag(3, 0, titleOne + picture + artistTwo));
    QCOMPARE(song.title, u"ONE"_qs);
    QCOMPARE(song.artist, u"<UNKNOWN>"_qs);
}

void TestSongHeadTags::readsNamesInTheFirst512BytesOfThePlainForm()
{
    const auto album = [](int size) {
        return bytes("TALB\0\0\1") + static_cast<char>(size - 256) + bytes("\0\0") +
               QByteArray(size, 'x');
    };
    QCOMPARE(titleOf(tag(3, 0, album(488) + titleOne)), u"ONE"_qs); // from 508 to 511
    QCOMPARE(titleOf(tag(3, 0, album(489) + titleOne)), u"X.MP3"_qs);
    const QByteArray extended = bytes("\0\0\0\6\0\0\0\0\0\0");
    QCOMPARE(titleOf(tag(3, 0x40, extended + album(488) + titleOne)), u"ONE"_qs);
    QCOMPARE(titleOf(tag(3, 0x40, extended + album(489) + titleOne)), u"X.MP3"_qs);
}

void TestSongHeadTags::keeps58CharactersOfUtf16()
{
    QByteArray text;
    for (int i = 0; i < 60; ++i)
        text += bytes("x\0");
    const QString read = titleOf(tag(3, 0, bytes("TIT2\0\0\0\x7B\0\0\1\xFF\xFE") + text));
    QCOMPARE(read, QString(58, u'X'));
    // Two bytes for each character in UTF-8.
    const QString accents =
        titleOf(tag(4, 0, bytes("TIT2\0\0\0\x79\0\0\3") + QByteArray("\xC3\xA8").repeated(60)));
    QCOMPARE(accents, QString(58, u'\u00C8'));
}

void TestSongHeadTags::cutsASurrogatePairAtTheLimit()
{
    const QByteArray note = bytes("\x3C\xD8\xB5\xDF");
    const auto withNoteAt = [&note](int position) {
        QByteArray text;
        for (int i = 0; i < position; ++i)
            text += bytes("x\0");
        const QByteArray content = bytes("\1\xFF\xFE") + text + note;
        return titleOf(
            tag(3, 0,
                bytes("TIT2\0\0\0") + static_cast<char>(content.size()) + bytes("\0\0") + content));
    };
    QCOMPARE(withNoteAt(56), QString(56, u'X') + u"\U0001F3B5"_qs);
    QCOMPARE(withNoteAt(57).left(57), QString(57, u'X'));
    QVERIFY(withNoteAt(57).size() <= 58);
    QCOMPARE(withNoteAt(58), QString(58, u'X'));
}

void TestSongHeadTags::readsNoCompressedFrame()
{
    const SongInfoIndex song =
        indexed(tag(3, 0, bytes("TIT2\0\0\0\7\0\x80\0\0\0\3xxx") + artistTwo));
    QCOMPARE(song.title, u"X.MP3"_qs);
    QCOMPARE(song.artist, u"TWO"_qs);
}

void TestSongHeadTags::searchesATagOfWrongSize()
{
    QByteArray song = tag(3, 0, artistTwo + titleOne) + QByteArray(300, 'x');
    for (const int size : {0, 0x81, 0xFF}) {
        song[9] = static_cast<char>(size);
        QCOMPARE(indexed(song).title, u"ONE"_qs);
        QCOMPARE(indexed(song).artist, u"TWO"_qs);
    }
}

void TestSongHeadTags::searchesATagThatCantBeWalked()
{
    const SongInfoIndex song = indexed(tag(3, 0, artistTwo + "junk" + titleOne));
    QCOMPARE(song.title, u"ONE"_qs);
    QCOMPARE(song.artist, u"TWO"_qs);
    QCOMPARE(titleOf(tag(1, 0, artistTwo + titleOne)), u"ONE"_qs);
    QCOMPARE(titleOf(tag(2, 0, artistTwo + titleOne)), u"ONE"_qs);
}

void TestSongHeadTags::ignoresFramesBehindTheTag()
{
    const SongInfoIndex song = indexed(tag(3, 0, artistTwo) + titleOne);
    QCOMPARE(song.artist, u"TWO"_qs);
    QCOMPARE(song.title, u"X.MP3"_qs);
}

void TestSongHeadTags::survivesEveryTruncationOfTags()
{
    const QByteArray unsynchronised = tag(2, 0x80, bytes("TT2\0\0\7\1\xFF\0\xFEL\0a\0"));
    const QByteArray extended = tag(3, 0x40, bytes("\0\0\0\6\0\0\0\0\0\0") + titleOne + artistTwo);
    const QByteArray plain =
        tag(4, 0x10,
            HandMade::frameOf200("TALB", bytes("\0\0\1\x48")) + titleOne + QByteArray(9, '\0'));
    for (const QByteArray &song : {unsynchronised, extended, plain}) {
        for (qsizetype size = 5; size < song.size(); ++size) {
            QVERIFY(!titleOf(song.first(size)).isEmpty());
            for (const int value : {0, 1, 0x7F, 0x80, 0xFF}) {
                QByteArray spoilt = song;
                spoilt[size] = static_cast<char>(value);
                QVERIFY(!titleOf(spoilt).isEmpty());
            }
        }
    }
}

BRISEL_TEST(QCoreApplication, TestSongHeadTags)
#include "tst_songheadtags.moc"
