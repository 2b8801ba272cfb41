#include "base/filefailure.h"
#include "tests/db/songsmodeltest.h"

using namespace brisel;

/// The outcomes of the rows, their numbers, and the rows of files that could not be read.
class TestOutcomeCounts : public SongsModelTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void wordsAreInTheOrderOfTheRows();
    void statusBringsItsOutcome();
    void countsWithoutReadingRows();
    void iconColumnHasNoText();
    void sortsByOutcomeAndNumbers();
    void sortsByFolder();
    void unreadableFilesAreNoSongs();
    void showsUnreadableFilesOnDemand();
    void newSongsComeBeforeUnreadableFiles();
    void unreadableFilesOfARunComeInBatches();
    void passesTheModelTesterWithUnreadableFiles();

private:
    QString counts() const
    {
        QString text;
        for (const SongOutcome outcome : allSongOutcomes)
            text += QString::number(m_model->outcomeCount(outcome));
        return text;
    }
};

void TestOutcomeCounts::wordsAreInTheOrderOfTheRows()
{
    QStringList words;
    for (const SongOutcome outcome : allSongOutcomes)
        words.append(outcomeWord(outcome));
    QCOMPARE(
        words,
        QStringList({QStringLiteral("importata"), QStringLiteral("sincronizzata con il database"),
                     QStringLiteral("modificata a mano"), QStringLiteral("ripristinata"),
                     QStringLiteral("non trovata nel database"), QStringLiteral("rifiutata"),
                     QStringLiteral("non scritta"), QStringLiteral("non leggibile")}));
}

void TestOutcomeCounts::statusBringsItsOutcome()
{
    addSongs(1);
    const QList<std::pair<Database::statusEnum, SongOutcome>> pairs{
        {Database::Updated, SongOutcome::Updated},
        {Database::Edited, SongOutcome::Edited},
        {Database::Failed, SongOutcome::NotFound},
        {Database::Imported, SongOutcome::Imported}};
    for (const auto &[status, outcome] : pairs) {
        m_model->setStatus(0, status);
        QCOMPARE(m_model->outcome(0), outcome);
        QCOMPARE(m_model->outcomeText(0), outcomeWord(outcome));
        QCOMPARE(stored(QStringLiteral("outcome")).toInt(), static_cast<int>(outcome));
    }
    m_model->setOutcome(0, SongOutcome::NotWritten, FileReason::unwritable);
    QCOMPARE(m_model->status(0), int(Database::Imported));
    QCOMPARE(m_model->outcomeText(0),
             QStringLiteral("non scritta (%1)").arg(FileReason::unwritable.text()));
    QCOMPARE(m_model->outcome(1), SongOutcome::Imported); // there is no such row
}

void TestOutcomeCounts::countsWithoutReadingRows()
{
    addSongs(4);
    QCOMPARE(counts(), QStringLiteral("40000000"));
    m_model->setStatus(0, Database::Updated);
    m_model->setStatus(1, Database::Updated);
    m_model->setStatus(1, Database::Updated);
    QCOMPARE(counts(), QStringLiteral("22000000"));
    m_model->updateRow(2, song(9));
    QCOMPARE(counts(), QStringLiteral("22000000"));
    QVERIFY(m_model->removeRows(0, 1));
    QCOMPARE(counts(), QStringLiteral("21000000"));
    QVERIFY(m_model->select());
    QCOMPARE(counts(), QStringLiteral("21000000"));
    // A number that no version of the program writes.
    QVERIFY(m_model->setData(m_model->index(0, m_model->colIdxOutcome()), 99));
    QCOMPARE(m_model->outcome(0), SongOutcome::NotReadable);
    QCOMPARE(counts(), QStringLiteral("20000001"));
    QVERIFY(m_database->clearUserLibraryDb());
    QVERIFY(m_model->select());
    QCOMPARE(counts(), QStringLiteral("00000000"));
}

void TestOutcomeCounts::iconColumnHasNoText()
{
    addSongs(1);
    m_model->setOutcome(0, SongOutcome::NotWritten, FileReason::unwritable);
    QVERIFY(cell(0, "outcome").toString().isEmpty());
    const QString text = m_model->outcomeText(0);
    QCOMPARE(cell(0, "outcome", Qt::AccessibleTextRole).toString(), text);
    QCOMPARE(cell(0, "outcome", Qt::ToolTipRole).toString(), text);
    QCOMPARE(cell(0, "reason").toString(), text);
    QVERIFY(!cell(0, "title", Qt::ToolTipRole).isValid());
    QCOMPARE(cell(0, "outcome", Qt::BackgroundRole).value<QColor>(), colour(200, 200, 200));
}

void TestOutcomeCounts::sortsByOutcomeAndNumbers()
{
    for (const qint64 size : {900, 10000, 80}) {
        FileState state;
        state.kind = FileKind::Regular;
        state.size = size;
        QVERIFY(m_model->addSong(song(static_cast<int>(size)), state));
    }
    m_model->sort(column("size"), Qt::AscendingOrder);
    QCOMPARE(shownNames(), QStringList({QStringLiteral("SONG80.MID"), QStringLiteral("SONG900.MID"),
                                        QStringLiteral("SONG10000.MID")}));
    m_model->setStatus(0, Database::Failed);
    m_model->setStatus(1, Database::Updated);
    const QStringList expected{QStringLiteral("SONG80.MID"), QStringLiteral("SONG900.MID"),
                               QStringLiteral("SONG10000.MID")};
    for (const char *name : {"outcome", "reason"}) {
        m_model->sort(column("title"), Qt::AscendingOrder);
        m_model->sort(column(name), Qt::DescendingOrder);
        QCOMPARE(shownNames(), expected);
    }
}

void TestOutcomeCounts::sortsByFolder()
{
    for (const char *path : {"/b/1.mid", "/a/3.mid", "/a/b/2.mid", "/a/4.mid", "/5.mid"}) {
        SongInfo info = song(1);
        info.fileName = QString::fromLatin1(path);
        info.shortName = info.fileName.section(u'/', -1);
        QVERIFY(m_model->addSong(info));
    }
    QCOMPARE(cell(0, "folder").toString(), QStringLiteral("/b"));
    QCOMPARE(cell(4, "folder").toString(), QStringLiteral("/"));
    m_model->sort(column("folder"), Qt::AscendingOrder);
    QCOMPARE(shownNames().join(u' '), QStringLiteral("5.mid 3.mid 4.mid 2.mid 1.mid"));
    m_model->sort(column("folder"), Qt::DescendingOrder);
    QCOMPARE(shownNames().constFirst(), QStringLiteral("1.mid"));
    QVERIFY(m_model->select());
    QCOMPARE(cell(0, "folder").toString(), QStringLiteral("/b"));
    SongInfo last = song(1);
    last.fileName = QStringLiteral("/c/0.mid");
    last.shortName = QStringLiteral("0.mid");
    QVERIFY(m_model->addSong(last));
    QVERIFY(m_model->sortAgain());
    QCOMPARE(shownNames().constFirst(), QStringLiteral("0.mid"));
}

void TestOutcomeCounts::unreadableFilesAreNoSongs()
{
    addSongs(1);
    m_model->addUnreadable(QStringLiteral("/songs/bad.mid"), FileReason::unwritable);
    QCOMPARE(m_model->rowCount(), 1);
    m_model->showUnreadable(true);
    QCOMPARE(m_model->rowCount(), 2);
    QCOMPARE(m_model->goodRowCount(), 1);
    QVERIFY(m_model->isSong(0));
    QVERIFY(!m_model->isSong(1));
    QCOMPARE(m_model->fileName(1), QString());
    QCOMPARE(m_model->shortName(1), QString());
    m_model->updateRow(1, song(5));
    m_model->setStatus(1, Database::Updated);
    m_model->setOutcome(1, SongOutcome::Edited, std::nullopt);
    QVERIFY(!m_model->setData(m_model->index(1, 2), QStringLiteral("x")));
    QVERIFY(!m_model->removeRows(1, 1));
    QVERIFY(!m_model->removeRows(0, 2));
    QCOMPARE(m_model->outcome(1), SongOutcome::NotReadable);
    QCOMPARE(cell(1, "title").toString(), QString());
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("select count(*) from usersongs")) && query.next());
    QCOMPARE(query.value(0).toInt(), 1);
}

void TestOutcomeCounts::showsUnreadableFilesOnDemand()
{
    addSongs(2);
    m_model->addUnreadable(QStringLiteral("/songs/bad.mid"), FileReason::unwritable);
    QCOMPARE(counts(), QStringLiteral("20000000"));
    m_model->showUnreadable(true);
    QCOMPARE(counts(), QStringLiteral("20000001"));
    QCOMPARE(cell(2, "shortname").toString(), QStringLiteral("bad.mid"));
    QCOMPARE(cell(2, "folder").toString(), QStringLiteral("/songs"));
    QCOMPARE(cell(2, "filename").toString(), QStringLiteral("/songs/bad.mid"));
    QCOMPARE(m_model->outcomeText(2),
             QStringLiteral("non leggibile (%1)").arg(FileReason::unwritable.text()));
    QCOMPARE(cell(2, "title", Qt::BackgroundRole).value<QColor>(), colour(200, 200, 200));
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        m_model->sort(column("shortname"), order);
        QVERIFY(!m_model->isSong(2));
        QCOMPARE(cell(2, "shortname").toString(), QStringLiteral("bad.mid"));
    }
    m_model->showUnreadable(false);
    QCOMPARE(m_model->rowCount(), 2);
    m_model->showUnreadable(true);
    m_model->clearUnreadable();
    QCOMPARE(m_model->rowCount(), 2);
    QVERIFY(m_model->isShowingUnreadable());
}

void TestOutcomeCounts::newSongsComeBeforeUnreadableFiles()
{
    m_model->showUnreadable(true);
    addSongs(1);
    m_model->addUnreadable(QStringLiteral("/songs/bad.mid"), FileReason::unwritable);
    QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
    QVERIFY(m_model->addSong(song(7)));
    QCOMPARE(inserted.constFirst().at(1).toInt(), 1);
    QCOMPARE(cell(1, "shortname").toString(), QStringLiteral("SONG7.MID"));
    QCOMPARE(cell(2, "shortname").toString(), QStringLiteral("bad.mid"));
}

void TestOutcomeCounts::unreadableFilesOfARunComeInBatches()
{
    m_model->showUnreadable(true);
    QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
    {
        const UserSongsRelTableModel::ManyChanges changes(*m_model);
        for (int i = 0; i < 1000; ++i)
            m_model->addUnreadable(QStringLiteral("/songs/%1").arg(i), FileReason::unwritable);
    }
    QCOMPARE(m_model->rowCount(), 1000);
    QVERIFY(inserted.count() < 100);
}

void TestOutcomeCounts::passesTheModelTesterWithUnreadableFiles()
{
    QAbstractItemModelTester tester(m_model.get(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    addSongs(3);
    m_model->addUnreadable(QStringLiteral("/songs/bad.mid"), FileReason::unwritable);
    m_model->showUnreadable(true);
    m_model->addUnreadable(QStringLiteral("/songs/worse.mid"), FileReason::unwritable);
    addSongs(2);
    QVERIFY(m_model->removeRows(1, 2));
    m_model->sort(2, Qt::DescendingOrder);
    m_model->showUnreadable(false);
    m_model->clearUnreadable();
}

BRISEL_TEST(QApplication, TestOutcomeCounts)
#include "tst_outcomecounts.moc"
