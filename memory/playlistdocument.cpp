#include "memory/playlistdocument.h"

#include "base/bytes.h"
#include "index/indexrecords.h"
#include "memory/playlistchange.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace brisel
{

namespace
{

constexpr int undoLimit = 200;

/// \a rows in ascending order, each once, without those that are not in a list of \a size.
QList<qsizetype> sortedRows(QList<qsizetype> rows, qsizetype size)
{
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    rows.removeIf([size](qsizetype row) { return row < 0 || row >= size; });
    return rows;
}

QList<qsizetype> rowsFrom(qsizetype first, qsizetype count)
{
    QList<qsizetype> rows(count);
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

} // namespace

PlaylistDocument::~PlaylistDocument() = default;

void PlaylistDocument::setContents(std::shared_ptr<const MemoryContents> contents)
{
    const bool keepsUndo = contents != nullptr && !isModified() && isSameAs(*contents);
    if (!keepsUndo && contents != m_contents)
        m_missing.clear();
    m_contents = std::move(contents);
    m_names.setRoot(m_contents != nullptr ? m_contents->root() : QString());
    if (m_contents != nullptr)
        (void)m_names.load(); // without them only fewer paths are recognised
    if (keepsUndo) {
        for (List &list : m_lists)
            list.records.setContents(*m_contents);
        return;
    }
    setPlaylists(m_contents != nullptr ? m_contents->playlists()
                                       : QList<MemoryContents::Playlist>());
}

void PlaylistDocument::discardChanges()
{
    QList<MemoryContents::Playlist> onDisk;
    for (const List &list : std::as_const(m_lists))
        onDisk.append(list.files);
    setPlaylists(onDisk);
}

void PlaylistDocument::setPlaylists(const QList<MemoryContents::Playlist> &playlists)
{
    m_undo.clear();
    m_undo.setUndoLimit(undoLimit);
    m_lists.clear();
    for (const MemoryContents::Playlist &playlist : playlists) {
        PlaylistRecords records(*m_contents, playlist, m_names);
        const Entries entries = records.originals();
        m_lists.append({playlist, std::move(records), entries, entries});
    }
    emit replaced();
    emit modifiedChanged();
}

QList<qint16> PlaylistDocument::takeOver(std::shared_ptr<const MemoryContents> newer)
{
    const std::shared_ptr<const MemoryContents> contents = m_contents; // for the records
    const QList<List> older = m_lists;
    setContents(std::move(newer));
    QList<qint16> lost;
    for (const List &old : older) {
        if (!old.isModified)
            continue;
        const qsizetype playlist = playlistWith(old.files.number);
        std::optional<Entries> entries;
        if (playlist >= 0 && isEditable(playlist) && !old.isHalfSaved)
            entries = m_lists[playlist].records.entriesFrom(old.records, old.entries, m_names);
        if (entries.has_value())
            push(playlist, *entries, {}, {});
        if (!entries.has_value() || entries->size() < old.entries.size())
            lost.append(old.files.number);
    }
    return lost;
}

/// The path file of a playlist whose save was not finished can have any content.
bool PlaylistDocument::isSameAs(const MemoryContents &newer) const
{
    constexpr auto titles = SetFiles::Titles;
    if (m_contents == nullptr || newer.root() != m_contents->root() ||
        newer.playlists().size() != m_lists.size() ||
        newer.files().paths != m_contents->files().paths ||
        newer.files().lists.at(titles).content != m_contents->files().lists.at(titles).content)
        return false;
    for (qsizetype i = 0; i < m_lists.size(); ++i) {
        const MemoryContents::Playlist &now = newer.playlists().at(i);
        const MemoryContents::Playlist &files = m_lists.at(i).files;
        if (now.number != files.number || now.state != files.state ||
            now.isWritable != files.isWritable || now.songs != files.songs ||
            (now.paths != files.paths && !m_lists.at(i).isHalfSaved))
            return false;
    }
    return true;
}

void PlaylistDocument::setMissing(const QSet<qsizetype> &positions)
{
    m_missing = positions;
    for (List &list : m_lists)
        list.faults.reset();
    emit missingChanged();
}

qint16 PlaylistDocument::number(qsizetype playlist) const
{
    return m_lists.at(playlist).files.number;
}

qsizetype PlaylistDocument::playlistWith(std::optional<qint16> wanted) const
{
    for (qsizetype playlist = 0; playlist < count(); ++playlist) {
        if (number(playlist) == wanted)
            return playlist;
    }
    return -1;
}

MemoryContents::Playlist::State PlaylistDocument::state(qsizetype playlist) const
{
    return m_lists.at(playlist).files.state;
}

bool PlaylistDocument::isEditable(qsizetype playlist) const
{
    return state(playlist) == MemoryContents::Playlist::State::Good &&
           m_lists.at(playlist).files.isWritable;
}

qsizetype PlaylistDocument::faults(qsizetype playlist) const
{
    std::optional<qsizetype> &faults = m_lists.at(playlist).faults;
    if (faults.has_value())
        return *faults;
    qsizetype count = 0;
    for (qsizetype entry = 0; entry < size(playlist); ++entry)
        count += entryState(playlist, entry) == EntryState::Good ? 0 : 1;
    faults = count;
    return count;
}

QByteArray PlaylistDocument::record(qsizetype playlist, qsizetype entry) const
{
    const List &list = m_lists.at(playlist);
    return list.records.record(list.entries.at(entry));
}

QByteArray PlaylistDocument::pathRecord(qsizetype playlist, qsizetype entry) const
{
    const List &list = m_lists.at(playlist);
    return list.records.pathRecord(list.entries.at(entry));
}

quint32 PlaylistDocument::id(qsizetype playlist, qsizetype entry) const
{
    return be32At(record(playlist, entry), 0);
}

QString PlaylistDocument::title(qsizetype playlist, qsizetype entry) const
{
    return QString::fromLatin1(
        fieldAt(record(playlist, entry), SongRecord::titleAt, SongRecord::titleWidth));
}

qsizetype PlaylistDocument::song(qsizetype playlist, qsizetype entry) const
{
    const List &list = m_lists.at(playlist);
    return list.records.song(list.entries.at(entry));
}

PlaylistDocument::EntryState PlaylistDocument::entryState(qsizetype playlist, qsizetype entry) const
{
    const List &list = m_lists.at(playlist);
    switch (list.records.state(list.entries.at(entry))) {
    case PlaylistRecords::State::Dead:
        return EntryState::Dead;
    case PlaylistRecords::State::Wrong:
        return EntryState::Wrong;
    case PlaylistRecords::State::Good:
        break;
    }
    return m_missing.contains(song(playlist, entry)) ? EntryState::NoFile : EntryState::Good;
}

qsizetype PlaylistDocument::add(qsizetype playlist, qsizetype place, const QList<quint32> &ids)
{
    List &list = m_lists[playlist];
    place = std::clamp<qsizetype>(place, 0, list.entries.size());
    if (!isEditable(playlist) || list.entries.size() + ids.size() > maxEntries)
        return 0;
    Entries news;
    for (const quint32 id : ids) {
        if (const std::optional<quint32> entry = list.records.add(id); entry.has_value())
            news.append(*entry);
    }
    if (!news.isEmpty())
        push(playlist, list.entries.first(place) + news + list.entries.sliced(place), {},
             rowsFrom(place, news.size()));
    return news.size();
}

void PlaylistDocument::move(qsizetype playlist, const QList<qsizetype> &entries, qsizetype place)
{
    const Entries &old = m_lists.at(playlist).entries;
    const QList<qsizetype> rows = sortedRows(entries, old.size());
    place = std::clamp<qsizetype>(place, 0, old.size());
    Entries before;
    Entries moved;
    Entries after;
    qsizetype next = 0;
    for (qsizetype row = 0; row < old.size(); ++row) {
        const bool isMoved = next < rows.size() && rows.at(next) == row;
        next += isMoved ? 1 : 0;
        (isMoved ? moved : row < place ? before : after).append(old.at(row));
    }
    push(playlist, before + moved + after, rows, rowsFrom(before.size(), moved.size()));
}

void PlaylistDocument::moveStep(qsizetype playlist, const QList<qsizetype> &entries, bool isUp)
{
    Entries changed = m_lists.at(playlist).entries;
    const QList<qsizetype> rows = sortedRows(entries, changed.size());
    QList<qsizetype> moved = rows;
    const qsizetype step = isUp ? -1 : 1;
    qsizetype free = isUp ? 0 : changed.size() - 1; // the farthest place that is not taken
    for (qsizetype i = 0; i < rows.size(); ++i) {
        qsizetype &row = moved[isUp ? i : rows.size() - 1 - i];
        if (row != free) {
            changed.swapItemsAt(row, row + step);
            row += step;
        }
        free = row - step;
    }
    push(playlist, changed, rows, moved, true);
}

void PlaylistDocument::remove(qsizetype playlist, const QList<qsizetype> &entries)
{
    const Entries &old = m_lists.at(playlist).entries;
    const QList<qsizetype> rows = sortedRows(entries, old.size());
    if (rows.isEmpty())
        return;
    Entries left;
    auto removed = rows.cbegin();
    for (qsizetype row = 0; row < old.size(); ++row) {
        if (removed != rows.cend() && *removed == row)
            ++removed;
        else
            left.append(old.at(row));
    }
    const qsizetype next = std::min(rows.first(), left.size() - 1);
    push(playlist, left, rows, next < 0 ? QList<qsizetype>() : QList<qsizetype>{next});
}

bool PlaylistDocument::repair(qsizetype playlist, qsizetype entry, quint32 id)
{
    List &list = m_lists[playlist];
    if (!isEditable(playlist))
        return false;
    const std::optional<quint32> song = list.records.add(id);
    if (!song.has_value())
        return false;
    Entries entries = list.entries;
    entries[entry] = *song;
    push(playlist, entries, {entry}, {entry});
    return true;
}

void PlaylistDocument::push(qsizetype playlist, const Entries &after,
                            const QList<qsizetype> &rowsBefore, const QList<qsizetype> &rowsAfter,
                            bool isStep)
{
    const Entries &before = m_lists.at(playlist).entries;
    if (!isEditable(playlist) || after == before)
        return;
    m_undo.push(new PlaylistChange({playlist, before, rowsBefore}, {playlist, after, rowsAfter},
                                   isStep, [this](const PlaylistChange::State &state) {
                                       setEntries(state.playlist, state.entries, state.rows);
                                   }));
}

void PlaylistDocument::setEntries(qsizetype playlist, const Entries &entries,
                                  const QList<qsizetype> &rows)
{
    m_lists[playlist].entries = entries;
    m_lists[playlist].faults.reset();
    emit changed(playlist, rows);
    updateModified(playlist);
}

void PlaylistDocument::updateModified(qsizetype playlist)
{
    List &list = m_lists[playlist];
    const bool isModified = list.isHalfSaved || !list.records.areEqual(list.entries, list.saved);
    if (std::exchange(list.isModified, isModified) != isModified)
        emit modifiedChanged();
}

bool PlaylistDocument::isModified() const
{
    return std::any_of(m_lists.cbegin(), m_lists.cend(),
                       [](const List &list) { return list.isModified; });
}

QByteArray PlaylistDocument::songsFile(qsizetype playlist) const
{
    return m_lists.at(playlist).records.songsFile(m_lists.at(playlist).entries);
}

QByteArray PlaylistDocument::pathsFile(qsizetype playlist) const
{
    return m_lists.at(playlist).records.pathsFile(m_lists.at(playlist).entries);
}

const QByteArray &PlaylistDocument::songsFileOnDisk(qsizetype playlist) const
{
    return m_lists.at(playlist).files.songs;
}

const QByteArray &PlaylistDocument::pathsFileOnDisk(qsizetype playlist) const
{
    return m_lists.at(playlist).files.paths;
}

bool PlaylistDocument::needsPathFile(qsizetype playlist) const
{
    const List &list = m_lists.at(playlist);
    return list.records.needPathFile(list.entries) || list.records.needPathFile(list.saved);
}

void PlaylistDocument::setHalfSaved(qsizetype playlist, const QByteArray &songs,
                                    const QByteArray &paths)
{
    List &list = m_lists[playlist];
    list.files.songs = songs;
    list.files.paths = paths;
    list.isHalfSaved = true;
    updateModified(playlist);
}

void PlaylistDocument::setSaved(qsizetype playlist)
{
    List &list = m_lists[playlist];
    list.files.songs = songsFile(playlist);
    list.files.paths = pathsFile(playlist);
    list.saved = list.entries;
    list.isHalfSaved = false;
    updateModified(playlist);
}

} // namespace brisel
