#include "songfile/lzhuff.h"
#include "songfile/metasong.h"
#include "tests/testprogram.h"
#include "tools/cataloguecsv.h"
#include "tools/samplesongs.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <utility>

using namespace brisel;

using namespace SampleSongs;

class TestSampleSongs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void melodiesFillTheirBars();
    void singsASyllableForEachNote();
    void writesTheHeadOfAFormat0File();
    void countsTracksOfFormat1();
    void marksTheFirstTrackOfZb4();
    void fillsTheHeaderOfZb5();
    void audioIsARowOfWholeFrames_data();
    void audioIsARowOfWholeFrames();
    void writesPlainOrSynchsafeFrameSizes();
    void graphicsAreWholePackets();
    void importsWithTheExpectedRecord_data();
    void importsWithTheExpectedRecord();
    void hasEveryKindOfSong();
    void namesRowsOfTheCatalogue();
    void midicsvAcceptsEveryMidi();
    void midicsvFindsBothFormatsAlike();
    void id3v2ReadsTheTags();
    void writesManyDistinctSongs();
    void refusesAMissingFolder();

private:
    QStringList m_paths;
};

namespace
{

MidiOptions optionsFor(const Tune &tune, int format)
{
    MidiOptions options;
    options.tune = tune;
    options.format = format;
    options.info.title = tune.title;
    options.info.key = tune.key;
    options.info.markers = markers(tune, options.verses);
    return options;
}

/// The output of a tool that reads a song; a null array if it reports an error.
QByteArray readBy(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0 ||
        process.exitStatus() != QProcess::NormalExit)
        return {};
    return process.readAllStandardError().isEmpty() ? process.readAllStandardOutput()
                                                    : QByteArray();
}

QStringList noteLines(const QByteArray &csv)
{
    QStringList notes;
    const QStringList lines = QString::fromLatin1(csv).split(u'\n');
    for (const QString &line : lines) {
        if (line.contains(u"Note_o"))
            notes.append(line.section(u',', 1)); // without the track
    }
    notes.sort();
    return notes;
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

void TestSampleSongs::initTestCase()
{
    QVERIFY(QDir().mkpath(u"set"_qs));
    QVERIFY(writeSet(u"set"_qs, &m_paths));
}

void TestSampleSongs::melodiesFillTheirBars()
{
    for (const Tune &each : tunes()) {
        int length = 0;
        for (const Note &note : each.melody) {
            QVERIFY(note.length > 0);
            QVERIFY(note.pitch == 0 || (note.pitch >= 48 && note.pitch <= 84));
            length += note.length;
        }
        QVERIFY2(length == each.bars() * each.barLength(), qPrintable(each.title));
    }
    // Two notes checked by hand: the player's middle C is 60.
    QCOMPARE(tune(u"STILLNAC"_qs).melody.at(0).pitch, 67);
    QCOMPARE(tune(u"ODEFREUD"_qs).melody.at(0).pitch, 66);
    QCOMPARE(tune(u"FRAMARTI"_qs).melody.at(7).pitch, 65);
}

void TestSampleSongs::singsASyllableForEachNote()
{
    const Tune &martin = tune(u"FRAMARTI"_qs);
    QCOMPARE(martin.lyrics.size(), martin.melody.size());
    MidiOptions options = optionsFor(martin, 1);
    QVERIFY(!midi(options).contains("@KMIDI KARAOKE FILE"));
    options.karaoke = true;
    const QByteArray song = midi(options);
    QVERIFY(song.contains(QByteArray("\x00\xFF\x01\x13@KMIDI KARAOKE FILE", 23)));
    QVERIFY(song.contains(QByteArray("\xFF\x01\x05\\Fra ", 8)));
}

void TestSampleSongs::writesTheHeadOfAFormat0File()
{
    Tune tiny;
    tiny.chords = QStringList{u"C"_qs};
    tiny.melody = QList<Note>{{60, 16}};
    MidiOptions options;
    options.format = 0;
    options.tune = tiny;
    options.bpm = 120;
    options.info.title = u"AB"_qs;
    options.info.genre = u"G"_qs;
    options.info.length = 185;
    options.info.key = u"Bb"_qs;
    options.info.isKordia = true;
    options.info.markers = QList<Marker>{{u"In"_qs, 257}};
    const QByteArray song = midi(options);
    QCOMPARE(song.left(18), QByteArray("MThd\0\0\0\6\0\0\0\1\0\x60MTrk", 18));
    const char bytes[] = "\0\xFF\x03\2AB"
                         "\0\xFF\x02\x0A(C) Kordia"
                         "\0\xFF\x4B\2\1G"
                         "\0\xFF\x4B\4\4"
                         "185"
                         "\0\xFF\x4B\5\6\1\1In"
                         "\0\xFF\x51\3\x07\xA1\x20"
                         "\0\xFF\x58\4\4\2\x18\x08"
                         "\0\xFF\x59\2\xFE\0";
    const QByteArray head(bytes, sizeof bytes - 1);
    QCOMPARE(song.mid(22, head.size()), head);
}

void TestSampleSongs::countsTracksOfFormat1()
{
    MidiOptions options = optionsFor(tunes().first(), 1);
    QCOMPARE(midi(options).mid(8, 4), QByteArray("\0\1\0\5", 4));
    QCOMPARE(midi(options).count("MTrk"), 5);
    options.karaoke = true;
    QCOMPARE(midi(options).mid(8, 4), QByteArray("\0\1\0\6", 4));
}

void TestSampleSongs::marksTheFirstTrackOfZb4()
{
    const QByteArray song = midi(optionsFor(tune(u"LONDOBRI"_qs), 1));
    QByteArray unpacked;
    const QByteArray packed = container(SongInfo::Zb4, SongInfo(), song);
    QVERIFY(LzHuff().expand(packed.mid(512), unpacked));
    QCOMPARE(unpacked.mid(14, 8), song.mid(14, 8)); // the track's length does not include the mark
    QCOMPARE(unpacked.mid(22, 3), QByteArray("\xFF\x00\xFF", 3));
    QCOMPARE(unpacked.mid(25), song.mid(22));
    const auto size = static_cast<quint32>(song.size() + 3);
    QCOMPARE(qFromLittleEndian<quint32>(packed.constData() + 12), size);
}

void TestSampleSongs::fillsTheHeaderOfZb5()
{
    SongInfo info;
    info.title = u"T"_qs;
    info.artist = u"ARTIST"_qs;
    info.author = u"AUTHOR"_qs;
    info.genre = u"GENRE"_qs;
    info.userBpm = 300;
    info.zbxLongName = u"LONGNAME.ZB5XX"_qs;
    info.zbxFlags = 1;
    const QByteArray song = container(SongInfo::Zb5, info, "MThd");
    QCOMPARE(song.left(4), QByteArray("_ZB5"));
    QCOMPARE(qFromLittleEndian<quint32>(song.constData() + 4), quint32(song.size()));
    QCOMPARE(song.mid(38, 2), QByteArray("\x2C\x01"));
    QCOMPARE(song.mid(42, 14), QByteArray("LONGNAME.ZB5X\0", 14)); // 13 characters are kept
    QCOMPARE(song.mid(90, 11), QByteArray("(C) Kordia\0", 11));
    QCOMPARE(song.mid(122, 2), QByteArray("T\0", 2));
    QCOMPARE(song.mid(154, 7), QByteArray("Kordia\0", 7));
    QCOMPARE(song.at(185), char(1));
    QCOMPARE(song.mid(186, 7), QByteArray("AUTHOR\0", 7));
    QCOMPARE(song.mid(218, 7), QByteArray("ARTIST\0", 7));
    QCOMPARE(song.mid(250, 6), QByteArray("GENRE\0", 6));
    QCOMPARE(song.mid(282, 742), QByteArray(742, '\0'));
    QByteArray unpacked;
    QVERIFY(LzHuff().expand(song.mid(1024), unpacked));
    QCOMPARE(unpacked, QByteArray("MThd"));
}

void TestSampleSongs::audioIsARowOfWholeFrames_data()
{
    QTest::addColumn<int>("tag");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("none") << int(Tag::None) << QByteArray("\xFF\xFB");
    QTest::newRow("2.2") << int(Tag::Id3v22) << QByteArray("ID3\2\0\0", 6);
    QTest::newRow("2.3") << int(Tag::Id3v23) << QByteArray("ID3\3\0\0", 6);
    QTest::newRow("2.4") << int(Tag::Id3v24) << QByteArray("ID3\4\0\0", 6);
}

void TestSampleSongs::audioIsARowOfWholeFrames()
{
    QFETCH(int, tag);
    QFETCH(QByteArray, start);
    SongInfo info;
    info.title = u"Title"_qs;
    const QByteArray song = mp3(Tag(tag), info, 10);
    QVERIFY(song.startsWith(start));
    qsizetype at = 0;
    if (Tag(tag) != Tag::None)
        at = 10 + ((song.at(6) << 21) | (song.at(7) << 14) | (song.at(8) << 7) | song.at(9));
    int frames = 0;
    const qsizetype audioStart = at;
    while (at < song.size()) {
        const QByteArray header = song.mid(at, 4);
        const bool isPadded = header == QByteArray("\xFF\xFB\x92\0", 4);
        QVERIFY(isPadded || header == QByteArray("\xFF\xFB\x90\0", 4));
        at += isPadded ? 418 : 417;
        ++frames;
    }
    QCOMPARE(at, song.size());
    QCOMPARE(frames, 382); // 10 s of 1152 samples each
    // 128 kbit/s, to the byte.
    QCOMPARE(song.size() - audioStart, qsizetype(144LL * 128000 * 382 / 44100));
}

void TestSampleSongs::writesPlainOrSynchsafeFrameSizes()
{
    SongInfo info;
    info.title = QString(199, u'x');
    QVERIFY(mp3(Tag::Id3v22, info, 1).contains(QByteArray("TT2\0\0\xC8\0x", 8)));
    QVERIFY(mp3(Tag::Id3v23, info, 1).contains(QByteArray("TIT2\0\0\0\xC8\0\0\0x", 12)));
    QVERIFY(mp3(Tag::Id3v24, info, 1).contains(QByteArray("TIT2\0\0\1\x48\0\0\0x", 12)));
}

void TestSampleSongs::graphicsAreWholePackets()
{
    const QByteArray graphics = cdg(2);
    QCOMPARE(graphics.size(), 2 * 300 * 24);
    QCOMPARE(graphics.left(2), QByteArray("\x09\x01"));
}

void TestSampleSongs::importsWithTheExpectedRecord_data()
{
    QTest::addColumn<int>("index");
    const QList<Sample> samples = set();
    for (int i = 0; i < samples.size(); ++i) {
        if (samples.at(i).isSong)
            QTest::newRow(qPrintable(samples.at(i).fileName)) << i;
    }
}

void TestSampleSongs::importsWithTheExpectedRecord()
{
    QFETCH(int, index);
    const Sample sample = set().at(index);
    MetaSong song;
    QVERIFY(song.importFile(u"set/"_qs + sample.fileName));
    SongInfo info;
    song.getSongInfo(info);
    QCOMPARE(info.format, sample.expected.format);
    QCOMPARE(info.title, sample.expected.title);
    QCOMPARE(info.artist, sample.expected.artist);
    QCOMPARE(info.author, sample.expected.author);
    QCOMPARE(info.genre, sample.expected.genre);
    QCOMPARE(info.key, sample.expected.key);
    QCOMPARE(info.length, sample.expected.length);
    QCOMPARE(info.userBpm, sample.expected.userBpm);
    QCOMPARE(info.isKordia, sample.expected.isKordia);
    QCOMPARE(info.zbxLongName, sample.expected.zbxLongName);
    QCOMPARE(info.zbxFlags, sample.expected.zbxFlags);
    QCOMPARE(info.markers.size(), sample.expected.markers.size());
    for (qsizetype i = 0; i < info.markers.size(); ++i) {
        QCOMPARE(info.markers.at(i).text, sample.expected.markers.at(i).text);
        QCOMPARE(info.markers.at(i).bar, sample.expected.markers.at(i).bar);
    }
}

void TestSampleSongs::hasEveryKindOfSong()
{
    QSet<QString> kinds;
    int published = 0;
    int songs = 0;
    int unknown = 0;
    for (const Sample &sample : set()) {
        kinds.insert(sample.fileName.section(u'.', -1).toLower());
        songs += sample.isSong ? 1 : 0;
        published += sample.expected.isKordia ? 1 : 0;
        unknown += sample.isSong && sample.catalogueName.isEmpty() ? 1 : 0;
    }
    QCOMPARE(kinds, (QSet<QString>{u"mid"_qs, u"kar"_qs, u"zb3"_qs, u"zb4"_qs, u"zb5"_qs, u"mp3"_qs,
                                   u"cdg"_qs}));
    QCOMPARE(m_paths.size(), songs);
    QCOMPARE(published, 6);
    QCOMPARE(unknown, 1);
}

void TestSampleSongs::namesRowsOfTheCatalogue()
{
    QFile file(QStringLiteral(BRISEL_CATALOGUE_SOURCE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QList<CatalogueRow> rows;
    CatalogueCsvError error;
    QVERIFY2(readCatalogueCsv(file.readAll(), rows, error), qPrintable(error.text));
    QVERIFY(rows.size() >= 200);
    for (const Tune &each : tunes()) {
        const auto row = std::find_if(rows.begin(), rows.end(), [&each](const CatalogueRow &one) {
            return one.fileName == each.name;
        });
        QCOMPARE(row == rows.end(), each.name.isEmpty());
        if (row != rows.end())
            QCOMPARE(row->title, each.title);
    }
}

void TestSampleSongs::midicsvAcceptsEveryMidi()
{
    const QString midicsv = QStandardPaths::findExecutable(u"midicsv"_qs);
    if (midicsv.isEmpty())
        QSKIP("midicsv is not installed");
    for (const QString &path : std::as_const(m_paths)) {
        if (!path.endsWith(u".mid", Qt::CaseInsensitive) && !path.endsWith(u".kar"))
            continue;
        const QByteArray csv = readBy(midicsv, {path});
        QVERIFY2(csv.contains("End_of_file"), qPrintable(path));
        QVERIFY(csv.contains("Tempo"));
        QVERIFY(csv.contains("Time_signature"));
        QCOMPARE(csv.count("Note_on_c"), csv.count("Note_off_c"));
    }
}

void TestSampleSongs::midicsvFindsBothFormatsAlike()
{
    const QString midicsv = QStandardPaths::findExecutable(u"midicsv"_qs);
    if (midicsv.isEmpty())
        QSKIP("midicsv is not installed");
    for (const Tune &each : tunes()) {
        QVERIFY(write(u"zero.mid"_qs, midi(optionsFor(each, 0))));
        QVERIFY(write(u"one.mid"_qs, midi(optionsFor(each, 1))));
        const QStringList notes = noteLines(readBy(midicsv, {u"zero.mid"_qs}));
        QVERIFY2(notes.size() > 200, qPrintable(each.title));
        QCOMPARE(notes, noteLines(readBy(midicsv, {u"one.mid"_qs})));
    }
}

void TestSampleSongs::id3v2ReadsTheTags()
{
    const QString id3v2 = QStandardPaths::findExecutable(u"id3v2"_qs);
    if (id3v2.isEmpty())
        QSKIP("id3v2 is not installed");
    // This tool does not support version 2.4.
    const QByteArray old = readBy(id3v2, {u"-l"_qs, u"set/ohmydarl.mp3"_qs});
    QVERIFY(old.contains("TT2 (Title/songname/content description): OH MY DARLING CLEMENTINE"));
    const QByteArray current = readBy(id3v2, {u"-l"_qs, u"set/Cucaracha.mp3"_qs});
    QVERIFY(current.contains("TIT2 (Title/songname/content description): LA CUCARACHA"));
    QVERIFY(current.contains("TLEN (Length): 3000"));
    QVERIFY(current.contains("COMM (Comments): ()[ita]: Base di prova"));
}

void TestSampleSongs::writesManyDistinctSongs()
{
    QVERIFY(QDir().mkpath(u"many"_qs));
    QStringList paths;
    QVERIFY(writeMany(u"many"_qs, 60, &paths));
    QCOMPARE(paths.size(), 60);
    QCOMPARE(QDir(u"many"_qs).entryList(QDir::Files).size(), 60);
    QSet<QString> titles;
    for (const QString &path : std::as_const(paths)) {
        MetaSong song;
        QVERIFY2(song.importFile(path), qPrintable(path));
        SongInfo info;
        song.getSongInfo(info);
        titles.insert(info.title);
    }
    QCOMPARE(titles.size(), 60);
}

void TestSampleSongs::refusesAMissingFolder()
{
    QVERIFY(!writeSet(u"missing"_qs));
    QVERIFY(!writeMany(u"missing"_qs, 1));
    QVERIFY(writeMany(u"missing"_qs, 0));
}

BRISEL_TEST(QCoreApplication, TestSampleSongs)
#include "tst_samplesongs.moc"
