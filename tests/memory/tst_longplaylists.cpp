#include "tests/memory/openpanel.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QElapsedTimer>

#include <memory>

using namespace brisel;

using namespace Sample;

/// Playlists with as many entries as there can be: nothing may take long.
class TestLongPlaylists : public QObject
{
    Q_OBJECT

private slots:
    void movesAllEntries();
    void removesScatteredEntries();
    void dragsAllEntries();

private:
    static constexpr int entries = PlaylistDocument::maxEntries;

    /// Selects each entry whose number can be divided by \a step.
    static void select(const OpenPanel &open, int step)
    {
        QItemSelection selection;
        const QAbstractItemModel &model = *open.table()->model();
        for (int row = 0; row < entries; row += step) {
            const int last = step == 1 ? entries - 1 : row;
            selection.select(model.index(row, 0), model.index(last, 4));
            row = last;
        }
        open.table()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }
    static QByteArray allSongs() { return volare.repeated(entries - 1) + azzurro; }

    template <typename Work>
    static void checkFast(const Work &work)
    {
        constexpr qint64 limit = 1000; // milliseconds
        QElapsedTimer timer;
        timer.start();
        work();
        QCoreApplication::processEvents();
        QVERIFY2(timer.elapsed() < limit, qPrintable(QString::number(timer.elapsed())));
    }
};

void TestLongPlaylists::movesAllEntries()
{
    OpenPanel open(allSongs());
    checkFast([&] { select(open, 1); });
    QVERIFY(!open.button("up")->isEnabled());
    open.table()->selectRow(entries - 1);
    checkFast([&] { open.click("up"); });
    select(open, 1);
    checkFast([&] { open.click("remove"); });
    QCOMPARE(open.table()->model()->rowCount(), 0);
    checkFast([&] { open.click("undo"); });
    QCOMPARE(open.table()->selectionModel()->selection().size(), 1);
    QVERIFY(open.table()->selectionModel()->isRowSelected(entries - 1));
}

void TestLongPlaylists::removesScatteredEntries()
{
    OpenPanel open(allSongs());
    checkFast([&] { select(open, 100); });
    checkFast([&] { open.click("remove"); });
    QCOMPARE(open.table()->model()->rowCount(), entries - entries / 100 - 1);
    checkFast([&] { open.click("undo"); });
    QCOMPARE(open.table()->model()->rowCount(), entries);
    QVERIFY(open.table()->selectionModel()->isRowSelected(65500));
    QVERIFY(!open.table()->selectionModel()->isRowSelected(65501));
}

void TestLongPlaylists::dragsAllEntries()
{
    const OpenPanel open(allSongs());
    QAbstractItemModel &model = *open.table()->model();
    select(open, 1);
    const QModelIndexList indexes = open.table()->selectionModel()->selectedIndexes();
    checkFast([&] {
        const std::unique_ptr<QMimeData> dragged(model.mimeData(indexes));
        model.dropMimeData(dragged.get(), Qt::MoveAction, 0, 0, {});
    });
    QVERIFY(!open.panel.isModified());
}

BRISEL_TEST(QApplication, TestLongPlaylists)

#include "tst_longplaylists.moc"
