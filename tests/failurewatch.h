#pragma once

#include <QObject>
#include <QTimer>

namespace brisel
{

/// Closes modal dialogs and menus as soon as a check of the running test case fails.
/// A failing check returns from its own function only. In a step that should answer a dialog or a
/// menu it leaves the dialog's event loop running, and the case would wait forever. A watch ends
/// that loop, and so the case.
class FailureWatch : public QObject
{
    Q_OBJECT

public:
    explicit FailureWatch(QObject *parent = nullptr);

signals:
    /// Emitted repeatedly after the failure, for tests that run an event loop of their own.
    void failed();

private:
    void look();

    // A separate timer: a timer does not fire while its own slot runs a dialog.
    QTimer m_timer;
};

} // namespace brisel
