#include "tests/app/filtertest.h"
#include "tests/testprogram.h"

#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

using namespace brisel;

/// What works on the rows of the table while a search hides some of them.
class TestHiddenRows : public FilterTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void editsTheRowThatIsSeen();
    void editsNoHiddenRow();
    void menuRemovesTheRowThatIsSeen();
    void runsWorkOnHiddenRows_data();
    void runsWorkOnHiddenRows();
    void sortingKeepsSearchAndSelection();
    void columnsMoveAndTakeSizes();
};

void TestHiddenRows::editsTheRowThatIsSeen()
{
    m_sample->import({u"aa.mid"_qs, u"ab.mid"_qs, u"ba.mid"_qs, u"bb.mid"_qs});
    QTableView *table = m_sample->table;
    // In reverse, so that the place, the number and the picked order all differ.
    table->sortByColumn(2, Qt::DescendingOrder);
    type(u"a.mid"_qs);
    QCOMPARE(shownNames(), u"ba aa"_qs);
    const QRect second = table->visualRect(m_sample->model->index(3, 2));
    QCOMPARE(table->rowAt(second.center().y()), 3);
    expectEdit();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, second.center());
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, second.center());
    QCOMPARE(m_edited, u"aa"_qs);
    QCOMPARE(m_sample->model->status(3), int(Database::Edited));
    QCOMPARE(m_sample->model->status(1), int(Database::Imported));
}

void TestHiddenRows::editsNoHiddenRow()
{
    m_sample->import({u"aa.mid"_qs, u"ab.mid"_qs});
    activate();
    QTableView *table = m_sample->table;
    table->setCurrentIndex(m_sample->model->index(0, 2));
    type(u"ab"_qs);
    table->setFocus();
    press(Qt::Key_Return);
    QCOMPARE(m_edited, QString());
    expectEdit();
    press(Qt::Key_Down);
    QCOMPARE(table->currentIndex().row(), 1);
    press(Qt::Key_Return);
    QCOMPARE(m_edited, u"ab"_qs);
}

void TestHiddenRows::menuRemovesTheRowThatIsSeen()
{
    m_sample->import({u"aa.mid"_qs, u"ab.mid"_qs, u"ba.mid"_qs, u"bb.mid"_qs});
    QTableView *table = m_sample->table;
    type(u"b.mid"_qs);
    m_sample->script.expectMenu([](QMenu *menu) {
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    emit table->customContextMenuRequested(
        table->visualRect(m_sample->model->index(3, 2)).center());
    QCOMPARE(shownNames(), u"ab"_qs);
    field()->clear();
    QCOMPARE(shownNames(), u"aa ab ba"_qs);
}

void TestHiddenRows::runsWorkOnHiddenRows_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("it") << u"it"_qs << u"1 di 2"_qs << u"Sincronizzazione: 2 aggiornate"_qs;
    QTest::newRow("en") << u"en"_qs << u"1 of 2"_qs << u"Synchronization: 2 updated"_qs;
}

void TestHiddenRows::runsWorkOnHiddenRows()
{
    QFETCH(QString, language);
    m_sample->changeLanguage(language);
    m_sample->import({u"ONE.mid"_qs, u"two.mid"_qs});
    type(u"two"_qs);
    m_sample->script.expect(
        "BackupDialog", [](QWidget *dialog) { DialogScript::click(dialog, u"exitPushButton"_qs); });
    QTEST(m_sample->window->findChild<QLabel *>(u"searchCountLabel"_qs)->text(), "count");
    m_sample->press("updateDataToolButton");
    QTEST(m_sample->window->findChild<QLabel *>(u"outcomeLabel"_qs)->text(), "outcome");
    QCOMPARE(m_sample->model->status(0), int(Database::Updated));
    QVERIFY(m_sample->table->isRowHidden(0));
    field()->clear();
    QCOMPARE(shownNames(), u"ONE two"_qs);
    QCOMPARE(m_sample->model->index(0, 2).data().toString(), u"ONE LOVE"_qs);
}

void TestHiddenRows::sortingKeepsSearchAndSelection()
{
    QTableView *table = m_sample->table;
    for (int i = 0; i < 300; ++i)
        addSong(u"t%1"_qs.arg(i, 3, 10, QChar(u'0')), {}, {}, {}, u"s%1.mid"_qs.arg(i));
    type(u"7"_qs);
    const QString shown = shownNames();
    table->setColumnWidth(2, 3000);
    table->selectRow(70);
    QCoreApplication::processEvents();
    table->horizontalScrollBar()->setValue(700);
    QHeaderView *header = table->horizontalHeader();
    const auto sort = [&] {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(2) + 800, 5});
    };
    sort();
    QCOMPARE(shownNames(), shown);
    sort();
    QCOMPARE(shownNames().section(u' ', 0, 0), u"s297"_qs);
    const QModelIndexList selected = table->selectionModel()->selectedRows();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first().row(), 299 - 70);
    QCOMPARE(table->currentIndex().row(), 299 - 70);
    QCoreApplication::processEvents();
    const int middle = table->visualRect(table->currentIndex()).center().y();
    QVERIFY(middle > 0 && middle < table->viewport()->height());
    QCOMPARE(table->horizontalScrollBar()->value(), 700);
    m_sample->import({u"other.mid"_qs});
    QVERIFY(!table->currentIndex().isValid());
}

void TestHiddenRows::columnsMoveAndTakeSizes()
{
    addSamples();
    QTableView *table = m_sample->table;
    QHeaderView *header = table->horizontalHeader();
    table->setColumnWidth(1, 100);
    table->setColumnWidth(2, 100);
    const int edge = header->sectionViewportPosition(2) + 99;
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, {edge, 5});
    QTest::mouseMove(header->viewport(), {edge + 20, 5});
    QTest::mouseMove(header->viewport(), {edge + 50, 5});
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, {edge + 50, 5});
    QCOMPARE(table->columnWidth(2), 150);
    const int title = header->sectionViewportPosition(2) + 50;
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, {title, 5});
    QTest::mouseMove(header->viewport(), {title - 60, 5});
    QTest::mouseMove(header->viewport(), {title - 140, 5});
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, {title - 140, 5});
    QVERIFY(header->visualIndex(2) < header->visualIndex(1));
    type(u"perche"_qs);
    QCOMPARE(shownNames(), u"uno"_qs);
}

BRISEL_TEST(QApplication, TestHiddenRows)
#include "tst_hiddenrows.moc"
