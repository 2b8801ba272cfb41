#include "index/indexreader.h"

#include "base/bytes.h"
#include "base/filereading.h"
#include "base/songtext.h"
#include "index/indexrecords.h"
#include "index/indexset.h"

#include <algorithm>

namespace
{

/// Reads a file of whole records. No set that the player can hold has more than \a maxRecords.
bool readRecords(const QString &path, qint64 maxRecords, QByteArray &content)
{
    return readWholeFile(path, maxRecords * IndexRecord::size, content) == ReadResult::Done &&
           content.size() % IndexRecord::size == 0;
}

QString indexText(const QByteArray &bytes)
{
    return trimmedSongText(stringToUpper(QString::fromLatin1(bytes)));
}

} // namespace

bool IndexReader::read(const IndexSet &set, const QString &root, QList<SongInfoIndex> &songs)
{
    constexpr qint64 most = SongInfoIndex::maxSongs;
    *this = IndexReader();
    songs.clear();
    // Each song can have a header of its own.
    return readPaths(set.filePath(QStringLiteral("index.id2")), root, songs) &&
           readList(set.filePath(QStringLiteral("title.id2")), most, m_titles) &&
           readList(set.filePath(QStringLiteral("artist.id2")), 2 * most, m_artists) &&
           readList(set.filePath(QStringLiteral("genre.id2")), 2 * most, m_genres);
}

void IndexReader::readTexts(QList<SongInfoIndex> &songs)
{
    QList<bool> wanted;
    wanted.reserve(songs.size());
    for (const SongInfoIndex &song : std::as_const(songs))
        wanted.append(song.title.isNull());
    readTitles(songs, wanted);
    readGroups(m_artists, &SongInfoIndex::artist, songs, wanted);
    readGroups(m_genres, &SongInfoIndex::genre, songs, wanted);
    *this = IndexReader();
}

bool IndexReader::readPaths(const QString &path, const QString &root, QList<SongInfoIndex> &songs)
{
    QByteArray content;
    if (!readRecords(path, SongInfoIndex::maxSongs, content))
        return false;
    songs.reserve(content.size() / IndexRecord::size);
    m_ids.reserve(songs.capacity());
    PathRecord record;
    for (qsizetype pos = 0; PathRecord::read(content, pos, record); pos += IndexRecord::size) {
        if (record.id == SongInfoIndex::deletedId)
            return false;
        SongInfoIndex song;
        song.id = record.id;
        song.setPath(QString::fromLatin1(record.path));
        song.absolutePath = root + song.path;
        song.date = record.date;
        song.time = record.time;
        song.posidx = static_cast<quint16>(songs.size());
        songs.append(std::move(song));
        m_ascending = m_ascending && (m_ids.isEmpty() || m_ids.last() < record.id);
        m_ids.append(record.id);
    }
    return true;
}

/// True when all songs of the list are known.
bool IndexReader::readList(const QString &path, qint64 maxRecords, QByteArray &list) const
{
    if (!readRecords(path, maxRecords, list))
        return false;
    const bool hasHeaders = maxRecords > SongInfoIndex::maxSongs;
    for (qsizetype pos = 0; pos < list.size(); pos += IndexRecord::size) {
        const bool isHeader = hasHeaders && GroupHeader::isAt(list, pos);
        if (!isHeader && positionOf(be32At(list, pos)) < 0)
            return false;
    }
    return true;
}

void IndexReader::readTitles(QList<SongInfoIndex> &songs, const QList<bool> &wanted) const
{
    SongRecord record;
    for (qsizetype pos = 0; SongRecord::read(m_titles, pos, record); pos += IndexRecord::size) {
        const qsizetype position = positionOf(record.id);
        if (!wanted.at(position))
            continue;
        SongInfoIndex &song = songs[position];
        song.title = indexText(record.title);
        song.bpm = record.bpm;
        song.type = record.type;
        song.flag = record.flag;
    }
}

void IndexReader::readGroups(const QByteArray &list, QString SongInfoIndex::*group,
                             QList<SongInfoIndex> &songs, const QList<bool> &wanted) const
{
    GroupHeader header;
    QString name;
    for (qsizetype pos = 0; pos < list.size(); pos += IndexRecord::size) {
        if (GroupHeader::read(list, pos, header)) {
            name = indexText(header.name);
            continue;
        }
        const qsizetype position = positionOf(be32At(list, pos));
        if (wanted.at(position))
            songs[position].*group = name;
    }
}

/// The place of the song with \a id; -1 when there is none.
qsizetype IndexReader::positionOf(quint32 id) const
{
    auto end = m_ids.cend();
    // Songs that have gone leave gaps, so that none stands behind the place its id would have.
    if (m_ascending && !m_ids.isEmpty() && id >= m_ids.first()) {
        const qsizetype last = std::min<qsizetype>(id - m_ids.first(), m_ids.size() - 1);
        if (m_ids.at(last) == id)
            return last;
        end = m_ids.cbegin() + last;
    }
    const auto found = std::lower_bound(m_ids.cbegin(), end, id);
    return found != end && *found == id ? found - m_ids.cbegin() : -1;
}
