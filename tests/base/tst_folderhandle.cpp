#include "base/folderhandle.h"

#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// Folders that are opened without following links.
class TestFolderHandle : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opensTheRootAndFoldersBelow();
    void followsNoLinkBelowTheRoot();
    void leavesTheRootByNoName();
    void opensNoOtherFileSystem();
    void staysWhereItIs();
    void replacesNothing();
    void renamesALinkAsSuch();
    void removesFilesAndLinksAsSuch();
    void flushesFilesAndFoldersButNoLink();
    void knowsTheWayBelowARoot();
    void knowsWhatLeavesARoot();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFolderHandle::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    makeFile(path(u"root/a/b/song.mid"_s), "inside");
    makeFile(path(u"home/Documents/song.mid"_s), "outside");
    QVERIFY(QFile::link(path(u"home"_s), path(u"root/out"_s)));
    QVERIFY(QFile::link(u"a/b"_s, path(u"root/in"_s)));
}

void TestFolderHandle::cleanup()
{
    m_folder.reset();
}

void TestFolderHandle::opensTheRootAndFoldersBelow()
{
    const QString root = path(u"root"_s);
    QVERIFY(FolderHandle(root, QString()).isOpen());
    QVERIFY(FolderHandle(root, u"a"_s).isOpen());
    QVERIFY(FolderHandle(root, u"a/b"_s).rename(u"song.mid"_s, u"b.mid"_s));
    QCOMPARE(fileContent(root + u"/a/b/b.mid"_s), "inside");
    QVERIFY(!FolderHandle(root, u"a/c"_s).isOpen());
    QVERIFY(!FolderHandle(root, u"a/b/b.mid"_s).isOpen());
    QVERIFY(!FolderHandle(path(u"missing"_s), QString()).isOpen());
    // The root itself may be a link.
    QVERIFY(FolderHandle(root + u"/in"_s, QString()).isOpen());
}

void TestFolderHandle::followsNoLinkBelowTheRoot()
{
    const QString root = path(u"root"_s);
    for (const QString &names : {u"out"_s, u"out/Documents"_s, u"in"_s})
        QVERIFY2(!FolderHandle(root, names).isOpen(), qPrintable(names));
}

void TestFolderHandle::leavesTheRootByNoName()
{
    QVERIFY(!FolderHandle(path(u"root"_s), u".."_s).isOpen());
    QVERIFY(!FolderHandle(path(u"root"_s), u"a/../../home"_s).isOpen());
}

void TestFolderHandle::opensNoOtherFileSystem()
{
    const SmallDisk disk(path(u"root/a/b"_s), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QVERIFY(FolderHandle(path(u"root"_s), u"a"_s).isOpen());
    QVERIFY(!FolderHandle(path(u"root"_s), u"a/b"_s).isOpen());
    QVERIFY(leavesRoot(path(u"root/a/b"_s), path(u"root"_s)));
    makeFile(path(u"root/a/b/song.mid"_s), "x");
    QVERIFY(leavesRoot(path(u"root/a/b/song.mid"_s), path(u"root"_s)));
}

void TestFolderHandle::staysWhereItIs()
{
    const FolderHandle folder(path(u"root"_s), u"a/b"_s);
    QVERIFY(QFile::rename(path(u"root/a"_s), path(u"root/c"_s)));
    QVERIFY(QFile::link(path(u"home"_s), path(u"root/a"_s)));
    QVERIFY(QFile::rename(path(u"home/Documents"_s), path(u"home/b"_s)));
    QVERIFY(folder.rename(u"song.mid"_s, u"new.mid"_s));
    QCOMPARE(fileContent(path(u"home/b/song.mid"_s)), "outside");
    QCOMPARE(fileContent(path(u"root/c/b/new.mid"_s)), "inside");
}

void TestFolderHandle::replacesNothing()
{
    const FolderHandle root(path(u"root"_s), QString());
    makeFile(path(u"root/one"_s), "1");
    makeFile(path(u"root/two"_s), "2");
    QVERIFY(QFile::link(u"missing"_s, path(u"root/dangling"_s)));
    QVERIFY(!root.rename(u"one"_s, u"two"_s));
    QVERIFY(!root.rename(u"one"_s, u"dangling"_s));
    QVERIFY(!root.rename(u"missing"_s, u"three"_s));
    QCOMPARE(fileContent(path(u"root/one"_s)), "1");
    QCOMPARE(fileContent(path(u"root/two"_s)), "2");
}

void TestFolderHandle::renamesALinkAsSuch()
{
    const FolderHandle root(path(u"root"_s), QString());
    QVERIFY(root.rename(u"out"_s, u"outward"_s));
    QCOMPARE(QFileInfo(path(u"root/outward"_s)).symLinkTarget(), path(u"home"_s));
    QVERIFY(QFileInfo::exists(path(u"home/Documents"_s)));
}

void TestFolderHandle::removesFilesAndLinksAsSuch()
{
    const FolderHandle root(path(u"root"_s), QString());
    const FolderHandle folder(path(u"root"_s), u"a/b"_s);
    makeFile(path(u"outside"_s), "kept");
    QVERIFY(QFile::link(path(u"outside"_s), path(u"root/song.mid"_s)));
    QVERIFY(root.remove(u"song.mid"_s));
    QVERIFY(!QFileInfo(path(u"root/song.mid"_s)).isSymLink());
    QCOMPARE(fileContent(path(u"outside"_s)), "kept");
    QVERIFY(folder.remove(u"song.mid"_s));
    QVERIFY(!QFile::exists(path(u"root/a/b/song.mid"_s)));
    QVERIFY(!folder.remove(u"song.mid"_s));
    QVERIFY(!root.remove(u"a"_s));
    QVERIFY(QFileInfo(path(u"root/a/b"_s)).isDir());
}

void TestFolderHandle::flushesFilesAndFoldersButNoLink()
{
    const FolderHandle folder(path(u"root"_s), QString());
    QVERIFY(folder.flush());
    QVERIFY(folder.flush(u"a"_s));
    QVERIFY(!folder.flush(u"in"_s));
    QVERIFY(!folder.flush(u"missing"_s));
    QCOMPARE(folder.flushFileSystem(), std::optional(true));
    QVERIFY(FolderHandle(path(u"root"_s), u"a/b"_s).flush(u"song.mid"_s));
}

void TestFolderHandle::knowsTheWayBelowARoot()
{
    const QString root = path(u"root"_s);
    QCOMPARE(wayBelow(root, root + u"/a/b/song.mid"_s), u"a/b/song.mid"_s);
    QCOMPARE(wayBelow(root, root + u"/in/song.mid"_s), u"a/b/song.mid"_s);
    QCOMPARE(wayBelow(root, root), u""_s);
    QVERIFY(!wayBelow(root, root).isNull());
    QVERIFY(wayBelow(root, root + u"/out"_s).isNull());
    QVERIFY(wayBelow(root, path(u"rooted"_s)).isNull());
    QVERIFY(QDir().mkdir(path(u"rooted"_s)));
    QVERIFY(wayBelow(root, path(u"rooted"_s)).isNull());
    QCOMPARE(wayBelow(u"/"_s, u"/"_s), u""_s);
    QVERIFY(!wayBelow(u"/"_s, root).isEmpty());
}

void TestFolderHandle::knowsWhatLeavesARoot()
{
    const QString root = path(u"root"_s);
    QVERIFY(leavesRoot(root + u"/out"_s, root));
    QVERIFY(leavesRoot(root + u"/out/Documents/song.mid"_s, root));
    QVERIFY(!leavesRoot(root + u"/in"_s, root));
    QVERIFY(!leavesRoot(root + u"/in/song.mid"_s, root));
    QVERIFY(!leavesRoot(root, root));
    // A missing path does not leave the root.
    QVERIFY(!leavesRoot(root + u"/missing"_s, root));
    QVERIFY(!leavesRoot(path(u"missing/a"_s), path(u"missing"_s)));
}

BRISEL_TEST(QCoreApplication, TestFolderHandle)
#include "tst_folderhandle.moc"
