#pragma once

#include <QObject>

namespace brisel
{

/// Lives for as long as a long run works on the user's files.
///
/// While one lives, a quit (a log-out, the last window closed) is not carried out: after a quit
/// every dialog would answer itself, and a question that nobody saw would count as "Si". It is
/// remembered instead, the run ends at its next step, and the quit is sent again when the last
/// guard goes.
class RunGuard : public QObject
{
    Q_OBJECT

public:
    RunGuard();
    ~RunGuard() override;

    /// True while any run is under way: no slot, menu or double click may start another.
    static bool isActive();

    /// True when the program was asked to quit during the run: end at the next step, ask nothing.
    static bool endRequested();

    /// Remembers that the user wants the program to end, as a quit does.
    static void requestEnd();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static int s_active;
    static bool s_endRequested;
};

} // namespace brisel
