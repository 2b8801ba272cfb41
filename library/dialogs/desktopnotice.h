#pragma once

#include "base/runreport.h"

#include <QCoreApplication>

#include <functional>

namespace brisel
{

/// A message that the desktop shows while another window is in front.
struct DesktopNotice {
    Q_DECLARE_TR_FUNCTIONS(DesktopNotice)

public:
    static constexpr qint64 longRun = 30000; ///< milliseconds: the end of a longer run is shown

    /// The end of a run.
    static DesktopNotice of(const RunReport &report);
    /// Shows the notice without a sound through the desktop's own service: the method Notify of
    /// "org.freedesktop.Notifications". Does not wait for an answer of the service; only the first
    /// connection to the session bus may take a moment. A no-op without a session bus or such a
    /// service, or in a program built without Qt DBus.
    static void send(const DesktopNotice &notice);

    QString title;
    QString text; ///< plain
};

/// What a run needs of the desktop; tests replace it.
struct Desktop {
    /// True if a window of the program is active.
    static bool isProgramInFront();

    std::function<void(const DesktopNotice &)> send = DesktopNotice::send;
    std::function<bool()> isInFront = isProgramInFront;
};

} // namespace brisel
