#include "db/songnameforms.h"

#include "base/songsuffix.h"

#include <QRegularExpression>
#include <QSet>

namespace brisel
{

namespace
{

constexpr qsizetype mostWords = 12;
constexpr qsizetype longestWord = 64;    ///< characters
constexpr qsizetype longestName = 1'000; ///< characters; the rest of a name is not searched

bool isPartOfWord(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

/// "Artist - Title" of "03_Artist_-_Title.mid".
QString plainName(const QString &fileName)
{
    static const QRegularExpression trackNumber(
        QStringLiteral("^\\(?(?:\\d{1,3}\\s*[.)\\-]|0\\d{1,2}\\s)\\s*"));
    const qsizetype point = fileName.lastIndexOf(u'.');
    const bool hasSuffix = point >= 0 && isSongSuffix(QStringView(fileName).mid(point + 1));
    QString name = (hasSuffix ? fileName.left(point) : fileName).left(longestName);
    name.replace(u'_', u' ');
    const QString withoutNumber = QString(name).remove(trackNumber);
    return searchWords(withoutNumber).isEmpty() ? name : withoutNumber;
}

/// Adds both readings of a name of two parts: the first part of more than two is read against all
/// others.
void addPartsOf(const QString &name, QList<SongNameForm> &forms)
{
    static const QRegularExpression dash(QStringLiteral("\\s+[-\u2013\u2014]+\\s+"));
    const QRegularExpressionMatch match = dash.match(name);
    if (!match.hasMatch())
        return;
    const QStringList first = searchWords(name.left(match.capturedStart()));
    const QStringList rest = searchWords(name.mid(match.capturedEnd()));
    if (first.isEmpty() || rest.isEmpty())
        return;
    forms.append({rest, first, {}});
    forms.append({first, rest, {}});
}

} // namespace

QStringList searchWords(const QString &text)
{
    QStringList words;
    QSet<QString> known;
    QString word;
    const auto take = [&] {
        const QString folded = word.toCaseFolded();
        if (!word.isEmpty() && words.size() < mostWords && !known.contains(folded)) {
            known.insert(folded);
            words.append(word);
        }
        word.clear();
    };
    const QList<uint> characters = text.left(longestName).toUcs4();
    for (const uint character : characters) {
        if (!isPartOfWord(character))
            take();
        else if (word.size() < longestWord)
            word += QChar::fromUcs4(character);
    }
    take();
    return words;
}

QList<SongNameForm> songNameForms(const SongInfo &info, const QString &fileName)
{
    const QString title = info.title.left(longestName);
    const QString name = plainName(fileName);
    QList<SongNameForm> forms{{searchWords(title), searchWords(info.artist), {}}};
    addPartsOf(title, forms);
    addPartsOf(name, forms);
    forms.append({{}, {}, searchWords(name)});
    QList<SongNameForm> distinct;
    for (const SongNameForm &form : std::as_const(forms)) {
        if (!form.isEmpty() && !distinct.contains(form))
            distinct.append(form);
    }
    return distinct;
}

} // namespace brisel
