#include "base/folderlock.h"

#include "base/filedescriptor.h"
#include "base/fileidentity.h"

#include <QHash>

#include <utility>

#include <cerrno>
#include <sys/file.h>

namespace brisel
{

/// The lock of this process on one folder.
class FolderLock::Held
{
public:
    Held(FileDescriptor folder, bool isExclusive)
        : m_folder(std::move(folder)), m_exclusive(isExclusive)
    {
    }

    bool isExclusive() const { return m_exclusive; }

    /// All present locks, by the identity of their folders.
    static QHash<QString, std::weak_ptr<Held>> &all()
    {
        static QHash<QString, std::weak_ptr<Held>> locks;
        return locks;
    }

private:
    FileDescriptor m_folder;
    bool m_exclusive;
};

FolderLock::FolderLock(const QString &folder, Kind kind)
{
    const bool isExclusive = kind == Kind::Exclusive;
    const QString identity = fileIdentity(folder);
    m_held = Held::all().value(identity).lock();
    if (m_held != nullptr) {
        m_busy = isExclusive && !m_held->isExclusive();
        return;
    }
    FileDescriptor opened = FileDescriptor::openFolder(folder);
    if (!opened.isOpen())
        return;
    m_busy = ::flock(opened.get(), (isExclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0 &&
             errno == EWOULDBLOCK;
    if (m_busy)
        return;
    m_held = std::make_shared<Held>(std::move(opened), isExclusive);
    Held::all().insert(identity, m_held);
}

FolderLock::~FolderLock()
{
    m_held.reset();
    Held::all().removeIf([](const auto &lock) { return lock.value().expired(); });
}

} // namespace brisel
