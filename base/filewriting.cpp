#include "base/filewriting.h"

#include "base/fileidentity.h"

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

/// Overwrites a file without emptying it first: what it occupies stays its own, so that the way
/// back needs no room.
bool writeInPlace(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
           writeAll(file, content) && file.resize(content.size()) &&
           finishWriting(file, content.size());
}

/// Opens a new file in \a folder. Its name has nothing of the song's: those may be as long as the
/// system allows, and no player shows what a cut has left.
bool openFreeName(QFile &file, const QString &folder)
{
    constexpr int maxAttempts = 1000;
    for (int attempt = 1; attempt <= maxAttempts; ++attempt) {
        const QString number = QString::number(attempt);
        file.setFileName(QStringLiteral("%1/.brisel-save-%2.tmp").arg(folder, number));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            return true;
        const QFileInfo entry(file.fileName());
        if (!entry.exists() && !entry.isSymLink())
            return false;
    }
    return false;
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
    return error;
}

bool writeBeside(const QString &path, const QByteArray &content)
{
    const QFileInfo old(path);
    QFile file;
    if (!openFreeName(file, old.absolutePath()))
        return false;
    if (old.exists())
        file.setPermissions(old.permissions());
    if (writeAll(file, content) && finishWriting(file, content.size()) &&
        !renameEntry(file.fileName(), path))
        return flushFolder(old.absolutePath());
    file.remove();
    return false;
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

    // A folder without room for a new file is another matter: what stands there must not be
    // overwritten.
    if (!QFileInfo(QFileInfo(target).absolutePath()).isWritable())
        return kind == FileKind::Regular && overwriteKeepingOld(target, content);
    return writeBeside(target, content);
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
