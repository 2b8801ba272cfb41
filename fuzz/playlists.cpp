#include "index/playlists.h"
#include "base/bytes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/memoryset.h"
#include "fuzz/targets.h"
#include "index/indexrecords.h"

#include <QDir>
#include <QSet>

#include <algorithm>

namespace
{

enum Part { List, FirstSongs, SecondSongs, NegativeSongs, FirstPaths, SecondPaths, Flags, Parts };

const QList<qint16> numbers{1, 2, -123};

/// A memory with no more than these files.
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

/// What a playlist must hold after its songs got other ids.
QByteArray renumbered(const QByteArray &playlist, const QList<SongInfoIndex> &oldSongs,
                      const QList<SongInfoIndex> &newSongs)
{
    QByteArray expected;
    for (qsizetype pos = 0; fits(playlist, pos, IndexRecord::size); pos += IndexRecord::size) {
        const SongInfoIndex *song = songOf(playlist, pos, oldSongs);
        if (song != nullptr)
            expected += SongRecord(newSongs.at(song - oldSongs.data())).bytes();
    }
    return expected + playlist.mid(expected.size());
}

/// What a path file that anyone may have written turns into: records of known songs, then what was
/// there before.
bool isFromSongs(const QByteArray &playlist, const QByteArray &old,
                 const QList<SongInfoIndex> &songs)
{
    qsizetype pos = 0;
    while (const SongInfoIndex *song =
               fits(playlist, pos, IndexRecord::size) ? songOf(playlist, pos, songs) : nullptr) {
        if (playlist.mid(pos, IndexRecord::size) != SongRecord(*song).bytes())
            break;
        pos += IndexRecord::size;
    }
    return playlist.mid(pos) == old.mid(pos);
}

bool swapSet(IndexSet &set, const QList<qint16> &listed, const QList<SongInfoIndex> &songs)
{
    REQUIRE(set.beginStaging());
    const bool complete = Playlists::stageSongsFiles(set, listed, songs);
    REQUIRE(commitEmptySet(set));
    return complete;
}

} // namespace

void checkPlaylists(const QByteArray &input)
{
    const QString root = scratchFolder() + QStringLiteral("/memory");
    const QList<QByteArray> parts = splitInput(input, Parts);
    makePlaylists(root, parts);
    IndexSet set;
    set.setRoot(root);
    const QList<SongInfoIndex> oldSongs = sampleIndexSongs(7);
    const QList<SongInfoIndex> newSongs = sampleIndexSongs(4000000000);

    const QList<qint16> listed = Playlists::readNumbers(set);
    REQUIRE(listed.size() <= parts.at(List).size() / 32);
    REQUIRE(QSet<qint16>(listed.begin(), listed.end()).size() == listed.size());
    const bool useOldPaths = byteAt(parts.at(Flags), 0) % 2 == 0;
    const bool hadAllPaths = Playlists::haveAllPathFiles(set, listed);
    REQUIRE(!hadAllPaths || listed.size() <= numbers.size());
    if (!useOldPaths) {
        const Playlists::Preparation done = Playlists::writePathFiles(set, listed, oldSongs);
        const bool allThere = std::all_of(listed.begin(), listed.end(),
                                          [](qint16 number) { return numbers.contains(number); });
        REQUIRE(done ==
                (allThere ? Playlists::Preparation::Written : Playlists::Preparation::NoSongs));
    }
    swapSet(set, listed, newSongs);
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const qint16 number = numbers.at(i);
        const QByteArray old = parts.at(FirstSongs + i);
        const QByteArray playlist = fileBytes(root + u'/' + Playlists::songsFileName(number));
        if (!listed.contains(number))
            REQUIRE(playlist == old);
        else if (useOldPaths)
            REQUIRE(isFromSongs(playlist, old, newSongs));
        else
            REQUIRE(playlist == renumbered(old, oldSongs, newSongs));
    }
    REQUIRE(!QFileInfo::exists(root + QStringLiteral("/.brisel2pc")));
}
