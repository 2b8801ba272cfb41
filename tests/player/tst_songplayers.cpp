#include "player/songplayers.h"
#include "player/soundfont.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>

using namespace brisel;

/// The choice of a player and of a sound font.
class TestSongPlayers : public QObject
{
    Q_OBJECT

private slots:
    void saysThatMidiIsNotPlayed();
    void saysThatMp3IsNotPlayed();
    void makesThePlayersItWasBuiltWith();
    void takesTheFirstUsualSoundFont();
    void takesTheChosenSoundFont();
    void saysThatThereIsNoSoundFont();
};

static PlayableSong midiSong()
{
    PlayableSong song;
    song.midi = "MThd";
    return song;
}

void TestSongPlayers::saysThatMidiIsNotPlayed()
{
    QString trouble;
    QVERIFY(SongPlayers({}, {false, true}).make(midiSong(), trouble) == nullptr);
    QVERIFY2(trouble.contains(u"senza FluidSynth"), qPrintable(trouble));
}

void TestSongPlayers::saysThatMp3IsNotPlayed()
{
    QString trouble;
    QVERIFY(SongPlayers({}, {true, false}).make(PlayableSong(), trouble) == nullptr);
    QVERIFY2(trouble.contains(u"senza Qt Multimedia"), qPrintable(trouble));
}

void TestSongPlayers::makesThePlayersItWasBuiltWith()
{
    QString trouble;
    const SongPlayers players(u"/any.sf2"_qs);
    QCOMPARE(players.make(midiSong(), trouble) != nullptr, SongPlayers::built.midi);
    QCOMPARE(trouble.isEmpty(), SongPlayers::built.midi);
    trouble.clear();
    QCOMPARE(players.make(PlayableSong(), trouble) != nullptr, SongPlayers::built.mp3);
    QCOMPARE(trouble.isEmpty(), SongPlayers::built.mp3);
}

void TestSongPlayers::takesTheFirstUsualSoundFont()
{
    const QTemporaryDir folder;
    const QStringList usual{folder.filePath(u"missing.sf2"_qs), folder.filePath(u"a.sf2"_qs),
                            folder.filePath(u"b.sf2"_qs)};
    QCOMPARE(soundFontFor({}, usual), QString());
    makeFile(usual.at(2), "x");
    QCOMPARE(soundFontFor({}, usual), usual.at(2));
    makeFile(usual.at(1), "x");
    QCOMPARE(soundFontFor({}, usual), usual.at(1));
}

/// Even if it is missing: the message then names it.
void TestSongPlayers::takesTheChosenSoundFont()
{
    QCOMPARE(soundFontFor(u"/gone.sf2"_qs, {}), u"/gone.sf2"_qs);
}

void TestSongPlayers::saysThatThereIsNoSoundFont()
{
    if (!soundFontFor({}).isEmpty())
        QSKIP("this system has a sound font");
    QString trouble;
    QVERIFY(SongPlayers({}, {true, true}).make(midiSong(), trouble) == nullptr);
    QVERIFY(trouble.contains(u"SoundFont"));
}

BRISEL_TEST(QCoreApplication, TestSongPlayers)
#include "tst_songplayers.moc"
