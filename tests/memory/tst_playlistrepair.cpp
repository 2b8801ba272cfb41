#include "tests/memory/openpanel.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>

using namespace brisel;

using namespace Sample;

namespace
{

QTableView *songsOf(const QWidget *dialog)
{
    return dialog->findChild<QTableView *>(u"songsTableView"_qs);
}

QLineEdit *searchOf(const QWidget *dialog)
{
    return dialog->findChild<QLineEdit *>(u"searchLineEdit"_qs);
}

QPushButton *okOf(const QWidget *dialog)
{
    return dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

} // namespace

/// The dialog that asks which song an entry of a playlist means.
class TestPlaylistRepair : public QObject
{
    Q_OBJECT

private slots:
    void repairsAnEntryByAGuess();
    void repairsAnEntryByASearch();
    void proposesNoSongWithoutAGuess();
};

void TestPlaylistRepair::repairsAnEntryByAGuess()
{
    const OpenPanel open(volare + songRecord("00000077", "NESSUNO", "5002"));
    open.table()->selectRow(1);
    DialogScript script;
    script.expect("brisel::RepairDialog", [](QWidget *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Ripara playlist"_qs);
        QCOMPARE(dialog->findChild<QLabel *>()->text(),
                 u"Quale song deve suonare al posto di \"NESSUNO\"?"_qs);
        const QTableView *table = songsOf(dialog);
        QCOMPARE(table->model()->index(0, 3).data().toString(),
                 u"ha lo stesso titolo, tempo e formato"_qs);
        QCOMPARE(table->model()->rowCount(), 3);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    open.click("repair");
    QVERIFY(script.isDone());
    QCOMPARE(open.nameOf(0), u"Playlist 7 * (2)"_qs);
    QCOMPARE(open.titles(), u"VOLARE NESSUNO"_qs);
}

void TestPlaylistRepair::repairsAnEntryByASearch()
{
    const OpenPanel open(deadSong);
    open.table()->selectRow(0);
    DialogScript script;
    script.expect("brisel::RepairDialog", [](QWidget *dialog) {
        DialogScript::type(searchOf(dialog), u"modugno azz"_qs);
        const QTableView *table = songsOf(dialog);
        QCOMPARE(table->model()->rowCount(), 1);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    open.click("repair");
    QCOMPARE(open.titles(), u"AZZURRO"_qs);
    open.table()->selectRow(0);
    script.expect("brisel::RepairDialog",
                  [](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    open.click("repair");
    QVERIFY(script.isDone());
    QCOMPARE(open.titles(), u"AZZURRO"_qs);
}

void TestPlaylistRepair::proposesNoSongWithoutAGuess()
{
    const OpenPanel open(deadSong);
    open.table()->selectRow(0);
    DialogScript script;
    script.expect("brisel::RepairDialog", [](QWidget *dialog) {
        QTableView *songs = songsOf(dialog);
        QCOMPARE(songs->model()->rowCount(), 3);
        QCOMPARE(dialog->focusWidget(), searchOf(dialog));
        for (QWidget *widget : QList<QWidget *>{searchOf(dialog), songs}) {
            widget->setFocus();
            QTest::keyClick(widget, Qt::Key_Return);
            QVERIFY(dialog->isVisible());
            QVERIFY(!okOf(dialog)->isEnabled());
        }
        songs->selectRow(1);
        QVERIFY(okOf(dialog)->isEnabled());
        DialogScript::type(searchOf(dialog), u" "_qs);
        QVERIFY(!okOf(dialog)->isEnabled());
        songs->selectRow(1);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    open.click("repair");
    QVERIFY(script.isDone());
    QCOMPARE(open.titles(), u"AZZURRO"_qs);
}

BRISEL_TEST(QApplication, TestPlaylistRepair)

#include "tst_playlistrepair.moc"
