#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

const QDateTime anyMoment(QDate(2009, 12, 31), QTime(23, 59, 58));
const QByteArray anyDigits = "20091231235958";

/// A container that begins with \a magic, with the title "X".
QByteArray container(const QByteArray &magic, const char *bpmHex, const char *flagHex)
{
    return magic + QByteArray(34, '\0') + hex(bpmHex) + QByteArray(99, '\0') + 'X' +
           QByteArray(62, '\0') + hex(flagHex) + QByteArray(98, '\0');
}

/// A MIDI song with the title "X" and tempos in microseconds.
QByteArray midiWithTempos(const QList<const char *> &tempos)
{
    QByteArray events = metaEvent(3, "X");
    for (const char *tempo : tempos)
        events += metaEvent(0x51, hex(tempo));
    return midi(events);
}

/// A song and the last bytes of its record.
struct Pin {
    const char *name;
    const char *file;
    QByteArray content;
    const char *endHex; ///< tempo, then flag and type
};

} // namespace

/// Tempo, type, flag, dates and ids in the records, byte for byte.
class TestRecordBytes : public QObject
{
    Q_OBJECT

private slots:
    void endsSongRecords_data();
    void endsSongRecords();
    void keepsEndsInUpdates_data() { endsSongRecords_data(); }
    void keepsEndsInUpdates();
    void writesDatesAndTimes_data();
    void writesDatesAndTimes();
    void fillsNoGapOfIdsInAnUpdate();
    void givesTheIdOfALastSongAgain();
    void givesIdsThatAPlaylistNamesToNoOtherSong();
    void countsFromZeroInARebuild();
    void countsAboveDeadEntriesInARebuild();

private:
    /// "/A.MID" 0, "/B.MID" 1, "/C.MID" 2, indexed, with one modification time.
    static void indexThree(const SampleMemory &memory);
    static void addSong(const SampleMemory &memory, const QString &name);
    static QByteArray record(const char *idHex, const QByteArray &path)
    {
        return pathRecord(idHex, path, anyDigits);
    }
};

void TestRecordBytes::endsSongRecords_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("end");
    const QByteArray marked = midi(metaEvent(3, "X") + metaEvent(6, "A"));
    const QByteArray tagged = mp3(id3Frame("TIT2", "X"));
    const QList<Pin> pins{
        {"type 0, flag 0", "A.MID", midiWithTempos({}), "0000"},
        {"type 0, flag 1", "A.KAR", marked, "0008"},
        {"type 1, flag 0", "A.MP3", tagged, "0001"},
        {"type 1 has no flag", "A.MP3", tagged + metaEvent(6, "A"), "0001"},
        {"type 1 whatever it holds", "X.MP3", container("_ZB4", "5A", "01"), "0001"},
        {"type 2, flag 0", "A.ZB3", container("_ZB3", "00", "00"), "0002"},
        {"type 2, flag 1", "A.ZB3", container("_ZB3", "00", "01"), "000A"},
        {"type 3, flag 0", "A.ZB4", container("_ZB4", "00", "00"), "0003"},
        {"type 3, flag 1", "A.ZB4", container("_ZB4", "00", "01"), "000B"},
        {"type 4, flag 0", "A.ZB5", container("_ZB5", "00", "00"), "0004"},
        {"type 4, flag 1", "A.ZB5", container("_ZB5", "00", "01"), "000C"},
        {"flag 2 counts as 0", "A.ZB4", container("_ZB4", "00", "02"), "0003"},
        {"type by content", "A.MID", container("_ZB5", "00", "01"), "000C"},
        {"container with bpm", "A.ZB4", container("_ZB4", "5A", "01"), "5A0B"},
        {"container with bpm 255", "A.ZB3", container("_ZB3", "FF", "00"), "FF02"},
        {"MIDI with bpm 120", "A.MID", midiWithTempos({"07A120"}), "7800"},
        {"MIDI with bpm 60", "A.MID", midiWithTempos({"0F4240"}), "3C00"},
        {"MIDI with bpm 255", "A.MID", midiWithTempos({"03970E"}), "FF00"},
        {"MIDI with bpm 266", "A.MID", midiWithTempos({"036EE8"}), "0A00"},
        {"MIDI with the slowest bpm", "A.MID", midiWithTempos({"FFFFFF"}), "0300"},
        {"MIDI with a tempo of 0", "A.MID", midiWithTempos({"000000"}), "0000"},
        {"MIDI with two tempos", "A.MID", midiWithTempos({"0F4240", "07A120"}), "3C00"},
        {"no song at all", "X", "a text", "7800"},
    };
    for (const Pin &pin : pins) {
        const QString file = QString::fromLatin1(pin.file);
        QTest::newRow(pin.name) << (file.contains(u'.') ? file : file + u".MID"_qs) << pin.content
                                << hex(pin.endHex);
    }
}

void TestRecordBytes::endsSongRecords()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, end);
    const SampleMemory memory;
    memory.write(file, content);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    // A song without a title has its file name as title.
    const QByteArray title = file.startsWith(u'X') ? file.toLatin1() : QByteArray("X");
    const QByteArray song = hex("00000000") + field(title, 58) + end;
    QCOMPARE(memory.read(u"title.id2"_qs), song);
    QCOMPARE(memory.read(u"artist.id2"_qs).mid(64), song);
    QCOMPARE(memory.read(u"genre.id2"_qs).mid(64), song);
    QCOMPARE(memory.read(u"title3.id2"_qs), file.endsWith(u".MP3") ? song : QByteArray());
}

/// The records of unchanged songs are made from the old records.
void TestRecordBytes::keepsEndsInUpdates()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, end);
    const SampleMemory memory;
    memory.write(file, content);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"Z.MID"_qs, midiSong("Z", "A", "G"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    const QByteArray titles = memory.read(u"title.id2"_qs);
    QCOMPARE(titles.size(), 2 * 64);
    QCOMPARE(titles.mid(62, 2), end);
}

void TestRecordBytes::writesDatesAndTimes_data()
{
    QTest::addColumn<QDateTime>("moment");
    QTest::addColumn<QByteArray>("digits");
    const auto row = [](const char *digits, const QDate &date, const QTime &time) {
        QTest::newRow(digits) << QDateTime(date, time) << QByteArray(digits);
    };
    row("19700101000000", {1970, 1, 1}, {0, 0, 0});
    row("19800101000000", {1980, 1, 1}, {0, 0, 0});
    row("20000102030405", {2000, 1, 2}, {3, 4, 5});
    row("20120229235959", {2012, 2, 29}, {23, 59, 59});
    row("20380119031408", {2038, 1, 19}, {3, 14, 8});
    row("21071231235958", {2107, 12, 31}, {23, 59, 58});
    // Fractions of a second are dropped.
    row("20090807060504", {2009, 8, 7}, {6, 5, 4, 999});
}

void TestRecordBytes::writesDatesAndTimes()
{
    QFETCH(QDateTime, moment);
    QFETCH(QByteArray, digits);
    const SampleMemory memory;
    addSong(memory, u"A.MID"_qs);
    memory.setDate(u"A.MID"_qs, moment);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), pathRecord("00000000", "/A.MID", digits));
}

void TestRecordBytes::addSong(const SampleMemory &memory, const QString &name)
{
    memory.write(name, midiSong(name.left(1).toLatin1(), "Artist", "Genre"));
    memory.setDate(name, anyMoment);
}

void TestRecordBytes::indexThree(const SampleMemory &memory)
{
    for (const QString &name : {u"A.MID"_qs, u"B.MID"_qs, u"C.MID"_qs})
        addSong(memory, name);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), record("00000000", "/A.MID") +
                                               record("00000001", "/B.MID") +
                                               record("00000002", "/C.MID"));
}

void TestRecordBytes::fillsNoGapOfIdsInAnUpdate()
{
    const SampleMemory memory;
    indexThree(memory);
    memory.remove(u"A.MID"_qs);
    memory.remove(u"C.MID"_qs);
    addSong(memory, u"D.MID"_qs);
    addSong(memory, u"AA.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), record("00000001", "/B.MID") +
                                               record("00000003", "/AA.MID") +
                                               record("00000004", "/D.MID"));
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("010000000200"));
}

/// Only the index has the highest id.
void TestRecordBytes::givesTheIdOfALastSongAgain()
{
    const SampleMemory memory;
    indexThree(memory);
    memory.remove(u"C.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    addSong(memory, u"D.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), record("00000000", "/A.MID") +
                                               record("00000001", "/B.MID") +
                                               record("00000002", "/D.MID"));
}

void TestRecordBytes::givesIdsThatAPlaylistNamesToNoOtherSong()
{
    const SampleMemory memory;
    indexThree(memory);
    const QByteArray dead = songRecord("00000002", "C", "7800");
    memory.write(u"playlist/playlist.dat"_qs, field("\x01", 32));
    memory.write(u"playlist/play0001.dat"_qs, songRecord("00000000", "A", "7800") + dead);
    memory.remove(u"C.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    addSong(memory, u"D.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), record("00000000", "/A.MID") +
                                               record("00000001", "/B.MID") +
                                               record("00000003", "/D.MID"));
}

void TestRecordBytes::countsFromZeroInARebuild()
{
    const SampleMemory memory;
    indexThree(memory);
    memory.remove(u"A.MID"_qs);
    addSong(memory, u"D.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), record("00000000", "/B.MID") +
                                               record("00000001", "/C.MID") +
                                               record("00000002", "/D.MID"));
}

void TestRecordBytes::countsAboveDeadEntriesInARebuild()
{
    const SampleMemory memory;
    indexThree(memory);
    const QByteArray dead = songRecord("00000001", "B", "7800");
    memory.write(u"playlist/playlist.dat"_qs, field("\x01", 32));
    memory.write(u"playlist/play0001.dat"_qs, dead);
    memory.remove(u"B.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs),
             record("00000002", "/A.MID") + record("00000003", "/C.MID"));
    QCOMPARE(memory.read(u"playlist/play0001.dat"_qs), dead);
    // An id that no song would get changes nothing.
    memory.write(u"playlist/play0001.dat"_qs, songRecord("00000009", "B", "7800"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs),
             record("00000000", "/A.MID") + record("00000001", "/C.MID"));
}

BRISEL_TEST(QCoreApplication, TestRecordBytes)
#include "tst_recordbytes.moc"
