#include "library/dialogs/noticemessage.h"

#include <QStringList>
#include <QVariantMap>

namespace brisel
{

QDBusMessage noticeMessage(const DesktopNotice &notice)
{
    const QString service = QStringLiteral("org.freedesktop.Notifications");
    const QString program = QStringLiteral("brisel2pc"); // of the icon and the desktop entry
    constexpr uint replacesNone = 0;
    constexpr int usualTime = -1;
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/Notifications"),
                                       service, QStringLiteral("Notify"));
    message.setArguments({QStringLiteral("Brisel2 PC"), replacesNone, program, notice.title,
                          notice.text.toHtmlEscaped(), QStringList(),
                          QVariantMap{{QStringLiteral("suppress-sound"), true},
                                      {QStringLiteral("desktop-entry"), program}},
                          usualTime});
    return message;
}

} // namespace brisel
