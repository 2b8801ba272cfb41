#include "index/indexreader.h"

#include "base/bytes.h"
#include "base/lettercase.h"
#include "base/songtext.h"
#include "index/indexrecords.h"
#include "index/indexset.h"

#include <QHash>

#include <algorithm>

namespace brisel
{

namespace
{

QString indexText(const QByteArray &bytes)
{
    return trimmedSongText(stringToUpper(QString::fromLatin1(bytes)));
}

} // namespace

bool IndexReader::read(const IndexSet &set, const QString &root, QList<SongInfoIndex> &songs)
{
    *this = IndexReader();
    songs.clear();
    if (!m_files.read(set))
        return false;
    const QList<Place> all = places();
    songs.reserve(all.size());
    m_ids.reserve(all.size());
    m_pathAt.reserve(all.size());
    PathRecord record;
    for (const Place &place : all) {
        PathRecord::read(m_files.paths, place.at, record);
        SongInfoIndex song;
        song.id = place.id;
        song.setPath(QString::fromLatin1(record.path));
        song.absolutePath = root + song.path;
        song.date = record.date;
        song.time = record.time;
        song.posidx = static_cast<quint16>(songs.size());
        songs.append(std::move(song));
        m_ids.append(place.id);
        m_pathAt.append(place.at);
    }
    m_check = SetCheck(m_files, m_ids);
    m_arePathsSound = m_areIdsSound && isInOrder(songs);
    if (!isSound())
        noteListedIds();
    // A record with the id or path of another one has the other one's place in the lists.
    for (qsizetype i = 0; i < songs.size(); ++i)
        songs[i].isUnsure = !m_arePathsSound || m_check.isUnsure(i);
    return true;
}

/// Returns true if "ordfile.id2" has \a songs in the order of their paths, each path once. The
/// order of paths with characters that are not read back as they were written is unknown here, and
/// paths with characters that the code page lacks may look equal.
bool IndexReader::isInOrder(const QList<SongInfoIndex> &songs) const
{
    qsizetype last = -1;
    QSet<QString> others;
    for (qsizetype at = 0; fits(m_files.order, at, 2); at += 2) {
        const quint16 position = le16At(m_files.order, at);
        if (position >= songs.size() || songs.at(position).path.contains(u'?'))
            continue;
        const QString &path = songs.at(position).path;
        if (!isAscii(path)) {
            if (others.contains(path))
                return false;
            others.insert(path);
            continue;
        }
        if (last >= 0 && !compareByPath(songs.at(last), songs.at(position)))
            return false;
        last = position;
    }
    return true;
}

/// The records of "index.id2" by their ids, each id once.
QList<IndexReader::Place> IndexReader::places()
{
    QList<Place> all;
    all.reserve(m_files.paths.size() / IndexRecord::size);
    for (qsizetype at = 0; fits(m_files.paths, at, IndexRecord::size); at += IndexRecord::size) {
        const quint32 id = be32At(m_files.paths, at);
        if (id >= SongInfoIndex::idLimit || byteAt(m_files.paths, at + PathRecord::pathAt) != '/') {
            m_areIdsSound = false;
            continue;
        }
        m_areIdsSound = m_areIdsSound && (all.isEmpty() || all.last().id < id);
        all.append({id, at});
    }
    if (!m_areIdsSound) {
        std::stable_sort(all.begin(), all.end(),
                         [](const Place &a, const Place &b) { return a.id < b.id; });
        all.erase(std::unique(all.begin(), all.end(),
                              [](const Place &a, const Place &b) { return a.id == b.id; }),
                  all.end());
    }
    return all;
}

void IndexReader::readTexts(QList<SongInfoIndex> &songs)
{
    QList<bool> wanted;
    wanted.reserve(m_ids.size());
    for (qsizetype position = 0; position < m_ids.size(); ++position)
        wanted.append(songs.at(position).title.isNull());
    readTitles(songs, wanted);
    readGroups(m_files.lists.at(SetFiles::Artists).content, &SongInfoIndex::artist, songs, wanted);
    readGroups(m_files.lists.at(SetFiles::Genres).content, &SongInfoIndex::genre, songs, wanted);
    const QByteArray titles = m_files.lists.at(SetFiles::Titles).content;
    m_files.lists.fill({});
    m_files.lists.at(SetFiles::Titles).content = titles;
}

/// One list may be damaged; an id that two lists have was really given.
void IndexReader::noteListedIds()
{
    QSet<quint32> once;
    for (const std::size_t list : {SetFiles::Titles, SetFiles::Artists, SetFiles::Genres}) {
        QSet<quint32> met;
        const QByteArray &content = m_files.lists.at(list).content;
        for (qsizetype at = 0; fits(content, at, IndexRecord::size); at += IndexRecord::size) {
            if (!SetFiles::isGrouped(list) || !GroupHeader::isAt(content, at))
                met.insert(be32At(content, at));
        }
        m_listed |= QSet<quint32>(once) & met;
        once |= met;
    }
}

quint32 IndexReader::highestId() const
{
    quint32 highest = m_ids.highest();
    for (const quint32 id : m_listed)
        highest = id < SongInfoIndex::idLimit ? std::max(highest, id) : highest;
    return highest;
}

QByteArray IndexReader::pathAt(qsizetype position) const
{
    return fieldAt(m_files.paths, m_pathAt.at(position) + PathRecord::pathAt,
                   PathRecord::pathWidth);
}

bool IndexReader::hasPath(const QByteArray &key) const
{
    if (!m_pathKeys.has_value()) {
        m_pathKeys.emplace();
        for (qsizetype position = 0; position < size(); ++position)
            m_pathKeys->insert(pathSortKey(pathFromBytes(pathAt(position))));
    }
    return m_pathKeys->contains(key);
}

QByteArray IndexReader::pathOf(quint32 id) const
{
    const qsizetype position = m_ids.positionOf(id);
    return position < 0 ? QByteArray() : pathAt(position);
}

QByteArray IndexReader::titleRecordOf(quint32 id) const
{
    const qsizetype position = m_ids.positionOf(id);
    const qsizetype at = position < 0 ? -1 : m_check.titleAt(position);
    return at < 0 ? QByteArray()
                  : m_files.lists.at(SetFiles::Titles).content.mid(at, IndexRecord::size);
}

QList<QByteArray> IndexReader::strayTitles() const
{
    QHash<quint32, QByteArray> records;
    const QByteArray &titles = m_files.lists.at(SetFiles::Titles).content;
    for (qsizetype at = 0; fits(titles, at, IndexRecord::size); at += IndexRecord::size) {
        const quint32 id = be32At(titles, at);
        if (id < SongInfoIndex::idLimit && !has(id) && isListed(id))
            records.insert(id,
                           records.contains(id) ? QByteArray() : titles.mid(at, IndexRecord::size));
    }
    QList<QByteArray> strays = records.values();
    strays.removeAll(QByteArray());
    return strays;
}

void IndexReader::readTitles(QList<SongInfoIndex> &songs, const QList<bool> &wanted) const
{
    SongRecord record;
    for (qsizetype position = 0; position < wanted.size(); ++position) {
        if (!wanted.at(position) || !SongRecord::read(m_files.lists.at(SetFiles::Titles).content,
                                                      m_check.titleAt(position), record))
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
    for (qsizetype pos = 0; fits(list, pos, IndexRecord::size); pos += IndexRecord::size) {
        if (GroupHeader::read(list, pos, header)) {
            name = indexText(header.name);
            continue;
        }
        const qsizetype position = m_ids.positionOf(be32At(list, pos));
        if (position >= 0 && wanted.at(position))
            songs[position].*group = name;
    }
}

} // namespace brisel
