#include "index/givennames.h"
#include "tests/memory/openpanel.h"
#include "tests/testprogram.h"

#include <QMessageBox>
#include <QSignalSpy>

using namespace brisel;

using namespace Sample;

namespace
{

/// The songs of the index with other ids, as after a rebuild.
const QByteArray newVolare = songRecord("00000000", "VOLARE", "7808");
const QByteArray newAzzurro = songRecord("00000001", "AZZURRO", "0001");
const QByteArray newNessuno = songRecord("00000003", "NESSUNO", "5002");

/// Rewrites the index of the memory with the new ids; "NESSUNO" may be missing.
void rebuildIndex(const SampleMemory &memory, bool hasNessuno = true)
{
    const QByteArray digits = "20091231235958";
    memory.write(u"index.id2"_qs,
                 pathRecord("00000000", "/BASI/VOLARE.MID", digits) +
                     pathRecord("00000001", "/BASI/AZZUR\x85.MP3", digits) +
                     (hasNessuno ? pathRecord("00000003", "/NESSUNO.ZB3", digits) : QByteArray()));
    memory.write(u"title.id2"_qs,
                 newAzzurro + (hasNessuno ? newNessuno : QByteArray()) + newVolare);
}

/// A memory with the playlist 7 and its document, which is changed.
struct Unsaved {
    explicit Unsaved(const QByteArray &songs, const QByteArray &paths = {})
    {
        writePlaylist(memory, songs, paths);
        document.setContents(readContents(memory));
    }
    QList<qint16> takeOver() { return document.takeOver(readContents(memory)); }

    SampleMemory memory;
    PlaylistDocument document;
};

} // namespace

/// Unsaved changes of playlists when the memory is read again.
class TestUnsavedPlaylists : public QObject
{
    Q_OBJECT

private slots:
    void followTheSongsOfARebuiltIndex();
    void followDeadEntriesThatWereFound();
    void followSongsToTheirGivenNames();
    void loseAddedSongsThatTheIndexLacks();
    void areLostIfThePlaylistWasChanged_data();
    void areLostIfThePlaylistWasChanged();
    void areLostAfterAPartlySavedChange();
    void areShownIfTheyAreLost();
    void outlastAnotherReading();
    void leaveTheShownPlaylist();
};

void TestUnsavedPlaylists::followTheSongsOfARebuiltIndex()
{
    Unsaved unsaved(volare + azzurro + deadSong, volarePath + azzurroPath + deadPath);
    unsaved.document.add(0, 0, {9});
    unsaved.document.remove(0, {2});
    QCOMPARE(unsaved.document.songsFile(0), nessuno + volare + deadSong);
    rebuildIndex(unsaved.memory);
    unsaved.memory.write(songsOf7, newVolare + newAzzurro + deadSong);
    QCOMPARE(unsaved.takeOver(), QList<qint16>());
    QCOMPARE(unsaved.document.songsFile(0), newNessuno + newVolare + deadSong);
    QCOMPARE(unsaved.document.pathsFile(0), nessunoPath + volarePath + deadPath);
    QVERIFY(unsaved.document.isModified());
    unsaved.document.undoStack().undo();
    QCOMPARE(unsaved.document.songsFile(0), newVolare + newAzzurro + deadSong);
    QVERIFY(!unsaved.document.isModified());
    QVERIFY(!unsaved.document.undoStack().canUndo());
}

void TestUnsavedPlaylists::followDeadEntriesThatWereFound()
{
    const QByteArray lost = songRecord("00000777", "OLD TITLE", "7808");
    Unsaved unsaved(lost + azzurro, nessunoPath + azzurroPath);
    unsaved.document.moveStep(0, {1}, true);
    rebuildIndex(unsaved.memory);
    unsaved.memory.write(songsOf7, newNessuno + newAzzurro);
    QCOMPARE(unsaved.takeOver(), QList<qint16>());
    QCOMPARE(unsaved.document.songsFile(0), newAzzurro + newNessuno);
}

void TestUnsavedPlaylists::followSongsToTheirGivenNames()
{
    Unsaved unsaved(volare);
    unsaved.document.add(0, 1, {5});
    unsaved.memory.write(u"BASI/VOLARE-1.MID"_qs, "1");
    unsaved.memory.write(u"BASI/AZZURR-1.MP3"_qs, "1");
    GivenNames names;
    names.setRoot(unsaved.memory.root());
    QVERIFY(names.add(u"BASI"_qs, u"VOLARE.MID"_qs, u"VOLARE-1.MID"_qs));
    QVERIFY(names.add(u"BASI"_qs, u"AZZURà.MP3"_qs, u"AZZURR-1.MP3"_qs));
    const QByteArray digits = "20091231235958";
    unsaved.memory.write(u"index.id2"_qs, pathRecord("00000000", "/BASI/VOLARE-1.MID", digits) +
                                              pathRecord("00000001", "/BASI/AZZURR-1.MP3", digits));
    unsaved.memory.write(u"title.id2"_qs, newAzzurro + newVolare);
    unsaved.memory.write(songsOf7, newVolare);
    QCOMPARE(unsaved.takeOver(), QList<qint16>());
    QCOMPARE(unsaved.document.songsFile(0), newVolare + newAzzurro);
}

void TestUnsavedPlaylists::loseAddedSongsThatTheIndexLacks()
{
    Unsaved unsaved(volare);
    unsaved.document.add(0, 0, {9, 5});
    rebuildIndex(unsaved.memory, false);
    unsaved.memory.write(songsOf7, newVolare);
    QCOMPARE(unsaved.takeOver(), QList<qint16>{7});
    QCOMPARE(unsaved.document.songsFile(0), newAzzurro + newVolare);
}

void TestUnsavedPlaylists::areLostIfThePlaylistWasChanged_data()
{
    QTest::addColumn<QByteArray>("songs");
    QTest::newRow("other song") << volare + nessuno;
    QTest::newRow("other order") << azzurro + volare;
    QTest::newRow("one more") << volare + azzurro + azzurro;
    QTest::newRow("one less") << volare;
    QTest::newRow("missing") << QByteArray();
}

void TestUnsavedPlaylists::areLostIfThePlaylistWasChanged()
{
    QFETCH(QByteArray, songs);
    Unsaved unsaved(volare + azzurro);
    unsaved.document.add(0, 0, {9});
    if (songs.isEmpty())
        unsaved.memory.remove(songsOf7);
    else
        unsaved.memory.write(songsOf7, songs);
    QCOMPARE(unsaved.takeOver(), QList<qint16>{7});
    QVERIFY(!unsaved.document.isModified());
    QCOMPARE(unsaved.document.songsFile(0), songs);
}

/// What is on the memory is neither the old nor the new playlist for sure.
void TestUnsavedPlaylists::areLostAfterAPartlySavedChange()
{
    Unsaved unsaved(volare + azzurro, volarePath + azzurroPath);
    unsaved.document.remove(0, {0});
    unsaved.memory.write(songsOf7, azzurro);
    unsaved.document.setHalfSaved(0, azzurro, volarePath + azzurroPath);
    rebuildIndex(unsaved.memory);
    unsaved.memory.write(songsOf7, newAzzurro);
    QCOMPARE(unsaved.takeOver(), QList<qint16>{7});
    QCOMPARE(unsaved.document.songsFile(0), newAzzurro);
}

void TestUnsavedPlaylists::areShownIfTheyAreLost()
{
    OpenPanel open(volare + azzurro);
    open.panel.addSongs({9});
    open.memory.write(songsOf7, azzurro);
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(
            box->text(),
            u"La memoria è cambiata: delle modifiche non salvate non tutte si possono tenere."_qs);
        QCOMPARE(box->informativeText(), u"Playlist: 7"_qs);
        box->button(QMessageBox::Ok)->click();
    });
    open.panel.updateContents(readContents(open.memory));
    QTRY_VERIFY(script.isDone());
    QCOMPARE(open.titles(), u"AZZURRO"_qs);
    QVERIFY(!open.panel.isModified());
}

void TestUnsavedPlaylists::outlastAnotherReading()
{
    OpenPanel open(volare + azzurro);
    open.panel.addSongs({9});
    rebuildIndex(open.memory);
    DialogScript script;
    const QSignalSpy outdated(&open.panel, &PlaylistsPanel::outdated);
    script.expectMessage(u"Playlist"_qs,
                         u"Le playlist non sono state salvate: nel frattempo la memoria è stata "
                         u"cambiata, e ora viene letta di nuovo."_qs,
                         QMessageBox::Ok);
    QVERIFY(!open.panel.save());
    QCOMPARE(outdated.size(), 1);
    open.memory.write(songsOf7, newVolare + newAzzurro);
    open.panel.updateContents(readContents(open.memory));
    QCOMPARE(open.titles(), u"VOLARE AZZURRO NESSUNO"_qs);
    QVERIFY(open.panel.save());
    QCOMPARE(open.memory.read(songsOf7), newVolare + newAzzurro + newNessuno);
    QVERIFY(script.isDone());
}

/// Changed playlists are not shown only because the memory was read again.
void TestUnsavedPlaylists::leaveTheShownPlaylist()
{
    OpenPanel open(volare + azzurro);
    open.panel.addSongs({9});
    open.list()->setCurrentIndex(open.list()->model()->index(1, 0));
    rebuildIndex(open.memory);
    open.memory.write(songsOf7, newVolare + newAzzurro);
    open.panel.updateContents(readContents(open.memory));
    QVERIFY(open.panel.isModified());
    QCOMPARE(open.list()->currentIndex().row(), 1);
}

BRISEL_TEST(QApplication, TestUnsavedPlaylists)

#include "tst_unsavedplaylists.moc"
