#include "index/entrylist.h"

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
#include <sys/vfs.h>
#include <unistd.h>
#endif

namespace
{

#ifdef Q_OS_LINUX

/// True when files in \a folder carry the attributes of the FAT family.
bool hasFatAttributes(const QString &folder)
{
    constexpr quint32 fatMagic = 0x4D44;
    constexpr quint32 exfatMagic = 0x2011BAB0;
    struct statfs system {
    };
    if (::statfs(QFile::encodeName(folder).constData(), &system) != 0)
        return false;
    const auto magic = static_cast<quint32>(system.f_type);
    return magic == fatMagic || magic == exfatMagic;
}

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

FileKind kindOf(const dirent &entry, const QString &folder, const QString &name)
{
    switch (entry.d_type) {
    case DT_REG:
        return FileKind::Regular;
    case DT_DIR:
        return FileKind::Folder;
    case DT_LNK:
    case DT_UNKNOWN:
        return fileKind(folder + u'/' + name);
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
    const bool fat = hasFatAttributes(folder);
    while (const dirent *const entry = ::readdir(handle)) {
        const QString name = nameOf(*entry);
        if (name.isEmpty() || name.startsWith(u'.'))
            continue;
        const FileKind kind = kindOf(*entry, folder, name);
        if (!fat || !isHiddenByAttribute(folder + u'/' + name))
            entries.append({name, kind});
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
            entries.append({info.fileName(), fileKind(info.filePath())});
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
