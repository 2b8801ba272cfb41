#include "base/folderlock.h"

#include "base/fileidentity.h"

#include <QFile>
#include <QHash>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

/// The lock of this process on one folder.
class FolderLock::Held
{
public:
    Held(int handle, bool isExclusive) : m_handle(handle), m_exclusive(isExclusive) {}
    ~Held()
    {
#ifdef Q_OS_UNIX
        ::close(m_handle);
#endif
    }
    Held(const Held &) = delete;
    Held &operator=(const Held &) = delete;

    bool isExclusive() const
    {
        return m_exclusive;
    }

    /// Those that live, by the identity of their folders.
    static QHash<QString, std::weak_ptr<Held>> &all()
    {
        static QHash<QString, std::weak_ptr<Held>> locks;
        return locks;
    }

private:
    int m_handle;
    bool m_exclusive;
};

FolderLock::FolderLock(const QString &folder, Kind kind)
{
#ifdef Q_OS_UNIX
    const bool isExclusive = kind == Kind::Exclusive;
    const QString identity = fileIdentity(folder);
    m_held = Held::all().value(identity).lock();
    if (m_held != nullptr) {
        m_busy = isExclusive && !m_held->isExclusive();
        return;
    }
    const int handle =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    m_busy =
        ::flock(handle, (isExclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (m_busy) {
        ::close(handle);
        return;
    }
    m_held = std::make_shared<Held>(handle, isExclusive);
    Held::all().insert(identity, m_held);
#else
    Q_UNUSED(folder)
    Q_UNUSED(kind)
#endif
}

FolderLock::~FolderLock()
{
    m_held.reset();
    Held::all().removeIf([](const auto &lock) { return lock.value().expired(); });
}
