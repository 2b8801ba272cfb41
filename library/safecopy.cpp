#include "library/safecopy.h"

#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "base/freespace.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace
{

constexpr qint64 blockSize = 1 << 20; ///< bytes copied at a time

enum class CopyResult { Done, SourceFailed, DestinationFailed };

CopyResult copyBlocks(QFile &in, QFile &out)
{
    qint64 copied = 0;
    for (;;) {
        const QByteArray block = in.read(blockSize);
        if (block.isEmpty())
            break;
        if (!writeAll(out, block))
            return CopyResult::DestinationFailed;
        copied += block.size();
    }
    // A source that shrank while it was read gives no copy of anything.
    if (in.error() != QFileDevice::NoError || copied != in.size())
        return CopyResult::SourceFailed;
    return finishWriting(out, copied) ? CopyResult::Done : CopyResult::DestinationFailed;
}

/// The finished copy takes the place of whatever stands at \a destination.
CopyResult copyIntoPlace(const QString &source, const QString &destination)
{
    QFile in(source);
    if (!isRegularFile(source) || !in.open(QIODevice::ReadOnly))
        return CopyResult::SourceFailed;
    // The name has no song's extension: were the program killed here, no player lists the rest.
    QTemporaryFile out(QFileInfo(destination).path() + QStringLiteral("/.brisel-copy-XXXXXX.tmp"));
    if (!out.open())
        return CopyResult::DestinationFailed;
    const CopyResult result = copyBlocks(in, out);
    if (result != CopyResult::Done)
        return result;
    // The rights of whoever runs the program are no part of what the file says of itself.
    out.setPermissions(in.permissions() &
                       ~(QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser));
    if (!moveIntoPlace(out.fileName(), destination))
        return CopyResult::DestinationFailed;
    out.setAutoRemove(false);
    return CopyResult::Done;
}

} // namespace

bool copyToNewFile(const QString &source, const QString &destination)
{
    return fileKind(destination) == FileKind::Missing &&
           copyIntoPlace(source, destination) == CopyResult::Done;
}

bool copyOverFile(const QString &source, const QString &destination)
{
    if (!isRegularFile(destination) || isSameFile(source, destination))
        return false;
    const CopyResult result = copyIntoPlace(source, destination);
    if (result != CopyResult::DestinationFailed)
        return result == CopyResult::Done;
    const qint64 freeSize = freeSpace(QFileInfo(destination).path());
    if (!mustDeleteFirst(freeSize, QFileInfo(destination).size(), QFileInfo(source).size()))
        return false;
    return QFile::remove(destination) && copyToNewFile(source, destination);
}

bool mustDeleteFirst(qint64 freeSize, qint64 oldSize, qint64 newSize)
{
    return freeSize >= 0 && newSize > freeSize && newSize - freeSize <= oldSize;
}
