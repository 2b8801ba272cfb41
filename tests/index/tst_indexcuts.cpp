#include "index/index.h"
#include "tests/index/setreader.h"
#include "tests/shim/shim.h"
#include "tests/testhome.h"

#include <QCryptographicHash>
#include <QTest>

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

using namespace Sample;

namespace
{

const QString songsFile = u"playlist/play0007.dat"_qs;
const QList<QByteArray> keptSongs{"/D.MID", "/B.MP3", "/\x82.MID"};
const QString accented = u"\u00E9.MID"_qs;

QByteArray playlistRecord(int id)
{
    return songRecord(QByteArray::number(id).rightJustified(8, '0').constData(), "X", "0000");
}

const QDateTime songDate(QDate(2004, 1, 1), QTime(1, 1));

/// A memory whose index is built and whose songs have changed since. The ids of its first index:
/// A 0, B 1, C 2, D 3, \u00E9 4; a rebuild gives B 0, C 1, D 2, Z 3, \u00E9 4. In every update the
/// accented song gets a new one.
void build(const SampleMemory &memory)
{
    for (const char *name : {"A", "C", "D"})
        memory.write(QLatin1StringView(name) + u".MID"_qs, midiSong(name, "Artist", "Genre"));
    memory.write(u"B.MP3"_qs, mp3Song("B", "Other", "Genre"));
    memory.write(accented, midiSong("E", "Artist", "Genre"));
    for (const char *name : {"A.MID", "B.MP3", "C.MID", "D.MID"})
        memory.setDate(QLatin1StringView(name), songDate);
    if (!Index().createIndex(memory.root()))
        qFatal("no index");
    memory.remove(u"A.MID"_qs);
    memory.write(u"Z.MID"_qs, midiSong("Z", "Artist", "New"));
    memory.write(u"C.MID"_qs, midiSong("CC", "Artist", "Genre"));
}

/// A copy of that memory, with a playlist of D, B and the accented song.
void prepare(const SampleMemory &memory)
{
    static const SampleMemory model;
    if (!model.has(u"Z.MID"_qs))
        build(model);
    const auto files = model.rootFiles();
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        memory.write(file.key(), file.value());
    for (const char *name : {"B.MP3", "D.MID"})
        memory.setDate(QLatin1StringView(name), songDate);
    memory.write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    memory.write(songsFile, playlistRecord(3) + playlistRecord(1) + playlistRecord(4));
}

QMap<QString, QByteArray> setOf(const SampleMemory &memory)
{
    QMap<QString, QByteArray> set;
    for (const QString &name : IndexSet::names()) {
        if (memory.has(name))
            set.insert(name, memory.read(name));
    }
    return set;
}

using Run = std::function<bool(Index &, const QString &)>;

bool rebuild(Index &index, const QString &root)
{
    return index.createIndex(root);
}

bool update(Index &index, const QString &root)
{
    return index.updateIndex(root);
}

constexpr int killed = -1;

/// Runs \a run in a process of its own whose step \a number goes wrong. Gives killed, or 0 or 1 for
/// the run's result; \a reached tells whether the step came.
int runWithFault(const SampleMemory &memory, const Run &run, int number, Shim::Action fault,
                 bool &reached)
{
    const pid_t child = ::fork();
    if (child == 0) {
        Shim::arm(QFile::encodeName(memory.root()).constData(), number, fault);
        Index index;
        const bool result = run(index, memory.root());
        const int steps = Shim::disarm();
        ::_exit((result ? 1 : 0) + (steps >= number ? 2 : 0));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) {
        reached = true;
        return killed;
    }
    if (!WIFEXITED(status))
        qFatal("the run crashed");
    reached = (WEXITSTATUS(status) & 2) != 0;
    return WEXITSTATUS(status) & 1;
}

} // namespace

/// No cut and no failure leaves files that don't belong together, and the next run mends all.
class TestIndexCuts : public QObject
{
    Q_OBJECT

private slots:
    /// Thousands of runs log thousands of lines that nobody reads.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void survivesFaultAtEveryStep_data();
    void survivesFaultAtEveryStep();
    void finishesSwapThatWasCut();
    void leavesChangedPlaylistsAlone();
    void ignoresForgedMarks();
    void refusesMarksOfAbsurdSize();
    void takesAwayAFileInPlaceOfTheWorkFolder();
    void survivesCutOfRecovery();

private:
    void checkRepaired(const SampleMemory &memory, const QMap<QString, QByteArray> &before);
};

void TestIndexCuts::survivesFaultAtEveryStep_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::addColumn<int>("fault");
    const QList<std::pair<const char *, Shim::Action>> faults{{"killed", Shim::Kill},
                                                              {"torn", Shim::Torn},
                                                              {"full", Shim::NoSpace},
                                                              {"broken", Shim::IoError},
                                                              {"short", Shim::Short}};
    for (const auto &[name, fault] : faults) {
        QTest::addRow("update %s", name) << false << int(fault);
        QTest::addRow("rebuild %s", name) << true << int(fault);
    }
}

void TestIndexCuts::survivesFaultAtEveryStep()
{
    QFETCH(bool, isRebuild);
    QFETCH(int, fault);
    const Run run = isRebuild ? Run(rebuild) : Run(update);
    const int fewestSteps = 100;
    bool reached = true;
    int number = 0;
    int overcome = 0;
    while (reached) {
        ++number;
        const SampleMemory memory;
        prepare(memory);
        const auto before = setOf(memory);
        const int result =
            runWithFault(memory, run, number, static_cast<Shim::Action>(fault), reached);
        const QString where = u"step %1"_qs.arg(number);
        const auto set = setOf(memory);
        const bool isComplete = set.size() == IndexSet::names().size();
        // The old set names a song that is gone; the new one must be sound in itself.
        if (isComplete && set != before)
            QVERIFY2(SetReader(memory).problem().isEmpty(), qPrintable(where));
        if (result == 1)
            QVERIFY2(isComplete && set != before, qPrintable(where));
        if (result == 1 && reached)
            ++overcome;
        checkRepaired(memory, before);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(where));
    }
    // Once all is staged and the old set gone, a full memory needs no room for a second copy.
    if (fault == Shim::NoSpace)
        QVERIFY2(overcome > 10, qPrintable(QString::number(overcome)));
    QVERIFY2(number > fewestSteps, qPrintable(QString::number(number)));
    std::printf("%s: %d steps\n", QTest::currentDataTag(), number - 1);
}

/// \a before is the set that the run found.
void TestIndexCuts::checkRepaired(const SampleMemory &memory,
                                  const QMap<QString, QByteArray> &before)
{
    const auto set = setOf(memory);
    QList<QByteArray> expected = keptSongs;
    // Where the run had all done, the next one finds path files that were used, and leaves the
    // playlists alone: the accented song has a new id again.
    if (set.size() == IndexSet::names().size() && set != before &&
        !memory.has(u".brisel2pc/paths"_qs)) {
        QCOMPARE(SetReader(memory).playlist(songsFile), keptSongs);
        expected.last() = "<none>";
    }
    QVERIFY(Index().updateIndex(memory.root()));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.songCount(), 5);
    QCOMPARE(reader.playlist(songsFile), expected);
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    QCOMPARE(QDir(memory.path(u"playlist"_qs)).entryList(QDir::Files | QDir::Hidden).size(), 3);
}

void TestIndexCuts::finishesSwapThatWasCut()
{
    // Found by trying: the steps at which the old set is gone and the mark stands.
    int finished = 0;
    bool reached = true;
    for (int number = 1; reached; ++number) {
        const SampleMemory memory;
        prepare(memory);
        runWithFault(memory, rebuild, number, Shim::Kill, reached);
        if (!memory.has(u".brisel2pc/swap"_qs) || memory.has(u"fsinfos.id2"_qs))
            continue;
        IndexSet set;
        set.setRoot(memory.root());
        set.recover();
        if (!set.isComplete())
            continue;
        ++finished;
        const SetReader reader(memory);
        QCOMPARE(reader.problem(), QString());
        QCOMPARE(reader.playlist(songsFile), keptSongs);
    }
    QVERIFY2(finished > 20, qPrintable(QString::number(finished)));
}

void TestIndexCuts::leavesChangedPlaylistsAlone()
{
    // Cut just before the swap, or just after it: the player had a whole set, and its user has
    // changed the playlist since.
    int oldSets = 0;
    int newSets = 0;
    bool reached = true;
    for (int number = 30; reached; ++number) {
        const SampleMemory memory;
        prepare(memory);
        const auto before = setOf(memory);
        runWithFault(memory, rebuild, number, Shim::Kill, reached);
        const auto set = setOf(memory);
        if (!memory.has(u".brisel2pc/swap"_qs) || set.size() != IndexSet::names().size())
            continue;
        ++(set == before ? oldSets : newSets);
        memory.write(songsFile, playlistRecord(set == before ? 1 : 0));
        QVERIFY(Index().updateIndex(memory.root()));
        QCOMPARE(SetReader(memory).playlist(songsFile), QList<QByteArray>{"/B.MP3"});
    }
    QVERIFY(oldSets > 0);
    QVERIFY(newSets > 0);
}

void TestIndexCuts::ignoresForgedMarks()
{
    const SampleMemory memory;
    prepare(memory);
    memory.write(u"victim.txt"_qs, "mine");
    const QByteArray evil = "evil";
    const QByteArray sum = "7e0bb8a64f8d1b7a0f5b1b7fb0c1c0e4a6f1e6b1";
    memory.remove(u"fsinfos.id2"_qs);
    const auto before = setOf(memory);
    for (const QByteArray &body :
         {QByteArray(), QByteArray("brisel2pc swap 1\n" + sum + " 4 ../victim.txt\n"),
          QByteArray("brisel2pc swap 1\n" + sum + " 4 victim.txt\n"),
          QByteArray("brisel2pc swap 1\n"), QByteArray("brisel2pc swap 1\nx\n")}) {
        memory.write(u".brisel2pc/victim.txt"_qs, evil);
        const QByteArray check = QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex();
        memory.write(u".brisel2pc/swap"_qs, body + "end " + check + '\n');
        IndexSet set;
        set.setRoot(memory.root());
        set.recover();
        QCOMPARE(memory.read(u"victim.txt"_qs), QByteArray("mine"));
        QCOMPARE(setOf(memory), before);
        QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    }
    // A link in place of the work folder leads to somebody else's files.
    const QTemporaryDir other;
    QVERIFY(QFile::link(other.path(), memory.path(u".brisel2pc"_qs)));
    QVERIFY(Index().updateIndex(memory.root()));
    QVERIFY(QFileInfo::exists(other.path()));
    QVERIFY(QDir(other.path()).isEmpty());
}

void TestIndexCuts::refusesMarksOfAbsurdSize()
{
    const SampleMemory memory;
    prepare(memory);
    memory.remove(u"fsinfos.id2"_qs);
    const auto before = setOf(memory);
    const QByteArray content = "evil";
    const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex();
    for (const char *size : {"9000000000000000000", "99999999999999999999", "5", "3", "-4"}) {
        memory.write(u".brisel2pc/title.id2"_qs, content);
        const QByteArray body =
            "brisel2pc swap 1\n" + sum + ' ' + size + " title.id2\n" + sum + " 4 title.id2\n";
        const QByteArray check = QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex();
        memory.write(u".brisel2pc/swap"_qs, body + "end " + check + '\n');
        IndexSet set;
        set.setRoot(memory.root());
        set.recover();
        QCOMPARE(setOf(memory), before);
    }
}

void TestIndexCuts::takesAwayAFileInPlaceOfTheWorkFolder()
{
    const SampleMemory memory;
    prepare(memory);
    const auto before = setOf(memory);
    memory.write(u".brisel2pc"_qs, "no folder");
    checkRepaired(memory, before);
}

void TestIndexCuts::survivesCutOfRecovery()
{
    // Killed in the swap, and killed again in each step of the run that repairs it.
    bool reached = true;
    for (int number = 1; reached; ++number) {
        const SampleMemory memory;
        prepare(memory);
        const auto before = setOf(memory);
        bool first = false;
        for (int cut = 60; !memory.has(u".brisel2pc/swap"_qs) || memory.has(u"fsinfos.id2"_qs);
             ++cut)
            runWithFault(memory, rebuild, cut, Shim::Kill, first);
        runWithFault(memory, update, number, Shim::Kill, reached);
        const auto set = setOf(memory);
        if (set.size() == IndexSet::names().size())
            QCOMPARE(SetReader(memory).problem(), QString());
        checkRepaired(memory, before);
    }
}

BRISEL_TEST_MAIN(QCoreApplication, TestIndexCuts)
#include "tst_indexcuts.moc"
