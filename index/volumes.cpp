#include "index/volumes.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace brisel
{

namespace
{

const QString mainMountFolder = QStringLiteral("/Volumes");

QString withSlash(const QString &folder)
{
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

bool climbs(const QString &path)
{
    return path.split(u'/').contains(QStringLiteral(".."));
}

/// The length of the mount folder with its "/" at the start of the clean \a path; 0 if there is no
/// mount folder or no name after it.
qsizetype mountPrefix(const QString &path)
{
    qsizetype longest = 0;
    for (const QString &folder : mountFolders()) {
        const QString prefix = withSlash(folder);
        const auto sensitivity =
            folder == mainMountFolder ? Qt::CaseInsensitive : Qt::CaseSensitive;
        if (path.size() > prefix.size() && path.startsWith(prefix, sensitivity))
            longest = std::max(longest, prefix.size());
    }
    return longest;
}

/// \a path up to the first "/" at or after \a from.
QString upToSlash(const QString &path, qsizetype from)
{
    const qsizetype end = path.indexOf(u'/', from);
    return end < 0 ? path : path.left(end);
}

/// Returns false if \a path, or the nearest folder above it that exists, is outside all mount
/// folders after links are followed: a memory's path may be a link to the system disk.
bool staysBelowMountFolder(const QString &path)
{
    QFileInfo entry(path);
    while (!entry.exists() && !entry.isRoot())
        entry.setFile(entry.path());
    const QString target = entry.canonicalFilePath();
    for (const QString &folder : mountFolders()) {
        const QString mount = QFileInfo(folder).canonicalFilePath();
        // In a missing mount folder there are no links.
        if (mount.isEmpty() && path.startsWith(withSlash(folder), Qt::CaseInsensitive))
            return true;
        if (!mount.isEmpty() && withSlash(target).startsWith(withSlash(mount)))
            return true;
    }
    return false;
}

} // namespace

QStringList mountFolders()
{
    QStringList folders;
    const QString named = qEnvironmentVariable("BRISEL_VOLUMES");
    if (!named.isEmpty())
        folders.append(QDir::cleanPath(QDir().absoluteFilePath(named)));
    folders.append(mainMountFolder);
#ifdef Q_OS_LINUX
    const QString user = qEnvironmentVariable("USER", QDir::home().dirName());
    if (!user.isEmpty() && !user.contains(u'/') && user != QStringLiteral("..")) {
        folders.append(QStringLiteral("/media/") + user);
        folders.append(QStringLiteral("/run/media/") + user);
    }
#endif
    return folders;
}

QString getRoot(const QString &path)
{
    QString systemRoot = QStringLiteral("/");
    const QString clean = QDir::cleanPath(path);
    if (climbs(path) || mountFolders().contains(clean))
        return systemRoot;
    const qsizetype prefix = mountPrefix(clean);
    if (prefix > 0)
        return upToSlash(clean, prefix);
    const qsizetype second = clean.indexOf(u'/', 1);
    return second < 0 ? systemRoot : upToSlash(clean, second + 1);
}

bool isRoot(const QString &path)
{
    return getRoot(path) == QDir::cleanPath(path);
}

bool isSystemDisk(const QString &path)
{
    return getRootDrivePath(path).isEmpty();
}

QString getRootDrivePath(const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    const qsizetype prefix = mountPrefix(clean);
    if (climbs(path) || prefix == 0 || !staysBelowMountFolder(clean))
        return {};
    return upToSlash(clean, prefix);
}

QString volumesStartFolder()
{
    for (const QString &folder : mountFolders()) {
        if (QFileInfo(folder).isDir())
            return folder;
    }
    return QStringLiteral("/");
}

} // namespace brisel
