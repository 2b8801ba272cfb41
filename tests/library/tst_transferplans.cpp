#include "index/index.h"
#include "library/transfer.h"
#include "library/transferplan.h"
#include "tests/index/changedmemory.h"
#include "tests/index/indexsamples.h"
#include "tests/scriptedindex.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>

#include <random>

using namespace brisel;

using namespace Sample;

using PlanOutcome = TransferPlan::Outcome;

/// The plan of a transfer is compared with the memory after it, for many memories and songs.
class TestTransferPlans : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithTheTransfer_data();
    void agreesWithTheTransfer();

private:
    using Contents = QMap<QString, QByteArray>;

    int below(qsizetype end) { return int(m_random() % quint64(end)); }
    bool isOneOf(int count) { return below(count) == 0; }
    QString oneOf(const QStringList &texts) { return texts.at(below(texts.size())); }
    QString name();
    QByteArray content(const QString &name);
    void makeMemory(const QString &root);
    void addPlaylist(const QString &root);
    QStringList pickSongs(const QString &home);
    void tickSome(TransferPlan &plan);
    static Contents contentsOf(const QString &folder);
    static void checkOutcomes(const TransferPlan &plan, const Contents &before);
    static void checkMemory(const TransferPlan &plan, const PlannedCopies &copies,
                            const ScriptedRun &run);

    std::mt19937 m_random;
};

void TestTransferPlans::agreesWithTheTransfer_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("isAll");
    constexpr int seeds = 200;
    for (int seed = 0; seed < seeds; ++seed) {
        QTest::addRow("%d, all", seed) << seed << true;
        QTest::addRow("%d, half", seed) << seed << false;
    }
}

QString TestTransferPlans::name()
{
    static const QStringList starts{u"A"_qs,           u"Short"_qs,         u"MYFAVO-1"_qs,
                                    u"MYFAVO-2"_qs,    u"MYFAVOURITE"_qs,   u"My favourite one"_qs,
                                    u"MYFAVOUR 2"_qs,  u"Perché no già"_qs, u"myfavourite"_qs,
                                    u".hidden song"_qs};
    static const QStringList suffixes{u".mid"_qs, u".mp3"_qs, u".MP3"_qs, u".kar"_qs, u".txt"_qs};
    return oneOf(starts) + oneOf(suffixes);
}

QByteArray TestTransferPlans::content(const QString &name)
{
    const QByteArray title(1, char('A' + below(3)));
    return name.endsWith(u"3"_qs) ? mp3Song(title, "Artist", "Genre")
                                  : midiSong(title, "Artist", "Genre");
}

void TestTransferPlans::makeMemory(const QString &root)
{
    QDir().mkpath(root);
    const QStringList folders{u"songs/"_qs, u"My favourite songs/Pop of today/"_qs, QString(),
                              u"My favourite others/"_qs, u"MYFAVO-1/"_qs};
    for (int count = below(12); count > 0; --count) {
        const QString file = root + u'/' + oneOf(folders) + name();
        makeFile(file, content(file));
        if (isOneOf(3))
            makeFile(QString(file).replace(u".mp3"_qs, u".cdg"_qs), "graphics");
    }
    if (isOneOf(3))
        return;
    ScriptedIndex index;
    const bool isYes = !isOneOf(3);
    index.setRenameQuestion([isYes](const QString &, const QString &) { return isYes ? 1 : 3; });
    (void)index.updateIndex(root);
    if (isOneOf(2))
        addPlaylist(root);
    const QStringList there = contentsOf(root).keys();
    for (const QString &file : there) {
        if (isOneOf(6) && !file.contains(u".id2"_qs))
            QFile::remove(file);
    }
}

void TestTransferPlans::addPlaylist(const QString &root)
{
    makeFile(root + u"/playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    makeFile(root + u'/' + songsFile, playlistRecord(below(4)) + playlistRecord(below(4)));
}

QStringList TestTransferPlans::pickSongs(const QString &home)
{
    QStringList files;
    for (int count = 1 + below(12); count > 0; --count) {
        const QString file = home + u'/' + oneOf({u"a"_qs, u"b"_qs}) + u'/' + name();
        if (files.contains(file) || file.endsWith(u".txt"_qs))
            continue;
        if (!isOneOf(15))
            makeFile(file, content(file));
        if (isOneOf(3) && file.endsWith(u".mp3"_qs))
            makeFile(QString(file).replace(u".mp3"_qs, u".cdg"_qs), "graphics");
        files.append(file);
    }
    return files;
}

void TestTransferPlans::tickSome(TransferPlan &plan)
{
    QList<qsizetype> numbers;
    for (qsizetype i = 0; i < plan.songs().size(); ++i) {
        if (isOneOf(2))
            numbers.append(i);
    }
    plan.tick(numbers, false);
}

TestTransferPlans::Contents TestTransferPlans::contentsOf(const QString &folder)
{
    Contents contents;
    QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        contents.insert(file, fileContent(file));
    }
    return contents;
}

/// Compares the outcomes with the files, without what the plan knows of them.
void TestTransferPlans::checkOutcomes(const TransferPlan &plan, const Contents &before)
{
    QSet<QString> copied;
    for (qsizetype i = 0; i < plan.songs().size(); ++i) {
        const TransferPlan::Song &song = plan.songs().at(i);
        PlanOutcome expected = PlanOutcome::New;
        const QString graphics = QString(song.place).replace(u".mp3"_qs, u".cdg"_qs);
        const bool needsGraphics =
            QFile::exists(QString(song.source).replace(u".mp3"_qs, u".cdg"_qs)) &&
            !before.contains(graphics);
        if (!QFile::exists(song.source))
            expected = PlanOutcome::Failed;
        else if (copied.contains(song.place))
            expected = PlanOutcome::ReplacesSong;
        else if (before.contains(song.place))
            expected = before.value(song.place) == fileContent(song.source) && !needsGraphics
                           ? PlanOutcome::Same
                           : PlanOutcome::Replaces;
        QVERIFY2(song.outcome == expected, qPrintable(song.source));
        if (plan.isTicked(i))
            copied.insert(song.place);
    }
}

void TestTransferPlans::checkMemory(const TransferPlan &plan, const PlannedCopies &copies,
                                    const ScriptedRun &run)
{
    QMap<QString, QByteArray> expected; // the last of the songs with one name
    for (qsizetype i = 0; i < plan.songs().size(); ++i) {
        const TransferPlan::Song &song = plan.songs().at(i);
        if (plan.isTicked(i))
            expected.insert(song.newPath, fileContent(song.source));
    }
    for (auto file = expected.cbegin(); file != expected.cend(); ++file)
        QVERIFY2(fileContent(file.key()) == file.value(),
                 qPrintable(file.key() + u'\n' + contentsOf(plan.root()).keys().join(u'\n') +
                            run.report().text()));
    for (const PlannedCopies::Rename &rename : copies.renames) {
        QVERIFY2(!QFile::exists(rename.from), qPrintable(rename.from));
        QVERIFY2(!run.asked.contains(rename.from), qPrintable(rename.from));
    }
    for (const QString &message : run.messages)
        QVERIFY2(message.contains(u"verrà rinominato"_qs), qPrintable(run.asked.join(u' ')));
}

void TestTransferPlans::agreesWithTheTransfer()
{
    QFETCH(int, seed);
    QFETCH(bool, isAll);
    m_random.seed(unsigned(seed));
    const QTemporaryDir home;
    const QTemporaryDir volumes;
    qputenv("BRISEL_VOLUMES", QFile::encodeName(volumes.path()));
    const QString root = volumes.filePath(u"CARD"_qs);
    makeMemory(root);
    QString chosen = root + oneOf({QString(), u"/songs"_qs, u"/My favourite songs/Pop of today"_qs,
                                   u"/My favourite others"_qs});
    chosen = QFileInfo(chosen).isDir() ? chosen : root;
    const QStringList songs = pickSongs(home.path());
    const Contents before = contentsOf(volumes.path());

    ScriptedRun planning;
    TransferPlan plan(songs, chosen);
    QCOMPARE(plan.run(planning), Transfer::Outcome::Done);
    QCOMPARE(planning.asked, QStringList());
    if (!isAll)
        tickSome(plan);
    QCOMPARE(contentsOf(volumes.path()), before);
    checkOutcomes(plan, before);
    if (QTest::currentTestFailed() || plan.ticked() == 0)
        return;

    ScriptedRun run;
    run.answerTo = [](const QString &, const QString &) { return 0; };
    const PlannedCopies copies = plan.copies();
    (void)Transfer(plan).run(run);
    checkMemory(plan, copies, run);
}

BRISEL_TEST(QCoreApplication, TestTransferPlans)
#include "tst_transferplans.moc"
