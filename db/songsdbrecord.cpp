#include "db/songsdbrecord.h"

#include "base/debugstream.h"

namespace brisel
{

void SongsDbRecord::dbgDump() const
{
    if (!DebugStream::isHeard())
        return;
    debug() << "  Title     :" << title;
    debug() << "  Genre     :" << genre;
    debug() << "  Artist    :" << artist;
    debug() << "  AltArtist :" << altArtist;
    debug() << "  Author    :" << author;
    debug() << "  Bpm       :" << bpm;
    debug() << "  Key       :" << key;
    debug() << "  Length    :" << length;
    if (markers.isEmpty())
        debug() << "  NO Markers";
    else
        debug() << "  Markers:";
    for (const Marker &marker : markers)
        debug() << "    bar:" << marker.bar << "  text:" << marker.text;
    debug() << "";
}

} // namespace brisel
