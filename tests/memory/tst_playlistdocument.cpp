#include "memory/playlistdocument.h"

#include "tests/memory/playlistmemory.h"
#include "tests/testprogram.h"

#include <QSignalSpy>
#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

using EntryState = PlaylistDocument::EntryState;

/// A document of a memory with the playlist 7.
struct OpenPlaylist {
    OpenPlaylist(const QByteArray &songs, const QByteArray &paths)
    {
        writePlaylist(memory, songs, paths);
        document.setContents(readContents(memory));
    }

    QByteArray songs() const { return document.songsFile(0); }
    QByteArray paths() const { return document.pathsFile(0); }

    SampleMemory memory;
    PlaylistDocument document;
};

} // namespace

/// Changes of playlists, by their bytes.
class TestPlaylistDocument : public QObject
{
    Q_OBJECT

private slots:
    void showsEntriesAndTheirStates();
    void addsRecordsOfTheIndex();
    void addsNothingThatTheIndexLacks();
    void movesEntriesWithTheirBytes();
    void movesEntriesByKeys();
    void joinsStepsOfTheSameEntries();
    void removesEntries();
    void repairsAnEntry();
    void keepsPathsOfEntriesWithoutASong();
    void takesNoPathsOfAPlaylistThatThePlayerChanged();
    void knowsPathsOfRenamedSongs();
    void marksSongsWithoutAFile();
    void isModifiedUntilItIsAsSaved();
    void dropsHalfARecord();
    void refusesMoreEntriesThanAnIndexHasSongs();
    void changesNothingThatCannotBeWritten();
    void keepsUndoIfOnlyTheSavedFilesAreNew();
    void isTheSameAfterAPartlySavedChange();
};

void TestPlaylistDocument::showsEntriesAndTheirStates()
{
    const OpenPlaylist open(volare + deadSong + wrongSong, {});
    const PlaylistDocument &document = open.document;
    QCOMPARE(document.count(), 1);
    QCOMPARE(document.number(0), 7);
    QVERIFY(document.isEditable(0));
    QCOMPARE(document.size(0), 3);
    QCOMPARE(document.entryState(0, 0), EntryState::Good);
    QCOMPARE(document.entryState(0, 1), EntryState::Dead);
    QCOMPARE(document.entryState(0, 2), EntryState::Wrong);
    QCOMPARE(document.faults(0), 2);
    QCOMPARE(document.title(0, 1), u"ANCORA"_qs);
    QCOMPARE(document.id(0, 1), 0x777U);
    QCOMPARE(document.song(0, 0), 0);
    QCOMPARE(document.song(0, 1), -1);
    QVERIFY(!document.isModified());
    QCOMPARE(open.songs(), volare + deadSong + wrongSong);
}

void TestPlaylistDocument::addsRecordsOfTheIndex()
{
    OpenPlaylist open(volare, volarePath);
    const QSignalSpy changed(&open.document, &PlaylistDocument::changed);
    QCOMPARE(open.document.add(0, 0, {9, 5}), 2);
    QCOMPARE(open.songs(), nessuno + azzurro + volare);
    QCOMPARE(open.paths(), nessunoPath + azzurroPath + volarePath);
    QCOMPARE(changed.last().at(1).value<QList<qsizetype>>(), (QList<qsizetype>{0, 1}));
    QCOMPARE(open.document.add(0, 3, {2}), 1);
    QCOMPARE(open.songs(), nessuno + azzurro + volare + volare);
    open.document.undoStack().undo();
    open.document.undoStack().undo();
    QCOMPARE(open.songs(), volare);
    open.document.undoStack().redo();
    QCOMPARE(open.songs(), nessuno + azzurro + volare);
}

void TestPlaylistDocument::addsNothingThatTheIndexLacks()
{
    const SampleMemory memory;
    writePlaylist(memory, volare, {});
    memory.write(u"title.id2"_qs, nessuno + volare);
    PlaylistDocument document;
    document.setContents(readContents(memory));
    QCOMPARE(document.add(0, 0, {5, 1, 9}), 1);
    QCOMPARE(document.songsFile(0), nessuno + volare);
    QCOMPARE(document.add(0, 0, {5}), 0);
    QVERIFY(!document.repair(0, 0, 5));
    QCOMPARE(document.songsFile(0), nessuno + volare);
}

void TestPlaylistDocument::movesEntriesWithTheirBytes()
{
    // Its other bytes are the player's.
    const QByteArray volareOfPlayer = songRecord("00000002", "VOLARE", "65F8");
    OpenPlaylist open(volareOfPlayer + azzurro + deadSong + nessuno,
                      volarePath + azzurroPath + deadPath + nessunoPath);
    open.document.move(0, {2, 0, 2, 17}, 4);
    QCOMPARE(open.songs(), azzurro + nessuno + volareOfPlayer + deadSong);
    QCOMPARE(open.paths(), azzurroPath + nessunoPath + volarePath + deadPath);
    open.document.move(0, {3}, 1);
    QCOMPARE(open.songs(), azzurro + deadSong + nessuno + volareOfPlayer);
    open.document.move(0, {1}, 2);
    open.document.move(0, {}, 0);
    QCOMPARE(open.songs(), azzurro + deadSong + nessuno + volareOfPlayer);
    QCOMPARE(open.document.undoStack().count(), 2);
}

void TestPlaylistDocument::movesEntriesByKeys()
{
    OpenPlaylist open(volare + azzurro + nessuno + deadSong, {});
    const QSignalSpy changed(&open.document, &PlaylistDocument::changed);
    open.document.moveStep(0, {0, 2}, true);
    QCOMPARE(open.songs(), volare + nessuno + azzurro + deadSong);
    QCOMPARE(changed.last().at(1).value<QList<qsizetype>>(), (QList<qsizetype>{0, 1}));
    open.document.moveStep(0, {0, 1}, true);
    QCOMPARE(open.songs(), volare + nessuno + azzurro + deadSong);
    open.document.moveStep(0, {1, 3}, false);
    QCOMPARE(open.songs(), volare + azzurro + nessuno + deadSong);
    QCOMPARE(changed.last().at(1).value<QList<qsizetype>>(), (QList<qsizetype>{2, 3}));
}

void TestPlaylistDocument::joinsStepsOfTheSameEntries()
{
    OpenPlaylist open(volare + azzurro + nessuno, {});
    open.document.moveStep(0, {0}, false);
    open.document.moveStep(0, {1}, false);
    QCOMPARE(open.songs(), azzurro + nessuno + volare);
    QCOMPARE(open.document.undoStack().count(), 1);
    open.document.moveStep(0, {0}, false); // another entry
    QCOMPARE(open.document.undoStack().count(), 2);
    open.document.undoStack().undo();
    open.document.undoStack().undo();
    QCOMPARE(open.songs(), volare + azzurro + nessuno);
    QVERIFY(!open.document.undoStack().canUndo());
    // Back at its place: there is nothing to undo.
    open.document.moveStep(0, {0}, false);
    open.document.moveStep(0, {1}, true);
    QVERIFY(!open.document.isModified());
    QVERIFY(!open.document.undoStack().canUndo());
}

void TestPlaylistDocument::removesEntries()
{
    OpenPlaylist open(volare + azzurro + deadSong, volarePath + azzurroPath + deadPath);
    const QSignalSpy changed(&open.document, &PlaylistDocument::changed);
    open.document.remove(0, {2, 0});
    QCOMPARE(open.songs(), azzurro);
    QCOMPARE(open.paths(), azzurroPath);
    QCOMPARE(changed.last().at(1).value<QList<qsizetype>>(), QList<qsizetype>{0});
    open.document.remove(0, {});
    open.document.remove(0, {0});
    QCOMPARE(open.songs(), QByteArray());
    QCOMPARE(open.paths(), QByteArray());
    open.document.undoStack().undo();
    open.document.undoStack().undo();
    QCOMPARE(open.songs(), volare + azzurro + deadSong);
    QCOMPARE(open.paths(), volarePath + azzurroPath + deadPath);
}

void TestPlaylistDocument::repairsAnEntry()
{
    OpenPlaylist open(wrongSong + deadSong, volarePath + deadPath);
    QVERIFY(open.document.repair(0, 0, 5));
    QCOMPARE(open.songs(), azzurro + deadSong);
    QCOMPARE(open.paths(), azzurroPath + deadPath);
    QVERIFY(!open.document.repair(0, 1, 0x777));
    QCOMPARE(open.document.faults(0), 1);
    open.document.undoStack().undo();
    QCOMPARE(open.songs(), wrongSong + deadSong);
    QCOMPARE(open.paths(), volarePath + deadPath);
}

void TestPlaylistDocument::keepsPathsOfEntriesWithoutASong()
{
    const QByteArray junk = deadPath.first(50) + QByteArray(14, '\x33');
    // The path of the song that the entry shows, but does not play.
    const OpenPlaylist open(deadSong + wrongSong + volare + deadSong,
                            junk + azzurroPath + volarePath);
    QCOMPARE(open.paths(), junk + azzurroPath + volarePath + QByteArray(64, '\0'));
    const OpenPlaylist without(deadSong + wrongSong, {});
    QCOMPARE(without.paths(), QByteArray(64, '\0') + volarePath);
}

void TestPlaylistDocument::takesNoPathsOfAPlaylistThatThePlayerChanged()
{
    // The player has removed the first song, and has added one.
    const OpenPlaylist removed(deadSong + azzurro, volarePath + deadPath + azzurroPath);
    QCOMPARE(removed.paths(), QByteArray(64, '\0') + azzurroPath);
    const OpenPlaylist moved(deadSong + azzurro, azzurroPath + deadPath);
    QCOMPARE(moved.paths(), QByteArray(64, '\0') + azzurroPath);
    QVERIFY(moved.document.pathRecord(0, 0).isEmpty());
    const OpenPlaylist added(deadSong + azzurro + volare, deadPath + azzurroPath);
    QCOMPARE(added.paths(), deadPath + azzurroPath + volarePath);
}

void TestPlaylistDocument::knowsPathsOfRenamedSongs()
{
    const SampleMemory memory;
    writePlaylist(memory, deadSong + volare, deadPath + field("/BASI/VOLARE NEL BLU.MID", 64));
    memory.write(u"index.id2"_qs, pathRecord("00000002", "/BASI/VOLARE-1.MID", "20091231235958"));
    memory.write(u"BASI/VOLARE-1.MID"_qs, "song");
    GivenNames names;
    names.setRoot(memory.root());
    QVERIFY(names.add(u"BASI"_qs, u"VOLARE NEL BLU.MID"_qs, u"VOLARE-1.MID"_qs));
    PlaylistDocument document;
    document.setContents(readContents(memory));
    QCOMPARE(document.pathsFile(0), deadPath + field("/BASI/VOLARE-1.MID", 64));
}

void TestPlaylistDocument::marksSongsWithoutAFile()
{
    OpenPlaylist open(volare + wrongSong + azzurro, {});
    open.document.setMissing({0});
    QCOMPARE(open.document.entryState(0, 0), EntryState::NoFile);
    QCOMPARE(open.document.entryState(0, 1), EntryState::Wrong);
    QCOMPARE(open.document.entryState(0, 2), EntryState::Good);
    QCOMPARE(open.document.faults(0), 2);
}

void TestPlaylistDocument::isModifiedUntilItIsAsSaved()
{
    OpenPlaylist open(volare + azzurro, volarePath + azzurroPath);
    const QSignalSpy modified(&open.document, &PlaylistDocument::modifiedChanged);
    open.document.remove(0, {0});
    QVERIFY(open.document.isModified(0));
    QCOMPARE(modified.size(), 1);
    open.document.add(0, 0, {2});
    QVERIFY(!open.document.isModified());
    open.document.undoStack().undo();
    QVERIFY(open.document.isModified());
    open.document.setSaved(0);
    QVERIFY(!open.document.isModified());
    open.document.undoStack().undo();
    QVERIFY(open.document.isModified());
    open.document.undoStack().redo();
    QVERIFY(!open.document.isModified());
    QCOMPARE(open.document.songsFileOnDisk(0), azzurro);
}

void TestPlaylistDocument::dropsHalfARecord()
{
    OpenPlaylist open(volare + azzurro.first(63), volarePath);
    QCOMPARE(open.document.size(0), 1);
    QVERIFY(!open.document.isModified());
    open.document.add(0, 1, {9});
    QCOMPARE(open.songs(), volare + nessuno);
}

void TestPlaylistDocument::refusesMoreEntriesThanAnIndexHasSongs()
{
    OpenPlaylist open(volare.repeated(65534), {});
    QCOMPARE(open.document.add(0, 0, {5, 9}), 0);
    QVERIFY(!open.document.isModified());
    QCOMPARE(open.document.add(0, 0, {5}), 1);
    QCOMPARE(open.document.size(0), 65535);
    QCOMPARE(open.document.add(0, 0, {5}), 0);
}

void TestPlaylistDocument::changesNothingThatCannotBeWritten()
{
    const SampleMemory memory;
    writePlaylist(memory, volare, {});
    memory.write(u"playlist/playlist.dat"_qs, listRecord("0700") + listRecord("0800"));
    PlaylistDocument document;
    document.setContents(readContents(memory));
    QCOMPARE(document.state(1), MemoryContents::Playlist::State::Missing);
    QVERIFY(!document.isEditable(1));
    QCOMPARE(document.add(1, 0, {2}), 0);
    QVERIFY(!document.isModified());
    QVERIFY(!document.undoStack().canUndo());
}

void TestPlaylistDocument::keepsUndoIfOnlyTheSavedFilesAreNew()
{
    OpenPlaylist open(volare + azzurro, volarePath + azzurroPath);
    open.document.remove(0, {0});
    open.memory.write(songsOf7, azzurro);
    open.memory.write(pathsOf7, azzurroPath);
    open.document.setSaved(0);
    const QSignalSpy replaced(&open.document, &PlaylistDocument::replaced);
    open.document.setContents(readContents(open.memory));
    QVERIFY(replaced.isEmpty());
    open.document.undoStack().undo();
    QCOMPARE(open.songs(), volare + azzurro);
    QCOMPARE(open.paths(), volarePath + azzurroPath);
    QVERIFY(open.document.isModified());
    open.document.setContents(readContents(open.memory));
    QCOMPARE(replaced.size(), 1);
    QCOMPARE(open.songs(), azzurro);
    QVERIFY(!open.document.isModified());
    open.document.setContents(nullptr);
    QCOMPARE(open.document.count(), 0);
}

/// The songs file was written; the path file was not, or is the one between the two steps.
void TestPlaylistDocument::isTheSameAfterAPartlySavedChange()
{
    OpenPlaylist open(volare + azzurro, volarePath + azzurroPath);
    open.document.remove(0, {0});
    QVERIFY(open.document.isSameAs(*readContents(open.memory)));
    open.memory.write(songsOf7, azzurro);
    QVERIFY(!open.document.isSameAs(*readContents(open.memory)));
    open.document.setHalfSaved(0, azzurro, open.document.pathsFileOnDisk(0));
    open.memory.write(pathsOf7, volarePath + azzurroPath + volarePath);
    QVERIFY(open.document.isModified());
    QVERIFY(open.document.isSameAs(*readContents(open.memory)));
}

BRISEL_TEST(QCoreApplication, TestPlaylistDocument)

#include "tst_playlistdocument.moc"
