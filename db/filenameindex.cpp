#include "db/filenameindex.h"

#include <algorithm>
#include <numeric>

namespace
{

/// SQLite compares up to 50,000 bytes; no name of a file is as long as this.
constexpr qsizetype longestPattern = 1000;

bool isWildcard(QChar character)
{
    return character == u'%' || character == u'_';
}

/// Below the surrogates each character is one for SQLite, too, whatever way it is stored.
bool isSimple(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character != QChar::Null && character < QChar(0xD800);
    });
}

QString upperCased(const QString &text)
{
    QString upper = text;
    for (QChar &character : upper) {
        if (character >= u'a' && character <= u'z')
            character = QChar(character.unicode() - u'a' + u'A');
    }
    return upper;
}

/// Both upper-cased.
bool isLike(QStringView text, QStringView pattern)
{
    qsizetype inText = 0;
    qsizetype inPattern = 0;
    qsizetype run = -1; ///< behind the last "%" that was passed
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

/// The order of texts read from their ends.
bool isLessFromEnd(QStringView first, QStringView second)
{
    return std::lexicographical_compare(first.rbegin(), first.rend(), second.rbegin(),
                                        second.rend());
}

} // namespace

void FileNameIndex::add(const QString &name, qint64 rowId)
{
    const QString text = upperCased(name.section(QChar::Null, 0, 0));
    m_areNamesSimple = m_areNamesSimple && isSimple(text);
    m_names.push_back({text, rowId});
    if (!m_rowIdByName.contains(text))
        m_rowIdByName.insert(text, rowId);
}

bool FileNameIndex::canAnswer(const QString &pattern) const
{
    const bool isPlain = std::none_of(pattern.begin(), pattern.end(), isWildcard);
    return isSimple(pattern) && (isPlain || (m_areNamesSimple && pattern.size() <= longestPattern));
}

std::optional<qint64> FileNameIndex::firstRow(const QString &pattern)
{
    const QString upper = upperCased(pattern);
    const auto begin = std::find_if(upper.begin(), upper.end(), isWildcard);
    if (begin == upper.end()) {
        const auto row = m_rowIdByName.constFind(upper);
        return row == m_rowIdByName.constEnd() ? std::nullopt : std::optional(row.value());
    }
    sort();
    const auto end = std::find_if(upper.rbegin(), upper.rend(), isWildcard);
    const Range byBegin = namesThatBegin(QStringView(upper).first(begin - upper.begin()));
    const Range byEnd = namesThatEnd(QStringView(upper).last(end - upper.rbegin()));
    const bool isBeginRarer = byBegin.second - byBegin.first <= byEnd.second - byEnd.first;
    const Range few = isBeginRarer ? byBegin : byEnd;
    constexpr size_t many = 8;
    if (static_cast<size_t>(few.second - few.first) > m_names.size() / many)
        return firstRowOfAll(upper);
    std::optional<size_t> first;
    for (auto name = few.first; name != few.second; ++name) {
        if ((!first || *name < *first) && matches(*name, upper))
            first = *name;
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

void FileNameIndex::sort()
{
    if (m_byBegin.size() == m_names.size())
        return;
    m_byBegin.resize(m_names.size());
    std::iota(m_byBegin.begin(), m_byBegin.end(), 0);
    m_byEnd = m_byBegin;
    std::sort(m_byBegin.begin(), m_byBegin.end(),
              [this](size_t first, size_t second) { return textAt(first) < textAt(second); });
    std::sort(m_byEnd.begin(), m_byEnd.end(), [this](size_t first, size_t second) {
        return isLessFromEnd(textAt(first), textAt(second));
    });
}

FileNameIndex::Range FileNameIndex::namesThatBegin(QStringView text) const
{
    const auto begin = [this, &text](size_t name) { return textAt(name).left(text.size()); };
    const auto first = std::partition_point(m_byBegin.begin(), m_byBegin.end(),
                                            [&](size_t name) { return begin(name) < text; });
    const auto last = std::partition_point(first, m_byBegin.end(),
                                           [&](size_t name) { return begin(name) == text; });
    return {first, last};
}

FileNameIndex::Range FileNameIndex::namesThatEnd(QStringView text) const
{
    const auto end = [this, &text](size_t name) { return textAt(name).right(text.size()); };
    const auto first = std::partition_point(m_byEnd.begin(), m_byEnd.end(), [&](size_t name) {
        return isLessFromEnd(end(name), text);
    });
    const auto last =
        std::partition_point(first, m_byEnd.end(), [&](size_t name) { return end(name) == text; });
    return {first, last};
}

bool FileNameIndex::matches(size_t name, QStringView pattern)
{
    ++m_comparedNames;
    return isLike(textAt(name), pattern);
}
