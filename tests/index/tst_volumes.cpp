#include "index/volumes.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace brisel;

/// Which part of a path is the memory, and which paths are on the system disk.
class TestVolumes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void cutsRoots_data();
    void cutsRoots();
    void knowsRoots();
    void takesOtherPathsForTheSystemDisk_data();
    void takesOtherPathsForTheSystemDisk();
    void givesDriveRoots();
    void keepsTheRulesBelowEachMountFolder();
    void refusesLinksOutOfTheMountFolder();
    void startsWhereMemoriesAre();
};

void TestVolumes::init()
{
    qunsetenv("BRISEL_VOLUMES");
    qputenv("USER", "anna");
}

void TestVolumes::cleanup()
{
    qunsetenv("BRISEL_VOLUMES");
}

void TestVolumes::cutsRoots_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("root");
    QTest::newRow("song folder") << u"/Volumes/CARD/songs/pop"_qs << u"/Volumes/CARD"_qs;
    QTest::newRow("root") << u"/Volumes/CARD"_qs << u"/Volumes/CARD"_qs;
    QTest::newRow("one part") << u"/Users"_qs << u"/"_qs;
    QTest::newRow("mount folder") << u"/Volumes"_qs << u"/"_qs;
    QTest::newRow("elsewhere") << u"/Users/me/Music"_qs << u"/Users/me"_qs;
    QTest::newRow("slashes") << u"/Volumes//CARD/./x/"_qs << u"/Volumes/CARD"_qs;
    QTest::newRow("climbing") << u"/Volumes/CARD/../../etc"_qs << u"/"_qs;
    QTest::newRow("linux") << u"/media/anna/CARD/songs"_qs << u"/media/anna/CARD"_qs;
    QTest::newRow("run") << u"/run/media/anna/CARD/songs"_qs << u"/run/media/anna/CARD"_qs;
    QTest::newRow("not a mount") << u"/media/other/CARD/x"_qs << u"/media/other"_qs;
    QTest::newRow("linux mount folder") << u"/media/anna"_qs << u"/"_qs;
}

void TestVolumes::cutsRoots()
{
    QFETCH(QString, path);
    QTEST(getRoot(path), "root");
}

void TestVolumes::knowsRoots()
{
    QVERIFY(isRoot(u"/Volumes/CARD"_qs));
    QVERIFY(isRoot(u"/Volumes/CARD/"_qs));
    QVERIFY(!isRoot(u"/Volumes/CARD/songs"_qs));
    QVERIFY(!isRoot(u"/Volumes"_qs));
    QVERIFY(isRoot(u"/media/anna/CARD"_qs));
}

void TestVolumes::takesOtherPathsForTheSystemDisk_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("system");
    QTest::newRow("memory") << u"/Volumes/CARD"_qs << false;
    QTest::newRow("any case") << u"/VOLUMES/card/x"_qs << false;
    QTest::newRow("mount folder") << u"/Volumes/"_qs << true;
    QTest::newRow("home") << u"/Users/me/Music"_qs << true;
    QTest::newRow("neighbour") << u"/VolumesX/CARD"_qs << true;
    QTest::newRow("climbing") << u"/Volumes/.."_qs << true;
    QTest::newRow("climbing out and in") << u"/Volumes/../Volumes/CARD"_qs << true;
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("linux memory") << u"/media/anna/CARD"_qs << false;
    QTest::newRow("linux mount folder") << u"/media/anna"_qs << true;
    QTest::newRow("linux keeps case") << u"/MEDIA/anna/CARD"_qs << true;
}

void TestVolumes::takesOtherPathsForTheSystemDisk()
{
    QFETCH(QString, path);
    QTEST(isSystemDisk(path), "system");
}

void TestVolumes::givesDriveRoots()
{
    QCOMPARE(getRootDrivePath(u"/Volumes/CARD/BASI"_qs), u"/Volumes/CARD"_qs);
    QCOMPARE(getRootDrivePath(u"/volumes/CARD/BASI"_qs), u"/volumes/CARD"_qs);
    QCOMPARE(getRootDrivePath(u"/Volumes/C"_qs), u"/Volumes/C"_qs);
    QCOMPARE(getRootDrivePath(u"/Volumes/"_qs), QString());
    QCOMPARE(getRootDrivePath(u"/home/me"_qs), QString());
    QCOMPARE(getRootDrivePath(u"/Volumes/CARD/../x"_qs), QString());
}

void TestVolumes::keepsTheRulesBelowEachMountFolder()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(u"vol/CARD/songs"_qs));
    const QString vol = folder.filePath(u"vol"_qs);
    qputenv("BRISEL_VOLUMES", (vol + u'/').toUtf8());
    QCOMPARE(mountFolders().first(), vol);
    QCOMPARE(getRoot(vol + u"/CARD/songs"_qs), vol + u"/CARD"_qs);
    QCOMPARE(getRoot(vol + u"/CARD"_qs), vol + u"/CARD"_qs);
    QCOMPARE(getRoot(vol), u"/"_qs);
    QVERIFY(isRoot(vol + u"/CARD"_qs));
    QVERIFY(!isSystemDisk(vol + u"/CARD/songs"_qs));
    QVERIFY(!isSystemDisk(vol + u"/CARD/not yet there"_qs));
    QVERIFY(isSystemDisk(vol));
    QCOMPARE(getRootDrivePath(vol + u"/CARD/songs"_qs), vol + u"/CARD"_qs);
    QCOMPARE(getRoot(u"/Volumes/CARD/x"_qs), u"/Volumes/CARD"_qs);
}

void TestVolumes::refusesLinksOutOfTheMountFolder()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(u"vol/CARD"_qs));
    QVERIFY(QDir(folder.path()).mkpath(u"home/music"_qs));
    const QString vol = folder.filePath(u"vol"_qs);
    QVERIFY(QFile::link(folder.filePath(u"home"_qs), vol + u"/DISK"_qs));
    qputenv("BRISEL_VOLUMES", vol.toUtf8());
    QVERIFY(isSystemDisk(vol + u"/DISK"_qs));
    QVERIFY(isSystemDisk(vol + u"/DISK/music"_qs));
    QVERIFY(isSystemDisk(vol + u"/DISK/new"_qs));
    QCOMPARE(getRootDrivePath(vol + u"/DISK/music"_qs), QString());
    QVERIFY(!isSystemDisk(vol + u"/CARD"_qs));
    // The mount folder itself may be a link.
    QVERIFY(QFile::link(vol, folder.filePath(u"link"_qs)));
    qputenv("BRISEL_VOLUMES", folder.filePath(u"link"_qs).toUtf8());
    QVERIFY(!isSystemDisk(folder.filePath(u"link/CARD"_qs)));
}

void TestVolumes::startsWhereMemoriesAre()
{
    const QTemporaryDir folder;
    qputenv("BRISEL_VOLUMES", folder.path().toUtf8());
    QCOMPARE(volumesStartFolder(), folder.path());
    qputenv("BRISEL_VOLUMES", folder.filePath(u"gone"_qs).toUtf8());
    QVERIFY(QFileInfo(volumesStartFolder()).isDir());
}

BRISEL_TEST(QCoreApplication, TestVolumes)
#include "tst_volumes.moc"
