#include "base/runguard.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

using namespace brisel;

/// The rows of the window's table: selection by the keyboard, and the scroll position.
class TestTableRows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void centresTheEditedRow();
    void sortsAgainAfterAnEdit();
    void keepsTheRowInItsPlaceWhenItSorts();
    void returnEditsTheCurrentRow_data();
    void returnEditsTheCurrentRow();
    void returnStartsNothingWithoutARow();
    void menuKeyMeansTheCurrentRow();
    void menuKeyMeansNoHiddenRow();
    void menuOfTheKeyOpensAtAChosenRow_data();
    void menuOfTheKeyOpensAtAChosenRow();
    void deleteTakesTheRowOutAndLeavesTheFile();
    void deleteTakesNothingOutThatIsNotSeen();
    void controlOPicksSongs();
    void startsNoImportInsideARun();

private:
    /// Answers the next edit dialog by its "Salva", after checking its title.
    void expectEditOf(const QString &title);
    bool focusTable() const
    {
        m_sample->window->activateWindow();
        m_sample->table->setFocus();
        return QTest::qWaitForWindowActive(m_sample->window.get());
    }
    int row(const QString &name) const
    {
        for (int row = 0; row < m_sample->model->goodRowCount(); ++row) {
            if (m_sample->model->shortName(row) == name)
                return row;
        }
        return -1;
    }

    std::unique_ptr<SampleWindow> m_sample;
    QString m_edited;
    int m_scrolledTo = 0; ///< the horizontal scroll position during the edit
};

void TestTableRows::init()
{
    m_sample = std::make_unique<SampleWindow>();
    QStringList names;
    for (int i = 0; i < 60; ++i)
        names.append(u"s%1.mid"_qs.arg(i, 2, 10, QChar(u'0')));
    m_sample->import(names);
    m_edited.clear();
    m_scrolledTo = 0;
}

void TestTableRows::cleanup()
{
    closeVerified(m_sample);
}

void TestTableRows::expectEditOf(const QString &title)
{
    m_sample->script.expect("DataEditDialog", [this, title](QWidget *widget) {
        m_edited = widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->text();
        m_sample->table->horizontalScrollBar()->setValue(m_scrolledTo);
        DialogScript::click(widget, u"savePushButton"_qs);
        QCOMPARE(m_edited, title);
    });
}

void TestTableRows::centresTheEditedRow()
{
    QTableView *table = m_sample->table;
    const QModelIndex index = m_sample->model->index(30, 2);
    table->setColumnWidth(2, 3000);
    QCoreApplication::processEvents();
    table->scrollTo(index, QAbstractItemView::PositionAtTop);
    QVERIFY(table->visualRect(index).center().y() < 60);
    m_scrolledTo = 700;
    expectEditOf(u"s30"_qs);
    // The view scrolls by itself a while after a real click.
    emit table->doubleClicked(index);
    const QRect row = table->visualRect(index);
    QVERIFY(std::abs(row.center().y() - table->viewport()->height() / 2) <= 2 * row.height());
    QCOMPARE(table->horizontalScrollBar()->value(), 700);
}

/// A changed title moves the row as soon as the run is over, and the window follows it.
void TestTableRows::sortsAgainAfterAnEdit()
{
    QTableView *table = m_sample->table;
    table->sortByColumn(2, Qt::AscendingOrder);
    const QModelIndex index = m_sample->model->index(30, 2);
    table->setCurrentIndex(index);
    m_sample->script.expect("DataEditDialog", [](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"a"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    emit table->doubleClicked(index);
    QCOMPARE(row(u"s30.mid"_qs), 0);
    QCOMPARE(table->currentIndex().row(), 0);
    QCOMPARE(table->selectionModel()->selectedRows().size(), 1);
    QVERIFY(table->viewport()->rect().contains(table->visualRect(table->currentIndex()).center()));
    QCOMPARE(m_sample->model->shortName(1), u"s00.mid"_qs);
    QCOMPARE(m_sample->model->shortName(31), u"s31.mid"_qs);
}

void TestTableRows::keepsTheRowInItsPlaceWhenItSorts()
{
    QTableView *table = m_sample->table;
    table->sortByColumn(2, Qt::AscendingOrder);
    const QModelIndex index = m_sample->model->index(30, 2);
    table->setCurrentIndex(index);
    table->scrollTo(index, QAbstractItemView::PositionAtCenter);
    const int place = table->visualRect(index).top();
    table->sortByColumn(2, Qt::DescendingOrder);
    QCOMPARE(m_sample->model->shortName(table->currentIndex().row()), u"s30.mid"_qs);
    QCOMPARE(table->visualRect(table->currentIndex()).top(), place);
}

void TestTableRows::returnEditsTheCurrentRow_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void TestTableRows::returnEditsTheCurrentRow()
{
    QFETCH(int, key);
    QVERIFY(focusTable());
    m_sample->table->setCurrentIndex(m_sample->model->index(7, 2));
    expectEditOf(u"s07"_qs);
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key(key));
    QCOMPARE(m_edited, u"s07"_qs);
    QCOMPARE(m_sample->model->status(7), int(Database::Edited));
}

void TestTableRows::returnStartsNothingWithoutARow()
{
    QVERIFY(focusTable());
    m_sample->table->setCurrentIndex({});
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Return);
    const RunGuard guard;
    m_sample->table->setCurrentIndex(m_sample->model->index(7, 2));
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Return);
    QCOMPARE(m_edited, QString());
}

void TestTableRows::menuKeyMeansTheCurrentRow()
{
    QTableView *table = m_sample->table;
    QVERIFY(focusTable());
    table->setCurrentIndex(m_sample->model->index(3, 2));
    m_sample->script.expectMenu([](QMenu *menu) {
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    // The position that the toolkit gives for the menu key.
    const QPoint pos = table->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, pos, table->mapToGlobal(pos));
    QCoreApplication::sendEvent(table, &event);
    QCOMPARE(m_sample->model->goodRowCount(), 59);
    QCOMPARE(row(u"s03.mid"_qs), -1);
}

/// At the place of the hidden row there is another one.
void TestTableRows::menuKeyMeansNoHiddenRow()
{
    QTableView *table = m_sample->table;
    QVERIFY(focusTable());
    table->setCurrentIndex(m_sample->model->index(3, 2));
    m_sample->window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"s04"_qs);
    QList<bool> enabled;
    m_sample->script.expectMenu([&enabled](QMenu *menu) {
        for (const QAction *action : menu->actions())
            enabled.append(action->isEnabled());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    const QPoint pos = table->visualRect(m_sample->model->index(4, 2)).center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, pos, table->mapToGlobal(pos));
    QCoreApplication::sendEvent(table, &event);
    QCOMPARE(enabled, QList<bool>({false, false, false, false}));
    QCOMPARE(m_sample->model->goodRowCount(), 60);
}

void TestTableRows::menuOfTheKeyOpensAtAChosenRow_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<QList<int>>("chosen");
    QTest::addColumn<int>("place");
    QTest::newRow("the current row") << 25 << QList<int>{22, 25, 27} << 25;
    QTest::newRow("the current row is not chosen") << 25 << QList<int>{22, 27} << 22;
    QTest::newRow("the current row is not in sight") << 1 << QList<int>{1, 23, 27} << 23;
    QTest::newRow("none is in sight") << 25 << QList<int>{1, 2, 59} << -1;
}

/// The first row in sight is row 20.
void TestTableRows::menuOfTheKeyOpensAtAChosenRow()
{
    QFETCH(int, current);
    QFETCH(QList<int>, chosen);
    QFETCH(int, place);
    QTableView *table = m_sample->table;
    QVERIFY(focusTable());
    QItemSelectionModel *selection = table->selectionModel();
    table->setCurrentIndex(m_sample->model->index(current, 2));
    selection->clearSelection();
    for (const int row : std::as_const(chosen))
        selection->select(m_sample->model->index(row, 2),
                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
    table->scrollTo(m_sample->model->index(20, 2), QAbstractItemView::PositionAtTop);
    const QRect cell = place < 0 ? QRect(table->viewport()->rect().center(), QSize(1, 1))
                                 : table->visualRect(m_sample->model->index(place, 2));
    QPoint opened;
    m_sample->script.expectMenu(
        [&](QMenu *menu) { opened = table->viewport()->mapFromGlobal(menu->pos()); });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(table, &event);
    QVERIFY2(cell.contains(opened), qPrintable(QString::number(table->rowAt(opened.y()))));
}

void TestTableRows::deleteTakesTheRowOutAndLeavesTheFile()
{
    QVERIFY(focusTable());
    const QString path = m_sample->model->fileName(3);
    const QByteArray content = fileContent(path);
    m_sample->table->setCurrentIndex(m_sample->model->index(3, 2));
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Delete);
    QCOMPARE(m_sample->model->goodRowCount(), 59);
    QCOMPARE(row(u"s03.mid"_qs), -1);
    QCOMPARE(fileContent(path), content);
    QVERIFY(!content.isEmpty());
    // It is not sent any more, as with the menu's entry.
    const QString memory = m_sample->at(u"volumes/CARD/songs"_qs);
    QVERIFY(QDir().mkpath(memory));
    int copied = 0;
    QVERIFY(m_sample->window->copyFiles(memory, copied));
    QCOMPARE(copied, 59);
}

void TestTableRows::deleteTakesNothingOutThatIsNotSeen()
{
    QVERIFY(focusTable());
    m_sample->table->setCurrentIndex({});
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Delete);
    m_sample->table->setCurrentIndex(m_sample->model->index(3, 2));
    m_sample->window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"s04"_qs);
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Delete);
    QCOMPARE(m_sample->model->goodRowCount(), 60);
    {
        const RunGuard guard;
        m_sample->table->setCurrentIndex(m_sample->model->index(4, 2));
        QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Delete);
        QCOMPARE(m_sample->model->goodRowCount(), 60);
    }
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_Delete);
    QCOMPARE(row(u"s04.mid"_qs), -1);
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
}

void TestTableRows::controlOPicksSongs()
{
    QVERIFY(focusTable());
    m_sample->script.expectFiles({m_sample->at(u"s05.mid"_qs)});
    QTest::keyClick(m_sample->window->windowHandle(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(m_sample->model->goodRowCount(), 1);
}

void TestTableRows::startsNoImportInsideARun()
{
    const RunGuard guard;
    m_sample->press("selectDirToolButton");
    m_sample->window->findChild<QPushButton *>(u"dbgImportPushButton"_qs)->click();
    m_sample->window->importUserLibrary();
    QCOMPARE(m_sample->model->goodRowCount(), 60);
}

BRISEL_TEST(QApplication, TestTableRows)
#include "tst_tablerows.moc"
