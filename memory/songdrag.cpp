#include "memory/songdrag.h"

#include "base/bytes.h"

namespace brisel
{

static constexpr qsizetype idSize = 4; // bytes

QByteArray songDragData(const QList<quint32> &ids)
{
    QByteArray data(ids.size() * idSize, '\0');
    for (qsizetype i = 0; i < ids.size(); ++i)
        putBe32(data, i * idSize, ids.at(i));
    return data;
}

std::optional<QList<quint32>> idsFromDrag(const QByteArray &data)
{
    if (data.size() % idSize != 0)
        return std::nullopt;
    QList<quint32> ids;
    for (qsizetype at = 0; at < data.size(); at += idSize)
        ids.append(be32At(data, at));
    return ids;
}

} // namespace brisel
