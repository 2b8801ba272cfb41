#include "library/foldertreebackup.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/run.h"
#include "library/safecopy.h"

#include <QDir>

#include <utility>

namespace brisel
{

FolderTreeBackup::FolderTreeBackup(QString source, QString dest, int count)
    : m_source(std::move(source)), m_dest(std::move(dest)), m_count(count)
{
}

bool FolderTreeBackup::run(Run &run)
{
    (void)m_walk.enter(m_dest); // the first folder of the walk
    return copyFolder(run, m_source, m_dest);
}

bool FolderTreeBackup::copyFolder(Run &run, const QString &source, const QString &dest)
{
    if (fileKind(source) != FileKind::Folder || !m_walk.enter(source))
        return false;

    debug() << "Backing up directory:" << source << "to:" << dest;
    const QDir folder(source);
    const QDir::Filters hidden = QDir::Hidden | QDir::NoDotAndDotDot;
    bool complete = true;
    const QStringList files = folder.entryList(QDir::Files | hidden, QDir::Name);
    for (const QString &name : files) {
        if (Run::isEnding())
            return false;
        const QString from = source + u'/' + name;
        const QString to = dest + u'/' + name;
        debug() << "Copying file:" << from << "to:" << to;
        if (copyToNewFile(from, to) == CopyResult::Done)
            run.setStep(++m_count);
        else
            complete = false;
    }
    const QStringList subFolders = folder.entryList(QDir::Dirs | hidden, QDir::Name);
    for (const QString &name : subFolders)
        complete = copySubFolder(run, source, dest, name) && complete;
    return complete;
}

bool FolderTreeBackup::copySubFolder(Run &run, const QString &source, const QString &dest,
                                     const QString &name)
{
    const QString from = source + u'/' + name;
    // A destination below the source is not copied.
    if (Run::isEnding() || m_walk.hasEntered(from))
        return false;
    const QString to = dest + u'/' + name;
    debug() << "Making new dir:" << to;
    if (!QDir(dest).mkdir(name))
        return false;
    const bool complete = copyFolder(run, from, to);
    run.setStep(m_count);
    return complete;
}

} // namespace brisel
