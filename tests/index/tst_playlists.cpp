#include "base/runguard.h"
#include "index/index.h"
#include "index/playlists.h"
#include "tests/index/samplememory.h"
#include "tests/logcapture.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

const QString list = u"playlist/playlist.dat"_qs;
const QString songs7 = u"playlist/play0007.dat"_qs;
const QString paths7 = u"playlist/play0007.pts"_qs;

QByteArray listRecord(const char *number)
{
    return field(hex(number), 2) + QByteArray(30, '\x55');
}

QByteArray playlistOf(const QList<const char *> &ids)
{
    QByteArray content;
    for (const char *id : ids)
        content += songRecord(id, "OLD", "0000");
    return content;
}

QByteArray pathOf(const QByteArray &path)
{
    return field(path, 64);
}

/// Songs "/A.MID" to "/C.MID" with the ids 0 to 2 and playlist 7 of them in reverse.
void prepare(const SampleMemory &memory)
{
    for (const char *name : {"A", "B", "C"})
        memory.write(QLatin1StringView(name) + u".MID"_qs, midiSong(name, "Artist", "Genre"));
    if (!ScriptedIndex().createIndex(memory.root()))
        qFatal("no index");
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000002", "00000001", "00000000"}));
}

} // namespace

/// The user's playlists through rebuilds and updates.
class TestPlaylists : public QObject
{
    Q_OBJECT

private slots:
    void namesFilesByNumber();
    void leavesMemoryWithoutPlaylistsAlone();
    void survivesRebuild();
    void pulsesAtEachPlaylist();
    void keepsLastRecordOfLostSong();
    void writesZerosForUnknownId();
    void usesPathFilesThatExist();
    void keepsWhatThePlayerChanged();
    void bringsNoSongBackIntoAShortenedPlaylist();
    void fillsUnknownEntriesByPathAndTitle();
    void findsSongsIgnoringCase();
    void findsAccentedSongs();
    void followsRenamedSongs();
    void continuesWithoutOneSongsFile();
    void movesAFolderOutOfTheWay();
    void endsAtHalfARecord();
    void restoresInUpdateOnlyWhenTranslated();
    void restoresAfterARunThatEnded();
    void usesPathFilesWhenTheIndexIsGone();
    void needsThePathListOnly();
};

void TestPlaylists::namesFilesByNumber()
{
    QCOMPARE(Playlists::songsFileName(7), songs7);
    QCOMPARE(Playlists::pathsFileName(7), paths7);
    QCOMPARE(Playlists::songsFileName(12345), u"playlist/play12345.dat"_qs);
    // The low byte of a number is signed.
    QCOMPARE(Playlists::songsFileName(-123), u"playlist/play4294967173.dat"_qs);
    QCOMPARE(Playlists::pathsFileName(-123), u"playlist/play4294967173.pts"_qs);
    const SampleMemory memory;
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(memory.root());
    memory.write(list, listRecord("8500") + listRecord("0700") + listRecord("8501") +
                           listRecord("0700") + listRecord("0900").left(31));
    QCOMPARE(Playlists::readNumbers(set), QList<qint16>({-123, 7, 133}));
}

void TestPlaylists::leavesMemoryWithoutPlaylistsAlone()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(list);
    const QByteArray before = memory.read(songs7);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7), before);
    QVERIFY(!memory.has(paths7));
}

void TestPlaylists::survivesRebuild()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(list, listRecord("0700") + listRecord("8500"));
    memory.write(u"playlist/play4294967173.dat"_qs, playlistOf({"00000001"}));
    memory.write(u"0.MID"_qs, midiSong("Zero", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), pathOf("/C.MID") + pathOf("/B.MID") + pathOf("/A.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000003", "C", "7800") +
                                      songRecord("00000002", "B", "7800") +
                                      songRecord("00000001", "A", "7800"));
    QCOMPARE(memory.read(u"playlist/play4294967173.dat"_qs), songRecord("00000002", "B", "7800"));
    QCOMPARE(memory.read(list), listRecord("0700") + listRecord("8500"));
}

/// Thousands of playlists take long: a dialog must be painted in between.
void TestPlaylists::pulsesAtEachPlaylist()
{
    constexpr int playlists = 50;
    const SampleMemory memory;
    prepare(memory);
    QByteArray numbers;
    for (int number = 0; number < playlists; ++number) {
        numbers += static_cast<char>(number) + QByteArray(31, '\0');
        memory.write(u"playlist/play%1.dat"_qs.arg(number, 4, 10, QChar(u'0')),
                     playlistOf({"00000001"}));
    }
    memory.write(list, numbers);
    ScriptedIndex index;
    QVERIFY(index.createIndex(memory.root()));
    // The path file, the new playlist beside the old one, and the replacement of the old one.
    QVERIFY2(index.pulses() >= 3 * playlists, qPrintable(QString::number(index.pulses())));
}

void TestPlaylists::keepsLastRecordOfLostSong()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"B.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7).mid(64, 64), pathOf("/B.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "C", "7800") +
                                      songRecord("00000000", "A", "7800") +
                                      playlistOf({"00000000"}));
}

void TestPlaylists::writesZerosForUnknownId()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(songs7, playlistOf({"00000009", "00000001"}));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), QByteArray(64, '\0') + pathOf("/B.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "B", "7800") + playlistOf({"00000001"}));
}

void TestPlaylists::usesPathFilesThatExist()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"B.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QByteArray paths = pathOf("/C.MID") + pathOf("/B.MID") + pathOf("/A.MID");
    QCOMPARE(memory.read(paths7), paths);
    QCOMPARE(memory.read(songs7), songRecord("00000001", "C", "7800") +
                                      songRecord("00000000", "A", "7800") +
                                      playlistOf({"00000000"}));
    memory.write(u"B.MID"_qs, midiSong("B", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), paths);
    QCOMPARE(memory.read(songs7), songRecord("00000002", "C", "7800") +
                                      songRecord("00000001", "B", "7800") +
                                      songRecord("00000000", "A", "7800"));
}

void TestPlaylists::keepsWhatThePlayerChanged()
{
    const QByteArray c = songRecord("00000002", "C", "7800");
    const QByteArray b = songRecord("00000001", "B", "7800");
    const QByteArray a = songRecord("00000000", "A", "7800");
    const QByteArray all = c + b + a;
    for (const QByteArray &changed :
         {a + b + c, c + a, c + b, c, c + b + a + b, a + a + a, b + b + a, QByteArray()}) {
        const SampleMemory memory;
        prepare(memory);
        memory.write(songs7, all);
        QVERIFY(ScriptedIndex().createIndex(memory.root()));
        QCOMPARE(memory.read(songs7), all);
        memory.write(songs7, changed);
        // A new first song takes the id 0.
        memory.write(u"0.MID"_qs, midiSong("Zero", "Artist", "Genre"));
        QVERIFY(ScriptedIndex().createIndex(memory.root()));
        QByteArray expected;
        QByteArray paths;
        for (qsizetype at = 0; at < changed.size(); at += 64) {
            const char letter = changed.at(at + 4);
            expected +=
                songRecord(QByteArray::number(letter - 'A' + 1).rightJustified(8, '0').constData(),
                           QByteArray(1, letter), "7800");
            paths += pathOf(QByteArray("/") + letter + ".MID");
        }
        QCOMPARE(memory.read(songs7), expected);
        QCOMPARE(memory.read(paths7), paths);
    }
}

/// The player removed the repeated last entry.
void TestPlaylists::bringsNoSongBackIntoAShortenedPlaylist()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"B.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7).size(), 192);
    memory.write(songs7, memory.read(songs7).left(128));
    memory.write(u"B.MID"_qs, midiSong("B", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7),
             songRecord("00000002", "C", "7800") + songRecord("00000000", "A", "7800"));
}

void TestPlaylists::fillsUnknownEntriesByPathAndTitle()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(u"D.MID"_qs, midiSong("B", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    // No id is in the index: the first entry is found by its title, the second, whose title two
    // songs have, by the path file, and the third is not found.
    memory.write(songs7, songRecord("00000063", "A", "7800") + songRecord("00000062", "B", "7800") +
                             songRecord("00000061", "X", "7800"));
    memory.write(paths7, pathOf("/C.MID") + pathOf("/D.MID") + pathOf(""));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7), songRecord("00000000", "A", "7800") +
                                      songRecord("00000003", "B", "7800") +
                                      songRecord("00000061", "X", "7800"));
}

void TestPlaylists::findsSongsIgnoringCase()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(paths7, pathOf("/c.mid") + pathOf("") + pathOf("/none.mid") + pathOf("/b.Mid"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7).left(128),
             songRecord("00000002", "C", "7800") + songRecord("00000001", "B", "7800"));
}

void TestPlaylists::findsAccentedSongs()
{
    const SampleMemory memory;
    memory.write(u"\u00E9.MID"_qs, midiSong("E", "Artist", "Genre"));
    memory.write(u"A.MID"_qs, midiSong("A", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000001"}));
    memory.write(u"0.MID"_qs, midiSong("0", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    // The bytes of "index.id2", independent of the code page.
    QCOMPARE(memory.read(paths7), pathOf("/\x82.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000002", "E", "7800"));
}

void TestPlaylists::followsRenamedSongs()
{
    const SampleMemory memory;
    memory.write(u"A long name.MID"_qs, midiSong("A", "Artist", "Genre"));
    memory.write(u"B.MID"_qs, midiSong("B", "Artist", "Genre"));
    ScriptedIndex first;
    first.setRenameQuestion([](const QString &, const QString &) { return 2; });
    QVERIFY(first.createIndex(memory.root()));
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000000", "00000001"}));
    ScriptedIndex second;
    second.setRenameQuestion([](const QString &, const QString &) { return 0; });
    QVERIFY(second.createIndex(memory.root()));
    QVERIFY(memory.has(u"Alongn-1.MID"_qs));
    QCOMPARE(memory.read(songs7),
             songRecord("00000000", "A", "7800") + songRecord("00000001", "B", "7800"));
}

void TestPlaylists::continuesWithoutOneSongsFile()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(list, listRecord("0800") + listRecord("0700"));
    memory.remove(u"A.MID"_qs);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    // The old last entry still has the id 0, of a removed song: no other song gets it.
    QCOMPARE(memory.read(songs7), songRecord("00000002", "C", "7800") +
                                      songRecord("00000001", "B", "7800") +
                                      playlistOf({"00000000"}));
    QVERIFY(!memory.has(u"playlist/play0008.dat"_qs));
}

/// A folder can't be replaced, but it can be renamed.
void TestPlaylists::movesAFolderOutOfTheWay()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(paths7 + u"/X.MID"_qs, midiSong("X", "Artist", "Genre"));
    ScriptedIndex index;
    QStringList notices;
    connect(&index, &Index::noticeFromIndex,
            [&notices](const QString &notice) { notices.append(notice); });
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(notices, QStringList{u"Cartella rinominata, il suo nome serve all'indice: "_qs +
                                  memory.path(paths7) + u" -> old-1"_qs});
    QCOMPARE(memory.read(paths7), pathOf("/C.MID") + pathOf("/B.MID") + pathOf("/A.MID"));
    QVERIFY(memory.has(u"playlist/old-1/X.MID"_qs));
    QVERIFY(memory.read(u"index.id2"_qs).contains("/playlist/old-1/X.MID"));
}

void TestPlaylists::endsAtHalfARecord()
{
    const SampleMemory memory;
    prepare(memory);
    const QByteArray half = playlistOf({"00000001"}).left(63);
    memory.write(songs7, playlistOf({"00000002"}) + half);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), pathOf("/C.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000002", "C", "7800") + half);
}

void TestPlaylists::restoresInUpdateOnlyWhenTranslated()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"A.MID"_qs);
    LogCapture log;
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QVERIFY(log.contains(u"create playlist file path "_qs));
    QVERIFY(log.contains(u"restore playlist file path "_qs));
    QCOMPARE(memory.read(songs7), songRecord("00000002", "C", "7800") +
                                      songRecord("00000001", "B", "7800") +
                                      playlistOf({"00000000"}));
    // The player changes the list; the path file stays, and the next update restores nothing, but
    // gives the entry the title of its song.
    memory.write(songs7, playlistOf({"00000001"}));
    memory.remove(u"C.MID"_qs);
    log.clear();
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QVERIFY(!log.contains(u"restore playlist file path "_qs));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "B", "7800"));
    QCOMPARE(memory.read(paths7).size(), 192);
}

void TestPlaylists::restoresAfterARunThatEnded()
{
    // The accented song gets a new id in each update; the playlist follows even if an earlier run
    // wrote path files without using them.
    const SampleMemory memory;
    memory.write(u"\u00E9.MID"_qs, midiSong("E", "Artist", "Genre"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000000"}));
    for (const bool isRebuild : {true, false}) {
        ScriptedIndex index;
        connect(&index, &Index::progressValueChanged, &index, [](int value) {
            if (value == 1)
                RunGuard::requestEnd();
        });
        QVERIFY(!(isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root())));
        QCOMPARE(memory.read(paths7), pathOf("/\x82.MID"));
        QCOMPARE(memory.read(songs7), playlistOf({"00000000"}));
    }
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "E", "7800"));
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    // The playlist follows in each update.
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs).left(4), hex("00000002"));
    QCOMPARE(memory.read(songs7), songRecord("00000002", "E", "7800"));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7), songRecord("00000000", "E", "7800"));
}

void TestPlaylists::usesPathFilesWhenTheIndexIsGone()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(paths7, pathOf("/B.MID"));
    memory.remove(u"index.id2"_qs);
    memory.remove(u"A.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(memory.read(songs7).left(64), songRecord("00000002", "B", "7800"));
}

/// The other lists do not depend on paths.
void TestPlaylists::needsThePathListOnly()
{
    for (const QString &name : IndexSet::names()) {
        if (name == u"index.id2"_qs)
            continue;
        const SampleMemory memory;
        prepare(memory);
        memory.write(u"0.MID"_qs, midiSong("Zero", "Artist", "Genre"));
        memory.write(name, "x");
        QVERIFY(ScriptedIndex().createIndex(memory.root()));
        QCOMPARE(memory.read(songs7), songRecord("00000003", "C", "7800") +
                                          songRecord("00000002", "B", "7800") +
                                          songRecord("00000001", "A", "7800"));
    }
}

BRISEL_TEST(QCoreApplication, TestPlaylists)
#include "tst_playlists.moc"
