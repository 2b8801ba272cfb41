#include "base/plainfile.h"

#ifdef Q_OS_UNIX

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr int plainFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

} // namespace

bool PlainFile::open(const QString &path)
{
    close();
    m_handle = ::open(QFile::encodeName(path).constData(), plainFlags);
    m_state = isOpen() ? fileState(m_handle) : fileState(path);
    return keepIfPlain();
}

bool PlainFile::openIn(int folder, const QString &name)
{
    close();
    m_handle = ::openat(folder, QFile::encodeName(name).constData(), plainFlags | O_NOFOLLOW);
    m_state = isOpen() ? fileState(m_handle) : FileState();
    return keepIfPlain();
}

bool PlainFile::keepIfPlain()
{
    if (m_state.kind != FileKind::Regular)
        close();
    return isOpen();
}

void PlainFile::close()
{
    if (isOpen())
        ::close(m_handle);
    m_handle = -1;
}

bool PlainFile::isOpen() const
{
    return m_handle >= 0;
}

bool PlainFile::read(qint64 pos, qsizetype count, QByteArray &bytes) const
{
    bytes.resize(0); // and not cleared: it keeps its room for the next file
    if (!isOpen() || pos < 0 || count < 0 || pos > size() || count > size() - pos)
        return false;
    bytes.resize(count);
    for (qsizetype done = 0; done < count;) {
        const ssize_t got =
            ::pread(m_handle, bytes.data() + done, static_cast<size_t>(count - done), pos + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            bytes.resize(0);
            return false;
        }
        done += got;
    }
    return true;
}

bool PlainFile::keepsItsSize() const
{
    return isOpen() && fileState(m_handle).size == size();
}

int PlainFile::handle() const
{
    return m_handle;
}

#else

bool PlainFile::open(const QString &path)
{
    close();
    m_state = fileState(path);
    m_file.setFileName(path);
    return m_state.kind == FileKind::Regular &&
           m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void PlainFile::close()
{
    m_file.close();
}

bool PlainFile::isOpen() const
{
    return m_file.isOpen();
}

bool PlainFile::read(qint64 pos, qsizetype count, QByteArray &bytes) const
{
    bytes.resize(0);
    if (!isOpen() || pos < 0 || count < 0 || pos > size() || count > size() - pos ||
        !m_file.seek(pos))
        return false;
    bytes = m_file.read(count);
    if (bytes.size() != count)
        bytes.resize(0);
    return bytes.size() == count;
}

bool PlainFile::keepsItsSize() const
{
    return isOpen() && m_file.size() == size();
}

int PlainFile::handle() const
{
    return m_file.handle();
}

#endif
