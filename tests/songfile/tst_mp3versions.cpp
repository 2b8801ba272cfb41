#include "tests/id3/handmadetag.h"
#include "tests/songfile/loadedtag.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using HandMade::bytes;
using HandMade::tag;

namespace
{

const QString omega = u"\u03A9 x"_s; // not in Latin-1

const QByteArray albumOf22 = bytes("TAL\0\0\2\0A");
const QByteArray albumOf23 = bytes("TALB\0\0\0\2\0\0\0A");

} // namespace

/// Changes of tags of each version and form, against bytes written out by hand.
class TestMp3Versions : public QObject
{
    Q_OBJECT

private slots:
    void writesFramesOfVersion22();
    void writesFramesOfVersion23();
    void writesFramesOfVersion24();
    void keepsWhatIsNotChanged_data();
    void keepsWhatIsNotChanged();
    void leavesOutTheExtendedHeader();
    void leavesOutTheFooter();
    void undoesTheSchemeOfTheWholeTag();
    void makesSizesOfVersion24Synchsafe();
    void writesLongTextsOfVersion24WithSynchsafeSizes();
    void writesUtf8IntoAnUnsynchronisedTag();
    void changesFramesOfVersion23InATagOfVersion22();
    void putsFramesAfterTheExtendedHeaderOfABrokenTag();
    void setsATextWhereTheExtendedHeaderWasCut();
    void readsSizesOfABrokenTagAlikeAfterAChange();
    void leavesNestedFramesAlone();
    void replacesACompressedFrame();
    void loadsATagAgain();
};

void TestMp3Versions::writesFramesOfVersion22()
{
    Mp3Header header = loadedTag(tag(2, 0, bytes("TT2\0\0\4\0Old") + albumOf22));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(2, 0, bytes("TT2\0\0\3\0La") + albumOf22));
    header.setTitle(omega);
    QCOMPARE(header.stream(), tag(2, 0, bytes("TT2\0\0\x09\1\xFF\xFE\xA9\x03 \0x\0") + albumOf22));
    QCOMPARE(header.title(), omega);
    header.setTitle(QString());
    header.setLength(2);
    header.setUserBpm(97);
    header.setBriselEditParam();
    QCOMPARE(header.stream(), tag(2, 0,
                                  bytes("MED\0\0\4\0\0\0\0"
                                        "TBP\0\0\3\0"
                                        "97"
                                        "TLE\0\0\5\0"
                                        "2000") +
                                      albumOf22));
    QVERIFY(header.hasBriselEditParam());
    QCOMPARE(header.length(), 2);
}

void TestMp3Versions::writesFramesOfVersion23()
{
    Mp3Header header = loadedTag(tag(3, 0, bytes("TIT2\0\0\0\4\0\0\0Old") + albumOf23));
    header.setTitle(u"Citt\u00E0"_s);
    QCOMPARE(header.stream(), tag(3, 0, bytes("TIT2\0\0\0\6\0\0\0Citt\xE0") + albumOf23));
    header.setTitle(omega);
    QCOMPARE(header.stream(),
             tag(3, 0, bytes("TIT2\0\0\0\x09\0\0\1\xFF\xFE\xA9\x03 \0x\0") + albumOf23));
    QCOMPARE(header.title(), omega);
}

void TestMp3Versions::writesFramesOfVersion24()
{
    Mp3Header header = loadedTag(tag(4, 0, bytes("TIT2\0\0\0\4\0\0\0Old") + albumOf23));
    header.setTitle(u"Citt\u00E0"_s);
    QCOMPARE(header.stream(), tag(4, 0, bytes("TIT2\0\0\0\6\0\0\0Citt\xE0") + albumOf23));
    header.setTitle(omega);
    QCOMPARE(header.stream(), tag(4, 0, bytes("TIT2\0\0\0\5\0\0\3\xCE\xA9 x") + albumOf23));
    QCOMPARE(header.title(), omega);
}

void TestMp3Versions::keepsWhatIsNotChanged_data()
{
    QTest::addColumn<QByteArray>("stored");
    const QByteArray title = bytes("TIT2\0\0\0\6\0\2"
                                   "\1\xFF\0\xFEL\0");
    const QByteArray padding(30, '\0');
    QTest::newRow("2.2") << tag(2, 0x80, bytes("TT2\0\0\5\1\xFF\0\xFEL\0") + padding);
    QTest::newRow("2.3") << tag(3, 0xC0, bytes("\0\0\0\6\0\0\0\0\0\0") + albumOf23 + padding);
    QTest::newRow("2.4") << tag(4, 0x80, title + padding);
    QTest::newRow("2.4 extended") << tag(4, 0x40, bytes("\0\0\0\6\1\0") + title + padding);
    const QByteArray ending = tag(4, 0x10, title);
    QTest::newRow("2.4 with a footer") << ending + "3DI" + ending.sliced(3, 7);
    QTest::newRow("2.4 with plain sizes")
        << tag(4, 0, bytes("TALB\0\0\0\xC8\0\0\0") + QByteArray(199, 'x') + title);
    QTest::newRow("2.2 compressed") << tag(2, 0x40, QByteArray(40, 'x'));
    QTest::newRow("2.9") << tag(9, 0xFF, title + padding);
    QTest::newRow("broken") << tag(3, 0, title + "junk" + title);
}

void TestMp3Versions::keepsWhatIsNotChanged()
{
    QFETCH(const QByteArray, stored);
    Mp3Header header = loadedTag(stored + Samples::audio(60));
    QCOMPARE(header.stream(), stored);
    QCOMPARE(header.getAudioDataStartPos(), static_cast<unsigned>(stored.size()));
    header.removeId3Frame(u"TBPM"_s); // the tag has no such frame
    QCOMPARE(header.stream(), stored);
}

void TestMp3Versions::leavesOutTheExtendedHeader()
{
    Mp3Header header = loadedTag(
        tag(3, 0x40, bytes("\0\0\0\x0A\x80\0\0\0\0\5\1\2\3\4") + albumOf23 + QByteArray(5, '\0')));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(3, 0, bytes("TIT2\0\0\0\3\0\0\0La") + albumOf23));
    header = loadedTag(tag(4, 0x40, bytes("\0\0\0\x0C\1\x20\5\1\2\3\4\5") + albumOf23));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(4, 0, bytes("TIT2\0\0\0\3\0\0\0La") + albumOf23));
}

void TestMp3Versions::leavesOutTheFooter()
{
    const QByteArray stored = tag(4, 0x10, albumOf23);
    Mp3Header header = loadedTag(stored + "3DI" + stored.sliced(3, 7) + Samples::audio(60));
    QCOMPARE(header.getAudioDataStartPos(), 32U);
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(4, 0, bytes("TIT2\0\0\0\3\0\0\0La") + albumOf23));
    QCOMPARE(header.getAudioDataStartPos(), 32U); // in the file, which still has the footer
    header.noteSaved();
    QCOMPARE(header.getAudioDataStartPos(), 35U);
    // The flag is set, but there is no footer.
    header = loadedTag(stored + Samples::audio(60));
    QCOMPARE(header.stream(), stored);
    QCOMPARE(header.getAudioDataStartPos(), 22U);
}

void TestMp3Versions::undoesTheSchemeOfTheWholeTag()
{
    const QByteArray picture22 = bytes("PIC\0\0\x0A\0JPG\3\0\xFF\xD8\xFF\xE0");
    const QByteArray stored22 = bytes("PIC\0\0\x0A\0JPG\3\0\xFF\xD8\xFF\0\xE0");
    Mp3Header header = loadedTag(tag(2, 0x80, stored22));
    header.setTitle(u"\u00FF\u00FE"_s);
    QCOMPARE(header.stream(), tag(2, 0, bytes("TT2\0\0\3\0\xFF\xFE") + picture22));
    const QByteArray priv = bytes("PRIV\0\0\0\5\0\0x\0\xFF\0\xFF");
    const QByteArray storedPriv = bytes("PRIV\0\0\0\5\0\0x\0\xFF\0\0\xFF\0");
    header = loadedTag(tag(3, 0x80, storedPriv));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(3, 0, bytes("TIT2\0\0\0\3\0\0\0La") + priv));
}

void TestMp3Versions::makesSizesOfVersion24Synchsafe()
{
    const QByteArray content = bytes("\0\0\0") + QByteArray(199, 'x');
    Mp3Header header = loadedTag(tag(4, 0, bytes("TALB\0\0\0\xC8") + content));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(),
             tag(4, 0, bytes("TIT2\0\0\0\3\0\0\0La") + bytes("TALB\0\0\1\x48") + content));
}

void TestMp3Versions::writesLongTextsOfVersion24WithSynchsafeSizes()
{
    const QByteArray text(199, 'x');
    Mp3Header header = loadedTag(tag(4, 0, albumOf23));
    header.setTitle(QString::fromLatin1(text));
    QCOMPARE(header.stream(), tag(4, 0, bytes("TIT2\0\0\1\x48\0\0\0") + text + albumOf23));
    QCOMPARE(header.title(), QString::fromLatin1(text));
    header = loadedTag(tag(3, 0, albumOf23));
    header.setTitle(QString::fromLatin1(text));
    QCOMPARE(header.stream(), tag(3, 0, bytes("TIT2\0\0\0\xC8\0\0\0") + text + albumOf23));
}

void TestMp3Versions::writesUtf8IntoAnUnsynchronisedTag()
{
    Mp3Header header = loadedTag(tag(4, 0x80, albumOf23));
    header.setTitle(u"\u00FF\u00FE"_s);
    QCOMPARE(header.stream(),
             tag(4, 0x80, bytes("TIT2\0\0\0\5\0\0\3\xC3\xBF\xC3\xBE") + albumOf23));
    QCOMPARE(header.title(), u"\u00FF\u00FE"_s);
    header.setTitle(u"\u00FE"_s);
    QCOMPARE(header.stream(), tag(4, 0x80, bytes("TIT2\0\0\0\2\0\0\0\xFE") + albumOf23));
    header = loadedTag(tag(4, 0, albumOf23));
    header.setTitle(u"\u00FF\u00FE"_s);
    QCOMPARE(header.stream(), tag(4, 0, bytes("TIT2\0\0\0\3\0\0\0\xFF\xFE") + albumOf23));
}

void TestMp3Versions::changesFramesOfVersion23InATagOfVersion22()
{
    // Earlier versions of this program left such tags.
    const QByteArray mark = bytes("MEDT\0\0\0\4\0\0\0\0\0\0");
    const QByteArray artist = bytes("TPE1\0\0\0\3\0\0\0Io");
    Mp3Header header =
        loadedTag(tag(2, 0, mark + bytes("TIT2\0\0\0\4\0\0\0Old") + artist + albumOf22));
    QVERIFY(header.hasBriselEditParam());
    QCOMPARE(header.title(), u"Old"_s);
    QCOMPARE(header.artist(), u"Io"_s);
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(2, 0, bytes("TIT2\0\0\0\3\0\0\0La") + mark + artist + albumOf22));
    QCOMPARE(header.title(), u"La"_s);
}

void TestMp3Versions::putsFramesAfterTheExtendedHeaderOfABrokenTag()
{
    const QByteArray extended = bytes("\0\0\0\6\0\0\0\0\0\0");
    Mp3Header header = loadedTag(tag(3, 0x40, extended + "junk" + albumOf23));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(),
             tag(3, 0x40, extended + bytes("TIT2\0\0\0\3\0\0\0La") + "junk" + albumOf23));
    QCOMPARE(header.title(), u"La"_s);
}

void TestMp3Versions::setsATextWhereTheExtendedHeaderWasCut()
{
    // The search finds the frame inside the header of six bytes, and its removal ends the tag at
    // that place.
    Mp3Header header = loadedTag(tag(3, 0x40, bytes("\0\0\0\6\0TPE1\1\1\1\1\0\0\0Io!!")));
    QCOMPARE(header.artist(), u"Io!!"_s);
    header.setArtist(u"Tu"_s);
    QCOMPARE(header.artist(), u"Tu"_s);
    QCOMPARE(header.stream(), tag(3, 0x40, bytes("\0\0\0\6\0TPE1\0\0\0\3\0\0\0Tu")));
}

void TestMp3Versions::readsSizesOfABrokenTagAlikeAfterAChange()
{
    // The new frame's size is 00 00 01 48, which as a plain size leads to the frames after the
    // junk.
    Mp3Header header = loadedTag(tag(4, 0, QByteArray(128, '?') + albumOf23 + albumOf23));
    const QString text(199, u'x');
    header.setArtist(text);
    QCOMPARE(header.artist(), text);
    header.setArtist(QString());
    QCOMPARE(header.stream(), tag(4, 0, QByteArray(128, '?') + albumOf23 + albumOf23));
}

void TestMp3Versions::leavesNestedFramesAlone()
{
    const QByteArray chapter = bytes("CHAP\0\0\0\x21\0\0"
                                     "c1\0"
                                     "\0\0\0\0\0\0\x27\x10"
                                     "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                                     "TIT2\0\0\0\4\0\0\0One");
    for (const int version : {3, 4}) {
        Mp3Header header = loadedTag(tag(version, 0, chapter + albumOf23));
        QVERIFY(!header.hasTitle());
        header.setTitle(u"La"_s);
        QCOMPARE(header.stream(),
                 tag(version, 0, bytes("TIT2\0\0\0\3\0\0\0La") + chapter + albumOf23));
        header.setTitle(QString());
        QCOMPARE(header.stream(), tag(version, 0, chapter + albumOf23));
    }
}

void TestMp3Versions::replacesACompressedFrame()
{
    Mp3Header header = loadedTag(tag(3, 0, bytes("TCON\0\0\0\6\0\x80\0\0\0\3xx") + albumOf23));
    QVERIFY(header.hasGenre());
    QCOMPARE(header.genre(), QString());
    header.setGenre(u"Polka"_s);
    QCOMPARE(header.stream(), tag(3, 0, bytes("TCON\0\0\0\6\0\0\0Polka") + albumOf23));
}

void TestMp3Versions::loadsATagAgain()
{
    Mp3Header header = loadedTag(tag(2, 0, albumOf22));
    header.setTitle(u"La"_s);
    QVERIFY(header.loadHeader(tag(3, 0, albumOf23) + Samples::audio(30)));
    QCOMPARE(header.stream(), tag(3, 0, albumOf23));
    QVERIFY(!header.loadHeader("ID3"));
    QVERIFY(header.stream().isEmpty());
}

BRISEL_TEST(QCoreApplication, TestMp3Versions)
#include "tst_mp3versions.moc"
