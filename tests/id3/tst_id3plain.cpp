#include "id3/id3plain.h"
#include "tests/id3/handmadetag.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using HandMade::bytes;
using HandMade::tag;
using HandMade::titleOne;

namespace
{

const QByteArray padding(20, '\0');

} // namespace

class TestId3Plain : public QObject
{
    Q_OBJECT

private slots:
    void keepsAPlainTag();
    void undoesTheSchemeOfTheWholeTag();
    void clearsAFlagThatIsWrong();
    void keepsAPictureUnderAWrongFlag();
    void leavesTheSchemeToFramesOfVersion24();
    void leavesOutTheExtendedHeader();
    void clearsTheFlagWithoutAnExtendedHeader();
    void undoesBothInThatOrder();
    void keepsAnExtendedTagThatCantBeWalked();
    void makesSizesOfVersion24Synchsafe();
    void clearsTheFootersFlag();
    void findsAFooter();
    void givesAPartOfAPart();
    void keepsWhatIsShorterThanAHeader();
};

void TestId3Plain::keepsAPlainTag()
{
    for (const QByteArray &plain :
         {tag(2, 0, bytes("TT2\0\0\4\0One")), tag(3, 0, titleOne + padding),
          tag(4, 0, bytes("TIT2\0\0\1\0\0\0\0") + QByteArray(127, 'x')), tag(3, 0x20, titleOne),
          tag(1, 0xFF, titleOne), tag(3, 0, QByteArray(40, '?'))})
        QCOMPARE(Id3Plain::tag(plain), plain);
}

void TestId3Plain::undoesTheSchemeOfTheWholeTag()
{
    QCOMPARE(Id3Plain::tag(tag(2, 0x80,
                               bytes("TT2\0\0\5"
                                     "\1\xFF\0\xFEL\0") +
                                   padding)),
             tag(2, 0,
                 bytes("TT2\0\0\5"
                       "\1\xFF\xFEL\0") +
                     padding));
    // Also in the frames' headers: a size of 255 is FF 00 in the tag.
    const QByteArray content = '\0' + QByteArray(254, 'x');
    QCOMPARE(Id3Plain::tag(tag(3, 0x80, bytes("TALB\0\0\0\xFF\0\0\0") + content + titleOne)),
             tag(3, 0, bytes("TALB\0\0\0\xFF\0\0") + content + titleOne));
    QCOMPARE(Id3Plain::tag(tag(3, 0xA0, titleOne)), tag(3, 0x20, titleOne));
}

void TestId3Plain::clearsAFlagThatIsWrong()
{
    // With the scheme undone, its frames would lead nowhere.
    const QByteArray says = tag(3, 0x80,
                                bytes("PRIV\0\0\0\4\0\0"
                                      "\xFF\0\xFF\0") +
                                    titleOne + padding);
    QByteArray cleared = says;
    cleared[5] = 0;
    QCOMPARE(Id3Plain::tag(says), cleared);
}

void TestId3Plain::keepsAPictureUnderAWrongFlag()
{
    // With the scheme undone, the picture would take two bytes of the padding, and the tag could be
    // walked too.
    const QByteArray frames = titleOne +
                              bytes("APIC\0\0\0\x0A\0\0"
                                    "\xFF\xD8\xFF\xE0\xFF\0\xFF\0zz") +
                              padding;
    QCOMPARE(Id3Plain::tag(tag(3, 0x80, frames)), tag(3, 0, frames));
}

void TestId3Plain::leavesTheSchemeToFramesOfVersion24()
{
    const QByteArray stored = tag(4, 0x80,
                                  bytes("TIT2\0\0\0\6\0\2"
                                        "\1\xFF\0\xFEL\0") +
                                      padding);
    QCOMPARE(Id3Plain::tag(stored), stored);
}

void TestId3Plain::leavesOutTheExtendedHeader()
{
    const QByteArray body = titleOne + padding;
    QCOMPARE(Id3Plain::tag(tag(3, 0x40, bytes("\0\0\0\6\0\0\0\0\0\0") + body)), tag(3, 0, body));
    QCOMPARE(Id3Plain::tag(tag(3, 0x40, bytes("\0\0\0\x0A\x80\0\0\0\0\0\1\2\3\4") + body)),
             tag(3, 0, body));
    QCOMPARE(Id3Plain::tag(tag(4, 0x40, bytes("\0\0\0\x0C\1\x20\5\1\2\3\4\5") + body)),
             tag(4, 0, body));
}

void TestId3Plain::clearsTheFlagWithoutAnExtendedHeader()
{
    QCOMPARE(Id3Plain::tag(tag(3, 0x40, titleOne + padding)), tag(3, 0, titleOne + padding));
}

void TestId3Plain::undoesBothInThatOrder()
{
    // The extended header is unsynchronised as well: its checksum holds FF E0.
    QCOMPARE(Id3Plain::tag(
                 tag(3, 0xC0,
                     bytes("\0\0\0\x0A\x80\0\0\0\0\0\1\xFF\0\xE0\4") + bytes("TIT2\0\0\0\5\0\0"
                                                                             "\1\xFF\0\xFEL\0"))),
             tag(3, 0,
                 bytes("TIT2\0\0\0\5\0\0"
                       "\1\xFF\xFEL\0")));
}

void TestId3Plain::keepsAnExtendedTagThatCantBeWalked()
{
    const QByteArray stored = tag(3, 0x40, bytes("\0\0\0\7\0\0\0\0\0\0") + titleOne);
    QCOMPARE(Id3Plain::tag(stored), stored);
}

void TestId3Plain::makesSizesOfVersion24Synchsafe()
{
    const QByteArray content = bytes("\0\0\0") + QByteArray(199, 'x');
    QCOMPARE(Id3Plain::tag(tag(4, 0, bytes("TALB\0\0\0\xC8") + content + titleOne)),
             tag(4, 0, bytes("TALB\0\0\1\x48") + content + titleOne));
}

void TestId3Plain::clearsTheFootersFlag()
{
    QCOMPARE(Id3Plain::tag(tag(4, 0x10, titleOne)), tag(4, 0, titleOne));
    QCOMPARE(Id3Plain::tag(tag(3, 0x10, titleOne)), tag(3, 0x10, titleOne)); // there is no footer
}

void TestId3Plain::findsAFooter()
{
    const QByteArray stored = tag(4, 0x10, titleOne);
    const QByteArray footer = "3DI" + stored.sliced(3, 7);
    QCOMPARE(Id3Plain::footerSize(stored + footer + "audio"), 10);
    QCOMPARE(Id3Plain::footerSize(stored + "audio"), 0);
    QCOMPARE(Id3Plain::footerSize(stored), 0);
    QCOMPARE(Id3Plain::footerSize(tag(4, 0, titleOne) + footer), 0);
    QCOMPARE(Id3Plain::footerSize(tag(3, 0x10, titleOne) + footer), 0);
    QCOMPARE(Id3Plain::footerSize(stored.first(20)), 0);
}

void TestId3Plain::givesAPartOfAPart()
{
    const QByteArray whole = tag(3, 0xC0,
                                 bytes("\0\0\0\6\0\0\0\0\0\0") +
                                     bytes("TIT2\0\0\0\5\0\0"
                                           "\1\xFF\0\xFEL\0") +
                                     QByteArray(50, '\0'));
    const QByteArray plain = tag(3, 0,
                                 bytes("TIT2\0\0\0\5\0\0"
                                       "\1\xFF\xFEL\0") +
                                     QByteArray(50, '\0'));
    QCOMPARE(Id3Plain::tag(whole), plain);
    QCOMPARE(Id3Plain::tag(whole.first(50)), plain.first(39));
}

void TestId3Plain::keepsWhatIsShorterThanAHeader()
{
    const QByteArray whole = tag(3, 0xC0, {});
    for (int size = 0; size < 10; ++size) {
        QCOMPARE(Id3Plain::tag(whole.first(size)), whole.first(size));
        QCOMPARE(Id3Plain::footerSize(whole.first(size)), 0);
    }
}

BRISEL_TEST(QCoreApplication, TestId3Plain)
#include "tst_id3plain.moc"
