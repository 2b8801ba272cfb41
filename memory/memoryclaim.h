#pragma once

#include "base/folderlock.h"
#include "base/memoryidentity.h"
#include "base/reason.h"

#include <QString>

#include <optional>

namespace brisel
{

/// A memory that the user is about to change. While this exists, no other program works on it, and
/// it is recognised after a question to the user.
class MemoryClaim
{
public:
    /// Claims the memory \a root, a path without "/" at its end.
    explicit MemoryClaim(const QString &root);
    /// Removes the mark.
    ~MemoryClaim();
    MemoryClaim(const MemoryClaim &) = delete;
    MemoryClaim &operator=(const MemoryClaim &) = delete;

    const QString &root() const { return m_root; }
    /// Finishes a replacement of the index that was cut: until then its playlists are not those
    /// that count. Does nothing the second time, nor if the memory can't be changed. To be called
    /// before the contents are read that a change is based on.
    void prepare();
    /// Returns true if prepare() found an incomplete index, which it may have replaced, and the
    /// playlists with it.
    [[nodiscard]] bool mayHaveRecovered() const { return m_mayHaveRecovered; }
    /// Prepares the memory, and writes the mark by which the memory is recognised, if that is
    /// possible. To be called before the user is asked. A run of the index removes the mark;
    /// afterwards the claim is not the same any more.
    void mark();
    /// Returns true if the memory is still mounted, and not another one instead.
    [[nodiscard]] bool isSame() const { return m_identity.isSame(); }
    /// Why nothing may be changed now; empty if the memory can be changed.
    [[nodiscard]] std::optional<Reason> refusal() const;

private:
    const QString m_root;
    const FolderLock m_lock;
    MemoryIdentity m_identity;
    bool m_isPrepared = false;
    bool m_mayHaveRecovered = false;
    bool m_isMarked = false;
};

} // namespace brisel
