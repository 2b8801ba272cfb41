#include "index/index.h"
#include "index/memoryreasons.h"
#include "tests/index/changedmemory.h"
#include "tests/index/setreader.h"
#include "tests/scriptedindex.h"
#include "tests/shim/shim.h"
#include "tests/testprogram.h"

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;
using namespace Sample;

/// Two programs use one memory at once: the second reports that and changes nothing.
class TestTwoPrograms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void secondOneTouchesNothing_data();
    void secondOneTouchesNothing();
    void repairsAfterAProgramThatWasKilled();
    void bothAtOnceLeaveASoundSet();
};

namespace
{

/// Why the index of \a memory was not built or updated; none when it was.
std::optional<Reason> index(const SampleMemory &memory, bool isRebuild)
{
    ScriptedIndex index;
    const bool isDone =
        isRebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root());
    return isDone ? std::nullopt : std::optional(index.failure());
}

/// Starts another program that indexes \a memory and stops before its step \a number. Returns 0 if
/// it ended before that step.
pid_t stoppedAt(const SampleMemory &memory, bool isRebuild, int number)
{
    const pid_t child = ::fork();
    if (child == 0) {
        Shim::arm(QFile::encodeName(memory.root()).constData(), number, Shim::Stop);
        ::_exit(index(memory, isRebuild).has_value() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, WUNTRACED);
    return WIFSTOPPED(status) ? child : 0;
}

/// Waits for the end of \a child; true if it reports success.
bool succeeds(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

QMap<QString, QByteArray> allFiles(const SampleMemory &memory)
{
    auto files = memory.rootFiles();
    for (const QString &folder : {u"playlist"_s, u".brisel2pc"_s}) {
        const QStringList names = QDir(memory.path(folder)).entryList(QDir::Files | QDir::Hidden);
        for (const QString &name : names)
            files.insert(folder + u'/' + name, memory.read(folder + u'/' + name));
    }
    return files;
}

} // namespace

void TestTwoPrograms::secondOneTouchesNothing_data()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

void TestTwoPrograms::secondOneTouchesNothing()
{
    QFETCH(bool, isRebuild);
    int stops = 0;
    for (int number = 1;; ++number) {
        const SampleMemory memory;
        copyChangedMemory(memory);
        const pid_t first = stoppedAt(memory, isRebuild, number);
        if (first == 0)
            break;
        ++stops;
        const auto before = allFiles(memory);
        for (const bool isSecondRebuild : {false, true})
            QVERIFY(index(memory, isSecondRebuild) == MemoryReason::inUse);
        ScriptedIndex list;
        QCOMPARE(list.saveSongsList(memory.root(), u"list.csv"_s, SortByTitle), 0);
        QCOMPARE(list.failure(), MemoryReason::inUse);
        QVERIFY(!QFile::exists(u"list.csv"_s));
        ScriptedCheck check;
        QVERIFY(!check.run(memory.root()));
        QCOMPARE(check.findings(),
                 QStringList{u"un altro programma sta lavorando su questa memoria"_s});
        QCOMPARE(allFiles(memory), before);
        ::kill(first, SIGCONT);
        QVERIFY(succeeds(first));
        const SetReader reader(memory);
        QCOMPARE(reader.problem(), QString());
        QCOMPARE(reader.playlist(songsFile), keptSongs);
    }
    QVERIFY2(stops > 20, qPrintable(QString::number(stops)));
}

void TestTwoPrograms::repairsAfterAProgramThatWasKilled()
{
    const SampleMemory memory;
    copyChangedMemory(memory);
    const auto before = setOf(memory);
    const pid_t first = stoppedAt(memory, false, 20);
    QVERIFY(first != 0);
    ::kill(first, SIGKILL);
    QVERIFY(!succeeds(first));
    checkRepaired(memory, before);
}

void TestTwoPrograms::bothAtOnceLeaveASoundSet()
{
    constexpr int pairs = 40;
    int refused = 0;
    for (int pair = 0; pair < pairs; ++pair) {
        const SampleMemory memory;
        copyChangedMemory(memory);
        QList<pid_t> children;
        for (const bool isRebuild : {pair % 2 == 0, pair % 4 < 2}) {
            children.append(::fork());
            if (children.last() == 0) {
                Shim::arm(QFile::encodeName(memory.root()).constData(), 0, Shim::Kill);
                Shim::slowFlushes(1);
                const std::optional<Reason> failure = index(memory, isRebuild);
                ::_exit(!failure.has_value() ? 0 : failure == MemoryReason::inUse ? 1 : 2);
            }
        }
        int done = 0;
        for (const pid_t child : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) < 2);
            done += WEXITSTATUS(status) == 0 ? 1 : 0;
        }
        QVERIFY(done > 0);
        refused += 2 - done;
        const SetReader reader(memory);
        QCOMPARE(reader.problem(), QString());
        QCOMPARE(reader.playlist(songsFile).mid(0, 2), keptSongs.mid(0, 2));
    }
    std::printf("%d pairs, %d refused\n", pairs, refused);
}

BRISEL_TEST(QCoreApplication, TestTwoPrograms)
#include "tst_twoprograms.moc"
