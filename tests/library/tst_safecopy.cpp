#include "library/safecopy.h"

#include "tests/base/duringtruncate.h"
#include "tests/library/filesizelimit.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <limits>
#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

class TestSafeCopy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void copiesContentAndPermissions();
    void copiesEmptyFile();
    void copiesFilesLargerThanABlock();
    void copiesWhatALinkLeadsTo();
    void refusesExistingDestination();
    void refusesMissingSource();
    void refusesFolderAsSource();
    void refusesFifoAsSource();
    void refusesASourceThatChangesMeanwhile();
    void refusesUnwritableFolder();
    void replacesExistingFile();
    void replacesALinkAndNotItsTarget();
    void keepsOldFileWhenTheSourceIsMissing();
    void refusesToReplaceAFileByItself();
    void refusesToReplaceAFolder();
    void leavesNoHalfCopyOnAFullDisk();
    void keepsOldFileWhenTheCopyFails();
    void deletesFirstOnlyWhenThatMakesRoom_data();
    void deletesFirstOnlyWhenThatMakesRoom();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSafeCopy::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    makeFile(at(u"a.mid"_qs), "song");
}

void TestSafeCopy::copiesContentAndPermissions()
{
    QFile::setPermissions(at(u"a.mid"_qs), QFile::ReadOwner | QFile::ReadGroup);
    QCOMPARE(copyToNewFile(at(u"a.mid"_qs), at(u"b.mid"_qs)), CopyResult::Done);
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("song"));
    struct stat entry {
    };
    QCOMPARE(::stat(qPrintable(at(u"b.mid"_qs)), &entry), 0);
    QCOMPARE(entry.st_mode & 0777, 0440U);
    QCOMPARE(entries(), QStringList({u"a.mid"_qs, u"b.mid"_qs}));
}

void TestSafeCopy::copiesEmptyFile()
{
    makeFile(at(u"empty.mid"_qs), "");
    QCOMPARE(copyToNewFile(at(u"empty.mid"_qs), at(u"b.mid"_qs)), CopyResult::Done);
    QVERIFY(QFile::exists(at(u"b.mid"_qs)));
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray());
}

void TestSafeCopy::copiesFilesLargerThanABlock()
{
    QByteArray content(3 * 1024 * 1024 + 17, 'x');
    content[1024 * 1024] = 'y';
    makeFile(at(u"big.mp3"_qs), content);
    QCOMPARE(copyToNewFile(at(u"big.mp3"_qs), at(u"b.mp3"_qs)), CopyResult::Done);
    QVERIFY(fileContent(at(u"b.mp3"_qs)) == content);
}

void TestSafeCopy::copiesWhatALinkLeadsTo()
{
    QVERIFY(QFile::link(at(u"a.mid"_qs), at(u"link.mid"_qs)));
    QCOMPARE(copyToNewFile(at(u"link.mid"_qs), at(u"b.mid"_qs)), CopyResult::Done);
    QVERIFY(!QFileInfo(at(u"b.mid"_qs)).isSymLink());
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("song"));
}

void TestSafeCopy::refusesExistingDestination()
{
    makeFile(at(u"b.mid"_qs), "old");
    QCOMPARE(copyToNewFile(at(u"a.mid"_qs), at(u"b.mid"_qs)), CopyResult::TargetFailed);
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("old"));
}

void TestSafeCopy::refusesMissingSource()
{
    QCOMPARE(copyToNewFile(at(u"none.mid"_qs), at(u"b.mid"_qs)), CopyResult::SourceFailed);
    QCOMPARE(entries(), QStringList({u"a.mid"_qs}));
}

void TestSafeCopy::refusesFolderAsSource()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"folder.mid"_qs));
    QCOMPARE(copyToNewFile(at(u"folder.mid"_qs), at(u"b.mid"_qs)), CopyResult::SourceFailed);
    QVERIFY(!QFile::exists(at(u"b.mid"_qs)));
}

void TestSafeCopy::refusesFifoAsSource()
{
    QCOMPARE(::mkfifo(qPrintable(at(u"fifo.mid"_qs)), 0600), 0);
    QVERIFY(QFile::link(at(u"fifo.mid"_qs), at(u"link.mid"_qs)));
    QCOMPARE(copyToNewFile(at(u"fifo.mid"_qs), at(u"b.mid"_qs)), CopyResult::SourceFailed);
    QCOMPARE(copyToNewFile(at(u"link.mid"_qs), at(u"b.mid"_qs)), CopyResult::SourceFailed);
}

/// The size of the copy is set for the hole of the source.
void TestSafeCopy::refusesASourceThatChangesMeanwhile()
{
    constexpr int size = 1 << 20; // bytes
    QVERIFY(QFile::resize(at(u"a.mid"_qs), size));
    struct stat entry {
    };
    QCOMPARE(::stat(qPrintable(at(u"a.mid"_qs)), &entry), 0);
    if (entry.st_blocks * 512 > size / 2)
        QSKIP("this file system has no holes");
    bool isChanged = false;
    const DuringTruncate change([&] {
        QFile file(at(u"a.mid"_qs));
        isChanged =
            file.open(QIODevice::ReadWrite) && file.write("SO") == 2 && file.flush() &&
            file.setFileTime(QDateTime({2004, 1, 1}, {1, 1}), QFileDevice::FileModificationTime);
    });
    QCOMPARE(copyToNewFile(at(u"a.mid"_qs), at(u"b.mid"_qs)), CopyResult::SourceFailed);
    QVERIFY(isChanged);
    QCOMPARE(entries(), QStringList(u"a.mid"_qs));
}

void TestSafeCopy::refusesUnwritableFolder()
{
    // There is a file instead of the folder: no user, not even root, can write below it.
    QCOMPARE(copyToNewFile(at(u"a.mid"_qs), at(u"a.mid/b.mid"_qs)), CopyResult::TargetFailed);
    QCOMPARE(copyToNewFile(at(u"a.mid"_qs), at(u"none/b.mid"_qs)), CopyResult::TargetFailed);
    QCOMPARE(entries(), QStringList({u"a.mid"_qs}));
}

void TestSafeCopy::replacesExistingFile()
{
    makeFile(at(u"b.mid"_qs), "a longer old song");
    QFile::setPermissions(at(u"b.mid"_qs), QFile::ReadOwner);
    QCOMPARE(copyOverFile(at(u"a.mid"_qs), at(u"b.mid"_qs)), CopyResult::Done);
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("song"));
    QCOMPARE(entries(), QStringList({u"a.mid"_qs, u"b.mid"_qs}));
}

void TestSafeCopy::replacesALinkAndNotItsTarget()
{
    makeFile(at(u"target.mid"_qs), "target");
    QVERIFY(QFile::link(at(u"target.mid"_qs), at(u"b.mid"_qs)));
    QCOMPARE(copyOverFile(at(u"a.mid"_qs), at(u"b.mid"_qs)), CopyResult::Done);
    QCOMPARE(fileContent(at(u"target.mid"_qs)), QByteArray("target"));
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("song"));
}

void TestSafeCopy::keepsOldFileWhenTheSourceIsMissing()
{
    makeFile(at(u"b.mid"_qs), "old");
    QCOMPARE(copyOverFile(at(u"none.mid"_qs), at(u"b.mid"_qs)), CopyResult::SourceFailed);
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("old"));
}

void TestSafeCopy::refusesToReplaceAFileByItself()
{
    QCOMPARE(::link(qPrintable(at(u"a.mid"_qs)), qPrintable(at(u"hard.mid"_qs))), 0);
    QVERIFY(QFile::link(at(u"a.mid"_qs), at(u"soft.mid"_qs)));
    for (const QString &other : {u"a.mid"_qs, u"hard.mid"_qs, u"soft.mid"_qs})
        QCOMPARE(copyOverFile(at(u"a.mid"_qs), at(other)), CopyResult::TargetFailed);
    QCOMPARE(fileContent(at(u"a.mid"_qs)), QByteArray("song"));
}

void TestSafeCopy::refusesToReplaceAFolder()
{
    makeFile(at(u"b.mid/inside"_qs), "inside");
    QCOMPARE(copyOverFile(at(u"a.mid"_qs), at(u"b.mid"_qs)), CopyResult::TargetFailed);
    QCOMPARE(fileContent(at(u"b.mid/inside"_qs)), QByteArray("inside"));
}

void TestSafeCopy::leavesNoHalfCopyOnAFullDisk()
{
    makeFile(at(u"big.mid"_qs), QByteArray(100000, 'x'));
    for (const rlim_t room : {0, 1, 4096, 65536, 99999}) {
        const FileSizeLimit limit(room);
        QCOMPARE(copyToNewFile(at(u"big.mid"_qs), at(u"b.mid"_qs)), CopyResult::TargetFailed);
        QCOMPARE(entries(), QStringList({u"a.mid"_qs, u"big.mid"_qs}));
    }
}

void TestSafeCopy::keepsOldFileWhenTheCopyFails()
{
    makeFile(at(u"big.mid"_qs), QByteArray(100000, 'x'));
    makeFile(at(u"b.mid"_qs), "old");
    const FileSizeLimit limit(50000);
    QCOMPARE(copyOverFile(at(u"big.mid"_qs), at(u"b.mid"_qs)), CopyResult::TargetFailed);
    QCOMPARE(fileContent(at(u"b.mid"_qs)), QByteArray("old"));
    QCOMPARE(entries(), QStringList({u"a.mid"_qs, u"b.mid"_qs, u"big.mid"_qs}));
}

void TestSafeCopy::deletesFirstOnlyWhenThatMakesRoom_data()
{
    QTest::addColumn<qint64>("freeSize");
    QTest::addColumn<qint64>("oldSize");
    QTest::addColumn<qint64>("newSize");
    QTest::addColumn<bool>("expected");
    const qint64 huge = std::numeric_limits<qint64>::max();
    QTest::newRow("room for both") << 100LL << 50LL << 100LL << false;
    QTest::newRow("room for one") << 99LL << 50LL << 100LL << true;
    QTest::newRow("just room for one") << 50LL << 50LL << 100LL << true;
    QTest::newRow("no room at all") << 49LL << 50LL << 100LL << false;
    QTest::newRow("old file empty") << 0LL << 0LL << 1LL << false;
    QTest::newRow("disk is gone") << -1LL << huge << huge << false;
    QTest::newRow("huge sizes") << 1LL << huge << huge << true;
}

void TestSafeCopy::deletesFirstOnlyWhenThatMakesRoom()
{
    QFETCH(qint64, freeSize);
    QFETCH(qint64, oldSize);
    QFETCH(qint64, newSize);
    QTEST(mustDeleteFirst(freeSize, oldSize, newSize), "expected");
}

BRISEL_TEST(QCoreApplication, TestSafeCopy)
#include "tst_safecopy.moc"
