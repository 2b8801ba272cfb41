#include "base/stagingfolder.h"

#include "base/fatfolder.h"
#include "base/fileidentity.h"
#include "base/flushing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

namespace brisel
{

#ifdef Q_OS_LINUX

namespace
{

const QString lotName = QStringLiteral("lot");

/// The name in the folder; a FAT short name, so that it needs only one entry.
QString stagedName(int number)
{
    return QString::asprintf("SAVE%04d.TMP", number);
}

/// A number that is equal for all files of the same mount.
quint64 mountOf(const QString &path)
{
    struct statx entry {
    };
    return ::statx(AT_FDCWD, QFile::encodeName(path).constData(), 0, STATX_MNT_ID, &entry) == 0
               ? entry.stx_mnt_id
               : 0;
}

/// Returns true if the file system of the open folder is mounted with "sync".
bool writesAtOnce(int folder)
{
    struct statvfs system {
    };
    return ::fstatvfs(folder, &system) == 0 && (system.f_flag & ST_SYNCHRONOUS) != 0;
}

/// The entries of the open folder whose names are those of this program.
QStringList namesIn(int folder)
{
    QStringList names;
    FileDescriptor copy(::fcntl(folder, F_DUPFD_CLOEXEC, 0));
    DIR *const listing = ::fdopendir(copy.get());
    if (listing == nullptr)
        return names;
    (void)copy.release(); // closedir() closes it
    while (const dirent *const entry = ::readdir(listing)) {
        const QString name = QFile::decodeName(static_cast<const char *>(entry->d_name));
        if (name.startsWith(QStringLiteral("SAVE")) && name.endsWith(QStringLiteral(".TMP")))
            names.append(name);
    }
    ::closedir(listing);
    return names;
}

} // namespace

QString StagingFolder::rootOf(const QString &folder)
{
    QString root = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    if (const FileDescriptor start = FileDescriptor::openFolder(root);
        start.isOpen() && writesAtOnce(start.get()))
        return root;
    const quint64 device = fileState(root).device;
    const quint64 mount = mountOf(root);
    for (;;) {
        const QString above = QFileInfo(root).path();
        if (above == root || fileState(above).device != device || mountOf(above) != mount ||
            !isOnFat(above))
            return root;
        root = above;
    }
}

StagingFolder::StagingFolder(const QString &root)
    : m_root(root), m_path(QDir(m_root).filePath(workFolderName() + u'/' + lotName))
{
    constexpr mode_t mode = 0700;
    const QString work = QDir(m_root).filePath(workFolderName());
    ::mkdir(QFile::encodeName(work).constData(), mode);
    m_work = FileDescriptor::openFolderIn(AT_FDCWD, work);
    if (!m_work.isOpen())
        return;
    ::mkdirat(m_work.get(), QFile::encodeName(lotName).constData(), mode);
    m_lot = FileDescriptor::openFolderIn(m_work.get(), lotName);
    m_isFat = m_lot.isOpen() && isOnFat(m_lot.get());
    if (!m_isFat)
        return;
    // The first block of a new folder belongs to its parent folder, which must be flushed first.
    (void)flushFolder(m_root);
    (void)flushHandle(m_work.get());
    QStringList names;
    for (int number = 0; number < maxFiles; ++number)
        names.append(stagedName(number));
    reserveEntries(m_path, names);
}

StagingFolder::~StagingFolder()
{
    if (!m_work.isOpen())
        return;
    ::unlinkat(m_work.get(), QFile::encodeName(lotName).constData(), AT_REMOVEDIR);
    ::rmdir(QFile::encodeName(QDir(m_root).filePath(workFolderName())).constData());
    // On FAT an entry must be removed on the disk before its clusters become free.
    if (m_isFat) {
        (void)flushHandle(m_work.get());
        (void)flushFolder(m_root);
    }
    m_lot.close();
    m_work.close();
    if (m_isFat)
        (void)flushFolder(m_root);
}

void StagingFolder::clear(int workFolder)
{
    const FileDescriptor lot = FileDescriptor::openFolderIn(workFolder, lotName);
    if (!lot.isOpen() || (isOnFat(lot.get()) && writesAtOnce(lot.get())))
        return;
    (void)removeFiles(lot.get(), namesIn(lot.get()));
    ::unlinkat(workFolder, QFile::encodeName(lotName).constData(), AT_REMOVEDIR);
}

QString StagingFolder::makeFile(QFile &file)
{
    constexpr int maxAttempts = 10000;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        const QString name = stagedName(m_next++ % maxAttempts);
        FileDescriptor made = FileDescriptor::openIn(m_lot.get(), name, O_RDWR | O_CREAT | O_EXCL);
        if (made.giveTo(file, QIODevice::ReadWrite))
            return QDir(m_path).filePath(name);
        if (made.isOpen() || errno != EEXIST)
            break;
    }
    return {};
}

#else

StagingFolder::StagingFolder(const QString &) {}
StagingFolder::~StagingFolder() = default;

QString StagingFolder::makeFile(QFile &)
{
    return {};
}

QString StagingFolder::rootOf(const QString &folder)
{
    return folder;
}

void StagingFolder::clear(int) {}

#endif

} // namespace brisel
