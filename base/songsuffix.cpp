#include "base/songsuffix.h"

#include <algorithm>

bool isSongSuffix(QStringView suffix)
{
    return std::any_of(songSuffixes.cbegin(), songSuffixes.cend(), [suffix](QStringView known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}
