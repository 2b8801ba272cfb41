#include "tests/songfile/loadedtag.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::frame;
using Samples::tag;

namespace
{

QByteArray zeros(int count)
{
    return QByteArray(count, '\0');
}

const QByteArray album = frame("TALB", "Album");

} // namespace

/// The zero bytes after the frames when a tag changes.
class TestMp3Padding : public QObject
{
    Q_OBJECT

private slots:
    void growsIntoThePadding();
    void growsWhenThePaddingIsUsedUp();
    void leavesThePaddingWhenFramesShrink();
    void countsFromTheLoadedTag();
    void countsFromTheSavedTag();
    void leavesOutTheExtendedHeaderAndKeepsThePadding();
    void growsBeforeJunkAfterThePadding();
    void growsWithoutPadding();
    void growsATruncatedTag();
};

void TestMp3Padding::growsIntoThePadding()
{
    Mp3Header header = loadedTag(tag(frame("TIT2", "La") + album + zeros(40)));
    const qsizetype size = header.stream().size();
    header.setTitle(u"La la la"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la la") + album + zeros(34)));
    header.setArtist(u"Io"_s);
    QCOMPARE(header.stream(),
             tag(frame("TPE1", "Io") + frame("TIT2", "La la la") + album + zeros(21)));
    header.setBriselEditParam();
    QCOMPARE(header.stream().size(), size);
    QVERIFY(isSizeRight(header));
}

void TestMp3Padding::growsWhenThePaddingIsUsedUp()
{
    Mp3Header header = loadedTag(tag(frame("TIT2", "La") + zeros(5)));
    header.setTitle(u"La la l"_s); // takes all five
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la l")));
    header.setTitle(u"La la la"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la la")));
    header.setArtist(u"Io"_s);
    QCOMPARE(header.stream(), tag(frame("TPE1", "Io") + frame("TIT2", "La la la")));
}

void TestMp3Padding::leavesThePaddingWhenFramesShrink()
{
    Mp3Header header = loadedTag(tag(frame("TIT2", "La la la") + album + zeros(40)));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "La") + album + zeros(40)));
    header.setTitle(QString());
    QCOMPARE(header.stream(), tag(album + zeros(40)));
}

void TestMp3Padding::countsFromTheLoadedTag()
{
    // Undoing a change frees its space; a frame that only moves takes no space.
    Mp3Header header = loadedTag(tag(album + frame("TIT2", "La") + zeros(20)));
    header.setTitle(QString(100, u'x'));
    QCOMPARE(header.stream(), tag(frame("TIT2", QByteArray(100, 'x')) + album));
    header.setTitle(u"La"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "La") + album + zeros(20)));
}

void TestMp3Padding::countsFromTheSavedTag()
{
    Mp3Header header = loadedTag(tag(frame("TIT2", "La") + zeros(20)));
    header.setTitle(u"La la la"_s);
    header.noteSaved();
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la la") + zeros(14)));
    QCOMPARE(header.getAudioDataStartPos(), 43U);
    header.setTitle(u"La"_s); // the tag shrinks, the saved padding stays
    QCOMPARE(header.stream(), tag(frame("TIT2", "La") + zeros(14)));
    QCOMPARE(header.getAudioDataStartPos(), 43U);
    header.noteSaved();
    QCOMPARE(header.getAudioDataStartPos(), 37U);
    header.setTitle(u"La la la"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la la") + zeros(8)));
    header.noteSaved();
    header.noteSaved();
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la la") + zeros(8)));
}

void TestMp3Padding::leavesOutTheExtendedHeaderAndKeepsThePadding()
{
    // Its ten bytes do not become padding.
    QByteArray extended = tag(QByteArray("\0\0\0\6\0\0\0\0\0\x14", 10) + album + zeros(20));
    extended[5] = 0x40;
    Mp3Header header = loadedTag(extended);
    header.setArtist(u"Io"_s);
    QCOMPARE(header.stream(), tag(frame("TPE1", "Io") + album + zeros(7)));
}

void TestMp3Padding::growsBeforeJunkAfterThePadding()
{
    const QByteArray rest = album + zeros(20) + "junk";
    Mp3Header header = loadedTag(tag(rest));
    header.setArtist(u"Io"_s);
    QCOMPARE(header.stream(), tag(frame("TPE1", "Io") + rest));
    header.setArtist(QString());
    QCOMPARE(header.stream(), tag(rest));
}

void TestMp3Padding::growsWithoutPadding()
{
    Mp3Header header = loadedTag(tag(album));
    header.setArtist(u"Io"_s);
    QCOMPARE(header.stream(), tag(frame("TPE1", "Io") + album));
    header.setArtist(QString());
    QCOMPARE(header.stream(), tag(album));
}

void TestMp3Padding::growsATruncatedTag()
{
    // Its size says ten bytes more than the file has; it still does after a change.
    const QByteArray whole = tag(frame("TIT2", "La") + zeros(30));
    Mp3Header header = loadedTag(whole.chopped(10));
    QCOMPARE(header.stream(), whole.chopped(10));
    header.setTitle(u"La la la"_s);
    QCOMPARE(header.stream(), tag(frame("TIT2", "La la la") + zeros(24)).chopped(10));
}

BRISEL_TEST(QCoreApplication, TestMp3Padding)
#include "tst_mp3padding.moc"
