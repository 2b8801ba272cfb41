#include "index/comingnames.h"

#include "base/folderhandle.h"
#include "base/run.h"
#include "index/indexreader.h"
#include "index/indexset.h"
#include "index/longnames.h"
#include "index/playlists.h"
#include "index/songinfoindex.h"

#include <algorithm>

namespace brisel
{

ComingNames::ComingNames(const QString &root, const QString &folder, Run &run)
    : m_root(root), m_songFolders(root, run), m_level{root, root}
{
    m_given.setRoot(root);
    (void)m_given.load(); // on failure there are no names, as in the run itself
    readPlaylists(run);
    (void)m_songFolders.enter(root);
    const QStringList names = folder.mid(root.size()).split(u'/', Qt::SkipEmptyParts);
    for (const QString &name : names) {
        m_isMet = m_isMet && descend(name);
        if (!m_isMet) {
            m_folders.clear();
            m_level = {folder, folder, PlannedFolder::of(folder)};
            return;
        }
    }
    m_level = levelOf(m_level.folder, m_level.newFolder);
}

void ComingNames::readPlaylists(Run &run)
{
    IndexSet set(run);
    set.setRoot(m_root);
    const QList<qint16> numbers = Playlists::readNumbers(set);
    if (numbers.isEmpty())
        return;
    IndexReader index;
    QList<SongInfoIndex> songs;
    if (index.read(set, m_root, songs))
        m_named = Playlists::namedPaths(set, numbers, index);
}

/// Makes the folder \a name in the current one the current one. Returns false if the run does not
/// enter it, or enters it by another path.
bool ComingNames::descend(const QString &name)
{
    FolderEntry entry;
    const QString path = m_level.folder + u'/' + name;
    if (!findEntry(m_level.folder, name, entry)) {
        m_level = {path, m_level.newFolder + u'/' + name};
        return fileKind(path) == FileKind::Missing;
    }
    if (entry.kind != FileKind::Folder || entry.isLink ||
        SongFolders::isPlayersFolder(entry.name) || m_songFolders.isOutside(path, entry))
        return false;
    QString newName;
    if (LongNames::isLong(path)) {
        const Level above = levelOf(m_level.folder, m_level.newFolder, entry.name);
        newName =
            namesIn(above, above.longEntries, above.names).value(above.names.keyOf(entry.name)).to;
    }
    const QString oldPath = m_level.newFolder + u'/' + entry.name;
    const QString newPath = newName.isEmpty() ? oldPath : m_level.newFolder + u'/' + newName;
    if (newPath != oldPath)
        m_folders.append({oldPath, newPath});
    m_level = {m_level.folder + u'/' + entry.name, newPath};
    return m_songFolders.enter(m_level.folder);
}

/// On some file systems letter case does not matter.
bool ComingNames::findEntry(const QString &folder, const QString &name, FolderEntry &found)
{
    const QList<FolderEntry> entries = visibleEntries(folder).entries;
    const auto byName = std::find_if(entries.cbegin(), entries.cend(),
                                     [&](const auto &entry) { return entry.name == name; });
    const auto entry =
        byName != entries.cend()
            ? byName
            : std::find_if(entries.cbegin(), entries.cend(), [&](const auto &other) {
                  return other.name.compare(name, Qt::CaseInsensitive) == 0 &&
                         isSameFile(folder + u'/' + other.name, folder + u'/' + name);
              });
    if (entry == entries.cend())
        return false;
    found = *entry;
    return true;
}

/// \a leading is a folder that will lead to songs.
ComingNames::Level ComingNames::levelOf(const QString &folder, const QString &newFolder,
                                        const QString &leading)
{
    Level level{folder, newFolder, PlannedFolder::of(folder)};
    const QList<FolderEntry> entries = visibleEntries(folder).entries;
    for (const FolderEntry &entry : entries) {
        if (LongNames::isLong(entry.name) && getsName(folder, entry, leading))
            level.longEntries.append(entry);
    }
    return level;
}

bool ComingNames::getsName(const QString &folder, const FolderEntry &entry, const QString &leading)
{
    const QString path = folder + u'/' + entry.name;
    if (m_songFolders.isOutside(path, entry))
        return false;
    if (entry.kind == FileKind::Regular)
        return SongFolders::isSong(entry.name);
    return entry.kind == FileKind::Folder && !SongFolders::isPlayersFolder(entry.name) &&
           (entry.name == leading || m_songFolders.leadsToSongs(path));
}

/// As the walk of the index has it.
bool ComingNames::isReserved(const QString &from, const QString &path) const
{
    return m_named.contains(pathSortKey(path.mid(m_root.size()))) && !m_given.wasGiven(from, path);
}

void ComingNames::setSongs(const QList<Song> &songs)
{
    m_songs = songs;
    const PlannedFolder &names = m_level.names;
    QList<FolderEntry> all = m_level.longEntries;
    QHash<QString, Entry> entries;
    for (const FolderEntry &entry : std::as_const(all))
        entries.insert(names.keyOf(entry.name), {entry, true});
    for (qsizetype i = 0; i < songs.size() && m_isMet; ++i) {
        const QString &name = songs.at(i).name;
        const QString key = names.keyOf(name);
        // One that is there and not among the entries is hidden.
        const bool isHidden = name.startsWith(u'.') || (!entries.contains(key) && names.has(name));
        if (isHidden || !LongNames::isLong(name) || !SongFolders::isSong(name))
            continue;
        if (!entries.contains(key)) {
            all.append({name, FileKind::Regular});
            entries.insert(key, {all.last()});
        }
        entries[key].songs.append(i);
    }
    sortEntries(all);
    m_entries.clear();
    for (const FolderEntry &entry : std::as_const(all))
        m_entries.push_back(entries.value(names.keyOf(entry.name)));
}

void ComingNames::predict(const QList<bool> &comes)
{
    m_newNames.clear();
    PlannedFolder names = m_level.names;
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        if (!comes.at(i))
            continue;
        names.add(m_songs.at(i).name);
        if (!m_songs.at(i).graphics.isEmpty())
            names.add(m_songs.at(i).graphics);
    }
    QList<FolderEntry> entries;
    for (const Entry &entry : m_entries) {
        if (entry.isThere || std::any_of(entry.songs.cbegin(), entry.songs.cend(),
                                         [&comes](qsizetype song) { return comes.at(song); }))
            entries.append(entry.entry);
    }
    m_newNames = namesIn(m_level, entries, names);
}

/// The old and new names of \a entries in the folder \a level, which has the files \a names, by
/// the keys of the old ones.
QHash<QString, ComingNames::Rename> ComingNames::namesIn(const Level &level,
                                                         const QList<FolderEntry> &entries,
                                                         PlannedFolder names) const
{
    QHash<QString, Rename> newNames;
    LongNames longNames(level.folder, [&](const QString &from, const QString &to) {
        return isReserved(from, level.newFolder + u'/' + to);
    });
    longNames.setPlan(names);
    for (const FolderEntry &entry : entries) {
        const QString shortName = longNames.freeName(entry.name, entry.kind);
        if (shortName.isEmpty())
            continue;
        longNames.take(entry.name, shortName);
        newNames.insert(names.keyOf(entry.name), {entry.name, shortName});
    }
    return newNames;
}

QString ComingNames::pathOf(qsizetype number) const
{
    const QString &name = m_songs.at(number).name;
    const QString newName = m_newNames.value(m_level.names.keyOf(name)).to;
    return m_level.newFolder + u'/' + (newName.isEmpty() ? name : newName);
}

ComingNames::Rename ComingNames::renameOf(qsizetype number) const
{
    const auto found = m_newNames.constFind(m_level.names.keyOf(m_songs.at(number).name));
    if (found == m_newNames.cend())
        return {};
    return {m_level.newFolder + u'/' + found->from, m_level.newFolder + u'/' + found->to};
}

} // namespace brisel
