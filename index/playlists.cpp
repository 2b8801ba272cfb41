#include "index/playlists.h"

#include "base/bytes.h"
#include "base/filereading.h"
#include "base/folderhandle.h"
#include "index/indexrecords.h"
#include "index/indexset.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace
{

constexpr int numberRecordSize = 32; ///< bytes; all but the first two are the player's own
constexpr qint64 maxListSize = 65536 * numberRecordSize;      ///< every 16-bit number once
constexpr qint64 maxPlaylistSize = 65535 * IndexRecord::size; ///< as many songs as an index

QString fileName(qint16 number, const char *suffix)
{
    return QString::asprintf("playlist/play%04u.%s",
                             static_cast<unsigned>(static_cast<int>(number)), suffix);
}

/// The path records of the song records \a playlist.
QByteArray pathRecords(const QByteArray &playlist, const QList<SongInfoIndex> &songs)
{
    QByteArray paths;
    SongRecord record;
    for (qsizetype pos = 0; SongRecord::read(playlist, pos, record); pos += IndexRecord::size) {
        SongInfoIndex wanted;
        wanted.id = record.id;
        QByteArray path(IndexRecord::size, '\0');
        const auto song = std::lower_bound(songs.cbegin(), songs.cend(), wanted, compareById);
        if (song != songs.cend() && song->id == record.id)
            putField(path, 0, PathRecord::pathWidth - 1, song->path.toLatin1());
        paths += path;
    }
    return paths;
}

/// Finds the song records of path records. Playlists name the same songs again and again.
class RecordFinder
{
public:
    explicit RecordFinder(const QList<SongInfoIndex> &songs) : m_songs(songs) {}

    /// The song records of the path records \a paths. A path that no song has gives none.
    QByteArray songRecords(const QByteArray &paths)
    {
        QByteArray playlist;
        playlist.reserve(paths.size());
        for (qsizetype pos = 0; fits(paths, pos, IndexRecord::size); pos += IndexRecord::size) {
            const char *const start = paths.constData() + pos;
            const auto size = static_cast<qsizetype>(qstrnlen(start, IndexRecord::size));
            if (size > 0)
                playlist += recordOf(QByteArray::fromRawData(start, size));
        }
        return playlist;
    }

private:
    /// \a path may point into a file: what is kept of it is a copy.
    QByteArray recordOf(const QByteArray &path)
    {
        const auto known = m_known.constFind(path);
        if (known != m_known.cend())
            return *known;
        m_table.enter(m_songs);
        const qsizetype found = m_table.findBytes(m_songs, path);
        QByteArray record = found < 0 ? QByteArray() : SongRecord(m_songs.at(found)).bytes();
        // A memory of strange playlists could name any number of paths.
        if (m_known.size() < SongInfoIndex::maxSongs)
            m_known.insert(QByteArray(path.constData(), path.size()), record);
        return record;
    }

    const QList<SongInfoIndex> &m_songs;
    PathTable m_table;
    QHash<QByteArray, QByteArray> m_known;
};

} // namespace

QString Playlists::songsFileName(qint16 number)
{
    return fileName(number, "dat");
}

QString Playlists::pathsFileName(qint16 number)
{
    return fileName(number, "pts");
}

QList<qint16> Playlists::readNumbers(const IndexSet &set)
{
    QByteArray list;
    QList<qint16> numbers;
    // A link there may lead to lists that are not the player's.
    if (leavesRoot(set.filePath(QStringLiteral("playlist")), set.root()))
        return numbers;
    if (readWholeFile(set.filePath(QStringLiteral("playlist/playlist.dat")), maxListSize, list) !=
        ReadResult::Done)
        return numbers;
    QSet<qint16> known;
    for (qsizetype pos = 0; fits(list, pos, numberRecordSize); pos += numberRecordSize) {
        // The low byte is signed: a playlist of 0x85 0x00 is number -123, and its files are named
        // so by every version of the program.
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
        return QFileInfo::exists(set.filePath(pathsFileName(number)));
    });
}

Playlists::Preparation Playlists::writePathFiles(IndexSet &set, const QList<qint16> &numbers,
                                                 const QList<SongInfoIndex> &songs)
{
    Preparation result = Preparation::Written;
    FileLot lot;
    lot.setMemory(set.root());
    for (const qint16 number : numbers) {
        QByteArray playlist;
        if (readWholeFile(set.filePath(songsFileName(number)), maxPlaylistSize, playlist) !=
            ReadResult::Done)
            result = Preparation::NoSongs;
        else if ((lot.isFull() && !lot.commitAll()) ||
                 !lot.write({set.filePath(pathsFileName(number))}, pathRecords(playlist, songs)))
            return Preparation::Unwritable;
        set.pulse();
    }
    return lot.commitAll() ? result : Preparation::Unwritable;
}

bool Playlists::stageSongsFiles(IndexSet &set, const QList<qint16> &numbers,
                                const QList<SongInfoIndex> &songs)
{
    RecordFinder finder(songs);
    bool complete = true;
    for (const qint16 number : numbers) {
        QByteArray paths;
        QByteArray old;
        const QString name = songsFileName(number);
        if (readWholeFile(set.filePath(pathsFileName(number)), maxPlaylistSize, paths) !=
                ReadResult::Done ||
            readWholeFile(set.filePath(name), maxPlaylistSize, old) != ReadResult::Done ||
            !QFileInfo(set.filePath(name)).isWritable()) {
            complete = false;
            continue;
        }
        // Rewritten from its start and not shortened: a playlist that loses songs keeps its old
        // last records, as players have always found it.
        const QByteArray playlist = finder.songRecords(paths);
        set.stage(name, playlist + old.mid(playlist.size()));
    }
    return complete;
}
