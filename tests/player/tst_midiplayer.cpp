#include "player/midiplayer.h"
#include "player/soundfont.h"
#include "tests/literalbytes.h"
#include "tests/midibytes.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace brisel;

using LiteralBytes::bytes;

/// Milliseconds in which the last notes fade away.
static constexpr qint64 afterTheEnd = 6000;

/// Plays without a sound device: the sound is computed on demand, so the clock does not matter.
class TestMidiPlayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void soundsAndEnds();
    void endsWithNotesThatAreNeverReleased();
    void stopsAtOnce();
    void seeksForwardAndBack();
    void takesTheLastOfTwoSeeks();
    void playsASecondSong();
    void refusesAMissingSoundFont();
    void refusesAnotherFileAsSoundFont();
    void refusesDataThatTheLibraryRejects();
    void worksWithoutASong();
    void failsWithoutADevice();

private:
    static PlayableSong song(const QByteArray &track);
    /// Four quarter notes of 500 ms each.
    static PlayableSong fourNotes();

    std::unique_ptr<MidiPlayer> m_player;
    std::unique_ptr<QSignalSpy> m_finished;
    std::unique_ptr<QSignalSpy> m_failed;
};

PlayableSong TestMidiPlayer::song(const QByteArray &track)
{
    PlayableSong song;
    song.midi = MidiBytes::file({track + MidiBytes::endOfTrack()});
    song.timeline = SongTimeline::read(song.midi).value_or(SongTimeline());
    return song;
}

PlayableSong TestMidiPlayer::fourNotes()
{
    return song(bytes("\x00\x90\x3C\x7F\x60\x3C\x00").repeated(4));
}

void TestMidiPlayer::init()
{
    if (soundFontFor({}).isEmpty())
        QSKIP("no sound font");
    m_player = std::make_unique<MidiPlayer>(soundFontFor({}), SongPlayer::Output::None);
    m_finished = std::make_unique<QSignalSpy>(m_player.get(), &SongPlayer::finished);
    m_failed = std::make_unique<QSignalSpy>(m_player.get(), &SongPlayer::failed);
}

void TestMidiPlayer::cleanup()
{
    m_player.reset();
}

void TestMidiPlayer::soundsAndEnds()
{
    QVERIFY(m_player->load(fourNotes()));
    QCOMPARE(m_player->duration(), 2000);
    QVERIFY(!m_player->isPlaying());
    m_player->play();
    QVERIFY(m_player->isPlaying());
    QVERIFY(m_player->render(1000) > 0.01F);
    QVERIFY2(qAbs(m_player->position() - 1000) < 30,
             qPrintable(QString::number(m_player->position())));
    QCOMPARE(m_finished->count(), 0);
    m_player->render(1100);
    QCOMPARE(m_player->position(), 2000);
    m_player->render(afterTheEnd);
    QCOMPARE(m_finished->count(), 1);
    QVERIFY(!m_player->isPlaying());
    QCOMPARE(m_player->position(), 0);
    QCOMPARE(m_failed->count(), 0);
}

void TestMidiPlayer::endsWithNotesThatAreNeverReleased()
{
    // The church organ, and a whole bar of silence after its note.
    QVERIFY(m_player->load(song(bytes("\x00\xC0\x13\x00\x90\x3C\x7F\x83\x00\x90\x3C\x7F"))));
    m_player->play();
    m_player->render(2000);
    QCOMPARE(m_finished->count(), 0);
    m_player->render(afterTheEnd);
    QCOMPARE(m_finished->count(), 1);
    QCOMPARE(m_failed->count(), 0);
}

void TestMidiPlayer::stopsAtOnce()
{
    QVERIFY(m_player->load(fourNotes()));
    m_player->play();
    m_player->render(600);
    m_player->stop();
    QVERIFY(!m_player->isPlaying());
    QCOMPARE(m_player->position(), 0);
    QCOMPARE(m_player->duration(), 0);
    QCOMPARE(m_player->render(100), 0.0F);
    QCOMPARE(m_finished->count(), 0);
}

void TestMidiPlayer::seeksForwardAndBack()
{
    QVERIFY(m_player->load(fourNotes()));
    m_player->play();
    m_player->render(100);
    for (const int ms : {1500, 250}) {
        m_player->seek(ms);
        QVERIFY2(qAbs(m_player->position() - ms) < 10,
                 qPrintable(QString::number(m_player->position())));
        m_player->render(100);
        QVERIFY2(qAbs(m_player->position() - ms - 100) < 30,
                 qPrintable(QString::number(m_player->position())));
    }
    m_player->seek(-10);
    m_player->render(10);
    QVERIFY(m_player->position() < 50);
    m_player->seek(1000000);
    m_player->render(100 + afterTheEnd);
    QCOMPARE(m_finished->count(), 1);
}

/// The library takes a second one only when the first one is done.
void TestMidiPlayer::takesTheLastOfTwoSeeks()
{
    QVERIFY(m_player->load(fourNotes()));
    m_player->play();
    m_player->seek(500);
    m_player->seek(1500);
    QVERIFY(qAbs(m_player->position() - 1500) < 10);
    m_player->render(100); // the first one, then the second one is asked for again
    QVERIFY(qAbs(m_player->position() - 1500) < 10);
    m_player->render(100);
    QVERIFY2(qAbs(m_player->position() - 1600) < 30,
             qPrintable(QString::number(m_player->position())));
}

void TestMidiPlayer::playsASecondSong()
{
    QVERIFY(m_player->load(fourNotes()));
    m_player->play();
    m_player->render(500);
    QVERIFY(m_player->load(song(bytes("\x00\x90\x40\x7F\x60\x40\x00"))));
    m_player->play();
    QCOMPARE(m_player->duration(), 500);
    QVERIFY(m_player->position() < 50);
    m_player->render(600 + afterTheEnd);
    QCOMPARE(m_finished->count(), 1);
}

void TestMidiPlayer::refusesAMissingSoundFont()
{
    MidiPlayer player(u"/nowhere/gone.sf2"_qs, SongPlayer::Output::None);
    QSignalSpy failed(&player, &SongPlayer::failed);
    QVERIFY(!player.load(fourNotes()));
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.at(0).at(0).toString().contains(u"/nowhere/gone.sf2"));
}

void TestMidiPlayer::refusesAnotherFileAsSoundFont()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"song.sf2"_qs);
    makeFile(path, "RIFF no sound font");
    for (const QString &font : {path, folder.path()}) {
        MidiPlayer player(font, SongPlayer::Output::None);
        QSignalSpy failed(&player, &SongPlayer::failed);
        QVERIFY(!player.load(fourNotes()));
        QCOMPARE(failed.count(), 1);
    }
}

void TestMidiPlayer::refusesDataThatTheLibraryRejects()
{
    PlayableSong broken = fourNotes();
    broken.midi.truncate(30); // within the track
    QVERIFY(m_player->load(broken));
    m_player->play();
    QCOMPARE(m_failed->count(), 1);
    QVERIFY(!m_player->isPlaying());
}

void TestMidiPlayer::worksWithoutASong()
{
    m_player->play();
    m_player->stop();
    m_player->seek(100);
    QVERIFY(!m_player->isPlaying());
    QCOMPARE(m_player->position(), 0);
    QCOMPARE(m_player->render(10), 0.0F);
}

void TestMidiPlayer::failsWithoutADevice()
{
    MidiPlayer player(soundFontFor({}));
    QSignalSpy failed(&player, &SongPlayer::failed);
    QVERIFY(player.load(fourNotes()));
    player.play();
    if (failed.isEmpty())
        QSKIP("this system has a sound device");
    QCOMPARE(failed.count(), 1);
    QVERIFY(!player.isPlaying());
}

BRISEL_TEST(QCoreApplication, TestMidiPlayer)
#include "tst_midiplayer.moc"
