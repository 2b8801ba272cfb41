#include "index/workfolder.h"

#include "base/fatfolder.h"
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

namespace
{

const QString workName = StagingFolder::workFolderName();

/// The folder itself, open as long as it is used: what its name leads to may change.
class OpenFolder
{
public:
    explicit OpenFolder(const QString &path)
        : m_handle(::open(QFile::encodeName(path).constData(),
                          O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC))
    {
    }
    ~OpenFolder()
    {
        if (isOpen())
            ::close(m_handle);
    }
    OpenFolder(const OpenFolder &) = delete;
    OpenFolder &operator=(const OpenFolder &) = delete;

    bool isOpen() const { return m_handle >= 0; }
    int handle() const { return m_handle; }

private:
    int m_handle;
};

bool openNewIn(QFile &file, int folder, const QString &name)
{
    const QByteArray bytes = QFile::encodeName(name);
    constexpr mode_t mode = 0666;
    ::unlinkat(folder, bytes.constData(), 0);
    const int handle = ::openat(folder, bytes.constData(),
                                O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    if (handle < 0)
        return false;
    if (file.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered,
                  QFileDevice::AutoCloseHandle))
        return true;
    ::close(handle);
    return false;
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
    // Links by their own names, wherever they lead.
    QStringList names = QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                               QDir::NoDotAndDotDot);
    names.removeIf([this](const QString &name) {
        const QFileInfo entry(path(name));
        return entry.isDir() && !entry.isSymLink();
    });
    return names;
}

bool WorkFolder::stands() const
{
    const QFileInfo entry(path());
    return entry.exists() || entry.isSymLink();
}

bool WorkFolder::make()
{
    // The system counts the first block of a new folder among those of the folder above.
    if (QDir(m_root).mkdir(workName) && isOnFat(m_root))
        flushFolder(m_root);
    return OpenFolder(path()).isOpen();
}

void WorkFolder::reserve(const QStringList &names)
{
    if (isOnFat(path()))
        reserveEntries(path(), names);
}

bool WorkFolder::has(const QString &name) const
{
    const OpenFolder folder(path());
    PlainFile file;
    return folder.isOpen() && file.openIn(folder.handle(), name);
}

bool WorkFolder::write(const QString &name, const QByteArray &content)
{
    const OpenFolder folder(path());
    QFile file;
    return folder.isOpen() && openNewIn(file, folder.handle(), name) && writeAll(file, content) &&
           file.size() == content.size();
}

bool WorkFolder::append(const QString &name, const QByteArray &data, qint64 largest)
{
    const OpenFolder folder(path());
    if (!folder.isOpen())
        return false;
    constexpr int flags =
        O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    constexpr mode_t mode = 0666;
    const int handle = ::openat(folder.handle(), QFile::encodeName(name).constData(), flags, mode);
    if (handle < 0)
        return false;
    struct stat state {
    };
    // Another name of it could be anybody's.
    const bool isWritten =
        ::fstat(handle, &state) == 0 && S_ISREG(state.st_mode) && state.st_nlink == 1 &&
        state.st_size <= largest &&
        ::write(handle, data.constData(), static_cast<size_t>(data.size())) == data.size();
    ::close(handle);
    if (isWritten && state.st_size == 0 && isOnFat(folder.handle()))
        flushHandle(folder.handle());
    return isWritten;
}

bool WorkFolder::read(const QString &name, qint64 maximum, QByteArray &content) const
{
    const OpenFolder folder(path());
    PlainFile file;
    return folder.isOpen() && file.openIn(folder.handle(), name) &&
           readWholeFile(file, maximum, content) == ReadResult::Done;
}

void WorkFolder::remove(const QString &name)
{
    const OpenFolder folder(path());
    if (folder.isOpen())
        ::unlinkat(folder.handle(), QFile::encodeName(name).constData(), 0);
}

bool WorkFolder::flush(const QString &name) const
{
    const OpenFolder folder(path());
    return folder.isOpen() && flushIn(folder.handle(), name);
}

bool WorkFolder::flushAll(const QStringList &others) const
{
    const OpenFolder folder(path());
    if (!folder.isOpen())
        return false;
    if (const std::optional<bool> isFlushed = flushFileSystem(folder.handle()))
        return *isFlushed;
    const QStringList names = entries();
    return std::all_of(names.cbegin(), names.cend(),
                       [&folder](const QString &name) { return flushIn(folder.handle(), name); }) &&
           flushHandle(folder.handle()) &&
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
        const OpenFolder open(path());
        if (!open.isOpen())
            return false;
        QStringList names = entries();
        names.removeIf([&kept](const QString &name) { return kept.contains(name); });
        removeFiles(open.handle(), names);
        StagingFolder::clear(open.handle());
        if (!kept.isEmpty()) {
            // Their clusters become free when they are closed, and on the disk by this.
            if (isFat && !names.isEmpty())
                flushHandle(open.handle());
            return false;
        }
        // On FAT it keeps what it takes, as long as it is open, until its entry has gone.
        QDir(m_root).rmdir(workName);
        if (isFat)
            flushFolder(m_root);
    }
    return flushFolder(m_root);
}
