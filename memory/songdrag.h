#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

/// The mime type of songs of a memory that are dragged.
inline const QString songDragType = QStringLiteral("application/x-brisel2pc-memory-songs");

/// The data for songDragType: the ids as big-endian numbers of 32 bits, in this order.
QByteArray songDragData(const QList<quint32> &ids);
/// The ids in such data; empty if they are not a whole number of ids.
std::optional<QList<quint32>> idsFromDrag(const QByteArray &data);

} // namespace brisel
