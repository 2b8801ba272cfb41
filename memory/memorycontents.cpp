#include "memory/memorycontents.h"

#include "base/bytes.h"
#include "base/fileidentity.h"
#include "base/filereading.h"
#include "base/folderlock.h"
#include "base/run.h"
#include "index/indexrecords.h"
#include "index/indexset.h"
#include "index/playlists.h"

#include <QFileInfo>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qint64 mostSongsBytes = qint64{SongInfoIndex::maxSongs} * IndexRecord::size;
/// Of all playlists, which a damaged or hostile list can name by the thousands.
constexpr qint64 mostPlaylistBytes = 512 * 1024 * 1024;

qint64 newestOf(const IndexSet &set)
{
    qint64 newest = 0;
    for (const QString &name : IndexSet::names())
        newest = std::max(newest, fileState(set.filePath(name)).modified);
    return newest;
}

QString textAt(const QByteArray &list, qsizetype record)
{
    return record < 0 ? QString()
                      : QString::fromLatin1(
                            fieldAt(list, record + SongRecord::titleAt, SongRecord::titleWidth));
}

} // namespace

MemoryContents::Outcome MemoryContents::read(const QString &root, Run &run)
{
    *this = MemoryContents();
    if (fileKind(root) != FileKind::Folder)
        return Outcome::Gone;
    const FolderLock lock(root, FolderLock::Kind::Shared);
    if (lock.isBusy())
        return Outcome::InUse;
    IndexSet set(run);
    set.setRoot(root);
    SetFiles files;
    if (!files.read(set))
        return Outcome::Unreadable;
    if (files.paths.isEmpty() && !set.isComplete())
        return Outcome::NotPrepared;
    run.pulse();
    m_root = root;
    m_isComplete = set.isComplete();
    m_modified = newestOf(set);
    m_files = std::move(files);
    readPaths();
    for (std::size_t list = 0; list < SetFiles::Lists; ++list)
        readList(list);
    run.pulse();
    readPlaylists(set, run);
    return Outcome::Done;
}

void MemoryContents::readPaths()
{
    const qsizetype songs = m_files.paths.size() / IndexRecord::size;
    m_titleAt.fill(-1, songs);
    m_artistAt.fill(-1, songs);
    m_genreAt.fill(-1, songs);
    m_marks.fill({}, songs);
    m_positions.reserve(songs);
    for (qsizetype position = 0; position < songs; ++position) {
        if (pathBytes(position).contains('?'))
            m_marks[position] |= Mark::QuestionMark;
        const auto known = m_positions.constFind(id(position));
        if (known == m_positions.cend()) {
            m_positions.insert(id(position), position);
            continue;
        }
        m_marks[position] |= Mark::IdTwice;
        m_marks[*known] |= Mark::IdTwice;
    }
}

/// Notes where the songs are in one list, and marks those that it lacks or has twice.
void MemoryContents::readList(std::size_t list)
{
    const QByteArray &content = m_files.lists.at(list).content;
    QList<bool> met(size(), false);
    qsizetype header = -1;
    for (qsizetype at = 0; fits(content, at, IndexRecord::size); at += IndexRecord::size) {
        if (SetFiles::isGrouped(list) && GroupHeader::isAt(content, at)) {
            header = at;
            continue;
        }
        const qsizetype position = positionOf(be32At(content, at));
        if (position < 0)
            continue;
        if (met.at(position)) {
            m_marks[position] |= Mark::IdTwice;
            continue;
        }
        met[position] = true;
        if (list == SetFiles::Titles)
            m_titleAt[position] = at;
        else if (list == SetFiles::Artists)
            m_artistAt[position] = header;
        else if (list == SetFiles::Genres)
            m_genreAt[position] = header;
    }
    for (qsizetype position = 0; position < size(); ++position) {
        const bool belongs = !SetFiles::isMp3Only(list) || type(position) == SongInfoIndex::Mp3;
        if (belongs && !met.at(position))
            m_marks[position] |= Mark::NotListed;
    }
}

void MemoryContents::readPlaylists(const IndexSet &set, Run &run)
{
    const QList<qint16> numbers = Playlists::readNumbers(set);
    m_playlists.reserve(numbers.size());
    qint64 room = mostPlaylistBytes;
    for (const qint16 number : numbers) {
        Playlist playlist;
        playlist.number = number;
        const QString path = set.filePath(Playlists::songsFileName(number));
        FileContent songs = readWholeFile(path, std::min(mostSongsBytes, room));
        if (!songs.isDone())
            playlist.state = songs.state.kind == FileKind::Missing ? Playlist::State::Missing
                                                                   : Playlist::State::Unreadable;
        playlist.isWritable = songs.isDone() && QFileInfo(path).isWritable();
        playlist.songs = std::move(songs.bytes);
        FileContent paths = readWholeFile(set.filePath(Playlists::pathsFileName(number)),
                                          std::min(mostSongsBytes, room));
        if (paths.isDone())
            playlist.paths = paths.bytes.isNull() ? QByteArrayLiteral("") : std::move(paths.bytes);
        room -= playlist.songs.size() + playlist.paths.size();
        m_playlists.append(std::move(playlist));
        run.pulse();
    }
}

quint32 MemoryContents::id(qsizetype position) const
{
    return be32At(m_files.paths, position * IndexRecord::size);
}

QByteArray MemoryContents::pathBytes(qsizetype position) const
{
    return fieldAt(m_files.paths, position * IndexRecord::size + PathRecord::pathAt,
                   PathRecord::pathWidth);
}

QString MemoryContents::path(qsizetype position) const
{
    return pathFromBytes(pathBytes(position));
}

quint32 MemoryContents::date(qsizetype position) const
{
    return fieldAt(m_files.paths, position * IndexRecord::size + PathRecord::dateAt,
                   PathRecord::dateWidth)
        .toUInt();
}

quint32 MemoryContents::time(qsizetype position) const
{
    return fieldAt(m_files.paths, position * IndexRecord::size + PathRecord::timeAt,
                   PathRecord::timeWidth)
        .toUInt();
}

QByteArray MemoryContents::record(qsizetype position) const
{
    const qsizetype at = m_titleAt.at(position);
    return at < 0 ? QByteArray()
                  : m_files.lists.at(SetFiles::Titles).content.mid(at, IndexRecord::size);
}

QString MemoryContents::title(qsizetype position) const
{
    return textAt(m_files.lists.at(SetFiles::Titles).content, m_titleAt.at(position));
}

QString MemoryContents::artist(qsizetype position) const
{
    return textAt(m_files.lists.at(SetFiles::Artists).content, m_artistAt.at(position));
}

QString MemoryContents::genre(qsizetype position) const
{
    return textAt(m_files.lists.at(SetFiles::Genres).content, m_genreAt.at(position));
}

quint8 MemoryContents::bpm(qsizetype position) const
{
    return byteAt(record(position), SongRecord::bpmAt);
}

quint8 MemoryContents::type(qsizetype position) const
{
    return SongRecord::typeOf(byteAt(record(position), SongRecord::typeAt));
}

bool MemoryContents::hasMarkers(qsizetype position) const
{
    return SongRecord::hasMarkers(byteAt(record(position), SongRecord::typeAt));
}

} // namespace brisel
