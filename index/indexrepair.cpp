#include "index/index.h"

#include "base/fileidentity.h"
#include "index/entrylist.h"
#include "index/indexrecords.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

// What a run does about an old index that is damaged, or that it can't take the place of.

/// A folder that has the name of a file of the index, or of a path file, would be in the way of
/// each new one.
void Index::moveFolderAside(const QString &name)
{
    const QFileInfo entry(m_set.filePath(name));
    if (!entry.isDir() || entry.isSymLink())
        return;
    constexpr int mostNumbers = 999;
    int number = 0;
    QString newName;
    do
        newName = QStringLiteral("old-%1").arg(++number);
    while (number < mostNumbers && fileKind(entry.path() + u'/' + newName) != FileKind::Missing);
    if (m_renames.rename(entry.path(), {{entry.fileName(), newName}}))
        reportNotice(tr("Cartella rinominata, il suo nome serve all'indice: ") + entry.filePath() +
                     QStringLiteral(" -> ") + newName);
}

/// False for a path that an index can only have by damage, or from before its folder was one of
/// those that are passed over.
bool Index::mayBeSong(const QString &path)
{
    if (!path.startsWith(u'/') ||
        !checkFileExt(QStringView(path).sliced(path.lastIndexOf(u'.') + 1)))
        return false;
    const QList<QStringView> names = QStringView(path).sliced(1).split(u'/');
    const bool isWay = std::none_of(names.cbegin(), names.cend() - 1, [](QStringView name) {
        return name.isEmpty() || name == u"." || name == u".." ||
               name.compare(u"sfx", Qt::CaseInsensitive) == 0 ||
               name.compare(u"bridge", Qt::CaseInsensitive) == 0;
    });
    return isWay && !liesInSystemFolder(path);
}

/// Of records with one path the first counts, as it is the older one.
void Index::dropDoubledSongs()
{
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

/// Of the songs at \a positions, whose paths look alike: characters that the code page lacks all
/// read back as '?'.
void Index::dropDoubledSongs(SongOrder positions)
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
        m_modified = true;
    }
}

/// True when a playlist names the song that the old index has at \a path, an absolute path: a song
/// that is renamed to it would take its entries over.
bool Index::isNamedByPlaylist(const QString &path)
{
    if (!m_namedPaths.has_value())
        m_namedPaths = Playlists::namedPaths(m_set, m_playlists, m_reader);
    return m_namedPaths->contains(pathSortKey(path.mid(m_root.size())));
}

/// True when songs of the old index are in folders that can't be read now.
bool Index::wouldLoseSongs()
{
    if (m_unreadable.isEmpty())
        return false;
    m_paths.enter(m_songs);
    QSet<QByteArray> unreadable;
    for (const QString &path : std::as_const(m_unreadable))
        unreadable.insert(pathSortKey(path));
    for (qsizetype position = 0; position < m_reader.size(); ++position) {
        const QByteArray bytes = m_reader.pathAt(position);
        QByteArray key = pathSortKey(pathFromBytes(bytes));
        while (!key.isEmpty() && !unreadable.contains(key))
            key.truncate(key.lastIndexOf('/'));
        if (unreadable.contains(key) && m_paths.findBytes(m_songs, bytes) < 0)
            return true;
    }
    return false;
}

/// Songs whose records in "index.id2" are lost get their ids back from the lists, by what these say
/// of them, where only one song can be meant.
void Index::restoreIds()
{
    QHash<QByteArray, qsizetype> songs;
    constexpr qsizetype several = -1;
    const auto bodyOf = [](const QByteArray &record) { return record.mid(SongRecord::titleAt); };
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        const SongInfoIndex &song = m_songs.at(i);
        if (song.id == SongInfoIndex::deletedId || m_reader.isListed(song.id))
            continue;
        const QByteArray body = bodyOf(SongRecord(song).bytes());
        songs.insert(body, songs.contains(body) ? several : i);
    }
    QHash<QByteArray, quint32> strays;
    const QList<QByteArray> records = m_reader.strayTitles();
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

/// Numbers the songs of a rebuild: from 0, unless that would give a song the id that a playlist
/// still has of one that has gone.
void Index::giveFreeIds()
{
    if (m_playlists.isEmpty())
        return;
    PlaylistFollower follower = playlistFollower();
    const quint32 first =
        Playlists::firstFreeId(m_set, m_playlists, follower, m_songs.size(), m_reader.highestId());
    for (SongInfoIndex &song : m_songs)
        song.id += first;
}
