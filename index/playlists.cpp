#include "index/playlists.h"

#include "base/bytes.h"
#include "base/fileidentity.h"
#include "base/filelot.h"
#include "base/filereading.h"
#include "base/folderhandle.h"
#include "index/indexreader.h"
#include "index/indexrecords.h"
#include "index/indexset.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr int numberRecordSize = 32; ///< bytes; all but the first two are the player's own
constexpr qint64 maxListSize = 65536 * numberRecordSize; ///< every 16-bit number once
/// Above a lower id there is room for all songs of a full index.
constexpr quint32 highestLimit = SongInfoIndex::idLimit - 2 * SongInfoIndex::maxSongs;
constexpr qint64 maxPlaylistSize = 65535 * IndexRecord::size; ///< as many songs as an index

QString fileName(qint16 number, const char *suffix)
{
    return QString::asprintf("playlist/play%04u.%s",
                             static_cast<unsigned>(static_cast<int>(number)), suffix);
}

/// Returns the path records of the song records \a playlist. For an id that the index lacks, the
/// record of the existing path file \a before is used.
QByteArray pathRecords(const QByteArray &playlist, const IndexReader &old, const QByteArray &before)
{
    QByteArray paths;
    for (qsizetype pos = 0; fits(playlist, pos, IndexRecord::size); pos += IndexRecord::size) {
        const quint32 id = be32At(playlist, pos);
        paths += Playlists::pathRecord(old.has(id) ? old.pathOf(id)
                                                   : fieldAt(before, pos, IndexRecord::size));
    }
    return paths;
}

/// The songs file of a playlist; none when it can't be read.
std::optional<QByteArray> readSongs(const IndexSet &set, qint16 number)
{
    const FileContent songs =
        readWholeFile(set.filePath(Playlists::songsFileName(number)), maxPlaylistSize);
    return songs.isDone() ? std::optional(songs.bytes) : std::nullopt;
}

/// The path file of a playlist; null if it can't be read: most of it can be derived from the songs
/// file.
QByteArray readPaths(const IndexSet &set, qint16 number)
{
    const FileContent paths =
        readWholeFile(set.filePath(Playlists::pathsFileName(number)), maxPlaylistSize);
    return paths.isDone() && paths.bytes.isNull() ? QByteArrayLiteral("") : paths.bytes;
}

bool isWritable(const IndexSet &set, qint16 number)
{
    return QFileInfo(set.filePath(Playlists::songsFileName(number))).isWritable();
}

QList<quint32> idsOf(const QByteArray &playlist)
{
    QList<quint32> ids;
    for (qsizetype pos = 0; fits(playlist, pos, IndexRecord::size); pos += IndexRecord::size)
        ids.append(be32At(playlist, pos));
    return ids;
}

} // namespace

QString Playlists::songsFileName(qint16 number)
{
    return fileName(number, "dat");
}

QString Playlists::pathsFileName(qint16 number)
{
    return fileName(number, "pts");
}

QByteArray Playlists::pathRecord(const QByteArray &path)
{
    QByteArray record(IndexRecord::size, '\0');
    putField(record, 0, PathRecord::pathWidth - 1, path);
    return record;
}

QList<qint16> Playlists::readNumbers(const IndexSet &set)
{
    QList<qint16> numbers;
    // A link there may lead to lists outside of the memory.
    if (leavesRoot(set.filePath(QStringLiteral("playlist")), set.root()))
        return numbers;
    const QByteArray list =
        readWholeFile(set.filePath(QStringLiteral("playlist/playlist.dat")), maxListSize).bytes;
    QSet<qint16> known;
    for (qsizetype pos = 0; fits(list, pos, numberRecordSize); pos += numberRecordSize) {
        // The low byte is signed: 0x85 0x00 is the number -123, and every version of the program
        // names the files of that playlist so.
        const auto number =
            static_cast<qint16>(byteAt(list, pos + 1) * 256 + signedByteAt(list, pos));
        if (!known.contains(number))
            numbers.append(number);
        known.insert(number);
    }
    return numbers;
}

bool Playlists::haveAllPathFiles(const IndexSet &set, const QList<qint16> &numbers)
{
    return std::all_of(numbers.cbegin(), numbers.cend(), [&set](qint16 number) {
        const FileState paths = fileState(set.filePath(pathsFileName(number)));
        const bool isEmpty = paths.size < IndexRecord::size;
        return paths.kind == FileKind::Regular &&
               (!isEmpty ||
                fileState(set.filePath(songsFileName(number))).size < IndexRecord::size);
    });
}

Playlists::Preparation Playlists::writePathFiles(IndexSet &set, const QList<qint16> &numbers,
                                                 const IndexReader &old)
{
    Preparation result = Preparation::Written;
    FileLot lot;
    lot.setMemory(set.root());
    for (const qint16 number : numbers) {
        const std::optional<QByteArray> playlist = readSongs(set, number);
        if (!playlist.has_value())
            result = Preparation::NoSongs;
        else if ((lot.isFull() && !lot.commitAll()) ||
                 !lot.write({set.filePath(pathsFileName(number))},
                            pathRecords(*playlist, old, readPaths(set, number))))
            return Preparation::Unwritable;
        set.pulse();
    }
    return lot.commitAll() ? result : Preparation::Unwritable;
}

quint32 Playlists::highestId(const IndexSet &set, const QList<qint16> &numbers)
{
    quint32 highest = 0;
    for (const qint16 number : numbers) {
        const std::optional<QByteArray> playlist = readSongs(set, number);
        if (!playlist.has_value())
            continue;
        for (const quint32 id : idsOf(*playlist))
            highest = id < highestLimit ? std::max(highest, id) : highest;
        set.pulse();
    }
    return highest;
}

QSet<QByteArray> Playlists::namedPaths(const IndexSet &set, const QList<qint16> &numbers,
                                       const IndexReader &old)
{
    QSet<QByteArray> paths;
    for (const qint16 number : numbers) {
        const std::optional<QByteArray> playlist = readSongs(set, number);
        if (!playlist.has_value())
            continue;
        for (const quint32 id : idsOf(*playlist)) {
            if (old.has(id))
                paths.insert(pathSortKey(pathFromBytes(old.pathOf(id))));
        }
        set.pulse();
    }
    return paths;
}

quint32 Playlists::firstFreeId(const IndexSet &set, const QList<qint16> &numbers,
                               PlaylistFollower &follower, qsizetype songs, quint32 oldHighest)
{
    bool isTaken = false;
    quint32 highest = 0;
    for (const qint16 number : numbers) {
        const std::optional<QByteArray> playlist = readSongs(set, number);
        if (!playlist.has_value()) {
            if (fileKind(set.filePath(songsFileName(number))) != FileKind::Missing) {
                isTaken = true;
                highest = std::max(highest, oldHighest);
            }
            continue;
        }
        const QList<quint32> dead = isWritable(set, number)
                                        ? follower.deadIds(*playlist, readPaths(set, number))
                                        : idsOf(*playlist);
        for (const quint32 id : dead) {
            isTaken = isTaken || id < static_cast<quint64>(songs);
            highest = id < highestLimit ? std::max(highest, id) : highest;
        }
        set.pulse();
    }
    return isTaken ? highest + 1 : 0;
}

QStringList Playlists::stage(IndexSet &set, const QList<qint16> &numbers,
                             PlaylistFollower &follower, PlaylistFollower::Way way)
{
    QStringList left;
    for (const qint16 number : numbers) {
        const QString name = songsFileName(number);
        const std::optional<QByteArray> playlist = readSongs(set, number);
        if (!playlist.has_value()) {
            if (fileKind(set.filePath(name)) != FileKind::Missing)
                left.append(name);
            continue;
        }
        const PlaylistFollower::Result result =
            follower.follow(*playlist, readPaths(set, number), way);
        if (result.songs != *playlist && !isWritable(set, number)) {
            left.append(name);
            continue;
        }
        if (way == PlaylistFollower::Way::Anew || result.songs != *playlist)
            set.stage(name, result.songs);
        if (!result.paths.isNull())
            set.stage(pathsFileName(number), result.paths);
    }
    return left;
}

} // namespace brisel
