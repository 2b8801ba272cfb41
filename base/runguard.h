#pragma once

#include <QObject>

namespace brisel
{

/// Exists while a long run works on the user's files.
///
/// While one exists, a quit (a log-out, closing the last window) is delayed: after a quit all
/// dialogs would close at once, and a question that the user did not see would count as "Si".
/// Instead the run ends at its next step, and the quit is sent again when the last guard is
/// destroyed.
class RunGuard : public QObject
{
    Q_OBJECT

public:
    RunGuard();
    ~RunGuard() override;

    /// Returns true during any run: no slot, menu or double click may start another one.
    static bool isActive() { return s_active > 0; }

    /// Returns true if the program was asked to quit during the run: it must end at its next step
    /// without questions.
    static bool endRequested() { return s_endRequested; }

    /// Asks the program to end, like a quit.
    static void requestEnd() { s_endRequested = s_active > 0; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static inline int s_active = 0;
    static inline bool s_endRequested = false;
};

} // namespace brisel
