#include "base/fatfolder.h"
#include "base/filedescriptor.h"
#include "base/filereading.h"
#include "base/filewriting.h"
#include "base/flushing.h"
#include "base/folderhandle.h"
#include "base/freespace.h"
#include "index/indexset.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace brisel
{

// The replacement of the old files by those of a new set.

qint64 IndexSet::roomForUpdate(const QString &root, qsizetype newSongs)
{
    constexpr qint64 bytesPerSong = 1024; // in all lists, each with its own group
    constexpr qint64 filesAside = 24;     // files that end within a unit, and folders that grow
    const qint64 unit = allocationUnit(root);
    qint64 room = newSongs * bytesPerSong + filesAside * unit;
    for (const QString &name : names())
        room += allocatedSize(QFileInfo(root + u'/' + name).size(), unit);
    return room;
}

/// Checks the free room before any change.
IndexSet::Way IndexSet::wayToReplace() const
{
    const qint64 unit = allocationUnit(m_root);
    const qint64 free = freeSpace(m_root);
    constexpr qint64 unitsAside = 4; // for folders that grow
    qint64 beside = unitsAside * unit + allocatedSize(mark().size(), unit);
    qint64 over = unitsAside * unit;
    bool isAtHand = true;
    for (const StagedFile &file : m_staged) {
        const qint64 size = allocatedSize(file.size, unit);
        isAtHand = isAtHand && !file.content.isNull();
        beside += file.content.isNull() ? 0 : size;
        // In both cases a playlist is written beside the old one.
        over += isInSet(file.name)
                    ? size - allocatedSize(QFileInfo(filePath(file.name)).size(), unit)
                    : size;
    }
    if (free < 0 || free >= beside)
        return Way::Beside;
    return isAtHand && free >= over ? Way::Over : Way::NoRoom;
}

bool IndexSet::replaceBeside()
{
    QStringList files{markName()};
    for (const StagedFile &file : std::as_const(m_staged))
        files.append(workName(file.name));
    m_work.reserve(files);
    if (!isComplete() && isOnFat(m_root))
        reserveEntries(m_root, names());
    for (const StagedFile &file : std::as_const(m_staged)) {
        if (!file.content.isNull() && !m_work.write(workName(file.name), file.content))
            return false;
        pulse();
    }
    return m_work.write(markName(), mark()) && m_work.flushAll({}) && swap(m_staged);
}

/// For a memory without room for two sets: the old one is kept in main memory, and restored if the
/// new one can't be written.
bool IndexSet::replaceOver()
{
    QList<OldFile> old;
    if (!keepOldFiles(old))
        return false;
    if (removeSet({}) && placeFiles(m_staged))
        return true;
    putBack(old);
    return false;
}

bool IndexSet::keepOldFiles(QList<OldFile> &files) const
{
    for (const StagedFile &file : m_staged) {
        const QString path = filePath(file.name);
        OldFile old{file.name, {}, QFileInfo::exists(path)};
        if (old.exists) {
            const FileContent content = readWholeFile(path, maxFileSize);
            if (!content.isDone())
                return false;
            old.content = content.bytes;
        }
        files.append(old);
    }
    return true;
}

void IndexSet::putBack(const QList<OldFile> &files)
{
    removeSet({});
    QList<StagedFile> staged;
    for (const OldFile &old : files) {
        if (old.exists)
            staged.append({old.name, old.content.size(), {}, old.content});
        else
            QFile::remove(filePath(old.name));
    }
    placeFiles(staged);
}

bool IndexSet::swap(const QList<StagedFile> &files)
{
    QStringList placed;
    for (const StagedFile &file : files) {
        if (file.content.isNull() && !m_work.has(workName(file.name)))
            placed.append(file.name);
    }
    m_isCut = true;
    // All old files are removed first, because the new ones may need their room.
    if (!removeSet(placed))
        return false;
    QList<StagedFile> left;
    std::copy_if(files.cbegin(), files.cend(), std::back_inserter(left),
                 [&placed](const StagedFile &file) { return !placed.contains(file.name); });
    m_isCut = !placeFiles(left);
    return !m_isCut;
}

/// Removes the files of the set except the \a kept ones, the last one first. Returns false if one
/// can't be removed.
bool IndexSet::removeSet(const QStringList &kept)
{
    QStringList others = names();
    others.removeIf(
        [&kept](const QString &name) { return name == keyName() || kept.contains(name); });
    const FileDescriptor root = FileDescriptor::openFolder(m_root);
    return root.isOpen() && removeFiles(root.get(), {keyName()}) && flushHandle(root.get()) &&
           removeFiles(root.get(), others);
}

/// The last file is written when all others are on the disk.
bool IndexSet::placeFiles(const QList<StagedFile> &files)
{
    FileLot lot;
    lot.setMemory(m_root);
    QStringList direct;
    const StagedFile *last = nullptr;
    for (const StagedFile &file : files) {
        if (file.name == keyName())
            last = &file;
        else if (!placeFile(file, lot))
            return false;
        else if (isInSet(file.name))
            direct.append(file.name);
    }
    return lot.commitAll() && m_work.flushAll(direct) &&
           (last == nullptr || (placeFile(*last, lot) && lot.commitAll()));
}

/// Files that must be replaced atomically, the last one and the changed playlists, go through
/// \a lot. The others may be torn, because the set is still incomplete.
bool IndexSet::placeFile(const StagedFile &file, FileLot &lot)
{
    const QString path = filePath(file.name);
    QByteArray content = file.content;
    // The folder of the playlists may have been replaced by a link.
    if (leavesRoot(QFileInfo(path).path(), m_root) ||
        (content.isNull() && !readStaged(file, content)))
        return false;
    bool isWritten = false;
    if (isInSet(file.name) && file.name != keyName()) {
        isWritten = writeFile(path, content);
    } else {
        isWritten = lot.write({path}, content);
        // Committing the lot frees the room of the files that it has replaced.
        if (!isWritten || lot.isFull()) {
            if (!lot.commitAll())
                return false;
            isWritten = isWritten || (lot.write({path}, content) && lot.commitAll());
        }
    }
    pulse();
    // There is no room for a second copy.
    return isWritten ||
           (readStaged(file, content) && moveIntoPlace(m_work.path(workName(file.name)), path));
}

bool IndexSet::writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    if (writeAll(file, content) && file.size() == content.size())
        return true;
    file.remove();
    return false;
}

} // namespace brisel
