// The window's part in making the list of songs: picking, dropping and adding files, and the last
// list.

#include "app/libraryrun.h"
#include "app/recentfoldersmenu.h"
#include "app/songdrop.h"
#include "base/lastfolder.h"
#include "db/usersongsreltablemodel.h"
#include "library/libraryimport.h"
#include "library/songpicker.h"

#include "ui_mainwindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace brisel
{

using Operation = RunReport::Operation;

static constexpr int hintTime = 5000; ///< milliseconds

void MainWindow::on_selectDirToolButton_clicked()
{
    if (!canStartRun())
        return;
    const QStringList files = chooseSongFiles();
    if (files.isEmpty())
        return;
    keepRecent(Settings::recentFolders, QFileInfo(files.constFirst()).absolutePath());
    importPickedFiles(files);
}

/// Empty if the user cancelled.
QStringList MainWindow::chooseSongFiles()
{
    QStringList files =
        QFileDialog::getOpenFileNames(this, tr("Seleziona i file da importare"),
                                      startFolder(Settings::songsFolder, QStringLiteral("/")),
                                      QStringLiteral("Songs (%1)").arg(songNamePatterns()));
    if (!files.isEmpty())
        keepFolder(Settings::songsFolder, QFileInfo(files.constFirst()).absolutePath());
    return files;
}

void MainWindow::on_actionAddSongs_triggered()
{
    if (!canStartRun())
        return;
    if (const QStringList files = chooseSongFiles(); !files.isEmpty())
        addSongs(files);
}

void MainWindow::on_actionAddFolder_triggered()
{
    if (!canStartRun())
        return;
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Scegli cartella"), startFolder(Settings::songsFolder, QStringLiteral("/")));
    if (folder.isEmpty())
        return;
    keepFolder(Settings::songsFolder, folder);
    addSongs({folder});
}

/// The list of files may have some that could not be read.
bool MainWindow::isTableEmpty() const
{
    return m_model != nullptr && m_model->goodRowCount() == 0;
}

void MainWindow::on_actionLastList_triggered()
{
    if (!canStartRun() || !isTableEmpty())
        return;
    const QStringList songs = m_lastList.songs();
    if (songs.isEmpty())
        QMessageBox::warning(this, tr("Riprendi l'ultima lista"),
                             tr("L'ultima lista non si può leggere"));
    else
        importPickedFiles(songs);
}

void MainWindow::openSongs(const QStringList &paths)
{
    if (!canStartRun())
        return;
    SongPicker picker(paths);
    if (const auto searched = pickSongs(picker, paths); searched.has_value())
        importPickedFiles(picker.songs(), *searched);
}

void MainWindow::addSongs(const QStringList &paths)
{
    if (!canStartRun())
        return;
    // Not m_fileList: files that could not be read may be readable now.
    QStringList listed;
    for (int row = 0; row < m_model->goodRowCount(); ++row)
        listed.append(m_model->fileName(row));
    SongPicker picker(paths, listed);
    const auto searched = pickSongs(picker, paths);
    if (!searched.has_value())
        return;
    if (m_fileList.isEmpty())
        importPickedFiles(picker.songs(), *searched);
    else
        addPickedFiles(picker.songs(), *searched);
    if (picker.listedCount() > 0 && !Run::isEnding())
        m_ui->statusBar->showMessage(tr("Già nella lista: %1").arg(picker.listedCount()), hintTime);
}

/// If \a picker has found songs, returns how many milliseconds that took. Otherwise the user was
/// informed, or has cancelled.
std::optional<qint64> MainWindow::pickSongs(SongPicker &picker, const QStringList &paths)
{
    SongPicker::Outcome outcome = SongPicker::Outcome::Interrupted;
    qint64 searched = 0;
    {
        WindowRun run(this, Operation::Import); // reports nothing: the last report stays
        outcome = picker.run(run);
        searched = run.handOver();
    }
    if (outcome == SongPicker::Outcome::NoSongs)
        QMessageBox::information(this, tr("Lettura file"), tr("Non è stato trovato nessun brano"));
    else if (outcome == SongPicker::Outcome::NoNewSongs)
        QMessageBox::information(this, tr("Lettura file"),
                                 tr("I brani scelti sono già nella lista"));
    if (outcome != SongPicker::Outcome::Done)
        return std::nullopt;
    const QFileInfo first(paths.constFirst());
    keepRecent(Settings::recentFolders,
               first.isDir() ? first.absoluteFilePath() : first.absolutePath());
    return searched;
}

void MainWindow::takeDrops()
{
    auto *drop = new SongDrop(*this);
    connect(drop, &SongDrop::dropped, this, &MainWindow::openSongs);
    connect(drop, &SongDrop::droppedToAdd, this, &MainWindow::addSongs);
    connect(drop, &SongDrop::refused, this, [this] {
        m_ui->statusBar->showMessage(tr("Attendere la fine dell'operazione in corso"), hintTime);
    });
    connect(drop, &SongDrop::hovered, this, [this](bool adds) {
        if (!m_fileList.isEmpty())
            m_ui->statusBar->showMessage(
                adds ? tr("Rilascia per aggiungere alla lista")
                     : tr("Rilascia per sostituire la lista; con Ctrl aggiungi"));
    });
    connect(drop, &SongDrop::ended, m_ui->statusBar, &QStatusBar::clearMessage);
}

void MainWindow::offerFolders()
{
    const auto *folders = new RecentFoldersMenu(*m_ui->menuRecentFolders);
    connect(folders, &RecentFoldersMenu::chosen, this,
            [this](const QString &folder) { addSongs({folder}); });
}

/// After a search that took \a searched milliseconds, as the next one.
void MainWindow::importPickedFiles(const QStringList &files, qint64 searched)
{
    m_fileList = files;
    m_lastList.keep(m_fileList);
    setPhase(Phase::Working);
    importAfter(searched);
    if (m_phase == Phase::Working)
        setPhase(Phase::Sendable);
}

void MainWindow::addPickedFiles(const QStringList &files, qint64 searched)
{
    const QSet<QString> added(files.cbegin(), files.cend());
    m_fileList.removeIf([&added](const QString &path) { return added.contains(path); });
    m_model->removeUnreadable(added);
    m_fileList.append(files);
    m_lastList.keep(m_fileList);
    setPhase(Phase::Working);
    LibraryImport import(m_database, *m_model, files, LibraryImport::Mode::Add);
    {
        LibraryRun run(*this, Operation::Import);
        run.continueAfter(searched);
        static_cast<void>(import.run(run)); // it ends early only with the program
    }
    adjustUserLibraryHeaders();
    setPhase(Phase::Imported);
}

} // namespace brisel
