#include "index/memorycheck.h"
#include "tests/index/changedmemory.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"
#include "tests/smalldisk.h"

using namespace brisel;

using namespace Sample;

namespace
{

QString leftOut(const QString &path)
{
    return u"File non importato, si trova fuori dalla memoria: "_qs + path;
}

} // namespace

/// Links on a memory never cause a file outside of it to be indexed or renamed.
class TestIndexLinks : public QObject
{
    Q_OBJECT

private slots:
    void renamesNothingThroughALinkToAHomeFolder();
    void followsLinksWithinTheMemory();
    void reportsEachLinkOutOnce();
    void leavesOtherDisksAlone();
    void renamesNothingThroughALinkThatAppearsBeforeTheRename();
    void indexesNothingBehindAFolderThatBecomesALinkInItsQuestion_data();
    void indexesNothingBehindAFolderThatBecomesALinkInItsQuestion();
    void indexesNoSongThatBecomesALinkInItsQuestion();
    void writesNothingThroughALinkInPlaceOfThePlaylists();
    void renamesNothingOnAnotherMemoryInTheSamePlace();
    void dropsSongsOutsideFromAnOldIndex();
    void takesTheSongInPlaceOfALinkThatDiffersInCase();
    void missesNothingOutsideInACheck();
};

void TestIndexLinks::renamesNothingThroughALinkToAHomeFolder()
{
    const SampleMemory home;
    home.write(u"Documents/A long letter.mid"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QFile::link(home.root(), memory.path(u"home"_qs)));
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(home.has(u"Documents/A long letter.mid"_qs));
    QVERIFY(!home.has(u"Docume-1"_qs));
    QCOMPARE(indexedPaths(memory), QStringList{u"/A.MID"_qs});
    QCOMPARE(texts(errors), QStringList{leftOut(memory.path(u"home"_qs))});
}

void TestIndexLinks::followsLinksWithinTheMemory()
{
    const SampleMemory memory;
    memory.write(u"B/A long name.mid"_qs, anySong);
    memory.write(u"B/D.MID"_qs, anySong);
    QVERIFY(QFile::link(memory.path(u"B"_qs), memory.path(u"A long way"_qs)));
    QVERIFY(QFile::link(u"B/D.MID"_qs, memory.path(u"C long name.mid"_qs)));
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    // The first path to a folder counts, and a link has its own name.
    QCOMPARE(indexedPaths(memory), QStringList({u"/Alongw-1/Alongn-1.mid"_qs, u"/Alongw-1/D.MID"_qs,
                                                u"/Clongn-1.mid"_qs}));
    QVERIFY(memory.has(u"B/Alongn-1.mid"_qs));
    QCOMPARE(QFileInfo(memory.path(u"Alongw-1"_qs)).symLinkTarget(), memory.path(u"B"_qs));
    QCOMPARE(texts(errors), QStringList());
}

void TestIndexLinks::reportsEachLinkOutOnce()
{
    const SampleMemory home;
    home.write(u"A.MID"_qs, anySong);
    home.write(u"notes.txt"_qs, "text");
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QFile::link(home.root(), memory.path(u"A long way out"_qs)));
    QVERIFY(QFile::link(home.path(u"A.MID"_qs), memory.path(u"B long name.mid"_qs)));
    QVERIFY(QFile::link(u"B long name.mid"_qs, memory.path(u"C.MID"_qs)));
    QVERIFY(QFile::link(home.path(u"notes.txt"_qs), memory.path(u"notes.txt"_qs)));
    QVERIFY(QFile::link(home.root(), memory.path(u"sfx"_qs)));
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(texts(errors), QStringList({leftOut(memory.path(u"A long way out"_qs)),
                                         leftOut(memory.path(u"B long name.mid"_qs)),
                                         leftOut(memory.path(u"C.MID"_qs))}));
    QCOMPARE(indexedPaths(memory), QStringList{u"/A.MID"_qs});
}

void TestIndexLinks::leavesOtherDisksAlone()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QDir(memory.root()).mkpath(u"B/DISK"_qs));
    const SmallDisk disk(memory.path(u"B/DISK"_qs), 16 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    memory.write(u"B/DISK/A long name.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(1));
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(memory.has(u"B/DISK/A long name.mid"_qs));
    QCOMPARE(texts(errors), QStringList{leftOut(memory.path(u"B/DISK"_qs))});
    QCOMPARE(indexedPaths(memory), QStringList{u"/A.MID"_qs});
}

void TestIndexLinks::renamesNothingThroughALinkThatAppearsBeforeTheRename()
{
    const SampleMemory home;
    home.write(u"A long name.mid"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    memory.write(u"SONGS/A long name.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion([&](const QString &, const QString &) {
        QFile::rename(memory.path(u"SONGS"_qs), memory.path(u"OLD"_qs));
        QFile::link(home.root(), memory.path(u"SONGS"_qs));
        return 0;
    });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(home.has(u"A long name.mid"_qs));
    QVERIFY(memory.has(u"OLD/A long name.mid"_qs));
    QCOMPARE(texts(errors), QStringList{u"File non importato, impossibile rinominare: "_qs +
                                        memory.path(u"SONGS/A long name.mid"_qs)});
}

void TestIndexLinks::indexesNothingBehindAFolderThatBecomesALinkInItsQuestion_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("yes") << 0;
    QTest::newRow("no") << 2;
}

void TestIndexLinks::indexesNothingBehindAFolderThatBecomesALinkInItsQuestion()
{
    QFETCH(const int, answer);
    const SampleMemory home;
    home.write(u"SECRET.MID"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    memory.write(u"A long folder/C.MID"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion([&](const QString &path, const QString &) {
        QFile::rename(path, memory.path(u"OLD"_qs));
        QFile::link(home.root(), path);
        return answer;
    });
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
}

void TestIndexLinks::indexesNoSongThatBecomesALinkInItsQuestion()
{
    const SampleMemory home;
    home.write(u"SECRET.MID"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    memory.write(u"A long name.mid"_qs, anySong);
    ScriptedIndex index;
    index.setRenameQuestion([&](const QString &path, const QString &) {
        QFile::rename(path, memory.path(u"OLD.txt"_qs));
        QFile::link(home.path(u"SECRET.MID"_qs), path);
        return 2;
    });
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
}

void TestIndexLinks::writesNothingThroughALinkInPlaceOfThePlaylists()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    const SampleMemory home;
    const QString lists = home.path(u"lists"_qs);
    QVERIFY(QDir().rename(memory.path(u"playlist"_qs), lists));
    QVERIFY(QFile::link(lists, memory.path(u"playlist"_qs)));
    const auto before = home.rootFiles();
    for (const bool isRebuild : {true, false}) {
        ScriptedIndex index;
        QVERIFY(isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root()));
        QCOMPARE(home.rootFiles(), before);
    }
}

void TestIndexLinks::renamesNothingOnAnotherMemoryInTheSamePlace()
{
    const SampleMemory memory;
    memory.write(u"A long name.mid"_qs, anySong);
    const QString elsewhere = memory.root() + u"-old"_qs;
    ScriptedIndex index;
    index.setRenameQuestion([&](const QString &, const QString &) {
        QDir().rename(memory.root(), elsewhere);
        memory.write(u"A long name.mid"_qs, anySong);
        return 0;
    });
    QVERIFY(!index.createIndex(memory.root()));
    QVERIFY(memory.has(u"A long name.mid"_qs));
    QVERIFY(QFile::exists(elsewhere + u"/A long name.mid"_qs));
}

void TestIndexLinks::dropsSongsOutsideFromAnOldIndex()
{
    const SampleMemory home;
    home.write(u"B.MID"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"home/B.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QVERIFY(QDir(memory.path(u"home"_qs)).removeRecursively());
    QVERIFY(QFile::link(home.root(), memory.path(u"home"_qs)));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList{u"/A.MID"_qs});
    QCOMPARE(indexedIds(memory), QList<int>{0});
}

/// A song of the index that was replaced by a link, beside a song whose name differs only in case.
void TestIndexLinks::takesTheSongInPlaceOfALinkThatDiffersInCase()
{
    const SampleMemory home;
    home.write(u"A.MID"_qs, midiSong("Outside", "Artist", "Genre"));
    const SampleMemory memory;
    memory.write(u"a.mid"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.remove(u"a.mid"_qs);
    QVERIFY(QFile::link(home.path(u"A.MID"_qs), memory.path(u"a.mid"_qs)));
    memory.write(u"A.MID"_qs, midiSong("Inside", "Artist", "Genre"));
    memory.setDate(u"A.MID"_qs, QDateTime({2001, 2, 3}, {4, 5, 6}));
    if (QFileInfo(memory.path(u"a.mid"_qs)).symLinkTarget() != home.path(u"A.MID"_qs))
        QSKIP("the disk does not tell letter case");
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList{u"/A.MID"_qs});
    QCOMPARE(titles(memory), QStringList{u"INSIDE"_qs});
}

void TestIndexLinks::missesNothingOutsideInACheck()
{
    const SampleMemory home;
    home.write(u"B.MID"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QFile::link(home.root(), memory.path(u"home"_qs)));
    QVERIFY(QFile::link(home.path(u"B.MID"_qs), memory.path(u"B.MID"_qs)));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    ScriptedCheck check;
    QVERIFY(check.run(memory.root()));
    QCOMPARE(check.findings(), QStringList());
}

BRISEL_TEST(QCoreApplication, TestIndexLinks)
#include "tst_indexlinks.moc"
