#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>

using namespace brisel;

/// Picked files that could not be read, in the table: rows that no run takes for songs.
class TestUnreadableRows : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void areNotShownAtFirst();
    void areShownOnDemand();
    void areNamedInEnglish();
    void areShownByTheNextStart();
    void countNowhereAsSongs();
    void areNotSynchronised();
    void areNotEdited();
    void areNotSpreadOver();
    void areNotCountedAsHiddenSongs_data();
    void areNotCountedAsHiddenSongs();
    void haveNoMenu();
    void keysDoNothing();
    void followTheSearch();
    void goWithTheNextImport();

private:
    QAction *toggle() const { return m_window->findChild<QAction *>(u"actionShowUnreadable"_qs); }
    /// Two songs, and between them a file that is not a song.
    void importWithOne()
    {
        makeSongs({u"ONE.mid"_qs, u"TWO.mid"_qs}, true);
        makeFile(at(u"bad.mid"_qs), "not a song");
        import({u"ONE.mid"_qs, u"bad.mid"_qs, u"TWO.mid"_qs});
    }
    QString names() const
    {
        QStringList all;
        for (int row = 0; row < model().rowCount(); ++row)
            all.append(model().index(row, model().fieldIndex(u"shortname"_qs)).data().toString());
        return all.join(u' ');
    }
    QString songs() const { return m_window->findChild<QLabel *>(u"songsLabel"_qs)->text(); }
};

void TestUnreadableRows::areNotShownAtFirst()
{
    importWithOne();
    QVERIFY(!toggle()->isChecked());
    QCOMPARE(names(), u"ONE.mid TWO.mid"_qs);
}

void TestUnreadableRows::areShownOnDemand()
{
    importWithOne();
    toggle()->trigger();
    QCOMPARE(names(), u"ONE.mid TWO.mid bad.mid"_qs);
    QCOMPARE(model().outcomeText(2), u"non leggibile (formato sconosciuto o file danneggiato)"_qs);
    table()->sortByColumn(model().fieldIndex(u"title"_qs), Qt::DescendingOrder);
    QCOMPARE(names(), u"TWO.mid ONE.mid bad.mid"_qs);
    toggle()->trigger();
    QCOMPARE(names(), u"TWO.mid ONE.mid"_qs);
}

void TestUnreadableRows::areNamedInEnglish()
{
    importWithOne();
    toggle()->trigger();
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(model().outcomeText(2), u"not readable (unknown format or damaged file)"_qs);
    QCOMPARE(songs(), u"2 songs"_qs);
}

void TestUnreadableRows::areShownByTheNextStart()
{
    toggle()->trigger();
    m_sample->window.reset();
    m_sample->window = std::make_unique<MainWindow>();
    m_window = m_sample->window.get();
    QVERIFY(toggle()->isChecked());
    QVERIFY(m_window->findChild<UserSongsRelTableModel *>()->isShowingUnreadable());
}

void TestUnreadableRows::countNowhereAsSongs()
{
    toggle()->trigger();
    m_window->enableCopyrightMessage(true);
    QString counts;
    m_script->expectFiles({at(u"bad.mid"_qs), at(u"ONE.mid"_qs)});
    m_script->expect("ProceedDialog", [&counts](QWidget *dialog) {
        for (const QLabel *label : dialog->findChildren<QLabel *>())
            counts += label->text() + u'|';
        DialogScript::click(dialog, u"noPushButton"_qs);
    });
    makeSongs({u"ONE.mid"_qs}, true);
    makeFile(at(u"bad.mid"_qs), "not a song");
    QTest::mouseClick(tool("selectDirToolButton"), Qt::LeftButton);
    verifyScript();
    QVERIFY2(counts.contains(u'2') && counts.contains(u'1'), qPrintable(counts));
    QTRY_COMPARE(songs(), u"1 song"_qs);
    QCOMPARE(model().goodRowCount(), 1);
    QCOMPARE(model().rowCount(), 2);
}

void TestUnreadableRows::areNotSynchronised()
{
    importWithOne();
    toggle()->trigger();
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QCOMPARE(statuses(), u"11"_qs);
    QCOMPARE(names(), u"ONE.mid TWO.mid bad.mid"_qs);
    QCOMPARE(fileContent(at(u"bad.mid"_qs)), "not a song"_qba);
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
}

void TestUnreadableRows::areNotEdited()
{
    importWithOne();
    toggle()->trigger();
    const QString before = m_window->findChild<QLabel *>(u"outcomeLabel"_qs)->text();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(2));
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell(2));
    verifyScript();
    QCOMPARE(m_window->findChild<QLabel *>(u"outcomeLabel"_qs)->text(), before);
    QCOMPARE(fileContent(at(u"bad.mid"_qs)), "not a song"_qba);
}

void TestUnreadableRows::areNotSpreadOver()
{
    importWithOne();
    toggle()->trigger();
    expectEdit([](QWidget *dialog) {
        dialog->findChild<QLineEdit *>(u"authorLineEdit"_qs)->setText(u"Anna"_qs);
        dialog->findChild<QAbstractButton *>(u"checkBoxToAllAuthor"_qs)->setChecked(true);
        DialogScript::click(dialog, u"savePushButton"_qs);
    });
    doubleClick(0);
    QCOMPARE(statuses(), u"22"_qs);
    QCOMPARE(model().outcome(2), SongOutcome::NotReadable);
    QCOMPARE(fileContent(at(u"bad.mid"_qs)), "not a song"_qba);
}

/// The question of "apply to all" counts the songs that the search hides.
void TestUnreadableRows::areNotCountedAsHiddenSongs_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("numbers");
    QTest::newRow("it") << u"it"_qs
                        << u"Song da modificare: 2\nAnche quelle nascoste dalla ricerca: 1"_qs;
    QTest::newRow("en") << u"en"_qs
                        << u"Songs to be changed: 2\nIncluding those hidden by the search: 1"_qs;
}

void TestUnreadableRows::areNotCountedAsHiddenSongs()
{
    QFETCH(QString, language);
    m_sample->changeLanguage(language);
    importWithOne();
    toggle()->trigger();
    m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"one"_qs);
    QString shown;
    expectEdit([&shown](QWidget *dialog) {
        DialogScript inner;
        inner.expect("QMessageBox", [&shown](QWidget *box) {
            shown = qobject_cast<QMessageBox *>(box)->informativeText();
            QTest::keyClick(box, Qt::Key_Escape);
        });
        DialogScript::click(dialog, u"checkBoxToAllAuthor"_qs);
        DialogScript::click(dialog, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QTEST(shown, "numbers");
}

void TestUnreadableRows::haveNoMenu()
{
    importWithOne();
    toggle()->trigger();
    int enabled = -1;
    m_script->expectMenu([&enabled](QMenu *menu) {
        enabled = 0;
        for (const QAction *action : menu->actions())
            enabled += action->isEnabled() ? 1 : 0;
    });
    emit table()->customContextMenuRequested(cell(2));
    QCOMPARE(enabled, 0);
    QCOMPARE(names(), u"ONE.mid TWO.mid bad.mid"_qs);
}

void TestUnreadableRows::keysDoNothing()
{
    importWithOne();
    toggle()->trigger();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    table()->setFocus();
    table()->setCurrentIndex(model().index(2, 2));
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return})
        QTest::keyClick(m_window->windowHandle(), key);
    verifyScript();
    QCOMPARE(names(), u"ONE.mid TWO.mid bad.mid"_qs);
    QVERIFY(QFile::exists(at(u"bad.mid"_qs)));
}

void TestUnreadableRows::followTheSearch()
{
    importWithOne();
    auto *field = m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs);
    field->setText(u"one"_qs);
    toggle()->trigger();
    QVERIFY(!table()->isRowHidden(0));
    QVERIFY(table()->isRowHidden(2));
    field->setText(u"bad"_qs);
    QVERIFY(table()->isRowHidden(0));
    QVERIFY(!table()->isRowHidden(2));
    auto *counter = m_window->findChild<QToolButton *>(
        u"outcomeButton%1"_qs.arg(static_cast<int>(SongOutcome::NotReadable)));
    QTRY_COMPARE(counter->text(), u"1"_qs);
    field->clear();
    counter->click();
    QVERIFY(table()->isRowHidden(0));
    QVERIFY(!table()->isRowHidden(2));
    toggle()->trigger();
    QTRY_VERIFY(!table()->isRowHidden(0)); // no unreadable file is left to choose
}

void TestUnreadableRows::goWithTheNextImport()
{
    importWithOne();
    toggle()->trigger();
    import({u"ONE.mid"_qs});
    QCOMPARE(names(), u"ONE.mid"_qs);
}

BRISEL_TEST(QApplication, TestUnreadableRows)
#include "tst_unreadablerows.moc"
