#include "tests/app/filtertest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QWhatsThis>

using namespace brisel;

/// The search for folders, outcomes and fields in the real window, and what it shows about itself.
class TestFieldSearch : public FilterTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void looksIntoFoldersAndOutcomes();
    void understandsFields();
    void showsHowManyItFinds();
    void searchesInvalidConditionsAsWords();
    void explainsItself_data();
    void explainsItself();
};

void TestFieldSearch::looksIntoFoldersAndOutcomes()
{
    QVERIFY(QDir().mkpath(m_sample->at(u"Lenti"_qs)));
    m_sample->import({u"uno.mid"_qs, u"Lenti/due.mid"_qs});
    type(u"lenti"_qs);
    QCOMPARE(shownNames(), u"due"_qs);
    m_sample->model->setStatus(0, Database::Edited);
    type(u"modificata"_qs);
    QCOMPARE(shownNames(), u"uno"_qs);
    type(u"mod"_qs); // too short
    QCOMPARE(shownNames(), QString());
    type(u"edited"_qs);
    QCOMPARE(shownNames(), QString());
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(shownNames(), u"uno"_qs);
}

void TestFieldSearch::understandsFields()
{
    m_sample->import({u"uno.mid"_qs, u"due.kar"_qs});
    type(u"file:.kar"_qs);
    QCOMPARE(shownNames(), u"due"_qs);
    type(u"title:uno"_qs);
    QCOMPARE(shownNames(), u"uno"_qs);
    type(u"bpm>5000"_qs);
    QCOMPARE(shownNames(), QString());
    type(u"senza:titolo"_qs);
    QCOMPARE(shownNames(), QString());
    type(u"stato:importata"_qs);
    QCOMPARE(shownNames(), u"uno due"_qs);
}

void TestFieldSearch::showsHowManyItFinds()
{
    const auto *count = m_sample->window->findChild<QLabel *>(u"searchCountLabel"_qs);
    m_sample->import({u"uno.mid"_qs, u"due.mid"_qs, u"uno di due.mid"_qs});
    QCOMPARE(count->text(), QString());
    type(u"due"_qs);
    QCOMPARE(count->text(), u"2 di 3"_qs);
    QVERIFY(m_sample->model->removeRows(0, 1));
    QCOMPARE(count->text(), u"2 di 2"_qs);
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(count->text(), u"2 of 2"_qs);
    activate();
    field()->setFocus();
    press(Qt::Key_Escape);
    QCOMPARE(count->text(), QString());
}

void TestFieldSearch::searchesInvalidConditionsAsWords()
{
    m_sample->import({u"uno.mid"_qs, u"bpm>abc.mid"_qs});
    type(u"bpm>"_qs);
    QCOMPARE(shownNames(), u"uno bpm>abc"_qs);
    type(u"bpm>ab"_qs);
    QCOMPARE(shownNames(), u"bpm>abc"_qs);
    for (const QString &unfinished : {u"senza:"_qs, u"senza:ti"_qs}) {
        type(unfinished);
        QCOMPARE(shownNames(), u"uno bpm>abc"_qs);
    }
    type(u"senza:xyz"_qs);
    QCOMPARE(shownNames(), QString());
    QCOMPARE(hint()->text(), u"Nessun brano corrisponde alla ricerca"_qs);
}

void TestFieldSearch::explainsItself_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("part");
    QTest::newRow("it") << u"it"_qs
                        << u"Dove manca un numero (bpm&gt;abc), o il campo dopo <b>senza:</b> non "
                           "esiste, si cerca il testo come parola."_qs;
    QTest::newRow("en") << u"en"_qs
                        << u"Without a number (bpm&gt;abc), or with no such field after "
                           "<b>without:</b>, the text is searched as a word."_qs;
}

void TestFieldSearch::explainsItself()
{
    QFETCH(QString, language);
    QFETCH(QString, part);
    m_sample->changeLanguage(language);
    auto *button = m_sample->window->findChild<QToolButton *>(u"searchHelpToolButton"_qs);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY2(button->whatsThis().contains(part), qPrintable(button->whatsThis()));
    int shown = 0;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        shown += widget->inherits("QWhatsThat") && widget->isVisible() ? 1 : 0;
    QCOMPARE(shown, 1);
    QWhatsThis::hideText();
}

BRISEL_TEST(QApplication, TestFieldSearch)
#include "tst_fieldsearch.moc"
