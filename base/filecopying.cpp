#include "base/filecopying.h"

#include <QByteArray>

#include <algorithm>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisel
{

namespace
{

constexpr qint64 blockSize = 1 << 20;       ///< bytes copied at a time
constexpr qint64 systemBlockSize = 1 << 26; ///< the same for copies by the system

qint64 sizeOf(int handle)
{
    struct stat entry {
    };
    return ::fstat(handle, &entry) == 0 ? qint64{entry.st_size} : -1;
}

bool writeBytes(int to, const char *data, qint64 count)
{
    while (count > 0) {
        const ssize_t written = ::write(to, data, static_cast<size_t>(count));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        count -= written;
    }
    return true;
}

/// Copies by the system, which may share the content. Returns the number of copied bytes: if it
/// stops for any reason, the rest is copied by reading and writing.
qint64 copyBySystem(int from, qint64 pos, qint64 count, int to)
{
    qint64 done = 0;
#ifdef Q_OS_LINUX
    while (done < count) {
        off64_t start = pos + done;
        const ssize_t copied =
            ::copy_file_range(from, &start, to, nullptr,
                              static_cast<size_t>(std::min(systemBlockSize, count - done)), 0);
        if (copied < 0 && errno == EINTR)
            continue;
        if (copied <= 0)
            break;
        done += copied;
    }
#else
    Q_UNUSED(from)
    Q_UNUSED(pos)
    Q_UNUSED(count)
    Q_UNUSED(to)
#endif
    return done;
}

CopyResult copyData(int from, qint64 pos, qint64 count, int to)
{
    const qint64 copied = copyBySystem(from, pos, count, to);
    pos += copied;
    count -= copied;
    QByteArray block(std::min(blockSize, count), Qt::Uninitialized);
    while (count > 0) {
        const auto wanted = static_cast<size_t>(std::min(blockSize, count));
        const ssize_t got = ::pread(from, block.data(), wanted, pos);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return CopyResult::SourceFailed;
        if (!writeBytes(to, block.constData(), got))
            return CopyResult::TargetFailed;
        pos += got;
        count -= got;
    }
    return CopyResult::Done;
}

/// Skips \a count bytes in \a to, which are read as zeros afterwards.
bool makeHole(int to, qint64 count)
{
    const qint64 pos = ::lseek(to, 0, SEEK_CUR);
    if (pos < 0)
        return false;
    if (pos >= sizeOf(to))
        return ::ftruncate(to, pos + count) == 0 && ::lseek(to, count, SEEK_CUR) >= 0;
    const QByteArray zeros(std::min(blockSize, count), '\0');
    for (qint64 left = count; left > 0; left -= zeros.size()) {
        if (!writeBytes(to, zeros.constData(), std::min<qint64>(left, zeros.size())))
            return false;
    }
    return true;
}

/// Returns true if the file may have holes. Others need no search for them, which may be slow.
bool isSparse(int handle)
{
    constexpr qint64 unit = 512; // bytes
    struct stat entry {
    };
    return ::fstat(handle, &entry) == 0 && entry.st_blocks * unit < entry.st_size;
}

/// The start of the first data at or after \a pos, \a end at most.
qint64 dataStart(int from, qint64 pos, qint64 end)
{
    const qint64 start = ::lseek(from, pos, SEEK_DATA);
    if (start < 0)
        return errno == ENXIO ? end : pos; // without holes all are data
    return std::min(start, end);
}

qint64 dataEnd(int from, qint64 pos, qint64 end)
{
    const qint64 hole = ::lseek(from, pos, SEEK_HOLE);
    return hole <= pos ? end : std::min(hole, end);
}

} // namespace

CopyResult copyRest(int from, qint64 pos, qint64 count, int to)
{
    if (pos < 0 || count < 0 || pos > sizeOf(from) || count > sizeOf(from) - pos)
        return CopyResult::SourceFailed;
    const qint64 end = pos + count;
    const bool hasHoles = isSparse(from);
    while (pos < end) {
        const qint64 start = hasHoles ? dataStart(from, pos, end) : pos;
        if (start > pos && !makeHole(to, start - pos))
            return CopyResult::TargetFailed;
        pos = hasHoles && start < end ? dataEnd(from, start, end) : end;
        const CopyResult result = copyData(from, start, pos - start, to);
        if (result != CopyResult::Done)
            return result;
    }
    // The end of a file that was truncated during the copy looks like a hole.
    return sizeOf(from) >= end ? CopyResult::Done : CopyResult::SourceFailed;
}

} // namespace brisel
