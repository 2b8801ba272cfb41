#include "index/entrylist.h"

#include <QDir>
#include <QFile>

#include <algorithm>

#ifdef Q_OS_LINUX
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

#else

bool hasFatAttributes(const QString &)
{
    return false;
}

bool isHiddenByAttribute(const QString &)
{
    return false;
}

#endif

bool belongsToSystem(const QFileInfo &entry)
{
    const QString name = entry.fileName();
    return name.compare(QStringLiteral("System Volume Information"), Qt::CaseInsensitive) == 0 ||
           name.compare(QStringLiteral("lost+found"), Qt::CaseInsensitive) == 0;
}

} // namespace

QFileInfoList visibleEntries(const QString &folder)
{
    struct Entry {
        QString key;
        QFileInfo info;
    };
    const bool fat = hasFatAttributes(folder);
    QList<Entry> entries;
    const QFileInfoList all =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo &info : all) {
        const bool hidden = info.isHidden() || belongsToSystem(info) ||
                            (fat && isHiddenByAttribute(info.absoluteFilePath()));
        if (!info.fileName().isEmpty() && !hidden)
            entries.append({info.fileName().toLower(), info});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        return a.key != b.key ? a.key < b.key : a.info.fileName() < b.info.fileName();
    });
    QFileInfoList visible;
    visible.reserve(entries.size());
    for (const Entry &entry : entries)
        visible.append(entry.info);
    return visible;
}
