#include "songfile/mp3writer.h"
#include "tests/songfile/songsavingtest.h"

using namespace Samples;
using namespace Qt::StringLiterals;

namespace
{

constexpr int rewrittenAudio = 250000;
const QByteArray oldTag = tag(frame("TIT2", "Old"));
const QByteArray newTag = tag(frame("TIT2", "A new title") + frame("TPE1", "Someone"));

} // namespace

/// Putting a tag in front of the audio of the file that was opened.
class TestMp3Writer : public SongSavingTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void keepsTheAudioOfTheOpenFile();
    void refusesASongThatHasChanged_data();
    void refusesASongThatHasChanged();
    void keepsBothNamesOfASong_data();
    void keepsBothNamesOfASong();
    void keepsALinkedSongOnAFullDisk_data();
    void keepsALinkedSongOnAFullDisk();
    void keepsASparseSongSparse();
};

void TestMp3Writer::keepsTheAudioOfTheOpenFile()
{
    writeSong(u"a.mp3"_s, oldTag + audio(rewrittenAudio));
    PlainFile song;
    QVERIFY(song.open(u"a.mp3"_s));
    QCOMPARE(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()), WriteResult::Done);
    QVERIFY(Samples::read(u"a.mp3"_s) == newTag + audio(rewrittenAudio));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
    // What stands there now is another file.
    QCOMPARE(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()), WriteResult::Changed);
    QVERIFY(Samples::read(u"a.mp3"_s) == newTag + audio(rewrittenAudio));
}

void TestMp3Writer::refusesASongThatHasChanged_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<bool>("isLinked");
    for (const bool isLinked : {false, true}) {
        const char *kind = isLinked ? "linked" : "single";
        QTest::addRow("%s, larger tag", kind) << newTag + audio(rewrittenAudio) << isLinked;
        QTest::addRow("%s, no tag", kind) << audio(rewrittenAudio) << isLinked;
        QTest::addRow("%s, cut", kind) << oldTag + audio(100) << isLinked;
    }
}

void TestMp3Writer::refusesASongThatHasChanged()
{
    QFETCH(const QByteArray, now);
    QFETCH(const bool, isLinked);
    writeSong(u"a.mp3"_s, oldTag + audio(rewrittenAudio));
    if (isLinked)
        QCOMPARE(::link("a.mp3", "b.mp3"), 0);
    const QStringList before = entries();
    PlainFile song;
    QVERIFY(song.open(u"a.mp3"_s));
    writeSong(u"a.mp3"_s, now);
    QVERIFY(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()) != WriteResult::Done);
    QVERIFY(Samples::read(u"a.mp3"_s) == now);
    QCOMPARE(entries(), before);
}

void TestMp3Writer::keepsBothNamesOfASong_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.mid", "a.zb3", "a.mp3"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestMp3Writer::keepsBothNamesOfASong()
{
    QFETCH(const QString, name);
    MetaSong song = changedSong(name);
    QCOMPARE(::link(QFile::encodeName(name).constData(), "other"), 0);
    QVERIFY(song.saveToFile(name));
    QVERIFY(isSameFile(name, u"other"_s));
    const QByteArray saved = Samples::read(u"other"_s);
    QVERIFY(saved != oldSong(name));
    QCOMPARE(entries(), QStringList({name, u"other"_s}));
    // A song with one name gets the same bytes.
    QVERIFY(QFile::remove(name) && QFile::remove(u"other"_s));
    MetaSong single = changedSong(name);
    QVERIFY(single.saveToFile(name));
    QVERIFY(Samples::read(name) == saved);
}

void TestMp3Writer::keepsALinkedSongOnAFullDisk_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("none") << 0;
    QTest::newRow("less than the song") << 250020;
    QTest::newRow("the song, but no longer one") << 250030;
}

void TestMp3Writer::keepsALinkedSongOnAFullDisk()
{
    QFETCH(const int, room);
    MetaSong song = changedSong(u"a.mp3"_s);
    QCOMPARE(::link("a.mp3", "b.mp3"), 0);
    {
        const FullDisk disk(static_cast<rlim_t>(room));
        QVERIFY(!song.saveToFile(u"a.mp3"_s));
    }
    QCOMPARE(m_log->messages().last(),
             u"[MetaSong::saveToFile] Impossible to copy part of file. "_s);
    QVERIFY(Samples::read(u"b.mp3"_s) == oldSong(u"a.mp3"_s));
    QVERIFY(isSameFile(u"a.mp3"_s, u"b.mp3"_s));
    QCOMPARE(entries(), QStringList({u"a.mp3"_s, u"b.mp3"_s}));
}

void TestMp3Writer::keepsASparseSongSparse()
{
    constexpr qint64 size = 64 << 20;
    constexpr qint64 unit = 512; // bytes
    writeSong(u"a.mp3"_s, oldTag + audio(1000));
    QVERIFY(QFile::resize(u"a.mp3"_s, size));
    struct stat entry {
    };
    QCOMPARE(::stat("a.mp3", &entry), 0);
    if (entry.st_blocks * unit > size / 2)
        QSKIP("this file system has no holes");
    PlainFile song;
    QVERIFY(song.open(u"a.mp3"_s));
    QCOMPARE(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()), WriteResult::Done);
    QCOMPARE(::stat("a.mp3", &entry), 0);
    QCOMPARE(entry.st_size, size - oldTag.size() + newTag.size());
    QVERIFY(entry.st_blocks * unit < 1 << 20);
}

BRISEL_TEST(QCoreApplication, TestMp3Writer)
#include "tst_mp3writer.moc"
