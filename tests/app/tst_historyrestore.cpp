#include "tests/app/historytest.h"
#include "tests/testprogram.h"

#include <QMenu>

using namespace brisel;

/// Changes that are taken back in the window: from the history, and from the table's menu.
class TestHistoryRestore : public HistoryTest
{
    Q_OBJECT

private slots:
    void init() { openEmpty(); }
    void cleanup() { closeWindow(); }
    void restoresASong();
    void restoresARun();
    void restoringCanBeTakenBack();
    void restoresFromTheContextMenu();
    void greysAContextMenuWithoutHistory();
    void asksBeforeItOverwritesAnotherProgramsChange();
    void escapeAndEnterKeepAnotherProgramsChange();
};

void TestHistoryRestore::restoresASong()
{
    synchronise({u"one.mid"_qs, u"two.mid"_qs});
    openHistory([](QDialog *dialog, QTreeView *tree) {
        const QModelIndex run = tree->model()->index(0, 0);
        tree->expand(run);
        const QModelIndex song = tree->model()->index(1, 0, run);
        tree->expand(song);
        restore(dialog, tree, tree->model()->index(0, 0, song)); // a field stands for its song
    });
    QCOMPARE(fileContent(at(u"two.mid"_qs)), Sample::midi("two", true));
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
    QCOMPARE(outcome(), u"Ripristino: 1 ripristinate"_qs);
    QCOMPARE(reportLines().mid(0, 3),
             QStringList({u"Ripristino: 1 ripristinate"_qs, u"Modificata: "_qs + at(u"two.mid"_qs),
                          u"    Titolo: «TWO SONGS» → «two»"_qs}));
}

void TestHistoryRestore::restoresARun()
{
    synchronise({u"one.mid"_qs, u"two.mid"_qs});
    restoreNewestRun();
    QCOMPARE(fileContent(at(u"one.mid"_qs)), Sample::midi("one", true));
    QCOMPARE(fileContent(at(u"two.mid"_qs)), Sample::midi("two", true));
    QCOMPARE(model().index(0, model().fieldIndex(u"title"_qs)).data().toString(), u"one"_qs);
    QCOMPARE(statuses(), u"00"_qs);
}

void TestHistoryRestore::restoringCanBeTakenBack()
{
    synchronise({u"one.mid"_qs});
    const QByteArray written = fileContent(at(u"one.mid"_qs));
    restoreNewestRun();
    openHistory([](QDialog *dialog, QTreeView *tree) {
        QVERIFY(texts(tree, {}, HistoryModel::What).first().endsWith(u" - Ripristino"_qs));
        restore(dialog, tree, tree->model()->index(0, 0));
    });
    QCOMPARE(fileContent(at(u"one.mid"_qs)), written);
}

void TestHistoryRestore::restoresFromTheContextMenu()
{
    synchronise({u"one.mid"_qs, u"two.mid"_qs});
    chooseFromMenu(2, cell(1));
    verifyScript();
    QCOMPARE(fileContent(at(u"two.mid"_qs)), Sample::midi("two", true));
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
}

void TestHistoryRestore::greysAContextMenuWithoutHistory()
{
    importSongs({u"one.mid"_qs}, true);
    bool isEnabled = true;
    m_script->expectMenu(
        [&isEnabled](QMenu *menu) { isEnabled = menu->actions().at(2)->isEnabled(); });
    emit table()->customContextMenuRequested(cell(0));
    verifyScript();
    QVERIFY(!isEnabled);
}

void TestHistoryRestore::asksBeforeItOverwritesAnotherProgramsChange()
{
    synchronise({u"one.mid"_qs});
    const QByteArray other = Sample::midi("other", true);
    makeFile(at(u"one.mid"_qs), other);
    restoreNewestRun(Run::Answer::No);
    QCOMPARE(fileContent(at(u"one.mid"_qs)), other);
    restoreNewestRun(Run::Answer::Yes);
    QCOMPARE(fileContent(at(u"one.mid"_qs)), Sample::midi("one", true));
}

void TestHistoryRestore::escapeAndEnterKeepAnotherProgramsChange()
{
    synchronise({u"one.mid"_qs});
    const QByteArray other = Sample::midi("other", true);
    makeFile(at(u"one.mid"_qs), other);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        m_script->expect("HistoryDialog", [](QWidget *widget) {
            auto *tree = widget->findChild<QTreeView *>();
            restore(qobject_cast<QDialog *>(widget), tree, tree->model()->index(0, 0));
        });
        m_script->expect("NoCopyrightDialog",
                         [key](QWidget *widget) { QTest::keyClick(widget, key); });
        m_window->findChild<QAction *>(u"actionHistory"_qs)->trigger();
        verifyScript();
        QCOMPARE(fileContent(at(u"one.mid"_qs)), other);
    }
}

BRISEL_TEST(QApplication, TestHistoryRestore)
#include "tst_historyrestore.moc"
