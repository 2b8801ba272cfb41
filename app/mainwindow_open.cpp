// The window's part in taking songs over: picked, dropped on it, or named when the program starts.

#include "app/mainwindow.h"

#include "app/songdrop.h"
#include "library/songpicker.h"

#include "ui_mainwindow.h"

#include <QMessageBox>

void MainWindow::importPickedFiles(const QStringList &files)
{
    m_fileList = files;
    m_ui->updateDataToolButton->setEnabled(false);
    m_ui->transferFilesToolButton->setEnabled(false);
    importUserLibrary();
    m_ui->transferFilesToolButton->setEnabled(true);
}

void MainWindow::openSongs(const QStringList &paths)
{
    if (!canStartRun())
        return;
    SongPicker picker(m_progress);
    {
        const LibraryRun run(*this);
        m_progress.begin(tr("Lettura file"), tr("Cerco i brani..."), 0);
        for (const QString &path : paths)
            picker.add(path);
        m_progress.end();
        if (m_progress.isCanceled())
            return;
    }
    if (picker.songs().isEmpty())
        QMessageBox::information(this, tr("Lettura file"), tr("Non è stato trovato nessun brano"));
    else
        importPickedFiles(picker.songs());
}

void MainWindow::takeDrops()
{
    constexpr int hintTime = 5000; // milliseconds
    auto *drop = new SongDrop(*this);
    connect(drop, &SongDrop::dropped, this, &MainWindow::openSongs);
    connect(drop, &SongDrop::refused, this, [this] {
        m_ui->statusBar->showMessage(tr("Attendere la fine dell'operazione in corso"), hintTime);
    });
}
