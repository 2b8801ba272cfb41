#include "index/songroll.h"

#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/lettercase.h"
#include "index/indexreader.h"
#include "index/indexrecords.h"

#include <QHash>

#include <algorithm>

namespace brisel
{

bool SongRoll::meet(const QString &full, const QString &path)
{
    // Songs are usually met in the order in which they were added.
    if (m_expected < m_songs.size() && m_songs.at(m_expected).path == path) {
        meetKnownSong(m_expected, full, path);
        return true;
    }
    SongInfoIndex song;
    song.absolutePath = full;
    song.setPath(path);
    m_paths.enter(m_songs);
    const size_t hash = PathTable::pathHash(song);
    const qsizetype known = m_paths.find(m_songs, song, hash);
    if (known >= 0) {
        meetKnownSong(known, full, path);
        return true;
    }
    if (m_songs.size() >= SongInfoIndex::maxSongs || m_nextId >= SongInfoIndex::idLimit)
        return false;
    song.isMet = true;
    song.id = m_nextId++;
    song.posidx = static_cast<quint16>(m_songs.size());
    m_paths.add(hash);
    m_songs.append(std::move(song));
    m_isModified = true;
    return true;
}

/// The file \a full has the path of the song at \a position, which keeps its id.
void SongRoll::meetKnownSong(qsizetype position, const QString &full, const QString &path)
{
    SongInfoIndex &known = m_songs[position];
    m_expected = position + 1;
    known.isMet = true;
    // Read back as Latin-1, a path with other characters may now be another song's path.
    if (!isAscii(known.path)) {
        known.date = 0;
        known.time = 0;
    }
    // Renamed in letter case only: on a case-sensitive memory the old name finds nothing, or what
    // is not on the memory.
    if (known.absolutePath != full && (fileKind(known.absolutePath) == FileKind::Missing ||
                                       leavesRoot(known.absolutePath, m_root))) {
        known.absolutePath = full;
        known.setPath(path);
        m_isModified = true;
    }
}

void SongRoll::dropDoubledSongs()
{
    m_byPath = SongOrders::byPath(m_songs);
    const auto keyAt = [this](qsizetype i) -> const QByteArray & {
        return m_songs.at(m_byPath.at(i)).pathKey;
    };
    for (qsizetype start = 0, end = 0; start < m_byPath.size(); start = end) {
        for (end = start + 1; end < m_byPath.size() && keyAt(end) == keyAt(start); ++end) {
        }
        if (end > start + 1)
            dropDoubledSongs(m_byPath.mid(start, end - start));
    }
}

/// For the songs at \a positions, whose paths have the same key: characters that the code page
/// lacks are all read back as '?'.
void SongRoll::dropDoubledSongs(SongOrder positions)
{
    std::sort(positions.begin(), positions.end());
    QHash<QString, qsizetype> first;
    for (const qsizetype position : std::as_const(positions)) {
        SongInfoIndex &song = m_songs[position];
        const auto known = first.constFind(foldedText(song.path));
        if (known == first.cend()) {
            first.insert(foldedText(song.path), position);
            continue;
        }
        SongInfoIndex &kept = m_songs[*known];
        kept.isMet = kept.isMet || song.isMet;
        kept.isUnsure = true;
        song.id = SongInfoIndex::deletedId;
        m_isModified = true;
    }
}

void SongRoll::removeDeletedItems()
{
    const qsizetype removed = m_songs.removeIf(
        [](const SongInfoIndex &song) { return song.id == SongInfoIndex::deletedId; });
    const bool isInOrder = std::is_sorted(m_songs.cbegin(), m_songs.cend(), compareById);
    if (!isInOrder)
        std::sort(m_songs.begin(), m_songs.end(), compareById);
    for (qsizetype i = 0; i < m_songs.size(); ++i)
        m_songs[i].posidx = static_cast<quint16>(i);
    if (removed > 0 || !isInOrder)
        m_byPath = SongOrders::byPath(m_songs);
}

void SongRoll::restoreIds(const IndexReader &old)
{
    QHash<QByteArray, qsizetype> songs;
    constexpr qsizetype several = -1;
    const auto bodyOf = [](const QByteArray &record) { return record.mid(SongRecord::titleAt); };
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        const SongInfoIndex &song = m_songs.at(i);
        if (song.id == SongInfoIndex::deletedId || old.isListed(song.id))
            continue;
        const QByteArray body = bodyOf(SongRecord(song).bytes());
        songs.insert(body, songs.contains(body) ? several : i);
    }
    QHash<QByteArray, quint32> strays;
    const QList<QByteArray> records = old.strayTitles();
    for (const QByteArray &record : records) {
        SongRecord stray;
        SongRecord::read(record, 0, stray);
        const QByteArray body = bodyOf(record);
        strays.insert(body, strays.contains(body) ? SongInfoIndex::deletedId : stray.id);
    }
    for (auto stray = strays.cbegin(); stray != strays.cend(); ++stray) {
        const qsizetype song = songs.value(stray.key(), several);
        if (song != several && stray.value() != SongInfoIndex::deletedId)
            m_songs[song].id = stray.value();
    }
}

qsizetype SongRoll::findBytes(const QByteArray &bytes)
{
    m_paths.enter(m_songs);
    return m_paths.findBytes(m_songs, bytes);
}

} // namespace brisel
