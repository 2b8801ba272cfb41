#pragma once

#include "app/mainwindow.h"
#include "library/dialogs/windowrun.h"

namespace brisel
{

/// A run that works on the rows of the main window: their order does not change during its
/// lifetime, and the status bar shows its report.
class MainWindow::LibraryRun : public WindowRun
{
public:
    /// The report continues \a before.
    LibraryRun(MainWindow &window, RunReport::Operation operation, RunReport before = {});
    ~LibraryRun() override;

    /// Shows the report of the run; if it is empty, the last report stays.
    void publish();

    void begin(const Stage &stage) override;
    void end() override;
    void showSpace(const QString &folder, qint64 bytes) override;
    void hideSpace() override;

private:
    void showReport();

    MainWindow &m_window;
    LibraryRun *m_outer; ///< null except for a run within a run
    const bool m_isImport;
    const RunReport m_before;
};

} // namespace brisel
