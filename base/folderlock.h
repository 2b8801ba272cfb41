#pragma once

#include <QString>

#include <memory>

namespace brisel
{

/// Prevents other programs from working on a folder, such as the root of a memory, during its
/// lifetime. The folder itself is locked, so nothing is written there, and the lock always ends
/// with its process. If the system can't lock a folder, it has no effect.
///
/// Locks of one process on the same folder are shared, so that an operation with the lock can call
/// another one that also locks.
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

    /// Returns true if another program works on the folder, which must not be changed then.
    [[nodiscard]] bool isBusy() const { return m_busy; }

private:
    class Held;

    std::shared_ptr<Held> m_held;
    bool m_busy = false;
};

} // namespace brisel
