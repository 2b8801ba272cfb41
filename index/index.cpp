#include "index/index.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/folderlock.h"
#include "index/indexbuild.h"
#include "index/memoryreasons.h"
#include "index/songhead.h"

#include <QDir>
#include <QFileInfo>

namespace brisel
{

Index::Index(Run &run, QObject *parent) : QObject(parent), IndexMonitor(run), m_set(run) {}

bool Index::createIndex(const QString &root)
{
    return build(root, &IndexBuild::createIndex);
}

bool Index::updateIndex(const QString &root)
{
    return build(root, &IndexBuild::updateIndex);
}

bool Index::build(const QString &root, bool (IndexBuild::*work)())
{
    m_failure = MemoryReason::gone;
    if (!setRoot(root))
        return false;
    const FolderLock lock(m_set.root(), FolderLock::Kind::Exclusive);
    if (lock.isBusy()) {
        m_failure = MemoryReason::inUse;
        return false;
    }
    IndexBuild build(*this, m_set);
    const bool isDone = (build.*work)();
    m_failure = build.failure();
    m_pathSteps = build.pathSteps();
    return isDone;
}

void Index::deleteIndex()
{
    debug() << "delete index";
    m_set.remove();
}

bool Index::setSongInfo(SongInfoIndex &song)
{
    QByteArray prefix;
    FileState state;
    const bool readable =
        isRegularFile(song.absolutePath) && SongHead::read(song.absolutePath, prefix, state);
    return SongHead::parse(prefix, song) && readable;
}

bool Index::setRoot(const QString &root)
{
    QString path = root;
    if (path.endsWith(u'/') || path.endsWith(u'\\'))
        path.chop(1);
    // Paths are cut at the root's length, which would be wrong for "X//" or "X/.". An empty root
    // would be the working folder.
    if (!path.isEmpty())
        path = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (path == QStringLiteral("/"))
        path.clear();
    m_set.setRoot(path);
    return fileKind(path) == FileKind::Folder;
}

void Index::setMaximum(int maximum)
{
    run().setSteps(maximum);
    emit progressMaxSetup(maximum);
}

void Index::setProgress(int value)
{
    run().setStep(value);
    emit progressValueChanged(value);
}

void Index::setFilesFound(int count)
{
    run().setStep(count);
    emit fileFoundChanged(count);
}

void Index::showPath(const QString &path)
{
    emit currentPathChanged(path);
    run().pulse();
}

void Index::reportError(const QString &message)
{
    run().report().addMessage(message);
    emit errorFromIndex(message);
}

void Index::reportNotice(const QString &message)
{
    run().report().addNotice(message);
    emit noticeFromIndex(message);
}

} // namespace brisel
