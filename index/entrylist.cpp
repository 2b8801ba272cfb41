#include "index/entrylist.h"

#include "base/fatfolder.h"
#include "base/filedescriptor.h"
#include "base/lettercase.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <vector>

#ifdef Q_OS_LINUX
#include <dirent.h>
#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#endif

namespace brisel
{

namespace
{

#ifdef Q_OS_LINUX

bool isHiddenByAttribute(const QString &path)
{
    const FileDescriptor entry = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    quint32 attributes = 0;
    return ::ioctl(entry.get(), FAT_IOCTL_GET_ATTRIBUTES, &attributes) == 0 &&
           (attributes & (ATTR_HIDDEN | ATTR_SYS)) != 0;
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

/// Appends \a entry of \a folder, which is open as \a handle, to \a all, unless it is hidden.
void addVisible(const dirent &entry, const QString &folder, int handle, bool isFat,
                FolderEntries &all)
{
    const char *const start = static_cast<const char *>(entry.d_name);
    const QByteArray bytes = QByteArray::fromRawData(start, qstrlen(start));
    const QString name = QFile::decodeName(bytes);
    const QString path = folder + u'/' + name;
    if (name.startsWith(u'.') || (isFat && isHiddenByAttribute(path)))
        return;
    const bool isText =
        !name.contains(QChar::ReplacementCharacter) || QFile::encodeName(name) == bytes;
    (isText ? all.entries : all.unnamed).append({name, kindOf(entry, path), isLink(entry, handle)});
}

/// Unsorted, with the folders of the system.
FolderEntries entriesOf(const QString &folder)
{
    FolderEntries all;
    DIR *const handle = ::opendir(QFile::encodeName(folder).constData());
    if (handle == nullptr) {
        all.isComplete = errno == ENOENT;
        return all;
    }
    const int number = ::dirfd(handle);
    const bool fat = isOnFat(number);
    errno = 0;
    while (const dirent *const entry = ::readdir(handle)) {
        addVisible(*entry, folder, number, fat, all);
        errno = 0;
    }
    all.isComplete = errno == 0;
    ::closedir(handle);
    return all;
}

#else

FolderEntries entriesOf(const QString &folder)
{
    FolderEntries all;
    const QDir dir(folder);
    const QFileInfoList infos =
        dir.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo &info : infos) {
        if (!info.isHidden() && !info.fileName().startsWith(u'.'))
            all.entries.append({info.fileName(), fileKind(info.filePath()), info.isSymLink()});
    }
    all.isComplete = !dir.exists() || dir.isReadable();
    return all;
}

#endif

} // namespace

void sortEntries(QList<FolderEntry> &entries)
{
    struct Place {
        QString key;
        FolderEntry entry;
    };
    std::vector<Place> places;
    places.reserve(static_cast<size_t>(entries.size()));
    for (FolderEntry &entry : entries)
        places.push_back({lowerCased(entry.name), std::move(entry)});
    std::sort(places.begin(), places.end(), [](const Place &a, const Place &b) {
        const int order = a.key.compare(b.key);
        return order != 0 ? order < 0 : a.entry.name < b.entry.name;
    });
    entries.clear();
    for (Place &place : places)
        entries.append(std::move(place.entry));
}

static bool isSystemFolder(QStringView name)
{
    static constexpr QStringView names[]{u"$RECYCLE.BIN", u"RECYCLER", u"RECYCLED",
                                         u"System Volume Information", u"lost+found"};
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    constexpr QStringView repaired = u"FOUND.";
    constexpr qsizetype digits = 3;
    if (name.startsWith(u".Trash", Qt::CaseInsensitive))
        return true;
    if (name.startsWith(repaired, Qt::CaseInsensitive) && name.size() == repaired.size() + digits)
        return std::all_of(name.cend() - digits, name.cend(), isDigit);
    return std::any_of(std::cbegin(names), std::cend(names), [name](QStringView known) {
        return name.compare(known, Qt::CaseInsensitive) == 0;
    });
}

FolderEntries visibleEntries(const QString &folder)
{
    FolderEntries all = entriesOf(folder);
    for (QList<FolderEntry> *entries : {&all.entries, &all.unnamed}) {
        entries->removeIf([](const FolderEntry &entry) {
            return entry.kind == FileKind::Folder && isSystemFolder(entry.name);
        });
        sortEntries(*entries);
    }
    return all;
}

bool liesInSystemFolder(QStringView path)
{
    QList<QStringView> names = path.split(u'/', Qt::SkipEmptyParts);
    if (!names.isEmpty())
        names.removeLast();
    return std::any_of(names.cbegin(), names.cend(), isSystemFolder);
}

} // namespace brisel
