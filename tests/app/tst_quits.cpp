#include "index/index.h"
#include "tests/app/workflowtest.h"
#include "tests/logcapture.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QDirIterator>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QWindow>

#include <chrono>

using namespace brisel;

using namespace std::chrono_literals;

namespace
{

enum Way { Quit, CloseWindow, LogOut };

/// The files below \a folder, for comparison before and after a run.
QMap<QString, QByteArray> filesBelow(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entry(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        const QString path = entry.next();
        files.insert(path, fileContent(path));
    }
    return files;
}

} // namespace

/// The program is asked to end during each run: it asks no more questions, ends the run at its next
/// step, leaves rows and files whole, and ends.
class TestQuits : public WorkflowTest
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup() { closeWindow(); }

    void endsAnImport();
    void endsTheSummaryOfAnImport();
    void endsABackup();
    void endsASynchronisation();
    void takesNoAnswerOfASynchronisation();
    void endsAPreview();
    void writesNothingOfAPreviewThatWasOpen();
    void endsASpreadEdit();
    void endsATransfer();
    void takesNoAnswerOfATransfer();
    void endsTheIndexOfATransfer();
    void takesNoAnswerOfTheIndexOfATransfer();
    void endsAnIndexRun();
    void takesNoAnswerOfAnIndexRun();
    void endsASongsList();

private:
    QString card() const { return at(u"volumes/CARD"_qs); }
    /// Asks the program to end, in the way of the current data row.
    void leave() const;
    /// Asks it when \a isNow is true for the first time while a run processes events.
    void leaveWhen(std::function<bool()> isNow);
    void leaveAtProgress(const QString &title, const QString &label);
    /// The next question is open when the program is asked to end, and is then answered "Si".
    void leaveInQuestion(DialogScript &script);
    /// Runs the program's event loop with \a work as the user's input, which must end the program.
    void run(const std::function<void()> &work);
    /// Opens a dialog of the menu and runs \a work in it.
    void runDialog(const char *action, const char *className,
                   const std::function<void(QWidget *)> &work);
    /// A memory with an index, a new song and one whose name is too long for players.
    void makeIndexedCard();

    bool m_left = false;
};

void TestQuits::initTestCase_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("quit") << int(Quit);
    QTest::newRow("last window closed") << int(CloseWindow);
    QTest::newRow("log-out") << int(LogOut);
}

void TestQuits::init()
{
    openWindow();
    m_left = false;
}

void TestQuits::leave() const
{
    QFETCH_GLOBAL(int, way);
    if (way == Quit) {
        QCoreApplication::quit();
    } else if (way == CloseWindow) {
        m_window->windowHandle()->close();
    } else {
        // The event of a session's end, after the request to save data.
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    }
}

void TestQuits::leaveWhen(std::function<bool()> isNow)
{
    auto *timer = new QTimer(m_window);
    connect(timer, &QTimer::timeout, this, [this, timer, isNow = std::move(isNow)] {
        if (!isNow())
            return;
        timer->stop();
        m_left = true;
        leave();
    });
    timer->start(0);
}

void TestQuits::leaveAtProgress(const QString &title, const QString &label)
{
    atProgress(title, label, [this](QProgressDialog *) {
        m_left = true;
        leave();
    });
}

void TestQuits::leaveInQuestion(DialogScript &script)
{
    script.expect("NoCopyrightDialog", [this](QWidget *widget) {
        m_left = true;
        leave();
        DialogScript::click(widget, u"yesAllPushButton"_qs);
    });
}

void TestQuits::run(const std::function<void()> &work)
{
    bool isLate = false;
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, this, [&isLate] {
        isLate = true;
        QCoreApplication::exit();
    });
    patience.start(60s);
    const FailureWatch watch;
    connect(&watch, &FailureWatch::failed, qApp, [] { QCoreApplication::exit(); });
    QTimer::singleShot(0, m_window, work);
    QApplication::exec();
    QVERIFY2(!isLate, "the program did not end");
    QVERIFY2(m_left, "the moment did not come");
    QVERIFY(!m_window->isVisible());
    verifyScript();
}

void TestQuits::runDialog(const char *action, const char *className,
                          const std::function<void(QWidget *)> &work)
{
    m_script->expectClosedLater(className, work);
    run([this, action] { m_window->findChild<QAction *>(QString::fromLatin1(action))->trigger(); });
}

void TestQuits::makeIndexedCard()
{
    makeFile(card() + u"/A.MID"_qs, Sample::midi("A", false));
    QVERIFY(ScriptedIndex().createIndex(card()));
    makeFile(card() + u"/A long name.mid"_qs, Sample::midi("Long", false));
    makeFile(card() + u"/B.MID"_qs, Sample::midi("B", false));
}

void TestQuits::endsAnImport()
{
    m_window->enableCopyrightMessage(true);
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    m_script->expectFiles({at(u"one.mid"_qs), at(u"two.mid"_qs), at(u"three.mid"_qs)});
    leaveAtProgress(u"Lettura file"_qs, u"1 di 3"_qs);
    run([this] { m_sample->press("selectDirToolButton"); });
    QCOMPARE(statuses(), u"0"_qs);
    QCOMPARE(model().fileName(0), at(u"one.mid"_qs));
}

/// There is no run while the summary is open: the program ends at once, and the summary returns
/// "No".
void TestQuits::endsTheSummaryOfAnImport()
{
    m_window->enableCopyrightMessage(true);
    makeSongs({u"one.mid"_qs}, true);
    m_script->expectFiles({at(u"one.mid"_qs)});
    m_script->expectClosedLater("ProceedDialog", [this](QWidget *) {
        m_left = true;
        leave();
    });
    const LogCapture log;
    run([this] { m_sample->press("selectDirToolButton"); });
    QVERIFY(!log.contains(u"          UPDATE USER LIBRARY "_qs));
    QCOMPARE(statuses(), u"0"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
}

void TestQuits::endsABackup()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs});
    expectBackupToFolder();
    leaveAtProgress(u"Backup"_qs, u"1 di 2"_qs);
    run([this] { clickSync(); });
    QCOMPARE(statuses(), u"00"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"one"_qs);
    const QStringList made = QDir(at(u"backups"_qs)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(made.size(), 1);
    QCOMPARE(QDir(at(u"backups/"_qs + made.first())).entryList(QDir::Files),
             QStringList({u"contenuto.csv"_qs, u"one.mid"_qs}));
}

void TestQuits::endsASynchronisation()
{
    m_window->enableCopyrightMessage(false);
    makeSongs({u"one.mid"_qs}, true);
    makeSongs({u"two.mid"_qs, u"three.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    leaveAtProgress(u"Aggiornamento file"_qs, u"1 di 3"_qs);
    run([this] { clickSync(); });
    QCOMPARE(statuses(), u"100"_qs);
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
    QCOMPARE(title(u"two.mid"_qs), u"two"_qs);
}

void TestQuits::takesNoAnswerOfASynchronisation()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    const auto before = filesBelow(m_folder->path());
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    leaveInQuestion(*m_script);
    run([this] { clickSync(); });
    QCOMPARE(statuses(), u"00"_qs);
    QCOMPARE(filesBelow(m_folder->path()), before);
}

void TestQuits::endsAPreview()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, true);
    import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    leaveAtProgress(u"Anteprima"_qs, u"1 di 3"_qs);
    run([this] { m_window->findChild<QAction *>(u"actionPreview"_qs)->trigger(); });
    QCOMPARE(statuses(), u"000"_qs);
}

void TestQuits::writesNothingOfAPreviewThatWasOpen()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    const auto before = filesBelow(m_folder->path());
    m_script->expect("PreviewDialog", [this](QWidget *widget) {
        m_left = true;
        leave();
        DialogScript::click(widget, u"writePushButton"_qs);
    });
    run([this] { m_window->findChild<QAction *>(u"actionPreview"_qs)->trigger(); });
    QCOMPARE(statuses(), u"0"_qs);
    QCOMPARE(filesBelow(m_folder->path()), before);
}

void TestQuits::endsASpreadEdit()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    const QByteArray before = fileContent(at(u"two.mid"_qs));
    expectEdit([](QWidget *widget) {
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        DialogScript::click(widget, u"checkBoxToAllAuthor"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    leaveAtProgress(u"Aggiornamento file"_qs, u"Aggiorno la libreria..."_qs);
    run([this] { doubleClick(0); });
    QCOMPARE(statuses(), u"20"_qs);
    QCOMPARE(fileContent(at(u"two.mid"_qs)), before);
}

void TestQuits::endsATransfer()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    makeFile(card() + u"/songs/two.mid"_qs, "old");
    m_script->expectFiles({card()});
    leaveAtProgress(u"Trasferimento"_qs, u"1 di 2"_qs);
    run([this] { clickTransfer(); });
    QCOMPARE(filesBelow(card()),
             (QMap<QString, QByteArray>{{card() + u"/songs/one.mid"_qs, Sample::midi("one", false)},
                                        {card() + u"/songs/two.mid"_qs, "old"}}));
    QCOMPARE(statuses(), u"00"_qs);
}

void TestQuits::takesNoAnswerOfATransfer()
{
    makeSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    import({u"one.mid"_qs, u"two.mid"_qs});
    for (const QString &name : {u"one.mid"_qs, u"two.mid"_qs})
        makeFile(card() + u"/songs/"_qs + name, "old");
    const auto before = filesBelow(card());
    m_script->expectFiles({card()});
    leaveInQuestion(*m_script);
    run([this] { clickTransfer(); });
    QCOMPARE(filesBelow(card()), before);
    QCOMPARE(statuses(), u"00"_qs);
}

void TestQuits::endsTheIndexOfATransfer()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    makeIndexedCard();
    auto expected = filesBelow(card());
    expected.insert(card() + u"/songs/one.mid"_qs, Sample::midi("one", false));
    m_script->expectFiles({card()});
    leaveAtProgress(u"Aggiornamento"_qs, u"Aggiornamento database..."_qs);
    run([this] { clickTransfer(); });
    QCOMPARE(filesBelow(card()), expected);
    QCOMPARE(statuses(), u"0"_qs);
}

void TestQuits::takesNoAnswerOfTheIndexOfATransfer()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    makeIndexedCard();
    auto expected = filesBelow(card());
    expected.insert(card() + u"/songs/one.mid"_qs, Sample::midi("one", false));
    m_script->expectFiles({card()});
    leaveInQuestion(*m_script);
    run([this] { clickTransfer(); });
    QCOMPARE(filesBelow(card()), expected);
}

void TestQuits::endsAnIndexRun()
{
    makeIndexedCard();
    const auto before = filesBelow(card());
    runDialog("optimizeMemory", "IndexDialog", [this](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        widget->findChild<QRadioButton *>(u"radioButtonRebuild"_qs)->setChecked(true);
        leaveWhen([widget] {
            return !widget->findChild<QPushButton *>(u"pushButtonStart"_qs)->isEnabled();
        });
        DialogScript::click(widget, u"pushButtonStart"_qs);
    });
    QCOMPARE(filesBelow(card()), before);
}

void TestQuits::takesNoAnswerOfAnIndexRun()
{
    makeIndexedCard();
    const auto before = filesBelow(card());
    runDialog("optimizeMemory", "IndexDialog", [this](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        DialogScript inner;
        leaveInQuestion(inner);
        DialogScript::click(widget, u"pushButtonStart"_qs);
    });
    QCOMPARE(filesBelow(card()), before);
}

void TestQuits::endsASongsList()
{
    makeIndexedCard();
    makeFile(at(u"list.csv"_qs), "the old list");
    const auto before = filesBelow(m_folder->path());
    runDialog("actionSongsList", "SongsListDialog", [this](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        widget->findChild<QLineEdit *>(u"lineEditFile"_qs)->setText(at(u"list.csv"_qs));
        leaveWhen([widget] {
            return !widget->findChild<QPushButton *>(u"pushButtonStart"_qs)->isEnabled();
        });
        DialogScript::click(widget, u"pushButtonStart"_qs);
    });
    QCOMPARE(filesBelow(m_folder->path()), before);
}

BRISEL_TEST(QApplication, TestQuits)
#include "tst_quits.moc"
