#include "library/foldertreebackup.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/runguard.h"
#include "library/progress.h"
#include "library/safecopy.h"

#include <QDir>

bool FolderTreeBackup::backupDirectory(const QString &source, const QString &dest, int &count)
{
    m_visited = {fileIdentity(dest)};
    return copyFolder(source, dest, count);
}

bool FolderTreeBackup::copyFolder(const QString &source, const QString &dest, int &count)
{
    const QString identity = fileIdentity(source);
    if (identity.isEmpty() || m_visited.contains(identity))
        return false;
    m_visited.insert(identity);

    debug() << "Backing up directory:" << source << "to:" << dest;
    const QDir folder(source);
    const QDir::Filters hidden = QDir::Hidden | QDir::NoDotAndDotDot;
    bool complete = true;
    const QStringList files = folder.entryList(QDir::Files | hidden, QDir::Name);
    for (const QString &name : files) {
        if (RunGuard::endRequested())
            return false;
        const QString from = source + u'/' + name;
        const QString to = dest + u'/' + name;
        debug() << "Copying file:" << from << "to:" << to;
        if (copyToNewFile(from, to) == CopyResult::Done)
            m_progress.setValue(++count);
        else
            complete = false;
    }
    const QStringList subFolders = folder.entryList(QDir::Dirs | hidden, QDir::Name);
    for (const QString &name : subFolders)
        complete = copySubFolder(source, dest, name, count) && complete;
    return complete;
}

bool FolderTreeBackup::copySubFolder(const QString &source, const QString &dest,
                                     const QString &name, int &count)
{
    const QString from = source + u'/' + name;
    // The destination below the source is no part of what is backed up.
    if (RunGuard::endRequested() || m_visited.contains(fileIdentity(from)))
        return false;
    const QString to = dest + u'/' + name;
    debug() << "Making new dir:" << to;
    if (!QDir(dest).mkdir(name))
        return false;
    const bool complete = copyFolder(from, to, count);
    m_progress.setValue(count);
    return complete;
}
