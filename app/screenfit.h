#pragma once

#include <QObject>

namespace brisel
{

/// Keeps every window of the program on the screen: one that would be larger than the free area of
/// its screen when it opens is made smaller and moved there.
class ScreenFit : public QObject
{
    Q_OBJECT

public:
    /// Filters the events of the application object. Owned by \a parent.
    explicit ScreenFit(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace brisel
