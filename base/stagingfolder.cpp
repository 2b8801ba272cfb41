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

namespace
{

const QString lotName = QStringLiteral("lot");

/// The name in the folder; short as FAT counts, so that it takes a single entry.
QString stagedName(int number)
{
    return QString::asprintf("SAVE%04d.TMP", number);
}

/// A number that is the same for all that is mounted in one go.
quint64 mountOf(const QString &path)
{
    struct statx entry {
    };
    return ::statx(AT_FDCWD, QFile::encodeName(path).constData(), 0, STATX_MNT_ID, &entry) == 0
               ? entry.stx_mnt_id
               : 0;
}

/// True when the file system of the open folder is mounted with "sync".
bool writesAtOnce(int folder)
{
    struct statvfs system {
    };
    return ::fstatvfs(folder, &system) == 0 && (system.f_flag & ST_SYNCHRONOUS) != 0;
}

/// The names that this program gives, of what lies in the open folder.
QStringList namesIn(int folder)
{
    QStringList names;
    DIR *const listing = ::fdopendir(::dup(folder));
    if (listing == nullptr)
        return names;
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
    const int handle = ::open(QFile::encodeName(root).constData(), O_RDONLY | O_CLOEXEC);
    const bool isAtOnce = handle >= 0 && writesAtOnce(handle);
    if (handle >= 0)
        ::close(handle);
    if (isAtOnce)
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
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    constexpr mode_t mode = 0700;
    const QByteArray work = QFile::encodeName(QDir(m_root).filePath(workFolderName()));
    const QByteArray lot = QFile::encodeName(lotName);
    ::mkdir(work.constData(), mode);
    m_work = ::open(work.constData(), flags);
    if (m_work < 0)
        return;
    ::mkdirat(m_work, lot.constData(), mode);
    m_handle = ::openat(m_work, lot.constData(), flags);
    m_isFat = m_handle >= 0 && isOnFat(m_handle);
    if (!m_isFat)
        return;
    // The system counts the first block of a new folder, whoever has made it, among those of the
    // folder above: those go first.
    flushFolder(m_root);
    flushHandle(m_work);
    QStringList names;
    for (int number = 0; number < maxFiles; ++number)
        names.append(stagedName(number));
    reserveEntries(m_path, names);
}

StagingFolder::~StagingFolder()
{
    if (m_work < 0)
        return;
    ::unlinkat(m_work, QFile::encodeName(lotName).constData(), AT_REMOVEDIR);
    ::rmdir(QFile::encodeName(QDir(m_root).filePath(workFolderName())).constData());
    // On FAT an entry goes from the disk before what it leads to becomes free.
    if (m_isFat) {
        flushHandle(m_work);
        flushFolder(m_root);
    }
    if (m_handle >= 0)
        ::close(m_handle);
    ::close(m_work);
    if (m_isFat)
        flushFolder(m_root);
}

void StagingFolder::clear(int workFolder)
{
    const int lot = ::openat(workFolder, QFile::encodeName(lotName).constData(),
                             O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (lot < 0)
        return;
    if (!isOnFat(lot) || !writesAtOnce(lot)) {
        removeFiles(lot, namesIn(lot));
        ::unlinkat(workFolder, QFile::encodeName(lotName).constData(), AT_REMOVEDIR);
    }
    ::close(lot);
}

QString StagingFolder::makeFile(QFile &file)
{
    constexpr int maxAttempts = 10000;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        const QString name = stagedName(m_next++ % maxAttempts);
        constexpr mode_t mode = 0666;
        const int handle = ::openat(m_handle, QFile::encodeName(name).constData(),
                                    O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (handle < 0 && errno != EEXIST)
            break;
        if (handle < 0)
            continue;
        if (file.open(handle, QIODevice::ReadWrite | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle))
            return QDir(m_path).filePath(name);
        ::close(handle);
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
