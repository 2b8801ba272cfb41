#include "history/history.h"
#include "library/dialogs/backupmodel.h"
#include "tests/app/reporttest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QMessageBox>
#include <QTreeView>

using namespace brisel;

/// Restoring a backup through the real window.
class TestRestoreBackup : public ReportTest
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile::remove(History::defaultPath());
        openWindow();
    }
    void cleanup() { closeWindow(); }

    void putsSongsBack();
    void putsOnlyCheckedSongsBack();
    void showsRefusedLines();
    void saysThatAFolderIsNoBackup();
    void restoresNothingWhenCancelled();
    void speaksEnglish();
    void opensNothingDuringARun();
    void showsSixtyFiveThousandLines();

private:
    using Step = std::function<void(QWidget *dialog, QTreeView *tree)>;

    /// Imports, backs up and synchronises songs.
    void synchroniseWithBackup(const QStringList &names)
    {
        importSongs(names, true);
        expectBackupToFolder();
        m_script->expect("QMessageBox", [](QWidget *box) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Ok),
                              Qt::LeftButton);
        });
        clickSync();
        verifyScript();
        m_backup = at(u"backups/"_qs) + QDir(at(u"backups"_qs)).entryList({u"backup_*"_qs}).first();
    }
    /// Opens the dialog for the folder \a folder by its menu entry; \a step works in it and closes
    /// it.
    void openDialog(const QString &folder, const Step &step)
    {
        m_script->expectFiles({folder});
        m_script->expect("BackupRestoreDialog", [step](QWidget *widget) {
            step(widget, widget->findChild<QTreeView *>());
        });
        trigger();
    }
    void trigger()
    {
        m_window->findChild<QAction *>(u"actionRestoreBackup"_qs)->trigger();
        verifyScript();
    }
    static void toggle(QTreeView *tree, int row)
    {
        tree->setCurrentIndex(tree->model()->index(row, 0));
        QTest::keyClick(tree, Qt::Key_Space);
    }
    static void press(QWidget *dialog, const char *button)
    {
        DialogScript::click(dialog, QString::fromLatin1(button));
    }

    QString m_backup;
};

void TestRestoreBackup::putsSongsBack()
{
    synchroniseWithBackup({u"one.mid"_qs, u"deep/one.mid"_qs});
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
    openDialog(m_backup, [this](QWidget *dialog, QTreeView *tree) {
        QCOMPARE(dialog->windowTitle(), u"Ripristina backup"_qs);
        QCOMPARE(tree->model()->rowCount(), 2);
        const QModelIndex second = tree->model()->index(1, BackupModel::Name);
        QCOMPARE(second.data().toString(), u"one (2).mid"_qs);
        QCOMPARE(second.siblingAtColumn(BackupModel::Path).data().toString(),
                 at(u"deep/one.mid"_qs));
        press(dialog, "restorePushButton");
    });
    QCOMPARE(fileContent(at(u"one.mid"_qs)), Sample::midi("one", true));
    QCOMPARE(fileContent(at(u"deep/one.mid"_qs)), Sample::midi("deep/one", true));
    QCOMPARE(outcome(), u"Ripristino: 2 ripristinate"_qs);
    QCOMPARE(model().index(0, model().fieldIndex(u"title"_qs)).data().toString(), u"one"_qs);
    QVERIFY(reportLines().contains(u"    Titolo: «ONE LOVE» → «one»"_qs));
}

void TestRestoreBackup::putsOnlyCheckedSongsBack()
{
    synchroniseWithBackup({u"one.mid"_qs, u"two.mid"_qs});
    openDialog(m_backup, [](QWidget *dialog, QTreeView *tree) {
        const auto *restore = dialog->findChild<QPushButton *>(u"restorePushButton"_qs);
        press(dialog, "selectNonePushButton");
        QVERIFY(!restore->isEnabled());
        press(dialog, "selectAllPushButton");
        QVERIFY(restore->isEnabled());
        toggle(tree, 0);
        press(dialog, "restorePushButton");
    });
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
    QCOMPARE(title(u"two.mid"_qs), u"two"_qs);
}

void TestRestoreBackup::showsRefusedLines()
{
    synchroniseWithBackup({u"one.mid"_qs});
    const QString list = m_backup + u"/contenuto.csv"_qs;
    makeFile(list, fileContent(list) + "../two.mid,/two.mid,4," + QByteArray(64, 'a') + "\r\n");
    openDialog(m_backup, [](QWidget *dialog, QTreeView *tree) {
        const QModelIndex refused = tree->model()->index(1, BackupModel::Name);
        QCOMPARE(refused.siblingAtColumn(BackupModel::Note).data().toString(),
                 BackupList::unsafeLine.text());
        QCOMPARE(refused.siblingAtColumn(BackupModel::Note).data(Qt::ToolTipRole).toString(),
                 u"<p>"_qs + BackupList::unsafeLine.text() +
                     u"</p>"_qs); // the cell may be too narrow
        QVERIFY(!refused.data(Qt::CheckStateRole).isValid());
        toggle(tree, 1);
        press(dialog, "selectAllPushButton");
        QVERIFY(!refused.data(Qt::CheckStateRole).isValid());
        press(dialog, "restorePushButton");
    });
    QCOMPARE(outcome(), u"Ripristino: 1 ripristinate"_qs);
}

void TestRestoreBackup::saysThatAFolderIsNoBackup()
{
    m_script->expectFiles({m_folder->path()});
    m_script->expectMessage(u"Ripristina backup"_qs,
                            u"La cartella non contiene un backup che si possa ripristinare: la "
                            "lista del backup manca o è danneggiata"_qs,
                            QMessageBox::Ok);
    trigger();
}

void TestRestoreBackup::restoresNothingWhenCancelled()
{
    synchroniseWithBackup({u"one.mid"_qs});
    const QString before = outcome();
    openDialog(m_backup, [](QWidget *dialog, QTreeView *) { press(dialog, "abortPushButton"); });
    m_script->expectFilesCancelled();
    trigger();
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
    QCOMPARE(outcome(), before);
}

void TestRestoreBackup::speaksEnglish()
{
    synchroniseWithBackup({u"one.mid"_qs});
    const auto choose = [this](const QString &language) {
        m_window->findChild<QAction *>(language)->trigger();
        QCoreApplication::processEvents();
    };
    choose(u"actionEnglish"_qs);
    QCOMPARE(m_window->findChild<QAction *>(u"actionRestoreBackup"_qs)->text(),
             u"Restore backup..."_qs);
    makeFile(at(u"one.mid"_qs), Sample::midi("other", true));
    m_script->expectFiles({m_backup});
    m_script->expect("BackupRestoreDialog", [](QWidget *widget) {
        QCOMPARE(widget->windowTitle(), u"Restore backup"_qs);
        press(widget, "restorePushButton");
    });
    m_script->expect("NoCopyrightDialog", [](QWidget *widget) {
        QCOMPARE(widget->findChild<QLabel *>(u"messageLabel"_qs)->text(),
                 u"Another program has changed this song since the backup. Put the copy back "
                 "anyway?"_qs);
        press(widget, "noPushButton");
    });
    trigger();
    QCOMPARE(outcome(), u"Restore: 1 skipped"_qs);
    choose(u"actionItalian"_qs);
}

void TestRestoreBackup::opensNothingDuringARun()
{
    const RunGuard guard;
    trigger();
}

void TestRestoreBackup::showsSixtyFiveThousandLines()
{
    constexpr int most = 65535;
    QByteArray list = "file,origine,byte,blake2b-256\r\n";
    for (int i = 0; i < most; ++i)
        list += "a.mid,/" + QByteArray::number(i) + ".mid,4," + QByteArray(64, 'a') + "\r\n";
    makeFile(at(u"contenuto.csv"_qs), list);
    openDialog(m_folder->path(), [](QWidget *dialog, QTreeView *tree) {
        QCOMPARE(tree->model()->rowCount(), most);
        tree->scrollToBottom();
        tree->grab();
        press(dialog, "selectNonePushButton");
        press(dialog, "abortPushButton");
    });
}

BRISEL_TEST(QApplication, TestRestoreBackup)
#include "tst_restorebackup.moc"
