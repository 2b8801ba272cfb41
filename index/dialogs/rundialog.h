#pragma once

#include "base/run.h"
#include "base/runguard.h"
#include "library/dialogs/desktopnotice.h"
#include "library/dialogs/paintpace.h"
#include "library/dialogs/timeleft.h"

#include <QDialog>

class QLineEdit;
class QProgressBar;

namespace brisel
{

/// A dialog that works on a memory while it is open: during the work it can't be closed, is
/// painted, and starts no other work.
class RunDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    /// The result of the last run; empty before the first.
    virtual const std::optional<RunReport> &report() const = 0;

    /// Closes the dialog, by Escape or "Chiudi", unless it is working.
    void reject() override;

    /// For tests: replace the clock and the desktop.
    void setClock(const TimeLeft::Clock &clock);
    void setDesktop(Desktop desktop) { m_desktop = std::move(desktop); }

    /// The text of messages when another program works on the memory.
    static QString inUseText();

protected:
    /// The run of the dialog: it paints the dialog and asks over it. The dialog is working during
    /// the lifetime of this. When it has taken more than thirty seconds and no window of the
    /// program is active at its end, the desktop shows the report's summary.
    class Work : public Run
    {
    public:
        explicit Work(RunDialog &dialog);
        ~Work() override;
        void pulse() override;

    protected:
        Answer answerOf(Question question, const QString &path, const QString &message) override;

    private:
        RunDialog &m_dialog;
        qint64 m_begun; ///< milliseconds of the clock; moved on by questions
    };

    /// Returns true if neither this dialog nor another part of the program is working on files.
    bool canStart() const { return !m_working && !RunGuard::isActive(); }
    /// Shows and paints a step of the work: at once when idle, at the pace of PaintPace during
    /// work. Does not process clicks and keys.
    void showStep();
    /// From now on each of the first steps is shown.
    void beginStage();
    /// Shows \a value in \a bar, with the time left after five seconds.
    void showProgress(QProgressBar &bar, int value);
    /// Copies the state of the work to the widgets. Not done for each step, because setting a label
    /// takes longer than a step.
    virtual void showState() = 0;
    /// The memory folder that was chosen last.
    static QString mediaRoot();
    static void setMediaRoot(const QString &folder);
    /// Offers the recent memories that are mounted while a path is typed into \a field.
    static void offerMemories(QLineEdit &field);

    void closeEvent(QCloseEvent *event) override;

private:
    void paint();

    bool m_working = false;
    PaintPace m_pace;
    TimeLeft::Clock m_clock = TimeLeft::steadyClock;
    TimeLeft m_timeLeft;
    Desktop m_desktop;
};

} // namespace brisel
