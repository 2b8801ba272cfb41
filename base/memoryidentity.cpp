#include "base/memoryidentity.h"

#include "base/fatfolder.h"
#include "base/filedescriptor.h"
#include "base/flushing.h"
#include "base/stagingfolder.h"

#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace brisel
{

namespace
{

QByteArray randomMark()
{
    std::array<quint32, 4> numbers{};
    QRandomGenerator::system()->fillRange(numbers.data(), static_cast<qsizetype>(numbers.size()));
    QByteArray mark;
    for (const quint32 number : numbers)
        mark += QByteArray::number(number, 16).rightJustified(8, '0');
    return mark;
}

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
    struct statvfs system {
    };
    if (::statvfs(QFile::encodeName(root).constData(), &system) == 0) {
        look.fileSystem = system.f_fsid;
        look.size = quint64(system.f_blocks) * system.f_frsize;
    }
    return look;
}

bool MemoryIdentity::layMark()
{
    if (!m_mark.isEmpty())
        return true;
    const FileDescriptor root = FileDescriptor::openFolder(m_root);
    if (!root.isOpen())
        return false;
    const QString work = StagingFolder::workFolderName();
    // On FAT the entries of a new folder could be written before its own first cluster.
    if (::mkdirat(root.get(), QFile::encodeName(work).constData(), 0777) == 0) {
        if (isOnFat(root.get()))
            (void)flushHandle(root.get());
    } else if (errno != EEXIST) {
        return false;
    }
    const FileDescriptor folder = FileDescriptor::openFolderIn(root.get(), work);
    // An existing one was left by an interrupted run, and is removed.
    if (!folder.isOpen() ||
        (::unlinkat(folder.get(), QFile::encodeName(markName()).constData(), 0) != 0 &&
         errno != ENOENT))
        return false;
    const FileDescriptor file =
        FileDescriptor::openIn(folder.get(), markName(), O_WRONLY | O_CREAT | O_EXCL);
    const QByteArray mark = randomMark();
    if (!file.isOpen() ||
        ::write(file.get(), mark.constData(), static_cast<size_t>(mark.size())) != mark.size())
        return false;
    m_mark = mark;
    return true;
}

bool MemoryIdentity::isSame() const
{
    if (!isThere() || m_mark.isEmpty())
        return isThere();
    const FileDescriptor root = FileDescriptor::openFolder(m_root);
    if (!root.isOpen())
        return false;
    const FileDescriptor folder =
        FileDescriptor::openFolderIn(root.get(), StagingFolder::workFolderName());
    if (!folder.isOpen())
        return false;
    const FileDescriptor file =
        FileDescriptor::openIn(folder.get(), markName(), O_RDONLY | O_NONBLOCK);
    if (!file.isOpen())
        return false;
    QByteArray held(m_mark.size() + 1, '\0');
    const ssize_t size = ::read(file.get(), held.data(), static_cast<size_t>(held.size()));
    return size == m_mark.size() && held.startsWith(m_mark);
}

} // namespace brisel
