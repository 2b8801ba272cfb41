#include "index/indexset.h"
#include "tests/index/indexsamples.h"
#include "tests/index/setreader.h"
#include "tests/scriptedindex.h"

using namespace brisel;

using namespace Sample;

namespace
{

const QString repaired = u"L'indice era danneggiato ed è stato riparato"_qs;

/// Songs "/A.MID", "/B.MID" and "/C.MP3" with the ids 0 to 2.
void makeSoundSet(const SampleMemory &memory)
{
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    memory.write(u"B.MID"_qs, midiSong("Two", "Bruno", "Rock"));
    memory.write(u"C.MP3"_qs, mp3Song("Three", "Carla", "Pop"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
}

/// The notices of an update, which must succeed.
QStringList noticesOfUpdate(const SampleMemory &memory)
{
    ScriptedIndex index;
    QStringList notices;
    QObject::connect(&index, &Index::noticeFromIndex,
                     [&notices](const QString &notice) { notices.append(notice); });
    if (!index.updateIndex(memory.root()))
        notices.append(u"false"_qs);
    return notices;
}

void patchFile(const SampleMemory &memory, const QString &name, qsizetype at,
               const QByteArray &bytes)
{
    QByteArray content = memory.read(name);
    content.replace(at, bytes.size(), bytes);
    memory.write(name, content);
}

} // namespace

/// Sets of fifteen files with wrong content.
class TestDamagedSets : public QObject
{
    Q_OBJECT

private slots:
    void repairsEachFile_data();
    void repairsEachFile();
    void repairsFaultyRecords_data();
    void repairsFaultyRecords();
    void movesAFolderAside();
    void readsOnlyWhatIsMissing();
    void repairsAnOrderThatHasASongTwice();
    void repairsExchangedTitles();
    void keepsTheFirstOfDoubledPaths();
    void keepsTheFirstOfThreeEqualPaths();
    void staysSoundBesideIdsAtTheTop();
    void sortsOutExchangedIds();
    void givesLostIdsBack();
    void readsAnIdAtTheTopAsDamage();
    void findsNoDamageInSoundSets();
    void rebuildsIfAFileIsMissing();
};

void TestDamagedSets::repairsEachFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("damage");
    for (const QString &name : IndexSet::names()) {
        for (const QString &damage :
             {u"emptied"_qs, u"cut"_qs, u"zeros"_qs, u"longer"_qs, u"folder"_qs, u"FIFO"_qs})
            QTest::newRow(qPrintable(name + u' ' + damage)) << name << damage;
    }
}

void TestDamagedSets::repairsEachFile()
{
    QFETCH(QString, name);
    QFETCH(QString, damage);
    const SampleMemory memory;
    makeSoundSet(memory);
    const auto before = memory.rootFiles();
    const QByteArray content = memory.read(name);
    memory.remove(name);
    if (damage == u"emptied"_qs)
        memory.write(name, QByteArray());
    else if (damage == u"cut"_qs)
        memory.write(name, content.left(content.size() - 1));
    else if (damage == u"zeros"_qs)
        memory.write(name, QByteArray(content.size(), '\0'));
    else if (damage == u"longer"_qs)
        memory.write(name, content + "x");
    else if (damage == u"folder"_qs)
        QVERIFY(QDir(memory.root()).mkdir(name));
    else
        QCOMPARE(::mkfifo(QFile::encodeName(memory.path(name)).constData(), 0600), 0);
    QStringList expected;
    if (damage == u"folder"_qs)
        expected.append(u"Cartella rinominata, il suo nome serve all'indice: "_qs +
                        memory.path(name) + u" -> old-1"_qs);
    QCOMPARE(noticesOfUpdate(memory), expected + QStringList(repaired));
    QVERIFY(QDir(memory.root()).rmdir(u"old-1"_qs) == (damage == u"folder"_qs));
    // The same for ids, including those that only the lists still have.
    QCOMPARE(memory.rootFiles(), before);
    QCOMPARE(noticesOfUpdate(memory), QStringList());
}

void TestDamagedSets::repairsFaultyRecords_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    const QByteArray strange = songRecord("00000009", "X", "0000");
    const QByteArray path = pathRecord("00000000", "/A.MID", "20100101000000");
    QTest::newRow("short path") << u"index.id2"_qs << QByteArray(63, 'x');
    QTest::newRow("path and a half") << u"index.id2"_qs << path + "x";
    QTest::newRow("no paths") << u"index.id2"_qs << QByteArray();
    QTest::newRow("reserved id") << u"index.id2"_qs
                                 << pathRecord("FFFFFFFF", "/A.MID", "20100101000000");
    QTest::newRow("too many") << u"index.id2"_qs << path.repeated(65536);
    QTest::newRow("short title") << u"title.id2"_qs << QByteArray(65, '\0');
    QTest::newRow("strange title") << u"title.id2"_qs << strange;
    QTest::newRow("short artist") << u"artist.id2"_qs << QByteArray(1, '\0');
    QTest::newRow("strange artist") << u"artist.id2"_qs << strange;
    QTest::newRow("strange genre") << u"genre.id2"_qs << strange;
}

void TestDamagedSets::repairsFaultyRecords()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    memory.write(file, content);
    memory.write(u"B.MID"_qs, midiSong("Two", "Artist", "Genre"));
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(memory.read(u"index.id2"_qs).size(), 128);
    // A song whose record is lost gets its old id by its title, but uses up a new one first.
    const bool isLost = file == u"index.id2"_qs && !content.startsWith(hex("00000000"));
    QCOMPARE(memory.read(u"title.id2"_qs),
             songRecord("00000000", "ONE", "7800") +
                 songRecord(isLost ? "00000002" : "00000001", "TWO", "7800"));
    QCOMPARE(memory.read(u"artist.id2"_qs),
             groupHeader("00000002", "ARTIST") + memory.read(u"title.id2"_qs));
}

void TestDamagedSets::movesAFolderAside()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    memory.remove(u"genre.id2"_qs);
    memory.write(u"genre.id2/X.MID"_qs, midiSong("X", "Xenia", "Pop"));
    memory.write(u"old-1"_qs, "not ours");
    QCOMPARE(noticesOfUpdate(memory),
             QStringList({u"Cartella rinominata, il suo nome serve all'indice: "_qs +
                              memory.path(u"genre.id2"_qs) + u" -> old-2"_qs,
                          repaired}));
    QCOMPARE(SetReader(memory).problem(), QString());
    QVERIFY(memory.read(u"index.id2"_qs).contains("/old-2/X.MID"));
    QCOMPARE(memory.read(u"old-1"_qs), QByteArray("not ours"));
}

/// The heads of songs with valid records are not read: a head that was changed shows that.
void TestDamagedSets::readsOnlyWhatIsMissing()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    const QByteArray titles = memory.read(u"title.id2"_qs);
    for (const QString &name : {u"A.MID"_qs, u"B.MID"_qs}) {
        const QDateTime date = QFileInfo(memory.path(name)).lastModified();
        memory.write(name, midiSong("New", "New", "New"));
        memory.setDate(name, date);
    }
    // "ONE", "THREE", "TWO": the last record belongs to B.
    memory.write(u"title.id2"_qs, titles.left(128));
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    QCOMPARE(memory.read(u"title.id2"_qs), songRecord("00000001", "NEW", "7800") +
                                               songRecord("00000000", "ONE", "7800") +
                                               songRecord("00000002", "THREE", "0001"));
}

/// The order of paths with question marks is not compared.
void TestDamagedSets::repairsAnOrderThatHasASongTwice()
{
    const SampleMemory memory;
    memory.write(u"A?.MID"_qs, midiSong("One", "Anna", "Pop"));
    memory.write(u"B?.MID"_qs, midiSong("Two", "Bruno", "Rock"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("00000100"));
    patchFile(memory, u"ordfile.id2"_qs, 2, hex("0000"));
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    QCOMPARE(memory.read(u"ordfile.id2"_qs), hex("00000100"));
}

void TestDamagedSets::repairsExchangedTitles()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    const QByteArray titles = memory.read(u"title.id2"_qs);
    // "ONE", "THREE", "TWO": the alphabet table remains right.
    patchFile(memory, u"title.id2"_qs, 64, titles.mid(128) + titles.mid(64, 64));
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    QCOMPARE(memory.read(u"title.id2"_qs), titles);
}

void TestDamagedSets::keepsTheFirstOfDoubledPaths()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    memory.write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    memory.write(u"playlist/play0007.dat"_qs,
                 songRecord("00000001", "TWO", "7800") + songRecord("00000000", "ONE", "7800"));
    // Neighbours in the order of paths, which is still ascending.
    patchFile(memory, u"index.id2"_qs, 64 + 4, "/A.MID");
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.pathOf(0), QByteArray("/A.MID"));
    QCOMPARE(reader.pathOf(2), QByteArray("/C.MP3"));
    QCOMPARE(reader.playlist(u"playlist/play0007.dat"_qs), QList<QByteArray>({"/B.MID", "/A.MID"}));
}

void TestDamagedSets::keepsTheFirstOfThreeEqualPaths()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    patchFile(memory, u"index.id2"_qs, 64 + 4, "/a.mid");
    patchFile(memory, u"index.id2"_qs, 128 + 4, "/A.MID");
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.songCount(), 3);
    QCOMPARE(reader.pathOf(0), QByteArray("/A.MID"));
    QCOMPARE(noticesOfUpdate(memory), QStringList());
}

void TestDamagedSets::staysSoundBesideIdsAtTheTop()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    memory.write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    memory.write(u"playlist/play0007.dat"_qs, songRecord("FFFE0000", "GONE", "7800"));
    memory.write(u"D.MID"_qs, midiSong("Four", "Dora", "Pop"));
    QCOMPARE(noticesOfUpdate(memory), QStringList());
    QCOMPARE(SetReader(memory).pathOf(3), QByteArray("/D.MID"));
    memory.write(u"E.MID"_qs, midiSong("Five", "Enzo", "Pop"));
    QCOMPARE(noticesOfUpdate(memory), QStringList());
}

/// Also if a new playlist has no path file: none is made from such an index.
void TestDamagedSets::sortsOutExchangedIds()
{
    for (const bool isRebuild : {false, true}) {
        const SampleMemory memory;
        makeSoundSet(memory);
        memory.write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
        memory.write(u"playlist/play0007.dat"_qs,
                     songRecord("00000001", "TWO", "7800") + songRecord("00000000", "ONE", "7800"));
        patchFile(memory, u"index.id2"_qs, 0, hex("00000001"));
        patchFile(memory, u"index.id2"_qs, 64, hex("00000000"));
        QVERIFY(isRebuild ? ScriptedIndex().createIndex(memory.root())
                          : noticesOfUpdate(memory) == QStringList(repaired));
        const SetReader reader(memory);
        QCOMPARE(reader.problem(), QString());
        QCOMPARE(reader.playlist(u"playlist/play0007.dat"_qs),
                 QList<QByteArray>({"/B.MID", "/A.MID"}));
        QVERIFY(!memory.has(u"playlist/play0007.pts"_qs));
    }
}

void TestDamagedSets::givesLostIdsBack()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    memory.remove(u"A.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    // B has the id 1 and C the id 2; only the lists still have them.
    memory.write(u"index.id2"_qs, QByteArray());
    memory.write(u"0.MID"_qs, midiSong("Zero", "Zoe", "Pop"));
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.pathOf(1), QByteArray("/B.MID"));
    QCOMPARE(reader.pathOf(2), QByteArray("/C.MP3"));
    QCOMPARE(reader.pathOf(3), QByteArray("/0.MID"));
}

/// There would be no id left for a new song.
void TestDamagedSets::readsAnIdAtTheTopAsDamage()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    patchFile(memory, u"index.id2"_qs, 128, hex("FFFFFFFE"));
    memory.write(u"D.MID"_qs, midiSong("Four", "Dora", "Pop"));
    QCOMPARE(noticesOfUpdate(memory), QStringList(repaired));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.pathOf(2), QByteArray("/C.MP3"));
    QVERIFY(memory.read(u"index.id2"_qs).contains("/D.MID"));
}

/// A value that the records cannot represent is not damage.
void TestDamagedSets::findsNoDamageInSoundSets()
{
    const SampleMemory memory;
    const QStringList names{u"A.MID"_qs,         u"B.MID"_qs,         u"\uFB01n.mid"_qs,
                            u"\u017Fong.mid"_qs, u"\u042F.mid"_qs,    u"\u0416.mid"_qs,
                            u"\u00C9.MID"_qs,    u"stra\u00DF.mid"_qs};
    for (const QString &name : names)
        memory.write(name, midiSong(QByteArray(70, 'T') + name.toUtf8(), "\xB5\xFF?", "Pop"));
    // Shorter than five bytes, and without a tag: "<unknown>" and "<UNKNOWN>" are one group.
    memory.write(u"0.mid"_qs, QByteArray());
    memory.write(u"Z.mp3"_qs, QByteArray(100, 'x'));
    memory.write(u"1.MID"_qs, midiSong("?", "?", "\x3F?"));
    memory.write(u"2.MID"_qs, midiSong("i", "s", "Pop"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QTemporaryDir folder;
    const QString list = folder.filePath(u"list.csv"_qs);
    for (int run = 0; run < 3; ++run) {
        QCOMPARE(ScriptedIndex().saveSongsList(memory.root(), list, SortByArtist), 1);
        QCOMPARE(noticesOfUpdate(memory), QStringList());
    }
}

void TestDamagedSets::rebuildsIfAFileIsMissing()
{
    const SampleMemory memory;
    makeSoundSet(memory);
    memory.remove(u"A.MID"_qs);
    memory.remove(u"atitle.id2"_qs);
    QCOMPARE(noticesOfUpdate(memory), QStringList());
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.pathOf(0), QByteArray("/B.MID"));
}

BRISEL_TEST(QCoreApplication, TestDamagedSets)
#include "tst_damagedsets.moc"
