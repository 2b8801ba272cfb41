#include "memory/copyback.h"

#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/folderlock.h"
#include "index/memoryreasons.h"
#include "library/filecopier.h"

#include <utility>

namespace brisel
{

CopyBack::CopyBack(QString root, QStringList files, QString folder, const MemoryContents &contents)
    : m_root(std::move(root)), m_paths(std::move(files)), m_files(m_root, contents),
      m_folder(std::move(folder))
{
    m_paths.removeDuplicates();
}

CopyBack::Outcome CopyBack::run(Run &run)
{
    if (fileKind(m_folder) != FileKind::Folder)
        return Outcome::NoFolder;
    if (!wayBelow(m_root, m_folder).isNull())
        return Outcome::OnMemory;
    run.report().addOperation(RunReport::Operation::CopyBack);
    const FolderLock lock(m_root, FolderLock::Kind::Shared);
    if (lock.isBusy()) {
        run.report().add(RunReport::Step::Copy, m_root, MemoryReason::inUse);
        return Outcome::InUse;
    }
    const QStringList files = findFiles(run);
    const bool areAllFound = files.size() == m_paths.size();
    run.begin({tr("Copia sul computer"), tr("Copio le song..."), static_cast<int>(files.size())});
    FileCopier copier(run);
    copier.setNumbered();
    const bool isDone = copier.copyFiles(files, m_folder);
    m_shortage = copier.shortage();
    const bool isInterrupted = !run.mayGoOn();
    run.end();
    if (!m_shortage.isEmpty())
        return Outcome::NoRoom;
    // The interruption may have come after the last song.
    if (areAllFound && (isDone || (copier.copied() == files.size() && run.report().isEmpty())))
        return Outcome::Done;
    return isInterrupted ? Outcome::Interrupted : Outcome::Failed;
}

/// Reports the songs whose files can't be determined.
QStringList CopyBack::findFiles(Run &run)
{
    QStringList files;
    for (const QString &path : std::as_const(m_paths)) {
        const SongFiles::Place place = m_files.find(path);
        if (place.problem)
            run.report().add(RunReport::Step::Copy, path, *place.problem);
        else
            files.append(place.path);
    }
    return files;
}

} // namespace brisel
