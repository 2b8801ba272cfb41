#include "base/fileattributes.h"
#include "base/filewriting.h"
#include "tests/base/fatdisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

#include <linux/msdos_fs.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

constexpr char attributedSong[] = "song.mid";
const QString attributedPath = QString::fromLatin1(attributedSong);

struct stat lookAt(const char *path)
{
    struct stat entry {
    };
    if (::stat(path, &entry) != 0)
        qFatal("no file");
    return entry;
}

QByteArray attribute(const char *name)
{
    QByteArray value(1000, '\0');
    const ssize_t size = ::getxattr(attributedSong, name, value.data(), value.size());
    return size < 0 ? QByteArray("none") : value.left(size);
}

bool setAttribute(const char *path, const char *name, const QByteArray &value)
{
    return ::setxattr(path, name, value.constData(), static_cast<size_t>(value.size()), 0) == 0;
}

/// An access control list: version 2, and entries of tag, permissions and id: owner rw, user 65534
/// r, group -, mask r, others -.
const QByteArray accessList = QByteArray::fromHex("02000000"
                                                  "01000600ffffffff"
                                                  "02000400feff0000"
                                                  "04000000ffffffff"
                                                  "10000400ffffffff"
                                                  "20000000ffffffff");

} // namespace

/// Replacing a song keeps everything besides its content.
class TestFileAttributes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void keepsOwnerAndGroup();
    void givesAnotherGroupNoPermissions();
    void keepsExtendedAttributes();
    void keepsAccessControlLists();
    void takesNoListFromTheFolder();
    void keepsHiddenAndSystemOnFat();
    void keepsHiddenAloneWhereSystemIsRefused();
    void ignoresWhatTheSystemRefuses();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFileAttributes::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    makeFile(attributedPath, "old");
}

void TestFileAttributes::cleanup()
{
    QDir::setCurrent(u"/"_s);
    m_folder.reset();
}

void TestFileAttributes::keepsOwnerAndGroup()
{
    constexpr uid_t someone = 65533;
    constexpr gid_t somegroup = 65532;
    if (::chown(attributedSong, someone, somegroup) != 0)
        QSKIP("only root can give files away");
    QCOMPARE(::chmod(attributedSong, 0640), 0);
    const ino_t before = lookAt(attributedSong).st_ino;
    QVERIFY(replaceFile(attributedPath, "new"));
    QVERIFY(lookAt(attributedSong).st_ino != before);
    QCOMPARE(lookAt(attributedSong).st_uid, someone);
    QCOMPARE(lookAt(attributedSong).st_gid, somegroup);
    QCOMPARE(lookAt(attributedSong).st_mode & 07777, 0640U);
}

void TestFileAttributes::givesAnotherGroupNoPermissions()
{
    constexpr uid_t someone = 65533;
    constexpr gid_t somegroup = 65532;
    constexpr gid_t owngroup = 65531;
    makeFile(u"new.mid"_s, "new");
    if (::chown(attributedSong, someone, somegroup) != 0)
        QSKIP("only root can give files away");
    QCOMPARE(::chown("new.mid", someone, owngroup), 0);
    QCOMPARE(::chmod(attributedSong, 0664), 0);
    QFile old(attributedPath);
    QFile song(u"new.mid"_s);
    QVERIFY(old.open(QIODevice::ReadOnly) && song.open(QIODevice::ReadWrite));
    QCOMPARE(::seteuid(someone), 0);
    keepAttributes(old.handle(), song.handle());
    QCOMPARE(::seteuid(0), 0);
    QCOMPARE(lookAt("new.mid").st_gid, owngroup);
    QCOMPARE(lookAt("new.mid").st_mode & 07777, 0604U);
    keepAttributes(old.handle(), song.handle());
    QCOMPARE(lookAt("new.mid").st_gid, somegroup);
    QCOMPARE(lookAt("new.mid").st_mode & 07777, 0664U);
}

void TestFileAttributes::keepsExtendedAttributes()
{
    const QByteArray value("five \0 stars", 12);
    if (!setAttribute(attributedSong, "user.rating", value) ||
        !setAttribute(attributedSong, "user.empty", ""))
        QSKIP("this file system has no extended attributes");
    QVERIFY(replaceFile(attributedPath, "new"));
    QCOMPARE(fileContent(attributedPath), QByteArray("new"));
    QCOMPARE(attribute("user.rating"), value);
    QCOMPARE(attribute("user.empty"), QByteArray());
}

void TestFileAttributes::keepsAccessControlLists()
{
    if (!setAttribute(attributedSong, "system.posix_acl_access", accessList))
        QSKIP("this file system has no access control lists");
    QVERIFY(replaceFile(attributedPath, "new"));
    QCOMPARE(attribute("system.posix_acl_access"), accessList);
    QCOMPARE(lookAt(attributedSong).st_mode & 07777, 0640U);
}

void TestFileAttributes::takesNoListFromTheFolder()
{
    if (!setAttribute(".", "system.posix_acl_default", accessList))
        QSKIP("this file system has no access control lists");
    QVERIFY(replaceFile(attributedPath, "new"));
    QCOMPARE(attribute("system.posix_acl_access"), QByteArray("none"));
    QCOMPARE(lookAt(attributedSong).st_mode & 07777, 0644U);
}

void TestFileAttributes::keepsHiddenAndSystemOnFat()
{
    const FatDisk disk;
    FatDisk::setAttributes(attributedPath, ATTR_HIDDEN | ATTR_SYS);
    QVERIFY(replaceFile(attributedPath, "new"));
    QCOMPARE(FatDisk::attributes(attributedPath), unsigned{ATTR_HIDDEN | ATTR_SYS | ATTR_ARCH});
    FatDisk::setAttributes(attributedPath, ATTR_HIDDEN);
    QVERIFY(replaceFile(attributedPath, "newer"));
    QCOMPARE(FatDisk::attributes(attributedPath), unsigned{ATTR_HIDDEN | ATTR_ARCH});
    FatDisk::setAttributes(attributedPath, ATTR_ARCH);
    QVERIFY(replaceFile(attributedPath, "newest"));
    QCOMPARE(FatDisk::attributes(attributedPath), unsigned{ATTR_ARCH});
}

void TestFileAttributes::keepsHiddenAloneWhereSystemIsRefused()
{
    const FatDisk disk;
    FatDisk::setAttributes(attributedPath, ATTR_HIDDEN | ATTR_SYS);
    FatDisk::refuseSystem();
    QVERIFY(replaceFile(attributedPath, "new"));
    QCOMPARE(FatDisk::attributes(attributedPath), unsigned{ATTR_HIDDEN | ATTR_ARCH});
}

void TestFileAttributes::ignoresWhatTheSystemRefuses()
{
    keepAttributes(-1, -1);
    keepPermissions(-1, -1);
    QFile song(attributedPath);
    QVERIFY(song.open(QIODevice::ReadOnly));
    QCOMPARE(::chmod(attributedSong, 0604), 0);
    keepAttributes(-1, song.handle());
    keepAttributes(song.handle(), -1);
    QCOMPARE(lookAt(attributedSong).st_mode & 07777, 0604U);
}

BRISEL_TEST(QCoreApplication, TestFileAttributes)
#include "tst_fileattributes.moc"
