#include "memory/songentries.h"

#include "base/bytes.h"
#include "base/fileidentity.h"
#include "index/indexrecords.h"
#include "index/songinfoindex.h"
#include "memory/memorycontents.h"
#include "memory/songfiles.h"

#include <algorithm>

namespace brisel
{

SongEntries::SongEntries(const MemoryContents &contents, SongFiles &files)
    : m_contents(contents), m_files(files)
{
    m_indexed.reserve(contents.size());
    for (qsizetype position = 0; position < contents.size(); ++position) {
        const QString path = contents.path(position);
        if (!m_indexed.contains(path))
            m_paths.insert(pathSortKey(path), path);
        m_indexed.insert(path, position);
    }
}

void SongEntries::add(const QString &path)
{
    const QString &root = m_contents.root();
    if (!path.startsWith(root + u'/') || m_byPath.contains(path))
        return;
    const QString below = path.mid(root.size());
    const QStringList paths = m_paths.values(pathSortKey(below));
    for (const QString &known : paths) {
        if (known != below && !isSameFile(root + known, path) &&
            m_files.find(root + known).path != path)
            continue;
        const QList<qsizetype> positions = m_indexed.values(known);
        for (const qsizetype position : positions) {
            m_byPath.insert(path, position);
            m_songs.insert(position);
        }
    }
}

void SongEntries::remove(const QString &path)
{
    const QList<qsizetype> positions = m_byPath.values(path);
    for (const qsizetype position : positions)
        m_songs.remove(position);
    m_byPath.remove(path);
}

qsizetype SongEntries::countIn(const QByteArray &songs) const
{
    qsizetype count = 0;
    for (qsizetype entry = 0; entry < songs.size() / IndexRecord::size; ++entry)
        count += isOne(songs, entry) ? 1 : 0;
    return count;
}

int SongEntries::playlists() const
{
    return static_cast<int>(std::count_if(
        m_contents.playlists().cbegin(), m_contents.playlists().cend(),
        [this](const MemoryContents::Playlist &playlist) { return countIn(playlist.songs) > 0; }));
}

QList<quint32> SongEntries::others(const QByteArray &songs) const
{
    QList<quint32> others;
    for (qsizetype entry = 0; entry < songs.size() / IndexRecord::size; ++entry) {
        if (!isOne(songs, entry))
            others.append(static_cast<quint32>(entry));
    }
    return others;
}

bool SongEntries::isOne(const QByteArray &songs, qsizetype entry) const
{
    const qsizetype at = entry * IndexRecord::size;
    if (!fits(songs, at, IndexRecord::size))
        return false;
    const qsizetype position = m_contents.positionOf(be32At(songs, at));
    if (position < 0 || !m_songs.contains(position))
        return false;
    const QByteArray record = m_contents.record(position);
    return record.isEmpty() || fieldAt(record, SongRecord::titleAt, SongRecord::titleWidth) ==
                                   fieldAt(songs, at + SongRecord::titleAt, SongRecord::titleWidth);
}

} // namespace brisel
