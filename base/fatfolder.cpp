#include "base/fatfolder.h"

#include "base/filedescriptor.h"
#include "base/fileidentity.h"
#include "base/flushing.h"
#include "base/plainfile.h"

#include <QFile>

#include <vector>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <sys/vfs.h>
#endif

namespace brisel
{

#ifdef Q_OS_LINUX

namespace
{

/// The number of 32-byte records that \a name needs in a folder.
qsizetype recordsOf(const QString &name)
{
    constexpr qsizetype charactersInARecord = 13;
    return (name.size() + charactersInARecord - 1) / charactersInARecord + 1;
}

} // namespace

bool isOnFat(int handle)
{
    constexpr quint32 fatMagic = 0x4D44;
    constexpr quint32 exfatMagic = 0x2011BAB0;
    struct statfs system {
    };
    if (::fstatfs(handle, &system) != 0)
        return false;
    const auto magic = static_cast<quint32>(system.f_type);
    return magic == fatMagic || magic == exfatMagic;
}

bool isOnFat(const QString &path)
{
    const FileDescriptor entry = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    return entry.isOpen() && isOnFat(entry.get());
}

void reserveEntries(const QString &folder, const QStringList &names)
{
    qsizetype wanted = 0;
    for (const QString &name : names)
        wanted += recordsOf(name);
    // Empty files, which are never opened: on some mounts closing a file is slow.
    const QString longName(200, u'-');
    QList<QByteArray> made;
    while (wanted > 0) {
        const QString name = QStringLiteral(".brisel-room-%1%2.tmp").arg(made.size()).arg(longName);
        QByteArray path = QFile::encodeName(folder + u'/' + name);
        constexpr mode_t mode = 0600;
        // A file may have been left by a cut.
        if (isRegularFile(folder + u'/' + name))
            ::unlink(path.constData());
        if (::mknod(path.constData(), S_IFREG | mode, 0) != 0)
            break;
        wanted -= recordsOf(name);
        made.append(std::move(path));
    }
    for (const QByteArray &path : std::as_const(made))
        ::unlink(path.constData());
    if (!made.isEmpty())
        (void)flushFolder(folder);
}

#else

bool isOnFat(int)
{
    return false;
}

bool isOnFat(const QString &)
{
    return false;
}

void reserveEntries(const QString &, const QStringList &) {}

#endif

bool removeFiles(int folder, const QStringList &names)
{
    constexpr qsizetype mostOpenFiles = 200;
    const bool isFat = isOnFat(folder);
    bool areGone = true;
    for (qsizetype start = 0; start < names.size(); start += mostOpenFiles) {
        std::vector<PlainFile> held;
        for (const QString &name : names.mid(start, mostOpenFiles)) {
            if (isFat) {
                held.emplace_back();
                (void)held.back().openIn(folder, name);
            }
            if (::unlinkat(folder, QFile::encodeName(name).constData(), 0) != 0)
                areGone = areGone && errno == ENOENT;
        }
        if (isFat)
            areGone = flushHandle(folder) && areGone;
    }
    return areGone;
}

} // namespace brisel
