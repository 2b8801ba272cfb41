#include "base/runguard.h"
#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QTest>

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
    if (!Index().createIndex(memory.root()))
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
    void tellsOfItsWorkAtEachPlaylist();
    void keepsLastRecordOfLostSong();
    void writesZerosForUnknownId();
    void usesPathFilesThatExist();
    void findsSongsIgnoringCase();
    void findsAccentedSongs();
    void dropsRenamedSongs();
    void goesOnWithoutOneSongsFile();
    void stopsBeforeTheIndexIsLost();
    void endsAtHalfARecord();
    void restoresInUpdateOnlyWhenTranslated();
    void restoresAfterARunThatEnded();
    void usesPathFilesWhenTheIndexIsGone();
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
    IndexSet set;
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
    QVERIFY(Index().createIndex(memory.root()));
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
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), pathOf("/C.MID") + pathOf("/B.MID") + pathOf("/A.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000003", "C", "7800") +
                                      songRecord("00000002", "B", "7800") +
                                      songRecord("00000001", "A", "7800"));
    QCOMPARE(memory.read(u"playlist/play4294967173.dat"_qs), songRecord("00000002", "B", "7800"));
    QCOMPARE(memory.read(list), listRecord("0700") + listRecord("8500"));
}

/// Thousands of playlists take long: a dialog is to be painted in between.
void TestPlaylists::tellsOfItsWorkAtEachPlaylist()
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
    Index index;
    int told = 0;
    connect(&index, &Index::worked, [&told] { ++told; });
    QVERIFY(index.createIndex(memory.root()));
    // The path file, the new playlist beside the old one, and in its place.
    QVERIFY2(told >= 3 * playlists, qPrintable(QString::number(told)));
}

void TestPlaylists::keepsLastRecordOfLostSong()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"B.MID"_qs);
    QVERIFY(Index().createIndex(memory.root()));
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
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), QByteArray(64, '\0') + pathOf("/B.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "B", "7800") + playlistOf({"00000001"}));
}

void TestPlaylists::usesPathFilesThatExist()
{
    const SampleMemory memory;
    prepare(memory);
    const QByteArray paths = pathOf("/A.MID") + pathOf("/A.MID");
    memory.write(paths7, paths);
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), paths);
    QCOMPARE(memory.read(songs7), songRecord("00000000", "A", "7800") +
                                      songRecord("00000000", "A", "7800") +
                                      playlistOf({"00000000"}));
}

void TestPlaylists::findsSongsIgnoringCase()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(paths7, pathOf("/c.mid") + pathOf("") + pathOf("/none.mid") + pathOf("/b.Mid"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7).left(128),
             songRecord("00000002", "C", "7800") + songRecord("00000001", "B", "7800"));
}

void TestPlaylists::findsAccentedSongs()
{
    const SampleMemory memory;
    memory.write(u"\u00E9.MID"_qs, midiSong("E", "Artist", "Genre"));
    memory.write(u"A.MID"_qs, midiSong("A", "Artist", "Genre"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000001"}));
    memory.write(u"0.MID"_qs, midiSong("0", "Artist", "Genre"));
    QVERIFY(Index().createIndex(memory.root()));
    // The bytes of "index.id2", whatever code page they are read in.
    QCOMPARE(memory.read(paths7), pathOf("/\x82.MID"));
    QCOMPARE(memory.read(songs7), songRecord("00000002", "E", "7800"));
}

void TestPlaylists::dropsRenamedSongs()
{
    const SampleMemory memory;
    memory.write(u"A long name.MID"_qs, midiSong("A", "Artist", "Genre"));
    memory.write(u"B.MID"_qs, midiSong("B", "Artist", "Genre"));
    Index first;
    first.setRenameQuestion([](const QString &, const QString &) { return 2; });
    QVERIFY(first.createIndex(memory.root()));
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000000", "00000001"}));
    Index second;
    second.setRenameQuestion([](const QString &, const QString &) { return 0; });
    QVERIFY(second.createIndex(memory.root()));
    QVERIFY(memory.has(u"Alongn-1.MID"_qs));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "B", "7800") + playlistOf({"00000001"}));
}

void TestPlaylists::goesOnWithoutOneSongsFile()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(list, listRecord("0800") + listRecord("0700"));
    memory.remove(u"A.MID"_qs);
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7).left(128),
             songRecord("00000001", "C", "7800") + songRecord("00000000", "B", "7800"));
    QVERIFY(!memory.has(u"playlist/play0008.dat"_qs));
}

void TestPlaylists::stopsBeforeTheIndexIsLost()
{
    const SampleMemory memory;
    prepare(memory);
    // A dangling link of that name would be written through; a folder can't be replaced at all.
    memory.write(list, listRecord("0700") + listRecord("0800"));
    memory.write(u"playlist/play0008.dat"_qs, playlistOf({"00000001"}));
    QVERIFY(QDir().mkpath(memory.path(paths7 + u"/x"_qs)));
    const auto before = memory.rootFiles();
    QVERIFY(!Index().createIndex(memory.root()));
    QCOMPARE(memory.rootFiles(), before);
    QVERIFY(!Index().updateIndex(memory.root()));
    QCOMPARE(memory.rootFiles(), before);
    // What the next run makes of it is right again.
    QVERIFY(QDir(memory.path(paths7)).removeRecursively());
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.read(paths7), pathOf("/C.MID") + pathOf("/B.MID") + pathOf("/A.MID"));
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
}

void TestPlaylists::endsAtHalfARecord()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(songs7, playlistOf({"00000002"}) + playlistOf({"00000001"}).left(63));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(paths7), pathOf("/C.MID"));
}

void TestPlaylists::restoresInUpdateOnlyWhenTranslated()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"A.MID"_qs);
    LogCapture log;
    QVERIFY(Index().updateIndex(memory.root()));
    QVERIFY(log.contains(u"create playlist file path "_qs));
    QVERIFY(log.contains(u"restore playlist file path "_qs));
    QCOMPARE(memory.read(songs7), songRecord("00000002", "C", "7800") +
                                      songRecord("00000001", "B", "7800") +
                                      playlistOf({"00000000"}));
    // The player changes the list; the path file stays, and the next update touches neither.
    memory.write(songs7, playlistOf({"00000001"}));
    memory.remove(u"C.MID"_qs);
    log.clear();
    QVERIFY(Index().updateIndex(memory.root()));
    QVERIFY(!log.contains(u"restore playlist file path "_qs));
    QCOMPARE(memory.read(songs7), playlistOf({"00000001"}));
    QCOMPARE(memory.read(paths7).size(), 192);
}

void TestPlaylists::restoresAfterARunThatEnded()
{
    // The accented song gets a new id in each update, so path files that a run has written must
    // be used by the next one when it did not come to use them itself.
    const SampleMemory memory;
    memory.write(u"\u00E9.MID"_qs, midiSong("E", "Artist", "Genre"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.write(list, listRecord("0700"));
    memory.write(songs7, playlistOf({"00000000"}));
    for (const bool isRebuild : {true, false}) {
        Index index;
        connect(&index, &Index::progressValueChanged, &index, [](int value) {
            if (value == 1)
                RunGuard::requestEnd();
        });
        QVERIFY(!(isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root())));
        QCOMPARE(memory.read(paths7), pathOf("/\x82.MID"));
        QCOMPARE(memory.read(songs7), playlistOf({"00000000"}));
    }
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "E", "7800"));
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    // The next update leaves the playlist alone, and a rebuild finds the song again.
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.read(u"index.id2"_qs).left(4), hex("00000002"));
    QCOMPARE(memory.read(songs7), songRecord("00000001", "E", "7800"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7), songRecord("00000000", "E", "7800"));
}

void TestPlaylists::usesPathFilesWhenTheIndexIsGone()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(u".brisel2pc/paths"_qs, "of a run that was cut");
    memory.write(paths7, pathOf("/B.MID"));
    memory.remove(u"fsinfos.id2"_qs);
    memory.remove(u"A.MID"_qs);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.read(songs7).left(64), songRecord("00000000", "B", "7800"));
    // A faulty index is no better than none.
    memory.write(u".brisel2pc/paths"_qs, "of a run that was cut");
    memory.write(paths7, pathOf("/C.MID"));
    memory.write(u"title.id2"_qs, "x");
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(songs7).left(64), songRecord("00000001", "C", "7800"));
}

BRISEL_TEST(QCoreApplication, TestPlaylists)
#include "tst_playlists.moc"
