#pragma once

#include "base/memoryidentity.h"
#include "index/givennames.h"
#include "index/memoryrenames.h"

#include <QCoreApplication>

class IndexMonitor;

/// The memory that a run works on: whether it is still there, and the names that files get there.
class RunMemory
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    /// Takes the memory \a root, without a "/" at its end, as it is now.
    RunMemory(IndexMonitor &monitor, const QString &root);
    RunMemory(const RunMemory &) = delete;
    RunMemory &operator=(const RunMemory &) = delete;

    const QString &root() const { return m_root; }
    /// The absolute path \a path of the memory as it is below the root: begins with "/", or is
    /// empty.
    QString below(const QString &path) const { return path.mid(m_root.size()); }

    /// False once the memory is no longer there: it was pulled, and its mount folder may stand
    /// there empty or have another memory.
    [[nodiscard]] bool isSame();
    /// True when isSame() has returned false.
    [[nodiscard]] bool isGone() const { return m_isGone; }
    MemoryIdentity &identity() { return m_identity; }

    /// Reads the names that its files were given before.
    void loadNames();
    GivenNames &names() { return m_names; }
    const GivenNames &names() const { return m_names; }
    MemoryRenames &renames() { return m_renames; }

    /// Reports an error in a file or folder, unless the memory is gone: then the file is not at
    /// fault.
    void reportMissed(const QString &message);
    /// Renames the folder at \a path, if there is one, and reports it: a file of the index needs
    /// its name.
    void moveFolderAside(const QString &path);

private:
    IndexMonitor &m_monitor;
    const QString m_root;
    MemoryIdentity m_identity;
    bool m_isGone = false;
    GivenNames m_names;
    MemoryRenames m_renames;
};
