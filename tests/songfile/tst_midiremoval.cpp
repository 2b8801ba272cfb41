#include "songfile/rawmidifile.h"
#include "tests/songfile/loadedmidi.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using Samples::bytes;
using Samples::kordiaEvent;
using Samples::metaEvent;
using Samples::midi;

namespace
{

/// Removes one event after the other from plain bytes: a slow, simple model.
QByteArray removedByModel(QByteArray data, const QByteArray &pattern, int type)
{
    const qsizetype start = data.indexOf("MTrk") + 8;
    qint64 end = start + Samples::trackLength(data);
    for (qsizetype hit = data.indexOf(pattern, start); hit >= 0 && hit < end;) {
        const int length = static_cast<qint8>(data.at(hit + 3)) + 4;
        if (length <= 0 || (type >= 0 && data.at(hit + 4) != type)) {
            hit = data.indexOf(pattern, hit + 1);
            continue;
        }
        const qsizetype before = data.size();
        data.remove(hit, std::min<qint64>(length, end - hit));
        end -= before - data.size();
        hit = data.indexOf(pattern, hit);
    }
    return data;
}

} // namespace

class TestMidiRemoval : public QObject
{
    Q_OBJECT

private slots:
    void removesOnlyInTheFirstTrack();
    void removesOnlyTheFirst();
    void skipsRemovalsThatLeadNowhere_data();
    void skipsRemovalsThatLeadNowhere();
    void endsARemovalWithTheTrack();
    void removesLikeTheModel();
    void continuesTheSearchAfterTheRemovedEvent();
    void keepsTrackLengthsInRange();
    void keepsWhatOnlyLooksLikeAnEvent_data();
    void keepsWhatOnlyLooksLikeAnEvent();
    void removesWholeEvents_data();
    void removesWholeEvents();
    void keepsRunningStatusAcrossARemoval();
    void endsItsWalkWithTheTracksEnd();
    void searchesWhereTheTrackCannotBeWalked_data();
    void searchesWhereTheTrackCannotBeWalked();
    void walksOnceForAllChanges();
    void walksAgainAfterAnInsertedEvent();
};

void TestMidiRemoval::removesOnlyInTheFirstTrack()
{
    const QByteArray behind = kordiaEvent(2, "Anna") + metaEvent(3, "Late");
    RawMidiFile file = loaded(midi(kordiaEvent(2, "Old"), 1) + behind);
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, false), 8U);
    QCOMPARE(file.removeHeadMetaevent('\x03', false), 0U);
    QCOMPARE(file.stream(), midi({}, 1) + behind);
}

void TestMidiRemoval::removesOnlyTheFirst()
{
    RawMidiFile file =
        loaded(midi(kordiaEvent(1, "G") + kordiaEvent(2, "one") + kordiaEvent(2, "two")));
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, true), 8U);
    QCOMPARE(file.stream(), midi(kordiaEvent(1, "G") + kordiaEvent(2, "two")));
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, true), 8U);
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, true), 0U);
    QCOMPARE(file.stream(), midi(kordiaEvent(1, "G")));
}

void TestMidiRemoval::skipsRemovalsThatLeadNowhere_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {0x80, 0x81, 0xF0, 0xFB, 0xFC})
        QTest::addRow("0x%X", length) << length;
}

void TestMidiRemoval::skipsRemovalsThatLeadNowhere()
{
    QFETCH(const int, length);
    const QByteArray bad = Samples::bytes("\0\xFF\x4B") + static_cast<char>(length) + "\x02text";
    RawMidiFile file = loaded(midi(bad + kordiaEvent(2, "Good")));
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, false), 9U);
    QCOMPARE(file.stream(), midi(bad));
    // A length of 0xFD removes one byte, so the search moves forward.
    QByteArray one = bad;
    one[3] = '\xFD';
    file = loaded(midi(one));
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, false), 1U);
    QCOMPARE(file.stream(), midi(one.mid(1)));
}

void TestMidiRemoval::endsARemovalWithTheTrack()
{
    // An event at the end of the first track whose length reaches into the second.
    QByteArray data = midi(metaEvent(3, "T"), 1);
    const qsizetype second = data.lastIndexOf("MTrk");
    data.replace(second - 4, 4, Samples::bytes("\0\xFF\x03\x7F"));
    RawMidiFile file = loaded(data);
    file.removeHeadMetaevent('\x03', false);
    QCOMPARE(Samples::trackLength(file.stream()), Samples::trackBytes(file.stream()));
    QVERIFY(file.stream().endsWith(data.mid(second)));
}

void TestMidiRemoval::removesLikeTheModel()
{
    QRandomGenerator random(11);
    const QByteArray pieces = Samples::bytes("\0\xFF\x4B\x03\x02\x01\0\xFF\xFC\xFD\xFE\x04");
    for (int round = 0; round < 3000; ++round) {
        QByteArray events;
        for (int i = 0; i < 60; ++i)
            events += pieces.at(random.bounded(static_cast<int>(pieces.size())));
        const QByteArray data = midi(events, round % 2);
        RawMidiFile file = loaded(data);
        const unsigned removed = file.removeHeadMetaevent(RawMidiFile::Artist, false);
        QByteArray expected = removedByModel(data, Samples::bytes("\0\xFF\x4B"), 2);
        QCOMPARE(file.stream().mid(26), expected.mid(26));
        QCOMPARE(file.stream().size() + removed, data.size());
        QCOMPARE(Samples::trackLength(file.stream()), Samples::trackLength(data) - removed);
        file = loaded(data);
        file.removeHeadMetaevent('\x03', false);
        expected = removedByModel(data, Samples::bytes("\0\xFF\x03"), -1);
        QCOMPARE(file.stream().mid(26), expected.mid(26));
    }
}

void TestMidiRemoval::continuesTheSearchAfterTheRemovedEvent()
{
    // The removal joins 00 and FF 4B, but bytes before the removed event are not searched again.
    const QByteArray events =
        Samples::bytes("\0") + kordiaEvent(2, "gone") + Samples::bytes("\xFF\x4B\x03\x02ok");
    RawMidiFile file = loaded(midi(events));
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, false), 9U);
    QCOMPARE(file.stream(), midi(Samples::bytes("\0\xFF\x4B\x03\x02ok")));
    // An event directly after the removed one is found.
    file = loaded(midi(kordiaEvent(2, "gone") + kordiaEvent(2, "too")));
    QCOMPARE(file.removeHeadMetaevent(RawMidiFile::Artist, false), 17U);
    QCOMPARE(file.stream(), midi());
}

void TestMidiRemoval::keepsTrackLengthsInRange()
{
    QByteArray data = midi(kordiaEvent(2, "Anna"));
    data.replace(18, 4, QByteArray(4, '\0'));
    RawMidiFile file = loaded(data);
    file.setArtist(u"B"_s); // a track of length 0 has no events
    QCOMPARE(Samples::trackLength(file.stream()), 6U);
    QCOMPARE(file.stream().size(), data.size() + 6);
    data.replace(18, 4, Samples::bytes("\0\0\0\x03"));
    file = loaded(data);
    file.removeHeadMetaevent(RawMidiFile::Artist, false);
    QCOMPARE(Samples::trackLength(file.stream()), 0U);
    data.replace(18, 4, QByteArray(4, '\xFF'));
    file = loaded(data);
    file.setTitle(u"T"_s);
    QCOMPARE(Samples::trackLength(file.stream()), 0xFFFFFFFFU);
}

void TestMidiRemoval::keepsWhatOnlyLooksLikeAnEvent_data()
{
    QTest::addColumn<QByteArray>("events");
    const QByteArray title = metaEvent(3, "T");
    const QByteArray key = keyEvent("\1\0");
    const QByteArray artist = kordiaEvent(2, "A");
    const QByteArray all = title + key + artist;
    const auto row = [](const char *name, const QByteArray &events) {
        QTest::newRow(name) << events;
    };
    row("a key at a bar line", bytes("\x8F") + key);
    row("a title after a pause", bytes("\x83") + title);
    row("an artist after a pause", bytes("\x81\x80") + artist);
    row("in a text", metaEvent(1, all));
    row("in a lyric", metaEvent(5, all));
    row("in a marker", metaEvent(6, all));
    row("in a sequencer's event", metaEvent(0x7F, all));
    row("in a long text", bytes("\0\xFF\x01\x82\x00") + all + QByteArray(256 - all.size(), ' '));
    row("in system exclusive", bytes("\0\xF0\x17\x43") + all + QByteArray(4, 1) + '\xF7');
    row("in the rest of one", bytes("\0\xF7\x17") + all + QByteArray(6, 1));
    // A note with running status and velocity 0, followed by a delta-time of FF 03, 59 or 4B.
    const QByteArray note = bytes("\0\x90\x3C\x40\x60\x3C\x00");
    row("a pause like a title", note + bytes("\xFF\x03\x40\x40"));
    row("a pause like a key", note + bytes("\xFF\x59\x40\x40"));
    row("a pause like an artist", note + bytes("\xFF\x4B\x02\x02"));
    row("a publisher's event without a type", bytes("\0\xFF\x4B\0"));
    row("an artist's number as a program", bytes("\0\xC0\x00\xFF\x4B\x05\x60\x05"));
}

void TestMidiRemoval::keepsWhatOnlyLooksLikeAnEvent()
{
    QFETCH(const QByteArray, events);
    for (const int format : {0, 1}) {
        RawMidiFile file = loaded(midi(events, format));
        QCOMPARE(file.removeHeadMetaevent('\x03', false), 0U);
        QCOMPARE(file.removeHeadMetaevent('\x59', true), 0U);
        for (const auto type : {RawMidiFile::Genre, RawMidiFile::Artist, RawMidiFile::Author,
                                RawMidiFile::Length, RawMidiFile::UserBpm, RawMidiFile::Marker})
            QCOMPARE(file.removeHeadMetaevent(type, false), 0U);
        QCOMPARE(file.stream(), midi(events, format));
        // New events are written before it.
        file.setTitle(u"T"_s);
        file.setKey(u"D"_s);
        QCOMPARE(file.stream(), midi(keyEvent("\2\0") + metaEvent(3, "T") + events, format));
    }
}

void TestMidiRemoval::removesWholeEvents_data()
{
    QTest::addColumn<QByteArray>("event");
    const auto row = [](const char *name, const QByteArray &event) {
        QTest::newRow(name) << event;
    };
    row("described", metaEvent(3, "Title"));
    row("empty", metaEvent(3, {}));
    row("127 bytes", metaEvent(3, QByteArray(127, 't')));
    row("128 bytes", bytes("\0\xFF\x03\x81\x00") + QByteArray(128, 't'));
    row("200 bytes", bytes("\0\xFF\x03\x81\x48") + QByteArray(200, 't'));
    row("20000 bytes", bytes("\0\xFF\x03\x81\x9C\x20") + QByteArray(20000, 't'));
    row("a long length", bytes("\0\xFF\x03\x80\x80\x01t"));
    row("a delta of two bytes", bytes("\x80\0\xFF\x03\x01t"));
    row("a delta of four bytes", bytes("\x80\x80\x80\0\xFF\x03\x01t"));
    row("with another inside", metaEvent(3, metaEvent(3, "inner") + keyEvent("\1\0")));
}

void TestMidiRemoval::removesWholeEvents()
{
    QFETCH(const QByteArray, event);
    const QByteArray kept = metaEvent(1, "text");
    RawMidiFile file = loaded(midi(kept + event + kept, 1));
    QCOMPARE(file.removeHeadMetaevent('\x03', false), static_cast<unsigned>(event.size()));
    QCOMPARE(file.stream(), midi(kept + kept, 1));
    file = loaded(midi(event + kept + event, 1));
    QCOMPARE(file.removeHeadMetaevent('\x03', true), static_cast<unsigned>(event.size()));
    QCOMPARE(file.stream(), midi(kept + event, 1));
    file.setTitle(u"New"_s);
    QCOMPARE(file.stream(), midi(metaEvent(3, "New") + kept, 1));
}

void TestMidiRemoval::keepsRunningStatusAcrossARemoval()
{
    const QByteArray before = bytes("\0\xB0\x07\x64");
    const QByteArray exclusive = bytes("\0\xF0\x02\x43\xF7");
    const QByteArray after = bytes("\0\x0A\x00\xFF\x03\x40\x40");
    RawMidiFile file = loaded(midi(before + exclusive + metaEvent(3, "gone") + after));
    file.removeHeadMetaevent('\x03', false);
    QCOMPARE(file.stream(), midi(before + exclusive + after));
}

void TestMidiRemoval::endsItsWalkWithTheTracksEnd()
{
    const QByteArray end = bytes("\0\xFF\x2F\0");
    // Bytes after the end-of-track event are not events, even if the track's length includes them.
    RawMidiFile file = loaded(midi(metaEvent(3, "A") + end + metaEvent(3, "B")));
    file.setTitle(u"C"_s);
    QCOMPARE(file.stream(), midi(metaEvent(3, "C") + end + metaEvent(3, "B")));
    // A track may have no end-of-track event.
    const QByteArray whole = midi(metaEvent(3, "A") + metaEvent(1, "x"));
    QByteArray open = whole.chopped(end.size());
    open[21] = static_cast<char>(open.at(21) - end.size());
    file = loaded(open);
    file.removeHeadMetaevent('\x03', false);
    QCOMPARE(file.stream().mid(22), open.mid(22 + 5));
    QCOMPARE(Samples::trackLength(file.stream()), Samples::trackBytes(file.stream()));
}

void TestMidiRemoval::searchesWhereTheTrackCannotBeWalked_data()
{
    QTest::addColumn<QByteArray>("event");
    const QMap<QByteArray, QByteArray> unreadable = Samples::unreadableEvents();
    for (auto event = unreadable.begin(); event != unreadable.end(); ++event)
        QTest::newRow(event.key()) << event.value();
    QTest::newRow("an event after the track") << bytes("\0\xFF\x01\x7F");
    QTest::newRow("a message after the file") << bytes("\0\xF0\xFF\xFF\xFF\x7F");
}

void TestMidiRemoval::searchesWhereTheTrackCannotBeWalked()
{
    QFETCH(const QByteArray, event);
    // The title inside the text is removed too: a search can't distinguish it.
    const QByteArray before = bytes("\0\xFF\x01\x08xx");
    RawMidiFile file = loaded(midi(before + metaEvent(3, "T") + "x" + event));
    QCOMPARE(file.removeHeadMetaevent('\x03', false), 5U);
    QCOMPARE(file.stream(), midi(before + "x" + event));
}

void TestMidiRemoval::walksOnceForAllChanges()
{
    RawMidiFile file = loaded(midi(metaEvent(3, "T") + keyEvent("\1\0") + kordiaEvent(2, "A")));
    const auto changeAll = [&file] {
        file.setTitle(u"Title"_s);
        file.setArtist(u"Artist"_s);
        file.setGenre(u"Genre"_s);
        file.setAuthor(u"Author"_s);
        file.setKey(u"D"_s);
        file.setLength(185);
        file.setUserBpm(120);
        file.setMarkersList({{u"Intro"_s, 1}});
    };
    QCOMPARE(file.title(), u"T"_s);
    QVERIFY(file.hasKey() && file.markersList().isEmpty());
    QCOMPARE(file.trackWalks(), 0);
    changeAll();
    changeAll();
    QCOMPARE(file.trackWalks(), 1);
    // A song without such events is not walked.
    file = loaded(midi());
    file.setTitle(u"Title"_s);
    QCOMPARE(file.trackWalks(), 0);
}

void TestMidiRemoval::walksAgainAfterAnInsertedEvent()
{
    RawMidiFile file = loaded(midi(metaEvent(3, "T")));
    QCOMPARE(file.removeHeadMetaevent('\x03', false), 5U);
    // The length byte is 0x80 now, so the track can't be walked any more.
    file.insertMetaevent(metaEvent(3, "U") + QByteArray(123, 'x'), '\x01', 22);
    QCOMPARE(file.removeHeadMetaevent('\x03', false), 5U);
    QCOMPARE(file.trackWalks(), 2);
    // A newly loaded song is walked again.
    QVERIFY(file.loadData(midi(metaEvent(1, metaEvent(3, "T")))));
    QCOMPARE(file.removeHeadMetaevent('\x03', false), 0U);
    QCOMPARE(file.trackWalks(), 1);
}

BRISEL_TEST(QCoreApplication, TestMidiRemoval)
#include "tst_midiremoval.moc"
