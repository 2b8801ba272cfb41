#include "tests/songfile/songsavingtest.h"

using namespace brisel;

using namespace Samples;
using namespace Qt::StringLiterals;

/// Saving songs of every format.
class TestSongSaving : public SongSavingTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
    void savesAnMp3WhoseTagEndsAfterTheFile();
    void savesAnMp3Twice();
    void keepsOtherTemporaryFiles();
    void namesTheTemporaryFileInTheFolder();
    void keepsLinksAndPermissions_data();
    void keepsLinksAndPermissions();
};

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
    expected.insert(22, Samples::bytes("\xFF\0\xFF")); // not included in the track's length
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

void TestSongSaving::savesAnMp3WhoseTagEndsAfterTheFile()
{
    const QByteArray padding(20, '\0');
    writeSong(u"a.mp3"_s, tag(frame("TIT2", "Old") + padding).chopped(5));
    for (int i = 0; i < 2; ++i) {
        MetaSong song = changedSong(u"a.mp3"_s);
        QVERIFY(song.saveToFile(u"a.mp3"_s));
    }
    // The mark has taken 14 bytes of the padding; 5 of the rest are still after the end of the
    // file.
    QCOMPARE(Samples::read(u"a.mp3"_s),
             tag(frame("TIT2", "New") + frame("MEDT", QByteArray(3, '\0')) + QByteArray(6, '\0'))
                 .chopped(5));
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
    // The "." in the folder's name is not part of the song's name.
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

BRISEL_TEST(QCoreApplication, TestSongSaving)
#include "tst_songsaving.moc"
