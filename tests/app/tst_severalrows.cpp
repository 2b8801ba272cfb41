#include "library/songdeletion.h"
#include "tests/app/reporttest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSqlQuery>

using namespace brisel;

/// Operations of the window on several selected rows.
class TestSeveralRows : public ReportTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { closeWindow(); }

    void deleteKeyRemovesTheSelectedRows_data();
    void deleteKeyRemovesTheSelectedRows();
    void hiddenRowsAreNoPartOfTheSelection();
    void keyWithoutASelectionMeansTheCurrentRow();
    void nextShownRowIsChosenAfterwards();
    void keepsTheSelectionWhenItSorts();
    void keepsTheOneSelectedRowWhenItSorts();
    void menuOnASelectedRowMeansTheSelection();
    void menuOnAnotherRowMeansThatRow();
    void asksOnceBeforeDeleting_data();
    void asksOnceBeforeDeleting();
    void namesTheFirstOfManyFiles();
    void returnDeletesNothing();
    void fileThatCannotBeDeletedStays();
    void interruptsDeleting();
    void restoresTheSelectedSongs();
    void editsTheSelectedSongsFromTheMenu();
    void aRejectedRemovalLosesNoFile();
    void saysThatNothingCanBeRestored_data();
    void saysThatNothingCanBeRestored();

private:
    void click(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, keys, cell(row));
    }
    void pressDelete() { QTest::keyClick(table(), Qt::Key_Delete); }
    void search(const QString &text)
    {
        m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(text);
    }
    QString names()
    {
        QStringList names;
        for (int row = 0; row < model().goodRowCount(); ++row)
            names.append(model().shortName(row).section(u'.', 0, 0));
        return names.join(QString());
    }
    QString selected()
    {
        QStringList names;
        for (int row = 0; row < model().goodRowCount(); ++row) {
            if (table()->selectionModel()->isRowSelected(row))
                names.append(model().shortName(row).section(u'.', 0, 0));
        }
        return names.join(QString());
    }
    void choose(const QString &language)
    {
        m_window->findChild<QAction *>(u"action"_qs + language)->trigger();
        QCoreApplication::processEvents();
    }
    /// Opens the context menu over \a row and triggers the action; closes it without one.
    void useMenu(int row, const QString &action)
    {
        m_script->expectMenu([this, action](QMenu *menu) {
            if (action.isEmpty())
                return;
            auto *wanted = m_window->findChild<QAction *>(action);
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(wanted).center());
        });
        emit table()->customContextMenuRequested(cell(row));
    }
    void expectQuestionAboutFiles(QMessageBox::StandardButton answer)
    {
        m_script->expect("QMessageBox", [answer](QWidget *widget) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(widget)->button(answer), Qt::LeftButton);
        });
    }
};

void TestSeveralRows::init()
{
    openWindow();
    QStringList names;
    for (const char name : {'a', 'b', 'c', 'd', 'e', 'f'})
        names.append(QLatin1Char(name) + u".mid"_qs);
    makeSongs(names, false);
    import(names);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    table()->setFocus();
}

void TestSeveralRows::deleteKeyRemovesTheSelectedRows_data()
{
    QTest::addColumn<bool>("isRange");
    QTest::addColumn<QString>("left");
    QTest::newRow("Ctrl") << false << u"acdf"_qs;
    QTest::newRow("Shift") << true << u"af"_qs;
}

void TestSeveralRows::deleteKeyRemovesTheSelectedRows()
{
    QFETCH(bool, isRange);
    click(1);
    click(4, isRange ? Qt::ShiftModifier : Qt::ControlModifier);
    pressDelete();
    QTEST(names(), "left");
    QVERIFY(QFile::exists(at(u"b.mid"_qs)));
}

void TestSeveralRows::hiddenRowsAreNoPartOfTheSelection()
{
    table()->selectAll();
    search(u"c.mid"_qs);
    pressDelete();
    QCOMPARE(names(), u"abdef"_qs);
    search(u"nothing"_qs);
    table()->selectAll();
    pressDelete();
    search(QString());
    QCOMPARE(names(), u"abdef"_qs);
}

void TestSeveralRows::keyWithoutASelectionMeansTheCurrentRow()
{
    click(2);
    table()->clearSelection();
    pressDelete();
    QCOMPARE(names(), u"abdef"_qs);
}

void TestSeveralRows::nextShownRowIsChosenAfterwards()
{
    click(1);
    click(3, Qt::ControlModifier);
    pressDelete();
    QCOMPARE(names(), u"acef"_qs);
    QCOMPARE(selected(), u"c"_qs);
    click(3);
    pressDelete();
    QCOMPARE(selected(), u"e"_qs);
    table()->selectAll();
    pressDelete();
    QCOMPARE(names(), QString());
    QVERIFY(!tool("transferFilesToolButton")->isEnabled());
}

void TestSeveralRows::keepsTheSelectionWhenItSorts()
{
    click(1);
    click(2, Qt::ControlModifier);
    click(5, Qt::ControlModifier);
    table()->sortByColumn(model().fieldIndex(u"title"_qs), Qt::DescendingOrder);
    QCOMPARE(names(), u"fedcba"_qs);
    QCOMPARE(selected(), u"fcb"_qs);
    QCOMPARE(table()->currentIndex().row(), 0);
}

/// Another row may be the current one.
void TestSeveralRows::keepsTheOneSelectedRowWhenItSorts()
{
    click(1);
    click(3, Qt::ControlModifier);
    click(3, Qt::ControlModifier);
    QCOMPARE(selected(), u"b"_qs);
    QCOMPARE(table()->currentIndex().row(), 3);
    table()->sortByColumn(model().fieldIndex(u"title"_qs), Qt::DescendingOrder);
    QCOMPARE(selected(), u"b"_qs);
}

void TestSeveralRows::menuOnASelectedRowMeansTheSelection()
{
    click(0);
    click(2, Qt::ShiftModifier);
    useMenu(1, u"actionRemoveRow"_qs);
    verifyScript();
    QCOMPARE(names(), u"def"_qs);
}

void TestSeveralRows::menuOnAnotherRowMeansThatRow()
{
    click(0);
    click(2, Qt::ShiftModifier);
    useMenu(4, QString());
    QCOMPARE(selected(), u"e"_qs);
    click(0);
    click(2, Qt::ShiftModifier);
    useMenu(4, u"actionRemoveRow"_qs);
    verifyScript();
    QCOMPARE(names(), u"abcdf"_qs);
}

void TestSeveralRows::asksOnceBeforeDeleting_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("question");
    QTest::newRow("it") << u"Italian"_qs << u"Sei sicuro di voler cancellare questi 2 file?"_qs;
    QTest::newRow("en") << u"English"_qs
                        << u"Are you sure you want to permanently delete these 2 files?"_qs;
}

void TestSeveralRows::asksOnceBeforeDeleting()
{
    QFETCH(QString, language);
    QFETCH(QString, question);
    choose(language);
    click(0);
    click(2, Qt::ControlModifier);
    m_script->expect("QMessageBox", [question](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->text(), question);
        QCOMPARE(box->informativeText(), u"a.mid\nc.mid"_qs);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    useMenu(2, u"actionDeleteFile"_qs);
    verifyScript();
    QCOMPARE(names(), u"bdef"_qs);
    QVERIFY(!QFile::exists(at(u"a.mid"_qs)));
    QVERIFY(QFile::exists(at(u"b.mid"_qs)));
    QVERIFY(!QFile::exists(at(u"c.mid"_qs)));
    QCOMPARE(outcome(), language == u"Italian"_qs ? u"Cancellazione: 2 cancellate"_qs
                                                  : u"Deletion: 2 deleted"_qs);
}

void TestSeveralRows::namesTheFirstOfManyFiles()
{
    QStringList names;
    for (int i = 0; i < 25; ++i)
        names.append(u"<b>%1.mid"_qs.arg(i, 2, 10, QChar(u'0')));
    makeSongs(names, false);
    import(names);
    table()->selectAll();
    m_script->expect("QMessageBox", [names](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->informativeText(), names.first(10).join(u'\n') + u"\ne altri 15"_qs);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    useMenu(0, u"actionDeleteFile"_qs);
    verifyScript();
    QCOMPARE(model().goodRowCount(), 25);
    QVERIFY(QFile::exists(at(names.constFirst())));
}

void TestSeveralRows::returnDeletesNothing()
{
    table()->selectAll();
    m_script->expect("QMessageBox", [](QWidget *widget) {
        QVERIFY(QTest::qWaitForWindowActive(widget)); // before that, Return is a key of the table
        QTest::keyClick(widget, Qt::Key_Return);
    });
    useMenu(0, u"actionDeleteFile"_qs);
    verifyScript();
    QCOMPARE(names(), u"abcdef"_qs);
    QVERIFY(QFile::exists(at(u"a.mid"_qs)));
}

void TestSeveralRows::fileThatCannotBeDeletedStays()
{
    // Not even root can delete a folder as a file.
    QVERIFY(QFile::remove(at(u"b.mid"_qs)));
    makeFile(at(u"b.mid/inside.mid"_qs), "kept");
    QVERIFY(QFile::remove(at(u"c.mid"_qs)));
    click(0);
    click(2, Qt::ShiftModifier);
    expectQuestionAboutFiles(QMessageBox::Yes);
    useMenu(0, u"actionDeleteFile"_qs);
    verifyScript();
    QCOMPARE(names(), u"bdef"_qs);
    QCOMPARE(fileContent(at(u"b.mid/inside.mid"_qs)), QByteArray("kept"));
    QCOMPARE(reportLines().mid(1), QStringList(line(u"Non cancellata"_qs, u"b.mid"_qs,
                                                    SongDeletion::undeletable.text())));
}

void TestSeveralRows::interruptsDeleting()
{
    table()->selectAll();
    expectQuestionAboutFiles(QMessageBox::Yes);
    atProgress(u"Cancellazione file"_qs, u"2 di 6"_qs, [](QProgressDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    });
    useMenu(0, u"actionDeleteFile"_qs);
    verifyScript();
    QCOMPARE(names(), u"cdef"_qs);
    QVERIFY(!QFile::exists(at(u"b.mid"_qs)));
    QVERIFY(QFile::exists(at(u"c.mid"_qs)));
    QCOMPARE(reportLines().constLast(),
             line(u"Non cancellata"_qs, u"f.mid"_qs, u"operazione interrotta"_qs));
}

void TestSeveralRows::restoresTheSelectedSongs()
{
    const QByteArray content = fileContent(at(u"a.mid"_qs));
    for (const int row : {0, 1}) {
        expectEdit([](QWidget *widget) {
            DialogScript::type(widget->findChild<QLineEdit *>(u"authorLineEdit"_qs), u"X"_qs);
            DialogScript::click(widget, u"savePushButton"_qs);
        });
        doubleClick(row);
    }
    QCOMPARE(Sample::infoOf(at(u"b.mid"_qs)).author, u"X"_qs);
    click(0);
    click(2, Qt::ShiftModifier);
    useMenu(1, u"actionRestore"_qs);
    verifyScript();
    QCOMPARE(fileContent(at(u"a.mid"_qs)), content);
    QCOMPARE(Sample::infoOf(at(u"b.mid"_qs)).author, QString());
    QCOMPARE(outcome(), u"Ripristino: 2 ripristinate"_qs);
}

void TestSeveralRows::saysThatNothingCanBeRestored_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("it") << u"Italian"_qs
                        << QStringList{u"Ripristino"_qs,
                                       u"Per le song scelte non c'è nulla da ripristinare"_qs};
    QTest::newRow("en") << u"English"_qs
                        << QStringList{u"Restore"_qs,
                                       u"There is nothing to restore for the selected songs"_qs};
}

void TestSeveralRows::saysThatNothingCanBeRestored()
{
    QFETCH(const QString, language);
    QFETCH(const QStringList, texts);
    // The history knows the other songs by their content, from the tests before.
    importSongs({u"new 1.mid"_qs, u"new 2.mid"_qs, u"new 3.mid"_qs}, false);
    choose(language);
    expectEdit([language](QWidget *widget) {
        DialogScript::type(widget->findChild<QLineEdit *>(u"authorLineEdit"_qs), language);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(2); // so that there is a history
    const QByteArray content = fileContent(at(u"new 1.mid"_qs));
    click(0);
    click(1, Qt::ShiftModifier);
    m_script->expectMessage(texts.at(0), texts.at(1), QMessageBox::Ok);
    useMenu(1, u"actionRestore"_qs);
    verifyScript();
    QCOMPARE(fileContent(at(u"new 1.mid"_qs)), content);
    QCOMPARE(statuses(), u"002"_qs);
}

void TestSeveralRows::editsTheSelectedSongsFromTheMenu()
{
    click(1);
    click(2, Qt::ControlModifier);
    expectEdit([](QWidget *dialog) {
        QCOMPARE(dialog->findChild<QLabel *>(u"pathLabel"_qs)->text(), u"2 song selezionate"_qs);
        DialogScript::click(dialog, u"exitPushButton"_qs);
    });
    chooseFromMenu(3, cell(2));
    verifyScript();
    expectEdit([](QWidget *dialog) {
        QCOMPARE(dialog->findChild<QLineEdit *>(u"titleLineEdit"_qs)->text(), u"e"_qs);
        DialogScript::click(dialog, u"exitPushButton"_qs);
    });
    chooseFromMenu(3, cell(4));
    verifyScript();
}

void TestSeveralRows::aRejectedRemovalLosesNoFile()
{
    QSqlQuery query(model().database());
    QVERIFY(
        query.exec(u"CREATE TRIGGER keep BEFORE DELETE ON usersongs WHEN OLD.shortname = 'c.mid' "
                   "BEGIN SELECT RAISE(ABORT, 'rejected'); END"_qs));
    table()->selectAll();
    pressDelete();
    QCOMPARE(names(), u"cdef"_qs);
    const QString memory = at(u"volumes/CARD/songs"_qs);
    QVERIFY(QDir().mkpath(memory));
    int copied = 0;
    QVERIFY(m_window->copyFiles(memory, copied));
    QCOMPARE(QDir(memory).entryList(QDir::Files).size(), 4);
}

BRISEL_TEST(QApplication, TestSeveralRows)
#include "tst_severalrows.moc"
