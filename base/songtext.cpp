#include "base/songtext.h"

#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

bool isBlank(QChar character)
{
    constexpr char16_t nextLine = 0x85;
    return character.isSpace() && character != QChar(nextLine);
}

} // namespace

QString trimmedSongText(const QString &text)
{
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && isBlank(text.at(first)))
        ++first;
    while (end > first && isBlank(text.at(end - 1)))
        --end;
    return text.mid(first, end - first);
}

QString songText(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    return trimmedSongText(QString::fromLatin1(end < 0 ? bytes : bytes.first(end)));
}

bool holdsMoreThanSongText(QByteArrayView bytes)
{
    const auto zero = std::find(bytes.begin(), bytes.end(), '\0');
    return std::any_of(zero, bytes.end(), [](char byte) { return byte != '\0'; });
}

QByteArray songBytes(const QString &text)
{
    return text.toLatin1();
}

QString charactersLostInSongBytes(const QString &text)
{
    constexpr uint lastOfLatin1 = 0xFF;
    QString lost;
    QSet<uint> known;
    for (const uint character : text.toUcs4()) {
        if (character <= lastOfLatin1 || known.contains(character))
            continue;
        known.insert(character);
        lost += QChar::fromUcs4(character);
    }
    return lost;
}

} // namespace brisel
