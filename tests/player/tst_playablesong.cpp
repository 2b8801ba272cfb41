#include "player/playablesong.h"
#include "tests/literalbytes.h"
#include "tests/midibytes.h"
#include "tests/songfile/samples.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"
#include "tools/samplesongs.h"

using namespace brisel;

using LiteralBytes::bytes;

/// What the players get of a song file.
class TestPlayableSong : public QObject
{
    Q_OBJECT

private slots:
    void readsEverySampleSong();
    void decompressesContainers_data();
    void decompressesContainers();
    void namesAnUntitledSongByItsFile();
    void showsMarkersByBarAndThoseOfTheTrack();
    void saysWhyAFileCantBeRead();
    void saysThatMidiDataCantBePlayed();
    void refusesMoreThan4MiB();

private:
    std::optional<PlayableSong> read(const QByteArray &content, const QString &name = u"a.mid"_qs)
    {
        const QString path = m_folder.filePath(name);
        makeFile(path, content);
        m_trouble.clear();
        return PlayableSong::read(path, m_trouble);
    }

    QTemporaryDir m_folder;
    QString m_trouble;
};

void TestPlayableSong::readsEverySampleSong()
{
    for (const SampleSongs::Sample &sample : SampleSongs::set()) {
        if (!sample.isSong)
            continue;
        const auto song = read(sample.content, sample.fileName);
        QVERIFY2(song.has_value(), qPrintable(sample.fileName));
        QCOMPARE(song->isMidi(), !sample.fileName.endsWith(u".mp3", Qt::CaseInsensitive));
        QCOMPARE(song->timeline.duration() > 0, song->isMidi());
        QVERIFY(!song->title.isEmpty());
    }
}

void TestPlayableSong::decompressesContainers_data()
{
    QTest::addColumn<QByteArray>("magic");
    QTest::addColumn<int>("size");
    QTest::newRow("zb3") << QByteArray("_ZB3") << 512;
    QTest::newRow("zb4") << QByteArray("_ZB4") << 512;
    QTest::newRow("zb5") << QByteArray("_ZB5") << 1024;
}

void TestPlayableSong::decompressesContainers()
{
    QFETCH(const QByteArray, magic);
    QFETCH(const int, size);
    const QByteArray midi = Samples::midi(MidiBytes::metaEvent(3, "Title"));
    QByteArray stored = midi;
    if (magic == "_ZB4") // its mark before the first event
        stored.insert(stored.indexOf("MTrk") + 8, bytes("\xFF\x00\xFF"));
    const auto song =
        read(Samples::container(Samples::containerHeader(magic, size), stored), u"a.zb"_qs);
    QVERIFY(song.has_value());
    QCOMPARE(song->midi, midi);
}

void TestPlayableSong::namesAnUntitledSongByItsFile()
{
    const auto song = read(Samples::midi(), u"untitled.mid"_qs);
    QVERIFY(song.has_value());
    QCOMPARE(song->title, u"untitled.mid"_qs);
    QCOMPARE(read(Samples::midi(MidiBytes::metaEvent(3, "Title")))->title, u"Title"_qs);
}

void TestPlayableSong::showsMarkersByBarAndThoseOfTheTrack()
{
    // Publisher's markers at bars 3 and 1, a marker event after one bar of 2,000 ms.
    const auto song =
        read(MidiBytes::file({MidiBytes::kordiaEvent(6, bytes("\x00\x03") + "Solo") +
                              MidiBytes::kordiaEvent(6, bytes("\x00\x01") + "Intro") +
                              bytes("\x83\x00\xFF\x06\x05Verse") + bytes("\x83\x00\x90\x3C\x40") +
                              MidiBytes::endOfTrack()}));
    QVERIFY(song.has_value());
    const QList<TimedText> expected{{0, u"Intro"_qs}, {2000, u"Verse"_qs}, {4000, u"Solo"_qs}};
    QCOMPARE(song->markers, expected);
}

void TestPlayableSong::saysWhyAFileCantBeRead()
{
    QVERIFY(!PlayableSong::read(m_folder.filePath(u"missing.mid"_qs), m_trouble).has_value());
    QCOMPARE(m_trouble, u"Il brano non si può leggere: il file non esiste"_qs);
    QVERIFY(!read("neither").has_value());
    QCOMPARE(m_trouble, u"Il brano non si può leggere: formato sconosciuto"_qs);
}

void TestPlayableSong::saysThatMidiDataCantBePlayed()
{
    QByteArray frames = Samples::midi();
    frames.replace(12, 2, bytes("\xE7\x28"));
    QVERIFY(!read(frames).has_value());
    QCOMPARE(m_trouble, u"I dati MIDI del brano non si possono suonare."_qs);
}

void TestPlayableSong::refusesMoreThan4MiB()
{
    const QByteArray event = MidiBytes::metaEvent(1, QByteArray(100, 'x'));
    const QByteArray large = event.repeated(4 * 1024 * 1024 / event.size() + 1);
    QVERIFY(!read(MidiBytes::file({large + MidiBytes::endOfTrack()})).has_value());
    QCOMPARE(m_trouble, u"I dati MIDI del brano non si possono suonare."_qs);
}

BRISEL_TEST(QCoreApplication, TestPlayableSong)
#include "tst_playablesong.moc"
