#include "index/index.h"
#include "index/indexrecords.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

/// The head of a container: generation 3 to 5, tempo at 38, title at 138, the markers' byte at 201,
/// artist at 234, genre at 266.
QByteArray container(int generation, char tempo, bool hasMarkers)
{
    QByteArray head = field("_ZB" + QByteArray::number(generation), 512);
    head[38] = tempo;
    head.replace(138, 5, "Title");
    head[201] = hasMarkers ? 1 : 0;
    head.replace(234, 6, "Artist");
    head.replace(266, 5, "Genre");
    return head;
}

} // namespace

/// The last two bytes of a song record: tempo, then flag and type. All bytes are written by hand.
class TestIndexRecords : public QObject
{
    Q_OBJECT

private slots:
    void endsAPathThatIsTooLong();
    void readsSongRecords_data();
    void readsSongRecords();
    void readsOneBitOfTheFlag();
    void writesSongRecords_data();
    void writesSongRecords();
    void indexesContainers_data();
    void indexesContainers();
    void updateKeepsWhatTheSetSays_data();
    void updateKeepsWhatTheSetSays();
};

/// The last byte of the field is always zero.
void TestIndexRecords::endsAPathThatIsTooLong()
{
    SongInfoIndex song;
    song.id = 7;
    song.setPath(QString(50, u'P'));
    song.date = 20091231;
    song.time = 235958;
    QCOMPARE(PathRecord(song).bytes(),
             pathRecord("00000007", QByteArray(45, 'P'), "20091231235958"));
}

void TestIndexRecords::readsSongRecords_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<int>("bpm");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("flag");
    QTest::newRow("MIDI") << QByteArray("7800") << 120 << 0 << 0;
    QTest::newRow("MIDI with markers") << QByteArray("7808") << 120 << 0 << 1;
    QTest::newRow("MP3") << QByteArray("0001") << 0 << 1 << 0;
    QTest::newRow("ZB3") << QByteArray("6402") << 100 << 2 << 0;
    QTest::newRow("ZB3 with markers") << QByteArray("640A") << 100 << 2 << 1;
    QTest::newRow("ZB4") << QByteArray("C803") << 200 << 3 << 0;
    QTest::newRow("ZB4 with markers") << QByteArray("C80B") << 200 << 3 << 1;
    QTest::newRow("ZB5") << QByteArray("FF04") << 255 << 4 << 0;
    QTest::newRow("ZB5 with markers") << QByteArray("FF0C") << 255 << 4 << 1;
}

void TestIndexRecords::readsSongRecords()
{
    QFETCH(QByteArray, end);
    // Songs before and after it, and a title that fills its field.
    const QByteArray title(58, 'T');
    const QByteArray file = songRecord("01010101", "BEFORE", "1109") +
                            songRecord("00000007", title, end.constData()) +
                            songRecord("02020202", "BEHIND", "2205");
    SongRecord record;
    QVERIFY(SongRecord::read(file, 64, record));
    QCOMPARE(record.id, 7U);
    QCOMPARE(record.title, title);
    QTEST(int(record.bpm), "bpm");
    QTEST(int(record.type), "type");
    QTEST(int(record.flag), "flag");
}

/// The field has five bits.
void TestIndexRecords::readsOneBitOfTheFlag()
{
    SongRecord record;
    QVERIFY(SongRecord::read(songRecord("00000000", "T", "78FC"), 0, record));
    QCOMPARE(int(record.type), 4);
    QCOMPARE(int(record.flag), 1);
    QVERIFY(SongRecord::read(songRecord("00000000", "T", "78F4"), 0, record));
    QCOMPARE(int(record.type), 4);
    QCOMPARE(int(record.flag), 0);
}

void TestIndexRecords::writesSongRecords_data()
{
    readsSongRecords_data();
}

void TestIndexRecords::writesSongRecords()
{
    QFETCH(QByteArray, end);
    QFETCH(int, bpm);
    QFETCH(int, type);
    QFETCH(int, flag);
    SongInfoIndex song;
    song.id = 7;
    song.title = QString(58, u'T');
    song.bpm = static_cast<quint8>(bpm);
    song.type = static_cast<quint8>(type);
    song.flag = static_cast<quint8>(flag);
    QCOMPARE(SongRecord(song).bytes(),
             songRecord("00000007", QByteArray(58, 'T'), end.constData()));
}

void TestIndexRecords::indexesContainers_data()
{
    QTest::addColumn<int>("generation");
    QTest::addColumn<bool>("hasMarkers");
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("ZB3") << 3 << false << QByteArray("5A02");
    QTest::newRow("ZB3 with markers") << 3 << true << QByteArray("5A0A");
    QTest::newRow("ZB4") << 4 << false << QByteArray("5A03");
    QTest::newRow("ZB4 with markers") << 4 << true << QByteArray("5A0B");
    QTest::newRow("ZB5") << 5 << false << QByteArray("5A04");
    QTest::newRow("ZB5 with markers") << 5 << true << QByteArray("5A0C");
}

void TestIndexRecords::indexesContainers()
{
    QFETCH(int, generation);
    QFETCH(bool, hasMarkers);
    QFETCH(QByteArray, end);
    const SampleMemory memory;
    memory.write(u"A.ZB%1"_qs.arg(generation), container(generation, 90, hasMarkers));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QByteArray record = songRecord("00000000", "TITLE", end.constData());
    QCOMPARE(memory.read(u"title.id2"_qs), record);
    QCOMPARE(memory.read(u"artist.id2"_qs), groupHeader("00000001", "ARTIST") + record);
    QCOMPARE(memory.read(u"genre.id2"_qs), groupHeader("00000001", "GENRE") + record);
    QCOMPARE(memory.read(u"title3.id2"_qs), QByteArray());
}

void TestIndexRecords::updateKeepsWhatTheSetSays_data()
{
    readsSongRecords_data();
}

/// An unchanged song is not read again: its last bytes come from the old set.
void TestIndexRecords::updateKeepsWhatTheSetSays()
{
    QFETCH(QByteArray, end);
    QFETCH(int, type);
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("Title", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    // The records now have values that the song does not have.
    const QByteArray known = songRecord("00000000", "TITLE", end.constData());
    const QByteArray artist = groupHeader("00000001", "ARTIST");
    const QByteArray genre = groupHeader("00000001", "GENRE");
    for (const QString &suffix :
         type == 1 ? QStringList{QString(), u"3"_qs} : QStringList{QString()}) {
        memory.write(u"title%1.id2"_qs.arg(suffix), known);
        memory.write(u"artist%1.id2"_qs.arg(suffix), artist + known);
        memory.write(u"genre%1.id2"_qs.arg(suffix), genre + known);
        for (const QString &table : {u"atitle"_qs, u"aartist"_qs, u"agenre"_qs})
            memory.write(table + suffix + u".id2"_qs, memory.read(table + u".id2"_qs));
    }
    memory.write(u"fsinfos.id2"_qs,
                 hex(type == 1 ? "010001000100010001000100" : "010001000100000000000000"));
    memory.write(u"NEW.MID"_qs, midiSong("Zero", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    const QByteArray added = songRecord("00000001", "ZERO", "7800");
    QCOMPARE(memory.read(u"title.id2"_qs), known + added);
    QCOMPARE(memory.read(u"artist.id2"_qs), groupHeader("00000002", "ARTIST") + known + added);
    QCOMPARE(memory.read(u"title3.id2"_qs), type == 1 ? known : QByteArray());
}

BRISEL_TEST(QCoreApplication, TestIndexRecords)
#include "tst_indexrecords.moc"
