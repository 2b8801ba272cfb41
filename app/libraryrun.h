#pragma once

#include "app/mainwindow.h"
#include "library/dialogs/windowrun.h"

namespace brisel
{

/// A run that works on the rows of the main window: they keep their places while it lives, and the
/// status bar shows what its stages report.
class MainWindow::LibraryRun : public WindowRun
{
public:
    /// The report goes on from \a before.
    LibraryRun(MainWindow &window, RunReport::Operation operation, RunReport before = {});
    ~LibraryRun() override;

    /// Shows what the run has reported, unless that is nothing: then the last report stays.
    void publish();

    void begin(const Stage &stage) override;
    void end() override;
    void showSpace(const QString &folder, qint64 bytes) override;
    void hideSpace() override;

private:
    void showReport();

    MainWindow &m_window;
    LibraryRun *m_outer; ///< null but for a run within a run
    const bool m_isImport;
    const RunReport m_before;
};

} // namespace brisel
