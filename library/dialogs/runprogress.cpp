#include "library/dialogs/runprogress.h"

#include "base/runguard.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>

static constexpr qint64 showInterval = 50;   ///< milliseconds between two looks at the advance
static constexpr qint64 breathInterval = 10; ///< milliseconds between two rounds of events
static constexpr int firstSteps = 16;        ///< each of them is shown: short runs are seen whole
static constexpr int dialogWidth = 420; ///< pixels; the label changes without moving the dialog

RunProgress::RunProgress(QWidget *window) : m_window(window) {}

RunProgress::~RunProgress() = default;

void RunProgress::begin(const QString &title, const QString &label, int maximum)
{
    end();
    m_canceled = false;
    m_value = 0;
    m_steps = 0;
    m_breaths = 0;
    m_dialog = std::make_unique<QProgressDialog>(m_window);
    m_label = new QLabel(label);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAlignment(Qt::AlignCenter);
    m_bar = new QProgressBar;
    m_bar->setAccessibleName(label);
    m_bar->setRange(0, maximum);
    m_bar->setValue(0);
    m_dialog->setLabel(m_label);
    m_dialog->setBar(m_bar);
    m_dialog->setCancelButtonText(tr("Interrompi"));
    m_dialog->setWindowTitle(title);
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setMinimumWidth(dialogWidth);
    connect(m_dialog.get(), &QProgressDialog::canceled, this, &RunProgress::cancel);
    // Shown by hand: the dialog's own setValue() waits for four seconds, during which clicks would
    // reach the window, processes clicks by itself, and would open the dialog again after a cancel.
    m_dialog->show();
    paint();
}

void RunProgress::setValue(int value)
{
    ++m_steps;
    m_value = value;
    if (m_dialog == nullptr || !isWorthShowing(value))
        return;
    m_label->setText(tr("%1 di %2").arg(value).arg(m_bar->maximum()));
    moveBar();
}

void RunProgress::setStep(int value)
{
    ++m_steps;
    m_value = value;
    if (m_dialog != nullptr && isWorthShowing(value))
        moveBar();
}

void RunProgress::paintInTime()
{
    if (m_dialog == nullptr || m_sinceShown.elapsed() < showInterval)
        return;
    m_bar->setValue(m_value);
    paint();
}

void RunProgress::setMaximum(int maximum)
{
    if (m_dialog != nullptr)
        m_bar->setRange(0, maximum);
}

bool RunProgress::isCanceled() const
{
    return m_canceled || RunGuard::endRequested();
}

void RunProgress::breathe()
{
    ++m_breaths;
    if (m_breaths > firstSteps && m_sinceBreath.elapsed() < breathInterval)
        return;
    QCoreApplication::processEvents();
    m_sinceBreath.start();
}

void RunProgress::end()
{
    m_dialog.reset();
}

void RunProgress::cancel()
{
    m_canceled = true;
}

void RunProgress::paint()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_sinceShown.start();
}

bool RunProgress::isStarting() const
{
    return m_steps <= firstSteps;
}

/// Laying the label out and painting it after each of ten thousand songs takes longer than reading
/// them.
bool RunProgress::isWorthShowing(int value) const
{
    return isStarting() || value == m_bar->maximum() || m_sinceShown.elapsed() >= showInterval;
}

void RunProgress::moveBar()
{
    m_bar->setValue(m_value);
    paintInTime();
}
