#include "app/outcomecolumn.h"
#include "app/songfilter.h"
#include "base/filefailure.h"
#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QHeaderView>
#include <QLineEdit>
#include <QSet>

using namespace brisel;

/// What became of the songs, in the window: the icons, and the numbers that choose rows.
class TestOutcomes : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void eachIconHasItsShape();
    void columnIsTheFirstAndHasAName();
    void cellsShowIconsAndNoText();
    void clickOnTheHeadingSorts();
    void buttonsShowWhatOccurs();
    void buttonChoosesAndShowsAllAgain();
    void worksTogetherWithTheSearch();
    void escapeShowsAll();
    void chosenOutcomeIsReleasedWithItsLastSong();
    void releasedOutcomeCountsTheShownRows();
    void chosenOutcomeFollowsARun();
    void speaksTheOtherLanguageAtOnce();
    void countsAFewTimesASecond();

private:
    QToolButton *counter(SongOutcome outcome) const
    {
        return m_window->findChild<QToolButton *>(
            u"outcomeButton%1"_qs.arg(static_cast<int>(outcome)));
    }
    /// The texts of the buttons that are seen; the pressed one is in brackets.
    QString counts() const
    {
        QStringList texts;
        for (const SongOutcome outcome : allSongOutcomes) {
            const QToolButton *button = counter(outcome);
            if (button->isVisible())
                texts.append(button->isChecked() ? u'[' + button->text() + u']' : button->text());
        }
        return texts.join(u' ');
    }
    QString shownNames() const
    {
        QStringList names;
        for (int row = 0; row < model().rowCount(); ++row) {
            if (!table()->isRowHidden(row))
                names.append(model().shortName(row).section(u'.', 0, 0));
        }
        return names.join(u' ');
    }
    void click(SongOutcome outcome) const { QTest::mouseClick(counter(outcome), Qt::LeftButton); }
    void importFour()
    {
        m_sample->import({u"ONE.mid"_qs, u"a.mid"_qs, u"TWO.mid"_qs, u"b.mid"_qs});
        model().setStatus(0, Database::Updated);
        model().setStatus(2, Database::Updated);
        model().setStatus(3, Database::Failed, SongOutcome::NotWritten, FileReason::noSpace);
    }
    int outcomeColumn() const { return model().colIdxOutcome(); }
};

void TestOutcomes::eachIconHasItsShape()
{
    QSet<QByteArray> shapes;
    for (const SongOutcome outcome : allSongOutcomes) {
        const QImage image = OutcomeColumn::icon(outcome).pixmap(16, 16).toImage().convertToFormat(
            QImage::Format_ARGB32);
        QCOMPARE(image.size(), QSize(16, 16));
        // White on anything else: what remains without colours.
        QByteArray shape;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                shape += qAlpha(image.pixel(x, y)) < 128  ? ' '
                         : qGray(image.pixel(x, y)) > 200 ? '#'
                                                          : '.';
        }
        QVERIFY(shape.contains('#') && shape.contains('.'));
        shapes.insert(shape);
    }
    QCOMPARE(shapes.size(), qsizetype(allSongOutcomes.size()));
}

void TestOutcomes::columnIsTheFirstAndHasAName()
{
    const QHeaderView *header = table()->horizontalHeader();
    QCOMPARE(header->visualIndex(outcomeColumn()), 0);
    QVERIFY(!table()->isColumnHidden(outcomeColumn()));
    QVERIFY(header->sectionSize(outcomeColumn()) <= 50);
    const auto heading = [this](int role) {
        return model().headerData(outcomeColumn(), Qt::Horizontal, role);
    };
    QCOMPARE(heading(Qt::DisplayRole).toString(), QString());
    QCOMPARE(heading(Qt::AccessibleTextRole).toString(), u"Stato (simbolo)"_qs);
    QVERIFY(heading(Qt::ToolTipRole).toString().startsWith(u"Che cosa"_qs));
}

void TestOutcomes::cellsShowIconsAndNoText()
{
    importFour();
    QCoreApplication::processEvents();
    const QRect cell = table()->visualRect(model().index(3, outcomeColumn()));
    const QImage shown = table()->viewport()->grab(cell).toImage();
    QImage plain(shown.size(), shown.format());
    plain.fill(QColor(230, 230, 230));
    QVERIFY(shown.pixelColor(0, 0) == plain.pixelColor(0, 0)); // the colour of the row
    const QImage icon = OutcomeColumn::icon(SongOutcome::NotWritten).pixmap(16, 16).toImage();
    const QPoint middle(shown.width() / 2 - 8, shown.height() / 2 - 8);
    bool isThere = false;
    for (const QPoint &step : {QPoint(0, 0), QPoint(-1, 0), QPoint(0, -1), QPoint(-1, -1)}) {
        const QPoint inside = middle + step + QPoint(5, 12);
        isThere = isThere || shown.pixelColor(inside) == icon.pixelColor(5, 12);
    }
    QVERIFY(isThere);
    QCOMPARE(model().index(3, outcomeColumn()).data(Qt::AccessibleTextRole).toString(),
             u"non scritta (spazio insufficiente sul disco)"_qs);
}

void TestOutcomes::clickOnTheHeadingSorts()
{
    importFour();
    QHeaderView *header = table()->horizontalHeader();
    const QPoint heading(header->sectionViewportPosition(outcomeColumn()) + 10, 5);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, heading);
    QCOMPARE(shownNames(), u"a ONE TWO b"_qs);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, heading);
    QCOMPARE(shownNames().section(u' ', 0, 0), u"b"_qs);
}

void TestOutcomes::buttonsShowWhatOccurs()
{
    QCOMPARE(counts(), QString());
    m_sample->import({u"a.mid"_qs, u"b.mid"_qs});
    QTRY_COMPARE(counts(), u"2"_qs);
    QVERIFY(counter(SongOutcome::Imported)->isVisible());
    importFour();
    QTRY_COMPARE(counts(), u"1 2 1"_qs);
    QCOMPARE(counter(SongOutcome::NotWritten)->toolTip(),
             u"Mostra solo le song con lo stato: non scritta"_qs);
    QCOMPARE(counter(SongOutcome::NotWritten)->accessibleName(), u"non scritta: 1"_qs);
    QVERIFY(model().removeRows(3, 1));
    QTRY_COMPARE(counts(), u"1 2"_qs);
}

void TestOutcomes::buttonChoosesAndShowsAllAgain()
{
    importFour();
    QTRY_COMPARE(counts(), u"1 2 1"_qs);
    click(SongOutcome::Updated);
    QCOMPARE(shownNames(), u"ONE TWO"_qs);
    QCOMPARE(counts(), u"1 [2] 1"_qs);
    click(SongOutcome::NotWritten);
    QCOMPARE(shownNames(), u"b"_qs);
    QCOMPARE(counts(), u"1 2 [1]"_qs);
    click(SongOutcome::NotWritten);
    QCOMPARE(shownNames(), u"ONE a TWO b"_qs);
    QCOMPARE(counts(), u"1 2 1"_qs);
}

void TestOutcomes::worksTogetherWithTheSearch()
{
    importFour();
    QTRY_COMPARE(counts(), u"1 2 1"_qs);
    auto *field = m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs);
    click(SongOutcome::Updated);
    field->setText(u"one"_qs);
    QCOMPARE(shownNames(), u"ONE"_qs);
    click(SongOutcome::Updated);
    QCOMPARE(shownNames(), u"ONE"_qs);
    field->clear();
    QCOMPARE(shownNames(), u"ONE a TWO b"_qs);
    field->setText(u"one"_qs);
    click(SongOutcome::NotWritten);
    QCOMPARE(shownNames(), QString());
    QCOMPARE(table()->findChild<QLabel *>(u"emptyTableHint"_qs)->text(),
             u"Nessun brano corrisponde alla ricerca"_qs);
}

void TestOutcomes::escapeShowsAll()
{
    importFour();
    QTRY_COMPARE(counts(), u"1 2 1"_qs);
    click(SongOutcome::Updated);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    table()->setFocus();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Escape);
    QCOMPARE(shownNames(), u"ONE a TWO b"_qs);
    QCOMPARE(counts(), u"1 2 1"_qs);
}

void TestOutcomes::chosenOutcomeIsReleasedWithItsLastSong()
{
    importFour();
    QTRY_COMPARE(counts(), u"1 2 1"_qs);
    click(SongOutcome::NotWritten);
    QVERIFY(model().removeRows(3, 1));
    QTRY_COMPARE(counts(), u"1 2"_qs);
    QCOMPARE(shownNames(), u"ONE a TWO"_qs);
    click(SongOutcome::Updated);
    m_sample->import({u"c.mid"_qs});
    QTRY_COMPARE(counts(), u"1"_qs);
    QCOMPARE(shownNames(), u"c"_qs);
}

/// When the model is read again, the outcome may be released before the filter has seen the rows.
void TestOutcomes::releasedOutcomeCountsTheShownRows()
{
    constexpr int count = 100;
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(u"%1.mid"_qs.arg(i));
    m_sample->import(names);
    QList<int> updated;
    for (int row = 0; row < count; row += 2) {
        model().setStatus(row, Database::Updated);
        updated.append(row);
    }
    QTRY_COMPARE(counts(), u"50 50"_qs);
    m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"mid"_qs);
    click(SongOutcome::Updated);
    const auto *filter = m_window->findChild<SongFilter *>();
    QStringList shown;
    QStringList counted;
    connect(filter, &SongFilter::changed, this, [&] {
        int rows = 0;
        for (int row = 0; row < model().rowCount(); ++row)
            rows += table()->isRowHidden(row) ? 0 : 1;
        shown.append(u"%1 di %2"_qs.arg(rows).arg(model().rowCount()));
        counted.append(filter->countText());
    });
    QVERIFY(model().removeEach(updated)); // scattered rows
    QCOMPARE(counted, shown);
    QCOMPARE(counted.constLast(), u"50 di 50"_qs);
}

void TestOutcomes::chosenOutcomeFollowsARun()
{
    m_sample->import({u"ONE.mid"_qs, u"a.mid"_qs, u"TWO.mid"_qs});
    QTRY_COMPARE(counts(), u"3"_qs);
    click(SongOutcome::Imported);
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"131"_qs);
    QTRY_COMPARE(counts(), u"2 1"_qs); // released: none is only imported
    QCOMPARE(shownNames(), u"ONE a TWO"_qs);
    QCOMPARE(model().outcome(1), SongOutcome::NotFound);
}

void TestOutcomes::speaksTheOtherLanguageAtOnce()
{
    importFour();
    QTRY_COMPARE(counts(), u"1 2 1"_qs);
    m_window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(counter(SongOutcome::NotWritten)->toolTip(),
             u"Shows only the songs with the status: not written"_qs);
    QCOMPARE(model().outcomeText(3), u"not written (not enough space on the disk)"_qs);
    QCOMPARE(model().headerData(outcomeColumn(), Qt::Horizontal, Qt::AccessibleTextRole).toString(),
             u"Status (symbol)"_qs);
}

/// Changing buttons for each of thousands of rows would slow down the runs.
void TestOutcomes::countsAFewTimesASecond()
{
    SongInfo info;
    for (int row = 0; row < 200; ++row)
        model().addSong(info);
    QCOMPARE(counts(), QString());
    QTRY_COMPARE(counts(), u"200"_qs);
}

BRISEL_TEST(QApplication, TestOutcomes)
#include "tst_outcomes.moc"
