#include "index/songorders.h"

#include "index/runsort.h"

#include <QHash>
#include <QVarLengthArray>

#include <algorithm>
#include <numeric>
#include <vector>

namespace brisel
{

namespace
{

/// The first letters of a title, folded, as two numbers in the same order. Titles with equal
/// numbers must be compared completely.
struct TitleStart {
    quint64 first = 0;
    quint64 second = 0;
};

TitleStart startOf(const QString &title)
{
    constexpr qsizetype most = 16;    // letters: 8 in each number
    constexpr int bits = 8;           // of one letter
    constexpr char16_t others = 0xFF; // stands for all higher letters; the rest is left out
    QVarLengthArray<QChar, most> letters(std::min(title.size(), most));
    std::copy_n(title.cbegin(), letters.size(), letters.begin());
    foldLetters(letters.data(), letters.size());
    TitleStart start;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const char16_t letter = std::min(letters.at(i).unicode(), others);
        quint64 &number = i < most / 2 ? start.first : start.second;
        number |= quint64{letter} << (bits * (most / 2 - 1 - i % (most / 2)));
        if (letter == others)
            break;
    }
    return start;
}

} // namespace

SongOrder SongOrders::byPath(const QList<SongInfoIndex> &songs)
{
    SongOrder order(songs.size());
    std::iota(order.begin(), order.end(), 0);
    sortRuns(order, [&songs](qsizetype a, qsizetype b) {
        const int keys = qstrcmp(songs.at(a).pathKey.constData(), songs.at(b).pathKey.constData());
        return keys != 0 ? keys < 0 : songs.at(a).path < songs.at(b).path;
    });
    return order;
}

SongOrder SongOrders::byTitle(const QList<SongInfoIndex> &songs)
{
    struct Entry {
        TitleStart start;
        qsizetype position;
    };
    std::vector<Entry> entries;
    entries.reserve(static_cast<size_t>(songs.size()));
    for (qsizetype i = 0; i < songs.size(); ++i)
        entries.push_back({startOf(songs.at(i).title), i});
    std::sort(entries.begin(), entries.end(), [&](const Entry &a, const Entry &b) {
        if (a.start.first != b.start.first)
            return a.start.first < b.start.first;
        if (a.start.second != b.start.second)
            return a.start.second < b.start.second;
        const SongInfoIndex &one = songs.at(a.position);
        const SongInfoIndex &other = songs.at(b.position);
        const int order = QString::compare(one.title, other.title, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : one.path < other.path;
    });
    SongOrder order;
    order.reserve(songs.size());
    for (const Entry &entry : entries)
        order.append(entry.position);
    return order;
}

SongOrders::Groups SongOrders::byGroup(const QList<SongInfoIndex> &songs, const SongOrder &byTitle,
                                       QString SongInfoIndex::*group)
{
    QHash<QString, int> known; // by spelling; most songs have a known one
    QHash<QString, int> folded;
    Groups groups;
    groups.numbers.reserve(songs.size());
    for (const SongInfoIndex &song : songs) {
        const QString &name = song.*group;
        auto number = known.constFind(name);
        if (number == known.cend()) {
            const QString key = foldedText(name);
            auto same = folded.constFind(key);
            if (same == folded.cend())
                same = folded.insert(key, static_cast<int>(folded.size()));
            number = known.insert(name, *same);
        }
        groups.numbers.append(*number);
    }
    QStringList names = folded.keys();
    std::sort(names.begin(), names.end());
    // The first position of each group.
    QList<qsizetype> sizes(names.size(), 0);
    for (const qsizetype position : byTitle)
        ++sizes[groups.numbers.at(position)];
    QList<qsizetype> next(names.size(), 0);
    qsizetype start = 0;
    for (const QString &name : std::as_const(names)) {
        const int number = folded.value(name);
        next[number] = start;
        start += sizes.at(number);
    }
    groups.order.resize(byTitle.size());
    for (const qsizetype position : byTitle)
        groups.order[next[groups.numbers.at(position)]++] = position;
    return groups;
}

SongOrder SongOrders::mp3Only(const QList<SongInfoIndex> &songs, const SongOrder &order)
{
    SongOrder mp3s;
    std::copy_if(order.cbegin(), order.cend(), std::back_inserter(mp3s),
                 [&songs](qsizetype i) { return songs.at(i).type == SongInfoIndex::Mp3; });
    return mp3s;
}

} // namespace brisel
