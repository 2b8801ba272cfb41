#include "memory/songremoval.h"

#include "base/filedescriptor.h"
#include "base/filefailure.h"
#include "index/memoryreasons.h"
#include "library/songdeletion.h"
#include "memory/memoryclaim.h"
#include "memory/memorycontents.h"
#include "tests/index/handmadeset.h"
#include "tests/index/setreader.h"
#include "tests/memory/cutreplacement.h"
#include "tests/memory/removesongs.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QTest>

#include <optional>

#include <sys/file.h>

using namespace brisel;

using namespace Sample;

namespace
{

const QString removalSongs = u"playlist/play0007.dat"_qs;
const QString removalPaths = u"playlist/play0007.pts"_qs;

QByteArray pathField(const QByteArray &path)
{
    return field(path, 64);
}

} // namespace

/// Songs are removed from a memory, and everything follows.
class TestSongRemoval : public QObject
{
    Q_OBJECT

    using Outcome = SongRemoval::Outcome;

private slots:
    void removesAFileWithItsGraphics();
    void keepsSharedGraphics();
    void removesGraphicsWithTheirLastSong();
    void takesEntriesOut();
    void leavesNothingBehindTheLastEntry();
    void keepsOtherBytesOfThePlaylists();
    void keepsNoPathOfAnotherEntry();
    void keepsEntriesWithAnotherTitle();
    void countsPlaylists();
    void keepsEntriesOfSongsThatStay();
    void removesNothingOutside();
    void removesALinkButNotItsTarget();
    void removesOnlySongs();
    void takesEntriesOfMissingFilesOut();
    void countsASongOnce();
    void removesTheLastSong();
    void makesNoIndex();
    void endsBetweenTwoFiles();
    void findsSongsInOtherLetters();
    void findsSongsThatTheCodePageLacks();
    void finishesAReplacementThatWasCut();
    void refusesABusyMemory();
    void refusesAnExchangedMemory();
    void removesItsMark();
    void refusesAReadOnlyMemory();
    void reportsAnUnwritablePlaylist();
    void reportsAnUnreadablePlaylist();

private:
    SongRemoval::Outcome remove(const SampleMemory &memory, const QStringList &names)
    {
        m_run.emplace();
        return removeSongs(memory, names, *m_run);
    }
    QString report() const { return m_run->report().text(); }

    std::optional<ScriptedRun> m_run;
};

void TestSongRemoval::removesAFileWithItsGraphics()
{
    const HandMadeSet memory;
    memory.write(u"BASI/b.CDG"_qs, "graphics");
    memory.write(u"BASI/D.cdg"_qs, "other graphics");
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QVERIFY(!memory.has(u"BASI/B.MP3"_qs));
    QVERIFY(!memory.has(u"BASI/b.CDG"_qs));
    QVERIFY(memory.has(u"BASI/D.cdg"_qs));
    QCOMPARE(m_run->report().counted(RunReport::Success::Deleted), 1);
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.songCount(), 3);
    QCOMPARE(reader.pathOf(7), QByteArray("/BASI/D.MP3"));
    QVERIFY(!memory.has(u".brisel2pc"_qs));
}

void TestSongRemoval::keepsSharedGraphics()
{
    const HandMadeSet memory;
    memory.write(u"BASI/b.mp3"_qs, mp3Song("Twin", "Bruno", "Rock"));
    memory.write(u"BASI/B.cdg"_qs, "graphics");
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QVERIFY(!memory.has(u"BASI/B.MP3"_qs));
    QVERIFY(memory.has(u"BASI/B.cdg"_qs));
    QCOMPARE(remove(memory, {u"BASI/b.mp3"_qs}), Outcome::Done);
    QVERIFY(!memory.has(u"BASI/B.cdg"_qs));
}

void TestSongRemoval::removesGraphicsWithTheirLastSong()
{
    const HandMadeSet memory;
    memory.write(u"BASI/b.mp3"_qs, mp3Song("Twin", "Bruno", "Rock"));
    memory.write(u"BASI/B.cdg"_qs, "graphics");
    memory.write(u"BASI/D.cdg"_qs, "graphics");
    MemoryClaim claim(memory.root());
    ScriptedRun run;
    run.onStep = [&](int done) {
        if (run.steps.size() > 2) // of the index
            return;
        QCOMPARE(memory.has(u"BASI/B.cdg"_qs), done < 2);
        run.isStopped = done == 2;
    };
    SongRemoval removal(claim, {memory.path(u"BASI/B.MP3"_qs), memory.path(u"BASI/b.mp3"_qs),
                                memory.path(u"BASI/D.MP3"_qs)});
    QCOMPARE(removal.run(run), Outcome::Interrupted);
    QVERIFY(!memory.has(u"BASI/B.cdg"_qs));
    QVERIFY(memory.has(u"BASI/D.cdg"_qs));
}

void TestSongRemoval::takesEntriesOut()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::two() + HandMadeSet::one() + HandMadeSet::two() +
                       HandMadeSet::four());
    memory.write(removalPaths, pathField("/BASI/B.MP3") + pathField("/A.MID") +
                                   pathField("/BASI/B.MP3") + pathField("/BASI/D.MP3"));
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), HandMadeSet::one() + HandMadeSet::four());
    QCOMPARE(memory.read(removalPaths), pathField("/A.MID") + pathField("/BASI/D.MP3"));
    QCOMPARE(memory.read(u"playlist/playlist.dat"_qs), field("\x07", 32));
    const SetReader reader(memory);
    QCOMPARE(reader.playlist(removalSongs), (QList<QByteArray>{"/A.MID", "/BASI/D.MP3"}));
}

void TestSongRemoval::leavesNothingBehindTheLastEntry()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::two() + HandMadeSet::two() + "half a record");
    memory.write(removalPaths, pathField("/BASI/B.MP3") + pathField("/BASI/B.MP3"));
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), QByteArray());
    QCOMPARE(memory.read(removalPaths), QByteArray());
}

/// Entries that name no song, and playlists without such entries, stay byte for byte.
void TestSongRemoval::keepsOtherBytesOfThePlaylists()
{
    const HandMadeSet memory;
    const QByteArray dead = songRecord("00000063", "GONE", "1234");
    memory.addPlaylist(dead + HandMadeSet::two() + HandMadeSet::one());
    memory.write(removalPaths,
                 pathField("/GONE.MID") + pathField("/BASI/B.MP3") + pathField("/A.MID"));
    memory.write(u"playlist/playlist.dat"_qs,
                 field("\x07", 2) + QByteArray(30, '\x55') + field("\x08", 2) + "half");
    memory.write(u"playlist/play0008.dat"_qs, HandMadeSet::one() + "tail");
    const QByteArray list = memory.read(u"playlist/playlist.dat"_qs);
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), dead + HandMadeSet::one());
    QCOMPARE(memory.read(removalPaths), pathField("/GONE.MID") + pathField("/A.MID"));
    QCOMPARE(memory.read(u"playlist/playlist.dat"_qs), list);
    QCOMPARE(memory.read(u"playlist/play0008.dat"_qs), HandMadeSet::one() + "tail");
}

/// The player has moved the first entry behind the second one, and does not know path files.
/// Without the entry that shows it, the path of the removed song would become that of the dead
/// entry.
void TestSongRemoval::keepsNoPathOfAnotherEntry()
{
    const HandMadeSet memory;
    const QByteArray dead = songRecord("00000063", "GONE", "1234");
    memory.addPlaylist(HandMadeSet::two() + dead + HandMadeSet::one());
    memory.write(removalPaths,
                 pathField("/GONE.MID") + pathField("/BASI/B.MP3") + pathField("/A.MID"));
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), dead + HandMadeSet::one());
    QCOMPARE(memory.read(removalPaths), QByteArray(64, '\0') + pathField("/A.MID"));
    // Another song gets the path, and the same title.
    memory.write(u"BASI/B.MP3"_qs, mp3Song("Gone", "Bruno", "Rock"));
    memory.write(u"X.MP3"_qs, mp3Song("Gone", "Bruno", "Rock"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QVERIFY(!SetReader(memory).playlist(removalSongs).contains("/BASI/B.MP3"));
}

/// Such an entry may mean another song: docs/formats/playlists.md, "What an entry means".
void TestSongRemoval::keepsEntriesWithAnotherTitle()
{
    const HandMadeSet memory;
    const QByteArray other = songRecord("00000001", "THREE", "7800");
    memory.addPlaylist(other + HandMadeSet::two());
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), other);
}

void TestSongRemoval::countsPlaylists()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::two() + HandMadeSet::two());
    memory.write(u"playlist/playlist.dat"_qs, field("\x07", 32) + field("\x08", 32));
    memory.write(u"playlist/play0008.dat"_qs, HandMadeSet::one());
    ScriptedRun run;
    MemoryContents contents;
    QCOMPARE(contents.read(memory.root(), run), MemoryContents::Outcome::Done);
    SongFiles entriesFiles(memory.root(), contents);
    SongEntries entries(contents, entriesFiles);
    entries.add(memory.path(u"BASI/B.MP3"_qs));
    entries.add(u"/elsewhere/CARD/A.MID"_qs);
    QCOMPARE(entries.playlists(), 1);
    QCOMPARE(entries.countIn(memory.read(removalSongs)), 2);
    entries.add(memory.path(u"A.MID"_qs));
    QCOMPARE(entries.playlists(), 2);
    entries.remove(memory.path(u"A.MID"_qs));
    QCOMPARE(entries.playlists(), 1);
}

/// A folder can't be deleted.
void TestSongRemoval::keepsEntriesOfSongsThatStay()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one() + HandMadeSet::two());
    memory.remove(u"BASI/B.MP3"_qs);
    memory.write(u"BASI/B.MP3/x"_qs, "x");
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs, u"A.MID"_qs}), Outcome::Failed);
    QVERIFY(!memory.has(u"A.MID"_qs));
    QCOMPARE(memory.read(removalSongs), HandMadeSet::two());
    QVERIFY(report().contains(SongDeletion::undeletable.text()));
    QVERIFY(report().contains(memory.path(u"BASI/B.MP3"_qs)));
}

void TestSongRemoval::removesNothingOutside()
{
    const HandMadeSet memory;
    const QTemporaryDir other;
    QFile file(other.filePath(u"S.MID"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(other.path(), memory.path(u"LINK"_qs)));
    QCOMPARE(remove(memory, {u"LINK/S.MID"_qs, u"../S.MID"_qs}), Outcome::Failed);
    QVERIFY(QFile::exists(other.filePath(u"S.MID"_qs)));
    QVERIFY(report().contains(SongRemoval::outside.text()));
    QCOMPARE(m_run->report().failed(), 2);
}

void TestSongRemoval::removesALinkButNotItsTarget()
{
    const HandMadeSet memory;
    QVERIFY(QFile::link(memory.path(u"A.MID"_qs), memory.path(u"LINK.MID"_qs)));
    QCOMPARE(remove(memory, {u"LINK.MID"_qs}), Outcome::Done);
    QVERIFY(!QFileInfo(memory.path(u"LINK.MID"_qs)).isSymLink());
    QVERIFY(memory.has(u"A.MID"_qs));
}

void TestSongRemoval::removesOnlySongs()
{
    const HandMadeSet memory;
    QCOMPARE(remove(memory, {u"title.id2"_qs, u"A"_qs}), Outcome::Failed);
    QVERIFY(memory.has(u"title.id2"_qs));
    QVERIFY(report().contains(SongRemoval::notASong.text()));
    memory.write(u"ALONE.cdg"_qs, "graphics");
    QCOMPARE(remove(memory, {u"ALONE.cdg"_qs}), Outcome::Done);
    QVERIFY(!memory.has(u"ALONE.cdg"_qs));
    QCOMPARE(m_run->report().counted(RunReport::Success::Deleted), 0);
}

void TestSongRemoval::takesEntriesOfMissingFilesOut()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one() + HandMadeSet::two());
    QVERIFY(QDir(memory.path(u"BASI"_qs)).removeRecursively());
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), HandMadeSet::one());
    QCOMPARE(m_run->report().counted(RunReport::Success::Deleted), 1);
    QCOMPARE(SetReader(memory).songCount(), 2);
}

/// A damaged index may have a path twice.
void TestSongRemoval::countsASongOnce()
{
    const HandMadeSet memory;
    QCOMPARE(remove(memory, {u"A.MID"_qs, u"C.KAR"_qs, u"A.MID"_qs}), Outcome::Done);
    QCOMPARE(m_run->report().counted(RunReport::Success::Deleted), 2);
}

/// An update would keep the index of a memory without songs.
void TestSongRemoval::removesTheLastSong()
{
    const HandMadeSet memory;
    QCOMPARE(remove(memory, {u"A.MID"_qs, u"BASI/B.MP3"_qs, u"C.KAR"_qs, u"BASI/D.MP3"_qs}),
             Outcome::Done);
    QCOMPARE(memory.rootFiles().size(), 0);
    QVERIFY(m_run->report().failed() == 0);
}

void TestSongRemoval::makesNoIndex()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    memory.write(u"B.MID"_qs, midiSong("Two", "Anna", "Pop"));
    QCOMPARE(remove(memory, {u"A.MID"_qs}), Outcome::Done);
    QCOMPARE(memory.rootFiles().keys(), QStringList{u"B.MID"_qs});
}

void TestSongRemoval::endsBetweenTwoFiles()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one() + HandMadeSet::two());
    MemoryClaim claim(memory.root());
    ScriptedRun run;
    run.onStep = [&run](int) { run.isStopped = true; };
    SongRemoval removal(claim, {memory.path(u"A.MID"_qs), memory.path(u"BASI/B.MP3"_qs)});
    QCOMPARE(removal.run(run), Outcome::Interrupted);
    QVERIFY(memory.has(u"BASI/B.MP3"_qs));
    QCOMPARE(memory.read(removalSongs), HandMadeSet::two());
    QCOMPARE(SetReader(memory).songCount(), 3);
    QCOMPARE(run.report().skipped(), 1);
}

/// The other program's letters; the file system of the test distinguishes them.
void TestSongRemoval::findsSongsInOtherLetters()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::one() + HandMadeSet::two());
    QVERIFY(QFile::link(u"A.MID"_qs, memory.path(u"a.mid"_qs)));
    ScriptedRun run;
    MemoryContents contents;
    QCOMPARE(contents.read(memory.root(), run), MemoryContents::Outcome::Done);
    SongFiles entriesFiles(memory.root(), contents);
    SongEntries entries(contents, entriesFiles);
    entries.add(memory.path(u"a.mid"_qs));
    QCOMPARE(entries.playlists(), 1);
    memory.remove(u"a.mid"_qs);
    memory.write(u"a.mid"_qs, "another song");
    SongFiles othersFiles(memory.root(), contents);
    SongEntries others(contents, othersFiles);
    others.add(memory.path(u"a.mid"_qs));
    QCOMPARE(others.playlists(), 0);
}

/// The index has '?' in the path.
void TestSongRemoval::findsSongsThatTheCodePageLacks()
{
    const SampleMemory memory;
    for (const QString &name : {u"A.MID"_qs, u"POP/\u042F.MID"_qs, u"\u042F1.MID"_qs})
        memory.write(name, midiSong(name.right(5).left(1).toLatin1() + "x", "Anna", "Pop"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const auto playlists = [&memory](const QString &name) {
        ScriptedRun run;
        MemoryContents contents;
        (void)contents.read(memory.root(), run);
        SongFiles entriesFiles(memory.root(), contents);
        SongEntries entries(contents, entriesFiles);
        entries.add(memory.path(name));
        return entries.playlists();
    };
    memory.write(u"playlist/playlist.dat"_qs, field("\x07", 32));
    memory.write(removalSongs, memory.read(u"title.id2"_qs));
    QCOMPARE(playlists(u"POP/\u042F.MID"_qs), 1);
    // Another file could be meant.
    memory.write(u"POP/\u0416.MID"_qs, "a song");
    QCOMPARE(playlists(u"POP/\u042F.MID"_qs), 0);
    QCOMPARE(playlists(u"POP/\u0416.MID"_qs), 0);
    QCOMPARE(remove(memory, {u"\u042F1.MID"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs).size(), 2 * 64);
}

void TestSongRemoval::refusesABusyMemory()
{
    const HandMadeSet memory;
    // A lock of another open file counts like that of another program.
    const FileDescriptor folder = FileDescriptor::openFolder(memory.root());
    QCOMPARE(::flock(folder.get(), LOCK_EX), 0);
    QCOMPARE(remove(memory, {u"A.MID"_qs}), Outcome::Refused);
    QVERIFY(memory.has(u"A.MID"_qs));
    QVERIFY(report().contains(MemoryReason::inUse.text()));
}

/// Its staged playlists would come back later otherwise.
void TestSongRemoval::finishesAReplacementThatWasCut()
{
    const HandMadeSet memory;
    memory.addPlaylist(HandMadeSet::two() + HandMadeSet::one());
    cutReplacement(memory, removalSongs);
    QCOMPARE(remove(memory, {u"BASI/B.MP3"_qs}), Outcome::Done);
    QCOMPARE(memory.read(removalSongs), HandMadeSet::one());
    QCOMPARE(SetReader(memory).songCount(), 3);
    QCOMPARE(SetReader(memory).pathOf(7), QByteArray("/BASI/D.MP3"));
}

void TestSongRemoval::refusesAnExchangedMemory()
{
    const HandMadeSet memory;
    MemoryClaim claim(memory.root());
    claim.mark();
    QVERIFY(memory.has(u".brisel2pc/mark"_qs));
    memory.write(u".brisel2pc/mark"_qs, "0123456789abcdef0123456789abcdef");
    ScriptedRun run;
    QCOMPARE(SongRemoval(claim, {memory.path(u"A.MID"_qs)}).run(run), Outcome::Refused);
    QVERIFY(memory.has(u"A.MID"_qs));
    QVERIFY(run.report().text().contains(MemoryReason::gone.text()));
}

void TestSongRemoval::removesItsMark()
{
    const HandMadeSet memory;
    {
        MemoryClaim claim(memory.root());
        claim.mark();
        QVERIFY(memory.has(u".brisel2pc/mark"_qs));
    }
    QVERIFY(!memory.has(u".brisel2pc"_qs));
    memory.write(u".brisel2pc/names"_qs, "kept");
    {
        MemoryClaim claim(memory.root());
        claim.mark();
        QVERIFY(claim.isSame());
    }
    QVERIFY(!memory.has(u".brisel2pc/mark"_qs));
    QVERIFY(memory.has(u".brisel2pc/names"_qs));
}

void TestSongRemoval::refusesAReadOnlyMemory()
{
    const SampleMemory memory;
    const SmallDisk disk(memory.root(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    memory.write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
    QVERIFY(disk.setReadOnly(true));
    QCOMPARE(remove(memory, {u"A.MID"_qs}), Outcome::Refused);
    QVERIFY(report().contains(FileReason::writeProtected.text()));
}

void TestSongRemoval::reportsAnUnwritablePlaylist()
{
    const SampleMemory memory;
    const SmallDisk disk(memory.root(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    const HandMadeSet model;
    for (const QString &name : model.rootFiles().keys())
        memory.write(name, model.read(name));
    for (const QString &name : {u"BASI/B.MP3"_qs, u"BASI/D.MP3"_qs})
        memory.write(name, model.read(name));
    memory.write(u"playlist/playlist.dat"_qs, field("\x07", 32));
    memory.write(removalSongs, HandMadeSet::one() + HandMadeSet::two());
    QVERIFY(SmallDisk::protect(memory.path(removalSongs)));
    QCOMPARE(remove(memory, {u"A.MID"_qs}), Outcome::Failed);
    QVERIFY(!memory.has(u"A.MID"_qs));
    QVERIFY(report().contains(u"Playlist non aggiornata: "_qs + memory.path(removalSongs)));
    QCOMPARE(SetReader(memory).songCount(), 3);
}

/// Its entries are not known.
void TestSongRemoval::reportsAnUnreadablePlaylist()
{
    const HandMadeSet memory;
    memory.addPlaylist({});
    memory.remove(removalSongs);
    memory.write(removalSongs + u"/x"_qs, "x");
    const QString line = u"Playlist non aggiornata: "_qs + memory.path(removalSongs);
    QCOMPARE(remove(memory, {u"A.MID"_qs}), Outcome::Failed);
    QVERIFY2(report().contains(line), qPrintable(report()));
    QVERIFY(!memory.has(u"A.MID"_qs));
    // No entry can name what is not in the index.
    memory.write(u"ALONE.cdg"_qs, "graphics");
    (void)remove(memory, {u"ALONE.cdg"_qs});
    QVERIFY2(!report().contains(line), qPrintable(report()));
}

BRISEL_TEST(QCoreApplication, TestSongRemoval)

#include "tst_songremoval.moc"
