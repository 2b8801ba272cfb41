#pragma once

#include "base/fileidentity.h"

#include <QByteArray>
#include <QString>

#include <functional>

class QFile;
class QFileDevice;

namespace brisel
{

/// Writing that detects a full disk and never leaves an incomplete file under the final name.

enum class WriteResult {
    Done,
    Failed,
    NotNamed,     ///< written, but it could not be renamed
    SourceFailed, ///< the old content could not be read completely
    Changed,      ///< the file is not in the expected state
    Staged,       ///< written to a temporary file; FileLot::commit() renames it
};

class FileLot;

/// Replaces the content of \a path, or creates the file: the new content is written beside it,
/// flushed to the disk and renamed in one step. Keeps permissions and the target of a symbolic
/// link, and if the system permits, owner, group, extended attributes and the attributes of FAT. A
/// file with other names (hard links) keeps them: it is written in place, with a copy of the old
/// content beside it. If the folder allows no new files, the content is written in place with the
/// old one in memory. If writing in place fails, the old content is restored. Returns false on
/// failure: then the file has its old content or, if only the folder could not be flushed to the
/// disk, the new one. Rejects entries that are not plain files.
[[nodiscard]] bool replaceFile(const QString &path, const QByteArray &content);

/// The same with the reason: SourceFailed if the old content, which must be copied, can't be read;
/// Changed if the file at \a path is not in the state \a expected, at the start or immediately
/// before the last step: then nothing is changed and no temporary file left. With a \a lot the new
/// content is Staged there if possible, for the lot's commit(); without one,
/// \a beforeReplacing is called before the file is changed: see FileLot::setBeforeReplacing().
[[nodiscard]] WriteResult replaceUnchanged(const QString &path, const QByteArray &content,
                                           const FileState &expected, FileLot *lot = nullptr,
                                           const std::function<void()> &beforeReplacing = {});

/// Appends \a data to the plain file at \a path in one write, and creates it if it is missing.
/// Never blocks. Returns false on failure, or if the file has more than \a largest bytes.
[[nodiscard]] bool appendToFile(const QString &path, const QByteArray &data, qint64 largest);

/// Writes all of \a data. Returns false if fewer bytes were written.
[[nodiscard]] bool writeAll(QFileDevice &file, const QByteArray &data);

/// Flushes \a file to the disk. Returns true if no write has failed and it is \a expectedSize bytes
/// long.
[[nodiscard]] bool finishWriting(QFileDevice &file, qint64 expectedSize);

/// The path of a temporary file for each attempt to make one, counted from 0.
using TemporaryPath = std::function<QString(int attempt)>;

/// A hidden name in \a folder, so that players don't show the rest of an interrupted save. It does
/// not contain the song's name, which may be as long as the system allows.
QString temporaryPathIn(const QString &folder, int attempt);

/// Creates a file under the first of the names that is free, for reading and writing, unbuffered.
/// With \a isPrivate only its owner may open it. Returns false if no file could be created.
[[nodiscard]] bool openNewFile(QFile &file, const TemporaryPath &pathOf, bool isPrivate);

/// Renames \a from to \a to, replacing a file of that name in one step, and flushes it and its
/// folders as far as possible. Returns false if nothing was renamed.
[[nodiscard]] bool moveIntoPlace(const QString &from, const QString &to);

} // namespace brisel
