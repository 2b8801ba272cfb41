#pragma once

#include <QStringList>

#include <memory>

class QWidget;

namespace brisel
{

/// Every window of the program, filled as in use, for tests that look at all of them.
extern const QStringList windowNames;

/// The window with one of these names; null when it can't be filled.
std::unique_ptr<QWidget> makeWindow(const QString &name);

/// Shows \a window and gives what stands on top of it.
QWidget *shown(QWidget &window);

} // namespace brisel
