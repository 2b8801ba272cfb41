#pragma once

#include "library/dialogs/desktopnotice.h"

#include <QDBusMessage>

namespace brisel
{

/// The call of the desktop's service that shows \a notice. The service reads markup in the text,
/// so it is escaped.
QDBusMessage noticeMessage(const DesktopNotice &notice);

} // namespace brisel
