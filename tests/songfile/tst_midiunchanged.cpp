#include "songfile/rawmidifile.h"
#include "tests/logcapture.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <array>

using namespace brisel;

using namespace Qt::StringLiterals;
using Field = RawMidiFile::Field;
using Samples::bytes;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;

namespace
{

constexpr std::array allFields{Field::Title,  Field::Genre,   Field::Artist, Field::Author,
                               Field::Length, Field::UserBpm, Field::Key};

/// The values of all getters.
SongInfo infoOf(const RawMidiFile &file)
{
    SongInfo info;
    info.title = file.title();
    info.genre = file.genre();
    info.artist = file.artist();
    info.author = file.author();
    info.length = file.length();
    info.userBpm = file.userBpm();
    info.key = file.key();
    return info;
}

/// The fields of a song with \a events that would lose data if the values read were written back.
QList<Field> lostFields(const QByteArray &events)
{
    const RawMidiFile file = loaded(midi(events, 1));
    QList<Field> lost;
    for (const Field field : allFields) {
        if (file.wouldLose(field, infoOf(file)))
            lost.append(field);
    }
    return lost;
}

} // namespace

/// Fields that lose data when the value that was read is written back.
class TestMidiUnchanged : public QObject
{
    Q_OBJECT

private slots:
    void losesNothing_data();
    void losesNothing();
    void losesWhatWasNotRead_data();
    void losesWhatWasNotRead();
    void losesNothingByAChange();
    void losesWhereTheTrackCannotBeWalked();
    void losesNothingWithoutData();
    void leavesTheSongAndTheLogAlone();
};

void TestMidiUnchanged::losesNothing_data()
{
    QTest::addColumn<QByteArray>("events");
    const auto row = [](const char *name, const QByteArray &events) {
        QTest::newRow(name) << events;
    };
    row("no events", {});
    row("one of each", metaEvent(3, "Title\xE9") + kordiaEvent(1, "Pop") + kordiaEvent(2, "Anna") +
                           kordiaEvent(3, "Bea") + kordiaEvent(4, "185") + kordiaEvent(5, "97") +
                           keyEvent("\xFD\x01"));
    row("empty texts", metaEvent(3, {}) + kordiaEvent(1, {}) + kordiaEvent(2, {}));
    row("125 characters",
        metaEvent(3, QByteArray(125, 't')) + kordiaEvent(2, QByteArray(125, 'a')));
    row("zeros as numbers", kordiaEvent(4, "0") + kordiaEvent(5, "0"));
    row("a delta of two bytes", bytes("\x80\0\xFF\x03\x01T"));
    row("blanks around a text", metaEvent(3, " T\xA0") + kordiaEvent(3, "\t Bea "));
    row("only blanks", metaEvent(3, "  ") + kordiaEvent(1, " "));
    row("zero bytes after a text", metaEvent(3, bytes("T \0\0")) + kordiaEvent(2, bytes("A\0")));
    row("zero bytes alone", metaEvent(3, bytes("\0\0")) + kordiaEvent(2, bytes("\0")));
    row("125 characters and blanks", kordiaEvent(2, QByteArray(125, 'a') + ' '));
    row("other digits", kordiaEvent(4, "0185") + kordiaEvent(5, "+97"));
    row("blanks around numbers", kordiaEvent(4, " 185 ") + kordiaEvent(5, bytes("97\0\0")));
    row("empty numbers", kordiaEvent(4, {}) + kordiaEvent(5, " "));
    row("zero bytes after a key", metaEvent(0x59, bytes("\1\0\0")));
    row("read inside another event", metaEvent(1, metaEvent(3, " T ") + keyEvent("\1\0")));
    row("read after a pause", bytes("\x60\xFF\x03\x02T ") + bytes("\x8F\0\xFF\x59\x02\x55\x55"));
    row("read from the text before, and the same",
        metaEvent(1, metaEvent(3, "T")) + metaEvent(3, "T"));
    row("a title later in the song", bytes("\x60\x90\x40\x40") + metaEvent(3, "T"));
}

void TestMidiUnchanged::losesNothing()
{
    QFETCH(const QByteArray, events);
    QCOMPARE(lostFields(events), QList<Field>());
}

void TestMidiUnchanged::losesWhatWasNotRead_data()
{
    QTest::addColumn<QByteArray>("events");
    QTest::addColumn<Field>("field");
    const auto row = [](const char *name, Field field, const QByteArray &events) {
        QTest::newRow(name) << events << field;
    };
    row("after a zero", Field::Title, metaEvent(3, bytes("T\0more")));
    row("an artist after a zero", Field::Artist, kordiaEvent(2, bytes("A\0more")));
    row("126 characters", Field::Title, metaEvent(3, QByteArray(126, 't')));
    row("a genre of 126 characters", Field::Genre, kordiaEvent(1, QByteArray(126, 'g')));
    row("200 characters", Field::Title, bytes("\0\xFF\x03\x81\x48") + QByteArray(200, 't'));
    row("after a zero alone", Field::Author, kordiaEvent(3, bytes("\0Bea")));
    row("after a number's zero", Field::Length,
        kordiaEvent(4, bytes("185\0\0"
                             "7")));
    row("a length of two bytes", Field::Title, bytes("\0\xFF\x03\x80\x01T"));
    row("two titles", Field::Title, metaEvent(3, "T") + metaEvent(3, "T"));
    row("two artists", Field::Artist, kordiaEvent(2, "A") + kordiaEvent(2, "B"));
    row("two numbers", Field::Length, kordiaEvent(4, "185") + kordiaEvent(4, "185"));
    row("minutes", Field::Length, kordiaEvent(4, "3:05"));
    row("a fraction", Field::UserBpm, kordiaEvent(5, "120.5"));
    row("a word", Field::UserBpm, kordiaEvent(5, "fast"));
    row("more than a number holds", Field::UserBpm, kordiaEvent(5, "9999999999"));
    row("a negative number", Field::UserBpm, kordiaEvent(5, "-7"));
    row("an unknown key", Field::Key, keyEvent("\x55\x55"));
    row("a key of one byte", Field::Key, metaEvent(0x59, bytes("\1")));
    row("a key of three bytes", Field::Key, metaEvent(0x59, bytes("\1\0\7")));
    row("two keys", Field::Key, keyEvent("\1\0") + keyEvent("\2\0"));
    row("a key later in the song", Field::Key, bytes("\x60\x90\x40\x40") + keyEvent("\1\0"));
    row("read from the text before", Field::Title,
        metaEvent(1, metaEvent(3, "other")) + metaEvent(3, "T"));
}

void TestMidiUnchanged::losesWhatWasNotRead()
{
    QFETCH(const QByteArray, events);
    QFETCH(const Field, field);
    QCOMPARE(lostFields(events), QList<Field>{field});
}

void TestMidiUnchanged::losesNothingByAChange()
{
    const RawMidiFile file =
        loaded(midi(metaEvent(3, bytes("T\0x")) + kordiaEvent(1, bytes("G\0x")) +
                    kordiaEvent(2, bytes("A\0x")) + kordiaEvent(3, bytes("B\0x")) +
                    kordiaEvent(4, "3:05") + kordiaEvent(5, "120.5") + keyEvent("\x55\x55")));
    SongInfo info = infoOf(file);
    for (const Field field : allFields)
        QVERIFY(file.wouldLose(field, info));
    // Other values are changes that the user made.
    info.title += u'x';
    info.genre.clear();
    info.artist = u" A "_s;
    info.author = u"b"_s;
    info.length = 185;
    info.userBpm = 98;
    info.key = u"C"_s;
    for (const Field field : allFields)
        QVERIFY(!file.wouldLose(field, info));
}

void TestMidiUnchanged::losesWhereTheTrackCannotBeWalked()
{
    const QByteArray head = metaEvent(3, "T") + kordiaEvent(4, "185") + keyEvent("\1\0");
    const QByteArray unknown = bytes("\0\xF8");
    QCOMPARE(lostFields(head + unknown), QList<Field>());
    QCOMPARE(lostFields(metaEvent(3, bytes("T\0x")) + unknown), QList<Field>{Field::Title});
    // After the end of the walk, bytes that look like an event may be part of another event.
    QCOMPARE(lostFields(unknown + head), (QList<Field>{Field::Title, Field::Length, Field::Key}));
    QCOMPARE(lostFields(metaEvent(1, metaEvent(3, "T")) + unknown), QList<Field>{Field::Title});
    // After a delta-time above 0, even if the walk finds the event.
    QCOMPARE(lostFields(bytes("\x60\x90\x40\x40") + kordiaEvent(5, "97") + unknown),
             QList<Field>{Field::UserBpm});
    QCOMPARE(lostFields(bytes("\x8F\0\xFF\x59\2\1\0") + unknown), QList<Field>{Field::Key});
    QCOMPARE(lostFields(bytes("\x80\0\xFF\x03\1T") + unknown), QList<Field>{Field::Title});
    // A search takes the next event's delta-time for the type of an event without data.
    QCOMPARE(lostFields(bytes("\0\xFF\x4B\0\2\x90\x40\x40") + unknown),
             QList<Field>{Field::Artist});
    // A length of 0xFD removes one byte, 0xFC removes none.
    QCOMPARE(lostFields(unknown + bytes("\0\xFF\x4B\xFD\x02")), QList<Field>{Field::Artist});
    QCOMPARE(lostFields(unknown + bytes("\0\xFF\x4B\xFC\x02")), QList<Field>());
}

void TestMidiUnchanged::losesNothingWithoutData()
{
    const RawMidiFile file;
    for (const Field field : allFields)
        QVERIFY(!file.wouldLose(field, SongInfo()));
}

void TestMidiUnchanged::leavesTheSongAndTheLogAlone()
{
    const RawMidiFile file = loaded(midi(metaEvent(3, bytes("T\0x")) + keyEvent("\x55\x55")));
    const SongInfo info = infoOf(file);
    const QByteArray before = file.stream();
    LogCapture log;
    QVERIFY(file.wouldLose(Field::Title, info) && file.wouldLose(Field::Key, info));
    QCOMPARE(file.stream(), before);
    QCOMPARE(log.messages(), QStringList());
}

BRISEL_TEST(QCoreApplication, TestMidiUnchanged)
#include "tst_midiunchanged.moc"
