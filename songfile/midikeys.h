#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The names of the key signatures of a MIDI file. A value is sharps (as an unsigned byte, flats
/// being negative) times 256, plus 1 for minor. A "-" behind a name marks minor.
namespace MidiKeys
{

/// The value that a name is written as. Knows three names more than nameOf().
[[nodiscard]] std::optional<quint16> valueOf(const QString &name);

/// The name of \a value; empty when it has none.
QString nameOf(quint16 value);

/// All names that nameOf() gives, in ascending order of value.
QStringList names();

} // namespace MidiKeys
