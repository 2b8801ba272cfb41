#include "tools/demo/tabletour.h"

#include "tools/demo/librarytable.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace brisel
{

namespace
{

constexpr int nextSongTime = 300; ///< milliseconds
constexpr int countingTime = 300; ///< milliseconds after which the counts are shown

QTableView *tableOf(const Stage &stage)
{
    return stage.window.findChild<QTableView *>(QStringLiteral("userLibraryTableView"));
}

int shownRows(const Stage &stage)
{
    const QTableView *table = tableOf(stage);
    int shown = 0;
    for (int row = 0; row < table->model()->rowCount(); ++row)
        shown += table->isRowHidden(row) ? 0 : 1;
    return shown;
}

/// Gives the table the keys, as a click on it does.
void goToTable(const Stage &stage)
{
    stage.window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&stage.window));
    tableOf(stage)->setFocus();
}

void takePicture(const Stage &stage, const QString &name)
{
    QTest::qWait(countingTime);
    stage.narrator.takePicture(&stage.window, name);
}

void search(const Stage &stage)
{
    auto *line = stage.window.findChild<QLineEdit *>(QStringLiteral("searchLineEdit"));
    goToTable(stage);
    line->setFocus();
    QTest::keyClicks(line, QStringLiteral("formato:midi bpm>60"));
    const auto *count = stage.window.findChild<QLabel *>(QStringLiteral("searchCountLabel"));
    const int shown = shownRows(stage);
    stage.narrator.check(shown > 0 && shown < LibraryTable(stage.window).rows() &&
                             count->text().startsWith(QString::number(shown)),
                         QStringLiteral("the search shows %1").arg(count->text()));
    takePicture(stage, QStringLiteral("searched"));
    QTest::keyClick(line, Qt::Key_Escape);
    stage.narrator.check(line->text().isEmpty(), QStringLiteral("Escape shows all songs again"));
}

/// The first button of the status bar that counts an outcome.
QToolButton *shownOutcome(const Stage &stage)
{
    for (auto *button : stage.window.findChildren<QToolButton *>()) {
        if (button->isCheckable() && button->isVisible())
            return button;
    }
    return nullptr;
}

void showOneOutcome(const Stage &stage)
{
    QToolButton *button = shownOutcome(stage);
    if (!stage.narrator.check(button != nullptr, QStringLiteral("the outcomes are counted")))
        return;
    QTest::mouseClick(button, Qt::LeftButton);
    stage.narrator.checkEqual(shownRows(stage), button->text().toInt(),
                              QStringLiteral("songs: ") + button->toolTip());
    takePicture(stage, QStringLiteral("outcome"));
    QTest::mouseClick(button, Qt::LeftButton);
    stage.narrator.checkEqual(shownRows(stage), LibraryTable(stage.window).rows(),
                              QStringLiteral("songs without the choice"));
}

void showTheFolder(const Stage &stage)
{
    auto *action = stage.window.findChild<QAction *>(QStringLiteral("actionColumn_folder"));
    action->trigger();
    takePicture(stage, QStringLiteral("columns"));
    stage.window.findChild<QAction *>(QStringLiteral("actionResetLayout"))->trigger();
    stage.narrator.check(!action->isChecked(), QStringLiteral("the layout is reset"));
}

void selectTwoSongs(const Stage &stage)
{
    goToTable(stage);
    QTableView *table = tableOf(stage);
    table->selectRow(0);
    table->selectionModel()->select(table->model()->index(2, 0),
                                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace

void lookAtTheTable(Stage &stage)
{
    stage.narrator.step(QStringLiteral("Search, count and choose columns"));
    search(stage);
    showOneOutcome(stage);
    showTheFolder(stage);
}

void addSongs(Stage &stage)
{
    stage.narrator.step(QStringLiteral("Add a song to the list, and remove it again"));
    const LibraryTable table(stage.window);
    const int rows = table.rows();
    const QString first = table.text(0, LibraryTable::FileName);
    const QString added =
        stage.home.lists() + QStringLiteral("/AGGIUNTA.") + first.section(u'.', -1);
    if (!stage.narrator.check(QFile::copy(first, added), QStringLiteral("one more song")))
        return;
    stage.hand.rest();
    stage.hand.expectFiles({added}, QString());
    stage.hand.chooseMenu(QStringLiteral("actionAddSongs"), QStringLiteral("add-menu"));
    stage.hand.expectFiles({added}, QString());
    stage.hand.expectMessage({QStringLiteral("I brani scelti sono già nella lista"),
                              QStringLiteral("The chosen songs are in the list already")},
                             QMessageBox::Ok, QStringLiteral("add-again"));
    stage.hand.chooseMenu(QStringLiteral("actionAddSongs"), QString());
    stage.hand.checkAnswered();
    stage.narrator.checkEqual(table.rows(), rows + 1, QStringLiteral("songs with the added one"));
    goToTable(stage);
    tableOf(stage)->selectRow(table.rowOf(added));
    QTest::keyClick(tableOf(stage), Qt::Key_Delete);
    stage.narrator.checkEqual(table.rows(), rows, QStringLiteral("songs without it"));
    stage.narrator.check(QFile::remove(added), QStringLiteral("its file is still there"));
}

void editSeveralSongs(Stage &stage)
{
    const QString author = QStringLiteral("Anonimo Veneziano");
    stage.narrator.step(QStringLiteral("Edit two songs at once, then look at the next one"));
    const LibraryTable table(stage.window);
    stage.hand.rest();
    stage.hand.expectDialog("DataEditDialog", QString(), [&author](QWidget *dialog) {
        Hand::type(dialog, QStringLiteral("authorLineEdit"), author);
        Hand::click(dialog, QStringLiteral("savePushButton"));
    });
    selectTwoSongs(stage);
    takePicture(stage, QStringLiteral("selected"));
    QTest::keyClick(tableOf(stage), Qt::Key_Return);
    stage.hand.checkAnswered();
    for (const int row : {0, 2})
        stage.narrator.check(
            readBack(table.text(row, LibraryTable::FileName)).author == author,
            QStringLiteral("%1 is by %2").arg(table.text(row, LibraryTable::ShortName), author));
    stage.hand.rest();
    stage.hand.expectDialog("DataEditDialog", QString(), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("markersPushButton"));
    });
    stage.hand.expectDialog("MarkersDialog", QStringLiteral("markers"),
                            [](QWidget *dialog) { dialog->close(); });
    stage.hand.expectDialog("DataEditDialog", QString(), [&stage, &table](QWidget *dialog) {
        // The dialog opens again for the next song.
        QTimer::singleShot(nextSongTime, dialog, [&stage, &table, dialog] {
            const auto *title = dialog->findChild<QLineEdit *>(QStringLiteral("titleLineEdit"));
            stage.narrator.check(title->text() == table.text(1, LibraryTable::Title),
                                 QStringLiteral("the next song is %1").arg(title->text()));
            stage.narrator.takePicture(dialog, QStringLiteral("edit-next"));
            Hand::click(dialog, QStringLiteral("exitPushButton"));
        });
        Hand::click(dialog, QStringLiteral("nextPushButton"));
    });
    table.doubleClick(0);
    stage.hand.checkAnswered();
}

void resumeTheList(Stage &stage)
{
    stage.narrator.step(QStringLiteral("Empty the list and resume it"));
    const LibraryTable table(stage.window);
    const int rows = table.rows();
    goToTable(stage);
    tableOf(stage)->selectAll();
    QTest::keyClick(tableOf(stage), Qt::Key_Delete);
    stage.narrator.checkEqual(table.rows(), 0, QStringLiteral("songs in the emptied list"));
    takePicture(stage, QStringLiteral("last-list"));
    stage.hand.rest();
    stage.hand.expectDialog("ProceedDialog", QString(), [](QWidget *dialog) {
        Hand::click(dialog, QStringLiteral("noPushButton"));
    });
    stage.hand.chooseMenu(QStringLiteral("actionLastList"), QString());
    stage.hand.checkAnswered();
    stage.narrator.checkEqual(table.rows(), rows, QStringLiteral("songs in the resumed list"));
}

} // namespace brisel
