#include "base/settings.h"
#include "library/lastlist.h"
#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QFileDialog>
#include <QMenu>
#include <QStatusBar>

using namespace brisel;

/// Songs that are added to the list, and lists that are resumed.
class TestAddSongs : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile::remove(LastList::defaultPath());
        openWindow();
    }
    void cleanup() { closeWindow(); }
    void addsFiles();
    void addsAFolder();
    void cancelAddsNothing();
    void addsNoFileTwice();
    void addsToAnEmptyListLikeAnImport();
    void addedSongsAreSynchronisedAndSent();
    void sortsAddedSongs();
    void unreadableFilesAreReadAgain();
    void addsALinkOnceToAnEmptyList();
    void theButtonReplaces();
    void offersTheLastList();
    void resumedListNamesWhatIsGone();
    void anUnreadableListIsReported();
    void removedSongsAreNotResumed();
    void anEmptiedListIsStillOffered();
    void offersTheListBesideUnreadableFiles();
    void addsFromARecentFolder();
    void namesRecentFoldersWithAnySign();

private:
    QAction *action(const char *name) const
    {
        return m_window->findChild<QAction *>(QString::fromLatin1(name));
    }
    QString rows() const
    {
        QStringList names;
        for (int row = 0; row < model().rowCount(); ++row)
            names.append(model().shortName(row));
        return names.join(u' ');
    }
    void add(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names)
            paths.append(at(name));
        m_script->expectFiles(paths);
        action("actionAddSongs")->trigger();
        verifyScript();
    }
    void restart()
    {
        m_window->close();
        m_sample->window = std::make_unique<MainWindow>();
        m_window = m_sample->window.get();
        m_window->show();
        m_sample->table = m_window->findChild<QTableView *>();
        m_sample->model = m_window->findChild<UserSongsRelTableModel *>();
    }
    QToolButton *offer() const
    {
        for (QToolButton *button : table()->viewport()->findChildren<QToolButton *>()) {
            if (button->defaultAction() == action("actionLastList"))
                return button;
        }
        return nullptr;
    }
    QMenu *recentFolders() const
    {
        auto *menu = m_window->findChild<QMenu *>(u"menuRecentFolders"_qs);
        emit menu->aboutToShow();
        return menu;
    }
};

void TestAddSongs::addsFiles()
{
    m_sample->import({u"one.mid"_qs});
    makeSongs({u"two.mid"_qs, u"three.mid"_qs}, true);
    add({u"two.mid"_qs, u"three.mid"_qs});
    QCOMPARE(rows(), u"one.mid two.mid three.mid"_qs);
    QCOMPARE(model().goodRowCount(), 3);
}

void TestAddSongs::addsAFolder()
{
    m_sample->import({u"one.mid"_qs});
    makeSongs({u"in/two.mid"_qs, u"in/deep/three.mid"_qs}, true);
    makeFile(at(u"in/text.txt"_qs), "other kind");
    m_script->expectFiles({at(u"in"_qs)});
    action("actionAddFolder")->trigger();
    verifyScript();
    QCOMPARE(rows(), u"one.mid three.mid two.mid"_qs);
    QCOMPARE(Settings::songsFolder.in(openSettings()), at(u"in"_qs));
}

void TestAddSongs::cancelAddsNothing()
{
    m_sample->import({u"one.mid"_qs});
    for (const char *name : {"actionAddSongs", "actionAddFolder"}) {
        m_script->expectFilesCancelled();
        action(name)->trigger();
        verifyScript();
    }
    QCOMPARE(rows(), u"one.mid"_qs);
}

void TestAddSongs::addsNoFileTwice()
{
    m_sample->import({u"one.mid"_qs});
    makeSongs({u"two.mid"_qs}, true);
    QVERIFY(QFile::link(at(u"one.mid"_qs), at(u"link.mid"_qs)));
    add({u"one.mid"_qs, u"two.mid"_qs, u"link.mid"_qs});
    QCOMPARE(rows(), u"one.mid two.mid"_qs);
    QCOMPARE(m_window->findChild<QStatusBar *>()->currentMessage(), u"Già nella lista: 2"_qs);
    m_script->expectFiles({at(u"link.mid"_qs)});
    m_script->expectMessage(u"Lettura file"_qs, u"I brani scelti sono già nella lista"_qs,
                            QMessageBox::Ok);
    action("actionAddSongs")->trigger();
    verifyScript();
    QCOMPARE(rows(), u"one.mid two.mid"_qs);
}

void TestAddSongs::addsToAnEmptyListLikeAnImport()
{
    m_window->enableCopyrightMessage(true);
    makeSongs({u"one.mid"_qs}, true);
    m_script->expectFiles({at(u"one.mid"_qs)});
    m_script->expect("ProceedDialog",
                     [](QWidget *dialog) { DialogScript::click(dialog, u"noPushButton"_qs); });
    action("actionAddSongs")->trigger();
    verifyScript();
    QCOMPARE(rows(), u"one.mid"_qs);
}

void TestAddSongs::addedSongsAreSynchronisedAndSent()
{
    m_sample->import({u"ONE.mid"_qs});
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
    makeSongs({u"TWO.mid"_qs}, true);
    add({u"TWO.mid"_qs});
    QVERIFY(tool("updateDataToolButton")->isEnabled());
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    QCOMPARE(title(u"TWO.mid"_qs), u"TWO SONGS"_qs);

    const QString memory = at(u"volumes/CARD/songs"_qs);
    QVERIFY(QDir().mkpath(memory));
    int copied = 0;
    QVERIFY(m_window->copyFiles(memory, copied));
    QCOMPARE(copied, 2);
}

void TestAddSongs::sortsAddedSongs()
{
    m_sample->import({u"b.mid"_qs, u"d.mid"_qs});
    const int column = model().fieldIndex(u"title"_qs);
    table()->sortByColumn(column, Qt::DescendingOrder);
    makeSongs({u"c.mid"_qs, u"a.mid"_qs}, true);
    add({u"c.mid"_qs, u"a.mid"_qs});
    QCOMPARE(rows(), u"d.mid c.mid b.mid a.mid"_qs);
}

void TestAddSongs::unreadableFilesAreReadAgain()
{
    m_sample->import({u"one.mid"_qs});
    makeFile(at(u"broken.mid"_qs), "no song");
    action("actionShowUnreadable")->trigger();
    for (int i = 0; i < 2; ++i) {
        add({u"broken.mid"_qs});
        QCOMPARE(model().rowCount(), 2);
        QCOMPARE(model().goodRowCount(), 1);
    }
    makeSongs({u"broken.mid"_qs}, true);
    add({u"broken.mid"_qs});
    QCOMPARE(rows(), u"one.mid broken.mid"_qs);
    QCOMPARE(model().goodRowCount(), 2);
    const QString memory = at(u"volumes/CARD/songs"_qs);
    QVERIFY(QDir().mkpath(memory));
    int copied = 0;
    QVERIFY(m_window->copyFiles(memory, copied));
    QCOMPARE(copied, 2);
}

void TestAddSongs::addsALinkOnceToAnEmptyList()
{
    makeSongs({u"one.mid"_qs}, true);
    QVERIFY(QFile::link(at(u"one.mid"_qs), at(u"link.mid"_qs)));
    add({u"one.mid"_qs, u"link.mid"_qs});
    QCOMPARE(rows(), u"one.mid"_qs);
    m_window->openSongs({at(u"one.mid"_qs), at(u"link.mid"_qs)}); // as picked, both
    QCOMPARE(rows(), u"one.mid link.mid"_qs);
}

void TestAddSongs::theButtonReplaces()
{
    m_sample->import({u"one.mid"_qs});
    makeSongs({u"two.mid"_qs}, true);
    add({u"two.mid"_qs});
    m_sample->import({u"three.mid"_qs});
    QCOMPARE(rows(), u"three.mid"_qs);
}

void TestAddSongs::offersTheLastList()
{
    QVERIFY(!action("actionLastList")->isEnabled());
    QVERIFY(!offer()->isVisible());
    m_sample->import({u"one.mid"_qs});
    makeSongs({u"two.mid"_qs}, true);
    add({u"two.mid"_qs});
    QVERIFY(!action("actionLastList")->isEnabled());
    restart();
    QVERIFY(action("actionLastList")->isEnabled());
    QVERIFY(offer()->isVisible());
    QCOMPARE(offer()->text(), u"Riprendi l'ultima lista"_qs);
    QVERIFY(table()->viewport()->rect().contains(offer()->geometry()));
    QTest::mouseClick(offer(), Qt::LeftButton);
    QTRY_COMPARE(rows(), u"one.mid two.mid"_qs);
    QVERIFY(!offer()->isVisible());
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestAddSongs::resumedListNamesWhatIsGone()
{
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs});
    restart();
    QVERIFY(QFile::remove(at(u"one.mid"_qs)));
    action("actionShowUnreadable")->trigger();
    action("actionLastList")->trigger();
    QCOMPARE(model().goodRowCount(), 1);
    QCOMPARE(model().rowCount(), 2);
    restart(); // it may be back then
    makeSongs({u"one.mid"_qs}, true);
    action("actionLastList")->trigger();
    QCOMPARE(model().goodRowCount(), 2);
}

void TestAddSongs::anUnreadableListIsReported()
{
    makeFile(LastList::defaultPath(), "[\"cut");
    restart();
    m_script->expectMessage(u"Riprendi l'ultima lista"_qs, u"L'ultima lista non si può leggere"_qs,
                            QMessageBox::Ok);
    action("actionLastList")->trigger();
    verifyScript();
    QCOMPARE(rows(), QString());
}

void TestAddSongs::removedSongsAreNotResumed()
{
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs});
    table()->selectRow(0);
    action("actionRemoveRow")->trigger();
    QCOMPARE(rows(), u"two.mid"_qs);
    restart();
    action("actionLastList")->trigger();
    QCOMPARE(rows(), u"two.mid"_qs);
}

void TestAddSongs::anEmptiedListIsStillOffered()
{
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs});
    table()->selectAll();
    action("actionRemoveRow")->trigger();
    QCOMPARE(rows(), QString());
    QVERIFY(offer()->isVisible());
    action("actionLastList")->trigger();
    QCOMPARE(rows(), u"one.mid two.mid"_qs);
}

void TestAddSongs::offersTheListBesideUnreadableFiles()
{
    makeSongs({u"one.mid"_qs}, true);
    makeFile(at(u"broken.mid"_qs), "no song");
    import({u"broken.mid"_qs, u"one.mid"_qs});
    table()->selectAll();
    action("actionRemoveRow")->trigger();
    QCOMPARE(model().rowCount(), 0);
    QVERIFY(offer()->isVisible());
    restart();
    action("actionLastList")->trigger();
    QCOMPARE(rows(), u"one.mid"_qs);
    QVERIFY(!action("actionLastList")->isEnabled());
}

void TestAddSongs::addsFromARecentFolder()
{
    QMenu *menu = recentFolders();
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().constFirst()->text(), u"&Nessuna cartella"_qs);
    QVERIFY(!menu->actions().constFirst()->isEnabled());

    makeSongs({u"x/one.mid"_qs, u"x/two.mid"_qs, u"y/three.mid"_qs}, true);
    m_window->openSongs({at(u"x"_qs)});
    m_window->openSongs({at(u"y/three.mid"_qs)});
    menu = recentFolders();
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions().at(0)->toolTip(), at(u"y"_qs));
    QCOMPARE(menu->actions().at(1)->toolTip(), at(u"x"_qs));
    menu->actions().at(1)->trigger();
    QCOMPARE(rows(), u"three.mid one.mid two.mid"_qs);
    QVERIFY(QDir(at(u"x"_qs)).removeRecursively());
    QCOMPARE(recentFolders()->actions().size(), 1);
}

void TestAddSongs::namesRecentFoldersWithAnySign()
{
    makeSongs({u"a & b <i>/one.mid"_qs}, true);
    m_window->openSongs({at(u"a & b <i>"_qs)});
    const QAction *entry = recentFolders()->actions().constFirst();
    QVERIFY2(entry->text().startsWith(u"&1  "_qs), qPrintable(entry->text()));
    QVERIFY2(entry->text().endsWith(u"a && b <i>"_qs), qPrintable(entry->text()));
    QVERIFY(entry->toolTip().contains(u"&lt;i&gt;"_qs));
}

BRISEL_TEST(QApplication, TestAddSongs)
#include "tst_addsongs.moc"
