#pragma once

#include <QObject>
#include <QTimer>

/// Closes what is modal as soon as a check of the running test case has failed.
///
/// A failing check leaves the function that it stands in and no other. In the step that is to
/// answer a dialog or a menu it leaves that open, in the event loop of its own, and the case would
/// wait for ever. With a watch alive the loop ends, and the case with it.
class FailureWatch : public QObject
{
    Q_OBJECT

public:
    explicit FailureWatch(QObject *parent = nullptr);

signals:
    /// Emitted at each look after the failure, for tests that end an event loop of their own.
    void failed();

private:
    void look();

    // A timer of its own: one whose slot runs a dialog stands still meanwhile.
    QTimer m_timer;
};
