#pragma once

#include "base/filewriting.h"
#include "base/plainfile.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace brisel
{

/// Replaces the bytes before \a audioStart of the MP3 at \a path by the tag \a tag. \a song is the
/// opened MP3, and gets closed. The new song is written to a temporary file, flushed, and renamed
/// over the old one; everything that replaceFile() keeps is kept. A song with several names (hard
/// links) is written in place, while a copy of the old one is beside it.
///
/// Returns Changed if the file at \a path is no longer the one that was opened, SourceFailed if its
/// audio could not be read, and Failed for other failures (logged, except for the renaming). In all
/// three cases the song is unchanged, and no temporary file is left. Only if the system can't
/// replace a file in one step, a failure at the very end can leave the song only in the temporary
/// file. With a \a lot the new song is Staged for its commit() if possible; without one,
/// \a beforeReplacing is called before the song is changed: see FileLot::setBeforeReplacing().
[[nodiscard]] WriteResult rewriteMp3(const QString &path, PlainFile &song, const QByteArray &tag,
                                     qint64 audioStart, FileLot *lot = nullptr,
                                     const std::function<void()> &beforeReplacing = {});

} // namespace brisel
