#include "library/copychecks.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "library/filecopier.h"

#include <QFileInfo>

#include <limits>

namespace brisel
{

QString CopyChecks::destinationOf(const QString &source, const QString &destDir)
{
    return destDir + u'/' + source.mid(source.lastIndexOf(u'/') + 1);
}

bool CopyChecks::isSamePath(const QString &source, const QString &destination)
{
    return source.compare(destination, Qt::CaseInsensitive) == 0 || isSameFile(source, destination);
}

std::optional<Reason> CopyChecks::whyNotOpened(const QString &source)
{
    if (isRegularFile(source) && QFileInfo(source).isReadable())
        return std::nullopt;
    return whyUnreadable(source, std::numeric_limits<qint64>::max())
        .value_or(FileReason::unreachable);
}

std::optional<Reason> CopyChecks::whyHopeless(const QString &source, const QString &place,
                                              const QSet<QString> &sources)
{
    if (fileKind(source) == FileKind::Missing)
        return FileReason::missing;
    if (fileKind(place) == FileKind::Missing)
        return std::nullopt;
    // The existing song may have been picked, too, with the same name in another folder.
    if (sources.contains(fileIdentity(place)))
        return FileCopier::pickedToo;
    if (const std::optional<Reason> reason = whyNotOpened(source))
        return reason;
    if (!isRegularFile(place) || isWriteProtected(place))
        return whyUnwritable(place, 0);
    return std::nullopt;
}

} // namespace brisel
