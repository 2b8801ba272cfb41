#include "index/indexreader.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "index/index.h"
#include "index/indexrecords.h"
#include "tests/scriptedindex.h"

#include <QDir>

namespace brisel
{

namespace
{

const QStringList contents{QStringLiteral("index.id2"), QStringLiteral("title.id2"),
                           QStringLiteral("artist.id2"), QStringLiteral("genre.id2")};

/// Makes all files of a set; those that are not read are empty.
void makeIndex(const QString &root, const QByteArray &input)
{
    static bool isMade = false;
    for (const QString &name : IndexSet::names()) {
        if (!isMade)
            putFile(root + u'/' + name, {});
    }
    isMade = true;
    const QList<QByteArray> files = splitInput(input, static_cast<int>(contents.size()));
    for (qsizetype i = 0; i < files.size(); ++i)
        putFile(root + u'/' + contents.at(i), files.at(i));
}

void checkSongs(const QList<SongInfoIndex> &songs, const QByteArray &pathFile)
{
    // Records without a valid id are left out.
    REQUIRE(songs.size() * IndexRecord::size <= pathFile.size());
    for (qsizetype i = 0; i < songs.size(); ++i) {
        const SongInfoIndex &song = songs.at(i);
        REQUIRE(song.id != SongInfoIndex::deletedId);
        REQUIRE(i == 0 || songs.at(i - 1).id < song.id);
        REQUIRE(song.posidx == i);
        REQUIRE(song.type <= 7 && song.flag <= 1);
        REQUIRE(song.path.size() <= SongInfoIndex::maxPath + 1);
        REQUIRE(song.absolutePath.endsWith(song.path));
        // The song can be written to records again.
        REQUIRE(PathRecord(song).bytes().size() == IndexRecord::size);
        REQUIRE(SongRecord(song).bytes().size() == IndexRecord::size);
    }
}

} // namespace

void checkIndexReader(const QByteArray &input)
{
    const QString root = scratchFolder() + QStringLiteral("/memory");
    const QString list = scratchFolder() + QStringLiteral("/list.csv");
    makeIndex(root, input);
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(root);
    QList<SongInfoIndex> songs;
    IndexReader reader;
    REQUIRE(reader.read(set, root, songs));
    const bool areWhole = reader.hasAllTexts();
    reader.readTexts(songs);
    checkSongs(songs, fileBytes(root + QStringLiteral("/index.id2")));

    QFile::remove(list);
    ScriptedIndex index;
    const auto mode = static_cast<SORT_MODE>(input.size() % 3);
    REQUIRE(index.saveSongsList(root, list, mode) == (areWhole ? 1 : 0));
    // A line break in a title adds a line.
    REQUIRE(!areWhole || fileBytes(list).count('\n') > songs.size());
}

} // namespace brisel
