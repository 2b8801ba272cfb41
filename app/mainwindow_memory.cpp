// The window's part in showing a memory.

#include "app/mainwindow.h"
#include "memory/dialogs/memorywindow.h"

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
    }
    m_memoryWindow->setWindowState(m_memoryWindow->windowState() & ~Qt::WindowMinimized);
    m_memoryWindow->show();
    m_memoryWindow->raise();
    m_memoryWindow->activateWindow();
}

} // namespace brisel
