#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

/// The mime type of songs of a memory that are dragged.
inline const QString songDragType = QStringLiteral("application/x-brisel2pc-memory-songs");

/// The data for songDragType: where the ids count, which is this process and \a place, such as the
/// root of a memory; a zero; and the ids as big-endian numbers of 32 bits, in this order.
QByteArray songDragData(const QString &place, const QList<quint32> &ids);
/// Returns true if such data begins with this process and \a place.
bool isDragFrom(const QString &place, const QByteArray &data);
/// The ids in such data; empty if they are of another process or place, or not a whole number of
/// ids.
std::optional<QList<quint32>> idsFromDrag(const QString &place, const QByteArray &data);

} // namespace brisel
