#include "index/index.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/shim/looks.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Sample;

namespace
{

constexpr int folders = 10;
constexpr int headSize = 3072; ///< bytes of a song that are read
/// A run also asks for the set's own files and folders, for any number of songs.
constexpr long forTheSet = 1200;
constexpr long perFolder = 10;

/// Fills \a memory with \a count songs that are longer than the part that is read.
void addSongs(const SampleMemory &memory, int count)
{
    const QByteArray song = midiSong("Title", "Artist", "Genre") + QByteArray(2 * headSize, 'x');
    for (int i = 0; i < count; ++i)
        memory.write(u"F%1/S%2.MID"_qs.arg(i % folders).arg(i), song);
}

Looks::Counts looksOf(const SampleMemory &memory, bool (Index::*run)(const QString &),
                      qsizetype &pathSteps)
{
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    Looks::start(QFile::encodeName(memory.root()).constData());
    const bool done = (index.*run)(memory.root());
    const Looks::Counts counts = Looks::stop();
    if (!done)
        qFatal("no index");
    pathSteps = index.pathSteps();
    return counts;
}

} // namespace

/// How often a run accesses each song, which determines its speed on a real memory.
class TestIndexLooks : public QObject
{
    Q_OBJECT

private slots:
    void looksAtEachSongOnce_data();
    void looksAtEachSongOnce();
    void listsEachFolderTwiceAtMost_data();
    void listsEachFolderTwiceAtMost();
    void looksOnceAtEachShortNameThatIsTaken_data();
    void looksOnceAtEachShortNameThatIsTaken();
};

void TestIndexLooks::looksAtEachSongOnce_data()
{
    QTest::addColumn<int>("songs");
    QTest::newRow("1000") << 1000;
    QTest::newRow("10000") << 10000;
}

void TestIndexLooks::looksAtEachSongOnce()
{
    QFETCH(const int, songs);
    const SampleMemory memory;
    addSongs(memory, songs);
    constexpr long others = forTheSet + perFolder * folders;
    // A new song is opened, asked for its date and read once.
    qsizetype pathSteps = 0;
    const Looks::Counts built = looksOf(memory, &Index::createIndex, pathSteps);
    QVERIFY2(built.opened >= songs && built.opened <= songs + others,
             qPrintable(QString::number(built.opened)));
    QVERIFY2(built.asked >= songs && built.asked <= songs + others,
             qPrintable(QString::number(built.asked)));
    QVERIFY2(built.reads >= songs && built.reads <= songs + others,
             qPrintable(QString::number(built.reads)));
    QVERIFY2(built.bytes >= long{songs} * headSize &&
                 built.bytes <= long{songs} * headSize + (1 << 16),
             qPrintable(QString::number(built.bytes)));
    QVERIFY2(pathSteps <= songs + songs / 100, qPrintable(QString::number(pathSteps)));
    // A known song is only asked for its date, and found at its expected place.
    const Looks::Counts updated = looksOf(memory, &Index::updateIndex, pathSteps);
    QCOMPARE(pathSteps, 0);
    QVERIFY2(updated.asked >= songs && updated.asked <= songs + others,
             qPrintable(QString::number(updated.asked)));
    QVERIFY2(updated.opened <= others, qPrintable(QString::number(updated.opened)));
    QVERIFY2(updated.reads <= others, qPrintable(QString::number(updated.reads)));
    QVERIFY2(updated.bytes <= long{songs} * 5 * 64 + (1 << 16),
             qPrintable(QString::number(updated.bytes)));
}

void TestIndexLooks::listsEachFolderTwiceAtMost_data()
{
    QTest::addColumn<bool>("areSongs");
    QTest::newRow("with a song in the last") << true;
    QTest::newRow("without songs") << false;
}

/// Nested folders, all with long names: for each the run asks whether there are songs below it.
void TestIndexLooks::listsEachFolderTwiceAtMost()
{
    QFETCH(const bool, areSongs);
    constexpr int depth = 60;
    constexpr long others = 10;
    const SampleMemory memory;
    QString last;
    for (int i = 0; i < depth; ++i)
        last += u"A long folder/"_qs;
    memory.write(u"A.MID"_qs, midiSong("Title", "Artist", "Genre"));
    memory.write(last + (areSongs ? u"A.MID"_qs : u"notes.txt"_qs), "xxxxx");
    qsizetype pathSteps = 0;
    const Looks::Counts counts = looksOf(memory, &Index::createIndex, pathSteps);
    QCOMPARE(memory.has(last), !areSongs);
    QVERIFY2(counts.listed > depth && counts.listed <= 2 * depth + others,
             qPrintable(QString::number(counts.listed)));
}

void TestIndexLooks::looksOnceAtEachShortNameThatIsTaken_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("MIDI") << u"mid"_qs;
    QTest::newRow("MP3, with graphics files to look for") << u"mp3"_qs;
}

/// Of the names with the same start 999 get a short name; the others search no further.
void TestIndexLooks::looksOnceAtEachShortNameThatIsTaken()
{
    QFETCH(const QString, suffix);
    constexpr int names = 2000;
    constexpr long perName = 20;
    const SampleMemory memory;
    for (int i = 0; i < names; ++i)
        memory.write(u"SameStart%1.%2"_qs.arg(i).arg(suffix), "xxxxx");
    qsizetype pathSteps = 0;
    const Looks::Counts counts = looksOf(memory, &Index::createIndex, pathSteps);
    QVERIFY(memory.has(u"Same-999."_qs + suffix));
    QVERIFY2(counts.asked <= names * perName, qPrintable(QString::number(counts.asked)));
}

BRISEL_TEST(QCoreApplication, TestIndexLooks)
#include "tst_indexlooks.moc"
