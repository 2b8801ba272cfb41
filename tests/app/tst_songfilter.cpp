#include "app/songfilter.h"
#include "base/runguard.h"
#include "songfile/songinfo.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

using namespace brisel;

/// The search in the library's table, as a user types it, and what it does not affect.
class TestSongFilter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void foldsCaseAndAccents_data();
    void foldsCaseAndAccents();
    void looksIntoEachText_data();
    void looksIntoEachText();
    void needsEveryWord();
    void controlFLeadsToTheField();
    void escapeShowsAllAndLeadsToTheTable();
    void leadsFromTheFieldToTheRows_data();
    void leadsFromTheFieldToTheRows();
    void saysThatNothingMatches();
    void saysItInTheOtherLanguageAtOnce();
    void importedRowsObeyAfterwards();
    void changedRowsObeyAtOnce();
    void removedRowsAreForgotten();
    void editsTheRowThatIsSeen();
    void editsNoHiddenRow();
    void menuRemovesTheRowThatIsSeen();
    void runsWorkOnHiddenRows();
    void sortingKeepsSearchAndSelection();
    void columnsMoveAndTakeSizes();
    void looksAtEachRowOnce();

private:
    QLineEdit *field() const
    {
        return m_sample->window->findChild<QLineEdit *>(u"searchLineEdit"_qs);
    }
    QLabel *hint() const { return m_sample->table->findChild<QLabel *>(u"emptyTableHint"_qs); }
    void addSong(const QString &title, const QString &artist, const QString &genre,
                 const QString &author, const QString &shortName) const
    {
        SongInfo info;
        info.title = title;
        info.artist = artist;
        info.genre = genre;
        info.author = author;
        info.shortName = shortName;
        info.fileName = u"/nowhere/"_qs + shortName;
        QVERIFY(m_sample->model->addSong(info));
    }
    void addSamples() const
    {
        addSong(u"Perché no"_qs, u"Anna Bianchi"_qs, u"Valzer"_qs, u"C. Verdi"_qs, u"uno.mid"_qs);
        addSong(u"SOLE MIO"_qs, u"Gli Àmici"_qs, u"Tango"_qs, u"D. Rossi"_qs, u"due.mp3"_qs);
        addSong(u"Straße"_qs, u"Anna Neri"_qs, u"Polka"_qs, u"E. Rossi"_qs, u"tre.zb3"_qs);
    }
    void type(const QString &text) const
    {
        field()->clear();
        QTest::keyClicks(field(), text);
    }
    QString shownNames() const
    {
        QStringList names;
        for (int row = 0; row < m_sample->model->rowCount(); ++row) {
            if (!m_sample->table->isRowHidden(row))
                names.append(m_sample->model->shortName(row).section(u'.', 0, 0));
        }
        return names.join(u' ');
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(m_sample->window->windowHandle(), key, modifiers);
    }
    void activate() const
    {
        m_sample->window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
    }
    /// Answers the next edit dialog by its "Salva", and records its title field.
    void expectEdit()
    {
        m_sample->script.expect("DataEditDialog", [this](QWidget *widget) {
            m_edited = widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->text();
            DialogScript::click(widget, u"savePushButton"_qs);
        });
    }

    std::unique_ptr<SampleWindow> m_sample;
    QString m_edited;
};

void TestSongFilter::init()
{
    m_sample = std::make_unique<SampleWindow>();
    m_edited.clear();
}

void TestSongFilter::cleanup()
{
    const QString problems = m_sample->script.problems().join(u'\n');
    const bool done = m_sample->script.isDone();
    m_sample.reset();
    QVERIFY2(done, qPrintable(problems));
}

void TestSongFilter::foldsCaseAndAccents_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("folded");
    QTest::newRow("plain") << u"Sole 4"_qs << u"SOLE 4"_qs;
    QTest::newRow("composed") << u"PERCH\u00c9"_qs << u"PERCHE"_qs;
    QTest::newRow("decomposed") << u"perche\u0301"_qs << u"PERCHE"_qs;
    QTest::newRow("sharp s") << u"Stra\u00dfe"_qs << u"STRASSE"_qs;
    QTest::newRow("ligature") << u"\ufb01ore"_qs << u"FIORE"_qs;
    QTest::newRow("only marks") << u"\u0301\u0300"_qs << QString();
    QTest::newRow("outside the plane") << u"\U0001D400b"_qs << u"AB"_qs;
}

void TestSongFilter::foldsCaseAndAccents()
{
    QFETCH(QString, text);
    QFETCH(QString, folded);
    QCOMPARE(foldedForSearch(text), folded);
}

void TestSongFilter::looksIntoEachText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("title") << u"perche"_qs << u"uno"_qs;
    QTest::newRow("title, other accent") << u"PERCHÈ"_qs << u"uno"_qs;
    QTest::newRow("title, sharp s") << u"strass"_qs << u"tre"_qs;
    QTest::newRow("artist") << u"anna"_qs << u"uno tre"_qs;
    QTest::newRow("artist, accent left out") << u"amici"_qs << u"due"_qs;
    QTest::newRow("genre") << u"tango"_qs << u"due"_qs;
    QTest::newRow("author") << u"rossi"_qs << u"due tre"_qs;
    QTest::newRow("file name") << u".ZB3"_qs << u"tre"_qs;
    QTest::newRow("folder") << u"nowhere"_qs << u"uno due tre"_qs;
    QTest::newRow("not over two texts") << u"mioGli"_qs << QString();
    QTest::newRow("blanks only") << u"  "_qs << u"uno due tre"_qs;
    QTest::newRow("no pattern") << u".*"_qs << QString();
}

void TestSongFilter::looksIntoEachText()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    addSamples();
    type(typed);
    QCOMPARE(shownNames(), shown);
    field()->clear();
    QCOMPARE(shownNames(), u"uno due tre"_qs);
}

void TestSongFilter::needsEveryWord()
{
    addSamples();
    type(u"rossi anna"_qs);
    QCOMPARE(shownNames(), u"tre"_qs);
    type(u"rossi valzer"_qs);
    QCOMPARE(shownNames(), QString());
}

void TestSongFilter::controlFLeadsToTheField()
{
    activate();
    addSamples();
    type(u"anna"_qs);
    m_sample->table->setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(field()->hasFocus());
    QCOMPARE(field()->selectedText(), u"anna"_qs);
}

void TestSongFilter::escapeShowsAllAndLeadsToTheTable()
{
    activate();
    addSamples();
    for (const bool fromField : {true, false}) {
        type(u"anna"_qs);
        if (fromField)
            field()->setFocus();
        else
            m_sample->table->setFocus();
        press(Qt::Key_Escape);
        QVERIFY(field()->text().isEmpty());
        QCOMPARE(shownNames(), u"uno due tre"_qs);
        QVERIFY(m_sample->table->hasFocus());
    }
}

void TestSongFilter::leadsFromTheFieldToTheRows_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Down") << int(Qt::Key_Down);
}

void TestSongFilter::leadsFromTheFieldToTheRows()
{
    QFETCH(int, key);
    activate();
    field()->setFocus();
    press(Qt::Key(key));
    QVERIFY(field()->hasFocus()); // there are no rows
    addSamples();
    m_sample->table->setCurrentIndex(m_sample->model->index(0, 2));
    type(u"rossi"_qs);
    press(Qt::Key(key));
    QVERIFY(m_sample->table->hasFocus());
    QCOMPARE(m_sample->table->currentIndex().row(), 1);
    press(Qt::Key_Down);
    field()->setFocus();
    press(Qt::Key(key));
    QCOMPARE(m_sample->table->currentIndex().row(), 2); // it is shown, and stays
    field()->setFocus();
    type(u"nothing at all"_qs);
    press(Qt::Key(key));
    QVERIFY(field()->hasFocus());
}

void TestSongFilter::saysThatNothingMatches()
{
    addSamples();
    type(u"anna"_qs);
    QVERIFY(hint()->text().isEmpty());
    type(u"xyz"_qs);
    QVERIFY(hint()->isVisible());
    QCOMPARE(hint()->text(), u"Nessun brano corrisponde alla ricerca"_qs);
    QCOMPARE(hint()->geometry(), m_sample->table->viewport()->rect());
    m_sample->window->resize(1100, 900);
    QCOMPARE(hint()->geometry(), m_sample->table->viewport()->rect());
    field()->clear();
    QVERIFY(!hint()->isVisible());
}

void TestSongFilter::saysItInTheOtherLanguageAtOnce()
{
    addSamples();
    type(u"xyz"_qs);
    m_sample->window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(hint()->text(), u"No song matches the search"_qs);
    QCOMPARE(m_sample->window->findChild<QLabel *>(u"searchLabel"_qs)->text(),
             u"Search the table"_qs);
    QCOMPARE(shownNames(), QString());
}

void TestSongFilter::importedRowsObeyAfterwards()
{
    m_sample->import({u"aa.mid"_qs, u"ab.mid"_qs, u"bb.mid"_qs});
    type(u"b.mid"_qs);
    QCOMPARE(shownNames(), u"ab bb"_qs);
    m_sample->import({u"cc.mid"_qs, u"cb.mid"_qs, u"aa.mid"_qs, u"db.mid"_qs});
    QCOMPARE(shownNames(), u"cb db"_qs);
    m_sample->import({u"cc.mid"_qs});
    QVERIFY(hint()->isVisible());
    m_sample->import({u"cb.mid"_qs});
    QVERIFY(!hint()->isVisible());
}

void TestSongFilter::changedRowsObeyAtOnce()
{
    addSamples();
    type(u"sole"_qs);
    QCOMPARE(shownNames(), u"due"_qs);
    SongInfo info;
    info.title = u"Il sole"_qs;
    m_sample->model->updateRow(2, info);
    QCOMPARE(shownNames(), u"due tre"_qs);
    info.title = u"La luna"_qs;
    m_sample->model->updateRow(1, info);
    QCOMPARE(shownNames(), u"tre"_qs);
    m_sample->model->updateRow(2, info);
    QVERIFY(hint()->isVisible());
}

void TestSongFilter::removedRowsAreForgotten()
{
    addSamples();
    addSong(u"Il sole"_qs, {}, {}, {}, u"quattro.mid"_qs);
    type(u"sole"_qs);
    QCOMPARE(shownNames(), u"due quattro"_qs);
    QVERIFY(m_sample->model->removeRows(0, 2)); // a hidden one and a shown one
    QCOMPARE(shownNames(), u"quattro"_qs);
    QVERIFY(m_sample->model->removeRows(1, 1));
    QVERIFY(hint()->isVisible());
    field()->clear();
    QCOMPARE(shownNames(), u"tre"_qs);
    type(u"strasse"_qs);
    QCOMPARE(shownNames(), u"tre"_qs);
}

void TestSongFilter::editsTheRowThatIsSeen()
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

void TestSongFilter::editsNoHiddenRow()
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

void TestSongFilter::menuRemovesTheRowThatIsSeen()
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

void TestSongFilter::runsWorkOnHiddenRows()
{
    m_sample->import({u"ONE.mid"_qs, u"two.mid"_qs});
    type(u"two"_qs);
    m_sample->script.expect(
        "BackupDialog", [](QWidget *dialog) { DialogScript::click(dialog, u"exitPushButton"_qs); });
    m_sample->press("updateDataToolButton");
    QCOMPARE(m_sample->model->status(0), int(Database::Updated));
    QVERIFY(m_sample->table->isRowHidden(0));
    field()->clear();
    QCOMPARE(shownNames(), u"ONE two"_qs);
    QCOMPARE(m_sample->model->index(0, 2).data().toString(), u"ONE LOVE"_qs);
}

void TestSongFilter::sortingKeepsSearchAndSelection()
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

void TestSongFilter::columnsMoveAndTakeSizes()
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

/// Counts the requests for a cell's text.
class CountingModel : public UserSongsRelTableModel
{
public:
    using UserSongsRelTableModel::UserSongsRelTableModel;
    QVariant data(const QModelIndex &index, int role) const override
    {
        asked += role == Qt::DisplayRole ? 1 : 0;
        return UserSongsRelTableModel::data(index, role);
    }
    mutable int asked = 0;
};

void TestSongFilter::looksAtEachRowOnce()
{
    Sample::Library library;
    CountingModel model(nullptr, *library.database().userLibraryDb());
    QTableView view;
    view.setModel(&model);
    QLineEdit search(&view);
    const SongFilter filter(search, view, model);
    constexpr int rows = 10000;
    SongInfo info;
    for (int i = 0; i < rows; ++i) {
        info.title = u"Il cielo di notte %1"_qs.arg(i);
        info.artist = u"Gli Amici del Porto è"_qs;
        QVERIFY(model.addSong(info));
    }
    QCOMPARE(model.asked, 0);
    int hidings = 0;
    connect(view.verticalHeader(), &QHeaderView::sectionResized, this, [&hidings] { ++hidings; });
    search.setText(u"notte 12"_qs);
    QCOMPARE(model.asked, rows * 6);
    const int few = hidings;
    QVERIFY(few > rows * 9 / 10 && few < rows);
    search.setText(u"notte 123"_qs);
    search.setText(u"NOTTE 123"_qs);
    search.setText(u"notte 12"_qs);
    QCOMPARE(model.asked, rows * 6);
    QVERIFY(hidings < few * 11 / 10);
    search.clear();
    QCOMPARE(model.asked, rows * 6);
}

BRISEL_TEST(QApplication, TestSongFilter)
#include "tst_songfilter.moc"
