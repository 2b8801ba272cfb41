#include "base/flushing.h"

#include "tests/base/diskkind.h"
#include "tests/testprogram.h"

#include <QTemporaryFile>
#include <QTest>

using namespace brisel;

class TestFlushing : public QObject
{
    Q_OBJECT

private slots:
    void flushesAFileSystem();
    void noticesAFileSystemThatBecameReadOnly();
    void failsWithoutAFile();
};

void TestFlushing::flushesAFileSystem()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    QCOMPARE(flushFileSystem(file.handle()), std::optional(true));
}

/// Flushing it reports no error, although nothing is written any more.
void TestFlushing::noticesAFileSystemThatBecameReadOnly()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const ReadOnlyDisk disk;
    QCOMPARE(flushFileSystem(file.handle()), std::optional(false));
}

void TestFlushing::failsWithoutAFile()
{
    QCOMPARE(flushFileSystem(-1), std::optional(false));
}

BRISEL_TEST(QCoreApplication, TestFlushing)
#include "tst_flushing.moc"
