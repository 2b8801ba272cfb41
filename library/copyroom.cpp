#include "library/copyroom.h"

#include "base/freespace.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace brisel
{

CopyRoom::CopyRoom(const QString &folder, qint64 reserve)
    : m_free(freeSpace(folder)), m_unit(allocationUnit(folder)), m_reserve(reserve)
{
}

CopyRoom::Need CopyRoom::needOf(const QString &source, const QString &place) const
{
    const qint64 before = allocatedSize(QFileInfo(place).size(), m_unit);
    return {place, std::max<qint64>(allocatedSize(QFileInfo(source).size(), m_unit) - before, 0)};
}

bool CopyRoom::fits(const QList<Need> &needs) const
{
    qint64 bytes = m_bytes;
    for (const Need &need : needs)
        bytes += m_places.contains(need.place.toLower()) ? 0 : need.bytes;
    return m_free < 0 || withReserve(bytes) <= m_free;
}

void CopyRoom::add(const Need &need)
{
    const QString key = need.place.toLower();
    if (m_places.contains(key))
        return;
    m_places.insert(key);
    m_bytes += need.bytes;
}

void CopyRoom::restart(qint64 reserve)
{
    m_places.clear();
    m_bytes = 0;
    m_reserve = reserve;
}

QString CopyRoom::shortage() const
{
    return isEnough() ? QString()
                      : tr("Spazio insufficiente: servono %1, liberi %2")
                            .arg(sizeText(needed()), sizeText(m_free));
}

QString CopyRoom::sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

} // namespace brisel
