#pragma once

#include <QString>

#include <memory>

namespace brisel
{

/// Keeps other programs from working on a folder, such as the root of a memory, as long as it
/// lives. The lock lies on the folder itself, so nothing is written there, and it ends with its
/// process, however that ends. Where the system can't lock a folder it has no effect.
///
/// Locks of one process on one folder count as one: the work that holds it can call other work that
/// asks for it, too.
class FolderLock
{
public:
    enum class Kind {
        Shared,    ///< for reading: others may read, too
        Exclusive, ///< for changing: no other program may read or write
    };

    /// Takes the lock on \a folder, links followed, without waiting.
    FolderLock(const QString &folder, Kind kind);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    /// True when another program works on the folder, so that it must be left alone.
    [[nodiscard]] bool isBusy() const { return m_busy; }

private:
    class Held;

    std::shared_ptr<Held> m_held;
    bool m_busy = false;
};

} // namespace brisel
