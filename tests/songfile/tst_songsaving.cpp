#include "base/bytes.h"
#include "songfile/lzhuff.h"
#include "songfile/metasong.h"
#include "tests/fulldisk.h"
#include "tests/logcapture.h"
#include "tests/songfile/samples.h"
#include "tests/testhome.h"

#include <QtTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#endif

using namespace Qt::StringLiterals;
using Samples::frame;
using Samples::metaEvent;
using Samples::midi;
using Samples::tag;

namespace
{

const QString readOnlyOk = u"remove read only flag: OK "_s;
const QString writeFailed = u"[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
                            "protected? Aborting! "_s;

QByteArray oldSong(const QString &name)
{
    const QByteArray music = midi(metaEvent(3, "Old"));
    if (name.endsWith(u"mp3"_s))
        return tag(frame("TIT2", "Old")) + Samples::audio(250000);
    if (name.endsWith(u"zb3"_s))
        return Samples::container(Samples::containerHeader("_ZB3", 512), music);
    return music;
}

/// No more files can be opened than are open, and \a more.
class FewFiles
{
public:
    explicit FewFiles(int more)
    {
        const int next = ::dup(0);
        ::close(next);
        ::getrlimit(RLIMIT_NOFILE, &m_old);
        const rlimit limit{static_cast<rlim_t>(next + more), m_old.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~FewFiles() { ::setrlimit(RLIMIT_NOFILE, &m_old); }
    FewFiles(const FewFiles &) = delete;
    FewFiles &operator=(const FewFiles &) = delete;

private:
    rlimit m_old{};
};

} // namespace

class TestSongSaving : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void refusesAnEmptySong();
    void refusesAHeaderOfTheWrongSize();
    void savesAMidiFile();
    void savesContainers_data();
    void savesContainers();
    void roundTripsTheMarkOfZb4();
    void refusesAContainerThatCouldNotBeReadAgain();
    void refusesAMidiFileThatCouldNotBeReadAgain();
    void refusesATagThatCouldNotBeReadAgain();
    void savesToANewFile();
    void savesAnMp3();
    void givesAnMp3ItsFirstTag();
    void savesAnMp3WhoseTagEndsBehindTheFile();
    void savesAnMp3Twice();
    void keepsOtherTemporaryFiles();
    void namesTheTemporaryFileInTheFolder();
    void keepsLinksAndPermissions_data();
    void keepsLinksAndPermissions();
    void keepsTheSongOnAFullDisk_data();
    void keepsTheSongOnAFullDisk();
    void keepsTheSongWhenNoFileCanBeCreated();
    void keepsTheSongInAReadOnlyFolder();
    void needsTheOldMp3();
    void refusesAnMp3ThatHasShrunk();
    void opensNoDevices();
    void makesAWriteProtectedSongWritable();
    void clearsTheImmutableFlag();

private:
    void writeSong(const QString &name, const QByteArray &content);
    MetaSong changedSong(const QString &name);
    QStringList entries() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<LogCapture> m_log;
};

void TestSongSaving::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    m_log = std::make_unique<LogCapture>();
}

void TestSongSaving::cleanup()
{
    m_log.reset();
    QDir::setCurrent(u"/"_s);
    m_folder.reset();
}

QStringList TestSongSaving::entries() const
{
    return QDir(m_folder->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void TestSongSaving::writeSong(const QString &name, const QByteArray &content)
{
    Samples::write(name, content);
}

/// The old song under \a name, opened and given another title.
MetaSong TestSongSaving::changedSong(const QString &name)
{
    if (!QFile::exists(name))
        writeSong(name, oldSong(name));
    MetaSong song;
    if (!song.importFile(name))
        qFatal("refused");
    SongInfo info;
    info.title = u"New"_s;
    song.setSongInfo(info, true);
    m_log->clear();
    return song;
}

void TestSongSaving::refusesAnEmptySong()
{
    QVERIFY(!MetaSong().saveToFile(u"a.mid"_s));
    QCOMPARE(m_log->messages(), QStringList{u"[MetaSong::saveToFile] UNKNOWN format (or data "
                                            "corrupted) in memory, aborting "_s});
    QVERIFY(entries().isEmpty());
}

void TestSongSaving::refusesAHeaderOfTheWrongSize()
{
    // A container that can't be read again leaves the object without its header.
    MetaSong song = changedSong(u"a.zb3"_s);
    writeSong(u"bad.zb3"_s, "_ZB3");
    QVERIFY(!song.importFile(u"bad.zb3"_s));
    m_log->clear();
    QVERIFY(!song.saveToFile(u"a.zb3"_s));
    QVERIFY(m_log->messages().first().startsWith(u"[MetaSong::saveToFile] UNKNOWN format"_s));
    QCOMPARE(Samples::read(u"a.zb3"_s), oldSong(u"a.zb3"_s));
}

void TestSongSaving::savesAMidiFile()
{
    MetaSong song = changedSong(u"a.mid"_s);
    QVERIFY(song.saveToFile(u"a.mid"_s));
    QCOMPARE(m_log->messages(), QStringList({readOnlyOk, u"[MetaSong::saveToFile] MIDI "_s}));
    QVERIFY(Samples::read(u"a.mid"_s).contains(metaEvent(3, "New")));
    QCOMPARE(entries(), QStringList{u"a.mid"_s});
}

void TestSongSaving::savesContainers_data()
{
    QTest::addColumn<QByteArray>("magic");
    QTest::addColumn<int>("headerSize");
    QTest::newRow("_ZB3") << QByteArray("_ZB3") << 512;
    QTest::newRow("_ZB4") << QByteArray("_ZB4") << 512;
    QTest::newRow("_ZB5") << QByteArray("_ZB5") << 1024;
}

void TestSongSaving::savesContainers()
{
    QFETCH(const QByteArray, magic);
    QFETCH(const int, headerSize);
    const QByteArray head = Samples::containerHeader(magic, headerSize);
    QByteArray music = midi(metaEvent(1, "kept"), 1);
    if (magic == "_ZB4")
        music.insert(22, Samples::bytes("\xFF\0\xFF"));
    writeSong(u"a.zbx"_s, Samples::container(head, music));
    MetaSong song;
    QVERIFY(song.importFile(u"a.zbx"_s));
    m_log->clear();
    QVERIFY(song.saveToFile(u"a.zbx"_s));
    const QByteArray saved = Samples::read(u"a.zbx"_s);
    const auto compressedSize = saved.size() - headerSize;
    QCOMPARE(m_log->messages(),
             QStringList({readOnlyOk, u"[MetaSong::saveToFile] ZBx "_s,
                          u"Compress:  %1  -->  %2 "_s.arg(music.size()).arg(compressedSize)}));
    QCOMPARE(le32At(saved, 4), quint32(saved.size()));
    QCOMPARE(le32At(saved, 12), quint32(music.size()));
    // Nothing else of the header has changed, and the music is the same.
    QCOMPARE(QByteArray(saved).replace(4, 4, head.mid(4, 4)).replace(12, 4, head.mid(12, 4)),
             Samples::container(head, music));
}

void TestSongSaving::roundTripsTheMarkOfZb4()
{
    QByteArray marked = midi(metaEvent(3, "Old"));
    marked.insert(22, Samples::bytes("\xFF\0\xFF"));
    writeSong(u"a.zb4"_s, Samples::container(Samples::containerHeader("_ZB4", 512), marked));
    MetaSong song;
    QVERIFY(song.importFile(u"a.zb4"_s));
    QCOMPARE(song.dbgAddMarker(u"M"_s, 1), 8);
    QVERIFY(song.saveToFile(u"a.zb4"_s));
    const QByteArray saved = Samples::read(u"a.zb4"_s);
    QByteArray expected =
        midi(Samples::kordiaEvent(6, Samples::bytes("\0\1M")) + metaEvent(3, "Old"));
    expected.insert(22, Samples::bytes("\xFF\0\xFF")); // not counted in the track's length
    QByteArray music;
    QVERIFY(LzHuff().expand(saved.mid(512), music));
    QCOMPARE(music, expected);
    QCOMPARE(le32At(saved, 12), quint32(expected.size()));
}

void TestSongSaving::refusesAContainerThatCouldNotBeReadAgain()
{
    const QByteArray start = midi();
    writeSong(u"a.zb3"_s,
              Samples::container(Samples::containerHeader("_ZB3", 512),
                                 start + QByteArray(LzHuff::maxTextSize - start.size(), ' ')));
    MetaSong song;
    QVERIFY(song.importFile(u"a.zb3"_s));
    QVERIFY(song.saveToFile(u"a.zb3"_s));
    const QByteArray before = Samples::read(u"a.zb3"_s);
    QVERIFY(song.dbgAddMarker(u"M"_s, 1) > 0);
    QVERIFY(!song.saveToFile(u"a.zb3"_s));
    QVERIFY(Samples::read(u"a.zb3"_s) == before);
}

void TestSongSaving::refusesAMidiFileThatCouldNotBeReadAgain()
{
    const QByteArray start = Samples::midi();
    const QByteArray song = start + QByteArray(MetaSong::maxSongSize - start.size(), 'x');
    writeSong(u"song.mid"_s, song);
    MetaSong metaSong;
    QVERIFY(metaSong.importFile(u"song.mid"_s));
    SongInfo info;
    info.title = u"One event more"_s;
    metaSong.setSongInfo(info, true);
    QVERIFY(!metaSong.saveToFile(u"song.mid"_s));
    QVERIFY(Samples::read(u"song.mid"_s) == song);
}

void TestSongSaving::refusesATagThatCouldNotBeReadAgain()
{
    const QByteArray frame = Samples::frame("APIC", QByteArray(Mp3Header::maxFileStart - 20, 'x'));
    const QByteArray song = Samples::tag(frame) + Samples::audio(1000);
    writeSong(u"song.mp3"_s, song);
    MetaSong metaSong;
    QVERIFY(metaSong.importFile(u"song.mp3"_s));
    SongInfo info;
    info.title = u"One frame more"_s;
    metaSong.setSongInfo(info, true);
    QVERIFY(!metaSong.saveToFile(u"song.mp3"_s));
    QVERIFY(Samples::read(u"song.mp3"_s) == song);
}

void TestSongSaving::savesToANewFile()
{
    MetaSong song = changedSong(u"a.mid"_s);
    QVERIFY(song.saveToFile(u"test_addmarker.bin"_s));
    QVERIFY(Samples::read(u"test_addmarker.bin"_s).contains(metaEvent(3, "New")));
    QCOMPARE(Samples::read(u"a.mid"_s), oldSong(u"a.mid"_s));
    m_log->clear();
    QVERIFY(!song.saveToFile(u"missing/a.mid"_s));
    QCOMPARE(m_log->messages(), QStringList({readOnlyOk, writeFailed}));
}

void TestSongSaving::savesAnMp3()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QCOMPARE(m_log->messages(), QStringList{readOnlyOk});
    QVERIFY(Samples::read(u"a.mp3"_s) ==
            tag(frame("MEDT", QByteArray(3, '\0')) + frame("TIT2", "New")) +
                Samples::audio(250000));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSaving::givesAnMp3ItsFirstTag()
{
    for (const int size : {10, 99999, 100000, 100001, 200000}) {
        writeSong(u"a.mp3"_s, Samples::audio(size));
        MetaSong song = changedSong(u"a.mp3"_s);
        QVERIFY(song.saveToFile(u"a.mp3"_s));
        QVERIFY(Samples::read(u"a.mp3"_s) ==
                tag(frame("MEDT", QByteArray(3, '\0')) + frame("TIT2", "New")) +
                    Samples::audio(size));
    }
}

void TestSongSaving::savesAnMp3WhoseTagEndsBehindTheFile()
{
    const QByteArray padding(20, '\0');
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old") + padding).chopped(5));
    for (int i = 0; i < 2; ++i) {
        MetaSong song = changedSong(u"a.mp3"_s);
        QVERIFY(song.saveToFile(u"a.mp3"_s));
    }
    QCOMPARE(Samples::read(u"a.mp3"_s),
             tag(frame("TIT2", "New") + frame("MEDT", QByteArray(3, '\0')) + padding).chopped(5));
}

void TestSongSaving::savesAnMp3Twice()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    SongInfo info;
    info.title = u"A longer title"_s;
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    const QByteArray saved = Samples::read(u"a.mp3"_s);
    QVERIFY(saved.endsWith(Samples::audio(250000)));
    QVERIFY(saved.startsWith(
        tag(frame("TIT2", "A longer title") + frame("MEDT", QByteArray(3, '\0')))));
    QCOMPARE(saved.size(), 10 + 11 + 14 + 14 + 250000);
}

void TestSongSaving::keepsOtherTemporaryFiles()
{
    writeSong(u"a.tmp"_s, "mine");
    QVERIFY(QDir().mkdir(u"a.1.tmp"_s));
    QVERIFY(QFile::link(u"nowhere"_s, u"a.2.tmp"_s));
    MetaSong song = changedSong(u"a.mp3"_s);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QCOMPARE(Samples::read(u"a.tmp"_s), QByteArray("mine"));
    QVERIFY(!QFile::exists(u"nowhere"_s));
    QCOMPARE(entries().size(), 4);
}

void TestSongSaving::namesTheTemporaryFileInTheFolder()
{
    // The folder's own "." is none of the song's.
    QVERIFY(QDir().mkdir(u"my.songs"_s));
    MetaSong song = changedSong(u"my.songs/songmp3"_s);
    QVERIFY(song.saveToFile(u"my.songs/songmp3"_s));
    QCOMPARE(entries(), QStringList{u"my.songs"_s});
    QVERIFY(Samples::read(u"my.songs/songmp3"_s).contains("New"));
}

void TestSongSaving::keepsLinksAndPermissions_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.mid", "a.zb3", "a.mp3"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestSongSaving::keepsLinksAndPermissions()
{
    QFETCH(const QString, name);
    QVERIFY(QDir().mkdir(u"real"_s));
    const QString target = u"real/"_s + name;
    writeSong(target, oldSong(name));
    QCOMPARE(::chmod(QFile::encodeName(target).constData(), 0640), 0);
    QVERIFY(QFile::link(target, name));
    MetaSong song = changedSong(name);
    QVERIFY(song.saveToFile(name));
    QVERIFY(QFileInfo(name).isSymLink());
    QVERIFY(Samples::read(target) != oldSong(name));
    struct stat entry {
    };
    QCOMPARE(::stat(QFile::encodeName(target).constData(), &entry), 0);
    QCOMPARE(entry.st_mode & 07777, 0640U);
    QCOMPARE(QDir(u"real"_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList{name});
}

void TestSongSaving::keepsTheSongOnAFullDisk_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("room");
    QTest::addColumn<QString>("message");
    const QString tagFailed = u"[MetaSong::saveToFile] Impossible to write to file. "_s;
    const QString audioFailed = u"[MetaSong::saveToFile] Impossible to copy part of file. "_s;
    QTest::newRow("MIDI, none") << u"a.mid"_s << 0 << writeFailed;
    QTest::newRow("MIDI, some") << u"a.mid"_s << 20 << writeFailed;
    QTest::newRow("container, none") << u"a.zb3"_s << 0 << writeFailed;
    QTest::newRow("container, header") << u"a.zb3"_s << 512 << writeFailed;
    QTest::newRow("MP3, none") << u"a.mp3"_s << 0 << tagFailed;
    QTest::newRow("MP3, half a tag") << u"a.mp3"_s << 20 << tagFailed;
    QTest::newRow("MP3, the tag") << u"a.mp3"_s << 38 << audioFailed;
    QTest::newRow("MP3, a block") << u"a.mp3"_s << 100100 << audioFailed;
    QTest::newRow("MP3, all but a byte") << u"a.mp3"_s << 250037 << audioFailed;
}

void TestSongSaving::keepsTheSongOnAFullDisk()
{
    QFETCH(const QString, name);
    QFETCH(const int, room);
    QFETCH(const QString, message);
    MetaSong song = changedSong(name);
    {
        const FullDisk disk(static_cast<rlim_t>(room));
        QVERIFY(!song.saveToFile(name));
    }
    QCOMPARE(m_log->messages().last(), message);
    QVERIFY(Samples::read(name) == oldSong(name));
    QCOMPARE(entries(), QStringList{name});
    QVERIFY(song.saveToFile(name)); // nothing was lost in memory either
    QVERIFY(Samples::read(name) != oldSong(name));
}

void TestSongSaving::keepsTheSongWhenNoFileCanBeCreated()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    {
        const FewFiles few(1); // the song, but no temporary file
        QVERIFY(!song.saveToFile(u"a.mp3"_s));
    }
    QCOMPARE(m_log->messages(), QStringList({readOnlyOk, writeFailed}));
    QVERIFY(Samples::read(u"a.mp3"_s) == oldSong(u"a.mp3"_s));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSaving::keepsTheSongInAReadOnlyFolder()
{
    if (::geteuid() == 0)
        QSKIP("root may write to every folder; keepsTheSongWhenNoFileCanBeCreated stands for it");
    MetaSong song = changedSong(u"a.mp3"_s);
    QCOMPARE(::chmod(".", 0500), 0);
    const bool isSaved = song.saveToFile(u"a.mp3"_s);
    QCOMPARE(::chmod(".", 0700), 0);
    QVERIFY(!isSaved);
    QCOMPARE(m_log->messages(), QStringList({readOnlyOk, writeFailed}));
    QVERIFY(Samples::read(u"a.mp3"_s) == oldSong(u"a.mp3"_s));
}

void TestSongSaving::needsTheOldMp3()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    QVERIFY(!song.saveToFile(u"missing.mp3"_s));
    QCOMPARE(m_log->messages(),
             QStringList({readOnlyOk, u"[MetaSong::saveToFile] Impossible to read from file. "_s}));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSaving::refusesAnMp3ThatHasShrunk()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    writeSong(u"a.mp3"_s, "short");
    QVERIFY(!song.saveToFile(u"a.mp3"_s));
    QCOMPARE(m_log->messages().last(), u"[MetaSong::saveToFile] Impossible to seek file. "_s);
    QCOMPARE(Samples::read(u"a.mp3"_s), QByteArray("short"));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSaving::opensNoDevices()
{
    QCOMPARE(::mkfifo("fifo", 0600), 0);
    QVERIFY(QDir().mkdir(u"folder"_s));
    for (const QString &name : {u"a.mid"_s, u"a.zb3"_s, u"a.mp3"_s}) {
        MetaSong song = changedSong(name);
        for (const QString &place : {u"fifo"_s, u"folder"_s, u"/dev/full"_s, QString()})
            QVERIFY(!song.saveToFile(place)); // a FIFO would wait for ever
    }
    struct stat entry {
    };
    QCOMPARE(::stat("fifo", &entry), 0);
    QVERIFY(S_ISFIFO(entry.st_mode));
}

void TestSongSaving::makesAWriteProtectedSongWritable()
{
    for (const QString &name : {u"a.mid"_s, u"a.mp3"_s}) {
        writeSong(name, oldSong(name));
        QCOMPARE(::chmod(QFile::encodeName(name).constData(), 0444), 0);
        MetaSong song = changedSong(name);
        QVERIFY(song.saveToFile(name));
        struct stat entry {
        };
        QCOMPARE(::stat(QFile::encodeName(name).constData(), &entry), 0);
        QCOMPARE(entry.st_mode & 07777, 0644U);
    }
}

void TestSongSaving::clearsTheImmutableFlag()
{
#ifdef Q_OS_LINUX
    writeSong(u"a.mid"_s, oldSong(u"a.mid"_s));
    const int handle = ::open("a.mid", O_RDONLY | O_CLOEXEC);
    int flags = 0;
    const bool canRead = ::ioctl(handle, FS_IOC_GETFLAGS, &flags) == 0;
    flags |= FS_IMMUTABLE_FL;
    if (!canRead || ::ioctl(handle, FS_IOC_SETFLAGS, &flags) != 0) {
        ::close(handle);
        QSKIP("this file system or user can't make a file immutable");
    }
    MetaSong::removeReadOnlyFlag(u"a.mid"_s);
    QCOMPARE(m_log->messages(), QStringList{readOnlyOk});
    QCOMPARE(::ioctl(handle, FS_IOC_GETFLAGS, &flags), 0);
    ::close(handle);
    QCOMPARE(flags & FS_IMMUTABLE_FL, 0);
#else
    QSKIP("the attribute is Linux's");
#endif
}

BRISEL_TEST_MAIN(QCoreApplication, TestSongSaving)
#include "tst_songsaving.moc"
