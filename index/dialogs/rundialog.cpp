#include "index/dialogs/rundialog.h"

#include "base/settings.h"
#include "library/dialogs/nocopyrightdialog.h"

#include <QCloseEvent>
#include <QCoreApplication>

namespace brisel
{

RunDialog::Work::Work(RunDialog &dialog) : m_dialog(dialog)
{
    m_dialog.m_working = true;
    m_dialog.beginStage();
}

RunDialog::Work::~Work()
{
    m_dialog.m_working = false;
    m_dialog.showState();
}

void RunDialog::Work::pulse()
{
    if (m_dialog.m_pace.isDue())
        m_dialog.paint();
}

Run::Answer RunDialog::Work::answerOf(Question /*question*/, const QString &path,
                                      const QString &message)
{
    return NoCopyrightDialog::ask(&m_dialog, path, message);
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
}

void RunDialog::closeEvent(QCloseEvent *event)
{
    if (m_working)
        event->ignore();
    else
        QDialog::closeEvent(event);
}

} // namespace brisel
