#include "base/filefailure.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

class TestFileFailure : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void reportsWhyAFileIsNoSong();
    void reportsAFileThatMayNotBeRead();
    void reportsAFullDiskFromOtherFailures();
    void reportsADiskThatIsWriteProtected();
    void reportsAFolderThatMayNotBeWritten();
    void reportsAFolderThatIsGone();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFileFailure::reportsWhyAFileIsNoSong()
{
    QCOMPARE(whyUnreadable(at(u"none.mid"_qs), 10), std::optional(FileReason::missing));
    QCOMPARE(whyUnreadable(m_folder->path(), 10), std::optional(FileReason::notAFile));
    QCOMPARE(::mkfifo(QFile::encodeName(at(u"fifo.mid"_qs)).constData(), 0600), 0);
    QCOMPARE(whyUnreadable(at(u"fifo.mid"_qs), 10), std::optional(FileReason::notAFile));
    QVERIFY(QFile::link(u"loop.mid"_qs, at(u"loop.mid"_qs)));
    QCOMPARE(whyUnreadable(at(u"loop.mid"_qs), 10), std::optional(FileReason::unreachable));
    makeFile(at(u"empty.mid"_qs), "");
    QCOMPARE(whyUnreadable(at(u"empty.mid"_qs), 10), std::optional(FileReason::empty));
    makeFile(at(u"ten.mid"_qs), "0123456789");
    QCOMPARE(whyUnreadable(at(u"ten.mid"_qs), 10), std::optional<Reason>());
    QCOMPARE(whyUnreadable(at(u"ten.mid"_qs), 9), std::optional(FileReason::tooLarge));
}

void TestFileFailure::reportsAFileThatMayNotBeRead()
{
    makeFile(at(u"secret.mid"_qs), "MThd");
    QVERIFY(QFile::setPermissions(at(u"secret.mid"_qs), {}));
    const bool mayRead = ::access(QFile::encodeName(at(u"secret.mid"_qs)).constData(), R_OK) == 0;
    if (mayRead)
        QSKIP("root reads everything");
    QCOMPARE(whyUnreadable(at(u"secret.mid"_qs), 10), std::optional(FileReason::unreachable));
}

void TestFileFailure::reportsAFullDiskFromOtherFailures()
{
    const SmallDisk disk(m_folder->path(), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QCOMPARE(whyUnwritable(at(u"a.mid"_qs), 4 * SmallDisk::pageSize), FileReason::unwritable);
    QCOMPARE(whyUnwritable(at(u"a.mid"_qs), 4 * SmallDisk::pageSize + 1), FileReason::noSpace);
}

void TestFileFailure::reportsADiskThatIsWriteProtected()
{
    const SmallDisk disk(m_folder->path(), 4 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    QVERIFY(!isWriteProtected(m_folder->path()));
    QVERIFY(disk.setReadOnly(true));
    QVERIFY(isWriteProtected(m_folder->path()));
    QCOMPARE(whyUnwritable(at(u"a.mid"_qs), 4 * SmallDisk::pageSize + 1),
             FileReason::writeProtected);
}

void TestFileFailure::reportsAFolderThatMayNotBeWritten()
{
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::ExeOwner));
    const bool mayWrite = ::access(QFile::encodeName(m_folder->path()).constData(), W_OK) == 0;
    const Reason reason = whyUnwritable(at(u"a.mid"_qs), 1);
    QVERIFY(QFile::setPermissions(m_folder->path(),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    if (mayWrite)
        QSKIP("root writes everything");
    QCOMPARE(reason, FileReason::notAllowed);
}

void TestFileFailure::reportsAFolderThatIsGone()
{
    QCOMPARE(whyUnwritable(at(u"gone/a.mid"_qs), 1), FileReason::folderMissing);
    QCOMPARE(whyUnwritable(at(u"a.mid"_qs), 1), FileReason::unwritable);
}

BRISEL_TEST(QCoreApplication, TestFileFailure)
#include "tst_filefailure.moc"
