#include "base/lettercase.h"

#include <algorithm>

namespace brisel
{

namespace
{

/// \a text with \a distance added to the letters from \a first to \a last.
QString moved(const QString &text, char16_t first, char16_t last, int distance)
{
    QString result(text.size(), Qt::Uninitialized);
    std::transform(text.cbegin(), text.cend(), result.begin(), [=](QChar letter) {
        const bool moves = letter >= first && letter <= last;
        return QChar(letter.unicode() + (moves ? distance : 0));
    });
    return result;
}

} // namespace

bool isAscii(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar letter) { return letter.unicode() < 0x80; });
}

QString asciiUpperCased(const QString &text)
{
    return moved(text, u'a', u'z', 'A' - 'a');
}

QString upperCased(const QString &text)
{
    return !text.isEmpty() && isAscii(text) ? asciiUpperCased(text) : text.toUpper();
}

QString lowerCased(const QString &text)
{
    return !text.isEmpty() && isAscii(text) ? moved(text, u'A', u'Z', 'a' - 'A') : text.toLower();
}

} // namespace brisel
