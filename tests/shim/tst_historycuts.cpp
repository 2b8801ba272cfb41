#include "history/historyrecorder.h"
#include "library/restore.h"
#include "songfile/zbxheader.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/shim/shimmedworker.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QProcessEnvironment>
#include <QTest>

#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

using Files = QMap<QString, QByteArray>;

QByteArray container(const QByteArray &magic, const QByteArray &midi)
{
    const auto size = static_cast<int>(ZbxHeader::sizeOf(ZbxHeader::typeOf(magic)));
    return Samples::container(Samples::containerHeader(magic, size), midi);
}

const QByteArray midi = Samples::midi(Samples::metaEvent(3, "One"));
const QByteArray tag = Samples::tag(Samples::frame("TIT2", "One"));

Files songsOfEveryFormat()
{
    return {{u"a/one.mid"_s, midi},
            {u"b/one.kar"_s, Samples::midi(Samples::metaEvent(3, "One"), 1)},
            {u"c/one.mp3"_s, tag + Samples::audio(70000)},
            {u"d/one.mp3"_s, Samples::audio(9000)},
            {u"e/one.zb3"_s, container("_ZB3", midi)},
            {u"f/one.zb4"_s, container("_ZB4", midi)},
            {u"g/one.zb5"_s, container("_ZB5", midi)}};
}

/// Songs that are overwritten in place, because they have other names.
Files linkedSongs()
{
    return {{u"linked/one.mid"_s, midi}, {u"linked/one.mp3"_s, tag + Samples::audio(5000)}};
}

/// A folder with songs, a history and a catalogue, in which workers run.
class Place
{
public:
    explicit Place(const Files &songs)
    {
        QDir().mkpath(m_home.filePath(u"catalogue"_s));
        Sample::makeCatalogue(m_home.filePath(u"catalogue"_s), {{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
        for (auto song = songs.cbegin(); song != songs.cend(); ++song) {
            makeFile(path(song.key()), song.value());
            m_paths.append(path(song.key()));
            const QString other = path(song.key()) + u".other"_s;
            if (song.key().startsWith(u"linked/"_s) &&
                ::link(qPrintable(path(song.key())), qPrintable(other)) != 0)
                qFatal("can't link %s", qPrintable(other));
        }
    }

    QString path(const QString &name) const { return m_home.filePath(u"work/"_s + name); }
    QString history() const { return path(u"data/history.sqlite"_s); }

    /// Runs the job \a name of the worker; its step \a fault goes wrong.
    Worker::Outcome run(const QString &name, Worker::Fault fault, bool isOnFat) const
    {
        const QStringList arguments{name, history(), m_home.filePath(u"catalogue"_s)};
        QProcessEnvironment environment =
            Worker::watched(m_home.filePath(u"work"_s), m_home.path(), fault);
        if (isOnFat)
            environment.insert(u"BRISEL_SHIM_FAT"_s, u"1"_s);
        return Worker::run(arguments + m_paths, m_home.filePath(u"work"_s), environment);
    }
    Worker::Steps steps() const { return Worker::stepsIn(m_home.path()); }

private:
    QTemporaryDir m_home;
    QStringList m_paths;
};

} // namespace

/// Runs that change songs, killed at every step: each song that was changed has its entry in the
/// history, and can be restored byte for byte.
class TestHistoryCuts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void restoresAfterEveryCut_data();
    void restoresAfterEveryCut();

private:
    QString problemOf(const Place &place, const Files &before, const QByteArray &startOfMp3);
    void restoreAll(History &history);

    std::unique_ptr<Sample::Library> m_library;
};

void TestHistoryCuts::initTestCase()
{
#ifdef BRISEL_SANITIZE
    QSKIP("a sanitizer's runtime library must come first, and so nothing can be preloaded");
#endif
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    m_library = std::make_unique<Sample::Library>();
}

void TestHistoryCuts::restoresAfterEveryCut_data()
{
    QTest::addColumn<QString>("job");
    QTest::addColumn<bool>("isLinked");
    QTest::addColumn<bool>("isOnFat");
    QTest::addColumn<QByteArray>("action");
    for (const char *job : {"synchronise", "edit", "restore"}) {
        for (const char *action : {"kill", "torn"}) {
            const QString name = QString::fromLatin1(job);
            QTest::addRow("%s, %s", job, action) << name << false << false << QByteArray(action);
            QTest::addRow("%s, hard links, %s", job, action)
                << name << true << false << QByteArray(action);
        }
    }
    for (const char *job : {"synchronise", "restore"})
        QTest::addRow("%s, on FAT, kill", job)
            << QString::fromLatin1(job) << false << true << QByteArray("kill");
}

/// Takes all changes back, those of a restore too.
void TestHistoryCuts::restoreAll(History &history)
{
    QList<HistorySong> songs;
    for (const HistoryRun &run : history.runs())
        songs += history.songs(run.id);
    ScriptedRun run;
    run.answers = {Run::Answer::YesToAll};
    HistoryRecorder recorder(history, RunKind::Restore);
    (void)Restore(m_library->model(), history, songs, &recorder).run(run);
}

/// Describes what is wrong after a cut; empty if nothing is. \a startOfMp3: the linked MP3 before
/// the run that was cut.
QString TestHistoryCuts::problemOf(const Place &place, const Files &before,
                                   const QByteArray &startOfMp3)
{
    History history(place.history());
    for (auto song = before.cbegin(); song != before.cend(); ++song) {
        const QString path = place.path(song.key());
        if (fileContent(path) != song.value() && !history.lastChange(path).has_value())
            return u"changed without an entry: "_s + path;
    }
    if (history.trouble().has_value())
        return history.trouble()->text();
    restoreAll(history);
    for (auto song = before.cbegin(); song != before.cend(); ++song) {
        const QString path = place.path(song.key());
        // An MP3 that was being overwritten in place has a copy beside it.
        const bool hasCopy = song.key() == u"linked/one.mp3"_s &&
                             fileContent(place.path(u"linked/one.tmp"_s)) == startOfMp3;
        if (fileContent(path) != song.value() && !hasCopy)
            return u"not restored: "_s + path;
    }
    return {};
}

void TestHistoryCuts::restoresAfterEveryCut()
{
    QFETCH(const QString, job);
    QFETCH(const bool, isLinked);
    QFETCH(const bool, isOnFat);
    QFETCH(const QByteArray, action);
    const Files before = isLinked ? linkedSongs() : songsOfEveryFormat();
    const bool isRestore = job == u"restore"_s;
    Worker::Steps steps;
    int tried = 0;
    for (int number = 0; number <= steps.count; ++number) {
        // Before any other step, half of a write is the same as a kill.
        if (action == "torn" && number > 0 && !steps.trace.at(number - 1).startsWith("write "))
            continue;
        const Place place(before);
        if (isRestore)
            QVERIFY(place.run(u"synchronise"_s, {}, false).saidTrue);
        const QByteArray startOfMp3 = fileContent(place.path(u"linked/one.mp3"_s));
        const Worker::Outcome outcome = place.run(job, {number, action.constData()}, isOnFat);
        QVERIFY2(outcome.isKilled == (number > 0), outcome.log);
        if (number == 0) {
            QVERIFY2(outcome.saidTrue, outcome.log);
            steps = place.steps();
            for (auto song = before.cbegin(); song != before.cend(); ++song)
                QVERIFY2((fileContent(place.path(song.key())) == song.value()) == isRestore,
                         qPrintable(song.key()));
        }
        ++tried;
        const QString problem = problemOf(place, before, startOfMp3);
        QVERIFY2(problem.isEmpty(), "step " + QByteArray::number(number) + ": " + problem.toUtf8() +
                                        '\n' + outcome.log);
    }
    QVERIFY(tried > 1);
    std::printf("%s: %d steps, %d tried\n", QTest::currentDataTag(), steps.count, tried - 1);
}

BRISEL_TEST(QCoreApplication, TestHistoryCuts)
#include "tst_historycuts.moc"
