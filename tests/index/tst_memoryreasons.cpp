#include "base/filefailure.h"
#include "index/memoryreasons.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestMemoryReasons : public QObject
{
    Q_OBJECT

private slots:
    void reportsAMemoryThatIsGone();
    void reportsAMemoryThatIsWriteProtected();
};

void TestMemoryReasons::reportsAMemoryThatIsGone()
{
    const QTemporaryDir folder;
    QCOMPARE(MemoryReason::whyNotIndexed(folder.filePath(u"CARD"_qs), 0), MemoryReason::gone);
    QCOMPARE(MemoryReason::whyNotIndexed(folder.path(), 0), MemoryReason::indexIncomplete);
}

void TestMemoryReasons::reportsAMemoryThatIsWriteProtected()
{
    const QTemporaryDir folder;
    const SmallDisk disk(folder.path(), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QVERIFY(disk.setReadOnly(true));
    QCOMPARE(MemoryReason::whyNotIndexed(folder.path(), 0), FileReason::writeProtected);
}

BRISEL_TEST(QCoreApplication, TestMemoryReasons)
#include "tst_memoryreasons.moc"
