#include "memory/memorycontents.h"

#include "tests/index/samplememory.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

using Mark = MemoryContents::Mark;
using Outcome = MemoryContents::Outcome;
using State = MemoryContents::Playlist::State;

QByteArray memoryPathRecord(const char *id, const QByteArray &path)
{
    return pathRecord(id, path, "20091231235958");
}

/// A set of an MP3 and a MIDI song, written by hand.
void writeTwoSongs(const SampleMemory &memory)
{
    const QByteArray volare = songRecord("00000002", "VOLARE", "7808");
    const QByteArray azzurro = songRecord("00000005", "AZZURRO", "0001");
    memory.write(u"index.id2"_qs, memoryPathRecord("00000002", "/BASI/VOLARE.MID") +
                                      memoryPathRecord("00000005", "/BASI/AZZUR\x85.MP3"));
    memory.write(u"ordfile.id2"_qs, hex("01000000"));
    memory.write(u"title.id2"_qs, azzurro + volare);
    memory.write(u"artist.id2"_qs, groupHeader("00000002", "MODUGNO") + azzurro + volare);
    memory.write(u"genre.id2"_qs, groupHeader("00000001", "LISCIO") + volare +
                                      groupHeader("00010001", "POP") + azzurro);
    memory.write(u"title3.id2"_qs, azzurro);
    memory.write(u"artist3.id2"_qs, groupHeader("00000001", "MODUGNO") + azzurro);
    memory.write(u"genre3.id2"_qs, groupHeader("00000001", "POP") + azzurro);
    for (const QString &name : {u"atitle.id2"_qs, u"aartist.id2"_qs, u"agenre.id2"_qs,
                                u"atitle3.id2"_qs, u"aartist3.id2"_qs, u"agenre3.id2"_qs})
        memory.write(name, alphabet({}));
    memory.write(u"fsinfos.id2"_qs, hex("020001000200010001000100"));
}

Outcome outcomeOf(MemoryContents &contents, const SampleMemory &memory)
{
    ScriptedRun run;
    return contents.read(memory.root(), run);
}

} // namespace

/// The index and the playlists of a memory as they are.
class TestMemoryContents : public QObject
{
    Q_OBJECT

private slots:
    void readsSongsFromBytes();
    void marksWhatThePlayerCannotOpen();
    void marksSongsThatAListLacks();
    void marksIdsThatOccurTwice();
    void acceptsTruncatedFiles();
    void readsPlaylistsInTheOrderOfTheList();
    void reportsWhyThereIsNothing();
};

void TestMemoryContents::readsSongsFromBytes()
{
    const SampleMemory memory;
    writeTwoSongs(memory);
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    QVERIFY(contents.isComplete());
    QCOMPARE(contents.root(), memory.root());
    QCOMPARE(contents.size(), 2);
    QCOMPARE(contents.positionOf(5), 1);
    QCOMPARE(contents.positionOf(3), -1);
    QCOMPARE(contents.id(1), 5U);
    QCOMPARE(contents.pathBytes(1), QByteArray("/BASI/AZZUR\x85.MP3"));
    QCOMPARE(contents.path(1), u"/BASI/AZZUR\u00e0.MP3"_qs);
    QCOMPARE(contents.date(0), 20091231U);
    QCOMPARE(contents.time(0), 235958U);
    QCOMPARE(contents.record(0), songRecord("00000002", "VOLARE", "7808"));
    QCOMPARE(contents.title(0), u"VOLARE"_qs);
    QCOMPARE(contents.artist(0), u"MODUGNO"_qs);
    QCOMPARE(contents.genre(0), u"LISCIO"_qs);
    QCOMPARE(contents.bpm(0), 120);
    QCOMPARE(contents.type(0), SongInfoIndex::Midi);
    QVERIFY(contents.hasMarkers(0));
    QCOMPARE(contents.genre(1), u"POP"_qs);
    QCOMPARE(contents.type(1), SongInfoIndex::Mp3);
    QVERIFY(!contents.hasMarkers(1));
    QVERIFY(!contents.marks(0) && !contents.marks(1));
    QVERIFY(contents.modified() > 0);
}

void TestMemoryContents::marksWhatThePlayerCannotOpen()
{
    const SampleMemory memory;
    writeTwoSongs(memory);
    memory.write(u"index.id2"_qs, memoryPathRecord("00000002", "/BASI/?.MID") +
                                      memoryPathRecord("00000005", "/BASI/AZZURRO.MP3"));
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    QCOMPARE(contents.marks(0), MemoryContents::Marks(Mark::QuestionMark));
    QVERIFY(!contents.marks(1));
}

void TestMemoryContents::marksSongsThatAListLacks()
{
    const SampleMemory memory;
    writeTwoSongs(memory);
    memory.write(u"genre3.id2"_qs, {});
    memory.write(u"title.id2"_qs, songRecord("00000005", "AZZURRO", "0001"));
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    QCOMPARE(contents.marks(0), MemoryContents::Marks(Mark::NotListed));
    QCOMPARE(contents.title(0), QString());
    QCOMPARE(contents.record(0), QByteArray());
    QCOMPARE(contents.bpm(0), 0);
    QCOMPARE(contents.artist(0), u"MODUGNO"_qs);
    QCOMPARE(contents.marks(1), MemoryContents::Marks(Mark::NotListed));
}

void TestMemoryContents::marksIdsThatOccurTwice()
{
    const SampleMemory memory;
    writeTwoSongs(memory);
    const QByteArray paths = memory.read(u"index.id2"_qs);
    memory.write(u"index.id2"_qs, paths + memoryPathRecord("00000005", "/BASI/OTHER.MP3"));
    memory.write(u"title.id2"_qs,
                 memory.read(u"title.id2"_qs) + songRecord("00000002", "OTHER", "7808"));
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    QCOMPARE(contents.size(), 3);
    QCOMPARE(contents.positionOf(5), 1);
    QCOMPARE(contents.marks(0), MemoryContents::Marks(Mark::IdTwice));
    QCOMPARE(contents.title(0), u"VOLARE"_qs);
    QVERIFY(contents.marks(1).testFlag(Mark::IdTwice));
    QVERIFY(contents.marks(2).testFlag(Mark::IdTwice));
}

void TestMemoryContents::acceptsTruncatedFiles()
{
    const SampleMemory memory;
    writeTwoSongs(memory);
    for (const char *name : {"index.id2", "title.id2", "artist.id2", "genre3.id2"}) {
        const QByteArray content = memory.read(QLatin1StringView(name));
        memory.write(QLatin1StringView(name), content.chopped(1));
    }
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    QCOMPARE(contents.size(), 1);
    QCOMPARE(contents.marks(0), MemoryContents::Marks(Mark::NotListed));
}

void TestMemoryContents::readsPlaylistsInTheOrderOfTheList()
{
    const SampleMemory memory;
    writeTwoSongs(memory);
    const QByteArray songs = songRecord("00000005", "AZZURRO", "0001");
    memory.write(u"playlist/playlist.dat"_qs, hex("0900") + QByteArray(30, '\x55') + hex("0700") +
                                                  QByteArray(30, '\x55') + hex("0800") +
                                                  QByteArray(30, '\x55'));
    memory.write(u"playlist/play0007.dat"_qs, songs);
    memory.write(u"playlist/play0007.pts"_qs, field("/BASI/AZZURRO.MP3", 64));
    QVERIFY(QDir().mkpath(memory.path(u"playlist/play0008.dat"_qs)));
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    const QList<MemoryContents::Playlist> &playlists = contents.playlists();
    QCOMPARE(playlists.size(), 3);
    QCOMPARE(playlists.at(0).number, 9);
    QCOMPARE(playlists.at(0).state, State::Missing);
    QVERIFY(playlists.at(0).paths.isNull());
    QCOMPARE(playlists.at(1).number, 7);
    QCOMPARE(playlists.at(1).state, State::Good);
    QVERIFY(playlists.at(1).isWritable);
    QCOMPARE(playlists.at(1).songs, songs);
    QCOMPARE(playlists.at(1).paths, field("/BASI/AZZURRO.MP3", 64));
    QCOMPARE(playlists.at(2).state, State::Unreadable);
    QVERIFY(!playlists.at(2).isWritable);
}

void TestMemoryContents::reportsWhyThereIsNothing()
{
    const SampleMemory memory;
    MemoryContents contents;
    QCOMPARE(outcomeOf(contents, memory), Outcome::NotPrepared);
    writeTwoSongs(memory);
    memory.remove(u"fsinfos.id2"_qs);
    QCOMPARE(outcomeOf(contents, memory), Outcome::Done);
    QVERIFY(!contents.isComplete());
    ScriptedRun run;
    QCOMPARE(contents.read(memory.path(u"nothing"_qs), run), Outcome::Gone);
    QCOMPARE(contents.size(), 0);
    QVERIFY(contents.root().isEmpty());
}

BRISEL_TEST(QCoreApplication, TestMemoryContents)

#include "tst_memorycontents.moc"
