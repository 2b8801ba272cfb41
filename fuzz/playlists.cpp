#include "index/playlists.h"
#include "base/bytes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/memoryset.h"
#include "fuzz/targets.h"
#include "index/indexreader.h"
#include "index/indexrecords.h"

#include <QDir>
#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

enum Part { List, FirstSongs, SecondSongs, NegativeSongs, FirstPaths, SecondPaths, Flags, Parts };

const QList<qint16> numbers{1, 2, -123};

/// Makes a memory with only these files.
void makePlaylists(const QString &root, const QList<QByteArray> &parts)
{
    REQUIRE(!QFileInfo::exists(root) || QDir(root).removeRecursively());
    putFile(root + QStringLiteral("/playlist/playlist.dat"), parts.at(List));
    for (qsizetype i = 0; i < numbers.size(); ++i)
        putFile(root + u'/' + Playlists::songsFileName(numbers.at(i)), parts.at(FirstSongs + i));
    for (const Part paths : {FirstPaths, SecondPaths}) {
        if (!parts.at(paths).isEmpty())
            putFile(root + u'/' + Playlists::pathsFileName(numbers.at(paths - FirstPaths)),
                    parts.at(paths));
    }
}

const SongInfoIndex *songOf(const QByteArray &playlist, qsizetype pos,
                            const QList<SongInfoIndex> &songs)
{
    const quint32 id = be32At(playlist, pos);
    const auto song = std::find_if(songs.begin(), songs.end(),
                                   [id](const SongInfoIndex &known) { return known.id == id; });
    return song == songs.end() ? nullptr : &*song;
}

/// True if each entry is a copy of a record of the old set, as the player makes them.
bool isCopied(const QByteArray &playlist, const QList<SongInfoIndex> &songs)
{
    for (qsizetype pos = 0; fits(playlist, pos, IndexRecord::size); pos += IndexRecord::size) {
        const SongInfoIndex *song = songOf(playlist, pos, songs);
        if (song == nullptr || SongRecord(*song).bytes() != playlist.mid(pos, IndexRecord::size))
            return false;
    }
    return true;
}

/// The content of such a playlist after its songs got other ids.
QByteArray renumbered(const QByteArray &playlist, const QList<SongInfoIndex> &oldSongs,
                      const QList<SongInfoIndex> &newSongs)
{
    QByteArray expected;
    for (qsizetype pos = 0; fits(playlist, pos, IndexRecord::size); pos += IndexRecord::size)
        expected +=
            SongRecord(newSongs.at(songOf(playlist, pos, oldSongs) - oldSongs.data())).bytes();
    return expected + playlist.mid(expected.size());
}

/// True if \a playlist, made from any playlists and path files, has only records of known songs and
/// of \a old.
bool isFromSongs(const QByteArray &playlist, const QByteArray &old,
                 const QList<SongInfoIndex> &songs)
{
    qsizetype pos = 0;
    for (; fits(playlist, pos, IndexRecord::size); pos += IndexRecord::size) {
        const QByteArray record = playlist.mid(pos, IndexRecord::size);
        const SongInfoIndex *song = songOf(playlist, pos, songs);
        if (record != old.mid(pos, IndexRecord::size) &&
            (song == nullptr || record != SongRecord(*song).bytes()))
            return false;
    }
    return playlist.mid(pos) == old.mid(pos);
}

/// Writes and reads the set of \a songs.
IndexReader readSet(const IndexSet &set, QList<SongInfoIndex> songs)
{
    const QList<QByteArray> files = sampleSetFiles(songs);
    for (qsizetype i = 0; i < files.size(); ++i)
        putFile(set.filePath(IndexSet::names().at(i)), files.at(i));
    IndexReader reader;
    REQUIRE(reader.read(set, set.root(), songs) && reader.isSound());
    return reader;
}

void swapSet(IndexSet &set, const QList<qint16> &listed, const IndexReader &old,
             const QList<SongInfoIndex> &songs, PlaylistFollower::Way way)
{
    PlaylistFollower follower(old, songs, [](const QString &path) { return path; });
    REQUIRE(set.beginStaging());
    (void)Playlists::stage(set, listed, follower, way);
    REQUIRE(commitEmptySet(set));
}

} // namespace

void checkPlaylists(const QByteArray &input)
{
    const QString root = scratchFolder() + QStringLiteral("/memory");
    const QList<QByteArray> parts = splitInput(input, Parts);
    makePlaylists(root, parts);
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(root);
    const QList<SongInfoIndex> oldSongs = sampleIndexSongs(7);
    const QList<SongInfoIndex> newSongs = sampleIndexSongs(4000000000);

    const QList<qint16> listed = Playlists::readNumbers(set);
    REQUIRE(listed.size() <= parts.at(List).size() / 32);
    REQUIRE(QSet<qint16>(listed.begin(), listed.end()).size() == listed.size());
    const bool useOldPaths = byteAt(parts.at(Flags), 0) % 2 == 0;
    const bool hadAllPaths = Playlists::haveAllPathFiles(set, listed);
    REQUIRE(!hadAllPaths || listed.size() <= numbers.size());
    const IndexReader old = readSet(set, oldSongs);
    if (!useOldPaths) {
        const Playlists::Preparation done = Playlists::writePathFiles(set, listed, old);
        const bool allThere = std::all_of(listed.begin(), listed.end(),
                                          [](qint16 number) { return numbers.contains(number); });
        REQUIRE(done ==
                (allThere ? Playlists::Preparation::Written : Playlists::Preparation::NoSongs));
    }
    const bool isAnew = byteAt(parts.at(Flags), 0) / 2 % 2 == 0;
    swapSet(set, listed, old, newSongs,
            isAnew ? PlaylistFollower::Way::Anew : PlaylistFollower::Way::InPlace);
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const qint16 number = numbers.at(i);
        const QByteArray before = parts.at(FirstSongs + i);
        const QByteArray playlist = fileBytes(root + u'/' + Playlists::songsFileName(number));
        if (!listed.contains(number))
            REQUIRE(playlist == before);
        else if (isCopied(before, oldSongs))
            REQUIRE(playlist == renumbered(before, oldSongs, newSongs));
        else
            REQUIRE(isFromSongs(playlist, before, newSongs));
    }
    REQUIRE(!QFileInfo::exists(root + QStringLiteral("/.brisel2pc")));
}

} // namespace brisel
