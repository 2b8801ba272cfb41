#include "tests/app/windowtest.h"

#include "app/startup.h"
#include "db/usersongsreltablemodel.h"
#include "tests/dialogscript.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QHeaderView>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace brisel;

/// The window as it opens: its table, its keys, closing it.
class TestMainWindow : public WindowTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void hidesIdFilenameAndStatus();
    void setsTheTableUpForReading();
    void keepsInsertionOrderUntilASortIsChosen();
    void revealsHiddenOptionsByKeys();
    void togglesDebugGroup();
    void opensAboutQt();
    void staysUsableWhenTheDatabaseFails();
    void revealsNothingWhenTheDatabaseFails();
    void closesWhenNothingRuns();
    void refusesToCloseDuringARun();
    void reachesEverythingByTab();
    void reachesMenusByKeyboard();

private:
    void openWithoutDatabase();
};

void TestMainWindow::init()
{
    QSettings(settingsOrganisation, settingsApplication).clear();
}

void TestMainWindow::cleanup()
{
    m_window.reset();
}

void TestMainWindow::hidesIdFilenameAndStatus()
{
    open();
    auto *view = find<QTableView>("userLibraryTableView");
    QList<int> hidden;
    constexpr int described = 12;
    for (int column = 0; column < described; ++column) {
        if (view->isColumnHidden(column))
            hidden.append(column);
    }
    QCOMPARE(hidden, QList<int>({0, 9, 11}));
    QVERIFY(view->verticalHeader()->isHidden());
}

void TestMainWindow::setsTheTableUpForReading()
{
    open();
    auto *view = find<QTableView>("userLibraryTableView");
    QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(view->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(view->isSortingEnabled());
    QVERIFY(view->showGrid());
    QVERIFY(!view->alternatingRowColors());
}

void TestMainWindow::keepsInsertionOrderUntilASortIsChosen()
{
    open();
    auto *view = find<QTableView>("userLibraryTableView");
    auto *model = qobject_cast<UserSongsRelTableModel *>(view->model());
    for (const char *name : {"b", "c", "a"}) {
        SongInfo info;
        info.title = QString::fromLatin1(name);
        QVERIFY(model->addSong(info));
    }
    const auto titles = [model] {
        QString text;
        for (int row = 0; row < model->goodRowCount(); ++row)
            text += model->index(row, 2).data().toString();
        return text;
    };
    QVERIFY(model->select());
    QCOMPARE(titles(), QStringLiteral("bca"));
    QHeaderView *header = view->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(2) + 5, 5});
    QCOMPARE(titles(), QStringLiteral("abc"));
}

void TestMainWindow::revealsHiddenOptionsByKeys()
{
    open();
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::AltModifier;
    for (bool shown : {true, false, true}) {
        // Sent to the native window, like real keys, independent of the focus.
        QTest::keyClick(m_window->windowHandle(), Qt::Key_D, both);
        QCOMPARE(find<QWidget>("debugKordiaGroupBox")->isVisible(), shown);
        QCOMPARE(find<QWidget>("debugGroupBox")->isVisible(), shown);
    }
    QTest::keyClick(m_window->windowHandle(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(m_window->windowHandle(), Qt::Key_D, Qt::AltModifier);
    QTest::keyClick(m_window->windowHandle(), Qt::Key_D);
    QVERIFY(find<QWidget>("debugGroupBox")->isVisible());
}

void TestMainWindow::togglesDebugGroup()
{
    open();
    QTest::keyClick(m_window.get(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    auto *hide = find<QPushButton>("dbgHidePushButton");
    QTest::mouseClick(hide, Qt::LeftButton);
    QVERIFY(!find<QWidget>("debugGroupBox")->isVisible());
    QVERIFY(find<QWidget>("debugKordiaGroupBox")->isVisible());
    hide->click();
    QVERIFY(find<QWidget>("debugGroupBox")->isVisible());
}

void TestMainWindow::opensAboutQt()
{
    open();
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *box) { box->close(); });
    find<QAction>("actionAbout_QT")->trigger();
    QTRY_VERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
}

void TestMainWindow::openWithoutDatabase()
{
    QVERIFY(QDir().mkpath(QStringLiteral("songsdb_debug")));
    open();
    QVERIFY(QDir().rmdir(QStringLiteral("songsdb_debug")));
}

void TestMainWindow::staysUsableWhenTheDatabaseFails()
{
    const LogCapture log;
    openWithoutDatabase();
    QVERIFY(log.contains(QStringLiteral("Error initializing DB !!! ")));
    auto *view = find<QTableView>("userLibraryTableView");
    QVERIFY(view->model() == nullptr);
    QCOMPARE(view->contextMenuPolicy(), Qt::DefaultContextMenu);
    for (const char *button :
         {"selectDirToolButton", "updateDataToolButton", "transferFilesToolButton"})
        QVERIFY(!find<QToolButton>(button)->isEnabled());
    DialogScript script;
    QTest::mouseDClick(view->viewport(), Qt::LeftButton);
    QMetaObject::invokeMethod(m_window.get(), "on_selectDirToolButton_clicked");
    find<QPushButton>("dbgImportPushButton")->click();
    QVERIFY(!m_window->updateUserLibrary());
    QVERIFY(!m_window->updateFileWithDb(0));
    script.expectFilesCancelled();
    QVERIFY(!m_window->transferFiles());
    find<QAction>("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(find<QAction>("actionQuit")->text(), QStringLiteral("Quit"));
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
}

void TestMainWindow::revealsNothingWhenTheDatabaseFails()
{
    openWithoutDatabase();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    for (const char *group : {"debugKordiaGroupBox", "debugGroupBox"})
        QVERIFY(!find<QWidget>(group)->isVisible());
}

void TestMainWindow::closesWhenNothingRuns()
{
    open();
    find<QAction>("actionQuit")->trigger();
    QVERIFY(!m_window->isVisible());
}

void TestMainWindow::refusesToCloseDuringARun()
{
    open();
    auto run = std::make_unique<RunGuard>();
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible());
    QVERIFY(RunGuard::endRequested());
    QMetaObject::invokeMethod(m_window.get(), "on_selectDirToolButton_clicked");
    find<QAction>("actionAbout_QT")->trigger();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    run.reset();
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
    QVERIFY(m_window->close());
}

void TestMainWindow::reachesEverythingByTab()
{
    open();
    QTest::keyClick(m_window.get(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    for (const char *button : {"updateDataToolButton", "transferFilesToolButton"})
        find<QToolButton>(button)->setEnabled(true);
    find<QCheckBox>("dbgLogEnableCheckBox")->setChecked(true);
    find<QToolButton>("selectDirToolButton")->setFocus();
    QStringList order;
    for (int i = 0; i < 17; ++i) {
        order.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    const QStringList wanted{
        QStringLiteral("selectDirToolButton"),  QStringLiteral("searchLineEdit"),
        QStringLiteral("searchHelpToolButton"), QStringLiteral("userLibraryTableView"),
        QStringLiteral("updateDataToolButton"), QStringLiteral("transferFilesToolButton"),
        QStringLiteral("memoryToolButton"),     QStringLiteral("dbgLogEnableCheckBox"),
        QStringLiteral("dbgLogClearCheckBox"),  QStringLiteral("dbgMarkerTextLineEdit"),
        QStringLiteral("dbgMarkerBarSpinBox"),  QStringLiteral("dbgAddMarkerPushButton"),
        QStringLiteral("dbgSavePushButton"),    QStringLiteral("dbgImportPushButton"),
        QStringLiteral("dbgBackupPushButton"),  QStringLiteral("dbgShowDialogPushButton"),
        QStringLiteral("dbgHidePushButton")};
    QCOMPARE(order.mid(0, wanted.size()), wanted);
}

void TestMainWindow::reachesMenusByKeyboard()
{
    open();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Alt);
    QVERIFY(m_window->menuBar()->activeAction() != nullptr);
    QTest::keyClick(m_window->menuBar(), Qt::Key_Right);
    QCOMPARE(m_window->menuBar()->activeAction()->menu()->objectName(),
             QStringLiteral("menuPreferences"));
}

BRISEL_TEST(QApplication, TestMainWindow)
#include "tst_mainwindow.moc"
