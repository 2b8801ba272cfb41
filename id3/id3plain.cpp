#include "id3/id3plain.h"

#include "id3/id3frames.h"
#include "id3/id3header.h"
#include "id3/unsynchronisation.h"

#include <algorithm>

namespace brisel
{

namespace
{

qint64 endOf(const QByteArray &tag)
{
    return static_cast<qint64>(Id3Header::sizeAt(tag)) + Id3Header::size;
}

Id3Frames framesOf(const QByteArray &tag)
{
    return Id3Frames(tag, endOf(tag));
}

/// Replaces the bytes after the header; the size field counts the whole tag, even if it is
/// truncated.
QByteArray withBody(const QByteArray &tag, const QByteArray &body)
{
    QByteArray result = tag.first(Id3Header::size) + body;
    const qint64 size = Id3Header::sizeAt(tag) + (result.size() - tag.size());
    Id3Header::putSize(result, static_cast<quint32>(std::max<qint64>(size, 0)));
    return result;
}

/// Some programs set the flag in a tag that is not unsynchronised. Bytes that the scheme would
/// never have written are kept, unless only the other form leads from frame to frame. The flag is
/// always cleared, so that a changed tag is read in the same way.
QByteArray synchronised(const QByteArray &tag)
{
    const Id3Header header = Id3Header::read(tag);
    const bool isWhole = header.version == 2 || header.version == 3;
    if (!isWhole || !header.isUnsynchronised())
        return tag;
    QByteArray undone =
        withBody(tag, Unsynchronisation::undone(QByteArrayView(tag).sliced(Id3Header::size)));
    QByteArray unchanged = tag;
    for (QByteArray *form : {&undone, &unchanged})
        Id3Header::clearFlag(*form, Id3Header::Unsynchronised);
    const bool isUndoneWhole = framesOf(undone).endsInPadding();
    if (isUndoneWhole != framesOf(unchanged).endsInPadding())
        return isUndoneWhole ? undone : unchanged;
    // A truncated tag may end between the two bytes.
    QByteArrayView body = QByteArrayView(tag).sliced(Id3Header::size);
    if (tag.size() < endOf(tag) && body.endsWith('\xFF'))
        body.chop(1);
    return Unsynchronisation::isPossible(body) ? undone : unchanged;
}

/// Some programs lose frames of tags with an extended header, and its checksum would have to be
/// updated with every change.
QByteArray withoutExtendedHeader(const QByteArray &tag)
{
    const Id3Frames frames = framesOf(tag);
    if (!Id3Header::read(tag).hasExtendedHeader() || frames.isUnknown())
        return tag;
    QByteArray result = withBody(tag, tag.sliced(std::min(frames.framesStart(), tag.size())));
    Id3Header::clearFlag(result, Id3Header::Extended);
    return result;
}

} // namespace

qsizetype Id3Plain::footerSize(const QByteArray &file)
{
    if (!Id3Header::read(file).hasFooter())
        return 0;
    const qint64 end = std::min<qint64>(endOf(file), file.size());
    return QByteArrayView(file).sliced(end).startsWith("3DI") ? Id3Header::size : 0;
}

QByteArray Id3Plain::tag(const QByteArray &stored)
{
    if (stored.size() < Id3Header::size)
        return stored;
    QByteArray tag = withoutExtendedHeader(synchronised(stored));
    if (Id3Header::read(tag).version == 4) {
        Id3Header::clearFlag(tag, Id3Header::Footer);
        framesOf(tag).makeSizesSynchsafe(tag);
    }
    return tag;
}

} // namespace brisel
