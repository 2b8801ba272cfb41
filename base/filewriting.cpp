#include "base/filewriting.h"

#include "base/fileidentity.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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

/// Overwrites a file without emptying it first: what it occupies stays its own, so that the way
/// back needs no room.
bool writeInPlace(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
           writeAll(file, content) && file.resize(content.size()) &&
           finishWriting(file, content.size());
}

bool writeNewFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    if (writeAll(file, content) && finishWriting(file, content.size()))
        return flushFolder(QFileInfo(path).absolutePath());
    file.remove();
    return false;
}

/// False when a name is so long that the one of the copy beside it, seven bytes longer, would not
/// be allowed; the save file notices that only when it is too late.
bool hasRoomBeside(const QString &path)
{
    constexpr qsizetype longestName = 255; // bytes, on every file system of songs
    constexpr qsizetype addition = 7;
    return QFile::encodeName(QFileInfo(path).fileName()).size() + addition <= longestName;
}

/// True when no file can ever be made beside \a path. A full disk is no such place: what stands
/// there must not be overwritten.
bool mustWriteInPlace(const QString &path)
{
    return !hasRoomBeside(path) || !QFileInfo(QFileInfo(path).absolutePath()).isWritable();
}

/// The old content is kept at hand for the way back.
bool overwriteKeepingOld(const QString &path, const QByteArray &content)
{
    QFile old(path);
    if (!old.open(QIODevice::ReadOnly))
        return false;
    const QByteArray oldContent = old.readAll();
    if (old.error() != QFileDevice::NoError || oldContent.size() != old.size())
        return false;
    old.close();
    if (writeInPlace(path, content))
        return true;
    writeInPlace(path, oldContent);
    return false;
}

std::error_code renameEntry(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemAbsoluteFilePath(),
                            QFileInfo(to).filesystemAbsoluteFilePath(), error);
    if (!error)
        flushFolder(QFileInfo(to).absolutePath());
    return error;
}

} // namespace

bool replaceFile(const QString &path, const QByteArray &content)
{
    const FileKind kind = fileKind(path);
    if (kind != FileKind::Regular && kind != FileKind::Missing)
        return false;
    const QFileInfo entry(path);
    if (kind == FileKind::Missing && entry.isSymLink())
        return false;
    const QString target = kind == FileKind::Regular ? entry.canonicalFilePath() : path;
    if (kind == FileKind::Regular && !QFileInfo(target).isWritable())
        return false;

    if (mustWriteInPlace(target))
        return kind == FileKind::Regular ? overwriteKeepingOld(target, content)
                                         : writeNewFile(target, content);
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // commit() trusts what the buffer once took: whatever went wrong must be seen before it.
    if (!writeAll(file, content) || !finishWriting(file, content.size()))
        return false;
    return file.commit() && flushFolder(QFileInfo(target).absolutePath());
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
    return !renameEntry(from, to);
}

bool moveOver(const QString &from, const QString &to)
{
    const std::error_code error = renameEntry(from, to);
    const bool canNotReplace = error == std::errc::file_exists ||
                               error == std::errc::operation_not_supported ||
                               error == std::errc::function_not_supported;
    return !error || (canNotReplace && QFile::remove(to) && moveIntoPlace(from, to));
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
