#include "base/settingsstore.h"
#include "index/indexreader.h"
#include "index/indexset.h"
#include "index/playlists.h"
#include "library/safecopy.h"
#include "songfile/metasong.h"
#include "tests/shim/damagedfile.h"
#include "tests/smalldisk.h"
#include "tests/songfile/samples.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QRandomGenerator>
#include <QTest>

#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

constexpr int sector = 512;       ///< bytes between two offsets at which reading fails
constexpr int fillerSize = 20000; ///< bytes

/// When a song can't be read.
enum class Phase { Import, Save, Both };

/// Incompressible bytes, the same each time.
QByteArray noise(int size)
{
    QRandomGenerator generator(1);
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(generator.bounded(256));
    return bytes;
}

/// A song of a few tens of KB.
QByteArray largeSong(const QByteArray &kind)
{
    if (kind == "MP3")
        return Samples::tag(Samples::frame("TIT2", "Old") + Samples::frame("APIC", noise(5000))) +
               Samples::audio(fillerSize);
    const QByteArray midi = Samples::midi(Samples::metaEvent(3, "Old"), 1) + noise(fillerSize);
    if (kind == "MIDI")
        return midi;
    return Samples::container(Samples::containerHeader(kind, kind == "_ZB5" ? 1024 : 512), midi);
}

QString songName(const QByteArray &kind)
{
    return kind == "MP3" ? u"song.mp3"_s : u"song.mid"_s;
}

bool importSong(const QString &name, MetaSong &song)
{
    return song.importFile(name);
}

bool saveSong(const QString &name, MetaSong &song)
{
    SongInfo info;
    song.getSongInfo(info);
    info.title = u"A new title"_s;
    song.setSongInfo(info, true);
    return song.saveToFile(name);
}

template <typename Step>
bool runDamaged(bool isDamaged, const QString &name, qint64 offset, Shim::ReadFailure failure,
                Step step)
{
    if (!isDamaged)
        return step();
    const DamagedFile damaged(name, offset, failure);
    return step();
}

QStringList entries()
{
    return QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

/// Reading fails, or ends too early, at every sector of a file: no song loses data.
class TestReadFailures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void failsReadsFromTheOffsetOn();
    void keepsSongs_data();
    void keepsSongs();
    void makesNoHalfCopy_data();
    void makesNoHalfCopy();
    void deletesNoOldCopyForASongThatCannotBeRead();
    void refusesPlaylists();
    void keepsSettings();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestReadFailures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

void TestReadFailures::cleanup()
{
    Shim::readAll();
    QDir::setCurrent(u"/"_s);
    m_folder.reset();
}

void TestReadFailures::failsReadsFromTheOffsetOn()
{
    makeFile(u"file"_s, QByteArray(1000, 'x'));
    QFile file(u"file"_s);
    char bytes[1000];
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        const DamagedFile damaged(u"file"_s, 600, failure);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const ssize_t behind = failure == Shim::BadSector ? -1 : 0;
        QCOMPARE(::pread(file.handle(), bytes, 1000, 0), 600);
        QCOMPARE(::pread(file.handle(), bytes, 1, 599), 1);
        QCOMPARE(::pread(file.handle(), bytes, 1, 600), behind);
        QCOMPARE(::read(file.handle(), bytes, 1000), 600);
        QCOMPARE(::read(file.handle(), bytes, 1000), behind);
        QFile target(u"target"_s);
        QVERIFY(target.open(QIODevice::WriteOnly));
        off64_t pos = 500;
        QCOMPARE(::copy_file_range(file.handle(), &pos, target.handle(), nullptr, 500, 0), 100);
        QCOMPARE(::copy_file_range(file.handle(), &pos, target.handle(), nullptr, 400, 0), behind);
        file.close();
    }
    QCOMPARE(fileContent(u"file"_s).size(), 1000);
}

void TestReadFailures::keepsSongs_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<bool>("isLinked");
    for (const char *kind : {"MIDI", "_ZB3", "_ZB4", "_ZB5", "MP3"})
        QTest::newRow(kind) << QByteArray(kind) << false;
    QTest::newRow("MIDI, hard-linked") << QByteArray("MIDI") << true;
    QTest::newRow("MP3, hard-linked") << QByteArray("MP3") << true;
}

void TestReadFailures::keepsSongs()
{
    QFETCH(const QByteArray, kind);
    QFETCH(const bool, isLinked);
    const QString name = songName(kind);
    const QByteArray old = largeSong(kind);
    makeFile(name, old);
    MetaSong reference;
    QVERIFY(importSong(name, reference) && saveSong(name, reference));
    const QByteArray whole = fileContent(name);
    QVERIFY(whole != old && whole.size() > fillerSize);

    int refused = 0;
    int done = 0;
    for (const Phase phase : {Phase::Import, Phase::Save, Phase::Both}) {
        for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
            for (qint64 offset = 0; offset < old.size() + 2 * sector; offset += sector) {
                QFile::remove(name);
                QFile::remove(u"other"_s);
                makeFile(name, old);
                if (isLinked)
                    QCOMPARE(::link(qPrintable(name), "other"), 0);
                const QStringList before = entries();
                MetaSong song;
                const bool isImported = runDamaged(phase != Phase::Save, name, offset, failure,
                                                   [&] { return importSong(name, song); });
                const bool isSaved =
                    isImported && runDamaged(phase != Phase::Import, name, offset, failure,
                                             [&] { return saveSong(name, song); });
                const QByteArray content = fileContent(name);
                const QByteArray place = QByteArray::number(offset);
                QVERIFY2(content == (isSaved ? whole : old), place.constData());
                QVERIFY2(entries() == before, place.constData());
                if (phase != Phase::Save && kind != "MP3")
                    QCOMPARE(isImported, offset >= old.size());
                ++(isSaved ? done : refused);
            }
        }
    }
    QVERIFY(refused > 0);
    QVERIFY(done > 0);
    std::printf("%s: %d refused, %d done\n", QTest::currentDataTag(), refused, done);
}

void TestReadFailures::makesNoHalfCopy_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::newRow("new file") << QByteArray();
    QTest::newRow("over an old one") << QByteArray("the old song");
}

void TestReadFailures::makesNoHalfCopy()
{
    QFETCH(const QByteArray, old);
    const QByteArray content = noise(fillerSize);
    makeFile(u"source.mp3"_s, content);
    const auto copy = old.isEmpty() ? &copyToNewFile : &copyOverFile;
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        for (qint64 offset = 0; offset < content.size() + sector; offset += sector) {
            QFile::remove(u"copy.mp3"_s);
            if (!old.isEmpty())
                makeFile(u"copy.mp3"_s, old);
            const QStringList before = entries();
            const DamagedFile damaged(u"source.mp3"_s, offset, failure);
            const bool isCopied = offset >= content.size();
            QCOMPARE(copy(u"source.mp3"_s, u"copy.mp3"_s),
                     isCopied ? CopyResult::Done : CopyResult::SourceFailed);
            QVERIFY(fileContent(u"copy.mp3"_s) == (isCopied ? content : old));
            QVERIFY(isCopied || entries() == before);
        }
    }
}

void TestReadFailures::deletesNoOldCopyForASongThatCannotBeRead()
{
    QVERIFY(QDir().mkdir(u"CARD"_s));
    constexpr qint64 page = SmallDisk::pageSize;
    const SmallDisk disk(m_folder->filePath(u"CARD"_s), 20 * page);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    const QByteArray old(8 * page, 'o');
    makeFile(u"CARD/song.mp3"_s, old);
    makeFile(u"song.mp3"_s, noise(14 * page));
    {
        // The disk is full before the copy reaches the bad sector.
        const DamagedFile damaged(u"song.mp3"_s, 13 * page, Shim::BadSector);
        QCOMPARE(copyOverFile(u"song.mp3"_s, u"CARD/song.mp3"_s), CopyResult::SourceFailed);
        QVERIFY(fileContent(u"CARD/song.mp3"_s) == old);
    }
    QCOMPARE(copyOverFile(u"song.mp3"_s, u"CARD/song.mp3"_s), CopyResult::Done);
    QVERIFY(fileContent(u"CARD/song.mp3"_s) == noise(14 * page));
}

void TestReadFailures::refusesPlaylists()
{
    constexpr int recordSize = 64;
    const QString list = u"playlist/playlist.dat"_s;
    const QString songs = Playlists::songsFileName(7);
    const QString paths = Playlists::pathsFileName(7);
    makeFile(list, QByteArray(1, '\7') + QByteArray(20 * recordSize - 1, '\0'));
    makeFile(songs, QByteArray(20 * recordSize, 's'));
    Run setRun;
    IndexSet set(setRun);
    set.setRoot(m_folder->path());
    QVERIFY(Playlists::readNumbers(set).contains(7));
    const IndexReader noIndex;
    const QList<SongInfoIndex> noSongs;
    const auto staged = [&] {
        PlaylistFollower follower(noIndex, noSongs, [](const QString &path) { return path; });
        return Playlists::stage(set, {7}, follower, PlaylistFollower::Way::InPlace);
    };
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        for (const qint64 offset : {0, sector, 2 * sector}) {
            {
                const DamagedFile damaged(list, offset, failure);
                QCOMPARE(Playlists::readNumbers(set), QList<qint16>());
            }
            QVERIFY(set.beginStaging());
            {
                const DamagedFile damaged(songs, offset, failure);
                QCOMPARE(Playlists::writePathFiles(set, {7}, noIndex),
                         Playlists::Preparation::NoSongs);
            }
            QVERIFY(!QFile::exists(paths));
            makeFile(paths, QByteArray(20 * recordSize, 'p'));
            {
                const DamagedFile damaged(songs, offset, failure);
                QCOMPARE(staged(), QStringList(songs));
            }
            {
                // An unreadable path file does not matter: the playlist itself has the entries.
                const DamagedFile damaged(paths, offset, failure);
                QCOMPARE(staged(), QStringList());
            }
            QCOMPARE(staged(), QStringList());
            set.discard();
            QVERIFY(QFile::remove(paths));
            QCOMPARE(fileContent(songs), QByteArray(20 * recordSize, 's'));
        }
    }
}

void TestReadFailures::keepsSettings()
{
    const QByteArray home = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder->path()));
    const QString name = u"kordia/brisel2pc.conf"_s;
    const QByteArray old =
        "[General]\nlanguage=it\nfiller=" + QByteArray(3000, 'x') + "\nlast=it\n";
    makeFile(name, old);
    for (const Shim::ReadFailure failure : {Shim::BadSector, Shim::EndOfFile}) {
        // From the end down, because the settings class caches what it has read.
        for (qint64 offset = old.size() / sector * sector; offset >= 0; offset -= sector) {
            const DamagedFile damaged(name, offset, failure);
            QSettings settings = openSettings();
            QCOMPARE(settings.value(u"language"_s, u"default"_s).toString(), u"default"_s);
            QVERIFY(!storeSetting(settings, u"language"_s, u"en"_s));
        }
        QVERIFY(fileContent(name) == old);
    }
    qputenv("XDG_CONFIG_HOME", home);
}

BRISEL_TEST(QCoreApplication, TestReadFailures)
#include "tst_readfailures.moc"
