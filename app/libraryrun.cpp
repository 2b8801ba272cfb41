#include "app/libraryrun.h"

#include "app/songlistener.h"
#include "app/statusline.h"
#include "db/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <utility>

namespace brisel
{

MainWindow::LibraryRun::LibraryRun(MainWindow &window, RunReport::Operation operation,
                                   RunReport before)
    : WindowRun(&window, operation), m_window(window), m_outer(std::exchange(window.m_run, this)),
      m_isImport(operation == RunReport::Operation::Import), m_before(std::move(before))
{
    if (m_window.m_model != nullptr)
        m_window.m_model->setSortingLocked(true);
}

MainWindow::LibraryRun::~LibraryRun()
{
    if (m_window.m_model != nullptr)
        m_window.m_model->setSortingLocked(false);
    m_window.m_run = m_outer;
}

void MainWindow::LibraryRun::publish()
{
    if (!report().isUntouched())
        showReport();
}

void MainWindow::LibraryRun::begin(const Stage &stage)
{
    publish();
    if (m_window.m_listener != nullptr)
        m_window.m_listener->stop(); // the run may write the song
    WindowRun::begin(stage);
    // Laying the table out and painting it after each new song would take most of the time.
    if (m_isImport)
        m_window.m_ui->userLibraryTableView->setUpdatesEnabled(false);
}

void MainWindow::LibraryRun::end()
{
    m_window.m_ui->userLibraryTableView->setUpdatesEnabled(true);
    WindowRun::end();
    showReport();
}

void MainWindow::LibraryRun::showSpace(const QString &folder, qint64 bytes)
{
    m_window.m_statusLine->showSpace(folder, bytes);
}

void MainWindow::LibraryRun::hideSpace()
{
    m_window.m_statusLine->hideSpace();
}

void MainWindow::LibraryRun::showReport()
{
    RunReport shown = m_before;
    shown.append(report());
    m_window.m_statusLine->setReport(shown);
}

} // namespace brisel
