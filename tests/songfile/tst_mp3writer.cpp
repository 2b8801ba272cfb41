#include "songfile/mp3writer.h"
#include "tests/base/duringflush.h"
#include "tests/base/fatdisk.h"
#include "tests/songfile/songsavingtest.h"

#include <linux/msdos_fs.h>
#include <sys/xattr.h>

using namespace brisel;

using namespace Samples;
using namespace Qt::StringLiterals;

namespace
{

constexpr int rewrittenAudio = 250000;
constexpr qint64 sparseSize = 64 << 20; ///< bytes
const QByteArray oldTag = tag(frame("TIT2", "Old"));
const QByteArray newTag = tag(frame("TIT2", "A new title") + frame("TPE1", "Someone"));

/// The bytes that the song occupies on the disk.
qint64 roomOfSong()
{
    constexpr qint64 unit = 512; // bytes
    struct stat entry {
    };
    return ::stat("a.mp3", &entry) == 0 ? entry.st_blocks * unit : -1;
}

/// The song's extended attribute or access control list \a name; "none" if it has none.
QByteArray songAttribute(const char *name)
{
    QByteArray value(1000, '\0');
    const ssize_t size = ::getxattr("a.mp3", name, value.data(), value.size());
    return size < 0 ? QByteArray("none") : value.left(size);
}

bool setSongAttribute(const char *name, const QByteArray &value)
{
    return ::setxattr("a.mp3", name, value.constData(), static_cast<size_t>(value.size()), 0) == 0;
}

} // namespace

/// Writing a tag before the audio of the opened file.
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
    void keepsExtendedAttributes_data();
    void keepsExtendedAttributes();
    void keepsHiddenAndSystemOnFat();
    void keepsHolesInASave();
    void noticesAChangeDuringTheCopy_data();
    void noticesAChangeDuringTheCopy();
};

void TestMp3Writer::keepsTheAudioOfTheOpenFile()
{
    writeSong(u"a.mp3"_s, oldTag + audio(rewrittenAudio));
    PlainFile song;
    QVERIFY(song.open(u"a.mp3"_s));
    QCOMPARE(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()), WriteResult::Done);
    QVERIFY(Samples::read(u"a.mp3"_s) == newTag + audio(rewrittenAudio));
    QCOMPARE(entries(), QStringList{u"a.mp3"_s});
    // The path now leads to another file.
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
    QCOMPARE(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()), WriteResult::Changed);
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
    // A song with only one name gets the same bytes.
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
    writeSong(u"a.mp3"_s, oldTag + audio(1000));
    QVERIFY(QFile::resize(u"a.mp3"_s, sparseSize));
    if (roomOfSong() > sparseSize / 2)
        QSKIP("this file system has no holes");
    PlainFile song;
    QVERIFY(song.open(u"a.mp3"_s));
    QCOMPARE(rewriteMp3(u"a.mp3"_s, song, newTag, oldTag.size()), WriteResult::Done);
    QCOMPARE(QFileInfo(u"a.mp3"_s).size(), sparseSize - oldTag.size() + newTag.size());
    QVERIFY(roomOfSong() < 1 << 20);
}

void TestMp3Writer::keepsExtendedAttributes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("rating") << QByteArray("user.rating") << QByteArray("five \0 stars", 12);
    // Version 2, and entries of tag, permissions and id: owner rw, user 65534 r, group -, mask r,
    // others -.
    QTest::newRow("access control list") << QByteArray("system.posix_acl_access")
                                         << QByteArray::fromHex("02000000"
                                                                "01000600ffffffff"
                                                                "02000400feff0000"
                                                                "04000000ffffffff"
                                                                "10000400ffffffff"
                                                                "20000000ffffffff");
}

void TestMp3Writer::keepsExtendedAttributes()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, value);
    MetaSong song = changedSong(u"a.mp3"_s);
    if (!setSongAttribute(name.constData(), value))
        QSKIP("this file system has no such attributes");
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s) != oldSong(u"a.mp3"_s));
    QCOMPARE(songAttribute(name.constData()), value);
}

void TestMp3Writer::keepsHiddenAndSystemOnFat()
{
    const FatDisk disk;
    MetaSong song = changedSong(u"a.mp3"_s);
    FatDisk::setAttributes(u"a.mp3"_s, ATTR_HIDDEN | ATTR_SYS);
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(Samples::read(u"a.mp3"_s) != oldSong(u"a.mp3"_s));
    QCOMPARE(FatDisk::attributes(u"a.mp3"_s), unsigned{ATTR_HIDDEN | ATTR_SYS | ATTR_ARCH});
}

void TestMp3Writer::keepsHolesInASave()
{
    MetaSong song = changedSong(u"a.mp3"_s);
    QVERIFY(QFile::resize(u"a.mp3"_s, sparseSize));
    if (roomOfSong() > sparseSize / 2)
        QSKIP("this file system has no holes");
    QVERIFY(song.saveToFile(u"a.mp3"_s));
    QVERIFY(QFileInfo(u"a.mp3"_s).size() > sparseSize);
    QVERIFY(roomOfSong() < 1 << 20);
}

void TestMp3Writer::noticesAChangeDuringTheCopy_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<bool>("isSameSong");
    QTest::addColumn<bool>("isLinked");
    for (const bool isLinked : {false, true}) {
        const char *kind = isLinked ? "linked" : "single";
        QTest::addRow("%s, other tag", kind)
            << tag(frame("TIT2", "Old") + frame("TALB", "Theirs")) + audio(250000) << true
            << isLinked;
        QTest::addRow("%s, cut", kind) << oldTag + audio(100) << false << isLinked;
    }
}

void TestMp3Writer::noticesAChangeDuringTheCopy()
{
    QFETCH(const QByteArray, now);
    QFETCH(const bool, isSameSong);
    QFETCH(const bool, isLinked);
    MetaSong song = changedSong(u"a.mp3"_s);
    if (isLinked)
        QCOMPARE(::link("a.mp3", "b.mp3"), 0);
    const QStringList before = entries();
    {
        const DuringFlush meanwhile([&] { writeSong(u"a.mp3"_s, now); });
        QCOMPARE(song.saveToFile(u"a.mp3"_s), isSameSong);
    }
    QCOMPARE(entries(), before);
    QCOMPARE(song.trouble(),
             isSameSong ? MetaSong::Trouble::None : MetaSong::Trouble::ChangedMeanwhile);
    // The change was applied again to the song as it is now.
    QVERIFY(Samples::read(u"a.mp3"_s) ==
            (isSameSong ? tag(frame("MEDT", QByteArray(3, '\0')) + frame("TIT2", "New") +
                              frame("TALB", "Theirs")) +
                              audio(250000)
                        : now));
}

BRISEL_TEST(QCoreApplication, TestMp3Writer)
#include "tst_mp3writer.moc"
