#include "memory/mountedmemories.h"

#include "base/filedescriptor.h"
#include "base/filefailure.h"
#include "index/volumes.h"

#include <QDir>
#include <QFileInfo>
#include <QSocketNotifier>

#include <algorithm>

#include <fcntl.h>

namespace brisel
{

namespace
{

QStringList rootsNow()
{
    QStringList roots;
    for (const QString &folder : mountFolders()) {
        const QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &name : names) {
            const QString root = QDir::cleanPath(folder + u'/' + name);
            if (isRoot(root) && !isSystemDisk(root) && !roots.contains(root))
                roots.append(root);
        }
    }
    return roots;
}

/// \a folder, or the nearest folder above it that exists.
QString existing(const QString &folder)
{
    QString path = folder;
    while (!QFileInfo(path).isDir() && path.contains(u'/'))
        path.truncate(path.lastIndexOf(u'/'));
    return path.isEmpty() ? QStringLiteral("/") : path;
}

} // namespace

/// The system reports a change of its table of mounts as an exception on this file.
class MountedMemories::MountTable
{
public:
    explicit MountTable(MountedMemories &memories)
        : m_file(FileDescriptor::open(QStringLiteral("/proc/self/mountinfo"), O_RDONLY))
    {
        if (!m_file.isOpen())
            return;
        m_notifier = std::make_unique<QSocketNotifier>(m_file.get(), QSocketNotifier::Exception);
        connect(m_notifier.get(), &QSocketNotifier::activated, &memories.m_delay,
                qOverload<>(&QTimer::start));
    }

private:
    FileDescriptor m_file;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

MountedMemories::MountedMemories(QObject *parent) : QObject(parent)
{
    constexpr int delay = 50; // milliseconds: a folder is made before its memory is mounted
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    connect(&m_delay, &QTimer::timeout, this, &MountedMemories::look);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_delay,
            qOverload<>(&QTimer::start));
#ifdef Q_OS_LINUX
    m_table = std::make_unique<MountTable>(*this);
#endif
    look();
}

MountedMemories::~MountedMemories() = default;

void MountedMemories::look()
{
    watch(); // before the list is read, so that no later change is missed
    const QStringList roots = rootsNow();
    QList<bool> areProtected;
    for (const QString &root : roots)
        areProtected.append(isWriteProtected(root));
    const auto isThere = [](const MemoryIdentity &memory) { return memory.isThere(); };
    const bool areSame = roots == m_roots && areProtected == m_areProtected &&
                         std::all_of(m_identities.cbegin(), m_identities.cend(), isThere);
    if (areSame)
        return;
    m_areProtected = areProtected;
    m_roots = roots;
    m_identities.clear();
    for (const QString &root : roots)
        m_identities.emplace_back(root);
    emit changed();
}

/// A folder that was removed is no longer watched, even if it was made again.
void MountedMemories::watch()
{
    QStringList wanted;
    for (const QString &folder : mountFolders())
        wanted.append(existing(folder));
    wanted.removeDuplicates();
    QStringList outdated = m_watcher.directories();
    outdated.removeIf([&wanted](const QString &folder) { return wanted.contains(folder); });
    if (!outdated.isEmpty())
        m_watcher.removePaths(outdated);
    m_watcher.addPaths(wanted);
}

} // namespace brisel
