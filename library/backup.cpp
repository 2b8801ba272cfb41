#include "library/backup.h"

#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/flushing.h"
#include "library/backuplist.h"
#include "library/filecopier.h"
#include "library/workflowlog.h"

#include <QDateTime>
#include <QDir>

#include <utility>

namespace brisel
{

QString backupFolderName(const QDateTime &time)
{
    return QStringLiteral("backup_kordia_") + time.toString(QStringLiteral("yyyy_MM_dd_hh-mm-ss"));
}

QString makeBackupFolder(const QString &chosen, const QDateTime &time)
{
    const QString name = backupFolderName(time);
    QString path = chosen + u'/' + name;
    debug() << "Making new root backup dir:" << path;
    if (QDir(chosen).mkdir(name)) {
        // The copies could reach a FAT disk before the beginning of their folder.
        (void)flushFolder(chosen);
        return path;
    }
    debug() << "Dest root dir creation failed";
    return {};
}

Backup::Backup(QStringList files, QString chosen)
    : m_files(std::move(files)), m_chosen(std::move(chosen))
{
    m_files.removeDuplicates(); // one copy of each file
}

Backup::Outcome Backup::run(Run &run)
{
    if (m_chosen.isEmpty())
        return Outcome::NoFolder;
    logBanner("BACKUP USER LIBRARY");
    const QString folder = makeBackupFolder(m_chosen, QDateTime::currentDateTime());
    if (folder.isEmpty())
        return Outcome::NoFolder;
    run.report().addOperation(RunReport::Operation::Backup);
    // "dellla": users and their support know the text as it is.
    run.begin({tr("Backup"), tr("Eseguo backup dellla libreria..."), int(m_files.size())});
    const bool isDone = copyTo(run, folder);
    run.end();
    if (Run::isEnding())
        return Outcome::Ended;
    return isDone ? Outcome::Done : Outcome::Failed;
}

/// The list is also written if some files could not be copied.
bool Backup::copyTo(Run &run, const QString &folder)
{
    BackupList list;
    FileCopier copier(run);
    copier.setList(list);
    const bool isDone = copier.copyFiles(m_files, folder);
    if (list.write(folder))
        return isDone;
    const QString path = folder + u'/' + BackupList::fileName();
    run.report().add(RunReport::Step::Copy, path, whyUnwritable(path, list.size()));
    return false;
}

} // namespace brisel
