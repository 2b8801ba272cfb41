#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSqlRecord>

using namespace brisel;

/// The columns as the user arranges them, in the real window, also after the next start.
class TestColumnLayout : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void firstStartShowsTheSongsColumns();
    void menuOffersEachColumn_data();
    void menuOffersEachColumn();
    void rightClickOnTheHeadingOpensTheSameMenu();
    void rightClickChoosesNoWidth();
    void chosenColumnsShowFileData();
    void lastColumnCanNotBeHidden();
    void wideTextsLeaveAllColumnsInSight();
    void allColumnsStayInSightInTheOtherLanguage();
    void widthOfTheUserStays();
    void widthOfAHiddenColumnStays();
    void doubleClickOnAnEdgeFitsAgain();
    void nextStartLooksTheSame();
    void resetsTheLayout();
    void survivesStoredStates_data();
    void survivesStoredStates();

private:
    QHeaderView *header() const { return table()->horizontalHeader(); }
    int column(const char *name) const { return model().fieldIndex(QString::fromLatin1(name)); }
    QAction *entry(const char *name) const
    {
        return m_window->findChild<QAction *>(u"actionColumn_"_qs + QString::fromLatin1(name));
    }
    QMenu *menu() const { return m_window->findChild<QMenu *>(u"menuView"_qs); }
    /// The shown columns from left to right.
    QString shown() const
    {
        QStringList names;
        for (int place = 0; place < header()->count(); ++place) {
            const int logical = header()->logicalIndex(place);
            if (!table()->isColumnHidden(logical))
                names.append(model().record().fieldName(logical));
        }
        return names.join(u' ');
    }
    void drag(int from, int to) const
    {
        QTest::mousePress(header()->viewport(), Qt::LeftButton, {}, {from, 5});
        QTest::mouseMove(header()->viewport(), {(from + to) / 2, 5});
        QTest::mouseMove(header()->viewport(), {to, 5});
        QTest::mouseRelease(header()->viewport(), Qt::LeftButton, {}, {to, 5});
    }
    int rightEdge(const char *name) const
    {
        return header()->sectionViewportPosition(column(name)) +
               header()->sectionSize(column(name)) - 1;
    }
    void importOne(const QString &name = u"one.mid"_qs) { m_sample->import({name}); }
    /// Closes the window and opens another one, as the next start of the program does.
    void startAgain()
    {
        m_window->close();
        m_sample->window = std::make_unique<MainWindow>();
        m_sample->window->show();
        m_sample->table = m_sample->window->findChild<QTableView *>();
        m_sample->model = m_sample->window->findChild<UserSongsRelTableModel *>();
        m_window = m_sample->window.get();
    }
    static inline const QString first =
        u"outcome type title artist genre author length userbpm key shortname"_qs;
};

void TestColumnLayout::firstStartShowsTheSongsColumns()
{
    QCOMPARE(shown(), first);
    for (const char *name : {"id", "filename", "status"})
        QVERIFY(entry(name) == nullptr);
}

void TestColumnLayout::menuOffersEachColumn_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("texts");
    QTest::newRow("it") << u"actionItalian"_qs
                        << u"Stato (simbolo)|Formato|Titolo|Artista|Genere|Autore|Durata|Bpm|"
                           "Tonalita'|Nome file|Stato|Cartella|Marker|Dimensione|Data||"
                           "Mostra i file non leggibili||Ripristina disposizione"_qs;
    QTest::newRow("en") << u"actionEnglish"_qs
                        << u"Status (symbol)|Format|Title|Artist|Genre|Author|Length|Bpm|Key|"
                           "File name|Status|Folder|Markers|Size|Date||"
                           "Show unreadable files||Reset layout"_qs;
}

void TestColumnLayout::menuOffersEachColumn()
{
    QFETCH(QString, language);
    QFETCH(QString, texts);
    m_window->findChild<QAction *>(language)->trigger();
    QCoreApplication::processEvents();
    QStringList entries;
    for (const QAction *action : menu()->actions()) {
        entries.append(action->text());
        QVERIFY(action->isSeparator() || action->toolTip() != action->text());
    }
    QCOMPARE(entries.join(u'|'), texts);
}

/// The menu takes the release of the button.
void TestColumnLayout::rightClickChoosesNoWidth()
{
    QTest::mousePress(header()->viewport(), Qt::RightButton, {}, {50, 5});
    header()->resizeSection(column("title"), 333); // as a fit to the contents
    startAgain();
    QVERIFY(header()->sectionSize(column("title")) != 333);
}

void TestColumnLayout::rightClickOnTheHeadingOpensTheSameMenu()
{
    bool isSame = false;
    m_script->expectMenu([&](QMenu *opened) {
        isSame = opened == menu();
        QTest::mouseClick(opened, Qt::LeftButton, {},
                          opened->actionGeometry(entry("folder")).center());
    });
    emit header()->customContextMenuRequested({50, 5});
    QTRY_VERIFY(m_script->isDone());
    QVERIFY(isSame);
    QCOMPARE(shown(), first + u" folder"_qs);
    QVERIFY(entry("folder")->isChecked());
    entry("folder")->trigger();
    QCOMPARE(shown(), first);
}

void TestColumnLayout::chosenColumnsShowFileData()
{
    importOne();
    for (const char *name : {"reason", "folder", "markers", "size", "modified"}) {
        entry(name)->trigger();
        QVERIFY(!table()->isColumnHidden(column(name)));
        QVERIFY(header()->sectionSize(column(name)) >= header()->sectionSizeHint(column(name)));
        QVERIFY(!model().index(0, column(name)).data().toString().isEmpty());
    }
    QCOMPARE(model().index(0, column("reason")).data().toString(), u"importata"_qs);
    QCOMPARE(model().index(0, column("folder")).data().toString(), m_folder->path());
}

void TestColumnLayout::lastColumnCanNotBeHidden()
{
    for (const QString &name : first.split(u' ').mid(1))
        entry(qPrintable(name))->trigger();
    QCOMPARE(shown(), u"outcome"_qs);
    QVERIFY(!entry("outcome")->isEnabled());
    entry("outcome")->trigger();
    QCOMPARE(shown(), u"outcome"_qs);
    entry("title")->trigger();
    QVERIFY(entry("outcome")->isEnabled());
}

void TestColumnLayout::allColumnsStayInSightInTheOtherLanguage()
{
    m_window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    importOne(QString(100, u'W') + u".mid"_qs);
    QCOMPARE(table()->horizontalScrollBar()->maximum(), 0);
    m_window->findChild<QAction *>(u"actionItalian"_qs)->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(table()->horizontalScrollBar()->maximum(), 0);
}

void TestColumnLayout::wideTextsLeaveAllColumnsInSight()
{
    const QString wide(100, u'W');
    importOne(wide + u".mid"_qs);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->width(), 1000);
    QCOMPARE(table()->horizontalScrollBar()->maximum(), 0);
    QVERIFY(rightEdge("shortname") < table()->viewport()->width());
    for (const QString &name : first.split(u' ')) {
        const int logical = column(qPrintable(name));
        QVERIFY(header()->sectionSize(logical) >= header()->sectionSizeHint(logical));
    }
    QCOMPARE(header()->sectionSize(column("title")), header()->sectionSize(column("shortname")));
}

void TestColumnLayout::widthOfTheUserStays()
{
    importOne();
    const int width = header()->sectionSize(column("title"));
    drag(rightEdge("title"), rightEdge("title") + 200);
    QCOMPARE(header()->sectionSize(column("title")), width + 200);
    importOne(u"another.mid"_qs);
    QCOMPARE(header()->sectionSize(column("title")), width + 200);
    importOne(QString(100, u'W') + u".mid"_qs);
    QCOMPARE(header()->sectionSize(column("title")), width + 200);
}

void TestColumnLayout::widthOfAHiddenColumnStays()
{
    importOne();
    drag(rightEdge("genre"), rightEdge("genre") + 70);
    const int width = header()->sectionSize(column("genre"));
    entry("genre")->trigger();
    startAgain();
    startAgain(); // which has not seen the column
    QVERIFY(table()->isColumnHidden(column("genre")));
    entry("genre")->trigger();
    QCOMPARE(header()->sectionSize(column("genre")), width);
    importOne();
    QCOMPARE(header()->sectionSize(column("genre")), width);
}

void TestColumnLayout::doubleClickOnAnEdgeFitsAgain()
{
    importOne();
    const int width = header()->sectionSize(column("title"));
    drag(rightEdge("title"), rightEdge("title") + 200);
    const QPoint edge(rightEdge("title"), 5);
    QTest::mouseClick(header()->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseDClick(header()->viewport(), Qt::LeftButton, {}, edge);
    QCOMPARE(header()->sectionSize(column("title")), width);
    importOne(u"a longer name.mid"_qs);
    QVERIFY(header()->sectionSize(column("title")) > width);
}

void TestColumnLayout::nextStartLooksTheSame()
{
    m_sample->import({u"b.mid"_qs, u"c.mid"_qs, u"a.mid"_qs});
    drag(rightEdge("title"), rightEdge("title") + 50);
    const int width = header()->sectionSize(column("title"));
    entry("genre")->trigger();
    entry("size")->trigger();
    header()->moveSection(header()->visualIndex(column("shortname")), 1);
    table()->sortByColumn(column("title"), Qt::DescendingOrder);
    const QString before = shown();
    startAgain();
    QCOMPARE(shown(), before);
    QCOMPARE(before, u"outcome shortname type title artist author length userbpm key size"_qs);
    QVERIFY(!entry("genre")->isChecked());
    QVERIFY(entry("size")->isChecked());
    QCOMPARE(header()->sectionSize(column("title")), width);
    QCOMPARE(header()->sortIndicatorSection(), column("title"));
    QCOMPARE(header()->sortIndicatorOrder(), Qt::DescendingOrder);
    m_sample->import({u"b.mid"_qs, u"c.mid"_qs, u"a.mid"_qs});
    QCOMPARE(model().shortName(0), u"c.mid"_qs);
    QCOMPARE(header()->sectionSize(column("title")), width);
}

void TestColumnLayout::resetsTheLayout()
{
    m_sample->import({u"b.mid"_qs, u"c.mid"_qs, u"a.mid"_qs});
    const int width = header()->sectionSize(column("title"));
    drag(rightEdge("title"), rightEdge("title") + 50);
    entry("genre")->trigger();
    entry("folder")->trigger();
    header()->moveSection(header()->visualIndex(column("shortname")), 0);
    table()->sortByColumn(column("title"), Qt::DescendingOrder);
    QCOMPARE(model().shortName(0), u"c.mid"_qs);
    m_window->findChild<QAction *>(u"actionResetLayout"_qs)->trigger();
    QCOMPARE(shown(), first);
    QVERIFY(entry("genre")->isChecked());
    QVERIFY(!entry("folder")->isChecked());
    QCOMPARE(header()->sectionSize(column("title")), width);
    QCOMPARE(model().shortName(0), u"b.mid"_qs);
    startAgain();
    QCOMPARE(shown(), first);
}

void TestColumnLayout::survivesStoredStates_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("columns");
    QTest::newRow("no text") << QString() << first;
    QTest::newRow("no JSON") << u"{\"columns\":["_qs << first;
    QTest::newRow("other types") << u"{\"columns\":{\"title\":1},\"sorted\":[7]}"_qs << first;
    QTest::newRow("columns without meaning")
        << u"{\"columns\":[5,\"x\",{},{\"name\":7},{\"name\":\"later\",\"shown\":true}]}"_qs
        << first;
    QTest::newRow("columns that are never shown")
        << u"{\"columns\":[{\"name\":\"id\"},{\"name\":\"filename\"},{\"name\":\"status\"}],"
           "\"sorted\":\"filename\"}"_qs
        << first;
    QTest::newRow("one twice")
        << u"{\"columns\":[{\"name\":\"key\"},{\"name\":\"key\",\"shown\":false}]}"_qs
        << u"key "_qs + QString(first).remove(u" key"_qs);
    QTest::newRow("widths") << u"{\"columns\":[{\"name\":\"outcome\",\"width\":-5},{\"name\":"
                               "\"type\",\"width\":1e300},{\"name\":\"title\",\"width\":\"x\"}]}"_qs
                            << first;
    QTest::newRow("widths out of sight")
        << u"{\"columns\":[{\"name\":\"outcome\",\"width\":1},{\"name\":\"type\",\"width\":5000}]}"_qs
        << first;
    QString none;
    for (const QString &name : (first + u" reason folder markers size modified"_qs).split(u' '))
        none += u"{\"name\":\"%1\",\"shown\":false},"_qs.arg(name);
    QTest::newRow("nothing shown") << u"{\"columns\":[%1]}"_qs.arg(none.chopped(1)) << first;
}

void TestColumnLayout::survivesStoredStates()
{
    QFETCH(QString, state);
    QFETCH(QString, columns);
    m_window->close();
    m_sample->window.reset();
    QSettings(u"kordia"_qs, u"brisel2pc"_qs).setValue(u"columns"_qs, state);
    m_sample->window = std::make_unique<MainWindow>();
    m_window = m_sample->window.get();
    m_sample->table = m_window->findChild<QTableView *>();
    m_sample->model = m_window->findChild<UserSongsRelTableModel *>();
    m_window->show();
    QCOMPARE(shown(), columns);
    for (const QString &name : first.split(u' ')) {
        const int width = header()->sectionSize(column(qPrintable(name)));
        QVERIFY(width > 10 && width < 500);
    }
    importOne();
    QCOMPARE(model().goodRowCount(), 1);
}

BRISEL_TEST(QApplication, TestColumnLayout)
#include "tst_columnlayout.moc"
