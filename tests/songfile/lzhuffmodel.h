#pragma once

#include <QByteArray>

/// A second encoder for the container's stream, made only to be obviously right: nodes that point
/// at each other, strings compared as strings, bits kept as text. Slow.
QByteArray modelCompress(const QByteArray &text);

/// The decoder beside it: the data of a stream, also of a damaged or cut one.
QByteArray modelExpand(const QByteArray &stream);
