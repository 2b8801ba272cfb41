#include "library/backup.h"

#include "base/debugstream.h"
#include "base/flushing.h"

#include <QDateTime>
#include <QDir>

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
