#include "player/midiplayer.h"
#include "player/soundfont.h"
#include "tests/logcapture.h"
#include "tests/songfile/samples.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"
#include "tools/samplesongs.h"

#include <QDirIterator>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace brisel;

/// Plays the start, the middle and the end of many songs, damaged ones among them: with
/// BRISEL_CORPUS=<folder> also those below it.
class TestPlayedSongs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void playsEverySampleSong();
    void survivesDamagedSongs();
    void survivesTheCorpus();

private:
    /// Returns true if the song sounds or ends.
    static bool plays(const PlayableSong &song);
};

void TestPlayedSongs::initTestCase()
{
    if (soundFontFor({}).isEmpty())
        QSKIP("no sound font");
}

bool TestPlayedSongs::plays(const PlayableSong &song)
{
    MidiPlayer player(soundFontFor({}), SongPlayer::Output::None);
    const QSignalSpy finished(&player, &SongPlayer::finished);
    if (!player.load(song))
        return false;
    player.play();
    float loudest = player.render(200);
    for (const qint64 part : {2, 1}) {
        player.seek(player.duration() - player.duration() / part / 2);
        loudest = std::max(loudest, player.render(200));
    }
    return loudest > 0 || !finished.isEmpty();
}

void TestPlayedSongs::playsEverySampleSong()
{
    const QTemporaryDir folder;
    QStringList paths;
    QVERIFY(SampleSongs::writeSet(folder.path(), &paths));
    int played = 0;
    for (const QString &path : paths) {
        QString trouble;
        const auto song = PlayableSong::read(path, trouble);
        QVERIFY2(song.has_value(), qPrintable(path + trouble));
        if (!song->isMidi())
            continue;
        QVERIFY2(plays(*song), qPrintable(path));
        ++played;
    }
    QVERIFY(played >= 5);
}

/// Each byte of the events once with all bits set, and once without.
void TestPlayedSongs::survivesDamagedSongs()
{
    const LogCapture quiet;
    const QByteArray whole = Samples::midi(Samples::metaEvent(5, "la"), 1);
    MidiPlayer player(soundFontFor({}), SongPlayer::Output::None);
    for (qsizetype i = 0; i < whole.size(); ++i) {
        for (const char value : {'\0', '\xFF'}) {
            PlayableSong song;
            song.midi = whole;
            song.midi[i] = value;
            const auto timeline = SongTimeline::read(song.midi);
            if (!timeline.has_value())
                continue;
            song.timeline = *timeline;
            if (!player.load(song))
                continue;
            player.play();
            player.render(20);
            player.seek(song.timeline.duration() / 2);
            player.render(20);
        }
    }
}

void TestPlayedSongs::survivesTheCorpus()
{
    const QString corpus = qEnvironmentVariable("BRISEL_CORPUS");
    if (corpus.isEmpty())
        QSKIP("BRISEL_CORPUS names no folder");
    const LogCapture quiet;
    int played = 0;
    QDirIterator files(corpus, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString trouble;
        const auto song = PlayableSong::read(files.next(), trouble);
        if (song.has_value() && song->isMidi() && plays(*song))
            ++played;
    }
    QVERIFY(played > 0);
}

BRISEL_TEST(QCoreApplication, TestPlayedSongs)
#include "tst_playedsongs.moc"
