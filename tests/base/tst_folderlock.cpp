#include "base/folderlock.h"

#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QTest>

#include <csignal>
#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;
using Kind = FolderLock::Kind;

namespace
{

/// A lock on a folder by another program.
class OtherLock
{
public:
    OtherLock(const QString &folder, Kind kind)
        : m_handle(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY)),
          m_held(::flock(m_handle, (kind == Kind::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0)
    {
    }
    ~OtherLock() { ::close(m_handle); }
    OtherLock(const OtherLock &) = delete;
    OtherLock &operator=(const OtherLock &) = delete;

    bool isHeld() const { return m_held; }

private:
    int m_handle;
    bool m_held;
};

} // namespace

class TestFolderLock : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void keepsOthersOutWhileItExists();
    void letsOthersReadWhileItReads();
    void findsAnotherProgramAtWork();
    void countsLocksOfOneProcessAsOne();
    void refusesToChangeWhatItOnlyReads();
    void endsWithItsProcess();
    void holdsOnAMemoryThatIsWriteProtected();
    void locksNothingInAMissingFolder();
    void writesNothing();

private:
    QString folder() const { return m_folder->path(); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFolderLock::keepsOthersOutWhileItExists()
{
    {
        const FolderLock lock(folder(), Kind::Exclusive);
        QVERIFY(!lock.isBusy());
        QVERIFY(!OtherLock(folder(), Kind::Exclusive).isHeld());
        QVERIFY(!OtherLock(folder(), Kind::Shared).isHeld());
    }
    QVERIFY(OtherLock(folder(), Kind::Exclusive).isHeld());
}

void TestFolderLock::letsOthersReadWhileItReads()
{
    const FolderLock lock(folder(), Kind::Shared);
    QVERIFY(!lock.isBusy());
    QVERIFY(OtherLock(folder(), Kind::Shared).isHeld());
    QVERIFY(!OtherLock(folder(), Kind::Exclusive).isHeld());
}

void TestFolderLock::findsAnotherProgramAtWork()
{
    std::optional<OtherLock> other(std::in_place, folder(), Kind::Exclusive);
    QVERIFY(FolderLock(folder(), Kind::Exclusive).isBusy());
    QVERIFY(FolderLock(folder() + u"/."_s, Kind::Shared).isBusy());
    other.reset();
    QVERIFY(!FolderLock(folder(), Kind::Exclusive).isBusy());
    other.emplace(folder(), Kind::Shared);
    QVERIFY(FolderLock(folder(), Kind::Exclusive).isBusy());
    QVERIFY(!FolderLock(folder(), Kind::Shared).isBusy());
}

void TestFolderLock::countsLocksOfOneProcessAsOne()
{
    QVERIFY(QFile::link(folder(), folder() + u"/link"_s));
    std::optional<FolderLock> outer(std::in_place, folder(), Kind::Exclusive);
    std::optional<FolderLock> inner(std::in_place, folder() + u"/link"_s, Kind::Exclusive);
    QVERIFY(!inner->isBusy());
    QVERIFY(!FolderLock(folder(), Kind::Shared).isBusy());
    outer.reset();
    QVERIFY(!OtherLock(folder(), Kind::Shared).isHeld());
    inner.reset();
    QVERIFY(OtherLock(folder(), Kind::Exclusive).isHeld());
}

void TestFolderLock::refusesToChangeWhatItOnlyReads()
{
    const FolderLock reading(folder(), Kind::Shared);
    QVERIFY(FolderLock(folder(), Kind::Exclusive).isBusy());
    QVERIFY(OtherLock(folder(), Kind::Shared).isHeld());
}

void TestFolderLock::endsWithItsProcess()
{
    int ready[2];
    QCOMPARE(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const FolderLock lock(folder(), Kind::Exclusive);
        const char byte = lock.isBusy() ? 'b' : 'h';
        if (::write(ready[1], &byte, 1) != 1)
            ::_exit(1);
        for (;;)
            ::pause();
    }
    char byte = 0;
    QCOMPARE(::read(ready[0], &byte, 1), 1);
    QCOMPARE(byte, 'h');
    QVERIFY(FolderLock(folder(), Kind::Shared).isBusy());
    ::kill(child, SIGKILL);
    QCOMPARE(::waitpid(child, nullptr, 0), child);
    QVERIFY(!FolderLock(folder(), Kind::Exclusive).isBusy());
    ::close(ready[0]);
    ::close(ready[1]);
}

void TestFolderLock::holdsOnAMemoryThatIsWriteProtected()
{
    const SmallDisk disk(folder(), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QVERIFY(disk.setReadOnly(true));
    const FolderLock lock(folder(), Kind::Exclusive);
    QVERIFY(!lock.isBusy());
    QVERIFY(!OtherLock(folder(), Kind::Exclusive).isHeld());
}

void TestFolderLock::locksNothingInAMissingFolder()
{
    QVERIFY(!FolderLock(folder() + u"/missing"_s, Kind::Exclusive).isBusy());
    QVERIFY(!FolderLock(QString(), Kind::Exclusive).isBusy());
}

void TestFolderLock::writesNothing()
{
    const FolderLock lock(folder(), Kind::Exclusive);
    QVERIFY(QDir(folder()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

BRISEL_TEST(QCoreApplication, TestFolderLock)
#include "tst_folderlock.moc"
