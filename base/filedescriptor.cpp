#include "base/filedescriptor.h"

#include <QFile>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace brisel
{

FileDescriptor &FileDescriptor::operator=(FileDescriptor &&other) noexcept
{
    std::swap(m_handle, other.m_handle);
    other.close();
    return *this;
}

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
        ::close(handle);
}

} // namespace brisel
