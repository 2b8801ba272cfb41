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

/// The edits that are cut.
QList<Edit> edits()
{
    return {
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
}

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

struct Case {
    bool hasLostSong;
    Edit edit; ///< null for none
    Next next;
};

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

/// The titles of the playlist, but not those of entries without a song: a rebuild writes the songs
/// that it finds from the start.
QByteArray playedBy(const SampleMemory &memory)
{
    PlaylistDocument document;
    document.setContents(readContents(memory));
    QByteArrayList played;
    for (qsizetype entry = 0; entry < document.size(0); ++entry) {
        if (document.entryState(0, entry) == PlaylistDocument::EntryState::Good)
            played.append(document.title(0, entry).toLatin1());
    }
    return played.join(' ');
}

/// What the playlist plays after a whole save and the next run.
QByteArray expectedAfter(const Case &wanted)
{
    const SampleMemory memory;
    copyMemoryWithPlaylist(memory, wanted.hasLostSong);
    if (wanted.edit && !savePlaylist(memory.root(), wanted.edit))
        qFatal("not saved");
    if (!follow(memory, wanted.next))
        qFatal("not followed");
    return playedBy(memory);
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
    const QByteArrayList names{"swap", "shorten", "lengthen", "replace"};
    const QList<std::pair<const char *, Shim::Action>> faults{{"killed", Shim::Kill},
                                                              {"torn", Shim::Torn},
                                                              {"full", Shim::NoSpace},
                                                              {"broken", Shim::IoError},
                                                              {"read-only", Shim::ReadOnly}};
    for (int edit = 0; edit < names.size(); ++edit) {
        for (const bool hasLostSong : {false, true}) {
            const QByteArray row =
                names.at(edit) + (hasLostSong ? QByteArray(" with a lost song") : QByteArray());
            for (const auto &[action, fault] : faults) {
                // The steps of all edits are the same.
                if (fault == Shim::Kill || edit == names.size() - 1)
                    QTest::addRow("%s, %s", row.constData(), action)
                        << hasLostSong << edit << int(fault) << int(Shim::Plain);
            }
        }
    }
    QTest::newRow("killed on FAT")
        << true << int(names.size() - 1) << int(Shim::Kill) << int(Shim::Fat);
}

void TestPlaylistCuts::survivesFaultAtEveryStep()
{
    QFETCH(const bool, hasLostSong);
    QFETCH(const int, edit);
    QFETCH(const int, fault);
    QFETCH(const int, disk);
    const QList<Next> runs = hasLostSong ? QList<Next>{Update, Rebuild, RebuildWithTheSong}
                                         : QList<Next>{Update, Rebuild};
    int steps = 0;
    for (const Next next : runs) {
        const Case wanted{hasLostSong, edits().at(edit), next};
        const QByteArray old = expectedAfter({hasLostSong, {}, next});
        const QByteArray changed = expectedAfter(wanted);
        QVERIFY(old != changed);
        bool reached = true;
        for (int number = 1; reached; ++number) {
            const SampleMemory memory;
            copyMemoryWithPlaylist(memory, hasLostSong);
            const QByteArray before = memory.read(songsFile);
            const auto set = setOf(memory);
            const auto save = [&](ScriptedIndex &, const QString &root) {
                Shim::actLike(static_cast<Shim::Disk>(disk));
                return savePlaylist(root, wanted.edit);
            };
            const int result =
                runWithFault(memory, save, number, static_cast<Shim::Action>(fault), reached);
            const bool isNew = memory.read(songsFile) != before;
            const QByteArray where = " at step " + QByteArray::number(number);
            QVERIFY2(setOf(memory) == set && (isNew || result != 1), where.constData());
            QVERIFY2(follow(memory, next), where.constData());
            QCOMPARE(playedBy(memory) + where, (isNew ? changed : old) + where);
            steps = number - 1;
        }
    }
    QVERIFY2(steps > 10, qPrintable(QString::number(steps)));
    std::printf("%s: %d steps\n", QTest::currentDataTag(), steps);
}

BRISEL_TEST(QCoreApplication, TestPlaylistCuts)

#include "tst_playlistcuts.moc"
