#include "history/history.h"
#include "tests/app/reporttest.h"
#include "tests/queuedinput.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTreeView>

using namespace brisel;

/// Clicks that a run finds in the queue at its end, on the window and on "Interrompi": they come
/// while the progress is still shown, so the window gets none, and the run has still done
/// everything.
class TestLateClicks : public ReportTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void areForTheProgress_data();
    void areForTheProgress();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Action = void (TestLateClicks::*)();

    void importAll() { import(m_names); }
    void changeToEnglish() { m_sample->changeLanguage(u"en"_qs); }
    void synchronise();
    void synchroniseWithBackup();
    void preview();
    void editAll();
    void deleteAll();
    void restoreRun();
    void restoreRows();
    void restoreBackup();

    void click();
    void answer(QMessageBox::StandardButton button);
    void trigger(const QString &action) { m_window->findChild<QAction *>(action)->trigger(); }
    void chooseFromMenuOfAll(const QString &action);

    QStringList m_names;
    QString m_title;                       ///< of the progress dialogs at whose ends clicks come
    std::unique_ptr<QueuedInput> m_clicks; ///< null while none come
    QStringList m_clicked; ///< the titles of the progress dialogs that were shown at clicks
};

/// More songs than the first rounds of events, so that the last one is not followed by a round.
void TestLateClicks::init()
{
    constexpr int count = 18;
    QFile::remove(History::defaultPath());
    openWindow();
    m_clicked.clear();
    m_names.clear();
    for (int i = 0; i < count; ++i)
        m_names.append(u"%1/one.mid"_qs.arg(i, 2, 10, QChar(u'0')));
    for (const QString &name : std::as_const(m_names))
        makeFile(at(name), Sample::midi("one", true));
    qApp->installEventFilter(this);
}

void TestLateClicks::cleanup()
{
    qApp->removeEventFilter(this);
    m_clicks.reset();
    closeWindow();
}

bool TestLateClicks::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = qobject_cast<QProgressDialog *>(watched);
    if (event->type() != QEvent::Show || dialog == nullptr || dialog->windowTitle() != m_title)
        return false;
    auto *bar = dialog->findChild<QProgressBar *>();
    connect(bar, &QProgressBar::valueChanged, this, [this, bar](int value) {
        if (value == bar->maximum() && m_clicks != nullptr)
            m_clicks->add();
    });
    return false;
}

void TestLateClicks::click()
{
    const QWidget *dialog = QApplication::activeModalWidget();
    const bool isShown = dialog != nullptr && dialog->isVisible();
    m_clicked.append(isShown ? dialog->windowTitle() : QString());
    sendClick(*tool("selectDirToolButton"));
    if (isShown)
        sendClick(*dialog->findChild<QPushButton *>());
}

void TestLateClicks::answer(QMessageBox::StandardButton button)
{
    m_script->expect("QMessageBox", [button](QWidget *box) {
        QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(button), Qt::LeftButton);
    });
}

void TestLateClicks::chooseFromMenuOfAll(const QString &action)
{
    table()->selectAll();
    m_script->expectMenu([this, action](QMenu *menu) {
        auto *wanted = m_window->findChild<QAction *>(action);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(wanted).center());
    });
    emit table()->customContextMenuRequested(cell(0));
}

void TestLateClicks::synchronise()
{
    expectBackup(u"exitPushButton"_qs);
    clickSync();
}

void TestLateClicks::synchroniseWithBackup()
{
    expectBackupToFolder();
    answer(QMessageBox::Ok);
    clickSync();
}

void TestLateClicks::preview()
{
    m_script->expect("PreviewDialog", [](QWidget *dialog) { dialog->close(); });
    trigger(u"actionPreview"_qs);
}

void TestLateClicks::editAll()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    table()->setFocus();
    QTRY_VERIFY(table()->hasFocus()); // the file dialog may have been closed just now
    table()->selectAll();
    expectEdit([](QWidget *dialog) {
        DialogScript::type(dialog->findChild<QLineEdit *>(u"authorLineEdit"_qs), u"X"_qs);
        DialogScript::click(dialog, u"savePushButton"_qs);
    });
    QTest::keyClick(table(), Qt::Key_Return);
}

void TestLateClicks::deleteAll()
{
    answer(QMessageBox::Yes);
    chooseFromMenuOfAll(u"actionDeleteFile"_qs);
}

void TestLateClicks::restoreRun()
{
    m_script->expect("HistoryDialog", [](QWidget *dialog) {
        auto *tree = dialog->findChild<QTreeView *>();
        tree->setCurrentIndex(tree->model()->index(0, 0));
        DialogScript::click(dialog, u"restorePushButton"_qs);
    });
    trigger(u"actionHistory"_qs);
}

void TestLateClicks::restoreRows()
{
    chooseFromMenuOfAll(u"actionRestore"_qs);
}

void TestLateClicks::restoreBackup()
{
    m_script->expectFiles(
        {at(u"backups/"_qs) + QDir(at(u"backups"_qs)).entryList({u"backup_*"_qs}).first()});
    m_script->expect("BackupRestoreDialog",
                     [](QWidget *dialog) { DialogScript::click(dialog, u"restorePushButton"_qs); });
    trigger(u"actionRestoreBackup"_qs);
}

void TestLateClicks::areForTheProgress_data()
{
    QTest::addColumn<QList<Action>>("before");
    QTest::addColumn<Action>("action");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("report");
    using Test = TestLateClicks;
    const QList<Action> none;
    const QList<Action> imported{&Test::importAll};
    const QList<Action> synchronised{&Test::importAll, &Test::synchroniseWithBackup};
    const QString restored = u"Ripristino: 18 ripristinate"_qs;
    QTest::newRow("import") << none << &Test::importAll << u"Lettura file"_qs << QString();
    QTest::newRow("synchronisation, English")
        << QList<Action>{&Test::importAll, &Test::changeToEnglish} << &Test::synchronise
        << u"Updating file"_qs << u"Synchronization: 18 updated"_qs;
    QTest::newRow("deletion, English")
        << QList<Action>{&Test::importAll, &Test::changeToEnglish} << &Test::deleteAll
        << u"Deleting files"_qs << u"Deletion: 18 deleted"_qs;
    QTest::newRow("synchronisation") << imported << &Test::synchronise << u"Aggiornamento file"_qs
                                     << u"Sincronizzazione: 18 aggiornate"_qs;
    QTest::newRow("preview") << imported << &Test::preview << u"Anteprima"_qs << QString();
    QTest::newRow("backup") << imported << &Test::synchroniseWithBackup << u"Backup"_qs
                            << u"Sincronizzazione, Backup: 18 aggiornate, 18 copiate"_qs;
    QTest::newRow("edit") << imported << &Test::editAll << u"Aggiornamento file"_qs
                          << u"Modifica: 18 modificate"_qs;
    QTest::newRow("deletion") << imported << &Test::deleteAll << u"Cancellazione file"_qs
                              << u"Cancellazione: 18 cancellate"_qs;
    QTest::newRow("run of the history")
        << synchronised << &Test::restoreRun << u"Ripristino"_qs << restored;
    QTest::newRow("rows") << synchronised << &Test::restoreRows << u"Ripristino"_qs << restored;
    QTest::newRow("backup put back")
        << synchronised << &Test::restoreBackup << u"Ripristino"_qs << restored;
}

void TestLateClicks::areForTheProgress()
{
    QFETCH(const QList<Action>, before);
    QFETCH(const Action, action);
    QFETCH(const QString, title);
    for (const Action each : before)
        (this->*each)();
    verifyScript();
    m_title = title;
    m_clicks = std::make_unique<QueuedInput>([this] { click(); });
    (this->*action)();
    QCoreApplication::processEvents();
    verifyScript(); // no button of the window has opened a dialog
    QVERIFY(!m_clicked.isEmpty());
    for (const QString &shown : std::as_const(m_clicked))
        QCOMPARE(shown, title);
    QTEST(outcome(), "report");
}

BRISEL_TEST(QApplication, TestLateClicks)
#include "tst_lateclicks.moc"
