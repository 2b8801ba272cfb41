#pragma once

#include <QByteArray>
#include <QString>

class QFileDevice;

/// Writing that notices a full disk and never leaves half a file under a file's own name.

/// Replaces the content of \a path, or creates the file: the new content is written beside it,
/// flushed to the disk and put in its place in one step. Permissions and the target of a symbolic
/// link stay. Where the folder allows no new file the content is written in place; when that fails
/// the old content is put back. False when it failed:
/// the file holds its old content then, or, when only the folder could not be flushed to the disk,
/// the new one. Refuses whatever is not a plain file.
bool replaceFile(const QString &path, const QByteArray &content);

/// Writes all of \a data; false when the device took less.
bool writeAll(QFileDevice &file, const QByteArray &data);

/// Flushes \a file to the disk. True when no write has failed and it is \a expectedSize bytes long.
bool finishWriting(QFileDevice &file, qint64 expectedSize);

/// Renames \a from to \a to, replacing a file of that name in one step, and flushes the folder.
/// False when nothing was renamed.
bool moveIntoPlace(const QString &from, const QString &to);

/// Like moveIntoPlace(), and where the system can't replace a file in one step, deletes \a to
/// first. False when that failed: \a from is still there, and \a to too unless it was deleted
/// first.
bool moveOver(const QString &from, const QString &to);

/// Flushes the entries of \a folder to the disk, where the system offers that. False on failure.
bool flushFolder(const QString &folder);
