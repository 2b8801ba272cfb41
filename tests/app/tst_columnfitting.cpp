#include "app/columnfitting.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

using namespace brisel;

class TestColumnFitting : public QObject
{
    Q_OBJECT

private slots:
    void fitsAsTheViewItselfDoes();
    void measuresEachTextOnce();
    void leavesHiddenColumnsAlone();
    void letsScrollToWhatNoLongerFits();

private:
    static constexpr int rows = 300;

    /// Column 0 has a different text in each row, column 1 seven texts, column 2 numbers, column 3
    /// nothing.
    static void fill(QStandardItemModel &model)
    {
        model.setColumnCount(4);
        model.setHorizontalHeaderLabels({QStringLiteral("A"), QStringLiteral("B"),
                                         QStringLiteral("C"), QStringLiteral("A long heading")});
        for (int row = 0; row < rows; ++row) {
            auto *number = new QStandardItem;
            number->setData(row % 5 * 1000, Qt::DisplayRole);
            model.appendRow({new QStandardItem(QStringLiteral("Song %1\u00e8").arg(row * 37)),
                             new QStandardItem(QString(row % 7 * 5, u'W')), number,
                             new QStandardItem(QString())});
        }
    }
};

void TestColumnFitting::fitsAsTheViewItselfDoes()
{
    QStandardItemModel model;
    fill(model);
    QTableView plain;
    QTableView fitted;
    for (QTableView *view : {&plain, &fitted}) {
        view->setStyleSheet(QStringLiteral("QTableView { font-size: 15px; }"));
        view->setModel(&model);
        view->show();
    }
    const QAbstractItemDelegate *delegate = fitted.itemDelegate();
    fitColumns(fitted, {0, 1, 2, 3});
    QCOMPARE(fitted.itemDelegate(), delegate);
    for (int column = 0; column < model.columnCount(); ++column) {
        plain.resizeColumnToContents(column);
        QCOMPARE(fitted.columnWidth(column), plain.columnWidth(column));
    }
    QVERIFY(fitted.columnWidth(1) > fitted.columnWidth(2));
}

void TestColumnFitting::measuresEachTextOnce()
{
    QStandardItemModel model;
    fill(model);
    QTableView view;
    view.setModel(&model);
    QCOMPARE(fitColumns(view, {1}), 7);
    QCOMPARE(fitColumns(view, {0, 1, 2, 3}), rows + 7 + 5);
}

void TestColumnFitting::leavesHiddenColumnsAlone()
{
    QStandardItemModel model;
    fill(model);
    QTableView view;
    view.setModel(&model);
    view.hideColumn(0);
    QCOMPARE(fitColumns(view, {0}), 0);
    QVERIFY(view.isColumnHidden(0));
}

void TestColumnFitting::letsScrollToWhatNoLongerFits()
{
    QStandardItemModel model;
    fill(model);
    QTableView view;
    view.setModel(&model);
    view.resize(600, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    QVERIFY(!view.horizontalScrollBar()->isVisible());
    model.item(0, 0)->setText(QString(200, u'W'));
    fitColumns(view, {0, 1, 2, 3});
    QCoreApplication::processEvents();
    QVERIFY(view.horizontalScrollBar()->isVisible());
    QVERIFY(view.horizontalScrollBar()->maximum() > 0);
}

BRISEL_TEST(QApplication, TestColumnFitting)
#include "tst_columnfitting.moc"
