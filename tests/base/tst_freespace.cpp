#include "base/freespace.h"

#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace brisel;

/// The free space below a folder.
class TestFreeSpace : public QObject
{
    Q_OBJECT

private slots:
    void countsWhatIsLeft();
    void knowsNothingOfAMissingFolder();
    void needsNoTableOfMounts();
    void countsWholeUnits();
};

void TestFreeSpace::countsWhatIsLeft()
{
    const QTemporaryDir folder;
    const SmallDisk disk(folder.path(), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QCOMPARE(freeSpace(folder.path()), 4 * SmallDisk::pageSize);
    makeFile(folder.filePath(QStringLiteral("a.mid")), "x");
    QCOMPARE(freeSpace(folder.path()), 3 * SmallDisk::pageSize);
}

void TestFreeSpace::knowsNothingOfAMissingFolder()
{
    const QTemporaryDir folder;
    QVERIFY(freeSpace(folder.path()) > 0);
    QCOMPARE(freeSpace(folder.filePath(QStringLiteral("missing"))), -1);
}

/// In a chroot the mount table has paths outside of it.
void TestFreeSpace::needsNoTableOfMounts()
{
    constexpr int skipped = 2;
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("proc")));
    const QByteArray root = QFile::encodeName(folder.path());
    const pid_t child = fork();
    if (child == 0) {
        const bool isInside =
            ::unshare(CLONE_NEWNS) == 0 &&
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
            ::mount("proc", (root + "/proc").constData(), "proc", 0, nullptr) == 0 &&
            ::chroot(root.constData()) == 0 && ::access("/proc/self/mountinfo", R_OK) == 0;
        ::_exit(!isInside ? skipped : freeSpace(QStringLiteral("/")) > 0 ? 0 : 1);
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    if (WEXITSTATUS(status) == skipped)
        QSKIP("only root can change its root");
    QCOMPARE(WEXITSTATUS(status), 0);
}

void TestFreeSpace::countsWholeUnits()
{
    QCOMPARE(allocatedSize(0, 512), 0);
    QCOMPARE(allocatedSize(1, 512), 512);
    QCOMPARE(allocatedSize(512, 512), 512);
    QCOMPARE(allocatedSize(513, 512), 1024);
}

BRISEL_TEST(QCoreApplication, TestFreeSpace)
#include "tst_freespace.moc"
