#include "base/overwriting.h"

#include "base/fileattributes.h"
#include "base/filecopying.h"
#include "base/filedescriptor.h"
#include "base/filereading.h"
#include "base/flushing.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <limits>
#include <system_error>

#include <fcntl.h>

namespace brisel
{

namespace
{

/// Opens the plain file at \a path without blocking and without truncating it: it keeps its space,
/// so that restoring the old content needs no free room.
bool openToOverwrite(QFile &file, const QString &path)
{
    FileDescriptor opened = FileDescriptor::open(path, O_RDWR | O_NONBLOCK | O_NOCTTY);
    return fileState(opened.get()).kind == FileKind::Regular &&
           opened.giveTo(file, QIODevice::ReadWrite);
}

[[nodiscard]] bool writeFromStart(QFile &file, const ContentWriter &write)
{
    return file.seek(0) && write(file);
}

} // namespace

bool hasOtherNames(const QString &path)
{
    std::error_code error;
    const auto names =
        std::filesystem::hard_link_count(QFileInfo(path).filesystemAbsoluteFilePath(), error);
    return !error && names > 1;
}

bool finishOverwriting(QFile &file, qint64 size)
{
    return (file.size() <= size || file.resize(size)) && finishWriting(file, size);
}

WriteResult overwriteKeepingCopy(const QString &path, QFile &copy, const FileState *expected,
                                 const ContentWriter &write)
{
    const QString folder = QFileInfo(copy.fileName()).absolutePath();
    const auto end = [&copy](WriteResult result) {
        copy.remove();
        return result;
    };
    QFile file;
    if (!openToOverwrite(file, path))
        return end(WriteResult::Failed);
    const FileState before = fileState(file.handle());
    if (expected != nullptr && before != *expected)
        return end(WriteResult::Changed);
    keepAttributes(file.handle(), copy.handle());
    const CopyResult copied = copyRest(file.handle(), 0, before.size, copy.handle());
    if (copied == CopyResult::TargetFailed ||
        (copied == CopyResult::Done && (!finishWriting(copy, before.size) || !flushFolder(folder))))
        return end(WriteResult::Failed);
    if (fileState(path) != before)
        return end(WriteResult::Changed);
    if (copied == CopyResult::SourceFailed)
        return end(WriteResult::SourceFailed);
    const bool isWritten = writeFromStart(file, write);
    const auto putBack = [&](QFile &target) {
        return copyRest(copy.handle(), 0, before.size, target.handle()) == CopyResult::Done &&
               finishOverwriting(target, before.size);
    };
    if (!isWritten && !writeFromStart(file, putBack))
        return WriteResult::Failed;
    copy.remove();
    (void)flushFolder(folder); // a copy that reappears after a cut is harmless
    return isWritten ? WriteResult::Done : WriteResult::Failed;
}

WriteResult overwriteFromMemory(const QString &path, const QByteArray &content,
                                const FileState *expected)
{
    constexpr qint64 most = std::numeric_limits<qsizetype>::max();
    const FileContent old = readWholeFile(path, most);
    if (!old.isDone())
        return old.result == ReadResult::CutShort ? WriteResult::SourceFailed : WriteResult::Failed;
    QFile file;
    if (!openToOverwrite(file, path))
        return WriteResult::Failed;
    if ((expected != nullptr && old.state != *expected) || fileState(file.handle()) != old.state)
        return WriteResult::Changed;
    const auto writing = [](const QByteArray &bytes) {
        return [&bytes](QFile &target) {
            return writeAll(target, bytes) && finishOverwriting(target, bytes.size());
        };
    };
    if (writeFromStart(file, writing(content)))
        return WriteResult::Done;
    (void)writeFromStart(file, writing(old.bytes)); // failed in either case
    return WriteResult::Failed;
}

} // namespace brisel
