#pragma once

#include "base/filewriting.h"
#include "base/plainfile.h"

#include <QByteArray>
#include <QString>

/// Gives the MP3 at \a path, of which \a song is open and gets closed, the tag \a tag in place of
/// what stands before \a audioStart (bytes). The new song is written beside the old one and put in
/// its place when it is whole and on the disk; all that replaceFile() keeps stays. One with other
/// names (hard links) is written in place, while a copy of the old one lies beside it. Changed when
/// the file at \a path is no longer the one that was opened. SourceFailed when its audio could not
/// be read, Failed when it failed otherwise (logged, but for the last step, the renaming). In all
/// three cases the song is as it was, and no temporary file stays behind. Only where the system
/// can't replace a file in one step, a failure at the very end can leave the song in the temporary
/// file alone. With a \a lot the new song is Staged there where that can be done, for its commit().
[[nodiscard]] WriteResult rewriteMp3(const QString &path, PlainFile &song, const QByteArray &tag,
                                     qint64 audioStart, FileLot *lot = nullptr);
