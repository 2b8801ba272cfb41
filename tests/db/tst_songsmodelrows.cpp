#include "tests/db/songsmodeltest.h"

using namespace brisel;

/// The order of rows, and adding and removing rows.
class TestSongsModelRows : public SongsModelTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void rowsComeBackInInsertionOrder();
    void removesRowAndKeepsTheOthers();
    void refusesToRemoveRowsThatAreNotThere();
    void removesManyRowsAtOnce_data();
    void removesManyRowsAtOnce();
    void refusesToRemoveEachOfRowsThatAreNotThere();
    void emptiesAfterClear();
    void keepsMoreThanOneFetchBatch();
    void showsSongsInAViewInInsertionOrder();
    void addsAndUpdatesWithoutReadingTheTableAgain();
    void announcesNewRowsOfARunInBatches();
    void keepsTheRowsOfARun();
    void cellsHaveTheFlagsOfTheTable();
    void passesTheModelTester();
};

void TestSongsModelRows::rowsComeBackInInsertionOrder()
{
    addSongs(30);
    QVERIFY(m_model->removeRows(29, 1));
    QVERIFY(m_model->addSong(song(40)));
    const QStringList names = shownNames();
    QCOMPARE(names.first(), QStringLiteral("SONG0.MID"));
    QCOMPARE(names.last(), QStringLiteral("SONG40.MID"));
    QVERIFY(m_model->select());
    QCOMPARE(shownNames(), names);
}

void TestSongsModelRows::removesRowAndKeepsTheOthers()
{
    addSongs(5);
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy removals(m_model.get(), &QAbstractItemModel::rowsRemoved);
    QVERIFY(m_model->removeRows(2, 1));
    QCOMPARE(shownNames(), QStringList({QStringLiteral("SONG0.MID"), QStringLiteral("SONG1.MID"),
                                        QStringLiteral("SONG3.MID"), QStringLiteral("SONG4.MID")}));
    QCOMPARE(removals.size(), 1);
    QCOMPARE(resets.size(), 0);
    QVERIFY(!stored(QStringLiteral("id"), 3).isValid());
    QVERIFY(m_model->removeRows(1, 3));
    QVERIFY(m_model->select());
    QCOMPARE(shownNames(), QStringList{QStringLiteral("SONG0.MID")});
}

void TestSongsModelRows::refusesToRemoveRowsThatAreNotThere()
{
    addSongs(3);
    QVERIFY(!m_model->removeRows(-1, 1));
    QVERIFY(!m_model->removeRows(3, 1));
    QVERIFY(!m_model->removeRows(2, 2));
    QVERIFY(!m_model->removeRows(0, 0));
    QVERIFY(!m_model->removeRows(1, std::numeric_limits<int>::max()));
    QVERIFY(!m_model->removeRows(0, 1, m_model->index(0, 0)));
    QCOMPARE(m_model->goodRowCount(), 3);
}

void TestSongsModelRows::removesManyRowsAtOnce_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("removals");
    QTest::addColumn<int>("resets");
    QTest::newRow("one block") << 1 << 1 << 0;
    QTest::newRow("ten blocks") << 40 << 10 << 0;
    QTest::newRow("every second row") << 2 << 0 << 1;
}

void TestSongsModelRows::removesManyRowsAtOnce()
{
    QFETCH(int, step);
    addSongs(400);
    QStringList left;
    QList<int> rows;
    for (int row = 399; row >= 0; --row) {
        if (row % step == 0 && row < 399) {
            rows.append(row);
        } else {
            left.prepend(m_model->shortName(row));
        }
    }
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy removals(m_model.get(), &QAbstractItemModel::rowsRemoved);
    QVERIFY(m_model->removeEach(rows + rows));
    QCOMPARE(shownNames(), left);
    QTEST(int(removals.size()), "removals");
    QTEST(int(resets.size()), "resets");
    QVERIFY(m_model->select());
    QCOMPARE(shownNames(), left);
}

void TestSongsModelRows::refusesToRemoveEachOfRowsThatAreNotThere()
{
    addSongs(3);
    QVERIFY(!m_model->removeEach({}));
    QVERIFY(!m_model->removeEach({0, 3}));
    QVERIFY(!m_model->removeEach({-1, 0}));
    QCOMPARE(m_model->goodRowCount(), 3);
}

void TestSongsModelRows::emptiesAfterClear()
{
    addSongs(300);
    QVERIFY(m_database->clearUserLibraryDb());
    QVERIFY(m_model->select());
    QCOMPARE(m_model->goodRowCount(), 0);
    addSongs(3);
    QCOMPARE(m_model->goodRowCount(), 3);
    QCOMPARE(cell(0, "id").toInt(), 1);
}

void TestSongsModelRows::keepsMoreThanOneFetchBatch()
{
    addSongs(300);
    QCOMPARE(m_model->goodRowCount(), 300);
    QCOMPARE(m_model->fileName(299), QStringLiteral("/songs/SONG299.MID"));
    QVERIFY(m_model->select());
    QCOMPARE(m_model->goodRowCount(), 300);
    QCOMPARE(m_model->fileName(299), QStringLiteral("/songs/SONG299.MID"));
    QVERIFY(m_model->addSong(song(300)));
    m_model->setStatus(280, Database::Updated);
    QVERIFY(m_model->removeRows(290, 1));
    QCOMPARE(m_model->goodRowCount(), 300);
    QCOMPARE(m_model->fileName(299), QStringLiteral("/songs/SONG300.MID"));
    QCOMPARE(m_model->status(280), 1);
}

void TestSongsModelRows::showsSongsInAViewInInsertionOrder()
{
    QTableView view;
    view.setSortingEnabled(true);
    view.setModel(m_model.get());
    view.show();
    addSongs(300);
    QCOMPARE(view.model()->rowCount(), 300);
    QCOMPARE(view.verticalHeader()->count(), 300);
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG0.MID"));
    QCOMPARE(m_model->shortName(299), QStringLiteral("SONG299.MID"));

    view.selectRow(10);
    QVERIFY(m_model->removeRows(3, 1));
    QCOMPARE(view.currentIndex().row(), 9);
    view.horizontalHeader()->setSortIndicator(column("shortname"), Qt::DescendingOrder);
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG99.MID"));
    m_model->setSortingLocked(true);
    view.horizontalHeader()->setSortIndicator(column("shortname"), Qt::AscendingOrder);
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG99.MID"));
    m_model->setSortingLocked(false);
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG0.MID"));
}

/// At each change the base class reads the table again and visits every row that it has ever
/// inserted: 10,000 songs took 21 seconds.
void TestSongsModelRows::addsAndUpdatesWithoutReadingTheTableAgain()
{
    constexpr int count = 10000;
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy insertions(m_model.get(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    QElapsedTimer timer;
    timer.start();
    addSongs(count);
    const qint64 added = timer.restart();
    for (int row = 0; row < count; ++row) {
        m_model->updateRow(row, song(row + 1));
        m_model->setStatus(row, Database::Updated);
    }
    const qint64 updated = timer.restart();
    for (int row = 0; row < count; ++row)
        QVERIFY(!m_model->fileName(row).isEmpty() && m_model->status(row) == 1);
    qInfo("%d songs: added in %lld ms, updated in %lld ms, read in %lld ms", count,
          static_cast<long long>(added), static_cast<long long>(updated),
          static_cast<long long>(timer.elapsed()));
    QCOMPARE(m_model->selects, 1);
    QCOMPARE(m_model->statementCount(), size_t(3)); // a new row, a row's data, its status
    QCOMPARE(resets.size(), 1);
    QCOMPARE(insertions.size(), count);
    QCOMPARE(changes.size(), 2 * count);
    QCOMPARE(m_model->goodRowCount(), count);
}

void TestSongsModelRows::announcesNewRowsOfARunInBatches()
{
    const QAbstractItemModelTester tester(m_model.get(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(m_model->select());
    QSignalSpy insertions(m_model.get(), &QAbstractItemModel::rowsInserted);
    QElapsedTimer timer;
    timer.start();
    {
        const UserSongsRelTableModel::ManyChanges changes(*m_model);
        addSongs(1000);
    }
    QVERIFY2(insertions.size() <=
                 1 + timer.elapsed() / UserSongsRelTableModel::ManyChanges::announceInterval,
             qPrintable(QString::number(insertions.size())));
    QCOMPARE(m_model->rowCount(), 1000);
    insertions.clear();
    addSongs(2);
    QCOMPARE(insertions.size(), 2);
}

void TestSongsModelRows::keepsTheRowsOfARun()
{
    {
        const UserSongsRelTableModel::ManyChanges changes(*m_model);
        addSongs(2);
        QCOMPARE(m_model->shortName(1), QStringLiteral("SONG1.MID"));
        QVERIFY(m_model->addSong(song(2)));
        m_model->setStatus(2, Database::Updated);
        QVERIFY(m_model->addSong(song(3)));
        QVERIFY(m_model->removeRows(3, 1));
        QCOMPARE(stored(QStringLiteral("status"), 3).toInt(), 1);
        QVERIFY(m_model->addSong(song(4)));
        m_model->sort(column("shortname"), Qt::DescendingOrder);
        QCOMPARE(shownNames().join(u' '),
                 QStringLiteral("SONG4.MID SONG2.MID SONG1.MID SONG0.MID"));
        QVERIFY(m_model->addSong(song(5)));
        QVERIFY(m_model->select());
        QCOMPARE(m_model->rowCount(), 5);
        QVERIFY(m_model->addSong(song(6)));
    }
    QCOMPARE(m_model->rowCount(), 6);
    QVERIFY(m_model->select());
    QCOMPARE(m_model->rowCount(), 6);
    QVERIFY2(m_database->userLibraryDb()->transaction(), "the run's own is closed");
    QVERIFY(m_database->userLibraryDb()->rollback());
}

void TestSongsModelRows::cellsHaveTheFlagsOfTheTable()
{
    addSongs(2);
    QCOMPARE(m_model->flags({}), Qt::ItemFlags(Qt::NoItemFlags));
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const QModelIndex cell = m_model->index(1, column);
        QCOMPARE(m_model->flags(cell),
                 m_model->QSqlRelationalTableModel::flags(cell) | Qt::ItemIsDragEnabled);
    }
}

void TestSongsModelRows::passesTheModelTester()
{
    const QAbstractItemModelTester tester(m_model.get(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    addSongs(5);
    m_model->updateRow(2, song(7));
    m_model->setStatus(4, Database::Edited);
    m_model->sort(2, Qt::DescendingOrder);
    QVERIFY(m_model->removeRows(0, 2));
    QVERIFY(m_database->clearUserLibraryDb());
    QVERIFY(m_model->select());
    addSongs(2);
    QCOMPARE(m_model->goodRowCount(), 2);
}

BRISEL_TEST(QApplication, TestSongsModelRows)
#include "tst_songsmodelrows.moc"
