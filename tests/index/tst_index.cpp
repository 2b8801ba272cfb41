#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"

using namespace brisel;

using namespace Sample;

/// Building and updating the index of a memory.
class TestIndex : public QObject
{
    Q_OBJECT

private slots:
    void refusesEmptyRoot();
    void cleansTheRoot();
    void writesNothingWithoutSongs();
    void writesNothingWhenNothingChanged();
    void rebuildsWhereAFileIsMissing();
    void emitsProgressInOrder();
    void logsItsSteps();
    void keepsIdsAcrossUpdates();
    void readsChangedSongsAgain();
    void keepsSongThatCannotBeLookedAt();
    void givesAccentedPathsNewIds();
    void readsHeadOfMisreadPathAgain();
    void keepsSongRenamedInCaseOnly();
    void walksFoldersInOrder();
    void skipsReservedAndHiddenFolders();
    void acceptsOnlySongSuffixes();
    void endsLinkLoopsAndSkipsSpecialFiles();
    void refusesPathOf46Characters();
    void survivesUnorderedIds();
    void removesAllButReservedFile();
    void endsWhenAskedToQuit();
    void endsInThePerSongPass();
    void keepsRoomForNoSongInAnotherPlace();
    void leavesAnotherMemoryAlone_data();
    void leavesAnotherMemoryAlone();
};

void TestIndex::refusesEmptyRoot()
{
    QVERIFY(QDir().mkpath(u"inside"_qs));
    QFile song(u"inside/A.MID"_qs);
    QVERIFY(song.open(QIODevice::WriteOnly));
    for (const QString &root :
         {QString(), u"/"_qs, u"\\"_qs, u"/nowhere/at/all"_qs, u"inside/A.MID"_qs}) {
        QVERIFY(!ScriptedIndex().createIndex(root));
        QVERIFY(!ScriptedIndex().updateIndex(root));
    }
    QVERIFY(!QFileInfo::exists(u"index.id2"_qs));
    QVERIFY(!QFileInfo::exists(u"sfx"_qs));
    QVERIFY(!ScriptedIndex().checkIndexFile());
}

void TestIndex::cleansTheRoot()
{
    for (const QString &tail : {u"/"_qs, u"\\"_qs, u"//"_qs, u"/."_qs, u"/./"_qs}) {
        const SampleMemory memory;
        memory.write(u"A/B.MID"_qs, anySong);
        QVERIFY2(ScriptedIndex().createIndex(memory.root() + tail), qPrintable(tail));
        QCOMPARE(indexedPaths(memory), QStringList{u"/A/B.MID"_qs});
    }
}

void TestIndex::writesNothingWithoutSongs()
{
    const SampleMemory memory;
    memory.write(u"readme.txt"_qs, "x");
    QVERIFY(!ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.rootFiles().keys(), QStringList{u"readme.txt"_qs});

    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.remove(u"A.MID"_qs);
    memory.write(u"temp1.id2"_qs, "x");
    memory.write(u"temp2.id2"_qs, "x");
    memory.write(u"sfx.id2"_qs, "x");
    QVERIFY(!ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(memory.rootFiles().keys(), QStringList({u"readme.txt"_qs, u"sfx.id2"_qs}));
}

void TestIndex::writesNothingWhenNothingChanged()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QDateTime old(QDate(2001, 2, 3), QTime(4, 5));
    for (const QString &name : memory.rootFiles().keys())
        memory.setDate(name, old);
    const QDateTime songDate(QDate(2010, 1, 1), QTime(1, 1, 1));
    memory.setDate(u"A.MID"_qs, songDate);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    memory.setDate(u"index.id2"_qs, old);
    memory.setDate(u"fsinfos.id2"_qs, old);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(QFileInfo(memory.path(u"index.id2"_qs)).lastModified(), old);
    QCOMPARE(QFileInfo(memory.path(u"fsinfos.id2"_qs)).lastModified(), old);
    // No song at all: the update leaves the old files unchanged, too.
    memory.remove(u"A.MID"_qs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(QFileInfo(memory.path(u"index.id2"_qs)).lastModified(), old);
}

void TestIndex::rebuildsWhereAFileIsMissing()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QStringList names = memory.rootFiles().keys();
    memory.remove(u"A.MID"_qs);
    for (const QString &name : names) {
        if (!name.endsWith(u".id2"_qs))
            continue;
        memory.remove(name);
        QVERIFY(ScriptedIndex().updateIndex(memory.root()));
        QCOMPARE(indexedIds(memory), QList<int>{0});
        QVERIFY(memory.has(name));
    }
}

void TestIndex::emitsProgressInOrder()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"B.TXT"_qs, "x");
    memory.write(u"C.MID"_qs, anySong);
    ScriptedIndex index;
    const QSignalSpy found(&index, &Index::fileFoundChanged);
    const QSignalSpy maximum(&index, &Index::progressMaxSetup);
    const QSignalSpy value(&index, &Index::progressValueChanged);
    const QSignalSpy path(&index, &Index::currentPathChanged);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(values(found), QList<int>({1, 2}));
    QCOMPARE(values(maximum), QList<int>({2, 100}));
    QCOMPARE(values(value), QList<int>({0, 1, 2, 0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
    const QString a = memory.path(u"A.MID"_qs);
    const QString c = memory.path(u"C.MID"_qs);
    QCOMPARE(texts(path), QStringList({a, memory.path(u"B.TXT"_qs), c, a, c, QString()}));
}

void TestIndex::logsItsSteps()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    LogCapture log;
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QStringList lists{u"write title index "_qs,  u"write alpha index "_qs,
                            u"write artist index "_qs, u"write alpha index "_qs,
                            u"write genre index "_qs,  u"write alpha index "_qs};
    const QStringList steps =
        QStringList{u"create path index "_qs, u"create title index "_qs, u"write ord index "_qs} +
        QStringList{u"restore playlist file path "_qs, u"write path index "_qs} + lists +
        QStringList{u"create mp3 index "_qs} + lists + QStringList{u"write numfile index "_qs};
    QCOMPARE(log.messages(),
             QStringList({u"create playlist file path "_qs, u"delete index "_qs}) + steps);
}

void TestIndex::keepsIdsAcrossUpdates()
{
    const SampleMemory memory;
    for (const char *name : {"A.MID", "B.MID", "C.MID"})
        memory.write(QLatin1StringView(name), anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.remove(u"B.MID"_qs);
    memory.write(u"AA.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/A.MID"_qs, u"/C.MID"_qs, u"/AA.MID"_qs}));
    QCOMPARE(indexedIds(memory), QList<int>({0, 2, 3}));
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedIds(memory), QList<int>({0, 2, 3, 4}));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(indexedIds(memory), QList<int>({0, 1, 2, 3}));
    QCOMPARE(indexedPaths(memory),
             QStringList({u"/A.MID"_qs, u"/AA.MID"_qs, u"/B.MID"_qs, u"/C.MID"_qs}));
}

void TestIndex::readsChangedSongsAgain()
{
    const SampleMemory memory;
    const QDateTime moment(QDate(2010, 5, 6), QTime(7, 8, 9));
    memory.write(u"A.MID"_qs, midiSong("Old", "A", "G"));
    memory.setDate(u"A.MID"_qs, moment);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"A.MID"_qs, midiSong("New", "A", "G"));
    memory.setDate(u"A.MID"_qs, moment);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(titles(memory), QStringList{u"OLD"_qs});
    memory.setDate(u"A.MID"_qs, moment.addSecs(1));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(titles(memory), QStringList{u"NEW"_qs});
    QCOMPARE(memory.read(u"index.id2"_qs).mid(50), QByteArray("20100506070810"));
    QCOMPARE(indexedIds(memory), QList<int>{0});
}

void TestIndex::keepsSongThatCannotBeLookedAt()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, midiSong("Kept", "A", "G"));
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.remove(u"A.MID"_qs);
    QVERIFY(QFile::link(memory.path(u"A.MID"_qs), memory.path(u"A.MID"_qs)));
    memory.write(u"C.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/A.MID"_qs, u"/B.MID"_qs, u"/C.MID"_qs}));
    QVERIFY(titles(memory).contains(u"KEPT"_qs));
    // A folder of the same name is not the song.
    memory.remove(u"A.MID"_qs);
    QVERIFY(QDir().mkpath(memory.path(u"A.MID"_qs)));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/B.MID"_qs, u"/C.MID"_qs}));
}

void TestIndex::givesAccentedPathsNewIds()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"\u00E9.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedIds(memory), QList<int>({0, 2}));
    QCOMPARE(memory.read(u"index.id2"_qs).mid(64 + 4, 7), QByteArray("/\x82.MID\0", 7));
}

void TestIndex::readsHeadOfMisreadPathAgain()
{
    // 0xEA is U+00DB in the code page and U+00EA in Latin-1: the record of the first song looks
    // like the record of the second.
    const SampleMemory memory;
    const QDateTime moment(QDate(2010, 5, 6), QTime(7, 8, 9));
    memory.write(u"\u00DB.MID"_qs, midiSong("First", "A", "G"));
    memory.setDate(u"\u00DB.MID"_qs, moment);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.remove(u"\u00DB.MID"_qs);
    memory.write(u"\u00EA.MID"_qs, midiSong("Second", "A", "G"));
    memory.setDate(u"\u00EA.MID"_qs, moment);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(titles(memory), QStringList{u"SECOND"_qs});
}

void TestIndex::keepsSongRenamedInCaseOnly()
{
    const SampleMemory memory;
    memory.write(u"a.mid"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QVERIFY(QFile::rename(memory.path(u"a.mid"_qs), memory.path(u"A.MID"_qs)));
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/A.MID"_qs}));
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/A.MID"_qs, u"/B.MID"_qs}));
    QCOMPARE(indexedIds(memory), QList<int>({0, 1}));
}

void TestIndex::walksFoldersInOrder()
{
    const SampleMemory memory;
    for (const char *name : {"b/1.MID", "B.MID", "_.MID", "a.kar", "C/d/2.zb3", "C/e.Zb5"})
        memory.write(QLatin1StringView(name), anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/_.MID"_qs, u"/a.kar"_qs, u"/b/1.MID"_qs,
                                                u"/B.MID"_qs, u"/C/d/2.zb3"_qs, u"/C/e.Zb5"_qs}));
}

void TestIndex::skipsReservedAndHiddenFolders()
{
    const SampleMemory memory;
    for (const char *name :
         {"SFX/1.MID", "Bridge/2.MID", "x/sFx/3.MID", ".hidden/4.MID", ".5.MID",
          "System Volume Information/6.MID", "lost+found/7.MID", "SFXX/8.MID", "x/sfx.mid"})
        memory.write(QLatin1StringView(name), anySong);
    ScriptedIndex index;
    index.setRenameQuestion(always(2));
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/SFXX/8.MID"_qs, u"/x/sfx.mid"_qs}));
}

void TestIndex::acceptsOnlySongSuffixes()
{
    const SampleMemory memory;
    for (const char *name : {"1.mid", "2.KAR", "3.zb3", "4.ZB4", "5.zb5", "6.Mp3", "7.midi",
                             "8.zb2", "9", "10.mid.txt", "mid"})
        memory.write(QLatin1StringView(name), anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory).size(), 6);
}

void TestIndex::endsLinkLoopsAndSkipsSpecialFiles()
{
    const SampleMemory memory;
    memory.write(u"x/A.MID"_qs, anySong);
    QVERIFY(QFile::link(u"."_qs, memory.path(u"loop"_qs)));
    QVERIFY(QFile::link(memory.root(), memory.path(u"x/up"_qs)));
    QVERIFY(QFile::link(u"/dev/zero"_qs, memory.path(u"zero.mid"_qs)));
    QCOMPARE(::mkfifo(QFile::encodeName(memory.path(u"fifo.mid"_qs)).constData(), 0600), 0);
    QVERIFY(QDir().mkpath(memory.path(u"folder.mid"_qs)));
    QVERIFY(QFile::link(memory.path(u"x/A.MID"_qs), memory.path(u"link.mid"_qs)));
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(indexedPaths(memory), QStringList({u"/link.mid"_qs, u"/x/A.MID"_qs}));
}

void TestIndex::refusesPathOf46Characters()
{
    const SampleMemory memory;
    const QString folder = u"12345678/12345678/12345678/12345678/"_qs;
    memory.write(folder + u"1234.mid"_qs, anySong);
    memory.write(folder + u"12345.mid"_qs, anySong);
    ScriptedIndex index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    const QSignalSpy found(&index, &Index::fileFoundChanged);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(texts(errors), QStringList{u"File non importato, path troppo lungo: "_qs +
                                        memory.path(folder + u"12345.mid"_qs)});
    QCOMPARE(found.size(), 2);
    QCOMPARE(indexedPaths(memory), QStringList{u'/' + folder + u"1234.mid"_qs});
    // With only refused songs there is no index.
    memory.remove(folder + u"1234.mid"_qs);
    QVERIFY(!ScriptedIndex().createIndex(memory.root()));
    QVERIFY(!memory.has(u"index.id2"_qs));
}

void TestIndex::survivesUnorderedIds()
{
    const SampleMemory memory;
    for (const char *name : {"A.MID", "B.MID", "C.MID"})
        memory.write(QLatin1StringView(name), anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    const QByteArray index = memory.read(u"index.id2"_qs);
    memory.write(u"index.id2"_qs, index.mid(128) + index.left(128));
    (void)ScriptedIndex().updateIndex(memory.root());
    memory.write(u"index.id2"_qs, index.left(64) + index.left(64) + index.left(64));
    (void)ScriptedIndex().updateIndex(memory.root());
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    QCOMPARE(indexedIds(memory), QList<int>({0, 1, 2}));
}

void TestIndex::removesAllButReservedFile()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"sfx.id2"_qs, "x");
    memory.write(u"temp1.id2"_qs, "x");
    ScriptedIndex index;
    QVERIFY(index.createIndex(memory.root()));
    QVERIFY(index.checkIndexFile());
    LogCapture log;
    index.deleteIndex();
    QVERIFY(log.contains(u"delete index "_qs));
    QVERIFY(!index.checkIndexFile());
    QCOMPARE(memory.rootFiles().keys(), QStringList({u"A.MID"_qs, u"sfx.id2"_qs}));
}

void TestIndex::endsWhenAskedToQuit()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"B long name.mid"_qs, anySong);
    memory.write(u"C long name.mid"_qs, anySong);
    const auto before = memory.rootFiles();
    for (const bool rebuild : {true, false}) {
        int asked = 0;
        ScriptedIndex index;
        index.setRenameQuestion([&asked](const QString &, const QString &) {
            ++asked;
            RunGuard::requestEnd();
            return 0;
        });
        QVERIFY(!(rebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root())));
        QCOMPARE(asked, 1);
        QCOMPARE(memory.rootFiles(), before);
    }
}

void TestIndex::endsInThePerSongPass()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    memory.write(u"B.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"C.MID"_qs, anySong);
    const auto before = memory.rootFiles();
    for (const int value : {1, 30, 90}) {
        ScriptedIndex index;
        connect(&index, &Index::progressValueChanged, &index, [value](int now) {
            if (now == value)
                RunGuard::requestEnd();
        });
        QVERIFY(!index.updateIndex(memory.root()));
        QCOMPARE(memory.rootFiles(), before);
        QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    }
}

void TestIndex::keepsRoomForNoSongInAnotherPlace()
{
    // The memory is pulled during the run and its mount folder stays, empty.
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"B.MID"_qs, anySong);
    ScriptedIndex index;
    connect(&index, &Index::progressMaxSetup, &index, [&memory](int maximum) {
        if (maximum != 100)
            return;
        QVERIFY(QFile::rename(memory.root(), memory.root() + u"-away"_qs));
        QVERIFY(QDir().mkpath(memory.root()));
    });
    QVERIFY(!index.updateIndex(memory.root()));
    QVERIFY(memory.rootFiles().isEmpty());
    QVERIFY(QFile::exists(memory.root() + u"-away/fsinfos.id2"_qs));
}

void TestIndex::leavesAnotherMemoryAlone_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::addColumn<int>("value");
    for (const int value : {1, 10, 90}) {
        QTest::addRow("update at %d", value) << false << value;
        QTest::addRow("rebuild at %d", value) << true << value;
    }
}

void TestIndex::leavesAnotherMemoryAlone()
{
    // The memory is pulled during the run and replaced by another one of the same name.
    const SampleMemory memory;
    memory.write(u"A.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(memory.root()));
    memory.write(u"B.MID"_qs, anySong);
    const SampleMemory other;
    other.write(u"C.MID"_qs, anySong);
    QVERIFY(ScriptedIndex().createIndex(other.root()));
    QVERIFY(QDir(other.path(u"sfx"_qs)).removeRecursively());
    other.write(u".brisel2pc/paths"_qs, "of its own");
    const auto files = other.rootFiles();

    QFETCH(bool, isRebuild);
    QFETCH(int, value);
    ScriptedIndex index;
    connect(&index, &Index::progressValueChanged, &index, [&](int now) {
        if (now != value || QFileInfo::exists(memory.root() + u"-away"_qs))
            return;
        QVERIFY(QFile::rename(memory.root(), memory.root() + u"-away"_qs));
        QVERIFY(QFile::rename(other.root(), memory.root()));
    });
    QVERIFY(!(isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root())));
    QCOMPARE(memory.rootFiles(), files);
    QCOMPARE(memory.read(u".brisel2pc/paths"_qs), QByteArray("of its own"));
    QVERIFY(!QFileInfo::exists(memory.path(u"sfx"_qs)));
    QVERIFY(QFile::exists(memory.root() + u"-away/fsinfos.id2"_qs));
}

BRISEL_TEST(QApplication, TestIndex)
#include "tst_index.moc"
