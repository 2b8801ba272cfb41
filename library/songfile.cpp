#include "library/songfile.h"

#include "library/songfailure.h"

#include <algorithm>

namespace brisel
{

SongFile::SongFile(const QString &filePath) : path(filePath)
{
    open();
}

SongFile::SongFile(const QString &filePath, PulledMemories &memories) : path(filePath)
{
    if (memories.pulledFrom(path).isEmpty())
        open();
}

Reason SongFile::whyNotOpen() const
{
    return whyNoSong(song, path);
}

void SongFile::open()
{
    isOpen = song.importFile(path);
    if (isOpen)
        song.getSongInfo(info);
}

bool hasMidiData(const QString &format)
{
    constexpr SongInfo::fileTypeEnum types[] = {SongInfo::Midi0, SongInfo::Midi1, SongInfo::Zb3,
                                                SongInfo::Zb4, SongInfo::Zb5};
    return std::any_of(std::begin(types), std::end(types),
                       [&format](auto type) { return MetaSong::getFormatString(type) == format; });
}

} // namespace brisel
