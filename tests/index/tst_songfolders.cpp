#include "index/memorycheck.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

using namespace brisel;

using namespace Sample;

/// Folders without songs keep their names, and folders of operating systems are skipped.
class TestSongFolders : public QObject
{
    Q_OBJECT

private slots:
    void skipsFoldersOfTheSystem_data();
    void skipsFoldersOfTheSystem();
    void takesFoldersWithSimilarNames_data();
    void takesFoldersWithSimilarNames();
    void takesSongsThatAreCalledLikeFoldersOfTheSystem();
    void dropsSongsInABinFromAnOldIndex();
    void renamesNoFolderWithoutSongs();
    void renamesTheFoldersOnTheWayToASong();
    void reportsWhatItMissesInAFolderWithoutSongs();
    void endsWhereLinksLeadRound();

private:
    /// Indexes \a memory. Returns the number of questions.
    int index(const SampleMemory &memory);
};

int TestSongFolders::index(const SampleMemory &memory)
{
    int asked = 0;
    ScriptedIndex index;
    index.setRenameQuestion(always(0, &asked));
    if (!index.createIndex(memory.root()))
        qFatal("no index");
    return asked;
}

void TestSongFolders::skipsFoldersOfTheSystem_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"$RECYCLE.BIN", "$Recycle.Bin", "RECYCLER", "Recycled", "FOUND.000", "found.999",
          "System Volume Information", "SYSTEM VOLUME INFORMATION", "lost+found", "LOST+FOUND",
          ".Trash", ".Trash-1000", ".Trashes", ".Spotlight-V100"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestSongFolders::skipsFoldersOfTheSystem()
{
    QFETCH(QString, name);
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    memory.write(name + u"/A long name.mid"_qs, anySong);
    memory.write(u"POP/"_qs + name + u"/S-1-5-21/C.MID"_qs, anySong);
    memory.write(u"POP/D.MID"_qs, anySong);
    QCOMPARE(index(memory), 0);
    QCOMPARE(indexedPaths(memory), QStringList({u"/B.MID"_qs, u"/POP/D.MID"_qs}));
    QVERIFY(memory.has(name + u"/A long name.mid"_qs));
    ScriptedCheck check;
    QVERIFY(check.run(memory.root()));
    QCOMPARE(check.findings(), QStringList());
}

void TestSongFolders::takesFoldersWithSimilarNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"RECYCLE", "FOUND", "FOUND.00", "FOUND.00A", "FOUND.1", "FOUND000"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestSongFolders::takesFoldersWithSimilarNames()
{
    QFETCH(QString, name);
    const SampleMemory memory;
    memory.write(name + u"/A.MID"_qs, anySong);
    QCOMPARE(index(memory), 0);
    QCOMPARE(indexedPaths(memory), QStringList{u'/' + name + u"/A.MID"_qs});
}

void TestSongFolders::takesSongsThatAreCalledLikeFoldersOfTheSystem()
{
    const SampleMemory memory;
    memory.write(u"FOUND.MID"_qs, anySong);
    memory.write(u"RECYCLED.MID"_qs, anySong);
    memory.write(u"FOUND.MP3/A.MID"_qs, anySong);
    QCOMPARE(index(memory), 0);
    QCOMPARE(indexedPaths(memory),
             QStringList({u"/FOUND.MID"_qs, u"/FOUND.MP3/A.MID"_qs, u"/RECYCLED.MID"_qs}));
}

/// An index built by an earlier version.
void TestSongFolders::dropsSongsInABinFromAnOldIndex()
{
    const SampleMemory memory;
    memory.write(u"B.MID"_qs, anySong);
    memory.write(u"RECYCLEX/A.MID"_qs, anySong);
    QCOMPARE(index(memory), 0);
    QVERIFY(QDir(memory.root()).rename(u"RECYCLEX"_qs, u"RECYCLER"_qs));
    QByteArray paths = memory.read(u"index.id2"_qs);
    memory.write(u"index.id2"_qs, paths.replace("RECYCLEX", "RECYCLER"));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList{u"/B.MID"_qs});
    QVERIFY(memory.has(u"RECYCLER/A.MID"_qs));
}

void TestSongFolders::renamesNoFolderWithoutSongs()
{
    const SampleMemory home;
    home.write(u"A.MID"_qs, anySong);
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"Holiday pictures/2004/Beach at noon/one.jpg"_qs, "picture");
    memory.write(u"Empty but for a bin/RECYCLER/A.MID"_qs, anySong);
    memory.write(u"Sounds of the player/SFX/A.MID"_qs, anySong);
    memory.write(u"Sounds of the player/Bridge/A.MID"_qs, anySong);
    memory.write(u"With a hidden song/.A.MID"_qs, anySong);
    memory.write(u"Only links out/notes.txt"_qs, "text");
    QVERIFY(QFile::link(home.root(), memory.path(u"Only links out/FOLDER"_qs)));
    QVERIFY(QFile::link(home.path(u"A.MID"_qs), memory.path(u"Only links out/A.MID"_qs)));
    QVERIFY(QDir(memory.root()).mkdir(u"Completely empty"_qs));
    QStringList folders = QDir(memory.root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(folders.size(), 6);
    QCOMPARE(index(memory), 0);
    folders += {u"bridge"_qs, u"sfx"_qs};
    folders.sort();
    QStringList left = QDir(memory.root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    left.sort();
    QCOMPARE(left, folders);
    QVERIFY(memory.has(u"Holiday pictures/2004/Beach at noon/one.jpg"_qs));
    QCOMPARE(indexedPaths(memory), QStringList{u"/A.MID"_qs});
}

void TestSongFolders::renamesTheFoldersOnTheWayToASong()
{
    const SampleMemory memory;
    memory.write(u"A long folder/B long folder/C.Kar"_qs, anySong);
    memory.write(u"A long folder/C without songs/notes.txt"_qs, "text");
    QCOMPARE(index(memory), 2);
    QCOMPARE(indexedPaths(memory), QStringList{u"/Alongf-1/Blongf-1/C.Kar"_qs});
    QVERIFY(memory.has(u"Alongf-1/C without songs/notes.txt"_qs));
}

void TestSongFolders::reportsWhatItMissesInAFolderWithoutSongs()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(QDir(memory.root()).mkdir(u"Pipes and the like"_qs));
    const QString pipe = memory.path(u"Pipes and the like/A.MID"_qs);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) -> int { qFatal("asked"); });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(texts(errors), QStringList{u"File non importato, non è un file: "_qs + pipe});
}

void TestSongFolders::endsWhereLinksLeadRound()
{
    const SampleMemory memory;
    memory.write(u"A long folder/B/notes.txt"_qs, "text");
    QVERIFY(QFile::link(u".."_qs, memory.path(u"A long folder/B/Round and round"_qs)));
    memory.write(u"C.MID"_qs, anySong);
    QCOMPARE(index(memory), 0);
    QVERIFY(memory.has(u"A long folder/B/notes.txt"_qs));
}

BRISEL_TEST(QCoreApplication, TestSongFolders)
#include "tst_songfolders.moc"
