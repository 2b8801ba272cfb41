#include "base/fileidentity.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

class TestFileIdentity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void distinguishesKinds();
    void followsLinks();
    void distinguishesMissingFromUnreachable();
    void distinguishesAPathWithoutPermissionFromAMissingOne();
    void givesOneIdentityByEveryWay();
    void givesNoIdentityToWhatIsMissing();
    void distinguishesAChangedFileFromTheOldOne();
};

void TestFileIdentity::initTestCase()
{
    QFile file(u"song.mid"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QDir().mkdir(u"folder"_s));
    QCOMPARE(::mkfifo("fifo", 0600), 0);
    for (const auto &[target, name] : {std::pair{u"song.mid"_s, u"link"_s},
                                       {u"folder"_s, u"folderlink"_s},
                                       {u"fifo"_s, u"fifolink"_s},
                                       {u"nowhere"_s, u"dangling"_s},
                                       {u"loop"_s, u"loop"_s},
                                       {u"/dev/zero"_s, u"zero"_s}})
        QVERIFY(QFile::link(target, name));
}

void TestFileIdentity::distinguishesKinds()
{
    QCOMPARE(fileKind(u"song.mid"_s), FileKind::Regular);
    QCOMPARE(fileKind(u"folder"_s), FileKind::Folder);
    QCOMPARE(fileKind(u"fifo"_s), FileKind::Other);
    QCOMPARE(fileKind(u"/dev/null"_s), FileKind::Other);
    QVERIFY(isRegularFile(u"song.mid"_s));
    QVERIFY(!isRegularFile(u"folder"_s) && !isRegularFile(u"fifo"_s));
}

void TestFileIdentity::followsLinks()
{
    QVERIFY(isRegularFile(u"link"_s));
    QCOMPARE(fileKind(u"folderlink"_s), FileKind::Folder);
    QCOMPARE(fileKind(u"fifolink"_s), FileKind::Other);
    QCOMPARE(fileKind(u"zero"_s), FileKind::Other);
}

void TestFileIdentity::distinguishesMissingFromUnreachable()
{
    QCOMPARE(fileKind(QString()), FileKind::Missing);
    QCOMPARE(fileKind(u"missing"_s), FileKind::Missing);
    QCOMPARE(fileKind(u"dangling"_s), FileKind::Missing);
    QCOMPARE(fileKind(u"song.mid/x"_s), FileKind::Missing);
    QCOMPARE(fileKind(u"loop"_s), FileKind::Unreachable);
    QCOMPARE(fileKind(QString(300, u'n')), FileKind::Unreachable);
}

void TestFileIdentity::distinguishesAPathWithoutPermissionFromAMissingOne()
{
    if (::geteuid() == 0)
        QSKIP("root may look into every folder");
    QVERIFY(QDir().mkdir(u"closed"_s));
    QFile::setPermissions(u"closed"_s, QFile::Permissions());
    QCOMPARE(fileKind(u"closed/song.mid"_s), FileKind::Unreachable);
    QFile::setPermissions(u"closed"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestFileIdentity::givesOneIdentityByEveryWay()
{
    QCOMPARE(::link("song.mid", "hard.mid"), 0);
    QVERIFY(isSameFile(u"song.mid"_s, u"folder/../song.mid"_s));
    QVERIFY(isSameFile(u"song.mid"_s, u"link"_s));
    QVERIFY(isSameFile(u"song.mid"_s, u"hard.mid"_s));
    QVERIFY(isSameFile(u"folder"_s, u"folderlink/."_s));
    QVERIFY(!isSameFile(u"song.mid"_s, u"folder"_s));
    QFile other(u"other.mid"_s);
    QVERIFY(other.open(QIODevice::WriteOnly));
    QVERIFY(!isSameFile(u"song.mid"_s, u"other.mid"_s));
}

void TestFileIdentity::givesNoIdentityToWhatIsMissing()
{
    QVERIFY(fileIdentity(QString()).isEmpty());
    QVERIFY(fileIdentity(u"missing"_s).isEmpty());
    QVERIFY(!isSameFile(u"missing"_s, u"missing"_s));
}

void TestFileIdentity::distinguishesAChangedFileFromTheOldOne()
{
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(1700000000123LL);
    QFile file(u"state.mid"_s);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const auto rewrite = [&](const QByteArray &content, const QDateTime &time) {
        return file.resize(0) && file.seek(0) && file.write(content) == content.size() &&
               file.flush() && file.setFileTime(time, QFileDevice::FileModificationTime);
    };
    QVERIFY(rewrite("1234", moment));
    const FileState old = fileState(u"state.mid"_s);
    QCOMPARE(old.size, 4);
    QCOMPARE(old.modified, 1700000000LL);
    QCOMPARE(old.modifiedNs, 1700000000123000000LL);
    QVERIFY(old.inode != 0);
    QVERIFY(fileState(file.handle()) == old);
    QVERIFY(rewrite("12345", moment));
    QVERIFY(fileState(u"state.mid"_s) != old);
    QVERIFY(rewrite("1234", moment.addMSecs(1)));
    QVERIFY(fileState(u"state.mid"_s) != old);
    QVERIFY(rewrite("1234", moment)); // resetting the time does not hide the change
    QVERIFY(fileState(u"state.mid"_s) != old);
    QCOMPARE(fileState(u"state.mid"_s).modifiedNs, old.modifiedNs);
    QFile copy(u"copied.mid"_s);
    QVERIFY(file.copy(copy.fileName()) && copy.open(QIODevice::ReadWrite));
    QVERIFY(copy.setFileTime(moment, QFileDevice::FileModificationTime));
    QVERIFY(fileState(copy.fileName()) != old);
    QVERIFY(FileState() == fileState(u"missing"_s));
}

BRISEL_TEST(QCoreApplication, TestFileIdentity)
#include "tst_fileidentity.moc"
