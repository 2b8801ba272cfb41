#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <sched.h>
#include <sys/mount.h>

namespace brisel
{

/// A real file system of a few pages, mounted on a folder and visible only to this process and its
/// children. Only root may mount it: check isMounted().
class SmallDisk
{
public:
    static constexpr qint64 pageSize = 4096;      ///< bytes; files occupy whole pages
    static constexpr qint64 memorySize = 4 << 20; ///< bytes; room for songs and their index

    SmallDisk(const QString &folder, qint64 size) : m_folder(QFile::encodeName(folder))
    {
        static const bool isPrivate =
            ::unshare(CLONE_NEWNS) == 0 &&
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        const QByteArray options = "size=" + QByteArray::number(size);
        m_mounted = isPrivate && ::mount("brisel-test", m_folder.constData(), "tmpfs", 0,
                                         options.constData()) == 0;
    }
    ~SmallDisk()
    {
        if (m_mounted)
            ::umount2(m_folder.constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_mounted; }

    /// Makes the disk read-only, as after a disk error, or writable again. Fails, and returns
    /// false, while a file there is open for writing.
    bool setReadOnly(bool isReadOnly) const
    {
        return ::mount(nullptr, m_folder.constData(), nullptr,
                       MS_REMOUNT | (isReadOnly ? MS_RDONLY : 0), nullptr) == 0;
    }

    /// Makes the file at \a path on such a disk read-only, also for root.
    static bool protect(const QString &path)
    {
        const QByteArray file = QFile::encodeName(path);
        return ::mount(file.constData(), file.constData(), nullptr, MS_BIND, nullptr) == 0 &&
               ::mount(nullptr, file.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY,
                       nullptr) == 0;
    }

private:
    QByteArray m_folder;
    bool m_mounted = false;
};

} // namespace brisel
