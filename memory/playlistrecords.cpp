#include "memory/playlistrecords.h"

#include "base/bytes.h"
#include "index/givennames.h"
#include "index/indexrecords.h"
#include "index/playlists.h"
#include "memory/songpaths.h"

#include <algorithm>
#include <numeric>

namespace brisel
{

namespace
{

QByteArray titleOfEntry(const QByteArray &record)
{
    return fieldAt(record, SongRecord::titleAt, SongRecord::titleWidth);
}

/// Empty if there is no whole one.
QByteArray recordNumber(const QByteArray &file, qsizetype number)
{
    const qsizetype at = number * IndexRecord::size;
    return fits(file, at, IndexRecord::size) ? file.mid(at, IndexRecord::size) : QByteArray();
}

} // namespace

PlaylistRecords::PlaylistRecords(const MemoryContents &contents,
                                 const MemoryContents::Playlist &files, const GivenNames &names)
    : m_contents(&contents), m_songs(files.songs), m_paths(files.paths),
      m_originals(files.songs.size() / IndexRecord::size)
{
    m_arePathsInStep = arePathsInStep(names);
}

/// Returns true if each path record belongs to the entry at its place, as far as the entries' songs
/// are known. The player changes playlists without their path files.
bool PlaylistRecords::arePathsInStep(const GivenNames &names) const
{
    const qsizetype paths = m_paths.size() / IndexRecord::size;
    if (paths > m_originals)
        return false;
    for (qsizetype place = 0; place < paths; ++place) {
        const auto entry = static_cast<quint32>(place);
        if (state(entry) == State::Good &&
            !isOfSong(recordNumber(m_paths, place), song(entry), names))
            return false;
    }
    return true;
}

bool PlaylistRecords::isOfSong(const QByteArray &pathRecord, qsizetype song,
                               const GivenNames &names) const
{
    const QByteArray path = fieldAt(pathRecord, 0, IndexRecord::size);
    const QByteArray known = m_contents->pathBytes(song);
    if (path == known)
        return true;
    const QString text = pathFromBytes(path);
    const QByteArray key = pathSortKey(pathFromBytes(known));
    return pathSortKey(text) == key || pathSortKey(names.follow(text)) == key;
}

PlaylistRecords::Entries PlaylistRecords::originals() const
{
    Entries entries(m_originals);
    std::iota(entries.begin(), entries.end(), 0U);
    return entries;
}

QByteArray PlaylistRecords::record(quint32 entry) const
{
    return entry < m_originals ? recordNumber(m_songs, entry) : m_added.at(entry - m_originals);
}

QByteArray PlaylistRecords::pathRecord(quint32 entry) const
{
    return m_arePathsInStep && entry < m_originals ? recordNumber(m_paths, entry) : QByteArray();
}

PlaylistRecords::State PlaylistRecords::state(quint32 entry) const
{
    const qsizetype position = song(entry);
    if (position < 0)
        return State::Dead;
    const QByteArray listed = m_contents->record(position);
    return listed.isEmpty() || titleOfEntry(listed) == titleOfEntry(record(entry)) ? State::Good
                                                                                   : State::Wrong;
}

qsizetype PlaylistRecords::song(quint32 entry) const
{
    return m_contents->positionOf(be32At(record(entry), 0));
}

std::optional<quint32> PlaylistRecords::add(quint32 id)
{
    const qsizetype song = m_contents->positionOf(id);
    const QByteArray record = song < 0 ? QByteArray() : m_contents->record(song);
    if (record.isEmpty())
        return std::nullopt;
    m_added.append(record);
    return static_cast<quint32>(m_originals + m_added.size() - 1);
}

/// The path of the entry's song as in "index.id2"; empty if there is no song.
QByteArray PlaylistRecords::pathOf(quint32 entry) const
{
    const qsizetype position = song(entry);
    return position < 0 ? QByteArray() : m_contents->pathBytes(position);
}

/// Returns true if an entry of the files is that of \a older. An index run gives it another id, and
/// finds songs of dead entries by their paths.
bool PlaylistRecords::isSameEntry(const PlaylistRecords &older, quint32 entry,
                                  const GivenNames &names) const
{
    if (record(entry) == older.record(entry))
        return true;
    const qsizetype position = song(entry);
    const auto isNamed = [&](const QByteArray &path) {
        return position >= 0 && !path.isEmpty() && isOfSong(path, position, names);
    };
    return isNamed(older.pathOf(entry)) || isNamed(older.pathRecord(entry));
}

std::optional<PlaylistRecords::Entries> PlaylistRecords::entriesFrom(const PlaylistRecords &older,
                                                                     const Entries &entries,
                                                                     const GivenNames &names)
{
    if (m_originals != older.m_originals)
        return std::nullopt;
    for (const quint32 entry : originals()) {
        if (!isSameEntry(older, entry, names))
            return std::nullopt;
    }
    const SongPaths songs(*m_contents, names);
    Entries taken;
    for (const quint32 entry : entries) {
        const qsizetype song =
            entry < m_originals ? -1 : songs.find(pathFromBytes(older.pathOf(entry)));
        const std::optional<quint32> added = song < 0 ? std::nullopt : add(m_contents->id(song));
        if (entry < m_originals || added.has_value())
            taken.append(added.value_or(entry));
    }
    return taken;
}

bool PlaylistRecords::areEqual(const Entries &a, const Entries &b) const
{
    return a.size() == b.size() &&
           std::equal(a.cbegin(), a.cend(), b.cbegin(), [this](quint32 one, quint32 other) {
               return one == other ||
                      (record(one) == record(other) &&
                       (state(one) == State::Good || pathRecord(one) == pathRecord(other)));
           });
}

QByteArray PlaylistRecords::songsFile(const Entries &entries) const
{
    QByteArray file;
    file.reserve(entries.size() * IndexRecord::size);
    for (const quint32 entry : entries)
        file += record(entry);
    return file;
}

QByteArray PlaylistRecords::pathsFile(const Entries &entries) const
{
    QByteArray file;
    file.reserve(entries.size() * IndexRecord::size);
    for (const quint32 entry : entries) {
        const QByteArray old = pathRecord(entry);
        const QByteArray path = pathOf(entry);
        // Of an entry that shows another song than it plays, the old path leads to the shown one.
        const bool keepsOld =
            state(entry) != State::Good || fieldAt(old, 0, IndexRecord::size) == path;
        file += keepsOld && !old.isEmpty() ? old : Playlists::pathRecord(path);
    }
    return file;
}

bool PlaylistRecords::needPathFile(const Entries &entries) const
{
    return !m_arePathsInStep ||
           std::any_of(entries.cbegin(), entries.cend(),
                       [this](quint32 entry) { return state(entry) != State::Good; });
}

} // namespace brisel
