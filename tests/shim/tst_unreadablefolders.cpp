#include "base/filefailure.h"
#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/shim/damagedfile.h"
#include "tests/testprogram.h"

#include <QSignalSpy>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using namespace Sample;

namespace
{

const QByteArray readableSong = midiSong("Title", "Artist", "Genre");

const QString notRead = u"Cartella non importata, impossibile leggerla: "_s;

/// The report of a run on a memory, and the index after it.
struct IndexedMemory {
    bool isDone = false;
    QStringList errors;
    QByteArray index;
};

IndexedMemory runOn(const SampleMemory &memory, bool (Index::*work)(const QString &))
{
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    IndexedMemory result;
    result.isDone = (index.*work)(memory.root());
    for (const QList<QVariant> &arguments : errors)
        result.errors.append(arguments.first().toString());
    result.index = memory.read(u"index.id2"_s);
    return result;
}

QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

} // namespace

/// Folders and songs of a memory that can't be read: a run reports each of them and keeps what it
/// knows about them.
class TestUnreadableFolders : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void reportsAFolderThatMayNotBeListed();
    void reportsAFolderThatFailsHalfWay();
    void reportsAFolderThatFailsAtOnce();
    void keepsTheSongsOfAFolderThatMayNotBeListed();
    void losesNoSongsInARebuild();
    void renamesNoFolderThatMayNotBeListed();
    void reportsANewSongThatCannotBeRead();
    void readsItOnceItCanBeRead();
    void keepsAKnownSongThatCannotBeRead();
};

void TestUnreadableFolders::cleanup()
{
    Shim::listAll();
    Shim::readAll();
}

void TestUnreadableFolders::reportsAFolderThatMayNotBeListed()
{
    const SampleMemory memory;
    memory.write(u"POP/A.MID"_s, readableSong);
    memory.write(u"B.MID"_s, readableSong);
    Shim::refuseFolder(encoded(memory.path(u"POP"_s)));
    const IndexedMemory result = runOn(memory, &Index::createIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors, QStringList{notRead + memory.path(u"POP"_s)});
    QCOMPARE(result.index.size(), 64);
    QCOMPARE(result.index.mid(4, 7), QByteArray("/B.MID\0", 7));
}

void TestUnreadableFolders::reportsAFolderThatFailsHalfWay()
{
    constexpr int songs = 8;
    constexpr int read = 5;
    const SampleMemory memory;
    for (int i = 0; i < songs; ++i)
        memory.write(u"POP/S%1.MID"_s.arg(i), readableSong);
    Shim::failListing(encoded(memory.path(u"POP"_s)), read);
    const IndexedMemory result = runOn(memory, &Index::createIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors, QStringList{u"Cartella importata solo in parte, errore di lettura: "_s +
                                        memory.path(u"POP"_s)});
    QCOMPARE(result.index.size(), read * 64);
}

void TestUnreadableFolders::reportsAFolderThatFailsAtOnce()
{
    const SampleMemory memory;
    memory.write(u"POP/A.MID"_s, readableSong);
    memory.write(u"B.MID"_s, readableSong);
    Shim::failListing(encoded(memory.path(u"POP"_s)), 0);
    QCOMPARE(runOn(memory, &Index::createIndex).errors,
             QStringList{notRead + memory.path(u"POP"_s)});
}

void TestUnreadableFolders::keepsTheSongsOfAFolderThatMayNotBeListed()
{
    const SampleMemory memory;
    memory.write(u"POP/A.MID"_s, readableSong);
    memory.write(u"B.MID"_s, readableSong);
    const IndexedMemory before = runOn(memory, &Index::createIndex);
    QCOMPARE(before.errors, QStringList());
    QCOMPARE(before.index.size(), 2 * 64);
    Shim::refuseFolder(encoded(memory.path(u"POP"_s)));
    const IndexedMemory result = runOn(memory, &Index::updateIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors.size(), 1);
    QCOMPARE(result.index, before.index);
}

/// Includes a path with '?' for a character that is not in the index's code page.
void TestUnreadableFolders::losesNoSongsInARebuild()
{
    for (const QString &folder : {u"POP"_s, u"\u042F"_s}) {
        const SampleMemory memory;
        memory.write(folder + u"/A.MID"_s, readableSong);
        memory.write(u"B.MID"_s, readableSong);
        QVERIFY(runOn(memory, &Index::createIndex).isDone);
        const auto before = memory.rootFiles();
        Shim::refuseFolder(encoded(memory.path(folder)));
        ScriptedIndex index;
        QVERIFY(!index.createIndex(memory.root()));
        QCOMPARE(index.failure(), FileReason::unreachable);
        QCOMPARE(memory.rootFiles(), before);
        Shim::listAll();
        QVERIFY(index.createIndex(memory.root()));
    }
}

void TestUnreadableFolders::renamesNoFolderThatMayNotBeListed()
{
    const SampleMemory memory;
    memory.write(u"A long folder/A.MID"_s, readableSong);
    memory.write(u"B.MID"_s, readableSong);
    Shim::refuseFolder(encoded(memory.path(u"A long folder"_s)));
    const IndexedMemory result = runOn(memory, &Index::createIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors, QStringList{notRead + memory.path(u"A long folder"_s)});
    QVERIFY(memory.has(u"A long folder/A.MID"_s));
}

void TestUnreadableFolders::reportsANewSongThatCannotBeRead()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_s, readableSong);
    const DamagedFile damaged(memory.path(u"A.MID"_s), 0, Shim::BadSector);
    const IndexedMemory result = runOn(memory, &Index::createIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors,
             QStringList{u"File non leggibile, la song è indicizzata con il solo nome: "_s +
                         memory.path(u"A.MID"_s)});
    QCOMPARE(result.index.mid(4), field("/A.MID", 46) + "00000000000000");
    QCOMPARE(memory.read(u"title.id2"_s).mid(4, 58), field("A.MID", 58));
}

/// The song has the same date as when it could not be read, but must not count as known.
void TestUnreadableFolders::readsItOnceItCanBeRead()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_s, readableSong);
    {
        const DamagedFile damaged(memory.path(u"A.MID"_s), 0, Shim::BadSector);
        QVERIFY(runOn(memory, &Index::createIndex).isDone);
        QCOMPARE(runOn(memory, &Index::updateIndex).errors.size(), 1);
    }
    const IndexedMemory result = runOn(memory, &Index::updateIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(memory.read(u"title.id2"_s).mid(4, 58), field("TITLE", 58));
}

void TestUnreadableFolders::keepsAKnownSongThatCannotBeRead()
{
    const SampleMemory memory;
    memory.write(u"A.MID"_s, readableSong);
    memory.setDate(u"A.MID"_s, QDateTime({2001, 2, 3}, {4, 5, 6}));
    const IndexedMemory before = runOn(memory, &Index::createIndex);
    memory.setDate(u"A.MID"_s, QDateTime({2002, 2, 3}, {4, 5, 6}));
    const DamagedFile damaged(memory.path(u"A.MID"_s), 0, Shim::BadSector);
    const IndexedMemory result = runOn(memory, &Index::updateIndex);
    QVERIFY(result.isDone);
    QCOMPARE(result.errors,
             QStringList{u"File non leggibile, la song resta indicizzata com'era: "_s +
                         memory.path(u"A.MID"_s)});
    QCOMPARE(result.index, before.index);
}

BRISEL_TEST(QCoreApplication, TestUnreadableFolders)
#include "tst_unreadablefolders.moc"
