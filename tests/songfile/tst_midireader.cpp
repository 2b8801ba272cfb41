#include "tests/songfile/midireader.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

using namespace Qt::StringLiterals;
using MidiReader::Event;
using Samples::bytes;
using Samples::metaEvent;
using Samples::midi;

/// The strict reader that other tests use.
class TestMidiReader : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryEvent();
    void readsEveryTrack();
    void refusesTracks_data();
    void refusesTracks();
    void refusesChunks();
    void noticesAChange_data();
    void noticesAChange();
};

void TestMidiReader::readsEveryEvent()
{
    struct Expected {
        qint64 tick;
        int status;
        int metaType;
        QByteArray data;
    };
    const QByteArray track = bytes("\x00\x90\x3C\x40"
                                   "\x8F\x00\x3C\x00"
                                   "\x00\xFF\x03\x02Hi"
                                   "\x01\xF0\x02\x43\xF7"
                                   "\x00\x40\x41"
                                   "\x60\xC5\x07"
                                   "\x00\xF7\x81\x00") +
                             QByteArray(128, 's') + bytes("\x80\x00\xD5\x01\x00\xFF\x2F\x00");
    const QList<Expected> expected{{0, 0x90, -1, "\x3C\x40"},
                                   {1920, 0x90, -1, bytes("\x3C\x00")},
                                   {1920, 0xFF, 3, "Hi"},
                                   {1921, 0xF0, -1, "\x43\xF7"},
                                   {1921, 0x90, -1, "\x40\x41"},
                                   {2017, 0xC5, -1, "\x07"},
                                   {2017, 0xF7, -1, QByteArray(128, 's')},
                                   {2017, 0xD5, -1, "\x01"},
                                   {2017, 0xFF, 0x2F, {}}};
    const std::optional<QList<Event>> events =
        MidiReader::readEvents(track + "behind", 0, track.size() + 6);
    QVERIFY(events);
    QCOMPARE(events->size(), expected.size());
    qsizetype pos = 0;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const Event &event = events->at(i);
        QCOMPARE(event.tick, expected.at(i).tick);
        QCOMPARE(event.status, expected.at(i).status);
        QCOMPARE(event.metaType, expected.at(i).metaType);
        QCOMPARE(event.data, expected.at(i).data);
        QCOMPARE(event.start, pos);
        pos = event.end;
    }
    QCOMPARE(pos, track.size());
}

void TestMidiReader::readsEveryTrack()
{
    const std::optional<QList<MidiReader::Track>> tracks =
        MidiReader::readTracks(midi(metaEvent(1, "x"), 1) + "behind");
    QVERIFY(tracks);
    QCOMPARE(tracks->size(), 2);
    QCOMPARE(tracks->at(0).start, 22);
    QCOMPARE(tracks->at(0).end, 39);
    QCOMPARE(tracks->at(0).events.size(), 4);
    QCOMPARE(tracks->at(1).start, 47);
    QCOMPARE(tracks->at(1).events.size(), 3);
    QCOMPARE(tracks->at(1).events.at(1).tick, 0x60);
}

void TestMidiReader::refusesTracks_data()
{
    QTest::addColumn<QByteArray>("track");
    const QMap<QByteArray, QByteArray> unreadable = Samples::unreadableEvents();
    for (auto event = unreadable.begin(); event != unreadable.end(); ++event)
        QTest::newRow(event.key()) << event.value();
    QTest::newRow("a delta alone") << bytes("\0");
    QTest::newRow("half a note") << bytes("\0\x90\x40");
    QTest::newRow("half a text") << bytes("\0\xFF\x01\x02x");
    QTest::newRow("no length") << bytes("\0\xFF\x01");
    QTest::newRow("no type") << bytes("\0\xFF");
}

void TestMidiReader::refusesTracks()
{
    QFETCH(const QByteArray, track);
    QVERIFY(!MidiReader::readEvents(track, 0, track.size()));
}

void TestMidiReader::refusesChunks()
{
    const QByteArray song = midi({}, 1);
    QVERIFY(MidiReader::readTracks(song));
    QVERIFY(!MidiReader::readTracks(midi({}, 2)));
    QVERIFY(!MidiReader::readTracks(song.chopped(1)));
    QVERIFY(!MidiReader::readTracks(song.left(13)));
    QVERIFY(!MidiReader::readTracks('x' + song));
    QVERIFY(!MidiReader::readTracks(QByteArray(song).replace(11, 1, "\3")));
    QVERIFY(!MidiReader::readTracks(QByteArray(song).replace(7, 1, "\5")));
    // The header holds bytes that look like a track.
    QVERIFY(!MidiReader::readTracks(QByteArray(song).insert(14, "MTrk").replace(7, 1, "\x0A")));
    QVERIFY(MidiReader::readTracks(QByteArray(song).insert(14, "Mtrk").replace(7, 1, "\x0A")));
}

void TestMidiReader::noticesAChange_data()
{
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("problem");
    const QByteArray before = metaEvent(1, "x") + bytes("\xE0") + metaEvent(3, "later");
    const QByteArray right = midi(metaEvent(3, "new") + before, 1);
    const auto row = [](const char *name, const QByteArray &after, const QString &problem) {
        QTest::newRow(name) << after << problem;
    };
    row("right", right, {});
    row("not written", midi(before, 1),
        u"first track, event 0 is tick 0: ff 1 78 instead of tick 0: ff 3 6e 65 77"_s);
    row("the old one kept", midi(metaEvent(3, "new") + metaEvent(3, "old") + before, 1),
        u"first track, event 1 is tick 0: ff 3 6f 6c 64 instead of tick 0: ff 1 78"_s);
    row("another text", QByteArray(right).replace('x', 'y'),
        u"first track, event 1 is tick 0: ff 1 79 instead of tick 0: ff 1 78"_s);
    row("another tick", QByteArray(right).replace('\xE0', '\xE1'),
        u"first track, event 2 is tick 12416: ff 3 6c 61 74 65 72 instead of "
        "tick 12288: ff 3 6c 61 74 65 72"_s);
    row("one removed", midi(metaEvent(3, "new") + metaEvent(1, "x"), 1),
        u"first track, event 2 is tick 0: 90 -1 3c 40 instead of "
        "tick 12288: ff 3 6c 61 74 65 72"_s);
    row("another second track", QByteArray(right).replace("\x91\x40", "\x91\x41"),
        u"track 1, event 0 is tick 0: 91 -1 41 40 instead of tick 0: 91 -1 40 40"_s);
    row("another header", QByteArray(right).replace(13, 1, "\x61"),
        u"other bytes around the first track"_s);
    row("bytes after", right + "x", u"other bytes around the first track"_s);
    row("one track", midi(metaEvent(3, "new") + before), u"another number of tracks"_s);
    row("another length", QByteArray(right).replace(21, 1, "\x10"), u"the song can't be read"_s);
}

void TestMidiReader::noticesAChange()
{
    QFETCH(const QByteArray, after);
    QFETCH(const QString, problem);
    const QByteArray before =
        midi(metaEvent(3, "old") + metaEvent(1, "x") + bytes("\xE0") + metaEvent(3, "later"), 1);
    QCOMPARE(MidiReader::whatChanged(before, after, {3}, metaEvent(3, "new")), problem);
}

BRISEL_TEST(QCoreApplication, TestMidiReader)
#include "tst_midireader.moc"
