#include "index/chosennames.h"

#include "base/songsuffix.h"
#include "index/songinfoindex.h"

namespace brisel
{

namespace
{

/// The name without its suffix, and the suffix without its point.
struct NameParts {
    explicit NameParts(const QString &name)
    {
        const qsizetype point = name.lastIndexOf(u'.');
        base = point < 0 ? name : name.left(point);
        suffix = point < 0 ? QString() : name.mid(point + 1);
    }
    QString base;
    QString suffix;
};

bool isForbidden(QChar character)
{
    constexpr char16_t lastControl = 0x1F;
    constexpr char16_t deleteCharacter = 0x7F;
    return character.unicode() <= lastControl || character.unicode() == deleteCharacter ||
           QStringView(u"\"*./:<>?\\|").contains(character);
}

bool isInCodePage(const QString &text)
{
    return pathFromBytes(pathBytes(text)) == text;
}

bool isDevice(const QString &base)
{
    const QString name = base.toUpper();
    const QString number = name.right(1);
    const bool isPort = (name.startsWith(u"COM") || name.startsWith(u"LPT")) && name.size() == 4 &&
                        number >= u"1" && number <= u"9";
    return isPort || name == u"CON" || name == u"PRN" || name == u"AUX" || name == u"NUL";
}

} // namespace

ChosenNames::Problem ChosenNames::problemOf(const QString &base)
{
    if (base.isEmpty())
        return Problem::Empty;
    if (const QString wrong = wrongCharacter(base); !wrong.isEmpty())
        return isForbidden(wrong.front()) ? Problem::Forbidden : Problem::NotInPlayer;
    if (base.size() > longest)
        return Problem::TooLong;
    if (base != base.trimmed())
        return Problem::Edge;
    return isDevice(base) ? Problem::Reserved : Problem::None;
}

QString ChosenNames::wrongCharacter(const QString &base)
{
    const QList<uint> characters = base.toUcs4();
    for (const uint code : characters) {
        QString character = QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1);
        if (isForbidden(character.front()) || !isInCodePage(character))
            return character;
    }
    return {};
}

bool ChosenNames::canChoose(const QString &name, const QString &newName)
{
    return isAllowed(newName) && NameParts(name).suffix == NameParts(newName).suffix &&
           foldedText(name) != foldedText(newName);
}

bool ChosenNames::isAllowed(const QString &name)
{
    const NameParts parts(name);
    return isSongSuffix(parts.suffix) && problemOf(parts.base) == Problem::None;
}

} // namespace brisel
