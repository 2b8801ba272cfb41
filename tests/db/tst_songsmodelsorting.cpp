#include "tests/db/songsmodeltest.h"

using namespace brisel;

/// The sorting of the library's table, which changes the order of the rows.
class TestSongsModelSorting : public SongsModelTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void sortsInTheTable();
    void sortsAsTheTableDoes();
    void readsAForeignTableWhenSorted();
    void addedSongStandsAtTheEndOfASortedTable();
    void sortsAgainWithoutReadingTheTable();
    void walkVisitsEveryRowOnceWhenSortedByStatus();
    void walkVisitsEveryRowOnceWhenSortedByTitle();
    void lockedSortingWaits();
    void removesFromSortedTable();
};

void TestSongsModelSorting::sortsInTheTable()
{
    addSongs(300);
    m_model->sort(column("title"), Qt::DescendingOrder);
    QCOMPARE(m_model->goodRowCount(), 300);
    for (int row = 1; row < 300; ++row)
        QVERIFY(cell(row - 1, "title").toString() >= cell(row, "title").toString());
    m_model->sort(column("userbpm"), Qt::AscendingOrder);
    QCOMPARE(m_model->goodRowCount(), 300);
    m_model->sort(-1, Qt::AscendingOrder);
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG0.MID"));
    QCOMPARE(m_model->shortName(299), QStringLiteral("SONG299.MID"));
}

void TestSongsModelSorting::sortsAsTheTableDoes()
{
    addSongs(300);
    for (int sorted = 0; sorted < m_model->columnCount(); ++sorted) {
        for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            m_model->sort(sorted, order);
            const QStringList names = shownNames();
            QVERIFY(m_model->select());
            QCOMPARE(names, shownNames());
        }
    }
}

void TestSongsModelSorting::readsAForeignTableWhenSorted()
{
    addSongs(3);
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("DELETE FROM usersongs WHERE shortname='SONG1.MID'")));
    m_model->sort(column("shortname"), Qt::DescendingOrder);
    QCOMPARE(shownNames(), QStringList({QStringLiteral("SONG2.MID"), QStringLiteral("SONG0.MID")}));
    QVERIFY(query.exec(QStringLiteral("INSERT INTO usersongs (shortname) VALUES ('SONG9.MID')")));
    m_model->sort(column("shortname"), Qt::AscendingOrder);
    QCOMPARE(shownNames(), QStringList({QStringLiteral("SONG0.MID"), QStringLiteral("SONG2.MID"),
                                        QStringLiteral("SONG9.MID")}));
}

void TestSongsModelSorting::addedSongStandsAtTheEndOfASortedTable()
{
    addSongs(20);
    m_model->sort(column("title"), Qt::AscendingOrder);
    SongInfo info = song(99);
    info.title = QStringLiteral("A");
    QVERIFY(m_model->addSong(info));
    QCOMPARE(m_model->shortName(20), QStringLiteral("SONG99.MID"));
    QVERIFY(m_model->select());
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG99.MID"));
}

void TestSongsModelSorting::sortsAgainWithoutReadingTheTable()
{
    addSongs(20);
    const QStringList inserted = shownNames();
    QSignalSpy resets(m_model.get(), &QAbstractItemModel::modelReset);
    QVERIFY(m_model->sortAgain());
    QCOMPARE(shownNames(), inserted);

    m_model->sort(column("title"), Qt::AscendingOrder);
    SongInfo info = song(99);
    info.title = QStringLiteral("A");
    QVERIFY(m_model->addSong(info));
    QVERIFY(m_model->sortAgain());
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG99.MID"));
    QCOMPARE(m_model->selects, 1);
    QCOMPARE(resets.size(), 3);
    const QStringList sorted = shownNames();
    QVERIFY(m_model->select());
    QCOMPARE(shownNames(), sorted);
}

void TestSongsModelSorting::walkVisitsEveryRowOnceWhenSortedByStatus()
{
    addSongs(599);
    m_model->sort(m_model->colIdxStatus(), Qt::AscendingOrder);
    QStringList visited;
    const int count = m_model->goodRowCount();
    for (int row = 0; row < count; ++row) {
        visited.append(m_model->shortName(row));
        m_model->setStatus(row, row % 2 == 0 ? Database::Updated : Database::Failed);
    }
    QCOMPARE(QSet<QString>(visited.begin(), visited.end()).size(), 599);
    for (int row = 0; row < count; ++row) {
        QCOMPARE(m_model->shortName(row), visited.at(row));
        QCOMPARE(m_model->status(row), row % 2 == 0 ? 1 : 3);
    }
    // After sorting, each song still has its own status.
    m_model->sort(m_model->colIdxStatus(), Qt::AscendingOrder);
    for (int row = 0; row < count; ++row)
        QCOMPARE(m_model->status(row), visited.indexOf(m_model->shortName(row)) % 2 == 0 ? 1 : 3);
}

void TestSongsModelSorting::walkVisitsEveryRowOnceWhenSortedByTitle()
{
    addSongs(300);
    m_model->sort(column("title"), Qt::DescendingOrder);
    const QStringList before = shownNames();
    for (int row = 0; row < 300; ++row) {
        SongInfo info = song(row);
        info.title = QStringLiteral("NEW ") + m_model->shortName(row);
        m_model->updateRow(row, info);
        m_model->setStatus(row, Database::Updated);
    }
    QCOMPARE(shownNames(), before);
    QVERIFY(m_model->select());
    for (int row = 0; row < 300; ++row) {
        QCOMPARE(cell(row, "title").toString(), QStringLiteral("NEW ") + m_model->shortName(row));
        QCOMPARE(m_model->status(row), 1);
    }
}

void TestSongsModelSorting::lockedSortingWaits()
{
    addSongs(20);
    const QStringList before = shownNames();
    m_model->setSortingLocked(true);
    m_model->setSortingLocked(true);
    m_model->sort(column("title"), Qt::DescendingOrder);
    m_model->sort(column("title"), Qt::AscendingOrder);
    QCOMPARE(shownNames(), before);
    m_model->setSortingLocked(false);
    QCOMPARE(shownNames(), before);
    m_model->setSortingLocked(false);
    QCOMPARE(cell(0, "title").toString(), QStringLiteral("TITLE 0"));
    QCOMPARE(cell(19, "title").toString(), QStringLiteral("TITLE 9"));
    const int selects = m_model->selects;
    m_model->setSortingLocked(false);
    m_model->setSortingLocked(true);
    m_model->setSortingLocked(false);
    QCOMPARE(m_model->selects, selects);
}

void TestSongsModelSorting::removesFromSortedTable()
{
    addSongs(10);
    m_model->sort(column("shortname"), Qt::DescendingOrder);
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG9.MID"));
    QVERIFY(m_model->removeRows(0, 1));
    QCOMPARE(m_model->shortName(0), QStringLiteral("SONG8.MID"));
    QVERIFY(!stored(QStringLiteral("id"), 10).isValid());
    QVERIFY(stored(QStringLiteral("id"), 1).isValid());
}

BRISEL_TEST(QApplication, TestSongsModelSorting)
#include "tst_songsmodelsorting.moc"
