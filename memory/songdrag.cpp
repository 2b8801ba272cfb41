#include "memory/songdrag.h"

#include "base/bytes.h"

#include <QCoreApplication>

namespace brisel
{

static constexpr qsizetype idSize = 4; // bytes

static QByteArray tokenOf(const QString &place)
{
    return QByteArray::number(QCoreApplication::applicationPid()) + ' ' + place.toUtf8() + '\0';
}

QByteArray songDragData(const QString &place, const QList<quint32> &ids)
{
    const QByteArray token = tokenOf(place);
    QByteArray data = token + QByteArray(ids.size() * idSize, '\0');
    for (qsizetype i = 0; i < ids.size(); ++i)
        putBe32(data, token.size() + i * idSize, ids.at(i));
    return data;
}

bool isDragFrom(const QString &place, const QByteArray &data)
{
    return data.startsWith(tokenOf(place));
}

std::optional<QList<quint32>> idsFromDrag(const QString &place, const QByteArray &data)
{
    const qsizetype first = tokenOf(place).size();
    if (!isDragFrom(place, data) || (data.size() - first) % idSize != 0)
        return std::nullopt;
    QList<quint32> ids;
    for (qsizetype at = first; at < data.size(); at += idSize)
        ids.append(be32At(data, at));
    return ids;
}

} // namespace brisel
