#include "library/foldertreebackup.h"

#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QTest>

using namespace brisel;

class TestFolderTreeBackup : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_run.reset(); }
    void copiesTheTreeAndLogsIt();
    void addsToTheCount();
    void skipsExistingFolders();
    void keepsExistingFiles();
    void endsInLinkLoops();
    void leavesOutTheDestinationBelowTheSource();
    void failsOnMissingSource();
    void endsWithTheProgram();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    bool backup() { return backup(at(u"from"_qs), at(u"to"_qs)); }
    bool backup(const QString &source, const QString &dest)
    {
        FolderTreeBackup tree(source, dest, m_count);
        const bool isDone = tree.run(*m_run);
        m_count = tree.count();
        return isDone;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedRun> m_run;
    int m_count = 0;
};

void TestFolderTreeBackup::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_run = std::make_unique<ScriptedRun>();
    m_count = 0;
    makeFile(at(u"from/b.mid"_qs), "b");
    makeFile(at(u"from/.hidden"_qs), "h");
    makeFile(at(u"from/sub/a.mid"_qs), "a");
    QVERIFY(QDir(m_folder->path()).mkdir(u"to"_qs));
}

void TestFolderTreeBackup::copiesTheTreeAndLogsIt()
{
    const LogCapture log;
    QVERIFY(backup());
    QCOMPARE(m_count, 3);
    QCOMPARE(fileContent(at(u"to/b.mid"_qs)), QByteArray("b"));
    QCOMPARE(fileContent(at(u"to/.hidden"_qs)), QByteArray("h"));
    QCOMPARE(fileContent(at(u"to/sub/a.mid"_qs)), QByteArray("a"));
    QCOMPARE(m_run->steps, QList<int>({1, 2, 3, 3}));
    const auto both = [this](const QString &pattern, const QString &name) {
        return pattern.arg(at(u"from"_qs) + name, at(u"to"_qs) + name);
    };
    const QString folder = u"Backing up directory: \"%1\" to: \"%2\" "_qs;
    const QString file = u"Copying file: \"%1\" to: \"%2\" "_qs;
    QCOMPARE(log.messages(), QStringList({both(folder, QString()), both(file, u"/.hidden"_qs),
                                          both(file, u"/b.mid"_qs),
                                          u"Making new dir: \"%1\" "_qs.arg(at(u"to/sub"_qs)),
                                          both(folder, u"/sub"_qs), both(file, u"/sub/a.mid"_qs)}));
}

void TestFolderTreeBackup::addsToTheCount()
{
    m_count = 5;
    QVERIFY(backup());
    QCOMPARE(m_count, 8);
}

void TestFolderTreeBackup::skipsExistingFolders()
{
    QVERIFY(QDir(at(u"to"_qs)).mkdir(u"sub"_qs));
    QVERIFY(!backup());
    QCOMPARE(m_count, 2);
    QVERIFY(!QFile::exists(at(u"to/sub/a.mid"_qs)));
}

void TestFolderTreeBackup::keepsExistingFiles()
{
    makeFile(at(u"to/b.mid"_qs), "old");
    QVERIFY(!backup());
    QCOMPARE(fileContent(at(u"to/b.mid"_qs)), QByteArray("old"));
    QCOMPARE(m_count, 2);
}

void TestFolderTreeBackup::endsInLinkLoops()
{
    QVERIFY(QFile::link(at(u"from"_qs), at(u"from/sub/loop"_qs)));
    QVERIFY(QFile::link(at(u"from/sub"_qs), at(u"from/zz"_qs)));
    QVERIFY(!backup());
    QCOMPARE(m_count, 3);
    QVERIFY(!QFile::exists(at(u"to/sub/loop"_qs)));
    QVERIFY(!QFile::exists(at(u"to/zz"_qs)));
}

void TestFolderTreeBackup::leavesOutTheDestinationBelowTheSource()
{
    QVERIFY(QDir(at(u"from"_qs)).mkdir(u"backup"_qs));
    QVERIFY(!backup(at(u"from"_qs), at(u"from/backup"_qs)));
    QCOMPARE(m_count, 3);
    QVERIFY(!QFile::exists(at(u"from/backup/backup"_qs)));
}

void TestFolderTreeBackup::failsOnMissingSource()
{
    QVERIFY(!backup(at(u"none"_qs), at(u"to"_qs)));
    QCOMPARE(m_count, 0);
}

void TestFolderTreeBackup::endsWithTheProgram()
{
    m_run->onStep = [](int) { RunGuard::requestEnd(); };
    QVERIFY(!backup());
    QCOMPARE(m_count, 1);
}

BRISEL_TEST(QCoreApplication, TestFolderTreeBackup)
#include "tst_foldertreebackup.moc"
