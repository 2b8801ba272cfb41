// The window's part in operations on the chosen rows: editing, removing, deleting and restoring.

#include "app/libraryrun.h"
#include "app/mnemonics.h"
#include "app/rowselection.h"
#include "app/songlistener.h"
#include "app/statusline.h"
#include "base/debugstream.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/dialogs/dataeditdialog.h"
#include "library/dialogs/plainmessage.h"
#include "library/dialogs/reportdialog.h"
#include "library/foundsong.h"
#include "library/manualedit.h"
#include "library/songactions.h"
#include "library/songdeletion.h"

#include "ui_mainwindow.h"

#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace brisel
{

void MainWindow::onSongsTableViewDoubleClicked(const QModelIndex &index)
{
    if (canStartRun() && m_model->isSong(index.row()))
        editSong(index.row());
}

void MainWindow::edit(const QList<int> &rows)
{
    if (rows.size() == 1)
        editSong(rows.constFirst());
    else
        editSongs(rows);
}

/// As editSong() for several songs, each of which is read when it is its turn.
void MainWindow::editSongs(const QList<int> &rows)
{
    LibraryRun run(*this, RunReport::Operation::Edit);
    DataEditDialog &dialog = editDialog();
    dialog.setKeysCombo(MetaSong::getKeysList());
    dialog.setSeveral(SharedSongs::of(*m_model, rows));
    if (dialog.exec() != DataEditDialog::Accepted || dialog.getSeveral().isEmpty())
        return;
    m_listener->stop();
    ManualEdit edit(*m_model, rows, dialog.getSeveral());
    HistoryRecorder recorder(m_history, RunKind::Edit);
    edit.setRecorder(&recorder);
    static_cast<void>(edit.run(run)); // an interrupted edit shows its report, too
    run.publish();
    if (run.report().failed() > 0 && !Run::isEnding())
        ReportDialog(run.report(), this).exec();
}

void MainWindow::editSong(int row)
{
    const LibraryRun walk(*this, RunReport::Operation::Edit); // the rows keep their order meanwhile
    int step = 0;
    do {
        step = editAndGo(row, step);
        row = nextSong(row, step);
    } while (step != 0 && row >= 0 && !Run::isEnding());
}

/// Returns the number of the next shown song after \a row, or before it if \a step is -1; -1 at the
/// end of the list.
int MainWindow::nextSong(int row, int step) const
{
    const int next = step == 0 ? -1 : nextShownRow(*m_ui->userLibraryTableView, row, step);
    return m_model->isSong(next) ? next : -1;
}

/// Edits the song in \a row, to which the user came by \a step. Returns the step by which the user
/// goes on: 1, -1, or 0 for not at all. A song that does not open is passed over; one that can't be
/// saved stays in the dialog with what was typed, as long as the user wants to save it.
int MainWindow::editAndGo(int row, int step)
{
    LibraryRun run(*this, RunReport::Operation::Edit);
    std::optional<SongFile> file = ManualEdit::open(run, *m_model, row);
    if (!file.has_value()) {
        run.publish();
        return step;
    }
    if (step != 0)
        chooseRow(*m_ui->userLibraryTableView, row);
    DataEditDialog &dialog = editDialog();
    dialog.setKeysCombo(MetaSong::getKeysList());
    const int songs = m_model->goodRowCount();
    dialog.setListSize(songs, hiddenRowCount(*m_ui->userLibraryTableView, songs));
    dialog.setNeighbours(nextSong(row, -1) >= 0, nextSong(row, 1) >= 0);
    dialog.setMarkersWritable(file->song.canSetMarkers());
    dialog.setOtherInfo(file->info);
    for (;;) {
        const int answer = dialog.exec();
        const int next = answer == DataEditDialog::Next       ? 1
                         : answer == DataEditDialog::Previous ? -1
                                                              : 0;
        const bool isWanted =
            next != 0 ? dialog.isSaveWanted() : answer == DataEditDialog::Accepted;
        debug() << (isWanted ? "Accepted" : "Rejected!");
        if (isWanted)
            dialog.getInfo(file->info);
        file->info.dbgDump();
        if (!isWanted || saveEdited(*file, row))
            return next;
        if (std::optional<SongFile> again = ManualEdit::open(run, *m_model, row)) {
            file = std::move(again);
            dialog.setMarkersWritable(file->song.canSetMarkers());
            dialog.setOtherInfoAgain(file->info);
        }
    }
}

/// Saves what the dialog has accepted for the song in \a row. Returns false if this fails, after a
/// message.
bool MainWindow::saveEdited(const SongFile &file, int row)
{
    LibraryRun run(*this, RunReport::Operation::Edit);
    const DataEditDialog &dialog = *m_editDialog;
    m_listener->stop();
    const ManualEdit::Spread spread{dialog.isApplyToAllAuthor(), dialog.isApplyToAllArtist(),
                                    dialog.isApplyToAllGenre(), dialog.isApplyToAllFname()};
    ManualEdit edit(*m_model, file.song, file.info, file.path, row, spread);
    if (const auto markers = dialog.changedMarkers(); markers.has_value())
        edit.setMarkers(*markers);
    HistoryRecorder recorder(m_history, spread.any() ? RunKind::ApplyToAll : RunKind::Edit);
    edit.setRecorder(&recorder);
    static_cast<void>(edit.run(run)); // an interrupted edit shows its report, too
    run.publish();
    centreRow(row);
    const auto &whyNot = edit.whyNotSaved();
    if (!whyNot.has_value() || Run::isEnding())
        return true;
    showUnsaved(file.path, *whyNot);
    return Run::isEnding();
}

void MainWindow::showUnsaved(const QString &path, Reason reason)
{
    QMessageBox box(QMessageBox::Critical, tr("Modifica dati song"),
                    tr("La song non è stata salvata: %1").arg(reason.text()), QMessageBox::Ok,
                    this);
    setPlainTexts(box, path);
    box.exec();
}

/// Has the catalogue's lists. Made on first use, so that the window opens sooner.
DataEditDialog &MainWindow::editDialog()
{
    if (m_editDialog == nullptr)
        m_editDialog = std::make_unique<DataEditDialog>(this);
    m_editDialog->setArtistsCombo(*m_database.artistsList());
    m_editDialog->setGenresCombo(*m_database.genresList());
    return *m_editDialog;
}

void MainWindow::manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row)
{
    if (m_model == nullptr)
        return;
    m_listener->stop();
    LibraryRun run(*this, RunReport::Operation::Edit);
    ManualEdit edit(*m_model, std::move(song), info, path, row, {});
    HistoryRecorder recorder(m_history, RunKind::Edit);
    edit.setRecorder(&recorder);
    static_cast<void>(edit.run(run));
    run.publish();
}

/// A view scrolls to no cell of a hidden column, such as the row's first one; and only the height
/// is to change.
void MainWindow::centreRow(int row)
{
    QTableView *view = m_ui->userLibraryTableView;
    const int left = view->horizontalScrollBar()->value();
    const QModelIndex index = m_model->rowIndex(row);
    int column = index.column();
    while (view->isColumnHidden(column) && column + 1 < m_model->columnCount())
        ++column;
    view->scrollTo(index.siblingAtColumn(column), QAbstractItemView::PositionAtCenter);
    view->horizontalScrollBar()->setValue(left);
}

/// The songs on which a key works.
QList<int> MainWindow::chosenSongs() const
{
    return songsAmong(chosenRows(*m_ui->userLibraryTableView));
}

/// Without the rows of files that could not be read, which are the last ones. \a rows are in
/// ascending order.
QList<int> MainWindow::songsAmong(QList<int> rows) const
{
    rows.erase(std::lower_bound(rows.begin(), rows.end(), m_model->goodRowCount()), rows.end());
    return rows;
}

void MainWindow::onSongsTableViewShowContextMenu(const QPoint &pos)
{
    if (!canStartRun())
        return;
    QTableView *view = m_ui->userLibraryTableView;
    const QModelIndex index = view->indexAt(pos);
    showRowMenu(index.isValid() ? songsAmong(rowsOfMenu(*view, index.row())) : QList<int>(),
                view->viewport()->mapToGlobal(pos));
}

/// The menu key: the position that the toolkit gives with it may be on another row.
void MainWindow::showMenuOfChosenRows()
{
    if (!canStartRun())
        return;
    const QTableView *view = m_ui->userLibraryTableView;
    const QList<int> rows = chosenSongs();
    showRowMenu(rows, view->viewport()->mapToGlobal(menuPlace(*view, rows)));
}

void MainWindow::showRowMenu(const QList<int> &rows, const QPoint &place)
{
    const LibraryRun run(*this, RunReport::Operation::Edit);
    QMenu menu(this);
    menu.addActions(
        {m_ui->actionRemoveRow, m_ui->actionDeleteFile, m_ui->actionRestore, m_ui->actionEditSong});
    menu.setToolTipsVisible(true);
    addMnemonics(menu);
    for (QAction *action : menu.actions())
        action->setEnabled(!rows.isEmpty());
    m_ui->actionRestore->setEnabled(mayRestore(rows));
    const QAction *chosen = menu.exec(place);
    updateActions();
    if (chosen == nullptr || rows.isEmpty())
        return;
    if (chosen == m_ui->actionRemoveRow)
        removeSongs(rows);
    else if (chosen == m_ui->actionDeleteFile)
        deleteSongs(rows);
    else if (chosen == m_ui->actionRestore)
        restoreSongs(rows);
    else
        edit(rows);
}

/// Called by their keys. From the context menu, which is a run, the actions work on the rows of the
/// menu.
void MainWindow::on_actionRemoveRow_triggered()
{
    if (!canStartRun())
        return;
    if (const QList<int> rows = chosenSongs(); !rows.isEmpty())
        removeSongs(rows);
}

void MainWindow::on_actionDeleteFile_triggered()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this, RunReport::Operation::Edit); // the rows keep their order meanwhile
    if (const QList<int> rows = chosenSongs(); !rows.isEmpty())
        deleteSongs(rows);
}

void MainWindow::on_actionEditSong_triggered()
{
    if (!canStartRun())
        return;
    if (const QList<int> rows = chosenSongs(); !rows.isEmpty())
        edit(rows);
}

void MainWindow::on_actionRestore_triggered()
{
    if (!canStartRun())
        return;
    const LibraryRun run(*this, RunReport::Operation::Edit);
    if (const QList<int> rows = chosenSongs(); !rows.isEmpty())
        restoreSongs(rows);
}

/// The files are kept, but no longer sent or backed up.
void MainWindow::removeSongs(const QList<int> &rows)
{
    QStringList files;
    for (const int row : rows)
        files.append(m_model->fileName(row));
    const int next = rowChosenAfterRemoval(*m_ui->userLibraryTableView, rows);
    const int before = m_model->goodRowCount();
    const bool isDone = m_model->removeEach(rows);
    QHash<QString, int> paths; // a file may be in the list twice
    for (const QString &file : files.first(before - m_model->goodRowCount()))
        ++paths[file];
    m_fileList.removeIf([&paths](const QString &path) {
        const auto removed = paths.find(path);
        return removed != paths.end() && (*removed)-- > 0;
    });
    if (isDone)
        chooseRow(*m_ui->userLibraryTableView, next);
    if (m_fileList.isEmpty())
        m_phase = Phase::NoFiles;
    updateActions();
}

void MainWindow::deleteSongs(const QList<int> &rows)
{
    if (rows.size() == 1)
        askDeleteFile(rows.constFirst());
    else
        askDeleteFiles(rows);
}

void MainWindow::askDeleteFile(int row)
{
    QMessageBox box(QMessageBox::Question, tr("Attenzione"),
                    tr("Sei sicuro di voler cancellare il file?"),
                    QMessageBox::Yes | QMessageBox::No, this);
    setPlainTexts(box, m_model->shortName(row));
    box.setDefaultButton(QMessageBox::No);
    if (box.exec() != QMessageBox::Yes)
        return;
    m_listener->stop();
    deleteSongFile(
        m_model->fileName(row)); // a file that can't be deleted is still removed from the list
    removeSongs({row});
}

/// Unlike one file, a file that can't be deleted stays in the list: the user may not notice the
/// report about it.
void MainWindow::askDeleteFiles(const QList<int> &rows)
{
    constexpr qsizetype mostNames = 10;
    QStringList names;
    for (const int row : rows.first(std::min(rows.size(), mostNames)))
        names.append(m_model->shortName(row));
    if (rows.size() > mostNames)
        names.append(tr("e altri %1").arg(rows.size() - mostNames));
    QMessageBox box(QMessageBox::Question, tr("Attenzione"),
                    tr("Sei sicuro di voler cancellare questi %1 file?").arg(rows.size()),
                    QMessageBox::Yes | QMessageBox::No, this);
    setPlainTexts(box, names.join(u'\n'));
    box.setDefaultButton(QMessageBox::No);
    if (box.exec() != QMessageBox::Yes)
        return;
    LibraryRun run(*this, RunReport::Operation::Deletion);
    SongDeletion deletion(*m_model, rows);
    static_cast<void>(deletion.run(run)); // an interrupted one shows its report, too
    if (!deletion.deleted().isEmpty())
        removeSongs(deletion.deleted());
}

/// Whether the history may have changes of these songs. It is not asked about each of many.
bool MainWindow::mayRestore(const QList<int> &rows)
{
    if (rows.size() == 1)
        return changeToRestore(m_model->fileName(rows.constFirst()), m_history).has_value();
    return !rows.isEmpty() && !m_history.runs().isEmpty();
}

void MainWindow::restoreSongs(const QList<int> &rows)
{
    QList<HistorySong> changes;
    qint64 searched = 0;
    {
        WindowRun run(this,
                      RunReport::Operation::Restore); // reports nothing: the last report stays
        const int count = static_cast<int>(rows.size());
        run.begin({tr("Ripristino"), tr("Cerco le modifiche..."), count});
        for (int i = 0; i < count; ++i) {
            run.processEvents();
            if (!run.mayGoOn())
                return;
            if (const auto last = changeToRestore(m_model->fileName(rows.at(i)), m_history))
                changes.append(*last);
            run.setStep(i + 1);
        }
        run.end();
        searched = run.handOver();
    }
    if (changes.isEmpty())
        QMessageBox::information(this, tr("Ripristino"),
                                 tr("Per le song scelte non c'è nulla da ripristinare"));
    else
        restore(changes, searched);
}

} // namespace brisel
