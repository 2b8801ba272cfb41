#include "tests/id3/handmadetag.h"
#include "tests/songfile/loadedtag.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using HandMade::bytes;
using HandMade::tag;

namespace
{

using Mp3Field = Mp3Header::Field;

struct TextField {
    const char *id;
    Mp3Field field;
    QString SongInfo::*member;
};
constexpr TextField textFields[] = {{"TIT2", Mp3Field::Title, &SongInfo::title},
                                    {"TPE1", Mp3Field::Artist, &SongInfo::artist},
                                    {"TCOM", Mp3Field::Author, &SongInfo::author},
                                    {"TCON", Mp3Field::Genre, &SongInfo::genre},
                                    {"TKEY", Mp3Field::Key, &SongInfo::key}};

/// A frame called \a id whose second byte of flags is \a format.
QByteArray frameAround(const QByteArray &id, const QByteArray &content, char format = 0)
{
    return id + bytes("\0\0\0") + static_cast<char>(content.size()) + '\0' + format + content;
}

bool losesLength(const QByteArray &text, int seconds)
{
    SongInfo info;
    info.length = seconds;
    return loadedTag(tag(3, 0, frameAround("TLEN", '\0' + text))).wouldLose(Mp3Field::Length, info);
}

bool losesTempo(const QByteArray &text, int bpm)
{
    SongInfo info;
    info.userBpm = bpm;
    return loadedTag(tag(3, 0, frameAround("TBPM", '\0' + text)))
        .wouldLose(Mp3Field::UserBpm, info);
}

} // namespace

/// Cases in which writing back what was read would lose data.
class TestMp3Unchanged : public QObject
{
    Q_OBJECT

private slots:
    void losesWhatAFrameHoldsBesidesItsText_data();
    void losesWhatAFrameHoldsBesidesItsText();
    void losesNothingOfAPlainFrame();
    void losesNothingWithoutAFrame();
    void losesPartsOfASecond();
    void losesPartsOfABeat();
    void looksAtFramesOfVersion22();
    void losesNothingWithoutATag();
};

void TestMp3Unchanged::losesWhatAFrameHoldsBesidesItsText_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    const QString city = u"Citt\u00E0"_s;
    QTest::newRow("several values") << 4 << bytes("\0One\0Two") << 0 << u"One"_s;
    QTest::newRow("bytes after its zero") << 3 << bytes("\0One\0\0x") << 0 << u"One"_s;
    QTest::newRow("blanks alone") << 3 << bytes("\0  ") << 0 << QString();
    QTest::newRow("no text") << 3 << bytes("\0") << 0 << QString();
    QTest::newRow("UTF-16") << 3
                            << bytes("\1\xFF\xFE"
                                     "C\0i\0t\0t\0\xE0\0")
                            << 0 << city;
    QTest::newRow("UTF-16, other order") << 3 << bytes("\1\xFE\xFF\x03\xA9") << 0 << u"\u03A9"_s;
    QTest::newRow("UTF-16BE") << 4 << bytes("\2\0C\0i\0t\0t\0\xE0") << 0 << city;
    QTest::newRow("UTF-8") << 4 << bytes("\3Citt\xC3\xA0") << 0 << city;
    QTest::newRow("several values in UTF-8")
        << 4 << bytes("\3\xCE\xA9\0\xCE\xA9") << 0 << u"\u03A9"_s;
    QTest::newRow("grouped") << 3 << bytes("G\0One") << 0x20 << u"One"_s;
    QTest::newRow("compressed") << 3 << bytes("\0\0\0\4xxxx") << 0x80 << QString();
    QTest::newRow("encrypted") << 4 << bytes("Exxxx") << 0x04 << QString();
}

void TestMp3Unchanged::losesWhatAFrameHoldsBesidesItsText()
{
    QFETCH(const int, version);
    QFETCH(const QByteArray, content);
    QFETCH(const int, format);
    QFETCH(const QString, text);
    for (const TextField &field : textFields) {
        const Mp3Header header =
            loadedTag(tag(version, 0, frameAround(field.id, content, static_cast<char>(format))));
        SongInfo info;
        info.*field.member = text;
        QVERIFY(header.wouldLose(field.field, info));
        info.*field.member = u"Other"_s;
        QVERIFY(!header.wouldLose(field.field, info));
        for (const TextField &other : textFields)
            QVERIFY(!header.wouldLose(other.field, info));
    }
}

void TestMp3Unchanged::losesNothingOfAPlainFrame()
{
    struct Plain {
        int version;
        QByteArray content;
        QString text;
    };
    for (const Plain &plain :
         {Plain{3, bytes("\0Citt\xE0"), u"Citt\u00E0"_s},
          Plain{4, bytes("\0Citt\xE0"), u"Citt\u00E0"_s}, Plain{3, bytes("\0One\0"), u"One"_s},
          Plain{3, bytes("\0 One "), u"One"_s}, Plain{3, bytes("\1\xFF\xFE\xA9\x03"), u"\u03A9"_s},
          Plain{4, bytes("\3\xCE\xA9"), u"\u03A9"_s}}) {
        for (const TextField &field : textFields) {
            SongInfo info;
            info.*field.member = plain.text;
            QVERIFY(!loadedTag(tag(plain.version, 0, frameAround(field.id, plain.content)))
                         .wouldLose(field.field, info));
        }
    }
}

void TestMp3Unchanged::losesNothingWithoutAFrame()
{
    const Mp3Header header = loadedTag(tag(3, 0, frameAround("TALB", bytes("\0A"))));
    for (const Mp3Field field :
         {Mp3Field::Title, Mp3Field::Artist, Mp3Field::Author, Mp3Field::Genre, Mp3Field::Key,
          Mp3Field::Length, Mp3Field::UserBpm})
        QVERIFY(!header.wouldLose(field, SongInfo()));
}

void TestMp3Unchanged::losesPartsOfASecond()
{
    QVERIFY(losesLength("185999", 185));
    QVERIFY(losesLength("999", 0));
    QVERIFY(losesLength("0", 0)); // the frame would be removed
    QVERIFY(losesLength("about three minutes", 0));
    QVERIFY(!losesLength("0185000", 185));
    QVERIFY(!losesLength("185000", 185));
    QVERIFY(!losesLength("185999", 186));
    QVERIFY(!losesLength("185999", 0)); // the user removed it
}

void TestMp3Unchanged::losesPartsOfABeat()
{
    QVERIFY(losesTempo("120.5", 0));
    QVERIFY(losesTempo("0", 0));
    QVERIFY(!losesTempo(" 120", 120));
    QVERIFY(!losesTempo("120", 120));
    QVERIFY(!losesTempo("120.5", 121));
    QVERIFY(!losesTempo("120", 0));
}

void TestMp3Unchanged::looksAtFramesOfVersion22()
{
    SongInfo info;
    info.title = u"One"_s;
    QVERIFY(loadedTag(tag(2, 0, bytes("TT2\0\0\7\0One\0\0x"))).wouldLose(Mp3Field::Title, info));
    QVERIFY(!loadedTag(tag(2, 0, bytes("TT2\0\0\4\0One"))).wouldLose(Mp3Field::Title, info));
    QVERIFY(loadedTag(tag(2, 0x80,
                          bytes("TT2\0\0\x09"
                                "\1\xFF\0\xFEO\0n\0e\0")))
                .wouldLose(Mp3Field::Title, info));
}

void TestMp3Unchanged::losesNothingWithoutATag()
{
    const Mp3Header header;
    QVERIFY(!header.wouldLose(Mp3Field::Title, SongInfo()));
    QVERIFY(!header.wouldLose(Mp3Field::Length, SongInfo()));
}

BRISEL_TEST(QCoreApplication, TestMp3Unchanged)
#include "tst_mp3unchanged.moc"
