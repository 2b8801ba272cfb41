#pragma once

#include "base/settings.h"

class QWidget;

namespace brisel
{

/// Gives \a window the size and the place that storePlace() has stored in \a settings as
/// \a stored, within the available screen; a no-op if nothing valid is stored.
void restorePlace(QWidget &window, const QSettings &settings, const Setting<QString> &stored);

/// Stores the size and the place of \a window, both without its frame, and whether it is maximised.
void storePlace(const QWidget &window, QSettings &settings, const Setting<QString> &stored);

} // namespace brisel
