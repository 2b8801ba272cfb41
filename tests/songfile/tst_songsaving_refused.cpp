#include "tests/songfile/songsavingtest.h"

using namespace brisel;

using namespace Samples;
using namespace Qt::StringLiterals;

namespace
{

/// Limits the process to the files that are open now, and \a more.
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

/// Songs that can't be saved stay unchanged; only write protection is removed.
class TestSongSavingRefused : public SongSavingTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void keepsTheSongOnAFullDisk_data();
    void keepsTheSongOnAFullDisk();
    void keepsTheSongWhenNoFileCanBeCreated();
    void keepsTheSongInAReadOnlyFolder();
    void needsTheOldMp3();
    void refusesAnMp3ThatHasShrunk();
    void opensNoDevices();
    void makesAWriteProtectedSongWritable();
    void clearsTheImmutableFlag();
};

void TestSongSavingRefused::keepsTheSongOnAFullDisk_data()
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

void TestSongSavingRefused::keepsTheSongOnAFullDisk()
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
    QVERIFY(song.saveToFile(name)); // the object in memory is unchanged too
    QVERIFY(Samples::read(name) != oldSong(name));
}

void TestSongSavingRefused::keepsTheSongWhenNoFileCanBeCreated()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    {
        const FewFiles few(1); // enough for the song, not for a temporary file
        QVERIFY(!song.saveToFile(u"a.mp3"_s));
    }
    QCOMPARE(m_log->messages(), QStringList({readOnlyOk, writeFailed}));
    QVERIFY(Samples::read(u"a.mp3"_s) == oldSong(u"a.mp3"_s));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSavingRefused::keepsTheSongInAReadOnlyFolder()
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

void TestSongSavingRefused::needsTheOldMp3()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    QVERIFY(!song.saveToFile(u"missing.mp3"_s));
    QCOMPARE(m_log->messages(),
             QStringList({readOnlyOk, u"[MetaSong::saveToFile] Impossible to read from file. "_s}));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSavingRefused::refusesAnMp3ThatHasShrunk()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    writeSong(u"a.mp3"_s, "short");
    QVERIFY(!song.saveToFile(u"a.mp3"_s));
    QCOMPARE(m_log->messages().last(), u"[MetaSong::saveToFile] Impossible to seek file. "_s);
    QCOMPARE(Samples::read(u"a.mp3"_s), QByteArray("short"));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
}

void TestSongSavingRefused::opensNoDevices()
{
    QCOMPARE(::mkfifo("fifo", 0600), 0);
    QVERIFY(QDir().mkdir(u"folder"_s));
    for (const QString &name : {u"a.mid"_s, u"a.zb3"_s, u"a.mp3"_s}) {
        MetaSong song = changedSong(name);
        for (const QString &place : {u"fifo"_s, u"folder"_s, u"/dev/full"_s, QString()})
            QVERIFY(!song.saveToFile(place)); // opening a FIFO would block forever
    }
    struct stat entry {
    };
    QCOMPARE(::stat("fifo", &entry), 0);
    QVERIFY(S_ISFIFO(entry.st_mode));
}

void TestSongSavingRefused::makesAWriteProtectedSongWritable()
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

void TestSongSavingRefused::clearsTheImmutableFlag()
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
    // Otherwise the file could not be removed after a failed check.
    const auto mutableAgain = qScopeGuard([handle, flags]() mutable {
        flags &= ~FS_IMMUTABLE_FL;
        ::ioctl(handle, FS_IOC_SETFLAGS, &flags);
        ::close(handle);
    });
    MetaSong::removeReadOnlyFlag(u"a.mid"_s);
    QCOMPARE(m_log->messages(), QStringList{readOnlyOk});
    QCOMPARE(::ioctl(handle, FS_IOC_GETFLAGS, &flags), 0);
    QCOMPARE(flags & FS_IMMUTABLE_FL, 0);
#else
    QSKIP("the attribute is Linux's");
#endif
}

BRISEL_TEST(QCoreApplication, TestSongSavingRefused)
#include "tst_songsaving_refused.moc"
