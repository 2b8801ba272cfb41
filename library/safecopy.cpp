#include "library/safecopy.h"

#include "base/fileattributes.h"
#include "base/filelot.h"
#include "base/flushing.h"
#include "base/freespace.h"
#include "base/plainfile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace brisel
{

namespace
{

CopyResult copyAlone(const QString &source, const QString &destination, bool mayReplace)
{
    FileLot lot;
    const CopyResult result = copyIntoLot(lot, source, {destination, !mayReplace});
    if (result != CopyResult::Done)
        return result;
    return lot.commit().first() == WriteResult::Done ? CopyResult::Done : CopyResult::TargetFailed;
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
    return fileKind(destination) == FileKind::Missing ? copyAlone(source, destination, false)
                                                      : CopyResult::TargetFailed;
}

CopyResult copyOverFile(const QString &source, const QString &destination)
{
    if (!isRegularFile(destination) || isSameFile(source, destination))
        return CopyResult::TargetFailed;
    const CopyResult result = copyAlone(source, destination, true);
    if (result != CopyResult::TargetFailed)
        return result;
    const qint64 freeSize = freeSpace(QFileInfo(destination).path());
    if (!mustDeleteFirst(freeSize, QFileInfo(destination).size(), QFileInfo(source).size()))
        return CopyResult::TargetFailed;
    // If the source could not be read completely, there would be neither the old file nor a new
    // one.
    if (!canBeRead(source))
        return CopyResult::SourceFailed;
    if (!QFile::remove(destination))
        return CopyResult::TargetFailed;
    // The old entry must not lead to the new bytes.
    (void)flushFolder(QFileInfo(destination).absolutePath());
    return copyToNewFile(source, destination);
}

bool mustDeleteFirst(qint64 freeSize, qint64 oldSize, qint64 newSize)
{
    return freeSize >= 0 && newSize > freeSize && newSize - freeSize <= oldSize;
}

CopyResult copyIntoLot(FileLot &lot, const QString &source, const FileReplacement::Place &place)
{
    PlainFile in;
    if (!in.open(source))
        return CopyResult::SourceFailed;
    std::unique_ptr<FileReplacement> out = lot.open(place);
    if (out == nullptr)
        return CopyResult::TargetFailed;
    CopyResult result = copyRest(in.handle(), 0, in.size(), out->file().handle());
    // A copy of a source that was changed during the copy would be inconsistent.
    if (result == CopyResult::Done && fileState(in.handle()) != in.state())
        result = CopyResult::SourceFailed;
    if (result != CopyResult::Done)
        return result;
    if (place.expected == nullptr)
        keepPermissions(in.handle(), out->file().handle());
    else if (!out->keepAttributesOfOld())
        return CopyResult::TargetFailed;
    out->finish(in.size());
    lot.add(std::move(out));
    return CopyResult::Done;
}

} // namespace brisel
