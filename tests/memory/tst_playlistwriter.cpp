#include "memory/playlistwriter.h"

#include "base/filefailure.h"
#include "base/memoryidentity.h"
#include "index/memoryreasons.h"
#include "memory/playlistdocument.h"
#include "tests/memory/playlistmemory.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDirIterator>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace brisel;

using namespace Sample;

namespace
{

/// A document whose playlist 7 has lost its first entry, and its writer.
struct ChangedPlaylist {
    ChangedPlaylist()
    {
        writePlaylist(memory, before, pathsBefore);
        open();
    }

    void open()
    {
        document.setContents(readContents(memory));
        identity = MemoryIdentity(memory.root());
        document.remove(0, {0});
    }

    /// Fails if the memory was changed.
    void checkRefused(const Reason &reason)
    {
        QVERIFY(!writer.save(identity));
        QVERIFY(writer.failure() == reason);
        QVERIFY(document.isModified());
        QCOMPARE(document.songsFile(0), deadSong + azzurro);
    }

    static inline const QByteArray before = volare + deadSong + azzurro;
    static inline const QByteArray pathsBefore = volarePath + deadPath + azzurroPath;
    SampleMemory memory;
    PlaylistDocument document;
    MemoryIdentity identity;
    ScriptedRun run;
    PlaylistWriter writer{document, run};
};

/// A run during which files of the memory \a root with a certain content, such as those that wait
/// for their names, disappear.
class LosingRun : public ScriptedRun
{
public:
    explicit LosingRun(const QString &root) : m_root(root) {}

    void pulse() override
    {
        QDirIterator files(m_root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (!lost.isEmpty() && files.hasNext()) {
            const QString path = files.next();
            if (fileContent(path) == lost)
                QFile::remove(path);
        }
    }

    QByteArray lost; ///< their content; empty for none

private:
    const QString m_root;
};

} // namespace

/// What is written to the memory, and what is not.
class TestPlaylistWriter : public QObject
{
    Q_OBJECT

private slots:
    void writesBothFilesOfChangedPlaylists();
    void writesNothingWithoutAChange();
    void writesMorePlaylistsThanFitInALot();
    void refusesAMemoryThatWasChanged_data();
    void refusesAMemoryThatWasChanged();
    void refusesAnotherMemory();
    void refusesAnIncompleteIndex();
    void refusesWhileAnotherProgramWorks();
    void refusesAProtectedFile();
    void refusesAProtectedMemory();
    void losesNothingOnAFullDisk();
    void savesAgainAfterHalfASave();
    void leavesNoPathFileOfAnOlderPlaylist();
};

void TestPlaylistWriter::writesBothFilesOfChangedPlaylists()
{
    const SampleMemory memory;
    writePlaylist(memory, wrongSong + volare + deadSong, {});
    const QByteArray list = listRecord("0700") + listRecord("8500") + listRecord("0900");
    memory.write(u"playlist/playlist.dat"_qs, list);
    memory.write(u"playlist/play4294967173.dat"_qs, volare + azzurro.first(10));
    memory.write(u"playlist/play0009.dat"_qs, {});
    const QMap<QString, QByteArray> root = memory.rootFiles();
    PlaylistDocument document;
    document.setContents(readContents(memory));
    document.move(0, {2}, 0);
    document.add(1, 1, {9});
    ScriptedRun run;
    PlaylistWriter writer(document, run);
    QVERIFY(writer.save(MemoryIdentity(memory.root())));
    QVERIFY(!writer.failure().has_value());
    QVERIFY(!document.isModified());
    QCOMPARE(memory.read(songsOf7), deadSong + wrongSong + volare);
    QCOMPARE(memory.read(pathsOf7), QByteArray(64, '\0') + volarePath + volarePath);
    QCOMPARE(memory.read(u"playlist/play4294967173.dat"_qs), volare + nessuno);
    QCOMPARE(memory.read(u"playlist/play4294967173.pts"_qs), volarePath + nessunoPath);
    QCOMPARE(memory.read(u"playlist/play0009.dat"_qs), QByteArray());
    QVERIFY(!memory.has(u"playlist/play0009.pts"_qs));
    QCOMPARE(memory.read(u"playlist/playlist.dat"_qs), list);
    QCOMPARE(memory.rootFiles(), root);
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    // What was undone is written, too.
    document.undoStack().undo();
    QVERIFY(writer.save(MemoryIdentity(memory.root())));
    QCOMPARE(memory.read(u"playlist/play4294967173.dat"_qs), volare);
    QCOMPARE(memory.read(u"playlist/play4294967173.pts"_qs), volarePath);
}

void TestPlaylistWriter::writesNothingWithoutAChange()
{
    ChangedPlaylist changed;
    changed.document.undoStack().undo();
    changed.memory.remove(pathsOf7);
    QVERIFY(changed.writer.save(changed.identity));
    QVERIFY(!changed.memory.has(pathsOf7));
    QCOMPARE(changed.memory.read(songsOf7), ChangedPlaylist::before);
}

void TestPlaylistWriter::writesMorePlaylistsThanFitInALot()
{
    const SampleMemory memory;
    writeIndex(memory);
    QByteArray list;
    const int count = 120;
    for (int number = 0; number < count; ++number) {
        list += char(number) + QByteArray(31, '\0');
        memory.write(u"playlist/play%1.dat"_qs.arg(number, 4, 10, QChar(u'0')), deadSong);
    }
    memory.write(u"playlist/playlist.dat"_qs, list);
    PlaylistDocument document;
    document.setContents(readContents(memory));
    for (int number = 0; number < count; ++number)
        document.add(number, 0, {2});
    ScriptedRun run;
    QVERIFY(PlaylistWriter(document, run).save(MemoryIdentity(memory.root())));
    for (int number = 0; number < count; ++number)
        QCOMPARE(memory.read(u"playlist/play%1.dat"_qs.arg(number, 4, 10, QChar(u'0'))),
                 volare + deadSong);
    QVERIFY(!document.isModified());
}

void TestPlaylistWriter::refusesAMemoryThatWasChanged_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("playlist") << songsOf7;
    QTest::newRow("paths") << u"index.id2"_qs;
    QTest::newRow("titles") << u"title.id2"_qs;
}

void TestPlaylistWriter::refusesAMemoryThatWasChanged()
{
    QFETCH(QString, file);
    ChangedPlaylist changed;
    const QByteArray content = changed.memory.read(file) + QByteArray(64, '\1');
    changed.memory.write(file, content);
    changed.checkRefused(PlaylistWriter::changedMeanwhile);
    QCOMPARE(changed.memory.read(file), content);
    QCOMPARE(changed.memory.read(pathsOf7), ChangedPlaylist::pathsBefore);
}

void TestPlaylistWriter::refusesAnotherMemory()
{
    ChangedPlaylist changed;
    QVERIFY(QDir().rename(changed.memory.root(), changed.memory.root() + u"2"_qs));
    changed.checkRefused(MemoryReason::gone);
    QVERIFY(QDir().mkdir(changed.memory.root()));
    changed.checkRefused(MemoryReason::gone);
    QVERIFY(QDir(changed.memory.root()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot));
}

void TestPlaylistWriter::refusesAnIncompleteIndex()
{
    ChangedPlaylist changed;
    changed.memory.remove(u"fsinfos.id2"_qs);
    changed.checkRefused(MemoryReason::indexIncomplete);
    QCOMPARE(changed.memory.read(songsOf7), ChangedPlaylist::before);
}

void TestPlaylistWriter::refusesWhileAnotherProgramWorks()
{
    ChangedPlaylist changed;
    const int other =
        ::open(QFile::encodeName(changed.memory.root()).constData(), O_RDONLY | O_CLOEXEC);
    QCOMPARE(::flock(other, LOCK_SH | LOCK_NB), 0);
    changed.checkRefused(MemoryReason::inUse);
    ::close(other);
    QCOMPARE(changed.memory.read(songsOf7), ChangedPlaylist::before);
    QVERIFY(changed.writer.save(changed.identity));
}

void TestPlaylistWriter::refusesAProtectedFile()
{
    if (::geteuid() == 0)
        QSKIP("root may write all files");
    ChangedPlaylist changed;
    QFile::setPermissions(changed.memory.path(songsOf7), QFile::ReadOwner);
    changed.checkRefused(FileReason::unwritable);
    QCOMPARE(changed.writer.failedFile(), changed.memory.path(songsOf7));
}

void TestPlaylistWriter::refusesAProtectedMemory()
{
    ChangedPlaylist changed;
    const SmallDisk disk(changed.memory.root(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("needs the right to mount");
    writePlaylist(changed.memory, ChangedPlaylist::before, ChangedPlaylist::pathsBefore);
    changed.open();
    QVERIFY(disk.setReadOnly(true));
    changed.checkRefused(FileReason::writeProtected);
    QVERIFY(disk.setReadOnly(false));
    QVERIFY(changed.writer.save(changed.identity));
    QCOMPARE(changed.memory.read(songsOf7), deadSong + azzurro);
}

void TestPlaylistWriter::losesNothingOnAFullDisk()
{
    ChangedPlaylist changed;
    const SmallDisk disk(changed.memory.root(), SmallDisk::memorySize);
    if (!disk.isMounted())
        QSKIP("needs the right to mount");
    writePlaylist(changed.memory, ChangedPlaylist::before, ChangedPlaylist::pathsBefore);
    changed.open();
    QFile filler(changed.memory.path(u"filler"_qs));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(SmallDisk::pageSize, 'x')) == SmallDisk::pageSize) {
    }
    filler.close();
    changed.checkRefused(FileReason::noSpace);
    QCOMPARE(changed.memory.read(songsOf7), ChangedPlaylist::before);
    QCOMPARE(changed.memory.read(pathsOf7), ChangedPlaylist::pathsBefore);
    QVERIFY(filler.remove());
    QVERIFY(changed.writer.save(changed.identity));
    QCOMPARE(changed.memory.read(songsOf7), deadSong + azzurro);
    QCOMPARE(changed.memory.read(pathsOf7), deadPath + azzurroPath);
}

/// The songs file could be replaced, and the path file not.
void TestPlaylistWriter::savesAgainAfterHalfASave()
{
    ChangedPlaylist changed;
    changed.memory.remove(pathsOf7);
    QVERIFY(QDir(changed.memory.root()).mkpath(pathsOf7 + u"/full"_qs));
    changed.open();
    QVERIFY(!changed.writer.save(changed.identity));
    QCOMPARE(changed.writer.failedFile(), changed.memory.path(pathsOf7));
    QCOMPARE(changed.memory.read(songsOf7), deadSong + azzurro);
    QVERIFY(changed.document.isModified());
    changed.document.undoStack().undo();
    QVERIFY(changed.document.isModified());
    QVERIFY(QDir(changed.memory.path(pathsOf7)).removeRecursively());
    QVERIFY(changed.writer.save(changed.identity));
    QCOMPARE(changed.memory.read(songsOf7), ChangedPlaylist::before);
    QVERIFY(!changed.document.isModified());
}

/// Two entries without songs are swapped, and back. Neither save can be finished.
void TestPlaylistWriter::leavesNoPathFileOfAnOlderPlaylist()
{
    const QByteArray otherSong = songRecord("00000778", "BELLA", "61F8");
    const QByteArray otherPath = field("/OLD/BELLA.MID", 64);
    const SampleMemory memory;
    writePlaylist(memory, deadSong + otherSong, deadPath + otherPath);
    const MemoryIdentity identity(memory.root());
    PlaylistDocument document;
    document.setContents(readContents(memory));
    LosingRun run(memory.root());
    PlaylistWriter writer(document, run);
    document.move(0, {1}, 0);
    run.lost = otherPath + deadPath;
    QVERIFY(!writer.save(identity));
    QCOMPARE(memory.read(songsOf7), otherSong + deadSong);
    const QByteArray unfit = deadPath + otherPath + QByteArray(64, '\0');
    QCOMPARE(memory.read(pathsOf7), unfit);
    document.undoStack().undo();
    run.lost = deadSong + otherSong;
    QVERIFY(!writer.save(identity));
    QCOMPARE(memory.read(songsOf7), otherSong + deadSong);
    QCOMPARE(memory.read(pathsOf7), unfit);
    run.lost.clear();
    QVERIFY(writer.save(identity));
    QCOMPARE(memory.read(songsOf7), deadSong + otherSong);
    QCOMPARE(memory.read(pathsOf7), deadPath + otherPath);
}

BRISEL_TEST(QCoreApplication, TestPlaylistWriter)

#include "tst_playlistwriter.moc"
