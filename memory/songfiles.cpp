#include "memory/songfiles.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "index/songinfoindex.h"
#include "memory/memorycontents.h"

#include <QFile>

#include <filesystem>
#include <system_error>
#include <utility>

namespace brisel
{

namespace
{

/// \a path as the index has it, but for letter case.
QString foldedAsIndexed(const QString &path)
{
    return foldedText(pathFromBytes(pathBytes(path)));
}

} // namespace

SongFiles::SongFiles(QString root, const MemoryContents &contents) : m_root(std::move(root))
{
    for (qsizetype position = 0; position < contents.size(); ++position) {
        const QByteArray key = pathSortKey(contents.path(position));
        if (key.contains('?'))
            ++m_songs[key];
    }
}

SongFiles::Place SongFiles::find(const QString &path)
{
    if (!path.startsWith(m_root + u'/') || (!path.contains(u'?') && entryExists(path)))
        return {path, {}};
    const QString below = path.mid(m_root.size());
    const QByteArray key = pathSortKey(below);
    const qsizetype slash = key.lastIndexOf('/');
    const Level &folder = levelOf(key.left(slash));
    const QStringList files = folder.entries.value(key.mid(slash + 1));
    if (files.isEmpty() && folder.isComplete)
        return {{}, FileReason::missing};
    if (!folder.isComplete)
        return {{}, FileReason::unreachable};
    const QString &file = files.first();
    // A letter whose upper case the code page lacks has a key with '?', too.
    if (files.size() > 1 || m_songs.value(key) > 1 ||
        (key.contains('?') && foldedAsIndexed(file.mid(m_root.size())) != foldedAsIndexed(below)))
        return {{}, unclear};
    if (!entryExists(file)) // removed meanwhile, or its name is not text
        return {{}, FileReason::unreachable};
    return {file, {}};
}

/// \a folder is a sort key: empty for the root, else it begins with "/".
const SongFiles::Level &SongFiles::levelOf(const QByteArray &folder)
{
    qsizetype end = 0;
    for (;;) {
        if (const QByteArray key = folder.left(end); !m_levels.contains(key)) {
            Level level;
            if (key.isEmpty()) {
                read(m_root, level);
            } else {
                const qsizetype slash = key.lastIndexOf('/');
                const Level above = m_levels.value(key.left(slash));
                level.isComplete = above.isComplete;
                const QStringList folders = above.entries.value(key.mid(slash + 1));
                for (const QString &path : folders)
                    read(path, level);
            }
            m_levels.insert(key, level);
        }
        if (end == folder.size())
            return *m_levels.constFind(folder);
        const qsizetype next = folder.indexOf('/', end + 1);
        end = next < 0 ? folder.size() : next;
    }
}

void SongFiles::read(const QString &folder, Level &level)
{
    const FileKind kind = fileKind(folder);
    if (kind != FileKind::Folder) {
        level.isComplete = level.isComplete && kind != FileKind::Unreachable && folder != m_root;
        return;
    }
    ++m_foldersRead;
    std::error_code error;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QString name =
            QFile::decodeName(QByteArray::fromStdString(entry->path().filename().string()));
        level.entries[pathSortKey(name)].append(folder + u'/' + name);
    }
    level.isComplete = level.isComplete && !error;
}

} // namespace brisel
