#include "index/workfolder.h"

#include "base/fatfolder.h"
#include "base/filedescriptor.h"
#include "base/filereading.h"
#include "base/filewriting.h"
#include "base/flushing.h"
#include "base/stagingfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisel
{

namespace
{

const QString workName = StagingFolder::workFolderName();

/// The folder itself, open while it is used, because its name may be given to another one.
FileDescriptor openedFolder(const QString &path)
{
    return FileDescriptor::openFolderIn(AT_FDCWD, path);
}

bool openNewIn(QFile &file, int folder, const QString &name)
{
    ::unlinkat(folder, QFile::encodeName(name).constData(), 0);
    return FileDescriptor::openIn(folder, name, O_WRONLY | O_CREAT | O_EXCL)
        .giveTo(file, QIODevice::WriteOnly);
}

bool flushIn(int folder, const QString &name)
{
    PlainFile file;
    return file.openIn(folder, name) && flushHandle(file.handle());
}

} // namespace

QString WorkFolder::path() const
{
    return m_root + u'/' + workName;
}

QStringList WorkFolder::entries() const
{
    // Links are listed themselves, not their targets.
    QStringList names = QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                               QDir::NoDotAndDotDot);
    names.removeIf([this](const QString &name) {
        const QFileInfo entry(path(name));
        return entry.isDir() && !entry.isSymLink();
    });
    return names;
}

bool WorkFolder::make()
{
    // The system also counts the first block of a new folder for its parent folder.
    if (QDir(m_root).mkdir(workName) && isOnFat(m_root))
        (void)flushFolder(m_root);
    return openedFolder(path()).isOpen();
}

void WorkFolder::reserve(const QStringList &names)
{
    if (isOnFat(path()))
        reserveEntries(path(), names);
}

bool WorkFolder::has(const QString &name) const
{
    const FileDescriptor folder = openedFolder(path());
    PlainFile file;
    return folder.isOpen() && file.openIn(folder.get(), name);
}

bool WorkFolder::write(const QString &name, const QByteArray &content)
{
    const FileDescriptor folder = openedFolder(path());
    QFile file;
    return folder.isOpen() && openNewIn(file, folder.get(), name) && writeAll(file, content) &&
           file.size() == content.size();
}

bool WorkFolder::append(const QString &name, const QByteArray &data, qint64 largest)
{
    const FileDescriptor folder = openedFolder(path());
    if (!folder.isOpen())
        return false;
    FileDescriptor file = FileDescriptor::openIn(
        folder.get(), name, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY);
    struct stat state {
    };
    // Another name of the file could be outside of the memory.
    const bool isWritten =
        ::fstat(file.get(), &state) == 0 && S_ISREG(state.st_mode) && state.st_nlink == 1 &&
        state.st_size <= largest &&
        ::write(file.get(), data.constData(), static_cast<size_t>(data.size())) == data.size();
    file.close();
    if (isWritten && state.st_size == 0 && isOnFat(folder.get()))
        (void)flushHandle(folder.get());
    return isWritten;
}

bool WorkFolder::read(const QString &name, qint64 maximum, QByteArray &content) const
{
    const FileDescriptor folder = openedFolder(path());
    PlainFile file;
    if (!folder.isOpen() || !file.openIn(folder.get(), name))
        return false;
    const FileContent whole = readWholeFile(file, maximum);
    content = whole.bytes;
    return whole.isDone();
}

void WorkFolder::remove(const QString &name)
{
    const FileDescriptor folder = openedFolder(path());
    if (folder.isOpen())
        ::unlinkat(folder.get(), QFile::encodeName(name).constData(), 0);
}

bool WorkFolder::flush(const QString &name) const
{
    const FileDescriptor folder = openedFolder(path());
    return folder.isOpen() && flushIn(folder.get(), name);
}

bool WorkFolder::flushAll(const QStringList &others) const
{
    const FileDescriptor folder = openedFolder(path());
    if (!folder.isOpen())
        return false;
    if (const std::optional<bool> isFlushed = flushFileSystem(folder.get()))
        return *isFlushed;
    const QStringList names = entries();
    return std::all_of(names.cbegin(), names.cend(),
                       [&folder](const QString &name) { return flushIn(folder.get(), name); }) &&
           flushHandle(folder.get()) &&
           std::all_of(others.cbegin(), others.cend(),
                       [this](const QString &name) {
                           PlainFile file;
                           return file.open(m_root + u'/' + name) && flushHandle(file.handle());
                       }) &&
           flushFolder(m_root);
}

bool WorkFolder::clear(const QStringList &kept)
{
    const QFileInfo folder(path());
    if (folder.isSymLink() || !folder.isDir()) {
        QFile::remove(folder.filePath());
        return false;
    }
    const bool isFat = isOnFat(path());
    {
        const FileDescriptor open = openedFolder(path());
        if (!open.isOpen())
            return false;
        QStringList names = entries();
        names.removeIf([&kept](const QString &name) { return kept.contains(name); });
        (void)removeFiles(open.get(), names); // a remaining one is removed by the next run
        StagingFolder::clear(open.get());
        if (!kept.isEmpty()) {
            // Their clusters become free when they are closed, and on the disk by this flush.
            if (isFat && !names.isEmpty())
                (void)flushHandle(open.get());
            return false;
        }
        // On FAT it keeps what it takes, as long as it is open, until its entry is removed.
        QDir(m_root).rmdir(workName);
        if (isFat)
            (void)flushFolder(m_root);
    }
    return flushFolder(m_root);
}

} // namespace brisel
