#include "library/transfer.h"

#include "base/flushing.h"
#include "index/volumes.h"

#include <QDir>
#include <QFileInfo>

static bool isReserved(const QString &folderName)
{
    for (const QString &reserved :
         {QStringLiteral("SFX"), QStringLiteral("BRIDGE"), QStringLiteral("PLAYLIST")}) {
        if (folderName.compare(reserved, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

TransferRefusal findTransferFolder(const QString &chosen, QString &destination)
{
    destination = QDir::cleanPath(chosen);
    if (isSystemDisk(destination))
        return TransferRefusal::SystemDisk;
    if (isRoot(destination)) {
        const QString songs = QStringLiteral("songs");
        const QDir memory(destination);
        destination += u'/' + songs;
        const bool isThere = QFileInfo(destination).isDir();
        if (!isThere && !memory.mkdir(songs))
            return TransferRefusal::NoSongsFolder;
        // The songs could reach a FAT disk before the beginning of their folder.
        if (!isThere)
            (void)flushFolder(memory.path());
        // "songs" may be a link that leads off the memory.
        if (isSystemDisk(destination))
            return TransferRefusal::SystemDisk;
    }
    if (isReserved(destination.mid(destination.lastIndexOf(u'/') + 1)))
        return TransferRefusal::ReservedFolder;
    return TransferRefusal::None;
}
