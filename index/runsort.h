#pragma once

#include <QList>

#include <algorithm>

namespace brisel
{

/// Sorts \a list, most of which is in order already, by merging its ordered runs: n - 1 comparisons
/// when it is sorted, as many as any sort otherwise. Not a stable sort.
template <typename Element, typename Less>
void sortRuns(QList<Element> &list, Less less)
{
    constexpr qsizetype shortRun = 8; // the average length; merging such runs is not faster
    QList<qsizetype> ends;
    for (qsizetype i = 1; i < list.size(); ++i) {
        if (less(list.at(i), list.at(i - 1)))
            ends.append(i);
    }
    if (ends.size() * shortRun > list.size()) {
        std::sort(list.begin(), list.end(), less);
        return;
    }
    ends.append(list.size());
    while (ends.size() > 1) {
        QList<qsizetype> merged;
        qsizetype start = 0;
        for (qsizetype i = 0; i < ends.size(); i += 2) {
            const qsizetype end = ends.at(std::min(i + 1, ends.size() - 1));
            std::inplace_merge(list.begin() + start, list.begin() + ends.at(i), list.begin() + end,
                               less);
            merged.append(end);
            start = end;
        }
        ends = merged;
    }
}

} // namespace brisel
