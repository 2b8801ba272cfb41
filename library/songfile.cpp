#include "library/songfile.h"

#include "library/songfailure.h"

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

} // namespace brisel
