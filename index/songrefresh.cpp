#include "index/songrefresh.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/songsuffix.h"
#include "index/entrylist.h"
#include "index/indexmonitor.h"
#include "index/runmemory.h"
#include "index/songhead.h"
#include "index/songroll.h"

#include <algorithm>

namespace brisel
{

namespace
{

/// Returns false for a path that only a damaged index can have, or one from before its folder was
/// skipped.
bool mayBeSong(const QString &path)
{
    if (!path.startsWith(u'/') ||
        !isSongSuffix(QStringView(path).sliced(path.lastIndexOf(u'.') + 1)))
        return false;
    const QList<QStringView> names = QStringView(path).sliced(1).split(u'/');
    const bool isWay = std::none_of(names.cbegin(), names.cend() - 1, [](QStringView name) {
        return name.isEmpty() || name == u"." || name == u".." ||
               name.compare(u"sfx", Qt::CaseInsensitive) == 0 ||
               name.compare(u"bridge", Qt::CaseInsensitive) == 0;
    });
    return isWay && !liesInSystemFolder(path);
}

} // namespace

void SongRefresh::createTitleIndex(SongRoll &roll)
{
    debug() << "create title index";
    int counter = 1;
    for (const qsizetype position : roll.byPath()) {
        if (m_monitor.run().isEnding())
            return;
        SongInfoIndex &song = roll.songs()[position];
        m_monitor.showPath(song.absolutePath);
        if (refreshSong(song))
            roll.setModified();
        m_monitor.setProgress(counter++);
    }
    m_monitor.showPath(QString());
}

bool SongRefresh::refreshSong(SongInfoIndex &song)
{
    const bool isNew = song.id > m_lastId || m_lastId == SongInfoIndex::deletedId;
    // One system call for each song: a new one is opened anyway.
    FileState state;
    bool isRead = isNew && SongHead::read(song.absolutePath, m_prefix, state);
    if (!isNew)
        state = fileState(song.absolutePath);
    // A song that can't be examined (no permission, a read error) is not a removed one.
    const bool isThere = state.kind == FileKind::Regular || state.kind == FileKind::Unreachable;
    if (!isThere || (!song.isMet &&
                     (!mayBeSong(song.path) || leavesRoot(song.absolutePath, m_memory.root())))) {
        song.id = SongInfoIndex::deletedId;
        return true;
    }
    SongInfoIndex stamp;
    stamp.setModified(state.modified);
    if (!isNew && !song.isUnsure && stamp.date == song.date && stamp.time == song.time)
        return false;
    if (!isNew)
        isRead = SongHead::read(song.absolutePath, m_prefix, state);
    if (!isRead)
        reportUnreadSong(song, isNew || song.isUnsure);
    // A known song that can't be read now keeps its data.
    if (!isNew && !isRead && !song.isUnsure)
        return false;
    SongHead::parse(m_prefix, song);
    // Without a date the next run tries again.
    song.date = isRead ? stamp.date : 0;
    song.time = isRead ? stamp.time : 0;
    return true;
}

/// The index has only the name of \a song, or its old data.
void SongRefresh::reportUnreadSong(const SongInfoIndex &song, bool isNew)
{
    m_memory.reportMissed((isNew
                               ? tr("File non leggibile, la song è indicizzata con il solo nome: ")
                               : tr("File non leggibile, la song resta indicizzata com'era: ")) +
                          song.absolutePath);
}

} // namespace brisel
