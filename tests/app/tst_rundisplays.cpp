#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QCheckBox>
#include <QMessageBox>

using namespace brisel;

/// The exact texts that the window shows during the workflows.
class TestRunDisplays : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_sample = std::make_unique<SampleWindow>(); }
    void cleanup();
    void showsBackupAndSynchronisation();
    void showsTheSpreadOfAnEdit();
    void showsTransferAndIndex();

private:
    std::unique_ptr<SampleWindow> m_sample;
};

void TestRunDisplays::cleanup()
{
    closeVerified(m_sample);
}

void TestRunDisplays::showsBackupAndSynchronisation()
{
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs});
    m_sample->script.expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({m_sample->at(u"volumes"_qs)});
        DialogScript::click(widget, u"browsePushButton"_qs);
        DialogScript::click(widget, u"doBackupPushButton"_qs);
    });
    m_sample->script.expectMessage(u"Backup"_qs, u"Backup eseguito correttamente"_qs,
                                   QMessageBox::Ok);
    const ProgressWatch watch;
    m_sample->press("updateDataToolButton");
    QCOMPARE(watch.seen,
             QStringList({u"Backup|Eseguo backup dellla libreria...|Interrompi|2"_qs,
                          u"Backup|1 di 2|Interrompi|2"_qs, u"Backup|2 di 2|Interrompi|2"_qs,
                          u"Aggiornamento file|Aggiorno la libreria...|Interrompi|2"_qs,
                          u"Aggiornamento file|1 di 2|Interrompi|2"_qs,
                          u"Aggiornamento file|2 di 2|Interrompi|2"_qs}));
}

void TestRunDisplays::showsTheSpreadOfAnEdit()
{
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    m_sample->script.expect("DataEditDialog", [](QWidget *widget) {
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        DialogScript::click(widget, u"checkBoxToAllAuthor"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    const ProgressWatch watch;
    emit m_sample->table->doubleClicked(m_sample->model->index(0, 2));
    QVERIFY(!watch.seen.isEmpty());
    QCOMPARE(watch.seen.first(), u"Aggiornamento file|Aggiorno la libreria...|Interrompi|3"_qs);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestRunDisplays::showsTransferAndIndex()
{
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs});
    m_sample->script.expectFiles({m_sample->at(u"volumes/CARD"_qs)});
    m_sample->script.expectMessage(
        u"Trasferimento"_qs, u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    const ProgressWatch watch;
    m_sample->press("transferFilesToolButton");
    QCOMPARE(watch.seen.mid(0, 4),
             QStringList({u"Trasferimento|Trasferimento file...|Interrompi|2"_qs,
                          u"Trasferimento|1 di 2|Interrompi|2"_qs,
                          u"Trasferimento|2 di 2|Interrompi|2"_qs,
                          u"Aggiornamento|Aggiornamento database...|Interrompi|0"_qs}));
}

BRISEL_TEST(QApplication, TestRunDisplays)
#include "tst_rundisplays.moc"
