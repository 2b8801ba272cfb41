#include "base/filereplacement.h"

#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QTest>

using namespace brisel;

using namespace Qt::StringLiterals;

/// The steps of a single file. How many files go through them together: tst_filelot.
class TestFileReplacement : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void removesTheNewFileThatDidNotTakeItsName();
    void replacesInOneStep();
    void keepsAWholeFileThatFailedOutOfItsPlace();
    void knowsWhetherItIsWhole();
    void takesAnotherNameWhereOneIsTaken();

private:
    static QStringList entries() { return QDir().entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_before;
};

void TestFileReplacement::init()
{
    m_before = QDir::currentPath();
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    makeFile(u"song.mid"_s, "old");
}

void TestFileReplacement::cleanup()
{
    QDir::setCurrent(m_before);
    m_folder.reset();
}

void TestFileReplacement::removesTheNewFileThatDidNotTakeItsName()
{
    {
        int attempt = 0;
        FileReplacement file({u"song.mid"_s});
        QVERIFY(file.openBeside(attempt));
        QVERIFY(file.write("new"));
        QCOMPARE(entries(), QStringList({u".brisel-save-1.tmp"_s, u"song.mid"_s}));
    }
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
    QCOMPARE(fileContent(u"song.mid"_s), QByteArray("old"));
}

void TestFileReplacement::replacesInOneStep()
{
    int attempt = 0;
    FileReplacement file({u"song.mid"_s});
    QVERIFY(file.openBeside(attempt));
    QVERIFY(file.write("new"));
    file.close();
    QCOMPARE(file.result(), WriteResult::Staged);
    file.takeName(false);
    QCOMPARE(file.result(), WriteResult::Done);
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
    QCOMPARE(fileContent(u"song.mid"_s), QByteArray("new"));
}

void TestFileReplacement::keepsAWholeFileThatFailedOutOfItsPlace()
{
    int attempt = 0;
    FileReplacement file({u"song.mid"_s});
    QVERIFY(file.openBeside(attempt));
    QVERIFY(file.write("new"));
    file.close();
    file.fail();
    file.takeName(false);
    QCOMPARE(file.result(), WriteResult::Failed);
    QCOMPARE(entries(), QStringList{u"song.mid"_s});
    QCOMPARE(fileContent(u"song.mid"_s), QByteArray("old"));
}

void TestFileReplacement::knowsWhetherItIsWhole()
{
    int attempt = 0;
    FileReplacement file({u"song.mid"_s});
    QVERIFY(file.openBeside(attempt));
    QCOMPARE(file.size(), -1);
    QVERIFY(!file.isWhole());
    QVERIFY(file.write("new"));
    QCOMPARE(file.size(), 3);
    QVERIFY(file.isWhole());
    file.finish(4);
    QVERIFY(!file.isWhole());
}

void TestFileReplacement::takesAnotherNameWhereOneIsTaken()
{
    makeFile(u".brisel-save-1.tmp"_s, "somebody else's");
    int attempt = 0;
    FileReplacement file({u"song.mid"_s});
    QVERIFY(file.openBeside(attempt));
    QCOMPARE(attempt, 2);
    QCOMPARE(QFileInfo(file.temporaryPath()).fileName(), u".brisel-save-2.tmp"_s);
}

BRISEL_TEST(QCoreApplication, TestFileReplacement)
#include "tst_filereplacement.moc"
