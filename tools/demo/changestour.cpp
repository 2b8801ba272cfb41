#include "tools/demo/changestour.h"

#include "tools/demo/librarytable.h"

#include <QAbstractItemView>
#include <QDir>
#include <QTableView>
#include <QTableWidget>
#include <QTreeView>

namespace brisel
{

namespace
{

int rowsOf(const QAbstractItemView *view)
{
    return view != nullptr ? view->model()->rowCount() : 0;
}

/// Restores the newest operation of the history, of which there must be \a operations.
void restoreNewest(Stage &stage, int operations, const QString &picture)
{
    stage.hand.rest();
    stage.hand.expectDialog(
        "HistoryDialog", picture, [&narrator = stage.narrator, operations](QWidget *dialog) {
            auto *tree = dialog->findChild<QTreeView *>();
            narrator.checkEqual(rowsOf(tree), operations, QStringLiteral("operations"));
            Hand::click(dialog, QStringLiteral("restorePushButton"));
        });
    stage.hand.chooseMenu(QStringLiteral("actionHistory"), QString());
    stage.hand.checkAnswered();
}

void checkContents(Stage &stage, const SongContents &expected, const QString &what)
{
    const SongContents found = songContents(stage);
    int same = 0;
    for (const DemoSong &song : stage.songs)
        same += found.value(song.path) == expected.value(song.path) ? 1 : 0;
    stage.narrator.checkEqual(same, stage.songs.size(), what);
}

/// Shows the songs that were not found, searches for the first and cancels both.
void lookAround(Stage &stage, QWidget *dialog)
{
    Narrator &narrator = stage.narrator;
    const auto *table = dialog->findChild<QTableView *>();
    const int all = rowsOf(table);
    narrator.check(all > 0, QStringLiteral("%1 rows, of a song and a field each").arg(all));
    Hand::choose(dialog, QStringLiteral("filterComboBox"), 2);
    const int missing = rowsOf(table);
    narrator.check(missing > 0 && missing < all,
                   QStringLiteral("%1 songs were not found").arg(missing));
    Hand::click(dialog, QStringLiteral("searchPushButton"));
}

} // namespace

SongContents songContents(const Stage &stage)
{
    SongContents contents;
    for (const DemoSong &song : stage.songs)
        contents.insert(song.path, fileBytes(song.path));
    return contents;
}

void previewChanges(Stage &stage)
{
    Narrator &narrator = stage.narrator;
    narrator.step(QStringLiteral("See what a synchronisation would change"));
    const SongContents before = songContents(stage);
    stage.hand.rest();
    stage.hand.expectDialog("PreviewDialog", QStringLiteral("preview"),
                            [&stage](QWidget *dialog) { lookAround(stage, dialog); });
    stage.hand.expectDialog(
        "CatalogueSearchDialog", QStringLiteral("preview-search"), [&narrator](QWidget *dialog) {
            Hand::type(dialog, QStringLiteral("searchLineEdit"), QStringLiteral("santa lucia"));
            const auto *results = dialog->findChild<QTableWidget *>();
            narrator.check(rowsOf(results) > 0,
                           QStringLiteral("%1 songs with these words").arg(rowsOf(results)));
            Hand::click(dialog, QStringLiteral("cancelPushButton"));
        });
    stage.hand.expectDialog(
        "PreviewDialog", QStringLiteral("preview-not-found"),
        [](QWidget *dialog) { Hand::click(dialog, QStringLiteral("cancelPushButton")); });
    stage.hand.chooseMenu(QStringLiteral("actionPreview"), QStringLiteral("preview-menu"));
    stage.hand.checkAnswered();
    checkContents(stage, before, QStringLiteral("songs as they were"));
}

void takeChangesBack(Stage &stage, const SongContents &before)
{
    stage.narrator.step(QStringLiteral("Take the last change back, and that back, too"));
    const SongContents after = songContents(stage);
    restoreNewest(stage, 2, QStringLiteral("history"));
    checkContents(stage, before, QStringLiteral("songs as before the change"));
    stage.narrator.takePicture(&stage.window, QStringLiteral("restored"));
    restoreNewest(stage, 3, QStringLiteral("history-restored"));
    checkContents(stage, after, QStringLiteral("songs as after the change"));
}

void restoreBackup(Stage &stage)
{
    stage.narrator.step(QStringLiteral("Restore the backup, and take that back"));
    const SongContents after = songContents(stage);
    SongContents original;
    for (const DemoSong &song : stage.songs)
        original.insert(song.path, song.original);
    const QDir backups(stage.home.backups());
    const QStringList folders = backups.entryList({QStringLiteral("backup_kordia_*")}, QDir::Dirs);
    stage.hand.rest();
    stage.hand.expectFiles({backups.filePath(folders.value(0))}, QString());
    stage.hand.expectDialog("BackupRestoreDialog", QStringLiteral("backup-restore"),
                            [&stage](QWidget *dialog) {
                                const int copies = rowsOf(dialog->findChild<QTreeView *>());
                                stage.narrator.check(copies >= stage.songs.size(),
                                                     QStringLiteral("%1 copies").arg(copies));
                                Hand::click(dialog, QStringLiteral("restorePushButton"));
                            });
    stage.hand.chooseMenu(QStringLiteral("actionRestoreBackup"), QString());
    stage.hand.checkAnswered();
    checkContents(stage, original, QStringLiteral("songs as before the synchronisation"));
    restoreNewest(stage, 5, QString());
    checkContents(stage, after, QStringLiteral("songs as before the restoring"));
}

} // namespace brisel
