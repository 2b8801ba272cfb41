#include "memory/mountedmemories.h"

#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace brisel;

/// Memories that are mounted and removed, as folders of a mount folder.
class TestMountedMemories : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void listsMemoriesByName();
    void noticesNewAndRemovedMemories();
    void noticesAMountFolderThatIsMade();
    void noticesAMountFolderThatIsMadeAgain();
    void noticesAnotherMemoryInItsPlace();
    void noticesAMount();
    void leavesOutFilesAndLinksToTheSystemDisk();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    /// The roots below the test's folder, without it.
    QString rootsOf(const MountedMemories &memories) const
    {
        QStringList names;
        for (const QString &root : memories.roots()) {
            if (root.startsWith(m_folder->path()))
                names.append(root.mid(m_folder->path().size() + 1));
        }
        return names.join(u' ');
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestMountedMemories::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("BRISEL_VOLUMES", QFile::encodeName(at(u"volumes"_qs)));
}

void TestMountedMemories::cleanup()
{
    qunsetenv("BRISEL_VOLUMES");
    m_folder.reset();
}

void TestMountedMemories::listsMemoriesByName()
{
    QVERIFY(QDir().mkpath(at(u"volumes/TWO"_qs)));
    QVERIFY(QDir().mkpath(at(u"volumes/ONE/deep"_qs)));
    const MountedMemories memories;
    QCOMPARE(rootsOf(memories), u"volumes/ONE volumes/TWO"_qs);
}

void TestMountedMemories::noticesNewAndRemovedMemories()
{
    QVERIFY(QDir().mkpath(at(u"volumes"_qs)));
    const MountedMemories memories;
    const QSignalSpy spy(&memories, &MountedMemories::changed);
    QCOMPARE(rootsOf(memories), QString());
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    QTRY_COMPARE(rootsOf(memories), u"volumes/CARD"_qs);
    QCOMPARE(spy.size(), 1);
    QVERIFY(QDir().rmdir(at(u"volumes/CARD"_qs)));
    QTRY_COMPARE(rootsOf(memories), QString());
    QCOMPARE(spy.size(), 2);
}

void TestMountedMemories::noticesAMountFolderThatIsMade()
{
    const MountedMemories memories;
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    QTRY_COMPARE(rootsOf(memories), u"volumes/CARD"_qs);
    QVERIFY(QDir().mkpath(at(u"volumes/MORE"_qs)));
    QTRY_COMPARE(rootsOf(memories), u"volumes/CARD volumes/MORE"_qs);
}

void TestMountedMemories::noticesAMountFolderThatIsMadeAgain()
{
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    const MountedMemories memories;
    QVERIFY(QDir(at(u"volumes"_qs)).removeRecursively());
    QTRY_COMPARE(rootsOf(memories), QString());
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    QTRY_COMPARE(rootsOf(memories), u"volumes/CARD"_qs);
    QVERIFY(QDir().rmdir(at(u"volumes/CARD"_qs)));
    QTRY_COMPARE(rootsOf(memories), QString());
}

void TestMountedMemories::noticesAnotherMemoryInItsPlace()
{
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    QVERIFY(QDir().mkpath(at(u"other"_qs)));
    MountedMemories memories;
    const QSignalSpy spy(&memories, &MountedMemories::changed);
    memories.look();
    QCOMPARE(spy.size(), 0);
    QVERIFY(QDir().rename(at(u"volumes/CARD"_qs), at(u"old"_qs)));
    QVERIFY(QDir().rename(at(u"other"_qs), at(u"volumes/CARD"_qs)));
    QTRY_COMPARE(spy.size(), 1);
    QCOMPARE(rootsOf(memories), u"volumes/CARD"_qs);
}

/// The folder of the memory is the same before and after it.
void TestMountedMemories::noticesAMount()
{
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    // From the first one on, the program has mounts of its own.
    if (!SmallDisk(at(u"volumes/CARD"_qs), SmallDisk::memorySize).isMounted())
        QSKIP("only root can mount a file system");
    const MountedMemories memories;
    const QSignalSpy spy(&memories, &MountedMemories::changed);
    {
        const SmallDisk disk(at(u"volumes/CARD"_qs), SmallDisk::memorySize);
        QTRY_COMPARE(spy.size(), 1);
        QVERIFY(disk.setReadOnly(true));
        QTRY_COMPARE(spy.size(), 2);
        QCOMPARE(rootsOf(memories), u"volumes/CARD"_qs);
    }
    QTRY_COMPARE(spy.size(), 3);
}

void TestMountedMemories::leavesOutFilesAndLinksToTheSystemDisk()
{
    QVERIFY(QDir().mkpath(at(u"volumes/CARD"_qs)));
    QVERIFY(QDir().mkpath(at(u"volumes/.hidden"_qs)));
    QVERIFY(QFile::link(u"/"_qs, at(u"volumes/DISK"_qs)));
    QFile file(at(u"volumes/FILE"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const MountedMemories memories;
    QCOMPARE(rootsOf(memories), u"volumes/CARD"_qs);
}

BRISEL_TEST(QCoreApplication, TestMountedMemories)
#include "tst_mountedmemories.moc"
