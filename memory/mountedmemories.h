#pragma once

#include "base/memoryidentity.h"

#include <QFileSystemWatcher>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

namespace brisel
{

/// The memories that are mounted now: it follows the mount folders (index/volumes.h), and on Linux
/// the system's table of mounts.
class MountedMemories : public QObject
{
    Q_OBJECT

public:
    explicit MountedMemories(QObject *parent = nullptr);
    ~MountedMemories() override;

    /// The roots of the memories, in the order of the mount folders, then by name.
    const QStringList &roots() const { return m_roots; }
    /// Looks at once for what has changed.
    void look();

signals:
    /// A memory was mounted or removed, replaced by another one, or protected from writing.
    void changed();

private:
    class MountTable;

    void watch();

    QFileSystemWatcher m_watcher;
    QTimer m_delay; ///< active while a change is not yet looked at
    std::unique_ptr<MountTable> m_table;
    QStringList m_roots;
    QList<bool> m_areProtected;               ///< the roots
    std::vector<MemoryIdentity> m_identities; ///< of the roots
};

} // namespace brisel
