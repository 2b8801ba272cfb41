#pragma once

#include <QByteArray>

namespace brisel
{

/// A second encoder for the container's stream, written to be obviously correct: linked nodes,
/// strings compared as strings, bits kept as text. Slow.
QByteArray modelCompress(const QByteArray &text);

/// The matching decoder: the data of a stream, which may be damaged or truncated.
QByteArray modelExpand(const QByteArray &stream);

} // namespace brisel
