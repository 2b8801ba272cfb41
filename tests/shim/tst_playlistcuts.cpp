#include "base/memoryidentity.h"
#include "memory/playlistdocument.h"
#include "memory/playlistwriter.h"
#include "tests/index/changedmemory.h"
#include "tests/memory/playlistmemory.h"
#include "tests/shim/faultyrun.h"
#include "tests/testprogram.h"

#include <QTest>

#include <functional>

using namespace brisel;

using namespace Sample;

namespace
{

using Edit = std::function<void(PlaylistDocument &)>;

/// What is done with a memory after a save that was cut.
enum Next { Update, Rebuild, RebuildWithTheSong };

const QString lostSong = u"A.MID"_qs;

/// A memory of the songs B, C, D and Z whose index was built after A was removed; the playlist 7
/// is B, A, D, C, A and C, and its path file belongs to it.
void copyMemoryWithPlaylist(const SampleMemory &memory, bool hasLostSong)
{
    copyChangedMemory(memory);
    memory.remove(songsFile);
    memory.remove(u"playlist/playlist.dat"_qs);
    if (!ScriptedIndex().updateIndex(memory.root()))
        qFatal("no index");
    memory.write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    const QByteArray c = readContents(memory)->record(1);
    const QByteArray a = hasLostSong ? playlistRecord(0) : playlistRecord(1);
    const QByteArray pathOfA = hasLostSong ? field("/A.MID", 64) : field("/B.MP3", 64);
    memory.write(songsFile, playlistRecord(1) + a + playlistRecord(3) + c + a + c);
    memory.write(u"playlist/play0007.pts"_qs, field("/B.MP3", 64) + pathOfA + field("/D.MID", 64) +
                                                  field("/C.MID", 64) + pathOfA +
                                                  field("/C.MID", 64));
}

bool savePlaylist(const QString &root, const Edit &edit)
{
    auto contents = std::make_shared<MemoryContents>();
    ScriptedRun run;
    if (contents->read(root, run) != MemoryContents::Outcome::Done)
        return false;
    PlaylistDocument document;
    document.setContents(contents);
    edit(document);
    return PlaylistWriter(document, run).save(MemoryIdentity(root));
}

bool follow(const SampleMemory &memory, Next next)
{
    if (next == RebuildWithTheSong) {
        memory.write(lostSong, midiSong("A", "Artist", "Genre"));
        memory.setDate(lostSong, songDate);
    }
    return next == Update ? ScriptedIndex().updateIndex(memory.root())
                          : ScriptedIndex().createIndex(memory.root());
}

/// The titles of the playlist, each with "!" if its id is of another song or of none.
QByteArray playedBy(const SampleMemory &memory)
{
    PlaylistDocument document;
    document.setContents(readContents(memory));
    QByteArray played;
    for (qsizetype entry = 0; entry < document.size(0); ++entry) {
        played += document.title(0, entry).toLatin1();
        if (document.entryState(0, entry) != PlaylistDocument::EntryState::Good)
            played += '!';
        played += ' ';
    }
    return played;
}

/// What the playlist is after a whole save, or without one, and the next run.
QByteArray expectedAfter(bool hasLostSong, const Edit &edit, Next next)
{
    const SampleMemory memory;
    copyMemoryWithPlaylist(memory, hasLostSong);
    if (edit && !savePlaylist(memory.root(), edit))
        qFatal("not saved");
    if (!follow(memory, next))
        qFatal("not followed");
    return playedBy(memory);
}

/// Without the entries that have no song: a rebuild writes the songs that it finds from the start.
QByteArray withoutDead(const QByteArray &played)
{
    QByteArrayList titles = played.split(' ');
    titles.removeIf([](const QByteArray &title) { return title.endsWith('!'); });
    return titles.join(' ');
}

} // namespace

/// Saves of playlists that are cut: each playlist is the old or the new one as a whole, and follows
/// its songs.
class TestPlaylistCuts : public QObject
{
    Q_OBJECT

private slots:
    /// Suppresses the log lines of thousands of runs.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void survivesFaultAtEveryStep_data();
    void survivesFaultAtEveryStep();
};

void TestPlaylistCuts::survivesFaultAtEveryStep_data()
{
    QTest::addColumn<bool>("hasLostSong");
    QTest::addColumn<int>("edit");
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("disk");
    const QList<const char *> edits{"swap", "shorten", "lengthen", "replace"};
    const QList<std::pair<const char *, Shim::Action>> faults{{"killed", Shim::Kill},
                                                              {"torn", Shim::Torn},
                                                              {"full", Shim::NoSpace},
                                                              {"broken", Shim::IoError},
                                                              {"read-only", Shim::ReadOnly}};
    for (int edit = 0; edit < edits.size(); ++edit) {
        for (const bool hasLostSong : {false, true}) {
            for (const auto &[name, fault] : faults)
                QTest::addRow("%s%s, %s", edits.at(edit), hasLostSong ? " with a lost song" : "",
                              name)
                    << hasLostSong << edit << int(fault) << int(Shim::Plain);
            QTest::addRow("%s%s, killed on FAT", edits.at(edit),
                          hasLostSong ? " with a lost song" : "")
                << hasLostSong << edit << int(Shim::Kill) << int(Shim::Fat);
        }
    }
}

void TestPlaylistCuts::survivesFaultAtEveryStep()
{
    QFETCH(const bool, hasLostSong);
    QFETCH(const int, edit);
    QFETCH(const int, fault);
    QFETCH(const int, disk);
    const QList<Edit> edits{
        [](PlaylistDocument &list) {
            list.move(0, {3, 4}, 0);
        },
        [](PlaylistDocument &list) {
            list.remove(0, {0, 3});
        },
        [](PlaylistDocument &list) {
            list.add(0, 1, {3, 1});
        },
        // As long as before, and similar at its start.
        [](PlaylistDocument &list) {
            list.remove(0, {1});
            list.add(0, 2, {2});
        },
    };
    const QList<Next> runs = hasLostSong ? QList<Next>{Update, Rebuild, RebuildWithTheSong}
                                         : QList<Next>{Update, Rebuild};
    int steps = 0;
    for (const Next next : runs) {
        const QByteArray old = expectedAfter(hasLostSong, {}, next);
        const QByteArray changed = expectedAfter(hasLostSong, edits.at(edit), next);
        QVERIFY(withoutDead(old) != withoutDead(changed));
        bool reached = true;
        for (int number = 1; reached; ++number) {
            const SampleMemory memory;
            copyMemoryWithPlaylist(memory, hasLostSong);
            const QByteArray before = memory.read(songsFile);
            const auto set = setOf(memory);
            const auto save = [&](ScriptedIndex &, const QString &root) {
                Shim::actLike(static_cast<Shim::Disk>(disk));
                return savePlaylist(root, edits.at(edit));
            };
            const int result =
                runWithFault(memory, save, number, static_cast<Shim::Action>(fault), reached);
            const QString where = u"step %1, run %2"_qs.arg(number).arg(next);
            QVERIFY2(setOf(memory) == set, qPrintable(where));
            const bool isNew = memory.read(songsFile) != before;
            QVERIFY2(isNew || result != 1, qPrintable(where));
            QVERIFY2(follow(memory, next), qPrintable(where));
            const QByteArray played = playedBy(memory);
            if (withoutDead(played) != withoutDead(isNew ? changed : old))
                QVERIFY2(false, qPrintable(where + QString::fromLatin1(": " + played + " for " +
                                                                       (isNew ? changed : old))));
            steps = std::max(steps, number - 1);
        }
    }
    QVERIFY2(steps > 10, qPrintable(QString::number(steps)));
    std::printf("%s: %d steps\n", QTest::currentDataTag(), steps);
}

BRISEL_TEST(QCoreApplication, TestPlaylistCuts)

#include "tst_playlistcuts.moc"
