#include "index/index.h"
#include "index/indexwriters.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

const QDateTime first(QDate(2009, 12, 31), QTime(23, 59, 58));
const QDateTime second(QDate(2011, 2, 3), QTime(4, 5, 6));

} // namespace

/// The files of the index, byte for byte.
class TestIndexFiles : public QObject
{
    Q_OBJECT

private slots:
    void writesOneSong();
    void writesThreeSongsInGroups();
    void writesMp3SongsTwice();
    void updatesAddedChangedAndRemovedSongs();
    void readsASongAgainWhenItsDateOrTimeDiffers_data();
    void readsASongAgainWhenItsDateOrTimeDiffers();
    void fillsTheTitleWith58Characters();
    void entersInitialsUpperCased();
    void endsLongestPathBeforeItsDate();
    void writesPathsInTheirCodePage();
    void boundsYearsAbove9999();
    void givesSongsWithoutNameNoHeader();
    void entersTitlesThatBecomeQuestionMarks();
    void putsAnyNumberOfPlaylistsInPlace();

private:
    void addThreeSongs(const SampleMemory &memory);
};

void TestIndexFiles::writesOneSong()
{
    const SampleMemory memory;
    memory.write(u"BASI/SONG1.MID"_qs, midiSong("Volare", "Anonimo", "Swing"));
    memory.setDate(u"BASI/SONG1.MID"_qs, first);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));

    const QByteArray song = songRecord("00000000", "VOLARE", "7800");
    QCOMPARE(memory.read(u"index.id2"_qs),
             pathRecord("00000000", "/BASI/SONG1.MID", "20091231235958"));
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("0000"));
    QCOMPARE(memory.read(u"title.id2"_qs), song);
    QCOMPARE(memory.read(u"artist.id2"_qs), groupHeader("00000001", "ANONIMO") + song);
    QCOMPARE(memory.read(u"genre.id2"_qs), groupHeader("00000001", "SWING") + song);
    QCOMPARE(memory.read(u"atitle.id2"_qs), alphabet({{216, "00000000"}}));
    QCOMPARE(memory.read(u"aartist.id2"_qs), alphabet({{132, "00000000"}}));
    QCOMPARE(memory.read(u"agenre.id2"_qs), alphabet({{204, "00000000"}}));
    for (const char *name : {"title3.id2", "artist3.id2", "genre3.id2"})
        QCOMPARE(memory.read(QLatin1StringView(name)), QByteArray());
    for (const char *name : {"atitle3.id2", "aartist3.id2", "agenre3.id2"})
        QCOMPARE(memory.read(QLatin1StringView(name)), alphabet({}));
    QCOMPARE(memory.read(u"fsinfos.id2"_qs), hex("010001000100000000000000"));
    QVERIFY(memory.has(u"sfx"_qs));
    QVERIFY(memory.has(u"bridge"_qs));
    QCOMPARE(memory.rootFiles().size(), 15);
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
}

/// In path order: "/A/TWO.MID" (id 0), "/B/ONE.KAR" (1), "/ZERO.MID" (2).
void TestIndexFiles::addThreeSongs(const SampleMemory &memory)
{
    memory.write(u"B/ONE.KAR"_qs, midiSong("Aria", "Verdi", "Opera"));
    memory.write(u"A/TWO.MID"_qs, midiSong("Brindisi", "VERDI", "Opera"));
    memory.write(u"ZERO.MID"_qs, midiSong("Valzer", "Anonimo", "Ballo"));
    memory.setDate(u"B/ONE.KAR"_qs, first);
    memory.setDate(u"A/TWO.MID"_qs, first);
    memory.setDate(u"ZERO.MID"_qs, second);
}

void TestIndexFiles::writesThreeSongsInGroups()
{
    const SampleMemory memory;
    addThreeSongs(memory);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));

    const QByteArray two = songRecord("00000000", "BRINDISI", "7800");
    const QByteArray one = songRecord("00000001", "ARIA", "7800");
    const QByteArray zero = songRecord("00000002", "VALZER", "7800");
    QCOMPARE(memory.read(u"index.id2"_qs),
             pathRecord("00000000", "/A/TWO.MID", "20091231235958") +
                 pathRecord("00000001", "/B/ONE.KAR", "20091231235958") +
                 pathRecord("00000002", "/ZERO.MID", "20110203040506"));
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("000001000200"));
    QCOMPARE(memory.read(u"title.id2"_qs), one + two + zero);
    QCOMPARE(memory.read(u"atitle.id2"_qs),
             alphabet({{132, "00000000"}, {136, "00000040"}, {216, "00000080"}}));
    QCOMPARE(memory.read(u"artist.id2"_qs), groupHeader("00000001", "ANONIMO") + zero +
                                                groupHeader("00010002", "VERDI") + one + two);
    QCOMPARE(memory.read(u"aartist.id2"_qs), alphabet({{132, "00000000"}, {216, "00000080"}}));
    QCOMPARE(memory.read(u"genre.id2"_qs), groupHeader("00000001", "BALLO") + zero +
                                               groupHeader("00010002", "OPERA") + one + two);
    QCOMPARE(memory.read(u"agenre.id2"_qs), alphabet({{136, "00000000"}, {188, "00000080"}}));
    QCOMPARE(memory.read(u"fsinfos.id2"_qs), hex("030002000200000000000000"));
}

void TestIndexFiles::writesMp3SongsTwice()
{
    const SampleMemory memory;
    addThreeSongs(memory);
    memory.write(u"ZZ.MP3"_qs, mp3Song("Canto", "Coro", "Opera"));
    memory.setDate(u"ZZ.MP3"_qs, second);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));

    const QByteArray song = songRecord("00000003", "CANTO", "0001");
    QCOMPARE(memory.read(u"title.id2"_qs).mid(128, 64), song);
    QCOMPARE(memory.read(u"title3.id2"_qs), song);
    QCOMPARE(memory.read(u"artist3.id2"_qs), groupHeader("00000001", "CORO") + song);
    QCOMPARE(memory.read(u"genre3.id2"_qs), groupHeader("00000001", "OPERA") + song);
    QCOMPARE(memory.read(u"atitle3.id2"_qs), alphabet({{140, "00000000"}}));
    QCOMPARE(memory.read(u"aartist3.id2"_qs), alphabet({{140, "00000000"}}));
    QCOMPARE(memory.read(u"agenre3.id2"_qs), alphabet({{188, "00000000"}}));
    QCOMPARE(memory.read(u"fsinfos.id2"_qs), hex("040003000200010001000100"));
}

void TestIndexFiles::updatesAddedChangedAndRemovedSongs()
{
    const SampleMemory memory;
    addThreeSongs(memory);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.remove(u"A/TWO.MID"_qs);
    memory.write(u"ZERO.MID"_qs, midiSong("Tango", "Anonimo", "Ballo"));
    memory.setDate(u"ZERO.MID"_qs, first);
    memory.write(u"C.MID"_qs, midiSong("Nuova", "Anonimo", "Opera"));
    memory.setDate(u"C.MID"_qs, second);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));

    const QByteArray one = songRecord("00000001", "ARIA", "7800");
    const QByteArray zero = songRecord("00000002", "TANGO", "7800");
    const QByteArray added = songRecord("00000003", "NUOVA", "7800");
    QCOMPARE(memory.read(u"index.id2"_qs),
             pathRecord("00000001", "/B/ONE.KAR", "20091231235958") +
                 pathRecord("00000002", "/ZERO.MID", "20091231235958") +
                 pathRecord("00000003", "/C.MID", "20110203040506"));
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("000002000100"));
    QCOMPARE(memory.read(u"title.id2"_qs), one + added + zero);
    QCOMPARE(memory.read(u"artist.id2"_qs), groupHeader("00000002", "ANONIMO") + added + zero +
                                                groupHeader("00020001", "VERDI") + one);
    QCOMPARE(memory.read(u"genre.id2"_qs), groupHeader("00000001", "BALLO") + zero +
                                               groupHeader("00010002", "OPERA") + one + added);
    QCOMPARE(memory.read(u"fsinfos.id2"_qs), hex("030002000200000000000000"));
}

void TestIndexFiles::readsASongAgainWhenItsDateOrTimeDiffers_data()
{
    QTest::addColumn<QDateTime>("changed");
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QByteArray>("digits");
    const auto row = [](const char *name, int year, int month, int day, const QTime &time,
                        const char *title, const char *digits) {
        QTest::newRow(name) << QDateTime(QDate(year, month, day), time) << QByteArray(title)
                            << QByteArray(digits);
    };
    const QTime time = first.time();
    row("neither", 2009, 12, 31, time, "OLD", "20091231235958");
    row("year", 2010, 12, 31, time, "NEW", "20101231235958");
    row("month", 2009, 10, 31, time, "NEW", "20091031235958");
    row("day", 2009, 12, 30, time, "NEW", "20091230235958");
    row("hour", 2009, 12, 31, QTime(22, 59, 58), "NEW", "20091231225958");
    row("minute", 2009, 12, 31, QTime(23, 58, 58), "NEW", "20091231235858");
    row("second", 2009, 12, 31, QTime(23, 59, 59), "NEW", "20091231235959");
    row("both", 2011, 2, 3, QTime(4, 5, 6), "NEW", "20110203040506");
}

void TestIndexFiles::readsASongAgainWhenItsDateOrTimeDiffers()
{
    QFETCH(QDateTime, changed);
    QFETCH(QByteArray, title);
    QFETCH(QByteArray, digits);
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("Old", "Artist", "Genre"));
    memory.setDate(u"A.MID"_qs, first);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"A.MID"_qs, midiSong("New", "Artist", "Genre"));
    memory.setDate(u"A.MID"_qs, changed);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"title.id2"_qs), songRecord("00000000", title, "7800"));
    QCOMPARE(memory.read(u"index.id2"_qs), pathRecord("00000000", "/A.MID", digits));
}

void TestIndexFiles::fillsTheTitleWith58Characters()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong(QByteArray(58, 'x'), "A", "G"));
    memory.write(u"B.MID"_qs, midiSong(QByteArray(70, 'y'), "A", "G"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QByteArray titles = memory.read(u"title.id2"_qs);
    QCOMPARE(titles.mid(4, 59), QByteArray(58, 'X') + char(120));
    QCOMPARE(titles.mid(64 + 4, 59), QByteArray(58, 'Y') + char(120));
}

void TestIndexFiles::entersInitialsUpperCased()
{
    AlphabetTable table;
    table.add(u"bella"_qs, 0x40);
    table.add(u"BASTA"_qs, 0x80);
    table.add(u"(Io)"_qs, 0xC0);
    table.add(u"7 baci"_qs, 0x01020304);
    table.add(u"été"_qs, 5);
    table.add(QString(), 6);
    table.add(u"~"_qs, 7);
    table.add(u"_"_qs, 8);
    QCOMPARE(table.bytes(),
             alphabet({{136, "00000040"}, {32, "000000C0"}, {92, "01020304"}, {252, "00000008"}}));
    table.clear();
    QCOMPARE(table.bytes(), QByteArray(256, '\xFF'));
}

void TestIndexFiles::endsLongestPathBeforeItsDate()
{
    const SampleMemory memory;
    const QString folder = u"12345678/12345678/12345678/12345678"_qs;
    memory.write(folder + u"/1234.mid"_qs, midiSong("T", "A", "G"));
    memory.setDate(folder + u"/1234.mid"_qs, first);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs), hex("00000000") +
                                               "/12345678/12345678/12345678/12345678/1234.mid" +
                                               '\0' + "20091231235958");
}

void TestIndexFiles::writesPathsInTheirCodePage()
{
    const SampleMemory memory;
    memory.write(u"\u00E9.MID"_qs, midiSong("\xE9t\xE9", "A", "G"));
    memory.write(u"\u4E00.MID"_qs, midiSong("B", "A", "G"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QByteArray index = memory.read(u"index.id2"_qs);
    QCOMPARE(index.mid(4, 7), QByteArray("/\x82.MID\0", 7));
    QCOMPARE(index.mid(68, 7), QByteArray("/?.MID\0", 7));
    // In path order "?" is before the accented letter; in title order Latin-1 is kept.
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("01000000"));
    QCOMPARE(memory.read(u"title.id2"_qs).mid(68, 4), QByteArray("\xC9T\xC9\0", 4));
}

void TestIndexFiles::boundsYearsAbove9999()
{
    SongInfoIndex song;
    song.setPath(u"/A.MID"_qs);
    song.date = 123450203;
    song.time = 40506;
    QCOMPARE(PathRecord(song).bytes(), pathRecord("00000000", "/A.MID", "12345020040506"));
}

void TestIndexFiles::givesSongsWithoutNameNoHeader()
{
    SongInfoIndex song;
    song.title = u"A"_qs;
    const QList<SongInfoIndex> songs{song, song};
    const IndexWriters::ListFile file = IndexWriters::groupFile(
        songs, IndexWriters::songRecords(songs), {{0, 1}, {0, 0}}, &SongInfoIndex::artist);
    QCOMPARE(file.count, 0);
    QCOMPARE(file.content,
             songRecord("00000000", "A", "0000") + songRecord("00000000", "A", "0000"));
}

/// Letters that Latin-1 lacks are all '?' in the records: each gets its own entry.
void TestIndexFiles::entersTitlesThatBecomeQuestionMarks()
{
    SongInfoIndex other;
    other.title = u"\u012Dx"_qs;
    SongInfoIndex capitalI;
    capitalI.title = u"\u0131x"_qs; // its upper case is a plain I
    const QList<SongInfoIndex> songs{other, capitalI};
    const IndexWriters::ListFile file =
        IndexWriters::titleFile(songs, IndexWriters::songRecords(songs), {0, 1});
    constexpr int entryOfI = ('I' - ' ') * 4;
    QCOMPARE(file.alphabet.bytes().mid(entryOfI, 4), hex("00000040"));
}

/// Playlists that are too large for a run's memory are read back from the staging folder.
void TestIndexFiles::putsAnyNumberOfPlaylistsInPlace()
{
    constexpr int playlists = 17;
    const SampleMemory memory;
    QVERIFY(QDir(memory.root()).mkdir(u"playlist"_qs));
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(memory.root());
    QVERIFY(set.beginStaging());
    for (const QString &name : IndexSet::names())
        QVERIFY(set.stage(name, name.toLatin1()));
    const QByteArray largest(65535 * 64, 'x');
    const auto nameOf = [](int number) {
        return u"playlist/play%1.dat"_qs.arg(number, 4, 10, QChar(u'0'));
    };
    for (int number = 0; number < playlists; ++number)
        QVERIFY(set.stage(nameOf(number), largest + QByteArray::number(number)));
    QVERIFY(set.commit());
    set.discard();
    for (int number = 0; number < playlists; ++number)
        QVERIFY(memory.read(nameOf(number)) == largest + QByteArray::number(number));
    QCOMPARE(memory.read(u"title.id2"_qs), QByteArray("title.id2"));
    QVERIFY(set.isComplete());
}

BRISEL_TEST(QCoreApplication, TestIndexFiles)
#include "tst_indexfiles.moc"
