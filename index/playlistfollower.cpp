#include "index/playlistfollower.h"

#include "base/bytes.h"
#include "index/indexreader.h"
#include "index/indexrecords.h"
#include "index/playlists.h"

#include <algorithm>

namespace brisel
{

namespace
{

QByteArray titleIn(const QByteArray &record)
{
    return fieldAt(record, SongRecord::titleAt, SongRecord::titleWidth);
}

QByteArray titleOf(const SongInfoIndex &song)
{
    return titleIn(SongRecord(song).bytes());
}

QByteArray body(const QByteArray &record)
{
    return record.mid(SongRecord::titleAt);
}

bool isSamePath(const QByteArray &a, const QByteArray &b)
{
    return a == b || pathSortKey(pathFromBytes(a)) == pathSortKey(pathFromBytes(b));
}

} // namespace

qsizetype PlaylistFollower::Files::entries() const
{
    return playlist.size() / IndexRecord::size;
}

qsizetype PlaylistFollower::Files::pathRecords() const
{
    return paths.size() / IndexRecord::size;
}

quint32 PlaylistFollower::Files::id(qsizetype entry) const
{
    return be32At(playlist, entry * IndexRecord::size);
}

QByteArray PlaylistFollower::Files::record(qsizetype entry) const
{
    return playlist.mid(entry * IndexRecord::size, IndexRecord::size);
}

QByteArray PlaylistFollower::Files::title(qsizetype entry) const
{
    return fieldAt(playlist, entry * IndexRecord::size + SongRecord::titleAt,
                   SongRecord::titleWidth);
}

QByteArray PlaylistFollower::Files::path(qsizetype entry) const
{
    return fieldAt(paths, entry * IndexRecord::size, IndexRecord::size);
}

PlaylistFollower::PlaylistFollower(const IndexReader &old, const QList<SongInfoIndex> &songs,
                                   NewPath newPath)
    : m_old(old), m_songs(songs), m_newPath(std::move(newPath))
{
}

PlaylistFollower::Result PlaylistFollower::follow(const QByteArray &playlist,
                                                  const QByteArray &paths, Way way)
{
    const Files files{playlist, paths};
    const Plan plan = this->plan(playlist, paths, way);
    Result result;
    result.songs.reserve(playlist.size());
    for (const qsizetype song : plan.songs)
        result.songs += SongRecord(m_songs.at(song)).bytes();
    for (qsizetype entry = plan.songs.size(); entry < files.entries(); ++entry)
        result.songs += way == Way::Anew ? lastEntryFor(plan.places.at(entry), files.record(entry))
                                         : entryFor(plan.places.at(entry), files.record(entry));
    result.songs += playlist.mid(result.songs.size());
    if (way == Way::Anew && plan.isChanged && !paths.isNull())
        result.paths = newPaths(files, plan);
    return result;
}

QList<quint32> PlaylistFollower::deadIds(const QByteArray &playlist, const QByteArray &paths)
{
    const Files files{playlist, paths};
    const Plan plan = this->plan(playlist, paths, Way::Anew);
    QList<quint32> ids;
    for (qsizetype entry = plan.songs.size(); entry < files.entries(); ++entry) {
        if (plan.places.at(entry) == none)
            ids.append(files.id(entry));
    }
    return ids;
}

PlaylistFollower::Plan PlaylistFollower::plan(const QByteArray &playlist, const QByteArray &paths,
                                              Way way)
{
    Files files{playlist, paths};
    m_named.reset();
    files.isChanged = isChanged(files);
    Plan plan;
    plan.isChanged = files.isChanged;
    plan.places.reserve(files.entries());
    for (qsizetype entry = 0; entry < files.entries(); ++entry)
        plan.places.append(songOf(files, entry));
    if (way == Way::InPlace)
        return plan;
    if (files.isChanged) {
        plan.songs = plan.places;
    } else {
        plan.songs.reserve(files.pathRecords());
        for (qsizetype record = 0; record < files.pathRecords(); ++record) {
            const QByteArray path = files.path(record);
            if (!path.isEmpty())
                plan.songs.append(songAt(path, files.title(record)));
            else if (record < files.entries() && m_old.pathOf(files.id(record)).isEmpty())
                plan.songs.append(plan.places.at(record));
        }
    }
    plan.songs.removeAll(none);
    return plan;
}

/// Returns true if the playlist differs from what this program wrote with its path file: the player
/// changes playlists, but not path files.
bool PlaylistFollower::isChanged(const Files &files)
{
    const qsizetype entries = files.entries();
    const qsizetype records = files.pathRecords();
    if (entries < records || records == 0)
        return true;
    // A run that found only some of the songs has written these from the start, followed by the old
    // last entries. The songs that it skipped are not in the old index.
    qsizetype record = 0;
    qsizetype entry = 0;
    for (; entry < entries; ++entry, ++record) {
        while (record < records && !names(files, entry, record) && !wasIndexed(files.path(record)))
            ++record;
        if (record == records || !names(files, entry, record))
            break;
    }
    for (; record < records; ++record) {
        if (wasIndexed(files.path(record)))
            return true;
    }
    for (; entry < entries; ++entry) {
        if (!names(files, entry, entry))
            return true;
    }
    return false;
}

/// Returns true if the old index has the path \a path, or may have had it.
bool PlaylistFollower::wasIndexed(const QByteArray &path)
{
    if (!isKnownWell() && lookUp(path) != none)
        return true;
    return m_old.hasPath(pathSortKey(pathFromBytes(path)));
}

/// Returns true if \a entry may be the song of the path record; after the last path record, if the
/// entry's song is unknown.
bool PlaylistFollower::names(const Files &files, qsizetype entry, qsizetype pathRecord)
{
    const QByteArray known = m_old.pathOf(files.id(entry));
    const QByteArray path = files.path(pathRecord);
    if (!known.isEmpty()) {
        // A path that was changed because of long names is the new one.
        return !path.isEmpty() && (isSamePath(known, path) || isSamePath(known, newPathOf(path)));
    }
    const QByteArray title = files.title(entry);
    const qsizetype song = path.isEmpty() ? none : songAt(path, title);
    if (song == none)
        return pathRecord < files.pathRecords() || songsWithTitle(title).isEmpty();
    return hasTitle(song, title) || (!isKnownWell() && songsWithTitle(title).isEmpty());
}

/// Returns true if the old index knows all ids but those of songs that were removed.
bool PlaylistFollower::isKnownWell() const
{
    return m_old.isSound() && m_old.size() > 0;
}

qsizetype PlaylistFollower::songOf(const Files &files, qsizetype entry)
{
    const QByteArray known = m_old.pathOf(files.id(entry));
    return known.isEmpty() ? songOfUnknown(files, entry) : songOfKnown(files, entry, known);
}

/// The old index has \a path for the id. A different title shows that it can't be trusted: the
/// index was damaged, or once rebuilt without the playlist.
qsizetype PlaylistFollower::songOfKnown(const Files &files, qsizetype entry, const QByteArray &path)
{
    const QByteArray title = files.title(entry);
    const qsizetype song = songAt(path, title);
    if (song != none && hasTitle(song, title))
        return song;
    if (m_old.arePathsSound() && titleIn(m_old.titleRecordOf(files.id(entry))) == title)
        return song;
    const QList<qsizetype> others = songsWithTitle(title);
    if (others.size() != 1 || (!files.isChanged && isSamePath(files.path(entry), path)))
        return song;
    return others.first();
}

qsizetype PlaylistFollower::songOfUnknown(const Files &files, qsizetype entry)
{
    const QByteArray title = files.title(entry);
    const QByteArray path = files.path(entry);
    if (!path.isEmpty()) {
        const qsizetype song = songAt(path, title);
        if (song == none ? !files.isChanged : !files.isChanged || hasTitle(song, title))
            return song;
    }
    const QList<qsizetype> all = songsWithTitle(title);
    if (all.size() <= 1)
        return all.isEmpty() ? none : all.first();
    QList<qsizetype> likely;
    const auto keepIfOne = [&](auto isLikely) {
        likely.clear();
        std::copy_if(all.cbegin(), all.cend(), std::back_inserter(likely), isLikely);
        return likely.size() == 1;
    };
    const QByteArray record = body(files.record(entry));
    if (keepIfOne(
            [&](qsizetype song) { return body(SongRecord(m_songs.at(song)).bytes()) == record; }) ||
        keepIfOne([&](qsizetype song) { return namedSongs(files).contains(song); }))
        return likely.first();
    return none;
}

/// The songs of the path file.
const QSet<qsizetype> &PlaylistFollower::namedSongs(const Files &files)
{
    if (!m_named.has_value()) {
        m_named.emplace();
        for (qsizetype record = 0; record < files.pathRecords(); ++record)
            m_named->insert(songAt(files.path(record), {}));
    }
    return *m_named;
}

/// Returns the song with the path \a path, also if it was renamed since. If several songs have the
/// path, the only one of them with \a title.
qsizetype PlaylistFollower::songAt(const QByteArray &path, const QByteArray &title)
{
    const qsizetype song = lookUp(path);
    if (song != none)
        return song;
    if (path.contains('?')) {
        const QByteArray key = pathSortKey(pathFromBytes(path));
        QList<qsizetype> same = songsWithTitle(title);
        same.removeIf([&](qsizetype other) { return m_songs.at(other).pathKey != key; });
        if (same.size() == 1)
            return same.first();
    }
    const QByteArray renamed = newPathOf(path);
    return renamed == path ? none : lookUp(renamed);
}

/// Returns the present path of \a path; \a path itself if it was not renamed. Accesses the disk
/// once for each path, for at most as many paths as there can be songs.
QByteArray PlaylistFollower::newPathOf(const QByteArray &path)
{
    const auto known = m_newPaths.constFind(path);
    if (known != m_newPaths.cend())
        return *known;
    const QString old = pathFromBytes(path);
    const QString renamed = m_newPaths.size() < SongInfoIndex::maxSongs ? m_newPath(old) : old;
    QByteArray bytes = renamed == old ? path : pathBytes(renamed);
    if (m_newPaths.size() < SongInfoIndex::maxSongs)
        m_newPaths.insert(path, bytes);
    return bytes;
}

qsizetype PlaylistFollower::lookUp(const QByteArray &path)
{
    const auto known = m_found.constFind(path);
    if (known != m_found.cend())
        return *known;
    m_table.enter(m_songs);
    const qsizetype song = m_table.findBytes(m_songs, path);
    // Playlists of other programs could have any number of paths.
    if (m_found.size() < SongInfoIndex::maxSongs)
        m_found.insert(path, song);
    return song;
}

/// Returns the songs with \a title; none if there are too many to identify one.
QList<qsizetype> PlaylistFollower::songsWithTitle(const QByteArray &title)
{
    constexpr qsizetype most = 32;
    if (m_byTitle.isEmpty()) {
        m_byTitle.reserve(m_songs.size());
        for (qsizetype song = 0; song < m_songs.size(); ++song)
            m_byTitle[titleOf(m_songs.at(song))].append(song);
    }
    const auto songs = m_byTitle.constFind(title);
    return title.isEmpty() || songs == m_byTitle.cend() || songs->size() > most ? QList<qsizetype>()
                                                                                : *songs;
}

bool PlaylistFollower::hasTitle(qsizetype song, const QByteArray &title) const
{
    return titleOf(m_songs.at(song)) == title;
}

/// Returns the entry for \a song; \a old without a song.
QByteArray PlaylistFollower::entryFor(qsizetype song, const QByteArray &old) const
{
    return song == none ? old : SongRecord(m_songs.at(song)).bytes();
}

/// The same for an old last entry. An entry that has the song's id, but another title than its old
/// record, stays unchanged.
QByteArray PlaylistFollower::lastEntryFor(qsizetype song, const QByteArray &old) const
{
    const quint32 id = be32At(old, 0);
    if (song == none || m_songs.at(song).id != id)
        return entryFor(song, old);
    const QByteArray copied = m_old.titleRecordOf(id);
    return copied.isEmpty() || titleIn(old) == titleIn(copied) ? entryFor(song, old) : old;
}

/// The path file of a playlist that was changed: one record for each entry, in their order.
QByteArray PlaylistFollower::newPaths(const Files &files, const Plan &plan) const
{
    QByteArray paths;
    paths.reserve(files.playlist.size());
    for (qsizetype entry = 0; entry < files.entries(); ++entry) {
        const qsizetype song = plan.places.at(entry);
        paths += Playlists::pathRecord(song == none ? m_old.pathOf(files.id(entry))
                                                    : pathBytes(m_songs.at(song).path));
    }
    return paths;
}

} // namespace brisel
