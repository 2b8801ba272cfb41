#include "library/folderscan.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "db/usersongsreltablemodel.h"
#include "library/workflowlog.h"

#include <QDir>

#include <utility>

namespace brisel
{

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

} // namespace

FolderScan::FolderScan(UserSongsRelTableModel &model, QString folder, const SongCounts &counts)
    : m_model(model), m_folder(std::move(folder)), m_songs(model, counts)
{
}

SongCounts FolderScan::run(Run &run)
{
    scan(run, m_folder);
    m_model.sortAgain();
    return m_songs.counts();
}

void FolderScan::scan(Run &run, const QString &folder)
{
    debug() << "[scanDir] Analyzing directory:" << folder;
    if (!m_walk.enter(folder))
        return;
    for (const QString &path : entriesOf(folder)) {
        if (!run.mayGoOn())
            return;
        const FileKind kind = fileKind(path);
        if (kind == FileKind::Folder) {
            debug() << "[scanDir] Found directory:" << path;
            scan(run, path);
        } else if (kind == FileKind::Regular) {
            debug() << "[scanDir] Found file:" << path;
            m_songs.add(run, path, "[scanDir] ");
            logSongEnd();
        }
    }
}

bool FolderScan::visitFiles(const QString &folder, FolderWalk &walk,
                            const std::function<bool(const QString &path)> &visitFile)
{
    if (!walk.enter(folder))
        return true;
    for (const QString &path : entriesOf(folder)) {
        const FileKind kind = fileKind(path);
        if (kind == FileKind::Folder && !visitFiles(path, walk, visitFile))
            return false;
        if (kind == FileKind::Regular && !visitFile(path))
            return false;
    }
    return true;
}

int FolderScan::filesCount(const QString &folder)
{
    int count = 0;
    FolderWalk walk;
    visitFiles(folder, walk, [&count](const QString & /*path*/) {
        ++count;
        return true;
    });
    return count;
}

} // namespace brisel
