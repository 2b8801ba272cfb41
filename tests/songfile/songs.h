#pragma once

#include "songfile/metasong.h"
#include "tests/songfile/samples.h"

namespace brisel
{

/// Samples as the program's own song objects, and records to put into them.
namespace Samples
{

/// Writes \a content under \a name, opens it and reads its record; \a name has the format's
/// extension.
inline MetaSong opened(const QString &name, const QByteArray &content)
{
    write(name, content);
    MetaSong song;
    if (!song.importFile(name))
        qFatal("refused: %s", qPrintable(name));
    return song;
}

inline SongInfo infoOf(const MetaSong &song)
{
    SongInfo info;
    info.title = QStringLiteral("left over");
    song.getSongInfo(info);
    return info;
}

inline QByteArray header(int field, const QByteArray &text)
{
    return containerHeader("_ZB3", 512).replace(field, text.size(), text);
}

constexpr int titleField = 122;
constexpr int authorField = 186;
constexpr int artistField = 218;
constexpr int genreField = 250;

inline SongInfo fullInfo(bool isKordia)
{
    SongInfo info;
    info.title = QStringLiteral("New title");
    info.artist = QStringLiteral("New artist");
    info.genre = QStringLiteral("New genre");
    info.author = QStringLiteral("New author");
    info.length = 200;
    info.userBpm = 130;
    info.key = QStringLiteral("G");
    info.markers = {{QStringLiteral("M"), 4}};
    info.isKordia = isKordia;
    return info;
}

} // namespace Samples

} // namespace brisel
