#include "base/filefailure.h"
#include "history/historyrecorder.h"
#include "library/manualedit.h"
#include "library/restore.h"
#include "library/synchroniser.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

const QString otherProgram = u"other program"_s;

/// The database at \a path as another program has opened it.
class OtherProgram
{
public:
    explicit OtherProgram(const QString &path)
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, otherProgram);
        database.setDatabaseName(path);
        if (!database.open())
            qFatal("no database");
    }
    ~OtherProgram() { QSqlDatabase::removeDatabase(otherProgram); }
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    void execute(const QString &statement) const
    {
        QSqlQuery query(QSqlDatabase::database(otherProgram));
        if (!query.exec(statement))
            qFatal("%s", qPrintable(statement));
    }
};

} // namespace

/// Runs whose history can't be written: each song is saved, and the report says why it is not kept.
class TestHistoryNotices : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void savesWithoutAHistory_data();
    void savesWithoutAHistory();
    void makesAHistoryAgainThatWasDeletedMeanwhile();
    void goesOnWhenTheHistoryIsDamagedMeanwhile();
    void restoresNothingFromADamagedHistory();

private:
    void breakHistory(const QString &trouble);
    void work(const QString &job);
    QString notice() const;
    void removeHistory() const;

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<SmallDisk> m_disk;
    std::unique_ptr<OtherProgram> m_other;
    std::unique_ptr<ScriptedRun> m_run;
    QString m_path;
    QStringList m_songs;
};

void TestHistoryNotices::init()
{
    m_library = std::make_unique<Sample::Library>(
        QList<Sample::CatalogueRow>{{u"ONE"_s, u"ONE LOVE"_s, u"X"_s}});
    for (const QString &name : {u"a/one.mid"_s, u"b/one.mid"_s, u"c/one.mid"_s})
        m_songs.append(m_library->add(name, Sample::midi("One", true)));
    m_path = m_library->path(u"data/history.sqlite"_s);
    QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
    m_run = std::make_unique<ScriptedRun>();
}

void TestHistoryNotices::cleanup()
{
    m_run.reset();
    m_other.reset();
    m_disk.reset();
    m_library.reset();
    m_songs.clear();
}

/// A history in which a run can't be kept because of \a trouble.
void TestHistoryNotices::breakHistory(const QString &trouble)
{
    if (trouble.contains(u"disk"_s)) {
        m_disk = std::make_unique<SmallDisk>(QFileInfo(m_path).path(), 1 << 20);
        if (!m_disk->isMounted())
            return;
    }
    if (trouble == u"damaged file"_s) {
        makeFile(m_path, QByteArray(5000, 'x'));
    } else if (trouble == u"folder in its place"_s) {
        QVERIFY(QDir().mkpath(m_path));
    } else if (trouble == u"file in the place of its folder"_s) {
        QVERIFY(QDir().rmdir(QFileInfo(m_path).path()));
        makeFile(QFileInfo(m_path).path(), "");
    } else if (trouble == u"other database"_s) {
        OtherProgram(m_path).execute(u"CREATE TABLE mine(text)"_s);
    } else if (trouble == u"read-only disk"_s) {
        QVERIFY(m_disk->setReadOnly(true));
    } else {
        work(u"synchronise"_s);
        m_run = std::make_unique<ScriptedRun>();
    }
    if (trouble == u"newer version"_s) {
        OtherProgram(m_path).execute(u"PRAGMA user_version = 1000"_s);
    } else if (trouble == u"locked"_s) {
        m_other = std::make_unique<OtherProgram>(m_path);
        m_other->execute(u"BEGIN IMMEDIATE"_s);
    } else if (trouble == u"full disk"_s) {
        QFile filler(QFileInfo(m_path).path() + u"/filler"_s);
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(4096, 'x')) == 4096) {
        }
    } else if (trouble == u"damaged pages"_s) {
        constexpr qsizetype head = 8192;
        const qsizetype rest = fileContent(m_path).size() - head;
        makeFile(m_path, fileContent(m_path).left(head) + QByteArray(rest, '\xEE'));
    }
}

/// Changes all songs, or the first one.
void TestHistoryNotices::work(const QString &job)
{
    History history(m_path);
    if (job == u"synchronise"_s) {
        HistoryRecorder recorder(history, RunKind::Synchronisation);
        Synchroniser synchroniser(m_library->model(), m_library->database(), false);
        synchroniser.setRecorder(&recorder);
        QCOMPARE(synchroniser.run(*m_run), Synchroniser::Outcome::Done);
        return;
    }
    const SongFile file(m_songs.first());
    SongInfo info = file.info;
    info.author = u"Edited"_s;
    ManualEdit::Spread spread;
    spread.author = job == u"edit all"_s;
    HistoryRecorder recorder(history, spread.any() ? RunKind::ApplyToAll : RunKind::Edit);
    ManualEdit edit(m_library->model(), file.song, info, file.path, 0, spread);
    edit.setRecorder(&recorder);
    QCOMPARE(edit.run(*m_run), ManualEdit::Outcome::Done);
}

/// The lines of the report about the history.
QString TestHistoryNotices::notice() const
{
    const QStringList lines = m_run->report().text().split(u'\n');
    return lines.filter(u"cronologia"_s).join(u'\n');
}

/// With its log, from which it could be recovered.
void TestHistoryNotices::removeHistory() const
{
    for (const QString &suffix : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(m_path + suffix);
}

void TestHistoryNotices::savesWithoutAHistory_data()
{
    QTest::addColumn<QString>("trouble");
    QTest::addColumn<QString>("job");
    QTest::addColumn<QString>("reason");
    const QList<std::pair<const char *, QString>> troubles{
        {"damaged file", u"la cronologia è danneggiata"_s},
        {"damaged pages", u"la cronologia è danneggiata"_s},
        {"other database", u"la cronologia è danneggiata"_s},
        {"newer version", u"la cronologia è di una versione più recente del programma"_s},
        {"locked", u"un altro programma sta usando la cronologia"_s},
        {"folder in its place", FileReason::notAFile.text()},
        {"file in the place of its folder", FileReason::notAllowed.text()},
        {"full disk", FileReason::noSpace.text()},
        {"read-only disk", FileReason::notAllowed.text()}};
    for (const auto &[trouble, reason] : troubles) {
        for (const char *job : {"synchronise", "edit", "edit all"})
            QTest::addRow("%s, %s", trouble, job)
                << QString::fromLatin1(trouble) << QString::fromLatin1(job) << reason;
    }
}

void TestHistoryNotices::savesWithoutAHistory()
{
    QFETCH(const QString, trouble);
    QFETCH(const QString, job);
    QFETCH(const QString, reason);
    breakHistory(trouble);
    if (m_disk != nullptr && !m_disk->isMounted())
        QSKIP("only root may mount a disk");
    const QByteArray old = Sample::midi("Old", true);
    for (const QString &path : std::as_const(m_songs))
        makeFile(path, old);
    work(job);
    const qsizetype changed = job == u"edit"_s ? 1 : m_songs.size();
    for (qsizetype i = 0; i < m_songs.size(); ++i)
        QCOMPARE(fileContent(m_songs.at(i)) != old, i < changed);
    QCOMPARE(m_run->report().failed() + m_run->report().skipped(), 0);
    QCOMPARE(notice(), u"Non tutte le modifiche sono nella cronologia: "_s + reason);
}

void TestHistoryNotices::makesAHistoryAgainThatWasDeletedMeanwhile()
{
    m_run->onStep = [this](int) { removeHistory(); };
    work(u"edit all"_s); // the first song is saved at once, the others wait in a lot
    History history(m_path);
    QCOMPARE(history.runs().size(), 1);
    QCOMPARE(history.songs(history.runs().first().id).size(), 2);
    QCOMPARE(m_run->report().failed(), 0);
    QCOMPARE(Sample::infoOf(m_songs.first()).author, u"Edited"_s);
    QCOMPARE(Sample::infoOf(m_songs.last()).author, u"Edited"_s);
}

void TestHistoryNotices::goesOnWhenTheHistoryIsDamagedMeanwhile()
{
    m_run->onStep = [this](int) {
        removeHistory();
        makeFile(m_path, QByteArray(5000, 'x'));
    };
    work(u"edit all"_s);
    QCOMPARE(m_run->report().failed(), 0);
    QCOMPARE(Sample::infoOf(m_songs.last()).author, u"Edited"_s);
    QCOMPARE(notice(),
             u"Non tutte le modifiche sono nella cronologia: la cronologia è danneggiata"_s);
}

void TestHistoryNotices::restoresNothingFromADamagedHistory()
{
    work(u"synchronise"_s);
    const QByteArray written = fileContent(m_songs.first());
    History history(m_path);
    const QList<HistorySong> songs = history.songs(history.runs().value(0).id);
    QCOMPARE(songs.size(), m_songs.size());
    removeHistory();
    makeFile(m_path, QByteArray(5000, 'x'));
    ScriptedRun run(RunReport::Operation::Restore);
    HistoryRecorder recorder(history, RunKind::Restore);
    QCOMPARE(Restore(m_library->model(), history, songs, &recorder).run(run),
             Restore::Outcome::Done);
    QCOMPARE(run.report().counted(RunReport::Success::Restored), 0);
    QCOMPARE(run.report().failed(), m_songs.size());
    QVERIFY(run.report().text().contains(u"la cronologia è danneggiata"_s));
    QCOMPARE(fileContent(m_songs.first()), written);
}

BRISEL_TEST(QCoreApplication, TestHistoryNotices)
#include "tst_historynotices.moc"
