#include "base/filewriting.h"

#include "base/fileattributes.h"
#include "base/overwriting.h"
#include "base/plainfile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace
{

bool flushToDisk(QFileDevice &file)
{
#ifdef Q_OS_UNIX
    // Some file systems can't flush a single file; that alone is no reason to refuse the write.
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
#else
    Q_UNUSED(file)
    return true;
#endif
}

/// Opens a new file in \a folder. Its name has nothing of the song's: those may be as long as the
/// system allows, and no player shows what a cut has left.
bool openFreeName(QFile &file, const QString &folder)
{
    constexpr int maxAttempts = 1000;
    for (int attempt = 1; attempt <= maxAttempts; ++attempt) {
        const QString number = QString::number(attempt);
        file.setFileName(QStringLiteral("%1/.brisel-save-%2.tmp").arg(folder, number));
        if (file.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered))
            return true;
        const QFileInfo entry(file.fileName());
        if (!entry.exists() && !entry.isSymLink())
            return false;
    }
    return false;
}

std::error_code renameEntry(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemAbsoluteFilePath(),
                            QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return error;
}

/// \a target is the file that \a path leads to.
WriteResult writeBeside(const QString &path, const QString &target, const QByteArray &content,
                        const FileState *expected)
{
    const QString folder = QFileInfo(target).absolutePath();
    QFile file;
    if (!openFreeName(file, folder))
        return WriteResult::Failed;
    if (PlainFile old; old.open(target))
        keepAttributes(old.handle(), file.handle());
    else if (QFile::exists(target))
        file.setPermissions(QFile::permissions(target));
    const bool isWhole = writeAll(file, content) && finishWriting(file, content.size());
    const bool isChanged = expected != nullptr && fileState(path) != *expected;
    if (isWhole && !isChanged && !renameEntry(file.fileName(), target))
        return flushFolder(folder) ? WriteResult::Done : WriteResult::Failed;
    file.remove();
    return isChanged ? WriteResult::Changed : WriteResult::Failed;
}

/// Like writeBeside(), for a file that keeps its other names.
WriteResult writeThrough(const QString &target, const QByteArray &content,
                         const FileState *expected)
{
    QFile copy;
    if (!openFreeName(copy, QFileInfo(target).absolutePath()))
        return WriteResult::Failed;
    return overwriteKeepingCopy(target, copy, expected, [&content](QFile &file) {
        return writeAll(file, content) && finishOverwriting(file, content.size());
    });
}

WriteResult replace(const QString &path, const QByteArray &content, const FileState *expected)
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

    // A folder without room for a new file is another matter: what stands there must not be
    // overwritten.
    if (!QFileInfo(QFileInfo(target).absolutePath()).isWritable())
        return isThere ? overwriteFromMemory(target, content, expected) : WriteResult::Failed;
    return isThere && hasOtherNames(target) ? writeThrough(target, content, expected)
                                            : writeBeside(path, target, content, expected);
}

} // namespace

bool replaceFile(const QString &path, const QByteArray &content)
{
    return replace(path, content, nullptr) == WriteResult::Done;
}

WriteResult replaceUnchanged(const QString &path, const QByteArray &content,
                             const FileState &expected)
{
    return replace(path, content, &expected);
}

bool appendToFile(const QString &path, const QByteArray &data, qint64 largest)
{
#ifdef Q_OS_UNIX
    constexpr int flags = O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int handle = ::open(QFile::encodeName(path).constData(), flags, 0666);
    if (handle < 0)
        return false;
    const FileState state = fileState(handle);
    const bool isWritten =
        state.kind == FileKind::Regular && state.size <= largest &&
        ::write(handle, data.constData(), static_cast<size_t>(data.size())) == data.size();
    ::close(handle);
    return isWritten;
#else
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) &&
           file.size() <= largest && writeAll(file, data);
#endif
}

bool writeAll(QFileDevice &file, const QByteArray &data)
{
    return file.write(data) == data.size();
}

bool finishWriting(QFileDevice &file, qint64 expectedSize)
{
    return file.flush() && file.error() == QFileDevice::NoError && flushToDisk(file) &&
           file.size() == expectedSize;
}

bool moveIntoPlace(const QString &from, const QString &to)
{
    if (renameEntry(from, to))
        return false;
    flushFolder(QFileInfo(to).absolutePath());
    return true;
}

bool moveOver(const QString &from, const QString &to)
{
    const std::error_code error = renameEntry(from, to);
    const bool canNotReplace = error == std::errc::file_exists ||
                               error == std::errc::operation_not_supported ||
                               error == std::errc::function_not_supported;
    if (canNotReplace)
        return QFile::remove(to) && moveIntoPlace(from, to);
    if (!error)
        flushFolder(QFileInfo(to).absolutePath());
    return !error;
}

bool flushFolder(const QString &folder)
{
#ifdef Q_OS_UNIX
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (handle < 0)
        return errno == EACCES; // a folder may be writable without being readable
    const bool flushed = ::fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP;
    ::close(handle);
    return flushed;
#else
    Q_UNUSED(folder)
    return true;
#endif
}
