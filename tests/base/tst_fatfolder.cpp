#include "base/fatfolder.h"

#include "tests/base/diskkind.h"
#include "tests/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

/// Which file systems are written in the order that FAT needs.
class TestFatFolder : public QObject
{
    Q_OBJECT

private slots:
    void knowsTheFatFamily_data();
    void knowsTheFatFamily();
    void takesAMissingFolderForNone();
};

void TestFatFolder::knowsTheFatFamily_data()
{
    QTest::addColumn<unsigned>("magic");
    QTest::addColumn<bool>("isFat");
    QTest::newRow("FAT12 to FAT32") << 0x4D44U << true;
    QTest::newRow("exFAT") << 0x2011BAB0U << true;
    QTest::newRow("ext4") << 0xEF53U << false;
    QTest::newRow("NTFS") << 0x5346544EU << false;
}

void TestFatFolder::knowsTheFatFamily()
{
    QFETCH(const unsigned, magic);
    const QTemporaryDir folder;
    const DiskKind disk(magic);
    QTEST(isOnFat(folder.path()), "isFat");
}

void TestFatFolder::takesAMissingFolderForNone()
{
    const QTemporaryDir folder;
    const DiskKind disk(0x4D44U);
    QVERIFY(!isOnFat(folder.filePath(QStringLiteral("missing"))));
}

BRISEL_TEST(QCoreApplication, TestFatFolder)
#include "tst_fatfolder.moc"
