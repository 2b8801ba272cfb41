#include "player/timedtext.h"

#include <algorithm>

namespace brisel
{

QString textAt(const QList<TimedText> &texts, qint64 ms)
{
    const auto next =
        std::upper_bound(texts.cbegin(), texts.cend(), ms,
                         [](qint64 moment, const TimedText &text) { return moment < text.ms; });
    return next == texts.cbegin() ? QString() : std::prev(next)->text;
}

} // namespace brisel
