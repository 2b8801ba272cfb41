#include "tools/syntheticcatalogue.h"

#include <array>

namespace brisel
{

namespace
{

constexpr int artistCount = 900;
constexpr int genreCount = 20;
constexpr int sharedTitleEvery = 25; ///< every 25th row has the title of the row before

/// A permutation of 0 to 999,999: the factor and the range have no common divisor.
int scattered(int number)
{
    constexpr qint64 range = 1000000;
    constexpr qint64 factor = 387101;
    return static_cast<int>(number * factor % range);
}

QString markersOf(int number)
{
    if (number % 2 != 0)
        return {};
    return QStringLiteral("1;Intro;%1;Verse 1;%2;Chorus;%3;Fine;")
        .arg(5 + number % 5)
        .arg(21 + number % 7)
        .arg(41 + number % 9);
}

CatalogueRow rowOf(int number)
{
    static constexpr std::array keys{"C", "A -", "G", "E -", "Bb", "F#", "", "C# -"};
    const bool sharesTitle = number > 0 && number % sharedTitleEvery == 0;
    const int artist = scattered(number) % artistCount;
    CatalogueRow row;
    row.title = QStringLiteral("SYNTHETIC SONG %1").arg(sharesTitle ? number - 1 : number);
    row.artist = QStringLiteral("NAME%1 SURNAME%1").arg(artist);
    row.altArtist = QStringLiteral("SURNAME%1 NAME%1").arg(artist);
    row.genre = QStringLiteral("SYNTHETIC GENRE %1").arg(number % genreCount);
    row.author = QStringLiteral("AUTHOR%1 - AUTHOR%2").arg(artist).arg(number % artistCount);
    row.length = 60 + number % 300;
    row.bpm = 60 + number % 140;
    row.key = QLatin1StringView(keys.at(static_cast<size_t>(number) % keys.size()));
    row.fileName = QStringLiteral("SY%1").arg(scattered(number), 6, 10, QChar(u'0'));
    row.markers = markersOf(number);
    return row;
}

} // namespace

QList<CatalogueRow> syntheticCatalogue(int count)
{
    QList<CatalogueRow> rows;
    rows.reserve(count);
    for (int number = 0; number < count; ++number)
        rows.append(rowOf(number));
    return rows;
}

} // namespace brisel
