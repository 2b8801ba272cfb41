#include "index/indexreader.h"

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
    return readPlainFile(path, maxRecords * IndexRecord::size, content) &&
           content.size() % IndexRecord::size == 0;
}

QString indexText(const QByteArray &bytes)
{
    return trimmedSongText(stringToUpper(QString::fromLatin1(bytes)));
}

bool readPaths(const QString &path, const QString &root, QList<SongInfoIndex> &songs)
{
    QByteArray content;
    if (!readRecords(path, SongInfoIndex::maxSongs, content))
        return false;
    songs.reserve(content.size() / IndexRecord::size);
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
        songs.append(song);
    }
    return true;
}

/// Finds the songs of records by their ids.
class SongFinder
{
public:
    explicit SongFinder(QList<SongInfoIndex> &songs) : m_songs(songs)
    {
        m_ids.reserve(songs.size());
        for (const SongInfoIndex &song : std::as_const(songs))
            m_ids.append(song.id);
    }

    /// The song with the id of \a record; null when there is none.
    SongInfoIndex *songOf(const SongRecord &record)
    {
        const auto id = std::lower_bound(m_ids.cbegin(), m_ids.cend(), record.id);
        return id != m_ids.cend() && *id == record.id ? &m_songs[id - m_ids.cbegin()] : nullptr;
    }

private:
    QList<SongInfoIndex> &m_songs;
    QList<quint32> m_ids; ///< apart from the songs: a search for one is to touch little memory
};

bool readTitles(const QString &path, SongFinder &finder)
{
    QByteArray content;
    if (!readRecords(path, SongInfoIndex::maxSongs, content))
        return false;
    SongRecord record;
    for (qsizetype pos = 0; SongRecord::read(content, pos, record); pos += IndexRecord::size) {
        SongInfoIndex *song = finder.songOf(record);
        if (song == nullptr)
            return false;
        song->title = indexText(record.title);
        song->bpm = record.bpm;
        song->type = record.type;
        song->flag = record.flag;
    }
    return true;
}

bool readGroups(const QString &path, QString SongInfoIndex::*group, SongFinder &finder)
{
    QByteArray content;
    // Each song can have a header of its own.
    if (!readRecords(path, qint64{2} * SongInfoIndex::maxSongs, content))
        return false;
    GroupHeader header;
    SongRecord record;
    QString name;
    for (qsizetype pos = 0; SongRecord::read(content, pos, record); pos += IndexRecord::size) {
        if (GroupHeader::read(content, pos, header)) {
            name = indexText(header.name);
            continue;
        }
        SongInfoIndex *song = finder.songOf(record);
        if (song == nullptr)
            return false;
        song->*group = name;
    }
    return true;
}

} // namespace

bool IndexReader::read(const IndexSet &set, const QString &root, QList<SongInfoIndex> &songs)
{
    songs.clear();
    if (!readPaths(set.filePath(QStringLiteral("index.id2")), root, songs))
        return false;
    SongFinder finder(songs);
    return readTitles(set.filePath(QStringLiteral("title.id2")), finder) &&
           readGroups(set.filePath(QStringLiteral("artist.id2")), &SongInfoIndex::artist, finder) &&
           readGroups(set.filePath(QStringLiteral("genre.id2")), &SongInfoIndex::genre, finder);
}
