#include "app/startup.h"
#include "base/debugstream.h"
#include "db/database.h"
#include "index/index.h"
#include "index/indexreader.h"
#include "index/indexrecords.h"
#include "index/playlists.h"
#include "library/backuplist.h"
#include "library/lastlist.h"
#include "songfile/fingerprint.h"
#include "songfile/lzhuff.h"
#include "tests/db/localcatalogue.h"
#include "tests/docs/examples.h"
#include "tests/docs/formatpages.h"
#include "tests/docs/tagexamples.h"
#include "tests/index/samplememory.h"
#include "tests/memory/playlistmemory.h"
#include "tests/scriptedindex.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/songs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"
#include "tools/cataloguecsv.h"

#include <QApplication>
#include <QMetaMethod>
#include <QTest>

#include <algorithm>

using namespace brisel;

using namespace Examples;

namespace
{

/// The song "VOLARE" of the pages of the index and of the playlists.
void writeVolare(const SampleMemory &memory)
{
    const QString name = u"BASI/SONG1.MID"_qs;
    memory.write(name, Sample::midiSong("VOLARE", "ANONIMO", "POP"));
    memory.setDate(name, QDateTime(QDate(2009, 12, 31), QTime(23, 59, 58)));
}

/// Indexes \a memory with "VOLARE" after two other songs.
void indexThreeSongs(const SampleMemory &memory)
{
    for (const char *name : {"A", "B"})
        memory.write(QLatin1StringView(name) + u".MID"_qs, Sample::midiSong(name, "X", "POP"));
    writeVolare(memory);
    if (!ScriptedIndex().createIndex(memory.root()))
        qFatal("no index");
}

constexpr qsizetype playlistsRecord = 32;

} // namespace

/// The examples of docs/formats, except for those of tags, against what the program writes and
/// reads. Each case is named for its example.
class TestFormatPages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void givesEachPageAnExample();
    void hasACaseForEachExample();
    void hasNoBytesOutsideOfExamples();

    void midiTrack();
    void midiForeignTrack();
    void midiForeignTrackInAMinor();
    void container();
    void codecLetter();
    void codecBlanks();
    void pathRecord();
    void songRecord();
    void groupHeader();
    void alphabetTable();
    void countsFile();
    void orderFile();
    void givenNames();
    void backupList();
    void historyChecksum();
    void playlistNumbers();
    void playlistSongs();
    void playlistPaths();
    void logLine();
    void lastList();
    void catalogueSource();
    void catalogueRecord();

private:
    static void checkCodec(const QString &name, const QByteArray &data);

    SampleMemory m_memory; ///< with only "VOLARE"
};

void TestFormatPages::initTestCase()
{
    writeVolare(m_memory);
    QVERIFY(ScriptedIndex().createIndex(m_memory.root()));
}

void TestFormatPages::givesEachPageAnExample()
{
    QVERIFY(!FormatPages::names().isEmpty());
    for (const QString &page : FormatPages::names()) {
        QStringList kinds;
        for (const FormatPages::Block &block : FormatPages::blocksIn(FormatPages::text(page)))
            kinds.append(block.kind);
        QVERIFY2(kinds.contains(u"hex"_qs), qPrintable(page));
    }
}

void TestFormatPages::hasACaseForEachExample()
{
    QStringList names;
    for (const QString &page : FormatPages::names()) {
        for (const FormatPages::Block &block : FormatPages::blocksIn(FormatPages::text(page))) {
            QVERIFY2(!names.contains(block.name), qPrintable(block.name));
            names.append(block.name);
            const QByteArray slot = block.name.toLatin1() + "()";
            QVERIFY2(metaObject()->indexOfSlot(slot) >= 0 ||
                         TestTagExamples::staticMetaObject.indexOfSlot(slot) >= 0,
                     qPrintable(block.name));
        }
    }
}

void TestFormatPages::hasNoBytesOutsideOfExamples()
{
    for (const QString &page : FormatPages::names())
        QCOMPARE(FormatPages::strayBytesIn(FormatPages::text(page)), QStringList());
}

void TestFormatPages::midiTrack()
{
    const QByteArray track = bytes(u"midiTrack"_qs);
    const qsizetype trackAt = 14;
    const QByteArray plain = Samples::midi();

    RawMidiFile written = loaded(plain);
    written.setArtist(u"Anna"_qs);
    written.setKey(u"A-"_qs);
    written.insertMarker(u"Coda"_qs, 300);
    QCOMPARE(difference(written.stream(), plain.left(trackAt) + track), QString());

    RawMidiFile read;
    QVERIFY(read.loadData(plain.left(trackAt) + track));
    QCOMPARE(read.artist(), u"Anna"_qs);
    QCOMPARE(read.key(), u"A-"_qs);
    QCOMPARE(read.markersList().size(), 1);
    QCOMPARE(read.markersList().first().text, u"Coda"_qs);
    QCOMPARE(read.markersList().first().bar, 300);
}

void TestFormatPages::midiForeignTrack()
{
    const QByteArray track = bytes(u"midiForeignTrack"_qs);
    RawMidiFile read;
    QVERIFY(read.loadData(Samples::midi().left(14) + track));
    QCOMPARE(read.key(), u"G"_qs);
    // As a text it ends at the second byte of its length; a removal takes all of its 133 bytes.
    QVERIFY(read.hasTitle() && read.title().isEmpty());
    QCOMPARE(read.removeHeadMetaevent('\x03', false), 133U);
    QCOMPARE(Samples::trackLength(read.stream()), Samples::trackBytes(read.stream()));
}

void TestFormatPages::midiForeignTrackInAMinor()
{
    const QByteArray header = Samples::midi().left(14);
    const QByteArray track = bytes(u"midiForeignTrack"_qs);
    RawMidiFile changed = loaded(header + track);
    changed.setKey(u"A-"_qs);
    const QByteArray given = example(u"midiForeignTrackInAMinor"_qs).over(track);
    QCOMPARE(difference(changed.stream(), header + given), QString());
    QVERIFY(given != track);
}

void TestFormatPages::container()
{
    const QByteArray kept = Samples::containerHeader("_ZB4", ZbxHeader::shortSize);
    const QByteArray given = example(u"container"_qs).over(kept);

    makeFile(u"song.zb4"_qs, given);
    MetaSong read;
    QVERIFY(read.importFile(u"song.zb4"_qs));
    const SongInfo info = Samples::infoOf(read);
    QCOMPARE(info.format, u"ZB4"_qs);
    QCOMPARE(info.zbxLongName, u"VOLARE"_qs);
    QCOMPARE(info.userBpm, 120);
    QCOMPARE(info.title, u"Volare"_qs);
    QCOMPARE(info.author, QString());

    const QByteArray longName = "VOLARE";
    const QByteArray untold = QByteArray(kept).replace(42, longName.size(), longName);
    const QByteArray note = Samples::midi();
    const QByteArray marked = note.left(22) + Samples::bytes("\xFF\x00\xFF") + note.mid(22);
    MetaSong written = Samples::opened(u"new.zb4"_qs, Samples::container(untold, marked));
    SongInfo supplied;
    supplied.title = info.title;
    supplied.userBpm = info.userBpm;
    written.setSongInfo(supplied, false);
    QVERIFY(written.saveToFile(u"new.zb4"_qs));
    QCOMPARE(difference(fileContent(u"new.zb4"_qs), given), QString());
}

void TestFormatPages::checkCodec(const QString &name, const QByteArray &data)
{
    QByteArray stream;
    LzHuff().compress(data, stream);
    QCOMPARE(difference(stream, bytes(name)), QString());
    QByteArray read;
    QVERIFY(LzHuff().expand(bytes(name), read));
    QCOMPARE(read, data);
}

void TestFormatPages::codecLetter()
{
    checkCodec(u"codecLetter"_qs, "A");
}

void TestFormatPages::codecBlanks()
{
    checkCodec(u"codecBlanks"_qs, QByteArray(29, ' '));
}

void TestFormatPages::pathRecord()
{
    const QByteArray given = bytes(u"pathRecord"_qs);
    QCOMPARE(difference(m_memory.read(u"index.id2"_qs), given), QString());
    PathRecord read;
    QVERIFY(PathRecord::read(given, 0, read));
    QCOMPARE(read.id, 0U);
    QCOMPARE(read.path, QByteArray("/BASI/SONG1.MID"));
    QCOMPARE(read.date, 20091231U);
    QCOMPARE(read.time, 235958U);
}

void TestFormatPages::songRecord()
{
    const QByteArray given = bytes(u"songRecord"_qs);
    QCOMPARE(difference(m_memory.read(u"title.id2"_qs), given), QString());
    SongRecord read;
    QVERIFY(SongRecord::read(given, 0, read));
    QCOMPARE(read.id, 0U);
    QCOMPARE(read.title, QByteArray("VOLARE"));
    QCOMPARE(read.bpm, 120);
    QCOMPARE(read.type, 0);
    QCOMPARE(read.flag, 0);
}

void TestFormatPages::groupHeader()
{
    const QByteArray given = bytes(u"groupHeader"_qs);
    QCOMPARE(difference(m_memory.read(u"artist.id2"_qs), given + bytes(u"songRecord"_qs)),
             QString());
    GroupHeader read;
    QVERIFY(GroupHeader::read(given, 0, read));
    QCOMPARE(read.previousCount, 0);
    QCOMPARE(read.count, 1);
    QCOMPARE(read.name, QByteArray("ANONIMO"));
}

void TestFormatPages::alphabetTable()
{
    const HexExample given = example(u"alphabetTable"_qs);
    QCOMPARE(difference(m_memory.read(u"atitle.id2"_qs), given.over(QByteArray(256, '\xFF'))),
             QString());
}

void TestFormatPages::countsFile()
{
    QCOMPARE(difference(m_memory.read(u"fsinfos.id2"_qs), bytes(u"countsFile"_qs)), QString());
}

void TestFormatPages::orderFile()
{
    QCOMPARE(difference(m_memory.read(u"ordfile.id2"_qs), bytes(u"orderFile"_qs)), QString());

    // The page's examples of a set together are a set that can be read.
    const SampleMemory memory;
    memory.write(u"index.id2"_qs, bytes(u"pathRecord"_qs));
    memory.write(u"ordfile.id2"_qs, bytes(u"orderFile"_qs));
    memory.write(u"title.id2"_qs, bytes(u"songRecord"_qs));
    for (const QString &name : {u"artist.id2"_qs, u"genre.id2"_qs})
        memory.write(name, bytes(u"groupHeader"_qs) + bytes(u"songRecord"_qs));
    memory.write(u"fsinfos.id2"_qs, bytes(u"countsFile"_qs));
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(memory.root());
    QList<SongInfoIndex> songs;
    IndexReader reader;
    QVERIFY(reader.read(set, memory.root(), songs));
    reader.readTexts(songs);
    QCOMPARE(songs.size(), 1);
    QCOMPARE(songs.first().path, u"/BASI/SONG1.MID"_qs);
    QCOMPARE(songs.first().posidx, 0);
    QCOMPARE(songs.first().title, u"VOLARE"_qs);
    QCOMPARE(songs.first().artist, u"ANONIMO"_qs);
    QCOMPARE(songs.first().bpm, 120);
}

void TestFormatPages::givenNames()
{
    const SampleMemory memory;
    memory.write(u"Summer hits.2009/It's a song.mp3"_qs, Sample::mp3Song("X", "X", "POP"));
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(difference(memory.read(u".brisel2pc/names"_qs), bytes(u"givenNames"_qs)), QString());
}

void TestFormatPages::backupList()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(u"a.mid"_qs), "song");
    BackupList list;
    QVERIFY(list.add(u"/b/a.mid"_qs, folder.filePath(u"a.mid"_qs)));
    QVERIFY(list.write(folder.path()));
    QCOMPARE(
        difference(fileContent(folder.filePath(BackupList::fileName())), bytes(u"backupList"_qs)),
        QString());
}

void TestFormatPages::historyChecksum()
{
    QCOMPARE(difference(Fingerprint::ofWhole("abc").checksum, bytes(u"historyChecksum"_qs)),
             QString());
}

void TestFormatPages::playlistNumbers()
{
    const HexExample given = example(u"playlistNumbers"_qs);
    QCOMPARE(given.bytes().size(), 2 * playlistsRecord);
    const SampleMemory memory;
    memory.write(u"playlist/playlist.dat"_qs, given.over(QByteArray(2 * playlistsRecord, '\x55')));
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(memory.root());
    QCOMPARE(Playlists::readNumbers(set), QList<qint16>({7, -123}));
}

void TestFormatPages::playlistSongs()
{
    const SampleMemory memory;
    indexThreeSongs(memory);
    memory.remove(u"index.id2"_qs);
    memory.write(u"playlist/playlist.dat"_qs, example(u"playlistNumbers"_qs).bytes());
    memory.write(u"playlist/play0007.dat"_qs, QByteArray(64, '\0'));
    memory.write(u"playlist/play0007.pts"_qs, bytes(u"playlistPaths"_qs));
    memory.write(u"playlist/play4294967173.dat"_qs, QByteArray());
    memory.write(u"playlist/play4294967173.pts"_qs, QByteArray());
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(difference(memory.read(u"playlist/play0007.dat"_qs), bytes(u"playlistSongs"_qs)),
             QString());
}

void TestFormatPages::playlistPaths()
{
    const SampleMemory memory;
    indexThreeSongs(memory);
    memory.write(u"playlist/playlist.dat"_qs,
                 example(u"playlistNumbers"_qs).bytes().left(playlistsRecord));
    memory.write(u"playlist/play0007.dat"_qs, bytes(u"playlistSongs"_qs));
    const QString paths = u"playlist/play0007.pts"_qs;
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(difference(memory.read(paths), bytes(u"playlistPaths"_qs)), QString());
    memory.remove(paths);
    memory.write(u"playlist/play0007.dat"_qs, {});
    QVERIFY(Sample::addAndSave(memory, 2));
    QCOMPARE(difference(memory.read(paths), bytes(u"playlistPaths"_qs)), QString());
    QCOMPARE(memory.read(u"playlist/play0007.dat"_qs), bytes(u"playlistSongs"_qs));
}

void TestFormatPages::lastList()
{
    const QByteArray given = bytes(u"lastList"_qs);
    const QStringList songs{u"/a/b.mid"_qs, u"/\u00e8.mp3"_qs};
    LastList(u"last.json"_qs).keep(songs);
    QCOMPARE(difference(fileContent(u"last.json"_qs), given), QString());
    makeFile(u"last.json"_qs, given);
    QCOMPARE(LastList(u"last.json"_qs).songs(), songs);
    QCOMPARE(LastList::largestFile, 64 << 20);
}

void TestFormatPages::logLine()
{
    const QByteArray given = bytes(u"logLine"_qs);
    const QByteArray stamp = logTimeStamp(QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9)));
    QFile::remove(u"log.txt"_qs);
    const QtMessageHandler handler = qInstallMessageHandler(myMessageOutput);
    debug() << "DB initialized correctly";
    qInstallMessageHandler(handler);
    const QByteArray written = fileContent(u"log.txt"_qs);
    QVERIFY(!written.isEmpty());
    QCOMPARE(difference(stamp + written.mid(stamp.size()), given), QString());
}

void TestFormatPages::catalogueSource()
{
    const QByteArray source = textOf(u"csv"_qs, u"catalogueSource"_qs).toUtf8();
    QList<CatalogueRow> rows;
    CatalogueCsvError error;
    QVERIFY2(readCatalogueCsv(source, rows, error), qPrintable(error.text));
    QCOMPARE(rows.size(), 1);
    writeLocalCatalogue(rows);
}

void TestFormatPages::catalogueRecord()
{
    catalogueSource();
    const qsizetype endOfPage = 8192;
    const QByteArray page = fileContent(u"songsdb_debug"_qs).left(endOfPage);
    const HexExample given = example(u"catalogueRecord"_qs);
    QCOMPARE(given.bytes().size(), endOfPage);
    QCOMPARE(difference(page, given.over(page)), QString());

    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(u"OSOLEMIO"_qs, record));
    QCOMPARE(record.title, u"O SOLE MIO"_qs);
    QCOMPARE(record.artist, u"TRADITIONAL"_qs);
    QCOMPARE(record.genre, u"NEAPOLITAN"_qs);
    QCOMPARE(record.author, u"CAPURRO - DI CAPUA"_qs);
    QCOMPARE(record.length, 190);
    QCOMPARE(record.bpm, 80);
    QCOMPARE(record.key, u"A -"_qs);
    QCOMPARE(record.markers.size(), 2);
    QCOMPARE(record.markers.last().text, u"Verse"_qs);
    QCOMPARE(record.markers.last().bar, 9);
    QCOMPARE(record.altArtist, u"TRADITIONAL"_qs);
}

BRISEL_TEST(QApplication, TestFormatPages)
#include "tst_formatpages.moc"
