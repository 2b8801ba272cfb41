#include "library/dialogs/windowrun.h"

#include "library/dialogs/nocopyrightdialog.h"
#include "library/dialogs/progresslabel.h"

#include <QApplication>
#include <QProgressBar>
#include <QProgressDialog>
#include <QScopedValueRollback>

namespace brisel
{

static constexpr qint64 eventsInterval = 10; ///< milliseconds between two rounds of events
static constexpr int firstRounds = 16;       ///< of events, which are all processed
static constexpr int noticeDelay = 500;      ///< milliseconds in which another stage may begin
static constexpr int dialogWidth = 420; ///< pixels; the label changes without moving the dialog

WindowRun::WindowRun(QWidget *window, RunReport::Operation operation)
    : Run(operation), m_window(window)
{
    m_noticeDelay.setSingleShot(true);
    m_noticeDelay.setInterval(noticeDelay);
    QObject::connect(&m_noticeDelay, &QTimer::timeout, [this] { sendNotice(); });
}

WindowRun::~WindowRun()
{
    finishStage();
    if (m_noticeDelay.isActive())
        sendNotice();
}

void WindowRun::begin(const Stage &stage)
{
    finishStage();
    m_noticeDelay.stop();
    m_timeLeft.begin();
    m_isInterrupted = false;
    m_step = 0;
    m_pace.restart();
    m_eventCalls = 0;
    m_areStepsShown = stage.areStepsShown;
    m_dialog = std::make_unique<QProgressDialog>(m_window);
    m_label = new ProgressLabel(stage.label);
    m_bar = new QProgressBar;
    m_bar->setAccessibleName(stage.label);
    m_bar->setRange(0, stage.steps);
    m_bar->setValue(0);
    m_dialog->setLabel(m_label);
    m_dialog->setBar(m_bar);
    m_dialog->setCancelButtonText(tr("Interrompi"));
    m_dialog->setWindowTitle(stage.title);
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setMinimumWidth(dialogWidth);
    QObject::connect(m_dialog.get(), &QProgressDialog::canceled,
                     [this] { m_isInterrupted = true; });
    // Shown by hand: the dialog's own setValue() waits for four seconds, during which clicks would
    // reach the window, processes clicks by itself, and would open the dialog again after a cancel.
    m_dialog->show();
    paint();
}

void WindowRun::setSteps(int steps)
{
    if (m_dialog != nullptr)
        m_bar->setRange(0, steps);
}

void WindowRun::setStep(int done)
{
    m_step = done;
    // Laying the label out and painting it after each of ten thousand songs takes longer than
    // reading them.
    if (m_dialog == nullptr || (!m_pace.isStepDue() && done != m_bar->maximum()))
        return;
    if (m_areStepsShown)
        m_label->setText(tr("%1 di %2").arg(done).arg(m_bar->maximum()));
    m_bar->setValue(done);
    m_label->setSecondLine(m_timeLeft.text(done, m_bar->maximum()));
    pulse();
}

void WindowRun::pulse()
{
    if (m_dialog == nullptr || !m_pace.isDue())
        return;
    m_bar->setValue(m_step);
    paint();
}

void WindowRun::processEvents()
{
    ++m_eventCalls;
    if (m_eventCalls > firstRounds && m_sinceEvents.elapsed() < eventsInterval)
        return;
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

/// Clicks and keys since the last events are for the dialog: afterwards they would press a button
/// of the window. They come too late to interrupt.
void WindowRun::end()
{
    if (m_dialog != nullptr) {
        const QScopedValueRollback<bool> beforeEnd(m_isInterrupted);
        QCoreApplication::processEvents();
    }
    finishStage();
}

qint64 WindowRun::handOver()
{
    finishStage();
    m_noticeDelay.stop();
    return m_worked;
}

void WindowRun::finishStage()
{
    if (m_dialog == nullptr)
        return;
    // Afterwards the window may need a moment to become active.
    m_wasInFront = m_desktop.isInFront();
    m_dialog.reset();
    m_worked += m_timeLeft.worked();
    if (m_worked > DesktopNotice::longRun)
        m_noticeDelay.start();
}

void WindowRun::sendNotice()
{
    if (!m_wasInFront && !m_desktop.isInFront() && !isEnding())
        m_desktop.send(DesktopNotice::of(report()));
    m_noticeDelay.stop();
    m_worked = 0;
}

Run::Answer WindowRun::answerOf(Question question, const QString &path, const QString &message)
{
    const bool isReplacing = question == Question::Replace && message.isEmpty();
    // What another program wrote must not be lost by a key too many.
    const bool isRestoring =
        question == Question::RestoreChanged || question == Question::ReplaceForGood;
    const Answer whenClosed = isRestoring ? Answer::No : Answer::Yes;
    m_timeLeft.pause();
    const Answer answer = NoCopyrightDialog::ask(
        m_window, path, isReplacing ? tr("esiste già, vuoi sostituirlo?") : message, whenClosed);
    m_timeLeft.resume();
    return answer;
}

void WindowRun::paint()
{
    m_pace.paint([] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
}

} // namespace brisel
