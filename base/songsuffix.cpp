#include "base/songsuffix.h"

#include <algorithm>

namespace brisel
{

bool isSongSuffix(QStringView suffix)
{
    return std::any_of(songSuffixes.cbegin(), songSuffixes.cend(), [suffix](QStringView known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}

bool hasSuffix(QStringView name, QStringView suffix)
{
    const qsizetype point = name.lastIndexOf(u'.');
    return point >= 0 && name.sliced(point + 1).compare(suffix, Qt::CaseInsensitive) == 0;
}

} // namespace brisel
