#include "index/songorders.h"

#include <QHash>

#include <algorithm>
#include <numeric>
#include <vector>

namespace
{

/// The first letters of \a folded as a number that has their order.
quint64 startOf(const QString &folded)
{
    constexpr qsizetype letters = 4;
    quint64 start = 0;
    for (qsizetype i = 0; i < letters; ++i)
        start = start << 16 | (i < folded.size() ? folded.at(i).unicode() : 0U);
    return start;
}

} // namespace

SongOrder SongOrders::byPath(const QList<SongInfoIndex> &songs)
{
    SongOrder order(songs.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&songs](qsizetype a, qsizetype b) {
        const int keys = qstrcmp(songs.at(a).pathKey.constData(), songs.at(b).pathKey.constData());
        return keys != 0 ? keys < 0 : songs.at(a).path < songs.at(b).path;
    });
    return order;
}

SongOrder SongOrders::byTitle(const QList<SongInfoIndex> &songs)
{
    struct Entry {
        quint64 start;
        qsizetype position;
    };
    QStringList titles;
    std::vector<Entry> entries;
    titles.reserve(songs.size());
    entries.reserve(static_cast<size_t>(songs.size()));
    for (qsizetype i = 0; i < songs.size(); ++i) {
        titles.append(foldedText(songs.at(i).title));
        entries.push_back({startOf(titles.last()), i});
    }
    std::sort(entries.begin(), entries.end(), [&](const Entry &a, const Entry &b) {
        if (a.start != b.start)
            return a.start < b.start;
        const int order = titles.at(a.position).compare(titles.at(b.position));
        return order != 0 ? order < 0 : songs.at(a.position).path < songs.at(b.position).path;
    });
    SongOrder order;
    order.reserve(songs.size());
    for (const Entry &entry : entries)
        order.append(entry.position);
    return order;
}

SongOrder SongOrders::byGroup(const QList<SongInfoIndex> &songs, const SongOrder &byTitle,
                              QString SongInfoIndex::*group)
{
    QHash<QString, qsizetype> numbers;
    QList<qsizetype> numberOf; // by position
    numberOf.reserve(songs.size());
    for (const SongInfoIndex &song : songs) {
        const QString name = foldedText(song.*group);
        auto number = numbers.find(name);
        if (number == numbers.end())
            number = numbers.insert(name, numbers.size());
        numberOf.append(*number);
    }
    QStringList names = numbers.keys();
    std::sort(names.begin(), names.end());
    // Where the songs of each group begin.
    QList<qsizetype> sizes(names.size(), 0);
    for (const qsizetype position : byTitle)
        ++sizes[numberOf.at(position)];
    QList<qsizetype> next(names.size(), 0);
    qsizetype start = 0;
    for (const QString &name : std::as_const(names)) {
        const qsizetype number = numbers.value(name);
        next[number] = start;
        start += sizes.at(number);
    }
    SongOrder order(byTitle.size());
    for (const qsizetype position : byTitle)
        order[next[numberOf.at(position)]++] = position;
    return order;
}

SongOrder SongOrders::mp3Only(const QList<SongInfoIndex> &songs, const SongOrder &order)
{
    SongOrder mp3s;
    std::copy_if(order.cbegin(), order.cend(), std::back_inserter(mp3s),
                 [&songs](qsizetype i) { return songs.at(i).type == SongInfoIndex::Mp3; });
    return mp3s;
}
