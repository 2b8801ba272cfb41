#include "library/songsearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace brisel
{

namespace
{

struct FieldName {
    const char16_t *name; ///< folded
    SongSearch::Field field;
};

constexpr std::array fieldNames{
    FieldName{u"TITOLO", SongSearch::Field::Title},
    FieldName{u"TITLE", SongSearch::Field::Title},
    FieldName{u"ARTISTA", SongSearch::Field::Artist},
    FieldName{u"ARTIST", SongSearch::Field::Artist},
    FieldName{u"INTERPRETE", SongSearch::Field::Artist},
    FieldName{u"GENERE", SongSearch::Field::Genre},
    FieldName{u"GENRE", SongSearch::Field::Genre},
    FieldName{u"AUTORE", SongSearch::Field::Author},
    FieldName{u"AUTHOR", SongSearch::Field::Author},
    FieldName{u"FILE", SongSearch::Field::FileName},
    FieldName{u"CARTELLA", SongSearch::Field::Folder},
    FieldName{u"FOLDER", SongSearch::Field::Folder},
    FieldName{u"FORMATO", SongSearch::Field::Format},
    FieldName{u"FORMAT", SongSearch::Field::Format},
    FieldName{u"TONALITA", SongSearch::Field::Key},
    FieldName{u"KEY", SongSearch::Field::Key},
    FieldName{u"STATO", SongSearch::Field::Outcome},
    FieldName{u"STATUS", SongSearch::Field::Outcome},
    FieldName{u"BPM", SongSearch::Field::Bpm},
    FieldName{u"TEMPO", SongSearch::Field::Bpm},
    FieldName{u"DURATA", SongSearch::Field::Length},
    FieldName{u"LENGTH", SongSearch::Field::Length},
};

std::optional<SongSearch::Field> fieldOf(const QString &name)
{
    const auto found = std::find_if(fieldNames.cbegin(), fieldNames.cend(),
                                    [&name](const FieldName &field) { return name == field.name; });
    return found == fieldNames.cend() ? std::nullopt : std::optional(found->field);
}

/// Whether a longer text may become the name of a field.
bool beginsField(const QString &text)
{
    return std::any_of(fieldNames.cbegin(), fieldNames.cend(), [&text](const FieldName &field) {
        return QStringView(field.name).startsWith(text);
    });
}

bool isNumeric(SongSearch::Field field)
{
    return field == SongSearch::Field::Bpm || field == SongSearch::Field::Length;
}

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

/// "3:30" and "3" (minutes) as seconds for a length, otherwise the number.
double numberOf(SongSearch::Field field, QStringView text)
{
    const bool isLength = field == SongSearch::Field::Length;
    const qsizetype colon = isLength ? text.indexOf(u':') : -1;
    bool isNumber = false;
    const double number = (colon < 0 ? text : text.first(colon)).toDouble(&isNumber);
    if (!isNumber)
        return noNumber;
    if (!isLength)
        return number;
    if (colon < 0 || colon + 1 == text.size())
        return number * 60;
    const int seconds = text.sliced(colon + 1).toInt(&isNumber);
    return isNumber ? number * 60 + seconds : noNumber;
}

/// The terms between blanks; quotes hold blanks together and are dropped.
QStringList termsOf(const QString &text)
{
    QStringList terms;
    QString term;
    bool isQuoted = false;
    for (const QChar character : text) {
        if (character == u'"') {
            isQuoted = !isQuoted;
        } else if (character.isSpace() && !isQuoted) {
            terms.append(std::exchange(term, {}));
        } else {
            term.append(character.isSpace() ? QChar(u' ') : character);
        }
    }
    terms.append(term);
    terms.removeAll(QString());
    return terms;
}

} // namespace

SongSearch::SongSearch(const QString &text)
{
    for (const QString &term : termsOf(foldedForSearch(text))) {
        if (!addCondition(term))
            m_words.append(term);
    }
}

/// Returns false if \a term is a word: it names no field, or has no number for it.
bool SongSearch::addCondition(const QString &term)
{
    const auto isSign = [](QChar character) {
        return character == u':' || character == u'=' || character == u'<' || character == u'>';
    };
    const qsizetype sign = std::find_if(term.cbegin(), term.cend(), isSign) - term.cbegin();
    if (sign == 0 || sign == term.size())
        return false;
    const QString name = term.left(sign);
    QString value = term.mid(sign + 1);
    if (name == u"SENZA" || name == u"WITHOUT") {
        if (const auto field = fieldOf(value))
            m_conditions.append({*field, Relation::IsEmpty, {}});
        return beginsField(value);
    }
    const std::optional<Field> field = fieldOf(name);
    if (!field.has_value())
        return false;
    const bool orEqual = value.startsWith(u'=');
    if (orEqual)
        value.remove(0, 1);
    Relation relation = Relation::Contains;
    if (term.at(sign) == u'<')
        relation = orEqual ? Relation::LessOrEqual : Relation::Less;
    else if (term.at(sign) == u'>')
        relation = orEqual ? Relation::GreaterOrEqual : Relation::Greater;
    else if (term.at(sign) == u'=' || isNumeric(*field))
        relation = Relation::Equals;
    if (value.isEmpty())
        return true;
    const double number = isNumeric(*field) ? numberOf(*field, value) : 0;
    if (std::isnan(number))
        return false;
    m_conditions.append({*field, relation, value, number});
    return true;
}

bool SongSearch::fulfils(const std::function<QString(Field)> &textOf) const
{
    return std::all_of(m_conditions.cbegin(), m_conditions.cend(),
                       [&textOf](const Condition &condition) {
                           return holds(condition, textOf(condition.field));
                       });
}

/// Texts are compared by their order, so that "titolo<m" finds those before the letter m.
bool SongSearch::holds(const Condition &condition, const QString &text)
{
    const bool isNumber = isNumeric(condition.field);
    const double number = isNumber ? numberOf(condition.field, text) : noNumber;
    if (condition.relation == Relation::IsEmpty)
        return isNumber ? std::isnan(number) || number == 0 : text.trimmed().isEmpty();
    if (condition.relation == Relation::Contains)
        return text.contains(condition.text);
    if (isNumber && std::isnan(number))
        return false;
    const double order = isNumber ? number - condition.number : text.compare(condition.text);
    switch (condition.relation) {
    case Relation::Less:
        return order < 0;
    case Relation::LessOrEqual:
        return order <= 0;
    case Relation::Greater:
        return order > 0;
    case Relation::GreaterOrEqual:
        return order >= 0;
    default:
        return order == 0;
    }
}

QString foldedForSearch(const QString &text)
{
    const bool isAscii = std::all_of(text.cbegin(), text.cend(),
                                     [](QChar character) { return character.unicode() < 0x80; });
    if (isAscii)
        return text.toUpper();
    QString folded = text.normalized(QString::NormalizationForm_KD);
    folded.removeIf([](QChar character) { return character.isMark(); });
    return folded.toUpper(); // only toUpper() turns a sharp s into two letters
}

QString foldedLine(const QString &lines, qsizetype number)
{
    qsizetype start = 0;
    for (; number > 0; --number)
        start = lines.indexOf(u'\n', start) + 1;
    const qsizetype end = lines.indexOf(u'\n', start);
    return lines.mid(start, end < 0 ? -1 : end - start);
}

} // namespace brisel
