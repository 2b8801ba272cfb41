#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace brisel
{

/// What the user types to find songs: words, and conditions on fields such as "genere:rock",
/// "bpm>120", "durata<3:30", "stato:modificata" or "senza:artista". All must be fulfilled; case and
/// accents make no difference. Quotes hold words together ("genere:\"liscio lento\""). The names of
/// the fields are understood in Italian and English. A condition that is not finished ("bpm>",
/// "senza:art") is fulfilled by every song. What names no field ("10:30", "senza:nulla") and what
/// has no number where one is needed ("bpm>abc") are words like any other.
class SongSearch
{
public:
    enum class Field {
        Title,
        Artist,
        Genre,
        Author,
        FileName,
        Folder,
        Format,
        Key,
        Outcome,
        Bpm,
        Length, ///< "mm:ss"
    };

    SongSearch() = default;
    explicit SongSearch(const QString &text);

    bool isEmpty() const { return m_words.isEmpty() && m_conditions.isEmpty(); }
    bool operator==(const SongSearch &other) const = default;

    /// The words without a field, folded.
    const QStringList &words() const { return m_words; }
    /// Returns true if a song fulfils the conditions on fields, whose texts \a textOf gives,
    /// folded.
    bool fulfils(const std::function<QString(Field)> &textOf) const;

private:
    enum class Relation { Contains, Equals, Less, LessOrEqual, Greater, GreaterOrEqual, IsEmpty };
    struct Condition {
        Field field;
        Relation relation;
        QString text;      ///< folded
        double number = 0; ///< seconds for a length
        bool operator==(const Condition &other) const = default;
    };

    bool addCondition(const QString &term);
    static bool holds(const Condition &condition, const QString &text);

    QStringList m_words;
    QList<Condition> m_conditions;
};

/// \a text without accents and case-folded, as the search compares texts.
QString foldedForSearch(const QString &text);
/// The line of \a lines with that number, as fulfils() needs it from texts that are kept together.
QString foldedLine(const QString &lines, qsizetype number);

} // namespace brisel
