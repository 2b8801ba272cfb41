#include "player/mp3player.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"
#include "tools/samplesongs.h"

#include <QAudioDevice>
#include <QDirIterator>
#include <QGuiApplication>
#include <QMediaDevices>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace brisel;

/// Plays without a sound device, because the machines that run tests have no sound: the library
/// then reads the file, but does not follow the song's time.
class TestMp3Player : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void playsAndStops();
    void closesTheFile();
    void failsWithoutADevice();
    void reportsAMissingFile();
    void worksWithoutASong();
    void survivesTheCorpus();

private:
    PlayableSong song(const QByteArray &content)
    {
        const QString path = m_folder->filePath(u"a.mp3"_qs);
        makeFile(path, content);
        PlayableSong song;
        song.path = path;
        return song;
    }
    static QByteArray silence() { return SampleSongs::mp3(SampleSongs::Tag::Id3v23, {}, 3); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Mp3Player> m_player;
    std::unique_ptr<QSignalSpy> m_failed;
};

/// True if this process has the file open.
static bool isOpen(const QString &path)
{
    const QDir handles(u"/proc/self/fd"_qs);
    const QStringList names = handles.entryList(QDir::Files | QDir::System);
    return std::any_of(names.cbegin(), names.cend(), [&](const QString &name) {
        return QFile::symLinkTarget(handles.filePath(name)) == path;
    });
}

void TestMp3Player::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_player = std::make_unique<Mp3Player>(SongPlayer::Output::None);
    m_failed = std::make_unique<QSignalSpy>(m_player.get(), &SongPlayer::failed);
}

void TestMp3Player::cleanup()
{
    m_player.reset();
    m_folder.reset();
}

void TestMp3Player::playsAndStops()
{
    QVERIFY(m_player->load(song(silence())));
    m_player->play();
    QTRY_VERIFY(m_player->duration() > 2900);
    QVERIFY(m_player->duration() < 3200);
    QVERIFY(m_player->isPlaying());
    m_player->seek(1000);
    m_player->seek(-1);
    m_player->seek(1000000000);
    m_player->stop();
    QVERIFY(!m_player->isPlaying());
    QCOMPARE(m_failed->count(), 0);
}

void TestMp3Player::closesTheFile()
{
    const PlayableSong silent = song(silence());
    QVERIFY(m_player->load(silent));
    m_player->play();
    QTRY_VERIFY(m_player->duration() > 0);
#ifdef Q_OS_LINUX
    QVERIFY(isOpen(silent.path));
#endif
    m_player->stop();
    QVERIFY(!isOpen(silent.path));
}

void TestMp3Player::failsWithoutADevice()
{
    if (!QMediaDevices::audioOutputs().isEmpty())
        QSKIP("this system has a sound device");
    Mp3Player player;
    const QSignalSpy failed(&player, &SongPlayer::failed);
    QVERIFY(!player.load(song(silence())));
    QCOMPARE(failed.count(), 1);
    player.play();
    QVERIFY(!player.isPlaying());
}

void TestMp3Player::reportsAMissingFile()
{
    PlayableSong missing;
    missing.path = m_folder->filePath(u"missing.mp3"_qs);
    if (m_player->load(missing))
        m_player->play();
    QTRY_VERIFY(m_failed->count() > 0);
    QVERIFY(!m_player->isPlaying());
}

void TestMp3Player::worksWithoutASong()
{
    m_player->play();
    m_player->seek(5);
    m_player->stop();
    QVERIFY(!m_player->isPlaying());
    QCOMPARE(m_player->position(), 0);
    QCOMPARE(m_player->duration(), 0);
}

void TestMp3Player::survivesTheCorpus()
{
    const QString corpus = qEnvironmentVariable("BRISEL_CORPUS");
    if (corpus.isEmpty())
        QSKIP("BRISEL_CORPUS names no folder");
    QDirIterator files(corpus, {u"*.mp3"_qs}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        PlayableSong song;
        song.path = files.next();
        if (!m_player->load(song))
            continue;
        m_player->play();
        QTest::qWait(20);
        m_player->seek(m_player->duration() / 2);
        QTest::qWait(20);
        m_player->stop();
    }
}

BRISEL_TEST(QGuiApplication, TestMp3Player)
#include "tst_mp3player.moc"
