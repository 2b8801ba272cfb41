#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>
#include <utility>
#include <vector>

namespace brisel
{

/// The catalogue's file names, or its titles, in memory, with the results of SQLite's LIKE: "%"
/// matches any run of characters, "_" any single one, A to Z are case-insensitive, and of several
/// rows the first one is found.
class FileNameIndex
{
public:
    /// Adds the name of a row, up to its first NUL as in LIKE. Rows must be added in ascending
    /// order.
    void add(const QString &name, qint64 rowId);

    /// True if firstRow() gives the same result as SQLite: \a pattern and, if it has wildcards, all
    /// names have only characters that SQLite compares in the same way.
    bool canAnswer(const QString &pattern) const;

    /// The first row whose name is LIKE \a pattern, if there is one. Requires canAnswer().
    std::optional<qint64> firstRow(const QString &pattern);

    /// True if \a pattern has a wildcard.
    static bool hasWildcards(const QString &pattern);
    /// The number of rows whose name is LIKE \a pattern, which has no wildcards. Requires
    /// canAnswer().
    int rowsOf(const QString &pattern) const;

    /// The number of names compared with patterns so far: the cost of wildcards.
    qint64 comparedNames() const { return m_comparedNames; }

private:
    struct Name {
        QString text; ///< A to Z upper-cased
        qint64 rowId = 0;
    };
    /// A few consecutive characters of a name.
    struct Gram {
        quint64 text = 0;
        quint32 name = 0; ///< index in m_names
    };
    struct Rows {
        qint64 first = 0;
        int count = 0;
    };
    using Range = std::pair<std::vector<Gram>::const_iterator, std::vector<Gram>::const_iterator>;

    void sortGrams();
    std::optional<qint64> firstRowOfAll(QStringView pattern);
    Range gramsThatBegin(QStringView text) const;
    Range rarestGram(QStringView pattern) const;
    bool matches(size_t name, QStringView pattern);

    std::vector<Name> m_names; ///< by row
    QHash<QString, Rows> m_rowsByName;
    bool m_areNamesSimple = true;
    qsizetype m_longestName = 0;
    std::vector<Gram> m_grams; ///< sorted; made for the first pattern with wildcards
    qint64 m_comparedNames = 0;
};

} // namespace brisel
