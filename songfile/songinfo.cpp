#include "songfile/songinfo.h"

#include "base/debugstream.h"

namespace brisel
{

void SongInfo::dbgDump() const
{
    if (!DebugStream::isHeard())
        return;
    debug() << "Dump Info song ----------------------------------------------";
    debug() << "Format     :" << format;
    debug() << "Filename   :" << fileName;
    debug() << "Shortname  :" << shortName;
    debug() << "Is Kordia  :" << isKordia;
    debug() << "Title      :" << title;
    debug() << "Artist     :" << artist;
    debug() << "AltArtist  :" << altArtist;
    debug() << "Genre      :" << genre;
    debug() << "Author     :" << author;
    debug() << "Length     :" << length;
    debug() << "userBpm    :" << userBpm;
    if (markers.isEmpty())
        debug() << "NO Markers";
    else
        debug() << "Markers:";
    for (const Marker &marker : markers)
        debug() << "  bar:" << marker.bar << "  text:" << marker.text;
    debug() << "ZbxLongName:" << zbxLongName;
    // The byte is signed in the record, and logged with its sign.
    debug() << "ZbxFlags   :"
            << QStringLiteral("0x%1").arg(static_cast<int>(zbxFlags), 2, 16, QChar(u'0'));
    debug() << "Dump END ----------------------------------------------------";
}

} // namespace brisel
