#include "app/mainwindow.h"
#include "base/runguard.h"
#include "tests/dialogscript.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QTest>

using namespace brisel;

/// The dialogs behind the window's menus.
class TestMenuDialogs : public QObject
{
    Q_OBJECT

private slots:
    void opensDialogWithoutParent_data();
    void opensDialogWithoutParent();
    void opensNothingDuringRun_data();
    void opensNothingDuringRun();

private:
    QAction *action(const QString &name) const { return m_window.findChild<QAction *>(name); }

    MainWindow m_window;
};

void TestMenuDialogs::opensDialogWithoutParent_data()
{
    QTest::addColumn<QString>("actionName");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("rebuild") << QStringLiteral("optimizeMemory") << QByteArray("IndexDialog");
    QTest::newRow("list") << QStringLiteral("actionSongsList") << QByteArray("SongsListDialog");
    QTest::newRow("help") << QStringLiteral("actionContents") << QByteArray("HelpDialog");
    QTest::newRow("about") << QStringLiteral("actionAbout") << QByteArray("AboutDialog");
    QTest::newRow("about Qt") << QStringLiteral("actionAbout_QT") << QByteArray("QMessageBox");
}

void TestMenuDialogs::opensDialogWithoutParent()
{
    QFETCH(QString, actionName);
    QFETCH(QByteArray, className);
    DialogScript script;
    bool opened = false;
    script.expect(className.constData(), [&opened](QWidget *dialog) {
        opened = dialog->parentWidget() == nullptr && dialog->isModal();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    action(actionName)->trigger();
    // Qt's own box is shown without exec().
    QTRY_VERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    QVERIFY(opened);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMenuDialogs::opensNothingDuringRun_data()
{
    opensDialogWithoutParent_data();
}

void TestMenuDialogs::opensNothingDuringRun()
{
    QFETCH(QString, actionName);
    const DialogScript script;
    const RunGuard guard;
    action(actionName)->trigger();
    QCoreApplication::processEvents();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(script.isDone());
}

BRISEL_TEST(QApplication, TestMenuDialogs)
#include "tst_menudialogs.moc"
