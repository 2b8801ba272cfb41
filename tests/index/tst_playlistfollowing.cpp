#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/index/setreader.h"
#include "tests/scriptedindex.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

const QString followedList = u"playlist/playlist.dat"_qs;
const QString followedSongs = u"playlist/play0007.dat"_qs;

const QByteArray entryA = songRecord("00000000", "A", "7800");
const QByteArray entryB = songRecord("00000001", "B", "7800");
const QByteArray entryC = songRecord("00000002", "C", "7800");

/// Songs "/A.MID" to "/C.MID" with the ids 0 to 2, and playlist 7 of \a playlist.
void fillPlaylist(const SampleMemory &memory, const QByteArray &playlist)
{
    for (const char *name : {"A", "B", "C"})
        memory.write(QLatin1StringView(name) + u".MID"_qs, midiSong(name, "Artist", "Genre"));
    if (!ScriptedIndex().createIndex(memory.root()))
        qFatal("no index");
    memory.write(followedList, field(QByteArray("\7\0", 2), 32));
    memory.write(followedSongs, playlist);
}

} // namespace

/// Playlists that follow their songs without being read back from a path file.
class TestPlaylistFollowing : public QObject
{
    Q_OBJECT

private slots:
    void exchangesEntriesWhereTheyStand();
    void copiesANewTitle();
    void givesEntriesTheTitlesOfTheirSongs();
    void keepsASongThatComesBack();
    void keepsPathsThatTheIndexLacks();
    void fillsAnEmptyPathFile();
    void trustsIdsOfASoundIndex();
    void choosesNoneOfTwoSongsWithOneTitle();
    void givesIdsOfDeadEntriesToNoSong();
    void givesNamesOfDeadEntriesToNoSong();
    void reportsAPlaylistThatCannotBeFollowed();
    void reportsAPlaylistThatCannotBeWritten();
};

void TestPlaylistFollowing::exchangesEntriesWhereTheyStand()
{
    const SampleMemory memory;
    memory.write(u"\u00E9.MID"_qs, midiSong("E", "Artist", "Genre"));
    // In the order of their paths the songs are A, B, C and the accented one.
    fillPlaylist(memory, songRecord("00000003", "E", "7800") + entryB +
                             songRecord("00000003", "E", "7800"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.remove(u"B.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    // The entry of the removed song stays where it was.
    const QByteArray e = songRecord("00000005", "E", "7800");
    QCOMPARE(memory.read(followedSongs), e + entryB + e);
}

void TestPlaylistFollowing::copiesANewTitle()
{
    const SampleMemory memory;
    fillPlaylist(memory, entryA + entryB + songRecord("00000000", "A", "5000"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.write(u"A.MID"_qs, midiSong("New", "Artist", "Genre"));
    memory.setDate(u"A.MID"_qs, QDateTime(QDate(2004, 1, 1), QTime(1, 1)));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    const QByteArray changed = songRecord("00000000", "NEW", "7800");
    QCOMPARE(memory.read(followedSongs), changed + entryB + changed);
}

void TestPlaylistFollowing::givesEntriesTheTitlesOfTheirSongs()
{
    const SampleMemory memory;
    fillPlaylist(memory, entryA + songRecord("00000001", "AN OLDER TITLE", "0000"));
    memory.write(u"playlist/play0007.pts"_qs, field("/A.MID", 64) + field("/B.MID", 64));
    memory.write(u"D.MID"_qs, midiSong("D", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(followedSongs), entryA + entryB);
}

/// A song that was deleted and is sent again before the next run is the same song.
void TestPlaylistFollowing::keepsASongThatComesBack()
{
    const SampleMemory memory;
    const auto update = [&memory] {
        ScriptedIndex index;
        index.setRenameQuestion([](const QString &, const QString &) { return 0; });
        return index.updateIndex(memory.root());
    };
    memory.write(u"Canzone bella.MID"_qs, midiSong("D", "Artist", "Genre"));
    QVERIFY(update());
    fillPlaylist(memory, QByteArray());
    const QByteArray titles = memory.read(u"title.id2"_qs);
    memory.write(followedSongs, titles.right(64));
    QCOMPARE(SetReader(memory).playlist(followedSongs), QList<QByteArray>{"/Canzon-1.MID"});
    memory.remove(u"Canzon-1.MID"_qs);
    memory.write(u"Canzone bella.MID"_qs, midiSong("D", "Artist", "Genre"));
    QVERIFY(update());
    QCOMPARE(SetReader(memory).playlist(followedSongs), QList<QByteArray>{"/Canzon-1.MID"});
}

/// The index may have fewer songs than the path file: another playlist without a path file must not
/// cause this one to be lost.
void TestPlaylistFollowing::keepsPathsThatTheIndexLacks()
{
    const SampleMemory memory;
    fillPlaylist(memory, QByteArray());
    memory.write(u"D.MID"_qs, midiSong("B", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(followedList,
                 field(QByteArray("\7\0", 2), 32) + field(QByteArray("\10\0", 2), 32));
    memory.write(u"playlist/play0008.dat"_qs, entryA);
    memory.write(followedSongs, songRecord("00000062", "B", "7800"));
    memory.write(u"playlist/play0007.pts"_qs, field("/D.MID", 64));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(followedSongs), songRecord("00000003", "B", "7800"));
}

/// A power cut can leave this on some memories.
void TestPlaylistFollowing::fillsAnEmptyPathFile()
{
    const SampleMemory memory;
    fillPlaylist(memory, entryA + entryB);
    memory.write(u"playlist/play0007.pts"_qs, QByteArray());
    memory.write(u"D.MID"_qs, midiSong("D", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"playlist/play0007.pts"_qs), field("/A.MID", 64) + field("/B.MID", 64));
    QCOMPARE(memory.read(followedSongs), entryA + entryB);
}

/// Titles are used if the index can't be trusted, and only then.
void TestPlaylistFollowing::trustsIdsOfASoundIndex()
{
    const SampleMemory memory;
    fillPlaylist(memory, entryA + entryB);
    memory.write(u"A.MID"_qs, midiSong("B", "Artist", "Genre"));
    memory.setDate(u"A.MID"_qs, QDateTime(QDate(2004, 1, 1), QTime(1, 1)));
    memory.write(u"B.MID"_qs, midiSong("A", "Artist", "Genre"));
    memory.setDate(u"B.MID"_qs, QDateTime(QDate(2004, 1, 1), QTime(1, 1)));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(followedSongs),
             songRecord("00000000", "B", "7800") + songRecord("00000001", "A", "7800"));
}

/// An entry with another title than its song, in a playlist that the player changed.
void TestPlaylistFollowing::choosesNoneOfTwoSongsWithOneTitle()
{
    const SampleMemory memory;
    memory.write(u"D.MID"_qs, midiSong("B", "Artist", "Genre"));
    fillPlaylist(memory, songRecord("00000000", "B", "7800"));
    memory.write(u"playlist/play0007.pts"_qs, field("/C.MID", 64));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(followedSongs), entryA);
}

void TestPlaylistFollowing::givesIdsOfDeadEntriesToNoSong()
{
    const SampleMemory memory;
    fillPlaylist(memory, entryA + entryC);
    memory.remove(u"C.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.write(u"D.MID"_qs, midiSong("D", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(followedSongs), entryA + entryC);
    QCOMPARE(SetReader(memory).pathOf(3), QByteArray("/D.MID"));
    // A rebuild counts from 0 if no playlist entry can get a wrong song.
    memory.write(followedSongs, entryA + songRecord("00000063", "C", "7800"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(SetReader(memory).pathOf(2), QByteArray("/D.MID"));
    memory.write(followedSongs, entryA + songRecord("00000001", "GONE", "7800"));
    memory.remove(u"B.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(SetReader(memory).pathOf(2), QByteArray("/A.MID"));
    QCOMPARE(SetReader(memory).pathOf(3), QByteArray("/D.MID"));
    QCOMPARE(memory.read(followedSongs),
             songRecord("00000002", "A", "7800") + songRecord("00000001", "GONE", "7800"));
}

/// A song that is renamed to the path of another one gets its id.
void TestPlaylistFollowing::givesNamesOfDeadEntriesToNoSong()
{
    for (const bool isNamed : {false, true}) {
        const SampleMemory memory;
        memory.write(u"Canzon-1.MID"_qs, midiSong("D", "Artist", "Genre"));
        fillPlaylist(memory, entryA + (isNamed ? songRecord("00000003", "D", "7800") : entryB));
        QVERIFY(SetReader(memory).pathOf(3) == "/Canzon-1.MID");
        memory.remove(u"Canzon-1.MID"_qs);
        memory.write(u"Canzone bella.MID"_qs, midiSong("New", "Artist", "Genre"));
        ScriptedIndex index;
        index.setRenameQuestion([](const QString &, const QString &) { return 0; });
        QVERIFY(index.updateIndex(memory.root()));
        QCOMPARE(memory.has(u"Canzon-2.MID"_qs), isNamed);
        QCOMPARE(SetReader(memory).playlist(followedSongs),
                 QList<QByteArray>({"/A.MID", isNamed ? "<none>" : "/B.MID"}));
    }
}

void TestPlaylistFollowing::reportsAPlaylistThatCannotBeFollowed()
{
    const SampleMemory memory;
    fillPlaylist(memory, entryA);
    memory.remove(followedSongs);
    QVERIFY(QDir(memory.root()).mkdir(followedSongs));
    ScriptedIndex index;
    QStringList errors;
    connect(&index, &Index::errorFromIndex,
            [&errors](const QString &error) { errors.append(error); });
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(errors, QStringList(u"Playlist non aggiornata: "_qs + memory.path(followedSongs)));
    // The playlist's entries could have any id of the old index.
    QCOMPARE(SetReader(memory).pathOf(3), QByteArray("/A.MID"));
}

void TestPlaylistFollowing::reportsAPlaylistThatCannotBeWritten()
{
    const SampleMemory memory;
    const SmallDisk disk(memory.root(), SmallDisk::memorySize);
    fillPlaylist(memory, entryB);
    if (!SmallDisk::protect(memory.path(followedSongs)))
        QSKIP("only root can protect a file from root");
    memory.remove(u"A.MID"_qs);
    ScriptedIndex index;
    QStringList errors;
    connect(&index, &Index::errorFromIndex,
            [&errors](const QString &error) { errors.append(error); });
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(errors, QStringList(u"Playlist non aggiornata: "_qs + memory.path(followedSongs)));
    QCOMPARE(memory.read(followedSongs), entryB);
}

BRISEL_TEST(QCoreApplication, TestPlaylistFollowing)
#include "tst_playlistfollowing.moc"
