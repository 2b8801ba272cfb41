#include "app/songfilter.h"
#include "base/runguard.h"
#include "tests/app/filtertest.h"
#include "tests/testprogram.h"

#include <QHeaderView>

using namespace brisel;

/// The search in the library's table, as a user types it, and what it does not affect.
class TestSongFilter : public FilterTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
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
};

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

BRISEL_TEST(QApplication, TestSongFilter)
#include "tst_songfilter.moc"
