#include "index/dialogs/rundialog.h"

#include "base/runguard.h"
#include "base/settings.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include <algorithm>

RunDialog::Work::Work(RunDialog &dialog) : m_dialog(dialog)
{
    m_dialog.m_working = true;
    m_dialog.m_breaths = 0;
    m_dialog.m_sincePainted.invalidate();
}

RunDialog::Work::~Work()
{
    m_dialog.m_working = false;
    m_dialog.showState();
}

void RunDialog::reject()
{
    if (!m_working)
        QDialog::reject();
}

bool RunDialog::canStart() const
{
    return !m_working && !RunGuard::isActive();
}

void RunDialog::breathe()
{
    constexpr int firstBreaths = 100; // each is shown: a short run is seen whole
    // Milliseconds. The longer a painting takes, the longer it is until the next one.
    constexpr qint64 shortestPause = 30;
    constexpr qint64 longestPause = 60;
    constexpr qint64 paintingShare = 12;
    m_breaths += m_breaths < firstBreaths ? 1 : 0;
    if (m_working && m_breaths == firstBreaths && m_sincePainted.isValid() &&
        m_sincePainted.elapsed() < m_pause)
        return;
    QElapsedTimer painting;
    painting.start();
    showState();
    if (m_working)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_pause = std::clamp(painting.elapsed() * paintingShare, shortestPause, longestPause);
    m_sincePainted.start();
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
