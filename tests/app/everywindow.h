#pragma once

#include <QStringList>

#include <memory>

class QWidget;

namespace brisel
{

/// Every window of the program, filled as in use, for tests that check all of them.
extern const QStringList windowNames;

/// The window with one of these names; null if it can't be filled.
std::unique_ptr<QWidget> makeWindow(const QString &name);

/// Shows \a window and returns the topmost window over it.
QWidget *shown(QWidget &window);

} // namespace brisel
