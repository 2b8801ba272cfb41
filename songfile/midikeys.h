#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace brisel
{

/// The names of the key signatures of a MIDI file. A value is sharps (as an unsigned byte, flats
/// being negative) times 256, plus 1 for minor. A "-" after a name marks minor.
namespace MidiKeys
{

/// The value as which a name is written. Accepts three more names than nameOf() returns.
[[nodiscard]] std::optional<quint16> valueOf(const QString &name);

/// The name of \a value; empty if it has no name.
QString nameOf(quint16 value);

/// All names that nameOf() returns, in ascending order of value.
QStringList names();

} // namespace MidiKeys

} // namespace brisel
