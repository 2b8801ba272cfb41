#include "memory/songfiles.h"

#include "base/filefailure.h"
#include "tests/index/setreader.h"
#include "tests/memory/readmemory.h"
#include "tests/memory/removesongs.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/testprogram.h"

#include <QElapsedTimer>
#include <QTest>

#include <optional>

#include <cstdio>

using namespace brisel;

using namespace Sample;

/// Songs whose paths in the index are not those of their files are found, and nothing else is taken
/// for them.
class TestSongFiles : public QObject
{
    Q_OBJECT

    using Outcome = SongRemoval::Outcome;

private slots:
    void removesASongThatTheCodePageLacks();
    void removesASongInAFolderThatTheCodePageLacks();
    void removesASongInOtherLetters();
    void keepsSongsThatSeveralFilesCouldBe();
    void keepsAFileThatSeveralSongsCouldBe();
    void removesSongsThatAreMissing();
    void takesNoOtherCharacterForTheSong();
    void keepsASongWhoseFileHasNoText();
    void findsNothingOnAMissingMemory();
    void readsEachFolderOnce();

private:
    static inline const QString ja = u"POP/\u042F.MID"_qs;
    static inline const QString zhe = u"POP/\u0416.MID"_qs;
    static inline const QString songs = u"playlist/play0007.dat"_qs;

    /// Songs with an index and one playlist with all of them.
    static void fill(const SampleMemory &memory, const QStringList &names)
    {
        for (const QString &name : names)
            memory.write(name, midiSong("Song", "Anna", "Pop"));
        QVERIFY(ScriptedIndex().createIndex(memory.root()));
        memory.write(u"playlist/playlist.dat"_qs, field("\x07", 32));
        memory.write(songs, memory.read(u"title.id2"_qs));
    }
    static SongFiles::Place find(const SampleMemory &memory, const QString &name)
    {
        return SongFiles(memory.root(), *contentsOf(memory)).find(memory.path(name));
    }
    Outcome remove(const SampleMemory &memory, const QStringList &names)
    {
        m_run.emplace();
        return removeSongs(memory, names, *m_run);
    }
    static qsizetype entries(const SampleMemory &memory) { return memory.read(songs).size() / 64; }

    std::optional<ScriptedRun> m_run;
};

void TestSongFiles::removesASongThatTheCodePageLacks()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs, ja});
    QCOMPARE(find(memory, u"POP/?.MID"_qs).path, memory.path(ja));
    QCOMPARE(remove(memory, {u"POP/?.MID"_qs}), Outcome::Done);
    QVERIFY(!memory.has(ja));
    QCOMPARE(entries(memory), 1);
    QCOMPARE(m_run->report().counted(RunReport::Success::Deleted), 1);
    QCOMPARE(SetReader(memory).songCount(), 1);
}

void TestSongFiles::removesASongInAFolderThatTheCodePageLacks()
{
    const SampleMemory memory;
    const QString song = u"\u042F/\u042F/B.MID"_qs;
    fill(memory, {u"A.MID"_qs, song});
    QCOMPARE(remove(memory, {u"?/?/B.MID"_qs}), Outcome::Done);
    QVERIFY(!memory.has(song));
    QCOMPARE(entries(memory), 1);
}

/// The file system of the test distinguishes them.
void TestSongFiles::removesASongInOtherLetters()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs, u"POP/B.MID"_qs});
    QVERIFY(QFile::rename(memory.path(u"POP"_qs), memory.path(u"Pop"_qs)));
    QVERIFY(QFile::rename(memory.path(u"Pop/B.MID"_qs), memory.path(u"Pop/b.mid"_qs)));
    QCOMPARE(find(memory, u"POP/B.MID"_qs).path, memory.path(u"Pop/b.mid"_qs));
    QCOMPARE(remove(memory, {u"POP/B.MID"_qs}), Outcome::Done);
    QVERIFY(!memory.has(u"Pop/b.mid"_qs));
    QCOMPARE(entries(memory), 1);
}

void TestSongFiles::keepsSongsThatSeveralFilesCouldBe()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs, ja});
    for (const QString &other : {zhe, u"POP/?.MID"_qs}) {
        memory.write(other, "another song");
        QCOMPARE(remove(memory, {u"POP/?.MID"_qs}), Outcome::Failed);
        QVERIFY(m_run->report().text().contains(u"più file o più song hanno questo percorso"_qs));
        QCOMPARE(m_run->report().counted(RunReport::Success::Deleted), 0);
        QVERIFY(memory.has(ja));
        QVERIFY(memory.has(other));
        QCOMPARE(entries(memory), 2);
        memory.remove(other);
    }
    memory.remove(u"A.MID"_qs);
    memory.write(u"a.mid"_qs, "a song");
    memory.write(u"A.mid"_qs, "a song");
    QCOMPARE(find(memory, u"A.MID"_qs).problem, SongFiles::unclear);
    QCOMPARE(find(memory, u"a.mid"_qs).path, memory.path(u"a.mid"_qs));
}

void TestSongFiles::keepsAFileThatSeveralSongsCouldBe()
{
    const SampleMemory memory;
    fill(memory, {ja, zhe});
    memory.remove(zhe);
    QCOMPARE(remove(memory, {u"POP/?.MID"_qs}), Outcome::Failed);
    QVERIFY(memory.has(ja));
    QCOMPARE(entries(memory), 2);
}

void TestSongFiles::removesSongsThatAreMissing()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs, ja});
    memory.remove(ja);
    QCOMPARE(find(memory, u"POP/?.MID"_qs).problem, FileReason::missing);
    QCOMPARE(remove(memory, {u"POP/?.MID"_qs}), Outcome::Done);
    QCOMPARE(entries(memory), 1);
    QCOMPARE(SetReader(memory).songCount(), 1);
}

/// The upper case of the first letter is not in the code page, and has the same sort key.
void TestSongFiles::takesNoOtherCharacterForTheSong()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs, u"\u00FF.MID"_qs});
    memory.remove(u"\u00FF.MID"_qs);
    memory.write(u"\u042F.MID"_qs, "another song");
    QCOMPARE(find(memory, u"\u00FF.MID"_qs).problem, SongFiles::unclear);
}

void TestSongFiles::keepsASongWhoseFileHasNoText()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs, ja});
    QCOMPARE(std::rename(QFile::encodeName(memory.path(ja)).constData(),
                         QFile::encodeName(memory.path(u"POP/"_qs)).append("\xE9.MID").constData()),
             0);
    QCOMPARE(remove(memory, {u"POP/?.MID"_qs}), Outcome::Failed);
    QVERIFY(m_run->report().text().contains(FileReason::unreachable.text()));
    QCOMPARE(entries(memory), 2);
}

void TestSongFiles::findsNothingOnAMissingMemory()
{
    const SampleMemory memory;
    fill(memory, {u"A.MID"_qs});
    SongFiles files(memory.root(), *contentsOf(memory));
    QVERIFY(QDir(memory.root()).removeRecursively());
    QCOMPARE(files.find(memory.path(u"A.MID"_qs)).problem, FileReason::unreachable);
}

/// Thousands of names with one key in the index.
void TestSongFiles::readsEachFolderOnce()
{
    const SampleMemory memory;
    constexpr int songCount = 3000;
    QStringList names;
    QByteArray paths;
    for (int song = 0; song < songCount; ++song) {
        names.append(QStringLiteral("%1%2%3%4.MID")
                         .arg(QChar(0x0430 + song / 1000), QChar(0x0430 + song / 100 % 10),
                              QChar(0x0430 + song / 10 % 10), QChar(0x0430 + song % 10)));
        memory.write(names.last(), "song");
        paths +=
            pathRecord(QByteArray::number(0x10000000 + song, 16), "/????.MID", "20091231235958");
    }
    const HandMadeSet model;
    const auto files = model.rootFiles();
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        memory.write(file.key(), file.value());
    memory.write(u"index.id2"_qs, paths);
    const auto contents = contentsOf(memory);
    QCOMPARE(contents->size(), songCount);
    QElapsedTimer timer;
    timer.start();
    SongFiles places(memory.root(), *contents);
    SongEntries entries(*contents, places);
    for (const QString &name : std::as_const(names)) {
        entries.add(memory.path(name));
        entries.add(memory.path(u"????.MID"_qs));
    }
    QCOMPARE(places.foldersRead(), 1);
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
}

BRISEL_TEST(QCoreApplication, TestSongFiles)

#include "tst_songfiles.moc"
