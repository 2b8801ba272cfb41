#include "index/memoryrenames.h"

#include "base/fatfolder.h"
#include "base/folderhandle.h"
#include "index/givennames.h"
#include "index/songinfoindex.h"

#include <algorithm>

namespace brisel
{

void MemoryRenames::setRoot(const QString &root, GivenNames &given)
{
    m_root = root;
    m_given = &given;
    m_isGivenNew = false;
    m_folders.clear();
    m_ready.clear();
    m_isFlushed = true;
}

bool MemoryRenames::rename(const QString &folder, const QList<NewName> &names)
{
    const QString way = wayBelow(m_root, folder);
    if (way.isNull())
        return false;
    const FolderHandle handle(m_root, way);
    if (!handle.isOpen())
        return false;
    if (!handle.isFat())
        m_folders.insert(way);
    else if (!m_ready.contains(way))
        makeReady(folder, way, names);
    // After a cut here the stored name has no file and is ignored.
    if (m_given->add(way, names.first().from, names.first().to)) {
        m_isGivenNew = !handle.isFat();
        if (handle.isFat())
            (void)m_given->flush(); // the names on the memory count all the same
    } else if (m_mustStore && foldedText(names.first().from) != foldedText(names.first().to)) {
        return false;
    }
    for (qsizetype done = 0; done < names.size(); ++done) {
        if (renameOne(handle, names.at(done).from, names.at(done).to))
            continue;
        while (--done >= 0)
            renameOne(handle, names.at(done).to, names.at(done).from);
        return false;
    }
    return true;
}

/// The folder may have to grow for the first new name; each later one uses the room of the name
/// before.
void MemoryRenames::makeReady(const QString &folder, const QString &way,
                              const QList<NewName> &names)
{
    QStringList wanted;
    for (const NewName &name : names)
        wanted.append(name.to);
    reserveEntries(folder, wanted);
    m_ready.insert(way);
}

bool MemoryRenames::flush()
{
    if (m_folders.isEmpty())
        return m_isFlushed;
    const FolderHandle root(m_root, QString());
    std::optional<bool> isDone = false;
    if (root.isOpen())
        isDone = root.flushFileSystem();
    if (!isDone.has_value()) {
        if (m_isGivenNew)
            (void)m_given->flush(); // the names on the memory count all the same
        isDone = std::all_of(m_folders.cbegin(), m_folders.cend(), [this](const QString &way) {
            const FolderHandle folder(m_root, way);
            return folder.isOpen() && folder.flush();
        });
    }
    m_isFlushed &= *isDone;
    m_isGivenNew = false;
    m_folders.clear();
    return m_isFlushed;
}

bool MemoryRenames::renameOne(const FolderHandle &folder, const QString &from, const QString &to)
{
    if (!folder.rename(from, to))
        return false;
    // Two moved entries could share a sector of the disk, so each is flushed before the next one.
    if (folder.isFat())
        m_isFlushed &= folder.flush(to) && folder.flush();
    return true;
}

} // namespace brisel
