#include "base/plainfile.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace brisel
{

namespace
{

constexpr int plainFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY;

} // namespace

bool PlainFile::open(const QString &path)
{
    m_handle = FileDescriptor::open(path, plainFlags);
    m_state = isOpen() ? fileState(m_handle.get()) : fileState(path);
    return keepIfPlain();
}

bool PlainFile::openIn(int folder, const QString &name)
{
    m_handle = FileDescriptor::openIn(folder, name, plainFlags);
    m_state = isOpen() ? fileState(m_handle.get()) : FileState();
    return keepIfPlain();
}

bool PlainFile::keepIfPlain()
{
    if (m_state.kind != FileKind::Regular)
        close();
    return isOpen();
}

bool PlainFile::read(qint64 pos, qsizetype count, QByteArray &bytes) const
{
    bytes.resize(0); // not cleared, to keep the allocated memory for the next file
    if (!isOpen() || pos < 0 || count < 0 || pos > size() || count > size() - pos)
        return false;
    bytes.resize(count);
    for (qsizetype done = 0; done < count;) {
        const ssize_t got = ::pread(m_handle.get(), bytes.data() + done,
                                    static_cast<size_t>(count - done), pos + done);
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
    return isOpen() && fileState(m_handle.get()).size == size();
}

} // namespace brisel
