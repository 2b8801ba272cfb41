#include "index/entrylist.h"

#include "base/fatfolder.h"
#include "base/lettercase.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <vector>

#ifdef Q_OS_LINUX
#include <dirent.h>
#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{

#ifdef Q_OS_LINUX

bool isHiddenByAttribute(const QString &path)
{
    const int handle =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        return false;
    quint32 attributes = 0;
    const bool answered = ::ioctl(handle, FAT_IOCTL_GET_ATTRIBUTES, &attributes) == 0;
    ::close(handle);
    return answered && (attributes & (ATTR_HIDDEN | ATTR_SYS)) != 0;
}

bool isLink(const dirent &entry, int folder)
{
    struct stat look {
    };
    return entry.d_type == DT_LNK || (entry.d_type == DT_UNKNOWN &&
                                      ::fstatat(folder, static_cast<const char *>(entry.d_name),
                                                &look, AT_SYMLINK_NOFOLLOW) == 0 &&
                                      S_ISLNK(look.st_mode));
}

FileKind kindOf(const dirent &entry, const QString &path)
{
    switch (entry.d_type) {
    case DT_REG:
        return FileKind::Regular;
    case DT_DIR:
        return FileKind::Folder;
    case DT_LNK:
    case DT_UNKNOWN:
        return fileKind(path);
    default:
        return FileKind::Other;
    }
}

/// The name of \a entry; empty when it is no text.
QString nameOf(const dirent &entry)
{
    const char *const start = static_cast<const char *>(entry.d_name);
    const QByteArray bytes = QByteArray::fromRawData(start, qstrlen(start));
    QString name = QFile::decodeName(bytes);
    if (name.contains(QChar::ReplacementCharacter) && QFile::encodeName(name) != bytes)
        name.clear();
    return name;
}

/// The entries of \a folder, in no order.
QList<FolderEntry> entriesOf(const QString &folder)
{
    QList<FolderEntry> entries;
    DIR *const handle = ::opendir(QFile::encodeName(folder).constData());
    if (handle == nullptr)
        return entries;
    const int number = ::dirfd(handle);
    const bool fat = isOnFat(number);
    while (const dirent *const entry = ::readdir(handle)) {
        const QString name = nameOf(*entry);
        if (name.isEmpty() || name.startsWith(u'.'))
            continue;
        const QString path = folder + u'/' + name;
        if (!fat || !isHiddenByAttribute(path))
            entries.append({name, kindOf(*entry, path), isLink(*entry, number)});
    }
    ::closedir(handle);
    return entries;
}

#else

QList<FolderEntry> entriesOf(const QString &folder)
{
    QList<FolderEntry> entries;
    const QFileInfoList all =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo &info : all) {
        if (!info.isHidden())
            entries.append({info.fileName(), fileKind(info.filePath()), info.isSymLink()});
    }
    return entries;
}

#endif

bool belongsToSystem(const QString &name)
{
    return name.compare(QStringLiteral("System Volume Information"), Qt::CaseInsensitive) == 0 ||
           name.compare(QStringLiteral("lost+found"), Qt::CaseInsensitive) == 0;
}

} // namespace

QList<FolderEntry> visibleEntries(const QString &folder)
{
    struct Entry {
        QString key;
        FolderEntry entry;
    };
    QList<FolderEntry> all = entriesOf(folder);
    std::vector<Entry> entries;
    entries.reserve(static_cast<size_t>(all.size()));
    for (FolderEntry &entry : all) {
        const bool isShown = entry.kind == FileKind::Regular || entry.kind == FileKind::Folder;
        if (isShown && !entry.name.isEmpty() && !belongsToSystem(entry.name))
            entries.push_back({lowerCased(entry.name), std::move(entry)});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        const int order = a.key.compare(b.key);
        return order != 0 ? order < 0 : a.entry.name < b.entry.name;
    });
    QList<FolderEntry> visible;
    visible.reserve(static_cast<qsizetype>(entries.size()));
    for (Entry &entry : entries)
        visible.append(std::move(entry.entry));
    return visible;
}
