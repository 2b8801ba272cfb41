#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/midireader.h"
#include "tests/songfile/songs.h"
#include "tests/songfile/songsavingtest.h"

#include <QRandomGenerator>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::bytes;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;

namespace
{

constexpr int flagsField = 185; ///< of a container's header
constexpr MidiReader::Kind markerKind{0x4B, 6};

/// A marker's event, by hand; \a bar is its two bytes.
QByteArray markerBytes(const char (&bar)[3], const QByteArray &text)
{
    return kordiaEvent(6, QByteArray(bar, 2) + text);
}

const QByteArray twoMarkers = markerBytes("\0\1", "Intro") + markerBytes("\1\x2C", "Coda");
const QList<Marker> twoRead{{u"Intro"_s, 1}, {u"Coda"_s, 300}};

/// Everything that is read besides the markers.
QStringList fieldsOf(const RawMidiFile &file)
{
    return {file.title(),
            file.artist(),
            file.author(),
            file.genre(),
            file.key(),
            QString::number(file.length()),
            QString::number(file.userBpm()),
            QString::number(int(file.isKordia()))};
}

} // namespace

/// Markers that the user changes by hand.
class TestSongMarkers : public Samples::SongSavingTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void replacesOnlyTheMarkers_data();
    void replacesOnlyTheMarkers();
    void keepsTheBytesOfMarkersThatStay();
    void addsMarkersToASongWithoutThem();
    void refusesMarkersThatAreNotWholeEvents_data();
    void refusesMarkersThatAreNotWholeEvents();
    void refusesWhatCannotBeStored_data();
    void refusesWhatCannotBeStored();
    void refusesTextsThatAreReadAsOtherFields_data();
    void refusesTextsThatAreReadAsOtherFields();
    void keepsTheOtherFields_data();
    void keepsTheOtherFields();
    void removesAMarkerThatIsReadAsTheKey();
    void writesTheLimits();
    void replacesManyMarkersInOnePass();
    void writesContainers_data();
    void writesContainers();
    void refusesMp3s();
    void changesTheFileOfAnotherProgramToo();
    void leavesMarkersThatAnotherProgramChanged();
    void leavesASongWhoseMarkersCannotBeReplacedAnyMore();
};

void TestSongMarkers::replacesOnlyTheMarkers_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QList<Marker>>("markers");
    QTest::addColumn<QByteArray>("written");
    const QByteArray author = kordiaEvent(3, "Bea");
    const QList<Marker> changed{{u"Intro"_s, 1}, {u"Città"_s, 0x203}};
    const QByteArray changedBytes = markerBytes("\0\1", "Intro") + markerBytes("\2\3", "Citt\xE0");
    const auto row = [&](const char *name, const QByteArray &before) {
        QTest::newRow(name) << before << changed << changedBytes;
    };
    row("format 0", midi(author + twoMarkers));
    row("format 1", midi(twoMarkers + author, 1));
    row("apart", midi(markerBytes("\1\x2C", "Coda") + metaEvent(3, "T") + author +
                      markerBytes("\0\1", "Intro")));
    row("later in the song", midi(bytes("\0\x90\x3C\x40\x60\x3C\0") + twoMarkers));
    QTest::newRow("all removed") << midi(twoMarkers + author) << QList<Marker>() << QByteArray();
}

void TestSongMarkers::replacesOnlyTheMarkers()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QList<Marker>, markers);
    QFETCH(const QByteArray, written);
    RawMidiFile file = loaded(before);
    QVERIFY(file.canReplaceMarkers());
    QVERIFY(file.replaceMarkers(markers));
    QCOMPARE(MidiReader::whatChanged(before, file.stream(), markerKind, written), QString());
    QCOMPARE(file.markersList(), markers);
}

void TestSongMarkers::keepsTheBytesOfMarkersThatStay()
{
    // Blanks around a text, and bytes after its zero byte, are not read.
    const QByteArray odd = markerBytes("\0\2", bytes(" Verse \0hidden"));
    const QByteArray last = markerBytes("\0\x9", "Fine");
    RawMidiFile file = loaded(midi(last + odd + odd));
    QCOMPARE(file.markersList().size(), 3);
    QVERIFY(
        file.replaceMarkers({{u"Verse"_s, 2}, {u"Verse"_s, 2}, {u"Verse"_s, 2}, {u"Ende"_s, 9}}));
    QCOMPARE(file.stream(),
             midi(odd + odd + markerBytes("\0\2", "Verse") + markerBytes("\0\x9", "Ende")));
}

void TestSongMarkers::addsMarkersToASongWithoutThem()
{
    RawMidiFile file = loaded(midi(kordiaEvent(3, "Bea")));
    QVERIFY(file.replaceMarkers(twoRead));
    QCOMPARE(file.stream(), midi(twoMarkers + kordiaEvent(3, "Bea")));
    QVERIFY(!RawMidiFile().canReplaceMarkers());
    QVERIFY(!RawMidiFile().replaceMarkers(twoRead));
}

void TestSongMarkers::refusesMarkersThatAreNotWholeEvents_data()
{
    QTest::addColumn<QByteArray>("song");
    const auto row = [](const char *name, const QByteArray &song) { QTest::newRow(name) << song; };
    row("after a pause", midi(twoMarkers + bytes("\x60\xFF\x4B\5\6\0\7La")));
    row("inside a text", midi(metaEvent(1, markerBytes("\0\1", "Intro"))));
    row("behind bytes that are read instead",
        midi(metaEvent(1, bytes("\xFF\x4B\x40\6\0\1M\0")) + markerBytes("\0\1", "M") +
             metaEvent(1, QByteArray(100, 't'))));
    row("in the second track", midi({}, 1) + twoMarkers);
    row("without a bar", midi(kordiaEvent(6, {})));
    row("with half a bar", midi(kordiaEvent(6, "\1")));
    row("a marker of another length", midi(bytes("\0\xFF\x4B\x81\6\6") + QByteArray(133, 'm')));
    row("in a track that can't be walked", midi(bytes("\0\xF1") + metaEvent(1, "T") + twoMarkers));
}

void TestSongMarkers::refusesMarkersThatAreNotWholeEvents()
{
    QFETCH(const QByteArray, song);
    RawMidiFile file = loaded(song);
    QVERIFY(file.hasMarkers());
    QVERIFY(!file.canReplaceMarkers());
    QVERIFY(!file.replaceMarkers({}));
    QVERIFY(!file.replaceMarkers(twoRead));
    QCOMPARE(file.stream(), song);
}

void TestSongMarkers::refusesWhatCannotBeStored_data()
{
    QTest::addColumn<Marker>("marker");
    const auto row = [](const char *name, const QString &text, int bar) {
        QTest::newRow(name) << Marker{text, bar};
    };
    row("bar before the first", u"A"_s, -1);
    row("bar of more than 16 bits", u"A"_s, 65536);
    row("text too long", QString(125, u'x'), 1);
    row("another alphabet", u"Припев"_s, 1);
    row("two units", u"\U0001F3B5"_s, 1);
    row("zero", u"A\0B"_s, 1);
    row("line feed", u"A\nB"_s, 1);
    row("blank at the end", u"A "_s, 1);
}

void TestSongMarkers::refusesWhatCannotBeStored()
{
    QFETCH(const Marker, marker);
    RawMidiFile file = loaded(midi(twoMarkers));
    const QByteArray before = file.stream();
    QVERIFY(!RawMidiFile::isStorable(marker));
    QVERIFY(!file.replaceMarkers({twoRead.first(), marker}));
    QCOMPARE(file.stream(), before);
}

void TestSongMarkers::refusesTextsThatAreReadAsOtherFields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("next"); // the event after the markers
    QTest::newRow("key") << u"ÿYes"_s << QByteArray();
    QTest::newRow("title") << u"ÿ"_s << bytes("\3\xFF\1\2la");
    QTest::newRow("artist") << u"ÿKx"_s << bytes("\2\xFF\1\2la");
}

void TestSongMarkers::refusesTextsThatAreReadAsOtherFields()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, next);
    const QByteArray before = midi(next + metaEvent(1, "plain"));
    RawMidiFile file = loaded(before);
    QVERIFY(file.canReplaceMarkers());
    QVERIFY(!file.replaceMarkers({{text, 1}}));
    QCOMPARE(file.stream(), before);
    QVERIFY(file.replaceMarkers({{u"Yes"_s, 1}}));
    QVERIFY(!file.replaceMarkers({{u"Yes"_s, 255}})); // FF 59 65 73, too
}

void TestSongMarkers::keepsTheOtherFields_data()
{
    QTest::addColumn<QByteArray>("song");
    const QByteArray names = metaEvent(3, "T") + kordiaEvent(2, "A") + kordiaEvent(3, "B");
    const QByteArray all = names + kordiaEvent(1, "G") + kordiaEvent(4, "90") +
                           kordiaEvent(5, "120") + metaEvent(2, "(C) Kordia") +
                           metaEvent(0x59, QByteArray("\0\1", 2));
    QTest::newRow("no fields") << midi();
    QTest::newRow("all fields") << midi(all);
    for (char pause = 1; pause <= 6; ++pause)
        QTest::addRow("pause of %d", int(pause)) << midi(pause + bytes("\xFF\1\2la") + names);
}

void TestSongMarkers::keepsTheOtherFields()
{
    QFETCH(const QByteArray, song);
    const RawMidiFile before = loaded(song);
    constexpr int texts = 4000;
    const QString letters = u"ÿÿYK1xA¡"_s;
    QRandomGenerator random(7);
    int refused = 0;
    for (int i = 0; i < texts; ++i) {
        QString text;
        for (int size = random.bounded(6); size > 0; --size)
            text += letters.at(random.bounded(letters.size()));
        const QList<Marker> markers{{text, random.bounded(255)}, {u"End"_s, 65535}};
        RawMidiFile file = before;
        if (!file.replaceMarkers(random.bounded(2) != 0 ? markers : markers.first(1))) {
            ++refused;
            QVERIFY(text.contains(u'ÿ'));
            QCOMPARE(file.stream(), song);
        }
        QCOMPARE(fieldsOf(file), fieldsOf(before));
    }
    QVERIFY(refused > 0);
    QVERIFY(refused < texts);
}

void TestSongMarkers::removesAMarkerThatIsReadAsTheKey()
{
    const QByteArray misread = markerBytes("\0\1", bytes("\xFFY\2\0\1"));
    RawMidiFile file = loaded(midi(misread + twoMarkers));
    QCOMPARE(file.key(), u"A-"_s);
    const QList<Marker> markers = file.markersList();
    QCOMPARE(markers.size(), 3);
    QVERIFY(file.replaceMarkers(markers.first(2))); // the others keep their bytes
    QCOMPARE(file.key(), u"A-"_s);
    QVERIFY(file.replaceMarkers(twoRead));
    QCOMPARE(file.key(), QString());
    QCOMPARE(file.stream(), midi(twoMarkers));
}

void TestSongMarkers::writesTheLimits()
{
    const QList<Marker> limits{{QString(), 0}, {QString(124, u'ÿ'), 65535}};
    RawMidiFile file = loaded(midi());
    QVERIFY(file.replaceMarkers(limits));
    const QByteArray written =
        markerBytes("\0\0", {}) + markerBytes("\xFF\xFF", QByteArray(124, '\xFF'));
    QCOMPARE(file.stream(), midi(written));
    QCOMPARE(file.markersList(), limits);
    QVERIFY(file.canReplaceMarkers());
}

void TestSongMarkers::replacesManyMarkersInOnePass()
{
    constexpr int count = 100000;
    QByteArray events;
    QList<Marker> markers;
    for (int i = 0; i < count; ++i) {
        events += markerBytes("\0\1", "M");
        markers.append({u"M"_s, 1});
    }
    RawMidiFile file = loaded(midi(events));
    const int walks = file.trackWalks();
    markers[count / 2].text = u"N"_s;
    QVERIFY(file.replaceMarkers(markers));
    QVERIFY(file.trackWalks() - walks <= 2);
    QCOMPARE(file.markersList(), markers);
}

void TestSongMarkers::writesContainers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("magic");
    QTest::addColumn<int>("headerSize");
    QTest::newRow("ZB3") << u"a.zb3"_s << QByteArray("_ZB3") << 512;
    QTest::newRow("ZB4") << u"a.zb4"_s << QByteArray("_ZB4") << 512;
    QTest::newRow("ZB5") << u"a.zb5"_s << QByteArray("_ZB5") << 1024;
}

void TestSongMarkers::writesContainers()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, magic);
    QFETCH(const int, headerSize);
    const bool isMarked = magic == "_ZB4";
    QByteArray music = midi(kordiaEvent(3, "Bea"));
    if (isMarked)
        music.insert(music.indexOf("MTrk") + 8, bytes("\xFF\0\xFF"));
    QByteArray header = Samples::containerHeader(magic, headerSize);
    header[flagsField] = '\x40';
    MetaSong song = Samples::opened(name, Samples::container(header, music));
    QVERIFY(song.canSetMarkers());
    QVERIFY(song.setMarkers(twoRead));
    QVERIFY(song.saveToFile(name));
    QCOMPARE(Samples::read(name).at(flagsField), '\x41');
    QByteArray stored;
    QVERIFY(LzHuff().expand(Samples::read(name).mid(headerSize), stored));
    if (isMarked)
        stored.remove(stored.indexOf("MTrk") + 8, 3);
    QCOMPARE(stored, midi(twoMarkers + kordiaEvent(3, "Bea")));

    MetaSong again = Samples::opened(name, Samples::read(name));
    QCOMPARE(Samples::infoOf(again).markers, twoRead);
    QVERIFY(again.setMarkers({}));
    QVERIFY(again.saveToFile(name));
    QCOMPARE(Samples::read(name).at(flagsField), '\x40');
    QCOMPARE(Samples::infoOf(Samples::opened(name, Samples::read(name))).markers, QList<Marker>());
}

void TestSongMarkers::refusesMp3s()
{
    MetaSong song = Samples::opened(u"a.mp3"_s, Samples::oldSong(u"a.mp3"_s));
    QVERIFY(!song.canSetMarkers());
    QVERIFY(!song.setMarkers(twoRead));
    QVERIFY(!MetaSong().setMarkers(twoRead));
}

void TestSongMarkers::changesTheFileOfAnotherProgramToo()
{
    writeSong(u"a.mid"_s, midi(twoMarkers));
    MetaSong song = Samples::opened(u"a.mid"_s, midi(twoMarkers));
    QVERIFY(song.setMarkers({{u"Solo"_s, 5}}));
    const QByteArray theirs = kordiaEvent(1, "Pop");
    writeSong(u"a.mid"_s, midi(twoMarkers + theirs));
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QCOMPARE(Samples::read(u"a.mid"_s), midi(markerBytes("\0\5", "Solo") + theirs));
}

void TestSongMarkers::leavesMarkersThatAnotherProgramChanged()
{
    MetaSong song = Samples::opened(u"a.mid"_s, midi(twoMarkers));
    QVERIFY(song.setMarkers({{u"Solo"_s, 5}}));
    const QByteArray theirs = midi(twoMarkers + markerBytes("\2\0", "Theirs"));
    writeSong(u"a.mid"_s, theirs);
    QVERIFY(!song.saveToFile(u"a.mid"_s));
    QCOMPARE(song.trouble(), MetaSong::Trouble::ChangedMeanwhile);
    QCOMPARE(Samples::read(u"a.mid"_s), theirs);
}

void TestSongMarkers::leavesASongWhoseMarkersCannotBeReplacedAnyMore()
{
    const QByteArray names = metaEvent(3, "T") + kordiaEvent(2, "A");
    MetaSong song = Samples::opened(u"a.mid"_s, midi(names + twoMarkers));
    QVERIFY(song.setMarkers({{u"Solo"_s, 5}}));
    const QByteArray theirs = midi(names + metaEvent(1, twoMarkers));
    writeSong(u"a.mid"_s, theirs);
    QCOMPARE(loaded(theirs).markersList(), twoRead);
    QVERIFY(!song.saveToFile(u"a.mid"_s));
    QCOMPARE(song.trouble(), MetaSong::Trouble::ChangedMeanwhile);
    QCOMPARE(Samples::read(u"a.mid"_s), theirs);
}

BRISEL_TEST(QCoreApplication, TestSongMarkers)
#include "tst_songmarkers.moc"
