#include "fuzz/memoryset.h"

#include "fuzz/fuzzing.h"
#include "index/indexwriters.h"
#include "tests/smallsongs.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace brisel
{

QList<SongInfoIndex> sampleIndexSongs(quint32 firstId)
{
    QList<SongInfoIndex> songs;
    for (const char *name : {"/AMAPOLA.MID", "/ROCK/BLUE.MP3", "/ROCK/GREEN.ZB4", "/Zeta.kar",
                             "/CAF\xC9.MID", "/CIELITO.ZB5"}) {
        SongInfoIndex song;
        song.setPath(QString::fromLatin1(name));
        song.title = song.path.mid(1).toUpper();
        song.artist = songs.size() % 2 == 0 ? QStringLiteral("ABBEY") : QStringLiteral("ZORN");
        song.genre = QStringLiteral("POP");
        song.id = firstId + static_cast<quint32>(songs.size());
        song.posidx = static_cast<quint16>(songs.size());
        song.bpm = 120;
        song.date = 20240229;
        song.time = 235959;
        songs.append(song);
    }
    return songs;
}

QList<QByteArray> sampleSetFiles(const QList<SongInfoIndex> &songs)
{
    const SongOrder byTitle = SongOrders::byTitle(songs);
    const QByteArray records = IndexWriters::songRecords(songs);
    const auto groups = [&](QString SongInfoIndex::*group) {
        return IndexWriters::groupFile(songs, records, SongOrders::byGroup(songs, byTitle, group),
                                       group);
    };
    const IndexWriters::ListFile titles = IndexWriters::titleFile(songs, records, byTitle);
    const IndexWriters::ListFile artists = groups(&SongInfoIndex::artist);
    const IndexWriters::ListFile genres = groups(&SongInfoIndex::genre);
    const QByteArray noTable = AlphabetTable().bytes();
    return {IndexWriters::pathFile(songs),
            IndexWriters::orderFile(songs, SongOrders::byPath(songs)),
            titles.content,
            artists.content,
            genres.content,
            titles.alphabet.bytes(),
            artists.alphabet.bytes(),
            genres.alphabet.bytes(),
            {},
            {},
            {},
            noTable,
            noTable,
            noTable,
            IndexWriters::countFile({static_cast<quint16>(titles.count),
                                     static_cast<quint16>(artists.count),
                                     static_cast<quint16>(genres.count), 0, 0, 0})};
}

bool commitEmptySet(IndexSet &set)
{
    const QStringList &names = IndexSet::names();
    const bool done = std::all_of(names.cbegin(), names.cend(),
                                  [&set](const QString &name) { return set.stage(name, {}); }) &&
                      set.commit();
    set.discard();
    return done;
}

void makeSampleMemory(const QString &root)
{
    const QDateTime moment(QDate(2024, 2, 29), QTime(23, 59, 59));
    REQUIRE(!QFileInfo::exists(root) || QDir(root).removeRecursively());
    for (const SongInfoIndex &song : sampleIndexSongs()) {
        const QByteArray title = song.path.mid(1, 3).toLatin1();
        QByteArray content = smallMidi(title);
        if (song.path.endsWith(QStringLiteral(".MP3")))
            content = "ID3\3" + QByteArray(6, '\0') + "TIT2" + QByteArray(3, '\0') + '\4' +
                      QByteArray(3, '\0') + title;
        else if (song.path.contains(QStringLiteral(".ZB")))
            content = "_ZB" + song.path.right(1).toLatin1() + QByteArray(134, '\0') +
                      title.leftJustified(200, '\0');
        putFile(root + song.path, content);
        QFile file(root + song.path);
        REQUIRE(file.open(QIODevice::ReadWrite) &&
                file.setFileTime(moment, QFileDevice::FileModificationTime));
    }
}

} // namespace brisel
