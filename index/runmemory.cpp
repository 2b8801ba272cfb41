#include "index/runmemory.h"

#include "base/fileidentity.h"
#include "index/indexmonitor.h"

#include <QFileInfo>

namespace brisel
{

RunMemory::RunMemory(IndexMonitor &monitor, const QString &root)
    : m_monitor(monitor), m_root(root), m_identity(root)
{
}

void RunMemory::loadNames()
{
    m_names.setRoot(m_root);
    (void)m_names.load(); // without it no name is known
    m_renames.setRoot(m_root, m_names);
}

bool RunMemory::isSame()
{
    m_isGone = m_isGone || !m_identity.isSame();
    return !m_isGone;
}

void RunMemory::reportMissed(const QString &message)
{
    if (isSame())
        m_monitor.reportError(message);
}

void RunMemory::moveFolderAside(const QString &path)
{
    const QFileInfo entry(path);
    if (!entry.isDir() || entry.isSymLink())
        return;
    constexpr int mostNumbers = 999;
    int number = 0;
    QString newName;
    do
        newName = QStringLiteral("old-%1").arg(++number);
    while (number < mostNumbers && fileKind(entry.path() + u'/' + newName) != FileKind::Missing);
    if (m_renames.rename(entry.path(), {{entry.fileName(), newName}}))
        m_monitor.reportNotice(tr("Cartella rinominata, il suo nome serve all'indice: ") +
                               entry.filePath() + QStringLiteral(" -> ") + newName);
}

} // namespace brisel
