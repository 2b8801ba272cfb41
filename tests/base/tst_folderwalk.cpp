#include "base/folderwalk.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace brisel;

/// The folders that a walk has entered.
class TestFolderWalk : public QObject
{
    Q_OBJECT

private slots:
    void entersEachFolderOnce();
    void knowsAFolderByItsLink();
    void neverKnowsAFolderThatIsNotThere();
};

void TestFolderWalk::entersEachFolderOnce()
{
    const QTemporaryDir folder;
    FolderWalk walk;
    QVERIFY(!walk.hasEntered(folder.path()));
    QVERIFY(walk.enter(folder.path()));
    QVERIFY(walk.hasEntered(folder.path()));
    QVERIFY(!walk.enter(folder.path()));
    QVERIFY(walk.enter(QDir::tempPath()));
}

void TestFolderWalk::knowsAFolderByItsLink()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(folder.path(), link));
    FolderWalk walk;
    QVERIFY(walk.enter(folder.path()));
    QVERIFY(walk.hasEntered(link));
    QVERIFY(!walk.enter(link));
}

void TestFolderWalk::neverKnowsAFolderThatIsNotThere()
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("missing"));
    FolderWalk walk;
    QVERIFY(walk.enter(missing));
    QVERIFY(!walk.hasEntered(missing));
    QVERIFY(walk.enter(missing));
}

BRISEL_TEST(QCoreApplication, TestFolderWalk)
#include "tst_folderwalk.moc"
