#include "library/songfailure.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "songfile/metasong.h"

#include <QFileInfo>

#include <limits>

namespace brisel
{

Reason whyNoSong(const MetaSong &song, const QString &path)
{
    if (song.trouble() == MetaSong::Trouble::CutShort && isRegularFile(path))
        return FileReason::truncated;
    // Of an MP3 only the tag is read.
    const bool isMp3 = path.endsWith(QStringLiteral("MP3"), Qt::CaseInsensitive);
    return whyUnreadable(path, isMp3 ? std::numeric_limits<qint64>::max() : MetaSong::maxSongSize)
        .value_or(SongReason::unknownFormat);
}

Reason whyNotSaved(const MetaSong &song, const QString &path)
{
    if (!isRegularFile(path) || song.trouble() == MetaSong::Trouble::CutShort)
        return whyNoSong(song, path);
    if (song.trouble() == MetaSong::Trouble::ChangedMeanwhile)
        return FileReason::changed;
    if (!song.isWholeInMemory())
        return SongReason::wouldBeTooLarge;
    return whyNotPlaced(path);
}

Reason whyNotPlaced(const QString &path)
{
    if (!isRegularFile(path))
        return whyNoSong(MetaSong(), path);
    // The new content is written beside the old one, and is about as long.
    return whyUnwritable(path, QFileInfo(path).size());
}

} // namespace brisel
