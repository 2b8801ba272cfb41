#include "library/safecopy.h"

#include "base/fileattributes.h"
#include "base/filewriting.h"
#include "base/freespace.h"
#include "base/plainfile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>

namespace
{

/// The finished copy takes the place of whatever stands at \a destination.
CopyResult copyIntoPlace(const QString &source, const QString &destination)
{
    PlainFile in;
    if (!in.open(source))
        return CopyResult::SourceFailed;
    // The name has no song's extension: were the program killed here, no player lists the rest.
    QTemporaryFile out(QFileInfo(destination).path() + QStringLiteral("/.brisel-copy-XXXXXX.tmp"));
    if (!out.open())
        return CopyResult::TargetFailed;
    const CopyResult result = copyRest(in.handle(), 0, in.size(), out.handle());
    if (result != CopyResult::Done)
        return result;
    if (!finishWriting(out, in.size()))
        return CopyResult::TargetFailed;
    // A source that was changed while it was read gives no copy of anything.
    if (fileState(in.handle()) != in.state())
        return CopyResult::SourceFailed;
    keepPermissions(in.handle(), out.handle());
    if (!moveIntoPlace(out.fileName(), destination))
        return CopyResult::TargetFailed;
    out.setAutoRemove(false);
    return CopyResult::Done;
}

bool canBeRead(const QString &path)
{
    constexpr qint64 blockSize = 1 << 20; // bytes
    PlainFile file;
    if (!file.open(path))
        return false;
    QByteArray block;
    for (qint64 pos = 0; pos < file.size(); pos += blockSize) {
        if (!file.read(pos, std::min(blockSize, file.size() - pos), block))
            return false;
    }
    return file.keepsItsSize();
}

} // namespace

CopyResult copyToNewFile(const QString &source, const QString &destination)
{
    return fileKind(destination) == FileKind::Missing ? copyIntoPlace(source, destination)
                                                      : CopyResult::TargetFailed;
}

CopyResult copyOverFile(const QString &source, const QString &destination)
{
    if (!isRegularFile(destination) || isSameFile(source, destination))
        return CopyResult::TargetFailed;
    const CopyResult result = copyIntoPlace(source, destination);
    if (result != CopyResult::TargetFailed)
        return result;
    const qint64 freeSize = freeSpace(QFileInfo(destination).path());
    if (!mustDeleteFirst(freeSize, QFileInfo(destination).size(), QFileInfo(source).size()))
        return CopyResult::TargetFailed;
    // What can't be read to its end would leave neither the old file nor a new one.
    if (!canBeRead(source))
        return CopyResult::SourceFailed;
    return QFile::remove(destination) ? copyToNewFile(source, destination)
                                      : CopyResult::TargetFailed;
}

bool mustDeleteFirst(qint64 freeSize, qint64 oldSize, qint64 newSize)
{
    return freeSize >= 0 && newSize > freeSize && newSize - freeSize <= oldSize;
}
