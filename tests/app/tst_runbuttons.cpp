#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QFileDialog>
#include <QMessageBox>

using namespace brisel;

/// The state of the two buttons that start runs: both disabled during each run, afterwards enabled
/// if they are useful.
class TestRunButtons : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void inAnImport();
    void inAnImportThatIsSynchronised();
    void inASynchronisation();
    void inAnAbortedSynchronisation();
    void inASynchronisationAfterABackup();
    void inATransfer();
    void inATransferThatIsInterrupted();
    void inATransferWithoutFolder();
    void inARefusedTransfer();

private:
    /// The enabled buttons: "sync", "transfer", both, or none.
    QString buttons() const
    {
        QStringList names;
        if (tool("updateDataToolButton")->isEnabled())
            names.append(u"sync"_qs);
        if (tool("transferFilesToolButton")->isEnabled())
            names.append(u"transfer"_qs);
        return names.join(u' ');
    }
    /// Records the enabled buttons during the next dialog, and presses \a button there.
    void lookIn(const char *dialog, const QString &button)
    {
        m_script->expect(dialog, [this, button](QWidget *widget) {
            m_seen.append(buttons());
            DialogScript::click(widget, button);
        });
    }
    void lookInFiles(const QStringList &paths)
    {
        m_script->expect("QFileDialog", [this, paths](QWidget *widget) {
            m_seen.append(buttons());
            DialogScript::chooseFiles(qobject_cast<QFileDialog *>(widget), paths);
        });
    }
    void lookInMessage(const QString &text)
    {
        m_script->expect("QMessageBox", [this, text](QWidget *widget) {
            auto *box = qobject_cast<QMessageBox *>(widget);
            QCOMPARE(box->text(), text);
            m_seen.append(buttons());
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
    }
    void lookAtProgress(const QString &title, const QString &label)
    {
        atProgress(title, label, [this](QProgressDialog *) { m_seen.append(buttons()); });
    }
    /// Checks that both buttons were disabled in all \a count records.
    void checkSeenOff(int count) const
    {
        QCOMPARE(m_seen, QStringList(QList<QString>(count, QString())));
    }

    QStringList m_seen;
};

/// With songs in the table both buttons are enabled.
void TestRunButtons::init()
{
    openWindow();
    m_seen.clear();
    QCOMPARE(buttons(), QString());
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    QCOMPARE(buttons(), u"sync transfer"_qs);
    m_window->enableCopyrightMessage(true);
}

void TestRunButtons::cleanup()
{
    verifyScript();
    closeWindow();
}

void TestRunButtons::inAnImport()
{
    m_script->expectFiles({at(u"one.mid"_qs), at(u"two.mid"_qs)});
    lookAtProgress(u"Lettura file"_qs, u"1 di 2"_qs);
    lookIn("ProceedDialog", u"noPushButton"_qs);
    m_sample->press("selectDirToolButton");
    checkSeenOff(2);
    QCOMPARE(buttons(), u"sync transfer"_qs);
}

void TestRunButtons::inAnImportThatIsSynchronised()
{
    m_script->expectFiles({at(u"one.mid"_qs), at(u"two.mid"_qs)});
    lookIn("ProceedDialog", u"yesPushButton"_qs);
    lookIn("BackupDialog", u"exitPushButton"_qs);
    lookIn("NoCopyrightDialog", u"yesAllPushButton"_qs);
    lookAtProgress(u"Aggiornamento file"_qs, u"1 di 2"_qs);
    m_sample->press("selectDirToolButton");
    checkSeenOff(4);
    QCOMPARE(buttons(), u"transfer"_qs);
}

void TestRunButtons::inASynchronisation()
{
    lookIn("BackupDialog", u"exitPushButton"_qs);
    lookIn("NoCopyrightDialog", u"yesAllPushButton"_qs);
    lookAtProgress(u"Aggiornamento file"_qs, u"1 di 2"_qs);
    clickSync();
    checkSeenOff(3);
    QCOMPARE(buttons(), u"transfer"_qs);
}

void TestRunButtons::inAnAbortedSynchronisation()
{
    lookIn("BackupDialog", u"abortPushButton"_qs);
    clickSync();
    checkSeenOff(1);
    QCOMPARE(buttons(), u"sync transfer"_qs);
}

void TestRunButtons::inASynchronisationAfterABackup()
{
    m_window->enableCopyrightMessage(false);
    expectBackupToFolder();
    lookAtProgress(u"Backup"_qs, u"1 di 2"_qs);
    lookInMessage(u"Backup eseguito correttamente"_qs);
    lookAtProgress(u"Aggiornamento file"_qs, u"1 di 2"_qs);
    clickSync();
    checkSeenOff(3);
    QCOMPARE(buttons(), u"transfer"_qs);
}

/// After a transfer with any outcome the other button is disabled until the next import.
void TestRunButtons::inATransfer()
{
    makeFile(at(u"volumes/CARD/songs/two.mid"_qs), "old");
    lookInFiles({at(u"volumes/CARD"_qs)});
    lookAtProgress(u"Trasferimento"_qs, u"1 di 2"_qs);
    lookIn("NoCopyrightDialog", u"yesPushButton"_qs);
    lookAtProgress(u"Aggiornamento"_qs, u"Aggiornamento database..."_qs);
    lookInMessage(u"Tutti i file sono stati copiati correttamente"_qs);
    clickTransfer();
    checkSeenOff(5);
    QCOMPARE(buttons(), u"transfer"_qs);
    m_window->enableCopyrightMessage(false);
    import({u"one.mid"_qs});
    QCOMPARE(buttons(), u"sync transfer"_qs);
}

void TestRunButtons::inATransferThatIsInterrupted()
{
    lookInFiles({at(u"volumes/CARD"_qs)});
    atProgress(u"Trasferimento"_qs, u"1 di 2"_qs, [this](QProgressDialog *dialog) {
        m_seen.append(buttons());
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    });
    lookInMessage(u"Non è stato possibile copiare uno o più file"_qs);
    clickTransfer();
    checkSeenOff(3);
    QCOMPARE(buttons(), u"transfer"_qs);
}

void TestRunButtons::inATransferWithoutFolder()
{
    m_script->expect("QFileDialog", [this](QWidget *widget) {
        m_seen.append(buttons());
        qobject_cast<QDialog *>(widget)->reject();
    });
    clickTransfer();
    checkSeenOff(1);
    QCOMPARE(buttons(), u"transfer"_qs);
}

void TestRunButtons::inARefusedTransfer()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"elsewhere"_qs));
    lookInFiles({at(u"elsewhere"_qs)});
    lookInMessage(u"Non è possibile copiare i file sul disco di sistema"_qs);
    clickTransfer();
    checkSeenOff(2);
    QCOMPARE(buttons(), u"transfer"_qs);
}

BRISEL_TEST(QApplication, TestRunButtons)
#include "tst_runbuttons.moc"
