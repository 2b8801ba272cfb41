#include "base/filewriting.h"
#include "tests/shim/shim.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

void armHere(int at, Shim::Action action)
{
    Shim::arm(QFile::encodeName(QDir::currentPath()).constData(), at, action);
}

} // namespace

class TestShim : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void countsFlushesOfFilesFoldersAndFileSystems();
    void refusesChangesFromAStepOn();
};

void TestShim::cleanup()
{
    Shim::disarm();
}

void TestShim::countsFlushesOfFilesFoldersAndFileSystems()
{
    armHere(0, Shim::Kill);
    QVERIFY(replaceFile(u"new"_s, "content"));
    QCOMPARE(Shim::flushes(), 2);
    const int here = ::open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    QCOMPARE(::syncfs(here), 0);
    ::close(here);
    Shim::disarm();
    QCOMPARE(Shim::flushes(), 3);
    QVERIFY(replaceFile(u"new"_s, "other content"));
    QCOMPARE(Shim::flushes(), 3);
}

void TestShim::refusesChangesFromAStepOn()
{
    QVERIFY(replaceFile(u"old"_s, "content"));
    QVERIFY(QDir().mkdir(u"first"_s));
    armHere(2, Shim::ReadOnly);
    QCOMPARE(::rmdir("first"), 0);
    QCOMPARE(::unlink("old"), -1);
    QCOMPARE(errno, EROFS);
    QCOMPARE(::mkdir("second", 0777), -1);
    QCOMPARE(errno, EROFS);
    QVERIFY(QFile::exists(u"old"_s));
}

BRISEL_TEST(QCoreApplication, TestShim)
#include "tst_shim.moc"
