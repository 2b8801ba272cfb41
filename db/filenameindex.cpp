#include "db/filenameindex.h"

#include "base/lettercase.h"

#include <algorithm>
#include <tuple>

namespace brisel
{

namespace
{

/// SQLite compares up to 50,000 bytes; no file name is as long as this.
constexpr qsizetype longestPattern = 1000;

constexpr qsizetype gramLength = 4;
/// Added before and after every name: no name contains it.
constexpr QChar edge = QChar::Null;

bool isWildcard(QChar character)
{
    return character == u'%' || character == u'_';
}

/// Below the surrogates each unit is one character for SQLite, too, in any encoding.
bool isSimple(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character != QChar::Null && character < QChar(0xD800);
    });
}

/// Matches like LIKE; both texts are upper-cased.
bool isLike(QStringView text, QStringView pattern)
{
    qsizetype inText = 0;
    qsizetype inPattern = 0;
    qsizetype run = -1; ///< after the last "%" that was passed
    qsizetype runEnd = 0;
    while (inText < text.size()) {
        const QChar wanted = inPattern < pattern.size() ? pattern.at(inPattern) : QChar();
        if (wanted == u'%') {
            run = ++inPattern;
            runEnd = inText;
        } else if (wanted == u'_' || wanted == text.at(inText)) {
            ++inPattern;
            ++inText;
        } else if (run >= 0) {
            inPattern = run;
            inText = ++runEnd;
        } else {
            return false;
        }
    }
    while (inPattern < pattern.size() && pattern.at(inPattern) == u'%')
        ++inPattern;
    return inPattern == pattern.size();
}

/// The first characters of \a text, padded with zeros: a number that compares like the text.
quint64 gramOf(QStringView text)
{
    quint64 gram = 0;
    for (qsizetype i = 0; i < gramLength; ++i)
        gram = gram << 16 | (i < text.size() ? text.at(i).unicode() : 0);
    return gram;
}

} // namespace

void FileNameIndex::add(const QString &name, qint64 rowId)
{
    const QString text = asciiUpperCased(name.section(QChar::Null, 0, 0));
    m_areNamesSimple = m_areNamesSimple && isSimple(text);
    m_names.push_back({text, rowId});
    m_grams.clear();
    m_longestName = std::max(m_longestName, text.size());
    Rows &rows = m_rowsByName[text];
    if (rows.count++ == 0)
        rows.first = rowId;
}

bool FileNameIndex::hasWildcards(const QString &pattern)
{
    return std::any_of(pattern.begin(), pattern.end(), isWildcard);
}

int FileNameIndex::rowsOf(const QString &pattern) const
{
    return m_rowsByName.value(asciiUpperCased(pattern)).count;
}

bool FileNameIndex::canAnswer(const QString &pattern) const
{
    return isSimple(pattern) &&
           (!hasWildcards(pattern) || (m_areNamesSimple && pattern.size() <= longestPattern));
}

std::optional<qint64> FileNameIndex::firstRow(const QString &pattern)
{
    const QString upper = asciiUpperCased(pattern);
    const auto begin = std::find_if(upper.begin(), upper.end(), isWildcard);
    if (begin == upper.end()) {
        const auto rows = m_rowsByName.constFind(upper);
        return rows == m_rowsByName.constEnd() ? std::nullopt : std::optional(rows->first);
    }
    const auto isRun = [](QChar character) { return character == u'%'; };
    const auto shortest = upper.size() - std::count_if(upper.begin(), upper.end(), isRun);
    if (shortest > m_longestName)
        return std::nullopt;
    sortGrams();
    const Range few = rarestGram(edge + upper + edge);
    constexpr size_t many = 8;
    if (static_cast<size_t>(few.second - few.first) > m_names.size() / many)
        return firstRowOfAll(upper);
    std::optional<quint32> first;
    for (auto gram = few.first; gram != few.second; ++gram) {
        if ((!first || gram->name < *first) && matches(gram->name, upper))
            first = gram->name;
    }
    return first ? std::optional(m_names[*first].rowId) : std::nullopt;
}

std::optional<qint64> FileNameIndex::firstRowOfAll(QStringView pattern)
{
    for (size_t name = 0; name < m_names.size(); ++name) {
        if (matches(name, pattern))
            return m_names[name].rowId;
    }
    return std::nullopt;
}

void FileNameIndex::sortGrams()
{
    if (!m_grams.empty())
        return;
    for (quint32 name = 0; name < m_names.size(); ++name) {
        const QString text = edge + m_names[name].text + edge;
        for (qsizetype at = 0; at < text.size() - 1; ++at)
            m_grams.push_back({gramOf(QStringView(text).sliced(at)), name});
    }
    std::sort(m_grams.begin(), m_grams.end(), [](const Gram &first, const Gram &second) {
        return std::tie(first.text, first.name) < std::tie(second.text, second.name);
    });
}

FileNameIndex::Range FileNameIndex::gramsThatBegin(QStringView text) const
{
    const quint64 lowest = gramOf(text);
    const quint64 span =
        text.size() < gramLength ? (quint64{1} << 16 * (gramLength - text.size())) - 1 : 0;
    const auto first = std::partition_point(m_grams.begin(), m_grams.end(),
                                            [&](const Gram &gram) { return gram.text < lowest; });
    return {first, std::partition_point(first, m_grams.end(), [&](const Gram &gram) {
                return gram.text <= (lowest | span);
            })};
}

FileNameIndex::Range FileNameIndex::rarestGram(QStringView pattern) const
{
    Range rarest{m_grams.begin(), m_grams.end()};
    for (auto begin = pattern.begin(); begin != pattern.end();) {
        const auto end = std::find_if(begin, pattern.end(), isWildcard);
        const QStringView run(begin, end);
        for (qsizetype at = 0; at == 0 || at + gramLength <= run.size(); ++at) {
            const Range range = gramsThatBegin(run.sliced(at).left(gramLength));
            if (range.second - range.first < rarest.second - rarest.first)
                rarest = range;
        }
        begin = std::find_if_not(end, pattern.end(), isWildcard);
    }
    return rarest;
}

bool FileNameIndex::matches(size_t name, QStringView pattern)
{
    ++m_comparedNames;
    return isLike(m_names[name].text, pattern);
}

} // namespace brisel
