#include "index/index.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "index/songhead.h"

// The pass over all songs: which have vanished, and what the others say of themselves.

void Index::createTitleIndex()
{
    debug() << "create title index";
    int counter = 1;
    for (const qsizetype position : std::as_const(m_byPath)) {
        if (m_run.isEnding())
            return;
        SongInfoIndex &song = m_songs[position];
        showPath(song.absolutePath);
        refreshSong(song);
        setProgress(counter++);
    }
    showPath(QString());
}

void Index::refreshSong(SongInfoIndex &song)
{
    const bool isNew = song.id > m_lastId || m_lastId == SongInfoIndex::deletedId;
    // One look at each song: a new one is opened anyway.
    FileState state;
    bool isRead = isNew && SongHead::read(song.absolutePath, m_prefix, state);
    if (!isNew)
        state = fileState(song.absolutePath);
    // A song that can't be looked at (no permission, a read error) has not vanished.
    const bool isThere = state.kind == FileKind::Regular || state.kind == FileKind::Unreachable;
    if (!isThere ||
        (!song.isMet && (!mayBeSong(song.path) || leavesRoot(song.absolutePath, m_root)))) {
        song.id = SongInfoIndex::deletedId;
        m_modified = true;
        return;
    }
    SongInfoIndex stamp;
    stamp.setModified(state.modified);
    if (!isNew && !song.isUnsure && stamp.date == song.date && stamp.time == song.time)
        return;
    if (!isNew)
        isRead = SongHead::read(song.absolutePath, m_prefix, state);
    if (!isRead)
        reportUnreadSong(song, isNew || song.isUnsure);
    // A known song that can't be looked at now keeps what is known of it, for another day.
    if (!isNew && !isRead && !song.isUnsure)
        return;
    SongHead::parse(m_prefix, song);
    // Without a date the next run tries again.
    song.date = isRead ? stamp.date : 0;
    song.time = isRead ? stamp.time : 0;
    m_modified = true;
}
