#include "index/dialogs/rundialog.h"

#include "base/settings.h"
#include "index/recentmemories.h"
#include "library/dialogs/nocopyrightdialog.h"

#include <QCloseEvent>
#include <QCompleter>
#include <QCoreApplication>
#include <QLineEdit>
#include <QProgressBar>

namespace brisel
{

RunDialog::Work::Work(RunDialog &dialog) : m_dialog(dialog), m_begun(dialog.m_clock())
{
    m_dialog.m_working = true;
    m_dialog.beginStage();
}

RunDialog::Work::~Work()
{
    m_dialog.m_working = false;
    m_dialog.showState();
    const qint64 worked = m_dialog.m_clock() - m_begun;
    if (worked > DesktopNotice::longRun && !m_dialog.m_desktop.isInFront() && !isEnding())
        m_dialog.m_desktop.send(DesktopNotice::of(m_dialog.report().value_or(RunReport())));
}

void RunDialog::Work::pulse()
{
    if (m_dialog.m_pace.isDue())
        m_dialog.paint();
}

Run::Answer RunDialog::Work::answerOf(Question /*question*/, const QString &path,
                                      const QString &message)
{
    const qint64 asked = m_dialog.m_clock();
    m_dialog.m_timeLeft.pause();
    const Answer answer = NoCopyrightDialog::ask(&m_dialog, path, message);
    m_dialog.m_timeLeft.resume();
    m_begun += m_dialog.m_clock() - asked;
    return answer;
}

void RunDialog::setClock(const TimeLeft::Clock &clock)
{
    m_clock = clock;
    m_timeLeft = TimeLeft(clock);
}

void RunDialog::beginStage()
{
    m_pace.restart();
    m_timeLeft.begin();
}

void RunDialog::showProgress(QProgressBar &bar, int value)
{
    const QString left = m_timeLeft.text(value, bar.maximum());
    const QString percent = QStringLiteral("%p%");
    bar.setFormat(left.isEmpty() ? percent : percent + QStringLiteral(" - ") + left);
    bar.setValue(value);
}

void RunDialog::reject()
{
    if (!m_working)
        QDialog::reject();
}

void RunDialog::showStep()
{
    if (!m_working)
        showState();
    else if (m_pace.isStepDue())
        paint();
}

void RunDialog::paint()
{
    m_pace.paint([this] {
        showState();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
}

QString RunDialog::inUseText()
{
    return tr("Un altro programma sta lavorando su questa memoria.\nRiprovare quando ha finito.");
}

QString RunDialog::mediaRoot()
{
    return Settings::mediaRoot.in(openSettings());
}

void RunDialog::setMediaRoot(const QString &folder)
{
    QSettings settings = openSettings();
    Settings::mediaRoot.store(settings, folder);
    keepMemory(folder);
}

void RunDialog::offerMemories(QLineEdit &field)
{
    auto *completer = new QCompleter(recentMemories(), &field);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    field.setCompleter(completer);
}

void RunDialog::closeEvent(QCloseEvent *event)
{
    if (m_working)
        event->ignore();
    else
        QDialog::closeEvent(event);
}

} // namespace brisel
