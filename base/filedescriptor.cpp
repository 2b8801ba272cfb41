#include "base/filedescriptor.h"

#include <QFile>

#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace brisel
{

namespace
{

void closeHandle(int handle)
{
#ifdef Q_OS_UNIX
    ::close(handle);
#else
    Q_UNUSED(handle)
#endif
}

} // namespace

FileDescriptor &FileDescriptor::operator=(FileDescriptor &&other) noexcept
{
    std::swap(m_handle, other.m_handle);
    other.close();
    return *this;
}

#ifdef Q_OS_UNIX

FileDescriptor FileDescriptor::open(const QString &path, int flags, mode_t mode)
{
    return FileDescriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode));
}

FileDescriptor FileDescriptor::openIn(int folder, const QString &name, int flags, mode_t mode)
{
    return FileDescriptor(::openat(folder, QFile::encodeName(name).constData(),
                                   flags | O_NOFOLLOW | O_CLOEXEC, mode));
}

FileDescriptor FileDescriptor::openFolder(const QString &path)
{
    return open(path, O_RDONLY | O_DIRECTORY);
}

FileDescriptor FileDescriptor::openFolderIn(int folder, const QString &name)
{
    return openIn(folder, name, O_RDONLY | O_DIRECTORY);
}

#endif

int FileDescriptor::release()
{
    return std::exchange(m_handle, -1);
}

bool FileDescriptor::giveTo(QFile &file, QIODevice::OpenMode mode)
{
    if (!isOpen() ||
        !file.open(m_handle, mode | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return false;
    m_handle = -1;
    return true;
}

void FileDescriptor::close()
{
    if (const int handle = release(); handle >= 0)
        closeHandle(handle);
}

} // namespace brisel
