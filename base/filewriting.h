#pragma once

#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

#include <functional>

class QFile;
class QFileDevice;

namespace brisel
{

/// Writing that notices a full disk and never leaves half a file under a file's own name.

enum class WriteResult {
    Done,
    Failed,
    NotNamed,     ///< written, but it could not take its name
    SourceFailed, ///< the old content could not be read to its end
    Changed,      ///< what stands there is no longer what was expected
    Staged,       ///< written beside; FileLot::commit() puts it in its place
};

class FileLot;

/// Replaces the content of \a path, or creates the file: the new content is written beside it,
/// flushed to the disk and put in its place in one step. Permissions and the target of a symbolic
/// link stay, and so do owner, group, extended attributes and the attributes of FAT where the
/// system lets them. A file with other names (hard links) keeps them: it is written in place, while
/// a copy of the old content lies beside it. Where the folder allows no new file the content is
/// written in place with the old one in memory. When writing in place fails the old content is put
/// back. False when it failed: the file holds its old content then, or, when only the folder could
/// not be flushed to the disk, the new one. Refuses whatever is not a plain file.
[[nodiscard]] bool replaceFile(const QString &path, const QByteArray &content);

/// The same with the reason: SourceFailed when the old content, which is kept aside, can't be read,
/// and Changed when what stands at \a path is not, or immediately before the last step
/// no longer is, what \a expected says: nothing is touched then and nothing left beside it. With a
/// \a lot the new content is Staged there where that can be done, for the lot's commit().
[[nodiscard]] WriteResult replaceUnchanged(const QString &path, const QByteArray &content,
                                           const FileState &expected, FileLot *lot = nullptr);

/// Adds \a data to the end of the plain file at \a path in one write, and creates it when it is
/// missing. Waits for nothing. False when that failed, or the file holds more than \a largest
/// bytes.
[[nodiscard]] bool appendToFile(const QString &path, const QByteArray &data, qint64 largest);

/// Writes all of \a data; false when the device took less.
[[nodiscard]] bool writeAll(QFileDevice &file, const QByteArray &data);

/// Flushes \a file to the disk. True when no write has failed and it is \a expectedSize bytes long.
[[nodiscard]] bool finishWriting(QFileDevice &file, qint64 expectedSize);

/// The path of a temporary file for each attempt to make one, counted from 0.
using TemporaryPath = std::function<QString(int attempt)>;

/// A hidden name in \a folder. It is not made from a song's name, which may be as long as the
/// system allows, and players don't show what an interrupted save leaves behind.
QString temporaryPathIn(const QString &folder, int attempt);

/// Creates a file under the first of the names that is free, for reading and writing, unbuffered.
/// With \a isPrivate only its owner may open it. False when none could be created.
[[nodiscard]] bool openNewFile(QFile &file, const TemporaryPath &pathOf, bool isPrivate);

/// Renames \a from to \a to, replacing a file of that name in one step, and flushes it and its
/// folders as far as possible. False when nothing was renamed.
[[nodiscard]] bool moveIntoPlace(const QString &from, const QString &to);

} // namespace brisel
