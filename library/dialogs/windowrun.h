#pragma once

#include "base/run.h"
#include "library/dialogs/desktopnotice.h"
#include "library/dialogs/paintpace.h"
#include "library/dialogs/timeleft.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <memory>

class QProgressBar;
class QProgressDialog;
class QWidget;

namespace brisel
{

class ProgressLabel;

/// A run that a window shows: each stage in a progress dialog, each question in a separate dialog.
///
/// The window is blocked from the start of a stage. A press on "Interrompi" (or Escape, or the
/// dialog's close button) closes the dialog permanently and is stored until the next begin().
///
/// After five seconds the dialog also shows the time left. When the stages have taken more than
/// thirty seconds and no window of the program is active at their end, the desktop shows the
/// report's summary.
class WindowRun : public Run
{
    Q_DECLARE_TR_FUNCTIONS(WindowRun)

public:
    /// \a window is blocked while a dialog is open.
    WindowRun(QWidget *window, RunReport::Operation operation);
    ~WindowRun() override;

    /// For tests: replace the clock, before the first stage, and the desktop.
    void setClock(TimeLeft::Clock clock) { m_timeLeft = TimeLeft(std::move(clock)); }
    void setDesktop(Desktop desktop) { m_desktop = std::move(desktop); }

    /// Ends the run without a notice: another one continues it. Returns how many milliseconds its
    /// stages took, for continueAfter().
    [[nodiscard]] qint64 handOver();
    /// The notice counts \a worked milliseconds of a run before this one, too.
    void continueAfter(qint64 worked) { m_worked = worked; }

    /// Opens a dialog in place of an open one; a stage without steps has a busy bar.
    void begin(const Stage &stage) override;
    void setSteps(int steps) override;
    /// Each of the first steps and the last one are shown, the others at the pace of PaintPace.
    void setStep(int done) override;
    /// Paints the dialog if that is due.
    void pulse() override;
    /// Processes events at each of the first calls of a stage, then a hundred times a second at
    /// most.
    void processEvents() override;
    /// Processes all events and closes the dialog. An interruption before that stays stored.
    void end() override;

protected:
    bool isInterrupted() const override { return m_isInterrupted; }
    Answer answerOf(Question question, const QString &path, const QString &message) override;

private:
    void paint();
    void finishStage();
    void sendNotice();

    QWidget *m_window;
    std::unique_ptr<QProgressDialog> m_dialog;
    QPointer<ProgressLabel> m_label;
    QPointer<QProgressBar> m_bar;
    PaintPace m_pace;
    TimeLeft m_timeLeft;
    qint64 m_worked = 0;       ///< milliseconds of the finished stages, since a notice was sent
    bool m_wasInFront = false; ///< at the end of the last stage
    QTimer m_noticeDelay;      ///< active until the notice is sent, or another stage begins
    Desktop m_desktop;
    QElapsedTimer m_sinceEvents;
    int m_step = 0;       ///< the value of the bar at the next painting
    int m_eventCalls = 0; ///< of this stage, followed or not
    bool m_areStepsShown = false;
    bool m_isInterrupted = false;
};

} // namespace brisel
