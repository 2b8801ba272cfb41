#include "base/filewriting.h"

#include "base/flushing.h"
#include "tests/base/nonewfiles.h"
#include "tests/fulldisk.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write");
}

/// While it exists root is the user "nobody", who owns a folder and its files.
class Nobody
{
public:
    explicit Nobody(const QString &folder) : m_folder(QFile::encodeName(folder))
    {
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0) {
            change(nobody);
            // The parent folder belongs to root and must be accessible.
            ::chmod(QFile::encodeName(QDir::tempPath()).constData(), 0711);
            m_isRoot = ::setresuid(nobody, nobody, 0) == 0;
        }
    }
    ~Nobody()
    {
        if (m_isRoot && ::setresuid(0, 0, 0) == 0)
            change(0);
    }
    Nobody(const Nobody &) = delete;
    Nobody &operator=(const Nobody &) = delete;

private:
    void change(uid_t owner) const
    {
        const QString folder = QFile::decodeName(m_folder);
        for (const QFileInfo &entry : QDir(folder).entryInfoList(QDir::Files))
            (void)!::chown(QFile::encodeName(entry.filePath()).constData(), owner, gid_t(-1));
        (void)!::chown(m_folder.constData(), owner, gid_t(-1));
    }

    QByteArray m_folder;
    bool m_isRoot = false;
};

/// While it exists no files can be created in a folder, but its files can be written: the folder is
/// write-protected, and root is the user "nobody".
class FolderWithoutEntries
{
public:
    explicit FolderWithoutEntries(const QString &folder)
        : m_user(folder), m_folder(QFile::encodeName(folder))
    {
        ::chmod(m_folder.constData(), 0500);
    }
    ~FolderWithoutEntries() { ::chmod(m_folder.constData(), 0700); }
    FolderWithoutEntries(const FolderWithoutEntries &) = delete;
    FolderWithoutEntries &operator=(const FolderWithoutEntries &) = delete;

private:
    const Nobody m_user;
    const QByteArray m_folder;
};

} // namespace

class TestFileWriting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void createsAndReplaces();
    void keepsPermissions();
    void keepsALinkAndRewritesItsTarget();
    void keepsTheOldContentOnAFullDisk_data();
    void keepsTheOldContentOnAFullDisk();
    void createsNothingOnAFullDisk();
    void refusesWhatIsNotAFile();
    void refusesAWriteProtectedFile();
    void replacesWithContentOfAnySize();
    void writesNamesTooLongForATemporaryFile();
    void keepsTheOldContentInPlace_data();
    void keepsTheOldContentInPlace();
    void writesInPlaceWithoutATemporaryFile();
    void overwritesNothingOnADiskWithoutRoomForAFile();
    void noticesAShortFile();
    void movesOverAFile();
    void movesNothingThatIsMissing();
    void keepsTheTargetWhenAMoveFails();
    void flushesFoldersOnly();

private:
    QStringList entries() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestFileWriting::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"song.mid"_s);
}

void TestFileWriting::cleanup()
{
    m_folder.reset();
}

QStringList TestFileWriting::entries() const
{
    return QDir(m_folder->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void TestFileWriting::createsAndReplaces()
{
    QVERIFY(replaceFile(m_path, "first"));
    QCOMPARE(read(m_path), QByteArray("first"));
    QVERIFY(replaceFile(m_path, "2"));
    QCOMPARE(read(m_path), QByteArray("2"));
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
}

void TestFileWriting::keepsPermissions()
{
    write(m_path, "old");
    const QFile::Permissions wanted = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QFile::setPermissions(m_path, wanted);
    const QFile::Permissions before = QFile::permissions(m_path);
    QVERIFY(replaceFile(m_path, "new"));
    QCOMPARE(QFile::permissions(m_path), before);
    QVERIFY(before.testFlag(QFile::ReadGroup) && !before.testFlag(QFile::ReadOther));
}

void TestFileWriting::keepsALinkAndRewritesItsTarget()
{
    write(m_path, "old");
    const QString link = m_folder->filePath(u"link.mid"_s);
    QVERIFY(QFile::link(u"song.mid"_s, link));
    QVERIFY(replaceFile(link, "new"));
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(read(m_path), QByteArray("new"));
    QCOMPARE(entries().size(), 2);
}

void TestFileWriting::keepsTheOldContentOnAFullDisk_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("none") << 0;
    QTest::newRow("some") << 10;
    QTest::newRow("a block") << 4096;
    QTest::newRow("all but one byte") << 49999;
}

void TestFileWriting::keepsTheOldContentOnAFullDisk()
{
    QFETCH(const int, room);
    write(m_path, "old content");
    {
        const FullDisk disk(static_cast<rlim_t>(room));
        QVERIFY(!replaceFile(m_path, QByteArray(50000, 'n')));
    }
    QCOMPARE(read(m_path), QByteArray("old content"));
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
}

void TestFileWriting::createsNothingOnAFullDisk()
{
    {
        const FullDisk disk(3);
        QVERIFY(!replaceFile(m_path, "four"));
        QVERIFY(replaceFile(m_path, "two"));
    }
    QCOMPARE(read(m_path), QByteArray("two"));
}

void TestFileWriting::refusesWhatIsNotAFile()
{
    QVERIFY(!replaceFile(m_folder->path(), "x"));
    QVERIFY(!replaceFile(QString(), "x"));
    QVERIFY(!replaceFile(m_folder->filePath(u"missing/song.mid"_s), "x"));
    QCOMPARE(::mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
    QVERIFY(!replaceFile(m_path, "x"));
    struct stat entry {
    };
    QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &entry), 0);
    QVERIFY(S_ISFIFO(entry.st_mode));
    const QString loop = m_folder->filePath(u"loop"_s);
    QVERIFY(QFile::link(u"loop"_s, loop));
    QVERIFY(!replaceFile(loop, "x"));
    QVERIFY(QFileInfo(loop).isSymLink());
    const QString dangling = m_folder->filePath(u"dangling"_s);
    QVERIFY(QFile::link(u"nowhere"_s, dangling));
    QVERIFY(!replaceFile(dangling, "x"));
    QVERIFY(!replaceFile(u"/dev/null"_s, "x"));
}

void TestFileWriting::refusesAWriteProtectedFile()
{
    write(m_path, "old");
    QFile::setPermissions(m_path, QFile::ReadOwner);
    const Nobody user(m_folder->path());
    QVERIFY(!replaceFile(m_path, "new"));
    QCOMPARE(read(m_path), QByteArray("old"));
}

void TestFileWriting::replacesWithContentOfAnySize()
{
    for (const int size : {0, 1, 16383, 16384, 16385, 300000}) {
        const QByteArray content(size, static_cast<char>('a' + size % 20));
        QVERIFY(replaceFile(m_path, content));
        QVERIFY(read(m_path) == content);
    }
}

void TestFileWriting::writesNamesTooLongForATemporaryFile()
{
    for (const int length : {248, 249, 255}) {
        const QString path = m_folder->filePath(QString(length, u'n'));
        for (const char *content : {"first, long", "2", "third, longer than that"}) {
            QVERIFY(replaceFile(path, content));
            QCOMPARE(read(path), QByteArray(content));
        }
    }
    const FullDisk disk(3);
    QVERIFY(!replaceFile(m_folder->filePath(QString(255, u'm')), "four"));
    QCOMPARE(entries().size(), 3);
    QVERIFY(replaceFile(m_folder->filePath(QString(255, u'm')), "two"));
}

void TestFileWriting::keepsTheOldContentInPlace_data()
{
    keepsTheOldContentOnAFullDisk_data();
}

void TestFileWriting::keepsTheOldContentInPlace()
{
    QFETCH(const int, room);
    const QByteArray old(20000, 'o');
    write(m_path, old);
    {
        const FolderWithoutEntries folder(m_folder->path());
        // The file's space must not be freed before the new content is written.
        const FullDisk disk(static_cast<rlim_t>(room));
        QVERIFY(!replaceFile(m_path, QByteArray(50000, 'n')));
    }
    QVERIFY(read(m_path) == old);
}

void TestFileWriting::writesInPlaceWithoutATemporaryFile()
{
    write(m_path, "the old content");
    struct stat before {
    };
    QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &before), 0);
    {
        const FolderWithoutEntries folder(m_folder->path());
        QVERIFY(replaceFile(m_path, "new"));
        QVERIFY(!replaceFile(m_folder->filePath(u"other.mid"_s), "new"));
    }
    QCOMPARE(read(m_path), QByteArray("new"));
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
    struct stat after {
    };
    QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
}

void TestFileWriting::overwritesNothingOnADiskWithoutRoomForAFile()
{
    write(m_path, "old");
    struct stat before {
    };
    QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &before), 0);
    {
        const NoNewFiles disk;
        QVERIFY(!replaceFile(m_path, "new"));
    }
    QCOMPARE(read(m_path), QByteArray("old"));
    struct stat after {
    };
    QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &after), 0);
    QCOMPARE(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec); // not changed even temporarily
    QVERIFY(replaceFile(m_path, "new"));
}

void TestFileWriting::noticesAShortFile()
{
    const FullDisk disk(100);
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(writeAll(file, QByteArray(101, 'x'))); // stays in the buffer
    QVERIFY(!finishWriting(file, 101));
    file.close();
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(writeAll(file, QByteArray(100, 'x')));
    QVERIFY(!finishWriting(file, 99));
    QVERIFY(finishWriting(file, 100));
}

void TestFileWriting::movesOverAFile()
{
    const QString from = m_folder->filePath(u"new.tmp"_s);
    write(from, "new");
    write(m_path, "old");
    QVERIFY(moveIntoPlace(from, m_path));
    QCOMPARE(read(m_path), QByteArray("new"));
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
}

void TestFileWriting::movesNothingThatIsMissing()
{
    write(m_path, "old");
    QVERIFY(!moveIntoPlace(m_folder->filePath(u"missing"_s), m_path));
    QCOMPARE(read(m_path), QByteArray("old"));
}

void TestFileWriting::keepsTheTargetWhenAMoveFails()
{
    write(m_path, "new");
    const QString folder = m_folder->filePath(u"folder"_s);
    QVERIFY(QDir().mkpath(folder + u"/inside"_s));
    QVERIFY(!moveIntoPlace(m_path, folder));
    QVERIFY(QFileInfo::exists(folder + u"/inside"_s));
    QCOMPARE(read(m_path), QByteArray("new"));
}

void TestFileWriting::flushesFoldersOnly()
{
    QVERIFY(flushFolder(m_folder->path()));
    QVERIFY(!flushFolder(m_folder->filePath(u"missing"_s)));
    write(m_path, "x");
    QVERIFY(!flushFolder(m_path));
}

BRISEL_TEST(QCoreApplication, TestFileWriting)
#include "tst_filewriting.moc"
