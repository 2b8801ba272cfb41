#include "library/dialogs/desktopnotice.h"

#ifdef BRISEL_HAS_DBUS
#include "library/dialogs/noticemessage.h"

#include <QDBusConnection>
#include <QFileInfo>
#endif

#include <QApplication>

namespace brisel
{

DesktopNotice DesktopNotice::of(const RunReport &report)
{
    DesktopNotice notice;
    notice.title = tr("Operazione terminata");
    notice.text = report.summary();
    return notice;
}

bool Desktop::isProgramInFront()
{
    return QApplication::activeWindow() != nullptr;
}

#ifdef BRISEL_HAS_DBUS

/// Without an address the bus would be started, which may take seconds.
static bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

void DesktopNotice::send(const DesktopNotice &notice)
{
    if (!hasSessionBus())
        return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        bus.call(noticeMessage(notice), QDBus::NoBlock);
}

#else

void DesktopNotice::send(const DesktopNotice & /*notice*/) {}

#endif

} // namespace brisel
