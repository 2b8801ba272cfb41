#include "base/fileidentity.h"
#include "index/entrylist.h"
#include "index/index.h"

#include <QFileInfo>

// What the walk over the memory could not reach, in words for the user.

/// Whatever a memory lacks that is no longer there is no fault of its files.
void Index::reportMissed(const QString &message)
{
    if (isSameMemory())
        reportError(message);
}

void Index::reportOutside(const QString &path)
{
    reportError(tr("File non importato, si trova fuori dalla memoria: ") + path);
}

void Index::reportUnreadableFolder(const QString &folder, const FolderEntries &found)
{
    m_unreadable.append(folder.mid(m_root.size()));
    reportMissed((found.entries.isEmpty()
                      ? tr("Cartella non importata, impossibile leggerla: ")
                      : tr("Cartella importata solo in parte, errore di lettura: ")) +
                 folder);
}

/// The song or folder \a entry of \a folder has a name that is no text.
void Index::reportUnnamed(const QString &folder, const FolderEntry &entry)
{
    const QString path = folder + u'/' + entry.name;
    if (entry.kind == FileKind::Folder || checkFileExt(QFileInfo(path).suffix()))
        reportMissed(tr("File non importato, il nome non è valido: ") + path);
}

/// \a entry is neither a plain file nor a folder. A link may stand for a folder, whatever its name.
void Index::reportNoFile(const QString &path, const FolderEntry &entry)
{
    const bool isSong = checkFileExt(QFileInfo(path).suffix());
    if (entry.kind == FileKind::Unreachable && (isSong || entry.isLink)) {
        m_unreadable.append(path.mid(m_root.size()));
        reportMissed(tr("File non importato, non è accessibile: ") + path);
    } else if (entry.kind == FileKind::Other && isSong) {
        reportMissed(tr("File non importato, non è un file: ") + path);
    } else if (entry.kind == FileKind::Missing && isSong && entry.isLink) {
        reportMissed(tr("File non importato, il collegamento non porta a nessun file: ") + path);
    }
}

/// What the index says of \a song is what its name says, or what was known of it before.
void Index::reportUnreadSong(const SongInfoIndex &song, bool isNew)
{
    reportMissed((isNew ? tr("File non leggibile, la song è indicizzata con il solo nome: ")
                        : tr("File non leggibile, la song resta indicizzata com'era: ")) +
                 song.absolutePath);
}
