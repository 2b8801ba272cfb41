#pragma once

#include "base/run.h"
#include "library/dialogs/paintpace.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>

#include <memory>

class QLabel;
class QProgressBar;
class QProgressDialog;
class QWidget;

namespace brisel
{

/// A run that a window shows: each stage in a progress dialog, each question in a dialog of its
/// own.
///
/// The window is blocked from the first moment of a stage. A press on "Interrompi" (Escape and the
/// dialog's close button count as one) closes the dialog for good and is remembered until the next
/// begin().
class WindowRun : public Run
{
    Q_DECLARE_TR_FUNCTIONS(WindowRun)

public:
    /// \a window is blocked while a dialog is open.
    WindowRun(QWidget *window, RunReport::Operation operation);
    ~WindowRun() override;

    /// Opens a dialog in place of an open one; a stage without steps has a busy bar.
    void begin(const Stage &stage) override;
    void setSteps(int steps) override;
    /// The first steps and the last one are shown each, the others at the pace of PaintPace.
    void setStep(int done) override;
    /// Paints the dialog if that was not done for a while.
    void pulse() override;
    /// Processes events at each of the first calls of a stage, then a hundred times a second at
    /// most.
    void processEvents() override;
    /// Closes the dialog. An interruption stays remembered.
    void end() override;

protected:
    bool isInterrupted() const override { return m_isInterrupted; }
    Answer answerOf(Question question, const QString &path, const QString &message) override;

private:
    void paint();

    QWidget *m_window;
    std::unique_ptr<QProgressDialog> m_dialog;
    QPointer<QLabel> m_label;
    QPointer<QProgressBar> m_bar;
    PaintPace m_pace;
    QElapsedTimer m_sinceEvents;
    int m_step = 0;       ///< where the bar is to stand when it is painted next
    int m_eventCalls = 0; ///< of this stage, followed or not
    bool m_areStepsShown = false;
    bool m_isInterrupted = false;
};

} // namespace brisel
