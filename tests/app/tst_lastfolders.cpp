#include "index/recentmemories.h"
#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QCompleter>
#include <QFileDialog>
#include <QLineEdit>

using namespace brisel;

/// Where the file dialogs of the program start, and which memories it offers again.
class TestLastFolders : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void songsAreLookedForWhereTheLastWere();
    void transferStartsAtTheLastMemory();
    void transferStartsAtTheMemoriesIfTheLastIsGone();
    void backupStartsAtItsFolder();
    void dialogsOfAMemoryOfferTheRecentOnes();
    void remembersEightMemories();

private:
    /// The next file dialog is cancelled; its folder is then \a folder.
    void expectStartAt(QString &folder)
    {
        m_script->expect("QFileDialog", [&folder](QWidget *dialog) {
            folder = qobject_cast<QFileDialog *>(dialog)->directory().path();
            qobject_cast<QFileDialog *>(dialog)->reject();
        });
    }
    void importAndTransfer()
    {
        m_sample->import({u"one.mid"_qs});
        QVERIFY(QDir().mkpath(at(u"volumes/CARD/songs"_qs)));
        m_script->expectFiles({at(u"volumes/CARD/songs"_qs)});
        m_script->expect("QMessageBox", [](QWidget *box) { box->close(); });
        clickTransfer();
        verifyScript();
    }
    QString transferStart()
    {
        QString folder;
        expectStartAt(folder);
        clickTransfer();
        verifyScript();
        return folder;
    }
};

void TestLastFolders::songsAreLookedForWhereTheLastWere()
{
    QString folder;
    expectStartAt(folder);
    m_sample->press("selectDirToolButton");
    QCOMPARE(folder, u"/"_qs);
    m_sample->import({u"one.mid"_qs});
    expectStartAt(folder);
    m_sample->press("selectDirToolButton");
    QCOMPARE(folder, m_folder->path());
    verifyScript();
}

void TestLastFolders::transferStartsAtTheLastMemory()
{
    m_sample->import({u"one.mid"_qs});
    const QString first = transferStart();
    importAndTransfer();
    QVERIFY(first != at(u"volumes/CARD/songs"_qs));
    QCOMPARE(transferStart(), at(u"volumes/CARD/songs"_qs));
}

void TestLastFolders::transferStartsAtTheMemoriesIfTheLastIsGone()
{
    m_sample->import({u"one.mid"_qs});
    const QString first = transferStart();
    importAndTransfer();
    QVERIFY(QDir(at(u"volumes/CARD"_qs)).removeRecursively());
    QCOMPARE(transferStart(), first);
    // A folder on the system disk is no memory, even if a setting says so.
    QSettings(u"kordia"_qs, u"brisel2pc"_qs).setValue(u"transferfolder"_qs, m_folder->path());
    QCOMPARE(transferStart(), first);
}

void TestLastFolders::backupStartsAtItsFolder()
{
    m_sample->import({u"ONE.mid"_qs});
    expectBackupToFolder();
    m_script->expect("QMessageBox", [](QWidget *box) { box->close(); });
    clickSync();
    verifyScript();
    QString folder;
    expectStartAt(folder);
    m_window->findChild<QAction *>(u"actionRestoreBackup"_qs)->trigger();
    verifyScript();
    QCOMPARE(folder, at(u"backups"_qs));
}

void TestLastFolders::dialogsOfAMemoryOfferTheRecentOnes()
{
    importAndTransfer();
    QCOMPARE(recentMemories(), QStringList(at(u"volumes/CARD"_qs)));
    for (const char *entry : {"optimizeMemory", "actionSongsList"}) {
        QStringList offered;
        m_script->expect("RunDialog", [&offered](QWidget *dialog) {
            const auto *field = dialog->findChild<QLineEdit *>(u"lineEditPath"_qs);
            const QAbstractItemModel *model = field->completer()->model();
            for (int row = 0; row < model->rowCount(); ++row)
                offered.append(model->index(row, 0).data().toString());
            dialog->close();
        });
        m_window->findChild<QAction *>(QString::fromLatin1(entry))->trigger();
        verifyScript();
        QCOMPARE(offered, QStringList(at(u"volumes/CARD"_qs)));
    }
    QVERIFY(QDir(at(u"volumes/CARD"_qs)).removeRecursively());
    QCOMPARE(recentMemories(), QStringList());
}

void TestLastFolders::remembersEightMemories()
{
    keepMemory(m_folder->path()); // no memory
    QCOMPARE(recentMemories(), QStringList());
    for (int number = 0; number < 10; ++number) {
        const QString memory = at(u"volumes/M%1"_qs.arg(number));
        QVERIFY(QDir().mkpath(memory + u"/songs"_qs));
        keepMemory(memory + u"/songs"_qs);
    }
    keepMemory(at(u"volumes/M5"_qs));
    QCOMPARE(recentMemories().size(), 8);
    QCOMPARE(recentMemories().mid(0, 3),
             QStringList({at(u"volumes/M5"_qs), at(u"volumes/M9"_qs), at(u"volumes/M8"_qs)}));
}

BRISEL_TEST(QApplication, TestLastFolders)
#include "tst_lastfolders.moc"
