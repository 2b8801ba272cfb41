#pragma once

#include <QString>
#include <QStringList>

namespace brisel
{

/// The General MIDI sound fonts that distributions install, the preferred one first.
QStringList usualSoundFonts();

/// The path of the sound font to play with: \a chosen by the user unless it is empty, otherwise the
/// first of \a usual that exists. Empty if none of them exists.
QString soundFontFor(const QString &chosen, const QStringList &usual = usualSoundFonts());

} // namespace brisel
