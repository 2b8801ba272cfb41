#include "base/overwriting.h"
#include "tests/base/duringflush.h"
#include "tests/base/nonewfiles.h"
#include "tests/fulldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

const QString replacedSong = u"song.mid"_s;
const QString otherName = u"other.mid"_s;

QStringList entries()
{
    return QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void linkSong()
{
    if (::link("song.mid", "other.mid") != 0)
        qFatal("can't link");
}

} // namespace

/// Replacing files that have several names, and files that another program changes.
class TestFileReplacing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void keepsBothNamesOfOneFile();
    void keepsBothNamesWithContentOfAnySize();
    void keepsTheOldContentOfALinkedFile_data();
    void keepsTheOldContentOfALinkedFile();
    void needsRoomForTheOldContent();
    void savesTheOldContentBeforeItOverwrites();
    void restoresTheOldContent();
    void keepsTheOldContentWhenTheFlushFails();
    void replacesWhatIsUnchanged();
    void refusesWhatIsChanged_data();
    void refusesWhatIsChanged();
    void refusesWhatIsChangedAtTheLastMoment_data();
    void refusesWhatIsChangedAtTheLastMoment();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFileReplacing::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    makeFile(replacedSong, "the old content");
}

void TestFileReplacing::cleanup()
{
    QDir::setCurrent(u"/"_s);
    m_folder.reset();
}

void TestFileReplacing::keepsBothNamesOfOneFile()
{
    QVERIFY(!hasOtherNames(replacedSong));
    linkSong();
    QVERIFY(hasOtherNames(replacedSong));
    QVERIFY(replaceFile(replacedSong, "new"));
    QVERIFY(isSameFile(replacedSong, otherName));
    QCOMPARE(fileContent(otherName), QByteArray("new"));
    QCOMPARE(entries(), QStringList({otherName, replacedSong}));
}

void TestFileReplacing::keepsBothNamesWithContentOfAnySize()
{
    linkSong();
    for (const int size : {0, 1, 16384, 300000, 5}) {
        const QByteArray content(size, static_cast<char>('a' + size % 20));
        QVERIFY(replaceFile(replacedSong, content));
        QVERIFY(fileContent(otherName) == content);
    }
    QVERIFY(isSameFile(replacedSong, otherName));
}

void TestFileReplacing::keepsTheOldContentOfALinkedFile_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("none") << 0;
    QTest::newRow("less than the old") << 19999;
    QTest::newRow("the old") << 20000;
    QTest::newRow("all but one byte") << 49999;
}

void TestFileReplacing::keepsTheOldContentOfALinkedFile()
{
    QFETCH(const int, room);
    const QByteArray old(20000, 'o');
    makeFile(replacedSong, old);
    linkSong();
    {
        const FullDisk disk(static_cast<rlim_t>(room));
        QVERIFY(!replaceFile(replacedSong, QByteArray(50000, 'n')));
    }
    QVERIFY(fileContent(replacedSong) == old);
    QVERIFY(isSameFile(replacedSong, otherName));
    QCOMPARE(entries(), QStringList({otherName, replacedSong}));
}

void TestFileReplacing::needsRoomForTheOldContent()
{
    linkSong();
    const NoNewFiles disk;
    QVERIFY(!replaceFile(replacedSong, "new"));
    QCOMPARE(fileContent(otherName), QByteArray("the old content"));
}

void TestFileReplacing::savesTheOldContentBeforeItOverwrites()
{
    linkSong();
    QCOMPARE(::chmod("song.mid", 0640), 0);
    QByteArray beside;
    QFile::Permissions permissions;
    QStringList during;
    QFile copy(u"copy.tmp"_s);
    QVERIFY(copy.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered));
    const WriteResult result = overwriteKeepingCopy(replacedSong, copy, nullptr, [&](QFile &file) {
        beside = fileContent(u"copy.tmp"_s);
        permissions = QFile::permissions(u"copy.tmp"_s);
        during = entries();
        return file.write("new") == 3 && finishOverwriting(file, 3);
    });
    QCOMPARE(result, WriteResult::Done);
    QCOMPARE(beside, QByteArray("the old content"));
    QVERIFY(permissions == QFile::permissions(replacedSong));
    QCOMPARE(during, QStringList({u"copy.tmp"_s, otherName, replacedSong}));
    QCOMPARE(entries(), QStringList({otherName, replacedSong}));
    QCOMPARE(fileContent(otherName), QByteArray("new"));
}

void TestFileReplacing::restoresTheOldContent()
{
    for (const QByteArray &part : {QByteArray(), QByteArray("half"), QByteArray(1000, 'n')}) {
        QFile copy(u"copy.tmp"_s);
        QVERIFY(copy.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered));
        const WriteResult result =
            overwriteKeepingCopy(replacedSong, copy, nullptr, [&](QFile &file) {
                file.write(part);
                return false;
            });
        QCOMPARE(result, WriteResult::Failed);
        QCOMPARE(fileContent(replacedSong), QByteArray("the old content"));
        QCOMPARE(entries(), QStringList{replacedSong});
    }
}

void TestFileReplacing::keepsTheOldContentWhenTheFlushFails()
{
    {
        const DuringFlush failure(nullptr);
        QVERIFY(!replaceFile(replacedSong, "new"));
    }
    QCOMPARE(fileContent(replacedSong), QByteArray("the old content"));
    QCOMPARE(entries(), QStringList{replacedSong});
}

void TestFileReplacing::replacesWhatIsUnchanged()
{
    QCOMPARE(replaceUnchanged(replacedSong, "new", fileState(replacedSong)), WriteResult::Done);
    QCOMPARE(fileContent(replacedSong), QByteArray("new"));
    linkSong();
    QCOMPARE(replaceUnchanged(replacedSong, "newer", fileState(replacedSong)), WriteResult::Done);
    QCOMPARE(fileContent(otherName), QByteArray("newer"));
    QCOMPARE(replaceUnchanged(u"first.mid"_s, "first", FileState()), WriteResult::Done);
    QCOMPARE(fileContent(u"first.mid"_s), QByteArray("first"));
    QCOMPARE(entries(), QStringList({u"first.mid"_s, otherName, replacedSong}));
}

void TestFileReplacing::refusesWhatIsChanged_data()
{
    QTest::addColumn<QByteArray>("change");
    for (const char *change : {"rewritten", "replaced", "deleted", "fifo", "touched"})
        QTest::newRow(change) << QByteArray(change);
}

/// Changes of the song by another program.
static void changeSong(const QByteArray &change)
{
    if (change == "rewritten") {
        makeFile(replacedSong, "theirs");
        return;
    }
    if (change == "touched") {
        QFile file(replacedSong);
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(QDateTime(QDate(2004, 2, 29), QTime(1, 2), Qt::UTC),
                              QFileDevice::FileModificationTime))
            qFatal("can't touch");
        return;
    }
    if (change == "replaced")
        makeFile(u"another"_s, "the old content");
    QFile::remove(replacedSong);
    if (change == "replaced")
        QFile::rename(u"another"_s, replacedSong);
    if (change == "fifo" && ::mkfifo("song.mid", 0600) != 0)
        qFatal("no FIFO");
}

void TestFileReplacing::refusesWhatIsChanged()
{
    QFETCH(const QByteArray, change);
    const FileState old = fileState(replacedSong);
    changeSong(change);
    const FileState now = fileState(replacedSong);
    QCOMPARE(replaceUnchanged(replacedSong, "new", old), WriteResult::Changed);
    QVERIFY(fileState(replacedSong) == now);
    QCOMPARE(entries().size(), change == "deleted" ? 0 : 1);
}

void TestFileReplacing::refusesWhatIsChangedAtTheLastMoment_data()
{
    refusesWhatIsChanged_data();
}

void TestFileReplacing::refusesWhatIsChangedAtTheLastMoment()
{
    QFETCH(const QByteArray, change);
    for (const bool hasOtherName : {false, true}) {
        QDir().remove(otherName);
        QDir().remove(replacedSong);
        makeFile(replacedSong, "the old content");
        if (hasOtherName)
            linkSong();
        FileState now;
        const DuringFlush meanwhile([&] {
            changeSong(change);
            now = fileState(replacedSong);
        });
        QCOMPARE(replaceUnchanged(replacedSong, "new", fileState(replacedSong)),
                 WriteResult::Changed);
        QVERIFY(fileState(replacedSong) == now);
        QCOMPARE(entries().size(), (change == "deleted" ? 0 : 1) + (hasOtherName ? 1 : 0));
    }
}

BRISEL_TEST(QCoreApplication, TestFileReplacing)
#include "tst_filereplacing.moc"
