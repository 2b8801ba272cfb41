#include "base/filewriting.h"

#include "base/filedescriptor.h"
#include "base/filelot.h"
#include "base/filereplacement.h"
#include "base/flushing.h"
#include "base/overwriting.h"
#include "base/plainfile.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace brisel
{

namespace
{

WriteResult writeBeside(FileLot &lot, const FileLot::Place &place, const QByteArray &content)
{
    std::unique_ptr<FileReplacement> file = lot.open(place);
    if (file == nullptr)
        return WriteResult::Failed;
    // For a file without read permission only the permissions can be kept.
    if (!file->keepAttributesOfOld() && QFile::exists(place.path))
        file->file().setPermissions(QFile::permissions(place.path));
    if (file->write(content)) {
        lot.add(std::move(file));
        return WriteResult::Staged;
    }
    const bool isChanged = place.expected != nullptr && fileState(place.watched) != *place.expected;
    return isChanged ? WriteResult::Changed : WriteResult::Failed;
}

/// Like writeBeside(), for a file that keeps its other names.
WriteResult writeThrough(const QString &target, const QByteArray &content,
                         const FileState *expected)
{
    QFile copy;
    const QString folder = QFileInfo(target).absolutePath();
    if (!openNewFile(
            copy, [&folder](int attempt) { return temporaryPathIn(folder, attempt); }, true))
        return WriteResult::Failed;
    return overwriteKeepingCopy(target, copy, expected, [&content](QFile &file) {
        return writeAll(file, content) && finishOverwriting(file, content.size());
    });
}

/// Returns Staged if the lot must do the rest.
WriteResult replaceIn(FileLot &lot, const QString &path, const QByteArray &content,
                      const FileState *expected)
{
    const FileState found = fileState(path);
    if (expected != nullptr && found != *expected)
        return WriteResult::Changed;
    const bool isThere = found.kind == FileKind::Regular;
    const QFileInfo entry(path);
    if (!isThere && (found.kind != FileKind::Missing || entry.isSymLink()))
        return WriteResult::Failed;
    const QString target = isThere ? entry.canonicalFilePath() : path;
    if (isThere && !QFileInfo(target).isWritable())
        return WriteResult::Failed;

    // Only in a write-protected folder: in a full one the old file must not be overwritten.
    if (!QFileInfo(QFileInfo(target).absolutePath()).isWritable()) {
        if (!isThere)
            return WriteResult::Failed;
        lot.aboutToReplace();
        return overwriteFromMemory(target, content, expected);
    }
    if (isThere && hasOtherNames(target)) {
        lot.aboutToReplace();
        return writeThrough(target, content, expected);
    }
    FileLot::Place place{target};
    place.expected = expected;
    place.watched = path;
    return writeBeside(lot, place, content);
}

WriteResult replaceAlone(const QString &path, const QByteArray &content, const FileState *expected,
                         const std::function<void()> &beforeReplacing = {})
{
    FileLot lot;
    lot.setBeforeReplacing(beforeReplacing);
    const WriteResult result = replaceIn(lot, path, content, expected);
    return result == WriteResult::Staged ? lot.commit().first() : result;
}

} // namespace

bool replaceFile(const QString &path, const QByteArray &content)
{
    return replaceAlone(path, content, nullptr) == WriteResult::Done;
}

WriteResult replaceUnchanged(const QString &path, const QByteArray &content,
                             const FileState &expected, FileLot *lot,
                             const std::function<void()> &beforeReplacing)
{
    return lot == nullptr ? replaceAlone(path, content, &expected, beforeReplacing)
                          : replaceIn(*lot, path, content, &expected);
}

bool appendToFile(const QString &path, const QByteArray &data, qint64 largest)
{
    const FileDescriptor file =
        FileDescriptor::open(path, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY);
    const FileState state = fileState(file.get());
    return state.kind == FileKind::Regular && state.size <= largest &&
           ::write(file.get(), data.constData(), static_cast<size_t>(data.size())) == data.size();
}

bool writeAll(QFileDevice &file, const QByteArray &data)
{
    return file.write(data) == data.size();
}

bool finishWriting(QFileDevice &file, qint64 expectedSize)
{
    return file.flush() && file.error() == QFileDevice::NoError && flushHandle(file.handle()) &&
           file.size() == expectedSize;
}

QString temporaryPathIn(const QString &folder, int attempt)
{
    return QStringLiteral("%1/.brisel-save-%2.tmp").arg(folder, QString::number(attempt + 1));
}

bool openNewFile(QFile &file, const TemporaryPath &pathOf, bool isPrivate)
{
    const QIODevice::OpenMode mode =
        QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered;
    const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner;
    constexpr int maxAttempts = 1000;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        file.setFileName(pathOf(attempt));
        if (isPrivate ? file.open(mode, own) : file.open(mode))
            return true;
        if (!entryExists(file.fileName()))
            return false;
    }
    return false;
}

bool moveIntoPlace(const QString &from, const QString &to)
{
    // In the order that FAT needs: see FileLot.
    PlainFile old;
    (void)old.open(to);
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemAbsoluteFilePath(),
                            QFileInfo(to).filesystemAbsoluteFilePath(), error);
    if (error)
        return false;
    const QString before = QFileInfo(from).absolutePath();
    const QString folder = QFileInfo(to).absolutePath();
    // It has its new name now, even if that could not be flushed.
    if (before != folder)
        (void)flushFolder(before);
    if (PlainFile file; file.open(to))
        (void)flushHandle(file.handle());
    (void)flushFolder(folder);
    return true;
}

} // namespace brisel
