#include "base/freespace.h"
#include "index/index.h"
#include "tests/fulldisk.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/shim/shimmedworker.h"
#include "tests/smalldisk.h"
#include "tests/songfile/samples.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDirIterator>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTest>

#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

using Files = QMap<QString, QByteArray>;

/// All files below \a folder by their relative paths.
Files filesOf(const QString &folder)
{
    Files files;
    QDirIterator entry(folder, QDir::Files | QDir::Hidden | QDir::System,
                       QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        const QString path = entry.next();
        files.insert(path.mid(folder.size() + 1), fileContent(path));
    }
    return files;
}

QByteArray midiSong(const char *title)
{
    return Samples::midi(Samples::metaEvent(3, title));
}

QByteArray mp3Song(const char *title)
{
    return Samples::tag(Samples::frame("TIT2", title)) + Samples::audio(250000);
}

/// What the worker is asked to do, in a folder that holds some files before.
struct Job {
    QStringList arguments; ///< "%1" is replaced by the folder
    Files before;
    bool saysMessage = false; ///< a failure is logged as a message of the song file
    bool replaces = true;     ///< the system can rename a file to the name of another one
    QString otherName = {};   ///< a second name of the song, as a hard link
    bool isOnFat = false;     ///< the disk appears to be FAT
};

struct Outcome {
    bool killed = false;
    bool saidTrue = false;
    bool diskStaysFull = false; ///< there is no room to undo the change
    int steps = 0;
    QByteArray log;
    QList<QByteArray> trace; ///< a line for each step
    Files files;
};

void makeFiles(const QString &folder, const Job &job)
{
    QDir().mkpath(folder);
    for (auto file = job.before.cbegin(); file != job.before.cend(); ++file)
        makeFile(folder + u'/' + file.key(), file.value());
    const QString other = folder + u'/' + job.otherName;
    const QString song = QString(job.arguments.last()).replace(u"%1"_s, folder);
    if (!job.otherName.isEmpty() &&
        (::unlink(qPrintable(other)) != 0 || ::link(qPrintable(song), qPrintable(other)) != 0))
        qFatal("can't link %s", qPrintable(other));
}

/// Runs the worker on \a folder and waits for its end.
Outcome runWorker(const Job &job, const QString &folder, const QProcessEnvironment &environment)
{
    QStringList arguments = job.arguments;
    arguments.replaceInStrings(u"%1"_s, folder);
    const Worker::Outcome worker = Worker::run(arguments, folder, environment);
    Outcome outcome;
    outcome.killed = worker.isKilled;
    outcome.saidTrue = worker.saidTrue;
    outcome.log = worker.log;
    outcome.files = filesOf(folder);
    return outcome;
}

/// Runs \a job; its step \a number goes wrong by \a action.
Outcome run(const Job &job, int number, const char *action)
{
    const QTemporaryDir home;
    const QString folder = home.filePath(u"work"_s);
    makeFiles(folder, job);

    QProcessEnvironment environment = Worker::watched(folder, home.path(), {number, action});
    if (!job.replaces)
        environment.insert(u"BRISEL_SHIM_NO_REPLACE"_s, u"1"_s);
    if (job.isOnFat)
        environment.insert(u"BRISEL_SHIM_FAT"_s, u"1"_s);
    Outcome outcome = runWorker(job, folder, environment);
    outcome.diskStaysFull = std::strcmp(action, "enospc") == 0;
    const Worker::Steps steps = Worker::stepsIn(home.path());
    outcome.trace = steps.trace;
    outcome.steps = steps.count;
    return outcome;
}

/// Runs \a job on a disk that has room for \a room more bytes; if no disk can be mounted, with
/// files that can't grow beyond \a room bytes.
Outcome runInRoom(const Job &job, qint64 room)
{
    constexpr qint64 diskSize = 4 << 20;
    const QTemporaryDir home;
    const QString folder = home.filePath(u"work"_s);
    QDir().mkpath(folder);
    const SmallDisk disk(folder, diskSize);
    makeFiles(folder, job);
    const QString filler = folder + u"/filler"_s;
    Outcome outcome;
    if (disk.isMounted()) {
        QFile file(filler);
        const qint64 size = freeSpace(folder) - room;
        if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(size, 'x')) != size)
            qFatal("can't fill the disk");
        file.close();
        outcome = runWorker(job, folder, QProcessEnvironment::systemEnvironment());
    } else {
        const FullDisk limit(static_cast<rlim_t>(room));
        outcome = runWorker(job, folder, QProcessEnvironment::systemEnvironment());
    }
    outcome.files.remove(u"filler"_s);
    return outcome;
}

/// "write" of "write /folder/song.mid".
QByteArray stepOf(const QByteArray &line)
{
    return line.left(line.indexOf(' '));
}

/// True if \a action has an effect on such a step that differs from other actions.
bool concerns(const QByteArray &action, const QByteArray &step)
{
    if (action == "torn" || action == "short")
        return step == "write";
    return action != "enospc" || step == "write" || step == "open" || step == "mkdir" ||
           step == "link";
}

/// True for names that neither the player nor an import takes for a song.
bool isLeftOver(const QString &name)
{
    static const QRegularExpression temporary(u"\\.(tmp|TMP)\\z|\\.[A-Za-z]{6}\\z|\\.lock\\z"_s);
    return temporary.match(name).hasMatch();
}

/// Describes what is wrong in the folder after \a outcome; empty if nothing is. \a after: the files
/// after a run without a fault. \a step: the step that went wrong.
QString problemOf(const Job &job, const Outcome &outcome, const Files &after,
                  const QByteArray &step)
{
    Files left = outcome.files;
    Files known = job.before;
    known.insert(after);
    QStringList spares;
    for (const QString &name : known.keys()) {
        const bool isThere = left.contains(name);
        const QByteArray content = left.take(name);
        const bool isOld = isThere == job.before.contains(name) && content == job.before[name];
        const bool isNew = isThere == after.contains(name) && content == after[name];
        // Another whole copy of the song: the new one, or the old one if the song is linked.
        QString spare = isThere || job.replaces ? QString() : left.key(after[name]);
        if (!job.otherName.isEmpty() && (outcome.killed || outcome.diskStaysFull))
            spare = left.key(job.before[name]);
        spares.append(spare);
        if (!isOld && !isNew && spare.isEmpty())
            return u"neither old nor new: "_s + name;
        if (outcome.saidTrue && !isNew)
            return u"said to be new, but is old: "_s + name;
    }
    for (const QString &spare : spares)
        left.remove(spare);
    for (auto file = left.cbegin(); file != left.cend(); ++file) {
        if (!(outcome.killed || step == "unlink") || !isLeftOver(file.key()))
            return u"left behind: "_s + file.key();
    }
    // A failed rename of the finished file to the song's name has no message.
    const bool isQuiet = step == "rename" || step == "unlink";
    if (!outcome.killed && !outcome.saidTrue && job.saysMessage && !isQuiet &&
        !outcome.log.contains("[MetaSong::saveToFile] Impossible to "))
        return u"no message"_s;
    return {};
}

Files songFolder(const QString &name, const QByteArray &content)
{
    return {{name, content}, {u"other.mid"_s, midiSong("Other")}};
}

/// A memory with an index and an old list of its songs.
Files memoryWithList()
{
    const SampleMemory memory;
    memory.write(u"a.mid"_s, Sample::midiSong("A", "Artist", "Genre"));
    memory.write(u"b.mp3"_s, Sample::mp3Song("B", "Other", "Genre"));
    if (!ScriptedIndex().createIndex(memory.root()))
        qFatal("no index");
    Files files = memory.rootFiles();
    files.insert(u"list/songs.csv"_s, "the old list\n");
    return files;
}

} // namespace

/// Everything that the program saves, cut or failed at every step: the old or the new content is
/// there.
class TestCutSaves : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void survivesEveryStep_data();
    void survivesEveryStep();
    void survivesAFullDisk_data();
    void survivesAFullDisk();
    void flushesBeforeTheRename_data();
    void flushesBeforeTheRename();

private:
    QMap<QString, Job> m_jobs;
};

void TestCutSaves::initTestCase()
{
#ifdef BRISEL_SANITIZE
    QSKIP("a sanitizer's runtime library must come first, and so nothing can be preloaded");
#endif
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QByteArray container =
        Samples::container(Samples::containerHeader("_ZB4", 512), midiSong("Old"));
    const auto save = [this](const QString &row, const QString &name, const QByteArray &content) {
        m_jobs.insert(row, Job{{u"save"_s, u"%1/"_s + name}, songFolder(name, content), true});
    };
    save(u"MIDI"_s, u"song.mid"_s, midiSong("Old"));
    save(u"MIDI, longest name"_s, QString(251, u'x') + u".mid"_s, midiSong("Old"));
    save(u"container"_s, u"song.zb4"_s, container);
    save(u"MP3"_s, u"song.mp3"_s, mp3Song("Old"));
    save(u"MP3, delete and rename"_s, u"song.mp3"_s, mp3Song("Old"));
    m_jobs[u"MP3, delete and rename"_s].replaces = false;
    const auto saveLinked = [&](const QString &row, const QString &extension) {
        const QString otherName = u"z-other-name."_s + extension;
        const QByteArray content = extension == u"mp3"_s ? mp3Song("Old") : midiSong("Old");
        save(row, u"song."_s + extension, content);
        m_jobs[row].before.insert(otherName, content);
        m_jobs[row].otherName = otherName;
    };
    saveLinked(u"MIDI, hard-linked"_s, u"mid"_s);
    saveLinked(u"MP3, hard-linked"_s, u"mp3"_s);
    m_jobs.insert(u"copy"_s, Job{{u"copy"_s, u"%1/CARD"_s, u"%1/new.mid"_s, u"%1/song.mp3"_s},
                                 {{u"new.mid"_s, midiSong("New")},
                                  {u"song.mp3"_s, mp3Song("New")},
                                  {u"song.cdg"_s, "graphics"},
                                  {u"CARD/song.mp3"_s, mp3Song("Old")}}});
    m_jobs.insert(u"lot of songs"_s,
                  Job{{u"save"_s, u"%1/a/one.mid"_s, u"%1/a/two.zb4"_s, u"%1/b/three.mp3"_s},
                      {{u"a/one.mid"_s, midiSong("Old")},
                       {u"a/two.zb4"_s, container},
                       {u"b/three.mp3"_s, mp3Song("Old")},
                       {u"b/other.mid"_s, midiSong("Other")}}});
    for (const QString &row : {u"MIDI"_s, u"MP3"_s, u"copy"_s, u"lot of songs"_s}) {
        m_jobs.insert(row + u", FAT"_s, m_jobs[row]);
        m_jobs[row + u", FAT"_s].isOnFat = true;
    }
    m_jobs.insert(u"catalogue"_s, Job{{u"catalogue"_s}, {{u"other.txt"_s, "mine"}}});
    m_jobs.insert(
        u"settings"_s,
        Job{{u"settings"_s}, {{u"kordia/brisel2pc.conf"_s, "[General]\nmediaroot=/media/card\n"}}});
    m_jobs.insert(u"list"_s, Job{{u"list"_s, u"%1"_s, u"%1/list/songs.csv"_s}, memoryWithList()});
}

void TestCutSaves::survivesEveryStep_data()
{
    QTest::addColumn<QString>("job");
    QTest::addColumn<QByteArray>("action");
    for (auto job = m_jobs.cbegin(); job != m_jobs.cend(); ++job) {
        for (const char *action : {"kill", "torn", "enospc", "eio", "short"})
            QTest::addRow("%s, %s", qPrintable(job.key()), action)
                << job.key() << QByteArray(action);
    }
}

void TestCutSaves::survivesEveryStep()
{
    QFETCH(QString, job);
    QFETCH(QByteArray, action);
    const Job &work = m_jobs[job];
    const Outcome whole = run(work, 0, action);
    QVERIFY2(whole.saidTrue, whole.log);
    QVERIFY(whole.files != work.before || job == u"catalogue"_s);
    QVERIFY(whole.steps > 0);
    QCOMPARE(whole.trace.size(), whole.steps);
    int tried = 0;
    int refused = 0;
    for (int number = 1; number <= whole.steps; ++number) {
        const QByteArray step = stepOf(whole.trace.at(number - 1));
        if (!concerns(action, step))
            continue;
        ++tried;
        const Outcome outcome = run(work, number, action.constData());
        const QString problem = problemOf(work, outcome, whole.files, step);
        QVERIFY2(problem.isEmpty(), "step " + QByteArray::number(number) + ": " + problem.toUtf8() +
                                        '\n' + outcome.log);
        QVERIFY2(outcome.steps >= number, "a step that never came");
        refused += outcome.saidTrue ? 0 : 1;
    }
    QVERIFY(tried > 0);
    if (action == "kill")
        QCOMPARE(refused, whole.steps);
    std::printf("%s: %d steps, %d not said to be done\n", QTest::currentDataTag(), tried, refused);
}

void TestCutSaves::survivesAFullDisk_data()
{
    QTest::addColumn<QString>("job");
    for (auto job = m_jobs.cbegin(); job != m_jobs.cend(); ++job)
        QTest::addRow("%s", qPrintable(job.key())) << job.key();
}

void TestCutSaves::survivesAFullDisk()
{
    QFETCH(QString, job);
    Job work = m_jobs[job];
    work.replaces = true;
    constexpr qint64 plenty = 2 << 20;
    const Outcome whole = runInRoom(work, plenty);
    QVERIFY2(whole.saidTrue, whole.log);
    int refused = 0;
    int done = 0;
    for (const int pages : {0, 1, 2, 3, 4, 8, 16, 32, 61, 62, 63, 100, 124, 125, 126, 200}) {
        const Outcome outcome = runInRoom(work, pages * SmallDisk::pageSize);
        const QString problem = problemOf(work, outcome, whole.files, "write");
        QVERIFY2(problem.isEmpty(),
                 QByteArray::number(pages) + " pages: " + problem.toUtf8() + '\n' + outcome.log);
        refused += outcome.saidTrue ? 0 : 1;
        done += outcome.saidTrue ? 1 : 0;
    }
    QVERIFY(refused > 0);
    QVERIFY(done > 0);
    std::printf("%s: %d sizes of the disk, %d refused\n", QTest::currentDataTag(), refused + done,
                refused);
}

void TestCutSaves::flushesBeforeTheRename_data()
{
    QTest::addColumn<QString>("job");
    for (const char *job : {"MIDI", "container", "MP3", "copy", "lot of songs", "list", "index"})
        QTest::addRow("%s", job) << QString::fromLatin1(job);
}

/// A memory has no journal: a new file must have reached the disk before it gets a song's name, and
/// the name must reach the disk before the program continues.
void TestCutSaves::flushesBeforeTheRename()
{
    QFETCH(QString, job);
    const Job index{{u"index"_s, u"%1"_s}, songFolder(u"deep/A long name.mid"_s, midiSong("Old"))};
    const Outcome whole = run(job == u"index"_s ? index : m_jobs[job], 0, "kill");
    QVERIFY(whole.saidTrue);
    QSet<QByteArray> dirty, openFolders;
    int names = 0;
    for (const QByteArray &line : whole.trace) {
        const QByteArray step = stepOf(line);
        const QByteArray path = line.mid(step.size() + 1).replace(" (deleted)", "");
        // A run's mark need not outlive it, and a lost given name is found by the content of the
        // file.
        const bool isNote = path.endsWith("/.brisel2pc/mark") || path.endsWith("/.brisel2pc/names");
        if ((step == "write" || step == "truncate") && !isNote)
            dirty.insert(path);
        else if (step == "syncfs")
            dirty = openFolders = {};
        else if (step == "flush" && !dirty.remove(path))
            openFolders.remove(path);
        if (step == "syncfs") {
            dirty.clear();
            openFolders.clear();
        }
        if (step != "rename")
            continue;
        ++names;
        QVERIFY2(dirty.isEmpty(), dirty.values().join(" ").constData());
        openFolders.insert(path.left(path.lastIndexOf('/')));
    }
    QVERIFY(names > 0);
    QVERIFY2(openFolders.isEmpty(), openFolders.values().join(" ").constData());
}

BRISEL_TEST(QCoreApplication, TestCutSaves)
#include "tst_cutsaves.moc"
