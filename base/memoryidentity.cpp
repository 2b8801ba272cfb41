#include "base/memoryidentity.h"

#include "base/fatfolder.h"
#include "base/flushing.h"
#include "base/stagingfolder.h"

#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

namespace
{

QByteArray workFolderName()
{
    return QFile::encodeName(StagingFolder::workFolderName());
}

QByteArray randomMark()
{
    std::array<quint32, 4> numbers{};
    QRandomGenerator::system()->fillRange(numbers.data(), static_cast<qsizetype>(numbers.size()));
    QByteArray mark;
    for (const quint32 number : numbers)
        mark += QByteArray::number(number, 16).rightJustified(8, '0');
    return mark;
}

#ifdef Q_OS_UNIX

/// A handle that is closed at the end; -1 where none could be opened.
class Handle
{
public:
    explicit Handle(int handle) : m_handle(handle) {}
    ~Handle()
    {
        if (m_handle >= 0)
            ::close(m_handle);
    }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    operator int() const { return m_handle; }

private:
    int m_handle;
};

int openRoot(const QString &root)
{
    return ::open(QFile::encodeName(root).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

int openWorkFolder(int root)
{
    return ::openat(root, workFolderName().constData(),
                    O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

#endif

} // namespace

MemoryIdentity::MemoryIdentity(const QString &root) : m_root(root), m_look(lookAt(root)) {}

const QString &MemoryIdentity::markName()
{
    static const QString name = QStringLiteral("mark");
    return name;
}

bool MemoryIdentity::isThere() const
{
    return m_look.folder.kind == FileKind::Folder && lookAt(m_root) == m_look;
}

bool MemoryIdentity::Look::operator==(const Look &other) const
{
    // The folder's time changes with each file in it.
    return folder.kind == other.folder.kind && folder.device == other.folder.device &&
           folder.inode == other.folder.inode && fileSystem == other.fileSystem &&
           size == other.size;
}

MemoryIdentity::Look MemoryIdentity::lookAt(const QString &root)
{
    Look look;
    look.folder = fileState(root);
#ifdef Q_OS_UNIX
    struct statvfs system {
    };
    if (::statvfs(QFile::encodeName(root).constData(), &system) == 0) {
        look.fileSystem = system.f_fsid;
        look.size = quint64(system.f_blocks) * system.f_frsize;
    }
#endif
    return look;
}

#ifdef Q_OS_UNIX

bool MemoryIdentity::layMark()
{
    if (!m_mark.isEmpty())
        return true;
    const Handle root(openRoot(m_root));
    if (root < 0)
        return false;
    // What is in a folder could reach a FAT disk before the folder's own beginning.
    if (::mkdirat(root, workFolderName().constData(), 0777) == 0) {
        if (isOnFat(root))
            flushHandle(root);
    } else if (errno != EEXIST) {
        return false;
    }
    const Handle folder(openWorkFolder(root));
    const QByteArray name = QFile::encodeName(markName());
    constexpr int newFile = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    // One that is there was left by a run that was cut, and goes.
    if (folder < 0 || (::unlinkat(folder, name.constData(), 0) != 0 && errno != ENOENT))
        return false;
    const Handle file(::openat(folder, name.constData(), newFile, 0666));
    const QByteArray mark = randomMark();
    if (file < 0 ||
        ::write(file, mark.constData(), static_cast<size_t>(mark.size())) != mark.size())
        return false;
    m_mark = mark;
    return true;
}

bool MemoryIdentity::isSame() const
{
    if (!isThere() || m_mark.isEmpty())
        return isThere();
    const Handle root(openRoot(m_root));
    const Handle folder(root < 0 ? -1 : openWorkFolder(root));
    if (folder < 0)
        return false;
    const Handle file(::openat(folder, QFile::encodeName(markName()).constData(),
                               O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    QByteArray held(m_mark.size() + 1, '\0');
    const ssize_t size =
        file < 0 ? -1 : ::read(file, held.data(), static_cast<size_t>(held.size()));
    return size == m_mark.size() && held.startsWith(m_mark);
}

#else

bool MemoryIdentity::layMark()
{
    return false;
}

bool MemoryIdentity::isSame() const
{
    return isThere();
}

#endif
