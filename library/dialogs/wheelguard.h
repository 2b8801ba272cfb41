#pragma once

#include <QObject>

class QWidget;

namespace brisel
{

/// Prevents the mouse wheel from changing the combo boxes and spin boxes of a window that do not
/// have the focus: a user who scrolls would change them without notice.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    /// \a window has its controls. Owned by the window.
    explicit WheelGuard(QWidget &window);

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace brisel
