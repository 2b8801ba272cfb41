#include "player/songtimeline.h"
#include "tests/literalbytes.h"
#include "tests/midibytes.h"
#include "tests/testprogram.h"

using namespace brisel;

using LiteralBytes::bytes;

/// Files have 96 ticks a quarter note; without a tempo event it lasts 500 ms.
class TestSongTimeline : public QObject
{
    Q_OBJECT

private slots:
    void lastsTwoQuartersWithoutTempo();
    void followsTempoChangesOfAnyTrack();
    void countsBarsByTheTimeSignatures();
    void beginsANewBarAtASignatureWithinABar();
    void ignoresImpossibleSignatures();
    void keepsTheTimeOfTheLastBar();
    void keepsTextsInTheirOrder();
    void refusesWhatCantBeTimed_data();
    void refusesWhatCantBeTimed();
    void takesATruncatedTrackUpToItsLastEvent();
    void staysFastWithAnEventAtEachTick();
    void survivesEveryTruncation();
};

/// A note-on after \a delta, which is written as it is in the file.
static QByteArray note(const QByteArray &delta)
{
    return delta + bytes("\x90\x3C\x40");
}

static SongTimeline timelineOf(const QByteArray &track)
{
    const auto timeline = SongTimeline::read(MidiBytes::file({track + MidiBytes::endOfTrack()}));
    return timeline.value_or(SongTimeline());
}

void TestSongTimeline::lastsTwoQuartersWithoutTempo()
{
    const SongTimeline timeline = timelineOf(note(bytes("\x81\x40"))); // 192 ticks
    QCOMPARE(timeline.lastTick(), 192);
    QCOMPARE(timeline.duration(), 1000);
    QCOMPARE(timeline.msAt(-5), 0);
    QCOMPARE(timeline.msAt(48), 250);
    QCOMPARE(timeline.tickAt(250), 48);
    QCOMPARE(timeline.tickAt(-1), 0);
    QCOMPARE(timeline.tickAt(100000), 192);
}

void TestSongTimeline::followsTempoChangesOfAnyTrack()
{
    // 96 ticks of 1,000,000 us, then 96 ticks of 250,000 us, and the notes in the other track.
    const QByteArray tempos = bytes("\x00\xFF\x51\x03\x0F\x42\x40") +
                              bytes("\x60\xFF\x51\x03\x03\xD0\x90") + MidiBytes::endOfTrack();
    const QByteArray notes = note(bytes("\x81\x40")) + MidiBytes::endOfTrack();
    for (const QList<QByteArray> &tracks : {QList{tempos, notes}, QList{notes, tempos}}) {
        const auto timeline = SongTimeline::read(MidiBytes::file(tracks, 1));
        QVERIFY(timeline.has_value());
        QCOMPARE(timeline->msAt(96), 1000);
        QCOMPARE(timeline->msAt(144), 1125);
        QCOMPARE(timeline->duration(), 1250);
        QCOMPARE(timeline->tickAt(1125), 144);
        QCOMPARE(timeline->tickAt(500), 48);
    }
}

void TestSongTimeline::countsBarsByTheTimeSignatures()
{
    // One bar of 4/4 (384 ticks), then bars of 3/8 (144 ticks): 2,000 ms and 750 ms each.
    const SongTimeline timeline = timelineOf(bytes("\x83\x00\xFF\x58\x04\x03\x03\x18\x08") +
                                             note(bytes("\x87\x00"))); // 896 ticks later
    QCOMPARE(timeline.msOfBar(0), 0);
    QCOMPARE(timeline.msOfBar(1), 0);
    QCOMPARE(timeline.msOfBar(2), 2000);
    QCOMPARE(timeline.msOfBar(3), 2750);
    QCOMPARE(timeline.msOfBar(5), 4250);
}

void TestSongTimeline::beginsANewBarAtASignatureWithinABar()
{
    const SongTimeline timeline = timelineOf(bytes("\x60\xFF\x58\x04\x02\x02\x18\x08"));
    QCOMPARE(timeline.msOfBar(2), 500);
    QCOMPARE(timeline.msOfBar(3), 1500);
}

void TestSongTimeline::ignoresImpossibleSignatures()
{
    // No beats, a note of 2^-255, and one byte of data.
    const SongTimeline timeline =
        timelineOf(bytes("\x00\xFF\x58\x02\x00\x02") + bytes("\x00\xFF\x58\x02\x04\xFF") +
                   bytes("\x00\xFF\x58\x01\x03"));
    QCOMPARE(timeline.msOfBar(2), 2000);
}

/// The longest bars at the slowest tempo, and a marker in the last bar that can be stored: its tick
/// times the tempo does not fit 64 bits.
void TestSongTimeline::keepsTheTimeOfTheLastBar()
{
    const auto timeline = SongTimeline::read(MidiBytes::longestBars());
    QVERIFY(timeline.has_value());
    const qint64 end = timeline->msAt(SongTimeline::maxTicks);
    QVERIFY(end > 0);
    qint64 last = 0;
    for (const qint64 bar : {1, 2, 32, 33, 34, 1000, 16000, 32767, 65535}) {
        const qint64 ms = timeline->msOfBar(bar);
        QVERIFY2(ms >= last && ms <= end, qPrintable(QString::number(bar)));
        last = ms;
    }
    QCOMPARE(last, end);
}

void TestSongTimeline::keepsTextsInTheirOrder()
{
    const QByteArray first = bytes("\x60\xFF\x05\x02\x6C\x61") + MidiBytes::endOfTrack();
    const QByteArray second = MidiBytes::metaEvent(6, "Coda") + MidiBytes::metaEvent(3, "no") +
                              bytes("\x60\xFF\x01\x01\x78") + MidiBytes::endOfTrack();
    const auto timeline = SongTimeline::read(MidiBytes::file({first, second}, 1));
    QVERIFY(timeline.has_value());
    QCOMPARE(timeline->texts().size(), 3);
    QCOMPARE(timeline->texts().at(0).bytes, "Coda");
    QCOMPARE(timeline->texts().at(0).metaType, 6);
    QCOMPARE(timeline->texts().at(1).bytes, "la");
    QCOMPARE(timeline->texts().at(1).tick, 96);
    QCOMPARE(timeline->texts().at(2).bytes, "x");
}

void TestSongTimeline::refusesWhatCantBeTimed_data()
{
    QTest::addColumn<QByteArray>("midi");
    const QByteArray track = bytes("MTrk\x00\x00\x00\x04\x00\xFF\x2F\x00");
    const QByteArray head = bytes("MThd\x00\x00\x00\x06\x00\x00\x00\x01");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("another file") << QByteArray("RIFF and so on, long enough");
    QTest::newRow("no track") << head + bytes("\x00\x60");
    QTest::newRow("no ticks") << head + bytes("\x00\x00") + track;
    QTest::newRow("frames") << head + bytes("\xE7\x28") + track;
    QTest::newRow("a quarter of 0 us")
        << MidiBytes::file({bytes("\x00\xFF\x51\x03\x00\x00\x00") + MidiBytes::endOfTrack()});
    QTest::newRow("32,767 ticks a microsecond") << head + bytes("\x7F\xFFMTrk\x00\x00\x00\x0B") +
                                                       bytes("\x00\xFF\x51\x03\x00\x00\x01") +
                                                       MidiBytes::endOfTrack();
    QTest::newRow("2^30 ticks and more")
        << MidiBytes::file({note(bytes("\xFF\xFF\xFF\x7F")).repeated(5)});
    QTest::newRow("too many notes at once")
        << MidiBytes::file({note(bytes("\x00")).repeated(20001) + MidiBytes::endOfTrack()});
}

void TestSongTimeline::refusesWhatCantBeTimed()
{
    QFETCH(const QByteArray, midi);
    QVERIFY(!SongTimeline::read(midi).has_value());
}

void TestSongTimeline::takesATruncatedTrackUpToItsLastEvent()
{
    const QByteArray whole = MidiBytes::file({note(bytes("\x60")) + note(bytes("\x60"))});
    const auto timeline = SongTimeline::read(whole.chopped(1));
    QVERIFY(timeline.has_value());
    QCOMPARE(timeline->lastTick(), 96);
}

/// The work must not grow with the square of the number of events.
void TestSongTimeline::staysFastWithAnEventAtEachTick()
{
    constexpr qsizetype count = 200000;
    const QByteArray piece = bytes("\x01\xFF\x51\x03\x07\xA1\x20") +
                             bytes("\x01\xFF\x58\x02\x04\x02") + bytes("\x01\xFF\x05\x01\x78");
    const SongTimeline timeline = timelineOf(piece.repeated(count));
    QCOMPARE(timeline.texts().size(), count);
    QCOMPARE(timeline.lastTick(), 3 * count);
    QCOMPARE(timeline.msOfBar(2), 500 * 2 / 96);
}

void TestSongTimeline::survivesEveryTruncation()
{
    const QByteArray whole =
        MidiBytes::file({bytes("\x60\xFF\x51\x03\x03\xD0\x90") + MidiBytes::metaEvent(5, "la") +
                         note(bytes("\x81\x40")) + MidiBytes::endOfTrack()});
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const auto timeline = SongTimeline::read(whole.first(size));
        QVERIFY(!timeline.has_value() || timeline->duration() <= 1500);
    }
}

BRISEL_TEST(QCoreApplication, TestSongTimeline)
#include "tst_songtimeline.moc"
