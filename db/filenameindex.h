#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>
#include <utility>
#include <vector>

/// The catalogue's file names in memory, found as SQLite's LIKE finds them: "%" stands for any run
/// of characters, "_" for any one, the case of A to Z does not count, and of several rows the first
/// one is meant.
class FileNameIndex
{
public:
    /// Adds the name of a row. Rows come in ascending order. LIKE reads a name up to its first NUL.
    void add(const QString &name, qint64 rowId);

    /// True when firstRow() knows the answer: \a pattern, and with wildcards the names too, have
    /// only characters that are surely read alike by SQLite.
    bool canAnswer(const QString &pattern) const;

    /// The first row whose name is LIKE \a pattern, if there is one. Only where canAnswer().
    std::optional<qint64> firstRow(const QString &pattern);

    /// Names that were compared with a pattern so far: what its wildcards cost.
    qint64 comparedNames() const { return m_comparedNames; }

private:
    struct Name {
        QString text; ///< A to Z upper-cased
        qint64 rowId = 0;
    };
    /// Some characters in a row, somewhere in a name.
    struct Gram {
        quint64 text = 0;
        quint32 name = 0; ///< its place in m_names
    };
    using Range = std::pair<std::vector<Gram>::const_iterator, std::vector<Gram>::const_iterator>;

    void sortGrams();
    std::optional<qint64> firstRowOfAll(QStringView pattern);
    Range gramsThatBegin(QStringView text) const;
    Range rarestGram(QStringView pattern) const;
    bool matches(size_t name, QStringView pattern);

    std::vector<Name> m_names;            ///< by row
    QHash<QString, qint64> m_rowIdByName; ///< the first row of each
    bool m_areNamesSimple = true;
    qsizetype m_longestName = 0;
    std::vector<Gram> m_grams; ///< in order; made for the first pattern with wildcards
    qint64 m_comparedNames = 0;
};
