#include "memory/songentries.h"

#include "base/bytes.h"
#include "base/fileidentity.h"
#include "index/indexrecords.h"
#include "index/songinfoindex.h"
#include "memory/memorycontents.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace brisel
{

namespace
{

/// Returns true if only the file at \a path, \a below the root, can be meant by a path that has '?'
/// in place of some of its characters.
bool isOnlyFile(const QString &path, const QString &below)
{
    const QString folder = below.left(below.lastIndexOf(u'/') + 1);
    const QByteArray key = pathSortKey(below);
    if (!key.contains('?') || pathFromBytes(pathBytes(folder)) != folder)
        return false;
    const QStringList names =
        QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    return std::count_if(names.cbegin(), names.cend(), [&](const QString &name) {
               return pathSortKey(folder + name) == key;
           }) == 1;
}

} // namespace

SongEntries::SongEntries(const MemoryContents &contents) : m_contents(contents)
{
    m_byKey.reserve(contents.size());
    for (qsizetype position = 0; position < contents.size(); ++position)
        m_byKey.insert(pathSortKey(contents.path(position)), position);
}

void SongEntries::add(const QString &path)
{
    if (!path.startsWith(m_contents.root() + u'/') || m_byPath.contains(path))
        return;
    const QString below = path.mid(m_contents.root().size());
    const QList<qsizetype> positions = m_byKey.values(pathSortKey(below));
    QHash<QString, bool> looked; // a damaged index may have one path many times
    for (const qsizetype position : positions) {
        const QString known = m_contents.path(position);
        auto isMeant = looked.constFind(known);
        if (isMeant == looked.constEnd())
            isMeant = looked.insert(known, known == below ||
                                               isSameFile(m_contents.root() + known, path) ||
                                               (positions.size() == 1 && isOnlyFile(path, below)));
        if (!*isMeant)
            continue;
        m_byPath.insert(path, position);
        m_songs.insert(position);
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

QByteArray SongEntries::without(const QByteArray &records, const QByteArray &songs) const
{
    QByteArray left;
    left.reserve(records.size());
    for (qsizetype at = 0; fits(records, at, IndexRecord::size); at += IndexRecord::size) {
        if (!isOne(songs, at / IndexRecord::size))
            left += records.mid(at, IndexRecord::size);
    }
    return left;
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
