#pragma once

#include <QByteArray>
#include <QString>

/// Gives the MP3 at \a path the tag \a tag in place of what stands before \a audioStart (bytes).
/// The new song is written beside the old one and put in its place when it is whole and on the
/// disk; permissions and the target of a symbolic link stay. False when that failed (logged, but
/// for the last step, the renaming): the song is as it was, and no temporary file stays behind.
/// Only where the system can't replace a file in one step, a failure at the very end can leave the
/// song in the temporary file alone.
bool rewriteMp3(const QString &path, const QByteArray &tag, qint64 audioStart);
