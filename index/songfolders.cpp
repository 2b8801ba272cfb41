#include "index/songfolders.h"

#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/run.h"
#include "base/songsuffix.h"
#include "index/entrylist.h"

#include <algorithm>

namespace brisel
{

namespace
{

const QString sfxFolder = QStringLiteral("sfx");
const QString bridgeFolder = QStringLiteral("bridge");

bool isSameName(const QString &a, const QString &b)
{
    // Letters are folded one at a time, so names of different lengths are never equal.
    return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

bool SongFolders::isSong(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > path.lastIndexOf(u'/') && isSongSuffix(QStringView(path).sliced(dot + 1));
}

bool SongFolders::isPlayersFolder(const QString &name)
{
    return isSameName(name, sfxFolder) || isSameName(name, bridgeFolder);
}

bool SongFolders::isOutside(const QString &path, const FolderEntry &entry) const
{
    return (entry.isLink || entry.kind == FileKind::Folder) && leavesRoot(path, m_root);
}

bool SongFolders::leadsToSongs(const QString &folder)
{
    if (hasEntered(folder))
        return false;
    const QString identity = fileIdentity(folder);
    const auto known = m_leads.constFind(identity);
    if (known != m_leads.cend())
        return *known;
    // For links that lead back to it.
    m_leads.insert(identity, false);
    m_run.pulse();
    if (m_run.isEnding())
        return false;
    const QList<FolderEntry> entries = visibleEntries(folder).entries;
    const auto leads = [this, &folder](const FolderEntry &entry) {
        const QString path = folder + u'/' + entry.name;
        if (entry.kind == FileKind::Regular)
            return isSong(entry.name) && !isOutside(path, entry);
        return entry.kind == FileKind::Folder && !isPlayersFolder(entry.name) &&
               !isOutside(path, entry) && leadsToSongs(path);
    };
    const bool areSongs = std::any_of(entries.cbegin(), entries.cend(), leads);
    m_leads.insert(identity, areSongs);
    return areSongs;
}

} // namespace brisel
