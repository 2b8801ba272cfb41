#include "history/historyrecorder.h"
#include "library/backup.h"
#include "library/backuprestore.h"
#include "library/manualedit.h"
#include "library/restore.h"
#include "library/synchroniser.h"
#include "library/syncpreview.h"
#include "tests/base/diskkind.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

using Files = QMap<QString, QByteArray>;

/// A recorder that finds songs which are changed before their entry is in the history.
class WatchingRecorder : public HistoryRecorder
{
public:
    WatchingRecorder(History &history, RunKind kind, Files before)
        : HistoryRecorder(history, kind), m_path(historyPath), m_before(std::move(before))
    {
    }
    void flush() override
    {
        look();
        HistoryRecorder::flush();
    }
    /// Adds the songs that were changed and have no entry.
    void look()
    {
        History history(m_path);
        QStringList kept;
        const QList<HistoryRun> runs = history.runs();
        const qint64 last = runs.isEmpty() || runs.first().id != run() ? 0 : run();
        for (const HistorySong &song : history.songs(last))
            kept.append(song.path);
        for (auto song = m_before.cbegin(); song != m_before.cend(); ++song) {
            const bool isKept = std::any_of(kept.cbegin(), kept.cend(), [&](const QString &path) {
                return isSameFile(path, song.key());
            });
            if (!isKept && fileContent(song.key()) != song.value())
                unkept.append(song.key());
        }
    }

    static inline QString historyPath;
    QStringList unkept;

private:
    const QString m_path;
    const Files m_before;
};

} // namespace

/// By whatever road a song gets its new content, its entry is in the history before, and takes it
/// back.
class TestHistoryRoads : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void keepsBeforeItWrites_data();
    void keepsBeforeItWrites();
    void keepsOnFat();
    void knowsEveryWriter();

private:
    void addSongs(const QString &road);
    void addRow(const QString &path);
    void protectFolder();
    Files contents() const;
    bool work(const QString &job, WatchingRecorder &recorder, RunReport &report);
    bool synchronise(Run &run, HistoryRecorder *recorder, bool isPlan);
    bool edit(Run &run, HistoryRecorder *recorder, bool isSpread);
    bool restore(Run &run, HistoryRecorder *recorder);
    bool restoreBackup(Run &run, HistoryRecorder *recorder);
    void check(const QString &job);

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<History> m_history;
    std::unique_ptr<SmallDisk> m_disk;
    QStringList m_songs;
    QString m_backup;
};

void TestHistoryRoads::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
    WatchingRecorder::historyPath = m_library->path(u"data/history.sqlite"_s);
    m_history = std::make_unique<History>(WatchingRecorder::historyPath);
    QVERIFY(QDir().mkpath(m_library->path(u"songs/in"_s)));
    QVERIFY(QDir().mkpath(m_library->path(u"backups"_s)));
}

void TestHistoryRoads::cleanup()
{
    m_history.reset();
    m_disk.reset();
    m_library.reset();
    m_songs.clear();
}

void TestHistoryRoads::addRow(const QString &path)
{
    SongInfo info = Sample::infoOf(path);
    info.fileName = path;
    info.shortName = path.section(u'/', -1);
    QVERIFY(m_library->model().addSong(info));
    m_songs.append(path);
}

void TestHistoryRoads::addSongs(const QString &road)
{
    const QByteArray midi = Samples::midi(Samples::metaEvent(3, "One"));
    const QByteArray container = Samples::container(Samples::containerHeader("_ZB3", 512), midi);
    Files songs{{u"a/one.mid"_s, midi}, {u"b/one.zb3"_s, container}};
    // An MP3 is not overwritten without a copy beside it.
    if (road != u"write-protected folder"_s)
        songs.insert(u"c/one.mp3"_s,
                     Samples::tag(Samples::frame("TIT2", "One")) + Samples::audio(9000));
    for (auto song = songs.cbegin(); song != songs.cend(); ++song) {
        const QString path = m_library->path(u"songs/in/"_s + song.key());
        const QString other = m_library->path(u"songs/other/"_s + song.key());
        const bool isLinked = road.contains(u"link"_s);
        makeFile(isLinked ? other : path, song.value());
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        if (road == u"symbolic link"_s)
            QVERIFY(QFile::link(other, path));
        else if (isLinked)
            QCOMPARE(::link(qPrintable(other), qPrintable(path)), 0);
        addRow(path);
        if (road == u"two hard links"_s)
            addRow(other);
        if (road == u"twice"_s)
            addRow(path);
        if (road == u"read-only file"_s)
            QCOMPARE(::chmod(qPrintable(path), 0444), 0);
    }
}

/// Of all its subfolders, too: no file can be created there, also by root, and the songs can be
/// written.
void TestHistoryRoads::protectFolder()
{
    for (const QString &path : std::as_const(m_songs)) {
        const QByteArray song = QFile::encodeName(path);
        QVERIFY(SmallDisk::protect(QFileInfo(path).path()));
        QCOMPARE(::mount(song.constData(), song.constData(), nullptr, MS_BIND, nullptr), 0);
        QCOMPARE(::mount(nullptr, song.constData(), nullptr, MS_REMOUNT | MS_BIND, nullptr), 0);
        QVERIFY(!QFile(path + u".new"_s).open(QIODevice::WriteOnly));
    }
}

Files TestHistoryRoads::contents() const
{
    Files files;
    for (const QString &path : m_songs)
        files.insert(path, fileContent(path));
    return files;
}

bool TestHistoryRoads::synchronise(Run &run, HistoryRecorder *recorder, bool isPlan)
{
    Synchroniser synchroniser(m_library->model(), m_library->database(), false);
    synchroniser.setRecorder(recorder);
    if (isPlan) {
        SyncPreview preview(m_library->model(), m_library->database());
        SyncPlan plan;
        if (Run previewRun; preview.run(previewRun) != SyncPreview::Outcome::Done)
            return false;
        for (const PreviewSong &song : preview.songs())
            plan.add(song, SongFields::all());
        synchroniser.setPlan(plan);
    }
    return synchroniser.run(run) == Synchroniser::Outcome::Done;
}

/// The first song, or the author of all of them.
bool TestHistoryRoads::edit(Run &run, HistoryRecorder *recorder, bool isSpread)
{
    const SongFile file(m_songs.first());
    SongInfo info = file.info;
    info.author = u"Edited"_s;
    ManualEdit::Spread spread;
    spread.author = isSpread;
    ManualEdit edit(m_library->model(), file.song, info, file.path, 0, spread);
    edit.setRecorder(recorder);
    return edit.run(run) == ManualEdit::Outcome::Done;
}

bool TestHistoryRoads::restore(Run &run, HistoryRecorder *recorder)
{
    return Restore(m_library->model(), *m_history, m_history->songs(m_history->runs().value(0).id),
                   recorder)
               .run(run) == Restore::Outcome::Done;
}

bool TestHistoryRoads::restoreBackup(Run &run, HistoryRecorder *recorder)
{
    QList<BackupEntry> entries;
    const auto lines = BackupList::read(m_backup);
    for (const BackupList::Line &line : lines.value_or(QList<BackupList::Line>()))
        entries.append(line.entry);
    return BackupRestore(m_library->model(), *m_history, m_backup, entries, recorder).run(run) ==
           BackupRestore::Outcome::Done;
}

void TestHistoryRoads::keepsBeforeItWrites_data()
{
    QTest::addColumn<QString>("road");
    QTest::addColumn<QString>("job");
    for (const char *road : {"lot", "hard link", "two hard links", "write-protected folder",
                             "read-only file", "symbolic link", "twice"}) {
        for (const char *job :
             {"synchronise", "write a plan", "edit", "edit all", "restore", "restore a backup"})
            QTest::addRow("%s, %s", road, job)
                << QString::fromLatin1(road) << QString::fromLatin1(job);
    }
}

void TestHistoryRoads::keepsBeforeItWrites()
{
    QFETCH(const QString, road);
    QFETCH(const QString, job);
    const bool isProtected = road == u"write-protected folder"_s;
    if (isProtected) {
        m_disk = std::make_unique<SmallDisk>(m_library->path(u"songs"_s), SmallDisk::memorySize);
        if (!m_disk->isMounted())
            QSKIP("only root may mount a disk");
    }
    addSongs(road);
    if (isProtected)
        protectFolder();
    check(job);
}

void TestHistoryRoads::keepsOnFat()
{
    constexpr unsigned fat = 0x4d44;
    const DiskKind disk(fat);
    addSongs(u"lot"_s);
    check(u"synchronise"_s);
}

bool TestHistoryRoads::work(const QString &job, WatchingRecorder &recorder, RunReport &report)
{
    ScriptedRun run;
    run.answers = {Run::Answer::YesToAll};
    const bool isDone = job == u"restore"_s            ? restore(run, &recorder)
                        : job == u"restore a backup"_s ? restoreBackup(run, &recorder)
                        : job.startsWith(u"edit"_s)
                            ? edit(run, &recorder, job == u"edit all"_s)
                            : synchronise(run, &recorder, job == u"write a plan"_s);
    report = run.report();
    return isDone;
}

void TestHistoryRoads::check(const QString &job)
{
    const Files original = contents();
    if (job.startsWith(u"restore"_s)) {
        ScriptedRun backupRun;
        QCOMPARE(Backup(original.keys(), m_library->path(u"backups"_s)).run(backupRun),
                 Backup::Outcome::Done);
        QDirIterator folder(m_library->path(u"backups"_s), QDir::Dirs | QDir::NoDotAndDotDot);
        m_backup = folder.next();
        HistoryRecorder recorder(*m_history, RunKind::Synchronisation);
        Run run;
        QVERIFY(synchronise(run, &recorder, false));
    }
    const Files before = contents();
    WatchingRecorder recorder(*m_history, RunKind::Synchronisation, before);
    RunReport report;
    QVERIFY(work(job, recorder, report));
    recorder.look();
    QCOMPARE(recorder.unkept, QStringList());
    QVERIFY2(report.failed() == 0, qPrintable(report.text()));
    const Files after = contents();
    for (auto song = after.cbegin(); song != after.cend(); ++song) {
        const bool isMeant = job != u"edit"_s || isSameFile(song.key(), m_songs.first());
        QCOMPARE(song.value() != before[song.key()], isMeant);
        if (job.startsWith(u"restore"_s))
            QCOMPARE(song.value(), original[song.key()]);
    }
    Run run;
    HistoryRecorder last(*m_history, RunKind::Restore);
    QVERIFY(restore(run, &last));
    QVERIFY2(run.report().failed() + run.report().skipped() == 0, qPrintable(run.report().text()));
    QCOMPARE(contents(), before);
}

/// Every source that can change a file of the user, with what that means for songs. A new one must
/// be added here and, if it changes songs, above.
void TestHistoryRoads::knowsEveryWriter()
{
    const QString keeps = u"m_recorder"_s; // shows every song to the history
    const QString passes = u"eeper"_s;     // shows them to a keeper
    const QString others = u""_s;          // changes no song of the list, or is used by the others
    const QMap<QString, QString> writers{
        {u"db/cataloguesource.cpp"_s, others}, // a catalogue for trials, to a temporary folder
        {u"library/synchroniser.cpp"_s, keeps},
        {u"library/manualedit.cpp"_s, keeps},
        {u"library/restore.cpp"_s, keeps},
        {u"library/backuprestore.cpp"_s, keeps},
        {u"songfile/metasong.cpp"_s, passes},
        {u"songfile/songrestoring.cpp"_s, passes},
        {u"songfile/mp3writer.cpp"_s, others},
        {u"library/songactions.cpp"_s, others}, // copies in the working folder
        {u"library/filecopier.cpp"_s, others},  // to memories and backups
        {u"library/safecopy.cpp"_s, others},
        {u"library/backuplist.cpp"_s, others},
        {u"library/lastlist.cpp"_s, others},
        {u"library/foldertreebackup.cpp"_s, others},
        {u"library/dialogs/reportdialog.cpp"_s, others},
    };
    const QRegularExpression writing(
        u"(replaceFile|replaceUnchanged|rewriteMp3|restoreSong|saveToFile|saveInLot|copyIntoLot|"
        "copyOverFile|copyToNewFile|overwriteKeepingCopy|overwriteFromMemory)\\(|FileLot "
        "\\w+;|WriteOnly|ReadWrite|O_WRONLY|O_RDWR|QSaveFile|QFile::(copy|rename)"_s);
    const QDir tree(QStringLiteral(BRISEL_TREE));
    QStringList found;
    for (const QString &folder : {u"app"_s, u"db"_s, u"library"_s, u"songfile"_s}) {
        QDirIterator sources(tree.filePath(folder), {u"*.cpp"_s}, QDir::Files,
                             QDirIterator::Subdirectories);
        while (sources.hasNext()) {
            const QString path = sources.next();
            const QByteArray source = fileContent(path);
            if (!QString::fromUtf8(source).contains(writing))
                continue;
            const QString name = tree.relativeFilePath(path);
            found.append(name);
            QVERIFY2(writers.contains(name), qPrintable(name));
            QVERIFY2(source.contains(writers[name].toUtf8()), qPrintable(name));
        }
    }
    found.sort();
    QCOMPARE(found, writers.keys());
}

BRISEL_TEST(QCoreApplication, TestHistoryRoads)
#include "tst_historyroads.moc"
