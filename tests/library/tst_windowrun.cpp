#include "library/dialogs/windowrun.h"
#include "tests/queuedinput.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace brisel;

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

class TestWindowRun : public QObject
{
    Q_OBJECT

private slots:
    void blocksTheWindowFromTheFirstMoment();
    void showsCountInLabelAndBar();
    void keepsLabelWhenOnlyTheBarMoves();
    void showsSongNamesAsTheyAre();
    void remembersCancelAndStaysClosed_data();
    void remembersCancelAndStaysClosed();
    void paintsWhileTheValueIsSet();
    void paintsWhileNoBarMoves();
    void showsTheLastStepAtThePaintingsInBetween();
    void showsAShortRunWhole();
    void laysOutFewOfManySteps();
    void processesEventsAtAPace();
    void clickBeforeTheEndDoesNotInterrupt();
    void forgetsCancelAtTheNextRun();
    void replacesAnOpenDialog();
    void countsARequestToEndAsCancel();
    void closesWithItsOwner();
    void toleratesCallsWithoutADialog();

private:
    static QProgressDialog *dialogOf(const QWidget &window)
    {
        return window.findChild<QProgressDialog *>();
    }
    /// Begins a run of 100 steps; its dialog has been painted.
    static QProgressDialog *beginShown(QMainWindow &window, WindowRun &run)
    {
        window.show();
        run.begin({QStringLiteral("T"), QStringLiteral("L"), 100});
        run.processEvents();
        return dialogOf(window);
    }
    static QString labelOf(const QWidget &window)
    {
        return dialogOf(window)->findChild<QLabel *>()->text();
    }
};

void TestWindowRun::blocksTheWindowFromTheFirstMoment()
{
    QMainWindow window;
    window.show();
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("Lettura file"), QStringLiteral("Importo la libreria..."), 5});

    QProgressDialog *dialog = dialogOf(window);
    QVERIFY(dialog != nullptr);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->windowModality(), Qt::WindowModal);
    QCOMPARE(QApplication::activeModalWidget(), dialog);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Lettura file"));
    QCOMPARE(labelOf(window), QStringLiteral("Importo la libreria..."));
    QCOMPARE(dialog->findChild<QPushButton *>()->text(), QStringLiteral("Interrompi"));
    QCOMPARE(dialog->minimum(), 0);
    QCOMPARE(dialog->maximum(), 5);
    QCOMPARE(dialog->value(), 0);
}

void TestWindowRun::showsCountInLabelAndBar()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 3});
    for (int value = 1; value <= 3; ++value) {
        run.setStep(value);
        QCOMPARE(labelOf(window), QStringLiteral("%1 di 3").arg(value));
        QCOMPARE(dialogOf(window)->value(), value);
    }
    QVERIFY2(dialogOf(window)->isVisible(), "the last step alone does not close the dialog");
    QVERIFY(run.mayGoOn());
}

void TestWindowRun::keepsLabelWhenOnlyTheBarMoves()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("Aggiornamento database..."), 0, false});
    QCOMPARE(dialogOf(window)->maximum(), 0);
    run.setSteps(9);
    run.setStep(4);
    QCOMPARE(dialogOf(window)->maximum(), 9);
    QCOMPARE(dialogOf(window)->value(), 4);
    QCOMPARE(labelOf(window), QStringLiteral("Aggiornamento database..."));
}

void TestWindowRun::showsSongNamesAsTheyAre()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("<b>x</b>"), 1});
    QCOMPARE(dialogOf(window)->findChild<QLabel *>()->textFormat(), Qt::PlainText);
}

void TestWindowRun::remembersCancelAndStaysClosed_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"button", "escape", "close"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestWindowRun::remembersCancelAndStaysClosed()
{
    QFETCH(QString, way);
    QMainWindow window;
    window.show();
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 4});
    run.setStep(1);
    QProgressDialog *dialog = dialogOf(window);
    if (way == QStringLiteral("button"))
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    else if (way == QStringLiteral("escape"))
        QTest::keyClick(dialog, Qt::Key_Escape);
    else
        dialog->close();
    QVERIFY(!run.mayGoOn());

    for (int value = 2; value <= 4; ++value) {
        run.setStep(value);
        run.processEvents();
        QVERIFY(!dialog->isVisible());
        QVERIFY(!run.mayGoOn());
    }
    QCOMPARE(labelOf(window), QStringLiteral("4 di 4"));
    run.end();
    QVERIFY(!run.mayGoOn());
}

void TestWindowRun::paintsWhileTheValueIsSet()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    PaintCounter painted;
    beginShown(window, run)->findChild<QLabel *>()->installEventFilter(&painted);
    constexpr int patience = 10000; // milliseconds
    QElapsedTimer clock;
    clock.start();
    for (int value = 0; painted.count < 3 && clock.elapsed() < patience; ++value)
        run.setStep(value % 100);
    QCOMPARE(painted.count, 3);
}

void TestWindowRun::paintsWhileNoBarMoves()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    PaintCounter painted;
    QProgressDialog *dialog = beginShown(window, run);
    dialog->installEventFilter(&painted);
    constexpr int patience = 10000; // milliseconds
    QElapsedTimer clock;
    clock.start();
    while (painted.count < 3 && clock.elapsed() < patience) {
        dialog->update();
        run.pulse();
    }
    QCOMPARE(painted.count, 3);
    QVERIFY2(clock.elapsed() >= 2 * 50, qPrintable(QString::number(clock.elapsed())));
}

/// A painting that comes just before a step must not keep the bar from showing it.
void TestWindowRun::showsTheLastStepAtThePaintingsInBetween()
{
    constexpr int firstSteps = 33;  // they are shown in any case
    constexpr int patience = 10000; // milliseconds
    QMainWindow window;
    window.show();
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 100});
    PaintCounter painted;
    dialogOf(window)->installEventFilter(&painted);
    QElapsedTimer clock;
    clock.start();
    const auto pulseUntilPainted = [&] {
        for (painted.count = 0; painted.count == 0 && clock.elapsed() < patience;) {
            dialogOf(window)->update();
            run.pulse();
        }
    };
    for (int step = 0; step < firstSteps; ++step)
        run.setStep(1);
    for (int step = 20; step < 100; step += 10) {
        pulseUntilPainted();
        run.setStep(step);
        pulseUntilPainted();
        QCOMPARE(dialogOf(window)->value(), step);
    }
}

void TestWindowRun::showsAShortRunWhole()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 10});
    for (int value = 1; value <= 10; ++value) {
        run.setStep(value);
        QCOMPARE(labelOf(window), QStringLiteral("%1 di 10").arg(value));
    }
}

/// Ten thousand songs: the advance is shown at the pace of PaintPace, and the end always.
void TestWindowRun::laysOutFewOfManySteps()
{
    constexpr int steps = 10000;
    QMainWindow window;
    window.show();
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), steps});
    QElapsedTimer clock;
    clock.start();
    QString last;
    qint64 shown = 0;
    for (int value = 1; value <= steps; ++value) {
        run.setStep(value);
        run.processEvents();
        const QString label = labelOf(window);
        shown += label == last ? 0 : 1;
        last = label;
    }
    QCOMPARE(last, QStringLiteral("10000 di 10000"));
    QVERIFY2(shown <= 36 + clock.elapsed() / 50, qPrintable(QString::number(shown)));
}

/// A search through ten thousand files shows no step, and lets events through no more often than
/// other runs do.
void TestWindowRun::processesEventsAtAPace()
{
    constexpr int rounds = 10000;
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 0});
    QElapsedTimer clock;
    clock.start();
    qint64 taken = 0;
    for (int i = 0; i < rounds; ++i) {
        bool through = false;
        QMetaObject::invokeMethod(
            &window, [&through] { through = true; }, Qt::QueuedConnection);
        run.processEvents();
        taken += through ? 1 : 0;
        QCoreApplication::removePostedEvents(&window, QEvent::MetaCall);
    }
    QVERIFY2(taken >= 16, qPrintable(QString::number(taken)));
    QVERIFY2(taken <= 20 + clock.elapsed() / 10, qPrintable(QString::number(taken)));
}

/// A run that has done everything is not interrupted.
void TestWindowRun::clickBeforeTheEndDoesNotInterrupt()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    const auto *button = beginShown(window, run)->findChild<QPushButton *>();
    bool isClicked = false;
    const QueuedInput input([&] {
        isClicked = dialogOf(window)->isVisible();
        sendClick(*button);
    });
    QCoreApplication::processEvents();
    input.add();
    run.end();
    QVERIFY(isClicked);
    QVERIFY(run.mayGoOn());
}

void TestWindowRun::forgetsCancelAtTheNextRun()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 4});
    QTest::mouseClick(dialogOf(window)->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(!run.mayGoOn());
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 4});
    QVERIFY(run.mayGoOn());
    QVERIFY(dialogOf(window)->isVisible());
}

void TestWindowRun::replacesAnOpenDialog()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("A"), QStringLiteral("L"), 4});
    run.begin({QStringLiteral("B"), QStringLiteral("L"), 4});
    QCOMPARE(window.findChildren<QProgressDialog *>().size(), 1);
    QCOMPARE(dialogOf(window)->windowTitle(), QStringLiteral("B"));
}

void TestWindowRun::countsARequestToEndAsCancel()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.begin({QStringLiteral("T"), QStringLiteral("L"), 4});
    QVERIFY(run.mayGoOn());
    QTimer::singleShot(0, qApp, [] { RunGuard::requestEnd(); });
    run.processEvents();
    QVERIFY(!run.mayGoOn());
}

void TestWindowRun::closesWithItsOwner()
{
    QMainWindow window;
    {
        WindowRun run(&window, RunReport::Operation::Import);
        run.begin({QStringLiteral("T"), QStringLiteral("L"), 4});
        QVERIFY(dialogOf(window) != nullptr);
    }
    QVERIFY(dialogOf(window) == nullptr);
}

void TestWindowRun::toleratesCallsWithoutADialog()
{
    QMainWindow window;
    WindowRun run(&window, RunReport::Operation::Import);
    run.setStep(3);
    run.setStep(3);
    run.setSteps(3);
    run.processEvents();
    run.end();
    QVERIFY(run.mayGoOn());
    QVERIFY(dialogOf(window) == nullptr);
}

BRISEL_TEST(QApplication, TestWindowRun)
#include "tst_windowrun.moc"
