// makeseeds <folder>: writes the inputs with which every target starts, made by the project's own
// tools and writers.

#include "base/bytes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/memoryset.h"
#include "index/indexrecords.h"
#include "index/indexwriters.h"
#include "index/playlists.h"
#include "songfile/lzhuff.h"
#include "tests/midibytes.h"
#include "tests/songfile/tagmaker.h"
#include "tools/cataloguefile.h"
#include "tools/samplesongs.h"
#include "tools/syntheticcatalogue.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>

using namespace brisel;

namespace
{

QString outFolder;

/// Writes a seed, and one that stands for a large input whose tail repeats.
void writeSeed(const QString &target, const QString &name, const QByteArray &seed)
{
    constexpr qsizetype pieceSize = 48;
    const QString path = QStringLiteral("%1/%2/%3").arg(outFolder, target, name);
    putFile(path, seed);
    const qsizetype headSize = std::clamp<qsizetype>(seed.size() - pieceSize, 0, 4096);
    if (!seed.isEmpty())
        putFile(path + QStringLiteral(".large"),
                repeated(seed.left(headSize), seed.mid(headSize, pieceSize)));
}

/// A song, followed by a short script for the setters.
QByteArray scripted(const QByteArray &song)
{
    return song + "New title\x09" + "Somebody\x08" + "Polka\x05" + QByteArray(12, '\x01') +
           "\x03\x02\x01\x06\x05\x04\x07";
}

void writeSongSeeds()
{
    for (const SampleSongs::Sample &sample : SampleSongs::set()) {
        if (!sample.isSong)
            continue;
        const QByteArray song = sample.content.left(40000);
        writeSeed(QStringLiteral("metasong"), sample.fileName, song);
        writeSeed(QStringLiteral("metasong"), sample.fileName + QStringLiteral(".set"),
                  scripted(song));
        putFile(QStringLiteral("%1/songhead/%2").arg(outFolder, sample.fileName), song.left(3072));
        const QByteArray magic = song.left(4);
        if (magic == "MThd") {
            writeSeed(QStringLiteral("midifile"), sample.fileName, scripted(song));
            writeSeed(QStringLiteral("songtimeline"), sample.fileName, song);
        } else if (magic.startsWith("_ZB")) {
            writeSeed(QStringLiteral("zbxheader"), sample.fileName,
                      scripted(song.left(magic == "_ZB5" ? 1024 : 512)));
        } else {
            writeSeed(QStringLiteral("mp3header"), sample.fileName, scripted(song.left(2048)));
        }
    }
    // In a bar far behind the end the microseconds do not fit 64 bits.
    writeSeed(QStringLiteral("songtimeline"), QStringLiteral("longestbars"),
              MidiBytes::longestBars());
    // A tag of the maximum length.
    QByteArray longTag = QByteArray::fromHex("494433030000003D043F") + "TIT2" +
                         QByteArray::fromHex("00000005000000") + "Song";
    putFile(outFolder + QStringLiteral("/metasong/longtag.mp3"), repeated(longTag, "TPE1"));
    putFile(outFolder + QStringLiteral("/mp3header/longtag.mp3"), repeated(longTag, "TPE1"));
}

/// Tags of every version and form, with a script after the audio.
void writeTagSeeds()
{
    constexpr int tags = 60;
    TagMaker maker(1);
    for (int i = 0; i < tags; ++i) {
        const QByteArray song = maker.song(QByteArray("\xFF\xFB\x90\x44").repeated(10));
        const QString name = QStringLiteral("tag%1.mp3").arg(i);
        putFile(outFolder + QStringLiteral("/mp3header/") + name, scripted(song));
        putFile(outFolder + QStringLiteral("/metasong/") + name, scripted(song));
        putFile(outFolder + QStringLiteral("/songhead/") + name, song);
    }
}

void writeCodecSeeds()
{
    QByteArray ascending;
    for (int i = 0; i < 3000; ++i)
        ascending += 'a' + QByteArray::number(100000 + i);
    QByteArray noise;
    for (quint32 state = 1; noise.size() < 5000; state = state * 1664525 + 1013904223)
        noise += static_cast<char>(state >> 24);
    const QList<QByteArray> texts{
        "a",   "abcabcabcabcabcabcabcabcabcabcabcabcabc", QByteArray(10000, ' '), ascending,
        noise, SampleSongs::set().first().content};
    for (qsizetype i = 0; i < texts.size(); ++i) {
        QByteArray packed;
        LzHuff().compress(texts.at(i), packed);
        writeSeed(QStringLiteral("lzhuffroundtrip"), QString::number(i), texts.at(i));
        putFile(QStringLiteral("%1/lzhuffexpand/%2").arg(outFolder).arg(i), packed);
    }
    putFile(outFolder + QStringLiteral("/lzhuffexpand/longest"),
            QByteArray::fromHex("20A10700") + noise);
}

void writeIndexSeeds()
{
    const QList<SongInfoIndex> songs = sampleIndexSongs();
    const QByteArray paths = IndexWriters::pathFile(songs);
    const SongOrder byTitle = SongOrders::byTitle(songs);
    const QByteArray records = IndexWriters::songRecords(songs);
    const QByteArray titles = IndexWriters::titleFile(songs, records, byTitle).content;
    const auto groups = [&](QString SongInfoIndex::*group) {
        return IndexWriters::groupFile(songs, records, SongOrders::byGroup(songs, byTitle, group),
                                       group)
            .content;
    };
    const QByteArray artists = groups(&SongInfoIndex::artist);
    const QByteArray genres = groups(&SongInfoIndex::genre);
    writeSeed(QStringLiteral("indexreader"), QStringLiteral("set"),
              joinedPieces(0, paths) + joinedPieces(1, titles) + joinedPieces(2, artists) +
                  joinedPieces(3, genres));
    putFile(outFolder + QStringLiteral("/indexreader/many.large"),
            repeated({}, joinedPieces(0, paths.left(64)) + joinedPieces(1, titles.left(64)) +
                             joinedPieces(2, artists.left(128)) +
                             joinedPieces(3, genres.left(128))));

    QByteArray numbers(96, '\0');
    putByte(numbers, 0, 1);
    putByte(numbers, 32, 2);
    putByte(numbers, 64, 0x85);
    const QList<SongInfoIndex> listed = sampleIndexSongs(7);
    const QByteArray playlist = IndexWriters::titleFile(listed, IndexWriters::songRecords(listed),
                                                        SongOrders::byTitle(listed))
                                    .content;
    QByteArray pathFile;
    for (const SongInfoIndex &song : songs)
        pathFile += song.path.toLatin1().leftJustified(64, '\0');
    const QByteArray lists = joinedPieces(0, numbers) + joinedPieces(1, playlist) +
                             joinedPieces(2, playlist.mid(64)) + joinedPieces(3, playlist.left(90));
    writeSeed(QStringLiteral("playlists"), QStringLiteral("byids"),
              lists + joinedPieces(6, "\x01"));
    writeSeed(QStringLiteral("playlists"), QStringLiteral("bypaths"),
              lists + joinedPieces(4, pathFile) + joinedPieces(5, pathFile.mid(64)));
    QByteArray all;
    for (int number = 0; number < 65536; number += 5) {
        QByteArray record(32, '\0');
        putLe16(record, 0, static_cast<quint16>(number));
        all += record;
    }
    putFile(outFolder + QStringLiteral("/playlists/many"),
            joinedPieces(0, all) + joinedPieces(6, "\x01"));
    // A dead entry, half an entry, and edits of each kind.
    writeSeed(QStringLiteral("memoryplaylists"), QStringLiteral("edits"),
              joinedPieces(2, numbers) + joinedPieces(3, playlist.left(192)) +
                  joinedPieces(4, playlist.mid(64, 90)) + joinedPieces(5, pathFile.left(192)) +
                  joinedPieces(7, QByteArray::fromHex("00010203000102030100000101030201")));
    putFile(outFolder + QStringLiteral("/memoryplaylists/many"),
            joinedPieces(2, all) + joinedPieces(7, "\x01\x02\x03\x04"));
}

/// A whole set for the songs of the memory, with a playlist of all of them; then sets that repeat
/// one record.
void writeMemorySeeds()
{
    const QList<SongInfoIndex> songs = sampleIndexSongs();
    const QList<QByteArray> files = sampleSetFiles(songs);
    const QByteArray &paths = files.at(0);
    const QByteArray &titles = files.at(2);
    const auto joined = [](const QList<QByteArray> &contents) {
        QByteArray pieces;
        for (qsizetype i = 0; i < contents.size(); ++i)
            pieces += joinedPieces(static_cast<int>(i), contents.at(i));
        return pieces;
    };
    const QByteArray set = joined(files);
    const QByteArray list = joinedPieces(15, QByteArray("\x01").leftJustified(32, '\0'));
    const QByteArray playlist = list + joinedPieces(16, titles);
    QByteArray pathFile;
    for (const SongInfoIndex &song : songs)
        pathFile += pathBytes(song.path).leftJustified(64, '\0');
    const auto write = [](const QString &name, const QByteArray &seed) {
        writeSeed(QStringLiteral("memorycheck"), name, seed);
    };
    write(QStringLiteral("set"), set);
    write(QStringLiteral("playlist"), set + playlist + joinedPieces(17, pathFile));
    for (int i = 0; i < static_cast<int>(files.size()); ++i) {
        QList<QByteArray> damaged = files;
        damaged[i].clear();
        write(QStringLiteral("emptied%1").arg(i), joined(damaged) + playlist);
        damaged[i] = files.at(i).chopped(files.at(i).size() / 3);
        write(QStringLiteral("cut%1").arg(i), joined(damaged) + playlist);
        write(QStringLiteral("missing%1").arg(i),
              set + playlist + joinedPieces(18, QByteArray(1, static_cast<char>(2 * i))));
        write(QStringLiteral("folder%1").arg(i),
              set + playlist + joinedPieces(18, QByteArray(1, static_cast<char>(2 * i + 1))));
    }
    for (const int repeatedPart : {0, 1, 2, 3, 16}) {
        const QByteArray piece = repeatedPart == 0 ? paths.left(64) : titles.left(64);
        putFile(QStringLiteral("%1/memorycheck/many%2.large").arg(outFolder).arg(repeatedPart),
                repeated(set + list, joinedPieces(repeatedPart, piece)));
    }
}

void writeSwapSeeds()
{
    QByteArray mark = "brisel2pc swap 1\n#3 8 playlist/play0001.dat\n";
    for (const QString &name : IndexSet::names()) {
        if (name == QStringLiteral("fsinfos.id2"))
            mark += "#1 12 ";
        else
            mark += name == QStringLiteral("title.id2") ? "#2 5 " : "#9 0 ";
        mark += name.toLatin1() + '\n';
    }
    const QByteArray files =
        joinedPieces(1, "twelve bytes") + joinedPieces(2, "title") + joinedPieces(3, "playlist");
    writeSeed(QStringLiteral("swapmark"), QStringLiteral("whole"), files + joinedPieces(0, mark));
    writeSeed(QStringLiteral("swapmark"), QStringLiteral("noend"),
              files + joinedPieces(0, mark) + joinedPieces(4, "\x01"));
    writeSeed(QStringLiteral("swapmark"), QStringLiteral("oldiswhole"),
              files + joinedPieces(0, mark) + joinedPieces(4, "\x02"));
    writeSeed(QStringLiteral("swapmark"), QStringLiteral("escape"),
              files + joinedPieces(0, mark + "#3 8 ../outside\n#3 8 playlist/play0001.pts\n"));
    putFile(outFolder + QStringLiteral("/swapmark/repeats"),
            repeated(joinedPieces(1, "twelve bytes") + joinedPieces(2, QByteArray(4096, 't')) +
                         joinedPieces(0, mark.replace("#2 5", "#2 4096")),
                     joinedPieces(0, "#2 4096 title.id2\n")));
}

void writeNameSeeds()
{
    const QString target = QStringLiteral("givennames");
    const QByteArray head = "brisel2pc names 1\n";
    const QByteArray line = "# / Long%20name.mid Longna-1.mid\n";
    writeSeed(target, QStringLiteral("one"), head + line);
    writeSeed(target, QStringLiteral("folder"), head + "# /POP Long%20name.mid Longna-1.mid\n");
    writeSeed(target, QStringLiteral("moved"), head + "# /ROCK Long%20name.mid Longna-1.mid\n");
    writeSeed(target, QStringLiteral("damaged"), head + "00000000" + line.mid(1) + line.chopped(3));
    writeSeed(target, QStringLiteral("escape"),
              head + "# /.. Long%20name.mid Longna-1.mid\n# / Long%20name.mid ../outside.mid\n" +
                  "# /POP Long%20name.mid index.id2\n");
    writeSeed(target, QStringLiteral("chosen"),
              head + line + "# / Longna-1.mid VOLARE.mid\n# / VOLARE.mid Longna-1.mid\n" +
                  "# /POP Long%20name.mid Chosen.mid\n# /POP Chosen.mid Longna-1.mid\n");
    writeSeed(target, QStringLiteral("circle"),
              head + "# / Long%20name.mid A.mid\n# / A.mid B.mid\n# / B.mid A.mid\n");
    writeSeed(target, QStringLiteral("others"),
              head + "# / Long%20night.mid Longna-1.mid\n" + line);
}

bool writeCatalogueSeeds()
{
    for (const int rows : {1, 20}) {
        const QString path = QStringLiteral("%1/catalogue/rows%2").arg(outFolder).arg(rows);
        QString error;
        if (!QDir().mkpath(QFileInfo(path).path()) ||
            !writeCatalogue(path, syntheticCatalogue(rows), error))
            return false;
        // The same file in the mode with a write-ahead log in a second file.
        QByteArray catalogue = fileBytes(path);
        putByte(catalogue, 18, 2);
        putByte(catalogue, 19, 2);
        putFile(path + QStringLiteral("wal"), catalogue);
    }
    putFile(outFolder + QStringLiteral("/catalogue/empty"), {});
    return true;
}

void writeMarkerSeeds()
{
    const QList<QByteArray> texts{"1;Intro;5;Strofa;21;Ritornello;", "0;Caf\xC3\xA8", "-1;a;x;b;3",
                                  ";;;2147483648;a;2147483647;b;", "1;a;"};
    for (qsizetype i = 0; i < texts.size(); ++i)
        writeSeed(QStringLiteral("markers"), QString::number(i), texts.at(i));
    for (const SampleSongs::Tune &tune : SampleSongs::tunes().mid(0, 3)) {
        QByteArray list;
        for (const Marker &marker : SampleSongs::markers(tune, 3))
            list += QByteArray::number(marker.bar) + ';' + marker.text.toUtf8() + ';';
        writeSeed(QStringLiteral("markers"), tune.title, list);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "Usage: makeseeds <folder>\n");
        return 2;
    }
    silenceLog();
    outFolder = QDir(QCoreApplication::arguments().at(1)).absolutePath();
    REQUIRE(!QFileInfo::exists(outFolder) || QDir(outFolder).removeRecursively());
    writeSongSeeds();
    writeTagSeeds();
    writeCodecSeeds();
    writeIndexSeeds();
    writeMemorySeeds();
    writeSwapSeeds();
    writeNameSeeds();
    writeMarkerSeeds();
    return writeCatalogueSeeds() ? 0 : 1;
}
