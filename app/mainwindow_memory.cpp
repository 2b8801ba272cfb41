// The window's part in showing a memory.

#include "app/libraryrun.h"
#include "app/mainwindow.h"
#include "index/recentmemories.h"
#include "memory/dialogs/memorywindow.h"

#include <QMessageBox>

namespace brisel
{

/// There is one window of the memory at a time.
void MainWindow::on_actionMemory_triggered()
{
    if (RunGuard::isActive())
        return;
    if (m_memoryWindow == nullptr) {
        m_memoryWindow = new MemoryWindow(this);
        m_memoryWindow->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_memoryWindow, &MemoryWindow::transferWanted, this, &MainWindow::sendSongs);
        m_memoryWindow->setTransfer([this](const QString &root, const QStringList &files) {
            return sendToMemory(root, files);
        });
    }
    m_memoryWindow->setWindowState(m_memoryWindow->windowState() & ~Qt::WindowMinimized);
    m_memoryWindow->show();
    m_memoryWindow->raise();
    m_memoryWindow->activateWindow();
}

/// The window of the memory asks for the songs of the table.
void MainWindow::sendSongs(const QString &root)
{
    if (m_fileList.isEmpty())
        QMessageBox::information(m_memoryWindow, tr("Trasferimento"),
                                 tr("Non ci sono song da trasferire"));
    else
        (void)transferByPlan(root); // the user knows what failed
    if (m_memoryWindow == nullptr)
        return;
    m_memoryWindow->readAgain();
    m_memoryWindow->raise();
    m_memoryWindow->activateWindow();
}

QStringList MainWindow::sendToMemory(const QString &root, const QStringList &files)
{
    if (!canStartRun())
        return {};
    const Phase phase = m_phase; // the songs of the table stay as they are
    LibraryRun run(*this, RunReport::Operation::Transfer);
    keepMemory(root);
    Transfer transfer(files, root);
    (void)send(run, transfer, root); // the user knows what failed
    setPhase(phase);
    return transfer.placesThere(run);
}

} // namespace brisel
