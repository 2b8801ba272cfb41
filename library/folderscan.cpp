#include "library/folderscan.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "library/progress.h"
#include "library/workflowlog.h"

#include <QDir>

namespace
{

QStringList entriesOf(const QString &folder)
{
    QStringList paths;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name))
        paths.append(dir.filePath(name));
    return paths;
}

/// True the first time that the folder is met.
bool visit(QSet<QString> &visited, const QString &folder)
{
    const QString identity = fileIdentity(folder);
    if (identity.isEmpty() || visited.contains(identity))
        return false;
    visited.insert(identity);
    return true;
}

} // namespace

FolderScan::FolderScan(UserSongsRelTableModel &model, Progress &progress, SongCounts &counts)
    : m_model(model), m_progress(progress), m_counts(counts)
{
}

void FolderScan::scan(const QString &folder)
{
    debug() << "[scanDir] Analyzing directory:" << folder;
    if (!visit(m_visited, folder))
        return;
    for (const QString &path : entriesOf(folder)) {
        if (m_progress.isCanceled())
            return;
        const FileKind kind = fileKind(path);
        if (kind == FileKind::Folder) {
            debug() << "[scanDir] Found directory:" << path;
            scan(path);
        } else if (kind == FileKind::Regular) {
            debug() << "[scanDir] Found file:" << path;
            addSongFile(path, "[scanDir] ", m_model, m_progress, m_counts);
            logSongEnd();
        }
    }
}

bool FolderScan::visitFiles(const QString &folder, QSet<QString> &visited,
                            const std::function<bool(const QString &path)> &visitFile)
{
    if (!visit(visited, folder))
        return true;
    for (const QString &path : entriesOf(folder)) {
        const FileKind kind = fileKind(path);
        if (kind == FileKind::Folder && !visitFiles(path, visited, visitFile))
            return false;
        if (kind == FileKind::Regular && !visitFile(path))
            return false;
    }
    return true;
}

int FolderScan::filesCount(const QString &folder)
{
    int count = 0;
    QSet<QString> visited;
    visitFiles(folder, visited, [&count](const QString & /*path*/) {
        ++count;
        return true;
    });
    return count;
}
