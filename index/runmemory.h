#pragma once

#include "base/memoryidentity.h"
#include "index/givennames.h"
#include "index/memoryrenames.h"

#include <QCoreApplication>

namespace brisel
{

class IndexMonitor;

/// The memory of a run: whether it is still mounted, and the names that its files get.
class RunMemory
{
    Q_DECLARE_TR_FUNCTIONS(brisel::Index)

public:
    /// For the memory now mounted at \a root, a path without a "/" at its end.
    RunMemory(IndexMonitor &monitor, const QString &root);
    RunMemory(const RunMemory &) = delete;
    RunMemory &operator=(const RunMemory &) = delete;

    const QString &root() const { return m_root; }
    /// Returns the part of the absolute path \a path below the root: begins with "/", or is empty.
    QString below(const QString &path) const { return path.mid(m_root.size()); }

    /// Returns false if the memory was removed: its mount folder may be empty or have another
    /// memory.
    [[nodiscard]] bool isSame();
    /// Returns true after isSame() has returned false.
    [[nodiscard]] bool isGone() const { return m_isGone; }
    MemoryIdentity &identity() { return m_identity; }

    /// Reads the names that its files got in earlier runs.
    void loadNames();
    GivenNames &names() { return m_names; }
    const GivenNames &names() const { return m_names; }
    MemoryRenames &renames() { return m_renames; }

    /// Reports an error in a file or folder, unless the memory was removed, which causes such
    /// errors.
    void reportMissed(const QString &message);
    /// Renames the folder at \a path, if it exists, and reports it: a file of the index needs its
    /// name.
    void moveFolderAside(const QString &path);

private:
    IndexMonitor &m_monitor;
    const QString m_root;
    MemoryIdentity m_identity;
    bool m_isGone = false;
    GivenNames m_names;
    MemoryRenames m_renames;
};

} // namespace brisel
