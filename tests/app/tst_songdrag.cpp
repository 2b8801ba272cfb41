#include "base/filefailure.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QMimeData>
#include <QTest>

using namespace brisel;

/// Songs that are dragged out of the library's table.
class TestSongDrag : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { closeVerified(m_sample); }
    void draggedSongsAreTheSelectedOnes();
    void unreadableFilesAreNotDragged();
    void pressOnASelectedRowKeepsTheSelection();
    void mouseSelectsFromAnyOtherRow();

private:
    QTableView *table() const { return m_sample->table; }
    QPoint placeOf(int row) const
    {
        return table()->visualRect(table()->model()->index(row, shownColumn())).center();
    }
    int shownColumn() const
    {
        int column = 0;
        while (table()->isColumnHidden(column))
            ++column;
        return column;
    }
    QList<int> selectedRows() const
    {
        QList<int> rows;
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            if (table()->selectionModel()->isRowSelected(row))
                rows.append(row);
        }
        return rows;
    }
    std::unique_ptr<QMimeData> dragged() const
    {
        return std::unique_ptr<QMimeData>(
            table()->model()->mimeData(table()->selectionModel()->selectedIndexes()));
    }
    void select(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, modifiers, placeOf(row));
    }

    std::unique_ptr<SampleWindow> m_sample;
};

void TestSongDrag::init()
{
    m_sample = std::make_unique<SampleWindow>();
    m_sample->import({u"uno.mid"_qs, u"due.mid"_qs, u"tre.mid"_qs});
}

void TestSongDrag::draggedSongsAreTheSelectedOnes()
{
    select(2);
    select(0, Qt::ControlModifier);
    const QList<QUrl> wanted{QUrl::fromLocalFile(m_sample->model->fileName(0)),
                             QUrl::fromLocalFile(m_sample->model->fileName(2))};
    QCOMPARE(dragged()->urls(), wanted);
    QCOMPARE(table()->model()->mimeTypes(), QStringList{u"text/uri-list"_qs});
    QCOMPARE(table()->model()->supportedDragActions(), Qt::CopyAction);
}

void TestSongDrag::unreadableFilesAreNotDragged()
{
    const QList<QUrl> good{QUrl::fromLocalFile(m_sample->model->fileName(0))};
    m_sample->model->addUnreadable(m_sample->at(u"none.mid"_qs), FileReason::missing);
    m_sample->model->showUnreadable(true);
    QCOMPARE(table()->model()->rowCount(), 4);
    QVERIFY(
        !table()->model()->flags(table()->model()->index(3, 0)).testFlag(Qt::ItemIsDragEnabled));
    const std::unique_ptr<QMimeData> data(
        m_sample->model->mimeData({m_sample->model->index(3, 0), m_sample->model->index(0, 0),
                                   m_sample->model->index(0, 1)}));
    QCOMPARE(data->urls(), good);
}

void TestSongDrag::pressOnASelectedRowKeepsTheSelection()
{
    select(0);
    select(2, Qt::ControlModifier);
    QTest::mousePress(table()->viewport(), Qt::LeftButton, {}, placeOf(0));
    QVERIFY(table()->dragEnabled());
    QCOMPARE(selectedRows(), QList<int>({0, 2}));
    QTest::mouseRelease(table()->viewport(), Qt::LeftButton, {}, placeOf(0));
    QCOMPARE(selectedRows(), QList<int>({0}));
}

void TestSongDrag::mouseSelectsFromAnyOtherRow()
{
    select(2);
    QTest::mousePress(table()->viewport(), Qt::LeftButton, {}, placeOf(0));
    QVERIFY(!table()->dragEnabled());
    QTest::mouseMove(table()->viewport(), placeOf(1));
    QTest::mouseRelease(table()->viewport(), Qt::LeftButton, {}, placeOf(1));
    QCOMPARE(selectedRows(), QList<int>({0, 1}));
}

BRISEL_TEST(QApplication, TestSongDrag)
#include "tst_songdrag.moc"
