#pragma once

#include "base/filewriting.h"

#include <QByteArray>
#include <QString>

namespace brisel
{

class PlainFile;
class SongKeeper;

/// Older bytes of a song file: the whole file; of an MP3 the bytes before its audio.
struct OldSong {
    QString format; ///< MetaSong::getFormatString()
    QByteArray bytes;

    bool isMp3() const { return format == QLatin1StringView("MP3"); }
};

/// Puts \a old back into the song at \a path: the file is replaced, but an MP3 keeps its present
/// audio, which starts at \a tagSize; for other formats this is ignored. \a file is the opened
/// song, and gets closed. \a keeper, unless null, is shown the change, and its result unless that
/// is Staged for the commit() of \a lot. Returns Changed if the file is no longer the one that was
/// opened, SourceFailed if it can't be read completely, and Failed for other failures: then it is
/// unchanged.
[[nodiscard]] WriteResult restoreSong(const QString &path, PlainFile &file, const OldSong &old,
                                      qint64 tagSize, FileLot &lot, SongKeeper *keeper);

} // namespace brisel
